#!/usr/bin/env python3
"""Works PrintInin.exe under Wine as real_windows_test.py works the program of this system, and holds the two against each
other: what happened, the letters, the command script, the settings.

wine_windows_test.py PRINTININ ININ-SITE ZIP PICTURES [CASE...]
PRINTININ and ININ-SITE are this system's programs; ZIP is what an installer unpacks, PICTURES the folder for screenshots.
WINEPREFIX names the Windows. scripts/test-windows --windows calls this.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time
import zipfile

import real_windows_test as real
from real_windows_test import Display, Failed, Program, expect, noted, wait_for, window, work_a_preview

# What a Japanese Windows is called by its own; a name with a blank and letters that only its code page can hold.
FOLDER = "委任状 デモ"
FORM_TOOLS = ("wfrfv10.exe", "WrVb6Viewer.exe", "wfrimg10.exe")
# The settings stand in the words of the program, so both systems must write them alike.
COMPARED = ("TMP/委任状.csv", "TMP/WfdCom.dat", "Massage.ini", "adodb.ini", "Sorvin.ver", "DATA/印刷設定.ini")


def wine(*arguments, **options):
    return subprocess.run(["wine", *arguments], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True, **options)


class WineProgram(Program):
    """PrintInin.exe of a folder, started there as the menu program does: no argument, its own folder."""

    def start(self, environment):
        environment = {name: text for name, text in environment.items() if not name.startswith("QT_")}
        return subprocess.Popen(
            ["wine", self.site + "/PrintInin.exe"], cwd=self.site, stderr=subprocess.PIPE, text=True,
            env={**environment, "LC_ALL": "ja_JP.UTF-8", "ININ_TRANSCRIPT": windows_path(self.transcript)})

    def bring_back(self):
        """What was started stands in front; the windows of the two are told apart by their titles."""
        if self.display.active_title() == "委任状印刷":
            return
        for number in self.display.tool("search", "--name", "^委任状印刷$").split():
            self.display.tool("windowactivate", "--sync", number)
            if self.display.active_title() == "委任状印刷":
                return


class WineDisplay(Display):
    """Wine keeps to the display on which its desktop came up, or to none, so each display has a Wine of its own."""

    def __enter__(self):
        stop_wine()
        return super().__enter__()

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
    """A demo site with the programs in it, as the guide tells an installer."""
    with zipfile.ZipFile(ZIP) as packed:
        packed.extractall(folder)
    wine("inin-site.exe", "make", ".", "--force", "--patients", "40", "--seed", "3", cwd=folder)


def make_site(_):
    shutil.rmtree(drive_c() + "/" + FOLDER, ignore_errors=True)
    site = drive_c() + "/" + FOLDER
    os.makedirs(site)
    unpack(site)
    stop_wine()
    return site


def without_viewer(site):
    """The form tools copy the command script beside themselves, and show no window that takes the keys."""
    note = site + "/formviewer.path"
    if os.path.exists(note):
        os.remove(note)


class Pictures:
    """Takes a picture of the whole screen at a stage of a play."""

    def __init__(self, display, case):
        self.display = display
        self.case = case

    def __call__(self, stage):
        time.sleep(0.5)
        os.makedirs(PICTURES, exist_ok=True)
        subprocess.run(["import", "-window", "root", f"{PICTURES}/{self.case}-{stage}.png"],
                       env=self.display.environment, check=True)


def bytes_of(path, folder=None):
    """A file's bytes, without the application folder where one is given; None without a file."""
    try:
        with open(path, "rb") as file:
            return file.read().replace((folder or "\0").encode("cp932"), b"$APP")
    except FileNotFoundError:
        return None


def neutral(events, *folders):
    """The events without the application folder, the one thing in which the systems may differ."""
    def told(value):
        if isinstance(value, str):
            for folder in folders:
                value = value.replace(folder, "$APP")
        return value
    return [{name: told(value) for name, value in event.items()} for event in events]


def the_same_as_here(site, display):
    """One play on both systems: every event, statements included, and every file that is written."""
    without_viewer(site)
    with WineProgram(display, site) as program:
        expect("exit code", work_a_preview(program, display, Pictures(display, "print")), 0)
        there = neutral(program.events(), windows_path(site))
    expect("arguments of the menu program", noted(site + "/Main.log"), "2\n")
    expect("the script that the form tool was given", bytes_of(site + "/WrVb6Viewer.exe.WfdCom.dat"),
           bytes_of(site + "/TMP/WfdCom.dat"))
    with tempfile.TemporaryDirectory() as folder:
        own = real.make_site(folder)
        with Program(display, own) as program:
            expect("exit code here", work_a_preview(program, display), 0)
            here = neutral(program.events(), own)
        for number, (event, wanted) in enumerate(zip(there, here)):
            expect(f"event {number}", event, wanted)
        expect("number of events", len(there), len(here))
        if not any(event["event"] == "start" and event["style"] == 3 for event in there):
            raise Failed("nothing was previewed")
        for name in COMPARED:
            expect(name, bytes_of(f"{site}/{name}", windows_path(site)), bytes_of(f"{own}/{name}", own))
        if not bytes_of(site + "/TMP/委任状.csv"):
            raise Failed("no letters")
    print(f"        {len(there)} events and {len(COMPARED)} files are the same")


def closing_at_every_state(site, display):
    real.closing_at_every_state(site, display)


def a_second_start(site, display):
    real.a_second_start(site, display)


def a_wallpaper_that_is_no_picture(site, display):
    real.a_wallpaper_that_is_no_picture(site, display)


CASES = [the_same_as_here, closing_at_every_state, a_second_start, a_wallpaper_that_is_no_picture]


if __name__ == "__main__":
    real.PRINTININ, real.ININ_SITE, ZIP, PICTURES = (os.path.abspath(path) for path in sys.argv[1:5])
    real.Program = WineProgram
    real.Display = WineDisplay
    real.PATIENCE = 60.0
    chosen = [case for case in CASES if len(sys.argv) < 6 or case.__name__ in sys.argv[5:]]
    sys.exit(0 if all([real.run(case, make_site) for case in chosen]) else 1)
