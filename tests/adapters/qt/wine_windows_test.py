#!/usr/bin/env python3
"""Operates PrintInin.exe under Wine as real_windows_test.py operates the program on this system, and compares the two:
events, letters, command script, settings.

wine_windows_test.py PRINTININ ININ-SITE ZIP SETUP PICTURES [CASE...]
PRINTININ and ININ-SITE are this system's programs; ZIP is the archive that an installer unpacks, SETUP the installer,
PICTURES the folder for screenshots. WINEPREFIX selects the Windows installation. scripts/test-windows --windows calls this.
"""
import contextlib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import zipfile

import real_windows_test as real
from real_windows_test import Display, Failed, Program, expect, noted, wait_for, window, work_a_print

# A folder name as on a Japanese Windows, with a blank and characters that only its code page has.
FOLDER = "委任状 デモ"
FORM_TOOLS = ("wfrfv10.exe", "WrVb6Viewer.exe", "wfrimg10.exe")
# The 1280 pixels of the display, less the window frames.
FULL_WIDTH = 1260
# The settings contain the program's own texts, so both systems must write them alike.
COMPARED = ("TMP/委任状.csv", "TMP/WfdCom.dat", "Massage.ini", "adodb.ini", "Sorvin.ver", "DATA/印刷設定.ini")


def wine(*arguments, **options):
    """Runs a program without windows in a separate Wine session."""
    subprocess.run(["wine", *arguments], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True, **options)
    stop_wine()


def without_toolkit_settings(environment):
    return {name: text for name, text in environment.items() if not name.startswith("QT_")}


class WineProgram(Program):
    """PrintInin.exe of a folder, started there as by the menu program: without arguments, in its own folder."""

    def start(self, environment):
        return subprocess.Popen(
            ["wine", self.executable()], cwd=self.site, stderr=subprocess.PIPE, text=True,
            env={**without_toolkit_settings(environment), "ININ_TRANSCRIPT": windows_path(self.transcript)})

    def executable(self):
        return self.site + "/PrintInin.exe"

    def __exit__(self, kind, *rest):
        if kind is not None and kind is not Ended:
            Pictures(self.display, "failed")(os.path.basename(self.transcript))
        super().__exit__(kind, *rest)

    def bring_back(self):
        """Gives the started program time to read its script. It may be in the foreground: titles identify the windows."""
        time.sleep(1.0)
        if self.display.active_title() == "委任状印刷":
            return
        for number in self.display.tool("search", "--name", "^委任状印刷$").split():
            self.display.tool("windowactivate", "--sync", number)
            if self.display.active_title() == "委任状印刷":
                return


class WineDisplay(Display):
    """A display with its own Wine: Wine stays on the display of its desktop, or on none."""

    def __enter__(self):
        stop_wine()
        super().__enter__()
        self.environment["LC_ALL"] = "ja_JP.UTF-8"
        return self

    def __exit__(self, *arguments):
        stop_wine()
        super().__exit__(*arguments)


def stop_wine():
    subprocess.run(["wineserver", "-k"], check=False)
    subprocess.run(["wineserver", "-w"], check=False)


def drive_c():
    return os.environ["WINEPREFIX"] + "/drive_c"


def windows_path(path):
    inside = os.path.relpath(path, drive_c())
    return "C:\\" + inside.replace("/", "\\")


def unpack(folder):
    """A demo site with the programs in it, as in the installation guide."""
    with zipfile.ZipFile(ZIP) as packed:
        packed.extractall(folder)
    wine("inin-site.exe", "make", ".", "--force", "--patients", "40", "--seed", "3", cwd=folder)


def make_site(_):
    shutil.rmtree(drive_c() + "/" + FOLDER, ignore_errors=True)
    site = drive_c() + "/" + FOLDER
    os.makedirs(site)
    # A Japanese Windows has this setting from the start. Wine loses it when it has run in another language.
    wine("reg", "add", r"HKCU\Control Panel\International", "/v", "sShortDate", "/d", "yyyy/MM/dd", "/f")
    unpack(site)
    return site


def without_viewer(site):
    """Makes the form tools only copy the command script, without a window that would take the keys."""
    note = site + "/formviewer.path"
    if os.path.exists(note):
        os.remove(note)


class Pictures:
    """Takes screenshots of the whole screen at the stages of a case."""

    def __init__(self, display, case):
        self.display = display
        self.case = case

    def __call__(self, stage):
        time.sleep(0.5)
        os.makedirs(PICTURES, exist_ok=True)
        subprocess.run(["import", "-window", "root", f"{PICTURES}/{self.case}-{stage}.png"],
                       env=self.display.environment, check=True)


def bytes_of(path, folder=None):
    """A file's bytes, with $APP for the application folder if one is passed; None without a file."""
    try:
        with open(path, "rb") as file:
            return file.read().replace((folder or "\0").encode("cp932"), b"$APP")
    except FileNotFoundError:
        return None


def noted_bytes(path):
    return wait_for(path, lambda: bytes_of(path))


def neutral(events, *folders):
    """The events with $APP for the application folder, the only permitted difference between the systems."""
    def replaced(value):
        if isinstance(value, str):
            for folder in folders:
                value = value.replace(folder, "$APP")
        return value
    return [{name: replaced(value) for name, value in event.items()} for event in events]


def the_same_as_here(site, display):
    """The same operation on both systems gives the same events, statements included, and the same files."""
    without_viewer(site)
    with WineProgram(display, site) as program:
        expect("exit code", work_a_print(program, display, Pictures(display, "print")), 0)
        there = neutral(program.events(), windows_path(site))
    expect("arguments of the menu program", noted(site + "/Main.log"), "2\n")
    expect("the script that the preview was given", noted_bytes(site + "/WrVb6Viewer.exe.WfdCom.dat"),
           bytes_of(site + "/TMP/WfdCom.dat"))
    if b"PrintOutFromDialog" not in noted_bytes(site + "/wfrfv10.exe.WfdCom.dat"):
        raise Failed("the form tool was not asked to print")
    with tempfile.TemporaryDirectory() as folder:
        own = real.make_site(folder)
        with Program(display, own) as program:
            expect("exit code here", work_a_print(program, display), 0)
            here = neutral(program.events(), own)
        for number, (event, wanted) in enumerate(zip(there, here)):
            expect(f"event {number}", event, wanted)
        expect("number of events", len(there), len(here))
        expect("starts", [event["command"] for event in there if event["event"] == "start"],
               ["wfrfv10.exe /c $APP\\TMP\\WfdCom.dat", "WrVb6Viewer.exe /c ./TMP\\WfdCom.dat", "$APP\\Main.exe 2"])
        for name in COMPARED:
            expect(name, bytes_of(f"{site}/{name}", windows_path(site)), bytes_of(f"{own}/{name}", own))
        if not bytes_of(site + "/TMP/委任状.csv"):
            raise Failed("no letters")
    print(f"        {len(there)} events and {len(COMPARED)} files are the same")


def expect_icon(display):
    """The active window has an icon for its title bar; the pictures show which."""
    listed = subprocess.run(["xprop", "-id", display.tool("getactivewindow"), "32c", "_NET_WM_ICON"],
                            env=display.environment, capture_output=True, text=True, check=True).stdout
    found = re.search(r"Icon \((\d+) x \d+\)|= (\d+),", listed)
    if not found or int(found[1] or found[2]) < 16:
        raise Failed("the window has no icon: " + listed[:100])


def the_preview_is_the_form_viewer(site, display):
    """If the form viewer is in the site's folder, it is started under the form tools' names; as a preview it covers the
    whole screen and outlives the program."""
    take = Pictures(display, "viewer")

    def capture(stage):
        if stage == "previewed":
            wait_for(f"the preview, not {display.active_title()}", lambda: "－ 印刷プレビュー" in display.active_title())
            size = display.tool("getactivewindow", "getwindowgeometry", "--shell")
            width = int(size.split("WIDTH=")[1].split()[0])
            if width < FULL_WIDTH:
                raise Failed(f"the preview is {width} wide")
        if stage in ("conditions", "previewed"):
            expect_icon(display)
        take(stage)

    with WineProgram(display, site) as program:
        expect("exit code", work_a_print(program, display, capture), 0)
        if not display.tool("search", "--name", "－ 印刷プレビュー$"):
            raise Failed("the preview has gone with the program")


def every_other_window(site, display):
    """Opens the menus, the calendar, the search for staff and the version for screenshots."""
    capture = Pictures(display, "other")

    def click(x, y, button="1"):
        display.tool("mousemove", "--window", display.tool("getactivewindow"), str(x), str(y), "click", button)

    with WineProgram(display, site) as program:
        program.wait_title("委任状印刷")
        click(275, 343)
        capture("calendar")
        display.key("Escape")
        click(237, 278, "3")
        capture("menu-of-a-box")
        display.key("Escape")
        click(30, 8)
        capture("menu")
        click(30, 8)
        click(147, 278)
        program.wait_event(event="window", name="frm施術者検索", shown=True)
        capture("staff")
        # Not by F12: Wine loses the key's release with the window and takes the next F12 for a key held down.
        display.key("alt+F4")
        program.wait_title("委任状印刷")
        click(95, 8)
        capture("menu-help")
        click(95, 8)
        time.sleep(0.5)
        leave(program, display)


def open_by_keys(program, display, keys, name, title):
    """Opens a window of the conditions screen and returns when it is in front."""
    display.key(*keys)
    program.wait_event(event="window", name=name, shown=True)
    program.wait_title(title)


def close_by_keys(program, display, name):
    # Not by F12: Wine loses the key's release with the window and takes the next F12 for a key held down.
    display.key("alt+F4")
    program.wait_event(event="window", name=name, shown=False)
    program.wait_title("委任状印刷")


def help_and_search_windows_by_keys(site, display):
    """The entries of the help menu and both search windows, without the mouse."""
    capture = Pictures(display, "keys")
    with WineProgram(display, site) as program:
        program.wait_title("委任状印刷")
        open_by_keys(program, display, ["alt+h", "Home", "Return"], "frmVer", "System Version.")
        capture("version")
        close_by_keys(program, display, "frmVer")
        display.key("alt+h", "m")
        program.wait_event(event="open", address="https://example.invalid/help")
        time.sleep(1.0)
        program.bring_back()
        # A staff member and a patient are taken over by number and name.
        open_by_keys(program, display, [*["Tab"] * 6, "space"], "frm施術者検索", "施術者検索")
        display.key("F4", *["Tab"] * 6)
        capture("staff")
        close_by_keys(program, display, "frm施術者検索")
        open_by_keys(program, display, [*["Tab"] * 3, "space"], "frm患者検索", "利用者マスター検索")
        display.key("4", "F4", *["Tab"] * 11, "Home")
        capture("patients")
        display.key("F5")
        program.wait_title("委任状印刷")
        capture("patient-taken-over")
        leave(program, display)
        expect("boxes", [event for event in program.visible_events() if event["event"] == "box"], [])


def set_dots_per_inch(dots):
    wine("reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t", "REG_DWORD", "/d", str(dots), "/f")


def size_of_active(display):
    found = display.tool("getactivewindow", "getwindowgeometry", "--shell")
    return tuple(int(re.search(rf"^{name}=(\d+)", found, re.MULTILINE)[1]) for name in ("WIDTH", "HEIGHT"))


def at_150_and_200_percent(site, _):
    """The windows grow with the scale, stay on the screen, and a print works at each scale."""
    without_viewer(site)
    sizes = {}
    try:
        for dots, screen in ((96, "3840x2160"), (144, "3840x2160"), (192, "3840x2160"), (144, "1920x1080"), (192, "1920x1080")):
            set_dots_per_inch(dots)
            pathlib.Path(site, "DATA/印刷設定.ini").unlink(missing_ok=True) # a print starts without stored conditions
            with WineDisplay(screen) as display, WineProgram(display, site) as program:
                def capture(stage, display=display, key=(dots, screen)):
                    if stage in ("conditions", "patients", "conditions-chosen"):
                        Pictures(display, f"scale-{key[0]}-{key[1]}")(stage)
                    if stage == "conditions":
                        sizes[key] = size_of_active(display)
                expect("exit code", work_a_print(program, display, capture), 0)
            print(f"        {dots} dots per inch on {screen}: {sizes[dots, screen]}")
    finally:
        set_dots_per_inch(96)
    for (dots, screen), size in sizes.items():
        room = tuple(map(int, screen.split("x")))
        if size[0] > room[0] or size[1] > room[1]:
            raise Failed(f"at {dots} dots per inch the window is {size} on {screen}")
        grown = tuple(round(length * dots / 96) for length in sizes[96, "3840x2160"])
        is_whole = grown[0] <= room[0] and grown[1] <= room[1] # on a smaller screen the window is scrolled
        if is_whole and max(abs(size[0] - grown[0]), abs(size[1] - grown[1])) > 2:
            raise Failed(f"at {dots} dots per inch the window is {size}, not {grown}")


class Share:
    """A folder as a share of a server: Wine looks for shares in a folder of its prefix."""

    NAME = r"\\inin-server\share"

    def __init__(self, folder):
        self.server = pathlib.Path(os.environ["WINEPREFIX"], "dosdevices", "unc", "inin-server")
        self.folder = folder

    def __enter__(self):
        self.server.mkdir(parents=True, exist_ok=True)
        (self.server / "share").symlink_to(self.folder)

    def __exit__(self, *_):
        (self.server / "share").unlink()
        self.server.rmdir()


class SharedProgram(WineProgram):
    """PrintInin.exe, started from a share."""

    def executable(self):
        return Share.NAME + r"\PrintInin.exe"


def a_site_on_a_share(site, display):
    """The site and the programs are on a share: a print, and then its letters in the form viewer."""
    without_viewer(site)
    with Share(site):
        with SharedProgram(display, site) as program:
            expect("exit code", work_a_print(program, display, Pictures(display, "share")), 0)
            expect("starts", [event["command"] for event in program.visible_events() if event["event"] == "start"],
                   [rf"wfrfv10.exe /c {Share.NAME}\TMP\WfdCom.dat", r"WrVb6Viewer.exe /c ./TMP\WfdCom.dat",
                    rf"{Share.NAME}\Main.exe 2"])
        viewer = subprocess.Popen(["wine", Share.NAME + r"\formviewer.exe", r"TMP\WfdCom.dat"], cwd=site,
                                  env=without_toolkit_settings(display.environment))
        wait_for(f"the letters, not {display.active_title()}", lambda: "－ 印刷プレビュー" in display.active_title())
        Pictures(display, "share")("viewer")
        display.key("ctrl+w")
        expect("exit code of the viewer", viewer.wait(real.PATIENCE), 0)


def files_of(folder):
    return {path.relative_to(folder).as_posix(): path.read_bytes() for path in pathlib.Path(folder).rglob("*")
            if path.is_file()}


def installed_updated_and_removed(programs, display):
    """The installer's pages by keys, a print with the installed programs, an update without windows, the removal: the
    suite's files stay as they were, except for what a print writes."""
    suite = drive_c() + "/総合 システム"
    shutil.rmtree(suite, ignore_errors=True)
    wine("inin-site.exe", "make", windows_path(suite), "--patients", "40", "--seed", "3", cwd=programs)
    without_viewer(suite)
    before = files_of(suite)
    capture = Pictures(display, "setup")

    # The page proposes the folder of the last installation; no tool types this name under Wine.
    wine("reg", "add", r"HKCU\Software\PrintInin", "/v", "Folder", "/d", windows_path(suite), "/f")
    setup = subprocess.Popen(["wine", SETUP], env=display.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_for("the first page", lambda: "セットアップ" in display.active_title())
    capture("welcome")
    display.key("Return")
    time.sleep(1.0)
    capture("folder")
    display.key("Return")
    wait_for("the installed programs", lambda: os.path.exists(suite + "/guide/check.txt"))
    time.sleep(2.0)
    capture("check")
    display.key("Return")
    time.sleep(1.0)
    capture("end")
    display.key("Return")
    expect("exit code of the installer", setup.wait(real.PATIENCE), 0)
    stop_wine() # and with it the editor, which shows the file to be read first
    expect("the check", bytes_of(suite + "/guide/check.txt").decode().splitlines()[-1], "問題は見つかりませんでした。")

    with WineProgram(display, suite) as program:
        expect("exit code", work_a_print(program, display, Pictures(display, "installed")), 0)
    wine(SETUP, "/S")
    if not os.path.exists(suite + "/PrintInin.exe"):
        raise Failed("the update has removed the program")
    subprocess.run(["wine", suite + "/PrintInin-uninstall.exe", "/S", *("_?=" + windows_path(suite)).split(" ")], check=True)
    stop_wine()
    os.remove(suite + "/PrintInin-uninstall.exe") # which is in use while it runs in place
    after = {name: content for name, content in files_of(suite).items() if not name.startswith("transcript-")}
    expect("files of the suite that the removal took", sorted(set(before) - set(after)), [])
    expect("other files", sorted(set(after) - set(before)), ["DATA/印刷設定.ini", "Main.log", "TMP/WfdCom.dat",
           "TMP/委任状.csv", "TMP/委任状.run", "WrVb6Viewer.exe.WfdCom.dat", "wfrfv10.exe.WfdCom.dat"])
    expect("changed files", [name for name in before if before[name] != after[name]], [])


def through_boxes(program, display, *texts):
    """Expects a box with each text and closes it; other events may occur in between."""
    seen = 0
    for text in texts:
        def texts():
            return [event["text"] for event in program.visible_events() if event["event"] == "box"][seen:]
        wait_for(f"the box {text}, not {texts()}", texts)
        expect("box", texts()[0], text)
        seen += 1
        time.sleep(0.5)
        display.key("Return")


def leave(program, display):
    program.wait_event(event="window", name="frmPrintInin", shown=True)
    program.wait_title("委任状印刷")
    display.key("F12")
    expect("exit code", program.wait_exit(), 0)
    expect("the end", program.visible_events()[-1], {"event": "end", "code": 0})


def a_path_of_more_than_300_characters(programs, display):
    """The site has a long path; the programs are elsewhere, because the system starts none from a path that long."""
    without_viewer(programs)
    with deep_site() as site:
        with WineProgram(display, programs, ININ_APP_DIR=windows_path(site)) as program:
            expect("exit code", work_a_print(program, display, Pictures(display, "deep")), 0)
            starts = [event["command"] for event in program.visible_events() if event["event"] == "start"]
            expect("starts", starts, [f"wfrfv10.exe /c {windows_path(site)}\\TMP\\WfdCom.dat",
                                      "WrVb6Viewer.exe /c ./TMP\\WfdCom.dat", windows_path(site) + "\\Main.exe 2"])
        expect("arguments of the menu program", noted(site + "/Main.log"), "2\n")
        expect("the script that the preview was given", noted_bytes(site + "/WrVb6Viewer.exe.WfdCom.dat"),
               bytes_of(site + "/TMP/WfdCom.dat"))


@contextlib.contextmanager
def deep_site():
    top = drive_c() + "/深い"
    shutil.rmtree(top, ignore_errors=True)
    site = top + "/委任状の長い名前のフォルダーが続く場所" * 15  # Wine 8 ends at 1024 bytes
    expect("long enough", len(windows_path(site)) > 300, True)
    os.makedirs(os.path.dirname(site))
    wine("inin-site.exe", "make", windows_path(site), "--patients", "40", "--seed", "3", cwd=drive_c() + "/" + FOLDER)
    without_viewer(site)
    try:
        yield site
    finally:
        shutil.rmtree(top)


def a_code_page_that_is_not_932(site, display):
    """The Japanese names in the settings cannot be read. The program reports it and continues."""
    missing = "でエラー\r\n接続文字列取得できません。"
    with WineProgram(display, site, LC_ALL="C.UTF-8") as program:
        through_boxes(program, display, "loadInitCorp " + missing, "Form_Load() " + missing)
        leave(program, display)


def a_folder_that_cannot_be_written(site, display):
    """Refused like a read-only folder, which a superuser under Wine may write to: the print ends the program."""
    without_viewer(site)
    shutil.rmtree(site + "/TMP")
    capture = Pictures(display, "unwritable")

    def person(stage):
        if stage == "conditions-chosen":
            display.key("F1")
            time.sleep(1.5)
            capture("box")
            display.key("Return")
            expect("exit code", program.wait_exit(), 1)
            raise Ended

    with contextlib.suppress(Ended), WineProgram(display, site) as program:
        work_a_print(program, display, person)
    events = program.visible_events()
    expect("starts", [event for event in events if event["event"] == "start"], [])


class Ended(Exception):
    """The case is over before the end of its steps."""


def a_driver_that_is_missing(site, display):
    """The error is reported at each connection, and the program continues."""
    with open(site + "/adodb.ini", "w", encoding="cp932", newline="\r\n") as file:
        file.write("[接続情報]\n接続情報=Provider=SQLOLEDB;Data Source=srv;Initial Catalog=db;User ID=a;Password=b\n")
    missing = "でエラー\r\n(-2147467259)no ODBC driver for SQL Server is installed"
    with tempfile.TemporaryDirectory() as none:
        with WineProgram(display, site, ODBCSYSINI=none, ODBCINSTINI="none", HOME=none) as program:
            through_boxes(program, display, "loadInitCorp " + missing, "Form_Load() " + missing)
            leave(program, display)


def closing_at_every_state(site, display):
    real.closing_at_every_state(site, display)


def a_second_start(site, display):
    real.a_second_start(site, display)


def a_wallpaper_that_is_no_picture(site, display):
    real.a_wallpaper_that_is_no_picture(site, display)


CASES = [the_same_as_here, the_preview_is_the_form_viewer, every_other_window, help_and_search_windows_by_keys,
         at_150_and_200_percent, a_site_on_a_share, installed_updated_and_removed,
         closing_at_every_state, a_second_start, a_wallpaper_that_is_no_picture,
         a_path_of_more_than_300_characters, a_code_page_that_is_not_932, a_folder_that_cannot_be_written,
         a_driver_that_is_missing]


if __name__ == "__main__":
    real.PRINTININ, real.ININ_SITE, ZIP, SETUP, PICTURES = (os.path.abspath(path) for path in sys.argv[1:6])
    real.Program = WineProgram
    real.Display = WineDisplay
    real.PATIENCE = 60.0
    chosen = [case for case in CASES if len(sys.argv) < 7 or case.__name__ in sys.argv[6:]]
    sys.exit(0 if all([real.run(case, make_site) for case in chosen]) else 1)
