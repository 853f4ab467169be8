#!/usr/bin/env python3
"""Operates formviewer.exe under Wine by keyboard and compares its PDF with that of the native program.

wine_viewer_test.py FORMVIEWER ZIP SCRIPT PICTURES
FORMVIEWER is the native program, ZIP the Windows package, SCRIPT a script that requests the print dialog, PICTURES
the folder for screenshots. WINEPREFIX is the Wine prefix. scripts/test-windows --windows runs this.
"""
import os
import subprocess
import sys
import tempfile
import time
import zipfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../adapters/qt"))
from real_windows_test import Display, Failed, wait_for  # noqa: E402

PATIENCE = 60


def stop_wine():
    subprocess.run(["wineserver", "-k"], check=False)
    subprocess.run(["wineserver", "-w"], check=False)


class Viewer:
    """A running formviewer.exe from an unpacked package."""

    def __init__(self, display, folder, *arguments):
        environment = {name: text for name, text in display.environment.items() if not name.startswith("QT_")}
        self.display = display
        self.process = subprocess.Popen(["wine", "formviewer.exe", *arguments], cwd=folder,
                                        env={**environment, "LC_ALL": "ja_JP.UTF-8"}, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE)

    def wait_title(self, part):
        wait_for(f"the title {part}, not {self.display.active_title()}", lambda: part in self.display.active_title())

    def wait_chief_window(self):
        """Activates the main window: under Wine no window is active after a dialog closes."""
        def is_in_front():
            for number in self.display.tool("search", "--name", "－ 印刷プレビュー").split():
                self.display.tool("windowactivate", "--sync", number)
            return "－ 印刷プレビュー" in self.display.active_title()
        wait_for("the chief window", is_in_front)

    def picture(self, name):
        time.sleep(1.0)
        os.makedirs(PICTURES, exist_ok=True)
        subprocess.run(["import", "-window", "root", f"{PICTURES}/viewer-{name}.png"], env=self.display.environment,
                       check=True)

    def end(self):
        output, errors = self.process.communicate(timeout=PATIENCE)
        return self.process.returncode, output.decode(), errors.decode()


def expect(what, found, wanted):
    if found != wanted:
        raise Failed(f"{what} is {found!r}, not {wanted!r}")


def bytes_of(path):
    with open(path, "rb") as file:
        return file.read()


def printing_then_saving_gives_the_pdf_of_this_system(display, folder):
    """Cancels the print dialog that the script requests and saves the letters from the window."""
    viewer = Viewer(display, folder, "/c", SCRIPT)
    viewer.wait_title("印刷 - ")
    viewer.picture("print")
    display.key("Escape")
    viewer.wait_chief_window()
    viewer.picture("window")
    display.key("ctrl+s")
    viewer.wait_title("PDF に保存 - ")
    viewer.picture("pdf")
    display.key("Return")
    wait_for("the system's own dialog", lambda: display.active_title() == "PDF に保存")
    viewer.picture("file")
    display.key("ctrl+a")
    display.tool("type", "--delay", "40", "Z:" + (folder + "/saved.pdf").replace("/", "\\"))
    display.key("Return")
    wait_for("the PDF", lambda: os.path.exists(folder + "/saved.pdf"))
    viewer.wait_chief_window()
    viewer.picture("saved")
    display.key("ctrl+w")
    expect("what the program ends with", viewer.end(), (0, "", ""))
    subprocess.run([FORMVIEWER, "--pdf", folder + "/here.pdf", SCRIPT], stderr=subprocess.DEVNULL, check=True)
    expect("the PDF is the same", bytes_of(folder + "/saved.pdf") == bytes_of(folder + "/here.pdf"), True)


def a_script_that_is_missing_is_told_in_a_box(display, folder):
    viewer = Viewer(display, folder, "/c", "none.dat")
    viewer.wait_title("委任状")
    viewer.picture("missing")
    display.key("Return")
    expect("exit code", viewer.end()[0], 1)


def a_program_of_windows_writes_to_the_stream_that_it_was_given(display, folder):
    code, output, errors = Viewer(display, folder, "--check", SCRIPT).end()
    here = subprocess.run([FORMVIEWER, "--check", SCRIPT], capture_output=True, text=True, check=False)
    expect("the check", (code, output, errors), (here.returncode, here.stdout, ""))
    code, output, errors = Viewer(display, folder, "--pdf", "無い/o.pdf", SCRIPT).end()
    expect("the failure", (code, output), (1, ""))
    expect("its words", "ファイル「無い/o.pdf」に書き込めません。" in errors, True)


CASES = [printing_then_saving_gives_the_pdf_of_this_system, a_script_that_is_missing_is_told_in_a_box,
         a_program_of_windows_writes_to_the_stream_that_it_was_given]


def main():
    good = True
    for case in CASES:
        stop_wine()
        with tempfile.TemporaryDirectory() as folder, zipfile.ZipFile(ZIP) as packed, Display() as display:
            packed.extractall(folder)
            try:
                case(display, folder)
                print("passed  " + case.__name__)
            except Failed as failure:
                good = False
                print(f"FAILED  {case.__name__}: {failure}")
    stop_wine()
    return 0 if good else 1


if __name__ == "__main__":
    FORMVIEWER, ZIP, SCRIPT, PICTURES = (os.path.abspath(path) for path in sys.argv[1:5])
    sys.exit(main())
