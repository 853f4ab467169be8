#!/usr/bin/env python3
"""Prints letters with formviewer.exe under Wine and compares the paper with the native program's PDF.

wine_printer_test.py FORMVIEWER ZIP SCRIPT PICTURES
FORMVIEWER is the native program, ZIP the Windows package, SCRIPT a script with at least four letters that requests the
print dialog, PICTURES the folder for screenshots. WINEPREFIX is the Wine prefix. scripts/test-windows --windows runs this.
"""
import os
import subprocess
import sys
import tempfile
import zipfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../packaging"))
import wine_viewer_test as viewer_test  # noqa: E402
from print_queue import PrintQueue, page_count, stray_ink  # noqa: E402
from wine_viewer_test import Viewer, expect, stop_wine  # noqa: E402
from real_windows_test import Display, Failed, wait_for  # noqa: E402


def printed(display, folder, queue, name, letters):
    """Prints letters from the dialog that the script requests; all of them if none are named."""
    display.environment.update(queue.environment)
    viewer = Viewer(display, folder, "/c", SCRIPT)
    viewer.wait_title("印刷 - ")
    if letters:
        display.key("alt+n", "ctrl+a")
        display.tool("type", "--delay", "40", letters)
    viewer.picture("printer-" + name)
    display.key("alt+p")
    pdf = f"{folder}/{name}.pdf"
    queue.next_job(pdf)
    # It closes by itself: the script requested the dialog only.
    expect("what the program ends with", viewer.end(), (0, "", ""))
    return pdf


def compare(folder, pdf, letters):
    wanted = folder + "/wanted.pdf"
    choice = ["--letters", letters] if letters else []
    subprocess.run([FORMVIEWER, "--pdf", wanted, *choice, SCRIPT], stderr=subprocess.DEVNULL, check=True)
    expect("number of pages", page_count(pdf), page_count(wanted))
    expect("ink that only one of the two has", stray_ink(pdf, wanted), [])
    print(f"        {page_count(pdf)} pages with the same ink")


def three_letters(display, folder, queue):
    compare(folder, printed(display, folder, queue, "three", "1-2,4"), "1-2,4")


def every_letter_of_the_script(display, folder, queue):
    compare(folder, printed(display, folder, queue, "all", ""), "")


CASES = [three_letters, every_letter_of_the_script]


def main():
    good = True
    for case in CASES:
        stop_wine()
        with tempfile.TemporaryDirectory() as folder, zipfile.ZipFile(ZIP) as packed, Display() as display, \
                PrintQueue() as queue:
            packed.extractall(folder)
            try:
                case(display, folder, queue)
                print("passed  " + case.__name__)
            except (Failed, AssertionError, TimeoutError) as failure:
                good = False
                print(f"FAILED  {case.__name__}: {failure}")
            stop_wine()
    return 0 if good else 1


if __name__ == "__main__":
    FORMVIEWER, ZIP, SCRIPT, viewer_test.PICTURES = (os.path.abspath(path) for path in sys.argv[1:5])
    sys.exit(main())
