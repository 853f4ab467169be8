#!/usr/bin/env python3
"""The installed Debian package as an ordinary user finds it: programs, pages, guides, windows and paper.

    debian_package_test.py        scripts/test-package runs it in a bare system and installs what it needs
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "adapters/qt"))
import real_windows_test as real  # noqa: E402
from print_queue import PrintQueue, page_count, stray_ink  # noqa: E402

PROGRAMS = ["PrintInin", "printinin-open", "inin-script", "inin-site", "formviewer"]
SHARE = pathlib.Path("/usr/share")
DOCUMENTS = SHARE / "doc/printinin"
FORM_TOOLS = ["wfrfv10.exe", "WrVb6Viewer.exe", "wfrimg10.exe"]
# The letters of a small practice: printing them takes a minute, also on a slow machine.
PATIENTS = 40
real.PATIENCE = 120.0


def output(*command, **options):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True, **options).stdout


class InstalledPackage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.work = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.work.name)
        cls.site = cls.folder / "site"
        output("inin-site", "make", cls.site, "--patients", str(PATIENTS))
        # The example prints this month and stores its choices, which the windows offer afterwards.
        with open(DOCUMENTS / "examples/print-month.jsonl", encoding="utf-8") as commands:
            output("inin-script", "--app", cls.site, stdin=commands)
        cls.job = cls.site / "TMP/WfdCom.dat"
        cls.letters = len((cls.site / "TMP/委任状.csv").read_text(encoding="cp932").splitlines()) - 1
        cls.pdf = cls.folder / "letters.pdf"
        # Not in the ledger, which the windows use: nothing has been printed yet.
        output("formviewer", "--pdf", cls.pdf, cls.job, env={**os.environ, "ININ_LEDGER": "off"})

    @classmethod
    def tearDownClass(cls):
        cls.work.cleanup()

    def test_each_program_prints_the_version_of_the_package(self):
        version = output("dpkg-query", "-W", "-f", "${Version}", "printinin")
        for program in PROGRAMS:
            with self.subTest(program=program):
                self.assertIn(version, output(program, "--version").split())

    def test_each_program_has_a_manual_page_in_both_languages(self):
        for program in PROGRAMS:
            for folder, heading in (("man1", "NAME"), ("ja/man1", "名前")):
                with self.subTest(program=program, folder=folder):
                    (page,) = (SHARE / "man" / folder).glob(program + ".1*")
                    source = output("zcat", "-f", page)
                    self.assertIn(f".SH {heading}\n{program} ", source)

    def test_bash_completes_commands_and_options(self):
        for program, word, completed in (("inin-site", "chec", "check"), ("inin-script", "--sta", "--start"),
                                         ("formviewer", "--arch", "--archive")):
            with self.subTest(program=program):
                function = "_" + program.replace("-", "_")
                script = (f"source {SHARE}/bash-completion/completions/{program}; "
                          f"COMP_WORDS=({program} {word}) COMP_CWORD=1; {function}; echo ${{COMPREPLY[*]}}")
                self.assertEqual(output("bash", "-c", script).split(), [completed])

    def test_the_desktop_entries_are_valid_and_their_programs_and_icons_exist(self):
        for entry in (SHARE / "applications").glob("*.desktop"):
            text = entry.read_text(encoding="utf-8")
            if "printinin" not in text:
                continue
            with self.subTest(entry=entry.name):
                output("desktop-file-validate", entry)
                output("which", re.search(r"^Exec=(\S+)", text, re.MULTILINE)[1])
                icon = re.search(r"^Icon=(\S+)", text, re.MULTILINE)[1]
                self.assertTrue((SHARE / f"icons/hicolor/scalable/apps/{icon}.svg").is_file())

    def test_has_the_manual_as_one_page_and_as_a_tagged_pdf_with_an_outline(self):
        page = (DOCUMENTS / "guide/manual.html").read_text(encoding="utf-8")
        self.assertEqual(re.findall(r'(?:src|href)="(?!data:image/|#|[\w.-]+\.html)[^"]*"', page), [])
        manual = DOCUMENTS / "guide/manual.pdf"
        self.assertRegex(output("pdfinfo", manual), r"(?m)^Tagged: +yes")
        self.assertIn("初めて使うとき", output("pdftohtml", "-xml", "-i", "-stdout", manual).partition("<outline>")[2])

    def test_brings_form_documents_and_form_tools_to_a_site(self):
        for form in (self.site / "SYS").glob("*.wfd"):
            form.unlink()
        for tool in FORM_TOOLS:
            (self.site / tool).unlink()
        output("inin-site", "forms", self.site)
        output("inin-site", "tools", self.site)
        shipped = {form.name: form.read_bytes() for form in (SHARE / "printinin/forms").glob("*.wfd")}
        self.assertEqual({form.name: form.read_bytes() for form in (self.site / "SYS").glob("*.wfd")}, shipped)
        for tool in FORM_TOOLS:
            with self.subTest(tool=tool):
                self.assertEqual((self.site / tool).resolve(), pathlib.Path("/usr/bin/formviewer"))

    def test_finds_nothing_to_correct_on_a_demo_site(self):
        found = subprocess.run(["inin-site", "check", self.site], check=False, capture_output=True, text=True)
        self.assertEqual(found.returncode, 0, found.stdout)

    def test_saves_the_letters_of_a_month_as_a_pdf(self):
        self.assertGreater(self.letters, PATIENTS // 2)
        self.assertEqual(page_count(self.pdf), self.letters)

    def test_previews_and_prints_a_month_in_its_windows(self):
        with real.Display("1366x768") as display, PrintQueue() as queue:
            environment = {**display.environment, **queue.environment}
            del environment["ININ_LEDGER"]

            def wait_title(wanted):
                real.wait_for(f"the window {wanted}, not {display.active_title()}",
                              lambda: re.search(wanted, display.active_title()))

            with subprocess.Popen(["printinin-open", self.site], env=environment) as program:
                self.addCleanup(program.kill)
                wait_title("^委任状印刷")
                display.key("F2")
                wait_title(f"{self.letters}通.*印刷プレビュー")
                display.key("ctrl+q")
                wait_title("^委任状印刷")
                display.key("F1")
                wait_title("^印刷")
                display.key("Return")
                paper = self.folder / "paper.pdf"
                queue.next_job(paper)
                wait_title("^委任状印刷")
                display.key("F12")
                self.assertEqual(program.wait(real.PATIENCE), 0)
            self.assertEqual(page_count(paper), self.letters)
            self.assertEqual(stray_ink(paper, self.pdf), [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
