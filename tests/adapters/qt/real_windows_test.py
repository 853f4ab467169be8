#!/usr/bin/env python3
"""Tests the built program on its own display with a window manager, operated by the keyboard like a user.

real_windows_test.py PRINTININ ININ-SITE [CASE...]
Each case creates a demo site, starts the program on it, and checks its transcript, the notes of the site's stand-ins and
the exit code.
"""
import json
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

PATIENCE = 20.0


class Failed(Exception):
    pass


def wait_for(what, condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.05)
    raise Failed(f"waited in vain for {what}")


class Display:
    """An X server with a window manager."""

    def __init__(self, size="1280x1024"):
        self.size = size

    def __enter__(self):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", self.size + "x24", "-nolisten", "tcp"],
            pass_fds=[writing], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as pipe:
            self.name = ":" + pipe.readline().strip()
        self.environment = {**os.environ, "DISPLAY": self.name, "QT_QPA_PLATFORM": "xcb", "LC_ALL": "C.UTF-8",
                            "ININ_LEDGER": "off"}
        self.manager = subprocess.Popen(["openbox"], env=self.environment, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        time.sleep(0.5)
        return self

    def __exit__(self, *_):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()

    def tool(self, *arguments):
        return subprocess.run(["xdotool", *arguments], env=self.environment, capture_output=True, text=True,
                              check=False).stdout.strip()

    def key(self, *names):
        for name in names:
            self.tool("key", name)
            time.sleep(0.04)

    def active_title(self):
        return self.tool("getactivewindow", "getwindowname")


class Program:
    def __init__(self, display, site, **environment):
        self.display = display
        self.site = site
        self.transcript = site + "/transcript-" + str(time.monotonic_ns())
        self.process = self.start({**display.environment, **environment})

    def start(self, environment):
        return subprocess.Popen(
            [PRINTININ], env={"ININ_APP_DIR": self.site, "ININ_TRANSCRIPT": self.transcript, **environment},
            stderr=subprocess.PIPE, text=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
        self.process.stderr.close()

    def events(self):
        try:
            with open(self.transcript, encoding="utf-8") as file:
                return [json.loads(line) for line in file if line.endswith("\n")]
        except FileNotFoundError:
            return []

    def visible_events(self):
        """The windows, boxes and starts, without the statements and the pointer."""
        return [event for event in self.events() if event["event"] not in ("sql", "connect", "disconnect", "pointer")]

    def wait_title(self, title):
        wait_for(f"the window {title}, not {self.display.active_title()}", lambda: self.display.active_title() == title)
        time.sleep(0.2)

    def bring_back(self):
        """Activates the program's own window after a start; nothing to do where the started program has no window."""

    def wait_event(self, **wanted):
        wait_for(f"{wanted} in {self.visible_events()}",
                 lambda: any(all(event.get(key) == value for key, value in wanted.items()) for event in self.visible_events()))

    def wait_exit(self):
        try:
            return self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            raise Failed("the program does not end") from None


def expect(what, seen, wanted):
    if seen != wanted:
        raise Failed(f"{what}:\n  seen   {seen}\n  wanted {wanted}")


def make_site(folder):
    """A demo site whose form tools only record how they were started: a real preview would take the keys."""
    site = folder + "/demo"
    subprocess.run([ININ_SITE, "make", site, "--patients", "40", "--seed", "3"], check=True, stdout=subprocess.DEVNULL)
    for tool in ("wfrfv10.exe", "WrVb6Viewer.exe", "wfrimg10.exe"):
        path = f"{site}/{tool}"
        os.remove(path)
        with open(path, "w", encoding="utf-8") as file:
            file.write("#!/bin/sh\nprintf '%s\\n' \"$*\" >\"$0.log\"\n")
        os.chmod(path, 0o755)
    return site


def noted(path):
    def text():
        return os.path.exists(path) and open(path, encoding="utf-8").read()
    return wait_for(path, text)


def handed_back(site):
    return noted(site + "/Main.log")


def window(name, shown):
    return {"event": "window", "name": name, "shown": shown}


def work_a_print(program, display, capture=lambda name: None):
    """F2 without a target date is refused; with a picked patient F1 prints and F2 previews; F12 closes the screen. Returns
    the exit code."""
    program.wait_title("委任状印刷")
    capture("conditions")
    display.key("F2")
    program.wait_title("情報")
    capture("box")
    display.key("Return")
    program.wait_title("委任状印刷")
    # Standard letter, no target, a patient, the month, agents, an entered period.
    display.key("space", *["Tab"] * 5, "space", *["Tab"] * 4, "space")
    program.wait_title("利用者マスター検索")
    capture("patients")
    display.key("4", "F4", *["Tab"] * 11, "Home", "F5")
    program.wait_title("委任状印刷")
    display.key(*["Tab"] * 2, "space", *["Tab"] * 5, "space", *["Tab"] * 2, "space")
    capture("conditions-chosen")
    display.key("F1")
    program.wait_event(event="start", style=2)
    time.sleep(0.3)
    capture("printed")
    program.bring_back()
    display.key("F2")
    program.wait_event(event="start", style=3)
    time.sleep(0.3)
    capture("previewed")
    program.bring_back()
    display.key("F12")
    return program.wait_exit()


def print_of_one_patient(site, display):
    with Program(display, site) as program:
        expect("exit code", work_a_print(program, display), 0)
        expect("rights of the transcript", oct(os.stat(program.transcript).st_mode & 0o777), "0o600")
        events = program.visible_events()
        expect("the story", [event for event in events if event["event"] != "box"], [
            window("frmBack", True), window("frmPrintInin", True),
            window("frm患者検索", True), window("frm患者検索", False),
            {"event": "start", "command": "wfrfv10.exe /c " + site + "\\TMP\\WfdCom.dat", "style": 2},
            {"event": "start", "command": "WrVb6Viewer.exe /c ./TMP\\WfdCom.dat", "style": 3},
            {"event": "start", "command": site + "\\Main.exe 2", "style": 1},
            {"event": "end", "code": 0}])
        boxes = [event["text"] for event in events if event["event"] == "box"]
        expect("the boxes", boxes, ["出力対象となる日にちを選択してください。"])
        picked = [event for event in program.events() if event["event"] == "sql" and "nIDNo=4" in event["text"]]
        expect("searches for the one patient", len(picked), 1)
        expect("arguments of the menu program", handed_back(site), "2\n")
        expect("arguments of the form tool", noted(site + "/wfrfv10.exe.log"), f"/c {site}/TMP/WfdCom.dat\n")
        expect("arguments of the preview", noted(site + "/WrVb6Viewer.exe.log"), "/c ./TMP/WfdCom.dat\n")
        with open(site + "/TMP/委任状.csv", encoding="cp932") as file:
            expect("lines of the CSV", len(file.readlines()), 2)


def closing_at_every_state(site, display):
    """The window manager closes a box, a search window and the screen, each without side effects."""
    with Program(display, site) as program:
        program.wait_title("委任状印刷")
        display.key("F2")
        program.wait_title("情報")
        display.key("alt+F4")
        program.wait_title("委任状印刷")
        display.key(*["Tab"] * 9, "space")
        program.wait_title("利用者マスター検索")
        display.key("F5")
        program.wait_title("委任状印刷")  # the warning's title is the application's
        display.key("alt+F4")
        program.wait_title("利用者マスター検索")
        display.key("alt+F4")
        program.wait_title("委任状印刷")
        display.key("alt+F4")
        expect("exit code", program.wait_exit(), 0)
        expect("the end", program.visible_events()[-1], {"event": "end", "code": 0})
        expect("arguments of the menu program", handed_back(site), "2\n")


def a_second_start(site, display):
    """Two instances run at the same time, and each ends on its own."""
    with Program(display, site) as first:
        first.wait_title("委任状印刷")
        with Program(display, site) as second:
            second.wait_event(event="window", name="frmPrintInin")
            time.sleep(0.5)
            display.key("F12")
            expect("exit code of the second", second.wait_exit(), 0)
        expect("the first", first.process.poll(), None)
        first.wait_title("委任状印刷")
        display.key("F12")
        expect("exit code of the first", first.wait_exit(), 0)


def a_display_that_vanishes(site, _):
    """The program ends with an error code and a message, not by a signal."""
    with Display() as doomed, Program(doomed, site) as program:
        program.wait_title("委任状印刷")
        doomed.server.kill()
        expect("exit code", program.wait_exit(), 1)
        if not program.process.stderr.read().strip():
            raise Failed("not a word about it")


def no_display_at_all(site, display):
    with Program(display, site, DISPLAY="") as program:
        expect("exit code", program.wait_exit(), 1)
        words = program.process.stderr.read()
        if "画面に接続できません" not in words:
            raise Failed("no plain words: " + words)


def no_japanese_font(site, display):
    """The program names the missing package and ends."""
    with tempfile.TemporaryDirectory() as empty:
        fonts = empty + "/fonts.conf"
        with open(fonts, "w", encoding="utf-8") as file:
            file.write(f"<fontconfig><dir>{empty}</dir><cachedir>{empty}</cachedir></fontconfig>")
        with Program(display, site, FONTCONFIG_FILE=fonts) as program:
            program.wait_title("PrintInin")
            display.key("Return")
            expect("exit code", program.wait_exit(), 1)
            words = program.process.stderr.read()
            if "fonts-ipaexfont" not in words:
                raise Failed("the package is not named: " + words)


def overwrite_wallpaper(site, text):
    icons = site + "/ICON"
    for name in os.listdir(icons):
        with open(f"{icons}/{name}", "w", encoding="utf-8") as file:
            file.write(text)


def a_wallpaper_that_is_no_picture(site, display):
    overwrite_wallpaper(site, "a text")
    with Program(display, site) as program:
        program.wait_event(event="box", text="起動できません！")
        program.wait_title("委任状印刷")
        display.key("Return")
        expect("exit code", program.wait_exit(), 0)
        expect("starts", [event for event in program.visible_events() if event["event"] == "start"], [])


def a_wallpaper_that_cannot_be_painted(site, display):
    overwrite_wallpaper(site, "BMx")
    with Program(display, site) as program:
        program.wait_title("委任状印刷")
        display.key("F12")
        expect("exit code", program.wait_exit(), 0)
        expect("boxes", [event for event in program.visible_events() if event["event"] == "box"], [])


CASES = [print_of_one_patient, closing_at_every_state, a_second_start, a_display_that_vanishes, no_display_at_all,
         no_japanese_font, a_wallpaper_that_is_no_picture, a_wallpaper_that_cannot_be_painted]


def run(case, make=make_site):
    folder = tempfile.mkdtemp()
    try:
        with Display() as display:
            case(make(folder), display)
        print(f"ok      {case.__name__}")
        return True
    except Failed as failure:
        print(f"FAILED  {case.__name__}: {failure}")
        return False
    finally:
        shutil.rmtree(folder)


if __name__ == "__main__":
    PRINTININ, ININ_SITE = (os.path.abspath(path) for path in sys.argv[1:3])
    signal.signal(signal.SIGPIPE, signal.SIG_DFL)
    chosen = [case for case in CASES if len(sys.argv) < 4 or case.__name__ in sys.argv[3:]]
    sys.exit(0 if all([run(case) for case in chosen]) else 1)
