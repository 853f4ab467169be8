#!/usr/bin/env python3
"""Operates PrintInin.exe under Wine as real_windows_test.py operates the program on this system, and compares the two:
events, letters, command script, settings.

wine_windows_test.py PRINTININ ININ-SITE ZIP PICTURES [CASE...]
PRINTININ and ININ-SITE are this system's programs; ZIP is the archive that an installer unpacks, PICTURES the folder for
screenshots. WINEPREFIX selects the Windows installation. scripts/test-windows --windows calls this.
"""
import contextlib
import os
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


class WineProgram(Program):
    """PrintInin.exe of a folder, started there as by the menu program: without arguments, in its own folder."""

    def start(self, environment):
        environment = {name: text for name, text in environment.items() if not name.startswith("QT_")}
        return subprocess.Popen(
            ["wine", self.site + "/PrintInin.exe"], cwd=self.site, stderr=subprocess.PIPE, text=True,
            env={**environment, "ININ_TRANSCRIPT": windows_path(self.transcript)})

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


CASES = [the_same_as_here, the_preview_is_the_form_viewer, every_other_window, closing_at_every_state, a_second_start, a_wallpaper_that_is_no_picture,
         a_path_of_more_than_300_characters, a_code_page_that_is_not_932, a_folder_that_cannot_be_written,
         a_driver_that_is_missing]


if __name__ == "__main__":
    real.PRINTININ, real.ININ_SITE, ZIP, PICTURES = (os.path.abspath(path) for path in sys.argv[1:5])
    real.Program = WineProgram
    real.Display = WineDisplay
    real.PATIENCE = 60.0
    chosen = [case for case in CASES if len(sys.argv) < 6 or case.__name__ in sys.argv[5:]]
    sys.exit(0 if all([real.run(case, make_site) for case in chosen]) else 1)
