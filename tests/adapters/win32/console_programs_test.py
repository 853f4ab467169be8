"""The console programs on machines with a wrong setup: runs inin-site and inin-script under Wine.

console_programs_test.py ININ_SITE ININ_SCRIPT SYSTEM_TEST
"""
import json
import os
import pathlib
import pty
import shutil
import subprocess
import sys
import tempfile
import unittest

SITE, SCRIPT, SYSTEM_TEST = sys.argv[1:4]
PRINT = [{"click": "optPrint(0)"}, {"click": "optObject(0)"}, {"click": "optTgtDate(0)"}, {"click": "optDspPeriod(0)"},
         {"set": "imD_Out", "to": "2024/05/01"}, {"click": "btnPrint(0)"}, {"click": "btnPrint(6)"}]
NO_CONNECTION = "接続文字列取得できません。"


def wine(*arguments, given="", **environment):
    """Runs a Windows program and returns its exit code and standard output."""
    ran = subprocess.run(["wine", *arguments], input=given.encode(), stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                         env={**os.environ, **environment}, timeout=120, check=False)
    return ran.returncode, ran.stdout.decode(errors="replace")


def wine_on_console(*arguments):
    """Runs a Windows program on a console and returns its exit code and what a terminal receives."""
    process, terminal = pty.fork()
    if process == 0:
        os.execvpe("wine", ["wine", *arguments], {**os.environ, "TERM": "xterm"})
    received = b""
    try:
        while part := os.read(terminal, 4096):
            received += part
    except OSError:  # the program has ended
        pass
    os.close(terminal)
    return os.waitstatus_to_exitcode(os.waitpid(process, 0)[1]), received.decode(errors="replace")


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


class Site:
    """A demo site with a few patients, and the programs run on it."""

    def __init__(self, folder, name=None):
        self.folder = folder
        self.name = name or windows_path(folder)
        code, said = wine(SITE, "make", self.name, "--patients", "5", "--month", "2024-05")
        assert code == 0, said

    def play(self, commands=(), **environment):
        """The exit code and the events of a run, without the SQL statements."""
        lines = "".join(json.dumps(command) + "\n" for command in commands)
        code, said = wine(SCRIPT, "--app", self.name, "--now", "2024-06-15 10:00:00", given=lines,
                          **environment)
        events = [json.loads(line) for line in said.splitlines()]
        return code, [event for event in events if event["event"] != "sql"]

    def check(self, **environment):
        return wine(SITE, "check", self.name, **environment)[1].splitlines()

    def connect(self, text):
        (self.folder / "adodb.ini").write_bytes(f"[接続情報]\r\n接続情報={text}\r\n".encode("cp932"))

    def letters(self):
        """The day of the last visit in each letter."""
        lines = (self.folder / "TMP" / "委任状.csv").read_bytes().decode("cp932").splitlines()[1:]
        return [line.split('","')[12] for line in lines]


class Share:
    """A folder that Wine shows as a share of a server: it looks for shares in a folder of its prefix."""

    def __init__(self, folder):
        prefix = pathlib.Path(os.environ.get("WINEPREFIX", pathlib.Path.home() / ".wine"))
        self.server = prefix / "dosdevices" / "unc" / folder.name
        self.server.mkdir(parents=True)
        (self.server / "share").symlink_to(folder)

    def path(self, name):
        return f"\\\\{self.server.name}\\share\\{name}"

    def remove(self):
        (self.server / "share").unlink()
        self.server.rmdir()


def boxes(events):
    return [event["text"] for event in events if event["event"] == "box"]


def set_short_date(form="yyyy/MM/dd"):
    """Sets the user's short date format."""
    key = "HKCU\\Control Panel\\International"
    assert wine("reg", "add", key, "/v", "sShortDate", "/d", form, "/f")[0] == 0


class Registered:
    """A value of the registry, until the end of a test."""

    def __init__(self, key, name, text):
        self.place = (key, "/v", name)
        assert wine("reg", "add", *self.place, "/d", text, "/f")[0] == 0

    def remove(self):
        wine("reg", "delete", *self.place, "/f")


class ConsolePrograms(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="inin-console-"))
        self.addCleanup(shutil.rmtree, self.folder)
        set_short_date()

    def no_drivers(self):
        """Settings for a computer without ODBC drivers."""
        (self.folder / "odbcinst.ini").touch()
        return {"ODBCSYSINI": str(self.folder), "ODBCINI": str(self.folder / "odbc.ini")}

    def test_a_sound_site_prints_and_ends_by_itself(self):
        site = Site(self.folder / "site")
        code, events = site.play(PRINT)
        self.assertEqual((code, boxes(events)), (0, []))
        self.assertEqual(events[-1], {"event": "end", "code": 0})
        self.assertEqual(site.letters(), ["2024/05/31", "2024/05/25", "2024/05/30", "2024/05/29", "2024/05/31",
                                          "2024/05/31"])

    def test_a_short_date_with_an_era_or_the_day_in_front_is_used_in_the_letters_and_found_by_the_check(self):
        site = Site(self.folder / "site")
        self.addCleanup(set_short_date)
        for form, days in (("ggyy/MM/dd", ["令和06/05/31", "令和06/05/25"]), ("d/M/yy", ["31/5/24", "25/5/24"])):
            with self.subTest(form=form):
                set_short_date(form)
                code, events = site.play(PRINT)
                self.assertEqual((code, boxes(events)), (0, []))
                self.assertEqual(site.letters()[:2], days)
                self.assertIn(f"[602] このコンピューターの短い日付の形式が「{form}」なので、データベースが日付を正しく読めません"
                              "（「yyyy/MM/dd」にしてください）。", site.check())

    def test_a_site_at_a_path_of_more_than_300_characters_prints(self):
        site = Site(self.folder.joinpath(*["委任状" * 25] * 4, "site"))
        self.assertGreater(len(windows_path(site.folder)), 300)
        code, events = site.play(PRINT)
        self.assertEqual((code, boxes(events)), (0, []))
        self.assertEqual(len(site.letters()), 6)
        self.assertTrue((site.folder / "DATA" / "印刷設定.ini").exists())

    def test_a_site_on_a_share_is_made_checked_and_printed(self):
        share = Share(self.folder)
        self.addCleanup(share.remove)
        site = Site(self.folder / "委任 状", share.path("委任 状"))
        self.assertEqual(site.check()[-1], "問題は見つかりませんでした。")
        code, events = site.play(PRINT)
        self.assertEqual((code, boxes(events)), (0, []))
        self.assertEqual(len(site.letters()), 6)
        starts = [event["command"] for event in events if event["event"] == "start"]
        self.assertEqual(starts[-1], share.path("委任 状") + "\\Main.exe 2")

    def test_a_console_keeps_its_code_page_and_shows_japanese_text(self):
        code, shown = wine_on_console(SYSTEM_TEST, "-tc=a console *")
        self.assertEqual(code, 0, shown)
        self.assertIn("1 passed", shown)
        site = Site(self.folder / "site")
        self.assertIn("問題は見つかりませんでした。", wine_on_console(SITE, "check", site.name)[1])

    def test_under_another_code_page_the_program_reports_missing_settings_and_continues(self):
        site = Site(self.folder / "site")
        self.addCleanup(set_short_date)  # Wine changes the format when the language changes
        code, events = site.play(PRINT, LC_ALL="C.UTF-8")
        self.assertEqual(code, 0)
        self.assertEqual(boxes(events), ["loadInitCorp でエラー\r\n" + NO_CONNECTION,
                                         "Form_Load() でエラー\r\n" + NO_CONNECTION,
                                         "iGetKanjaData でエラー\r\n" + NO_CONNECTION,
                                         "患者データの取得に失敗しました。"])
        self.assertEqual(events[-1], {"event": "end", "code": 0})

    def test_a_missing_driver_is_reported_at_each_connection_and_the_screen_opens(self):
        site = Site(self.folder / "site")
        no_drivers = self.no_drivers()
        missing = "(-2147467259)no ODBC driver for SQL Server is installed"
        for connection in ("Provider=SQLOLEDB;Data Source=127.0.0.1;Initial Catalog=m;User ID=sa;Password=x",
                           "Driver={ODBC Driver 18 for SQL Server};Server=127.0.0.1;Database=m;UID=sa;PWD=x"):
            with self.subTest(connection=connection):
                site.connect(connection)
                code, events = site.play(PRINT, **no_drivers)
                self.assertEqual(code, 0)
                self.assertEqual(boxes(events), ["loadInitCorp でエラー\r\n" + missing, "Form_Load() でエラー\r\n" + missing,
                                                 "iGetKanjaData でエラー\r\n" + missing,
                                                 "患者データの取得に失敗しました。"])
                self.assertIn({"event": "window", "name": "frmPrintInin", "shown": True}, events)
                self.assertEqual(events[-1], {"event": "end", "code": 0})
                self.assertIn("[403] データベースに接続できません。（no ODBC driver for SQL Server is installed）",
                              site.check(**no_drivers))

    def test_a_read_only_folder_ends_a_print_with_error_75_and_no_settings_are_stored(self):
        site = Site(self.folder / "site")
        for name in ("TMP", "DATA", "."):
            (site.folder / name).chmod(0o555)
            self.addCleanup((site.folder / name).chmod, 0o755)
        if os.access(site.folder / "TMP", os.W_OK):
            self.skipTest("this user may write everywhere")
        code, events = site.play(PRINT)
        self.assertEqual(code, 1)
        self.assertEqual(events[-1], {"event": "fatal", "number": 75, "text": "パス名が無効です。"})
        self.assertEqual(list((site.folder / "TMP").iterdir()) + list((site.folder / "DATA").iterdir()), [])
        found = site.check()
        for name in ("TMP", "DATA"):
            self.assertIn(f"[116] Massage.ini の項目「SYSTEM_{name}」のフォルダー「\\{name}」に書き込めません（パス名が無効です。）。"
                          "使う人の書き込みと削除の権限と、ディスクの空きを確かめてください。", found)

    def test_the_check_of_a_new_demo_site_finds_no_fault_and_leaves_no_file(self):
        site = Site(self.folder / "site")
        before = sorted(site.folder.rglob("*"))
        code, said = wine(SITE, "check", site.name)
        self.assertEqual((code, said.splitlines()[-1]), (0, "問題は見つかりませんでした。"))
        self.assertEqual(sorted(site.folder.rglob("*")), before)

    def test_copies_in_the_virtual_store_are_found(self):
        site = Site(self.folder / "site")
        local = wine("cmd", "/c", "echo %LOCALAPPDATA%")[1].strip()
        unix = subprocess.run(["winepath", "-u", local], capture_output=True, check=True, encoding="utf-8").stdout.strip()
        store = pathlib.Path(unix, "VirtualStore")
        self.assertFalse(store.exists())
        self.addCleanup(shutil.rmtree, store)
        copy = store.joinpath(*site.folder.parts[1:], "TMP", "WfdCom.dat")
        copy.parent.mkdir(parents=True)
        copy.write_bytes(b"old letters")
        named = local + "\\VirtualStore" + windows_path(site.folder).removeprefix("Z:")
        self.assertIn(f"[603] サイトのファイルが、この利用者だけのフォルダー「{named}」にもあります（TMP\\WfdCom.dat）。",
                      "\n".join(site.check()))

    def test_names_that_only_32_bit_programs_know_are_found_with_the_remedy(self):
        site = Site(self.folder / "site")
        for connections, key, sentence in (
                (("DSN=inin test;UID=a;PWD=b", "Provider=MSDASQL;Data Source=inin test", "inin test"),
                 r"ODBC\ODBC.INI\ODBC Data Sources",
                 "[407] adodb.ini のデータソース「inin test」は32ビットのプログラム用にしか登録されていないので、使えません（"
                 "「ODBC データ ソース（64 ビット）」に同じ名前で登録してください）。"),
                (("Provider=SQLOLEDB;Data Source=inin test;Initial Catalog=m", "Driver={SQL Server};Server=inin test"),
                 r"Microsoft\MSSQLServer\Client\ConnectTo",
                 "[407] adodb.ini のサーバーの別名「inin test」は32ビットのプログラム用にしか登録されていないので、使えません（"
                 "System32 の cliconfg.exe で同じ別名を登録してください）。")):
            for connection in connections:
                with self.subTest(connection=connection):
                    site.connect(connection)
                    self.assertNotIn(sentence, site.check(**self.no_drivers()))
                    for_32_bits = Registered(r"HKLM\SOFTWARE\WOW6432Node" + "\\" + key, "inin test", "x")
                    self.addCleanup(for_32_bits.remove)
                    self.assertIn(sentence, site.check(**self.no_drivers()))
                    for_64_bits = Registered(r"HKLM\SOFTWARE" + "\\" + key, "inin test", "x")
                    self.addCleanup(for_64_bits.remove)
                    self.assertNotIn(sentence, site.check(**self.no_drivers()))
                    for_64_bits.remove()
                    for_32_bits.remove()

    def test_a_form_tool_that_must_run_as_administrator_is_found(self):
        site = Site(self.folder / "site")
        setting = Registered(r"HKCU\Software\Microsoft\Windows NT\CurrentVersion\AppCompatFlags\Layers",
                             site.name + "\\wfrfv10.exe", "~ WIN8RTM RUNASADMIN")
        self.addCleanup(setting.remove)
        self.assertIn("[204] プログラム「wfrfv10.exe」に「管理者としてこのプログラムを実行する」の設定があるので、「印刷」を押しても"
                      "何も起こりません（「プロパティ」の「互換性」で設定を外してください）。", site.check())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
