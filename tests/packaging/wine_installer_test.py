#!/usr/bin/env python3
"""The installer under Wine, in a folder with a suite's files beside it.

    wine_installer_test.py inin-site.exe inin-script.exe

WINEPREFIX must be set up. Two versions of a small package are made of the two programs and some text files.
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]
SITE_PROGRAM, SCRIPT_PROGRAM = (pathlib.Path(path).resolve() for path in sys.argv[1:3])
NO_SUITE, NOT_WRITABLE, IN_USE = 3, 4, 5
KEY = r"HKCU\Software\PrintInin"

SUITE = {
    "Massage.ini": "[SYSTEM_DIR]\r\nSYSTEM_SYS=\\SYS\r\n".encode("cp932"),
    "adodb.ini": "[接続]\r\nx=y\r\n".encode("cp932"),
    "印刷設定.ini": b"[a]\r\n",
    "Main.exe": b"the suite's menu",
    "inin-script.exe": b"another program of this name",
    "SYS/委任状37_01.wfd": b"a form that was edited",
    "TMP/委任状.csv": b"letters",
    "fonts/own.ttf": b"the suite's own font",
}


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def last_argument(name, folder):
    """The installer system demands this argument at the end and unquoted. Wine quotes each word that has a blank."""
    return (name + windows_path(folder)).split(" ")


def wine(*words, **options):
    return subprocess.run(["wine", *map(str, words)], capture_output=True, check=False, **options)


def files_of(folder):
    return {path.relative_to(folder).as_posix(): path.read_bytes() for path in folder.rglob("*") if path.is_file()}


class Installer(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.work = pathlib.Path(tempfile.mkdtemp(prefix="inin-installer."))
        cls.packages = {"0.1.0": cls.package("0.1.0", "gone.txt"), "0.2.0": cls.package("0.2.0", "new.txt")}
        cls.setups = {version: cls.make_setup(version, folder) for version, folder in cls.packages.items()}

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.work)

    @classmethod
    def package(cls, version, own_file):
        folder = cls.work / f"package {version}"
        for name in ("guide", "forms", "fonts", "qt/plugins"):
            (folder / name).mkdir(parents=True)
        shutil.copy(SITE_PROGRAM, folder / "inin-site.exe")
        shutil.copy(SCRIPT_PROGRAM, folder / "inin-script.exe")
        for name in ("guide/最初にお読みください.txt", "forms/委任状37_01.wfd", "fonts/a.ttf", "qt/plugins/a.dll", own_file):
            (folder / name).write_text(f"{name} of {version}", encoding="utf-8")
        return folder

    @classmethod
    def make_setup(cls, version, folder):
        made = subprocess.run([TOP / "packaging/windows/make-installer", folder, version],
                              capture_output=True, check=True, encoding="utf-8").stdout
        setup = cls.work / f"setup {version}.exe"
        shutil.move(made.rsplit(": ", 1)[0].splitlines()[-1], setup)
        return setup

    def setUp(self):
        self.suite = pathlib.Path(tempfile.mkdtemp(dir=self.work)) / "総合 システム"
        for name, content in SUITE.items():
            path = self.suite / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content)

    def tearDown(self):
        wine("reg", "delete", KEY, "/f")

    def install(self, version, folder=None):
        return wine(windows_path(self.setups[version]), "/S", *(last_argument("/D=", folder) if folder else []))

    def uninstall(self):
        """Removes all files but the uninstaller itself, and waits for the end."""
        return wine(windows_path(self.suite / "PrintInin-uninstall.exe"), "/S", *last_argument("_?=", self.suite))

    def assert_suite_is_unchanged(self, *but):
        found = files_of(self.suite)
        for name, content in SUITE.items():
            if name not in but:
                self.assertEqual(found.get(name), content, name)

    def assert_package_is_there(self, version):
        found = files_of(self.suite)
        for name, content in files_of(self.packages[version]).items():
            self.assertEqual(found.get(name) == content, True, name)

    def test_installs_beside_the_files_of_the_suite(self):
        done = self.install("0.1.0", self.suite)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assert_package_is_there("0.1.0")
        self.assert_suite_is_unchanged("inin-script.exe")
        self.assertEqual((self.suite / "inin-script.exe.original").read_bytes(), SUITE["inin-script.exe"])

    def test_checks_the_site_at_the_end(self):
        self.install("0.1.0", self.suite)
        expected = wine(windows_path(SITE_PROGRAM), "check", windows_path(self.suite)).stdout
        report = (self.suite / "guide/check.txt").read_bytes()
        self.assertEqual(report.splitlines(), expected.splitlines())
        self.assertGreater(len(report), 0)

    def test_updates_the_registered_folder_and_removes_files_that_are_no_longer_shipped(self):
        self.install("0.1.0", self.suite)
        done = self.install("0.2.0")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assert_package_is_there("0.2.0")
        self.assertFalse((self.suite / "gone.txt").exists())
        self.assert_suite_is_unchanged("inin-script.exe")
        self.assertEqual((self.suite / "inin-script.exe.original").read_bytes(), SUITE["inin-script.exe"])

    def test_removes_what_it_installed_and_nothing_else(self):
        self.install("0.1.0", self.suite)
        self.install("0.2.0", self.suite)
        # The program copies itself to the folder for temporary files, so that it can delete itself, and ends at once.
        uninstaller = self.suite / "PrintInin-uninstall.exe"
        wine(windows_path(uninstaller), "/S")
        for _ in range(600):
            if not (uninstaller.exists() or (self.suite / "guide").exists()):
                break
            time.sleep(0.1)
        self.assertEqual(sorted(files_of(self.suite)), sorted(SUITE))
        self.assert_suite_is_unchanged()
        self.assertEqual({path.name for path in self.suite.iterdir() if path.is_dir()}, {"SYS", "TMP", "fonts"})
        self.assertNotEqual(wine("reg", "query", KEY).returncode, 0)

    def test_refuses_a_folder_without_the_settings_of_a_suite(self):
        (self.suite / "Massage.ini").unlink()
        before = files_of(self.suite)
        done = self.install("0.1.0", self.suite)
        self.assertEqual(done.returncode, NO_SUITE)
        self.assertIn("Massage.ini がありません", done.stderr.decode("utf-8"))
        self.assertEqual(files_of(self.suite), before)

    def test_refuses_while_a_program_runs(self):
        self.install("0.1.0", self.suite)
        before = files_of(self.suite)
        demo = windows_path(self.suite.parent / "demo")
        self.assertEqual(wine(windows_path(SITE_PROGRAM), "make", demo, "--patients", "1").returncode, 0)
        # The program plays the demo's screen and waits for commands.
        with subprocess.Popen(["wine", windows_path(self.suite / "inin-script.exe"), "--app", demo],
                              stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as running:
            running.stdout.read(1)
            done = self.install("0.2.0", self.suite)
            removed = self.uninstall()
            running.stdin.close()
        self.assertEqual((done.returncode, removed.returncode), (IN_USE, IN_USE))
        self.assertIn("「inin-script.exe」が使われています", done.stderr.decode("utf-8"))
        after = files_of(self.suite)
        for name in before:
            self.assertEqual(after.get(name), before[name], name)

    def test_refuses_a_folder_that_it_cannot_write_to(self):
        self.suite.chmod(0o555)
        try:
            done = self.install("0.1.0", self.suite)
        finally:
            self.suite.chmod(0o755)
        self.assertEqual(done.returncode, NOT_WRITABLE)
        self.assertIn("書き込めません", done.stderr.decode("utf-8"))
        self.assertEqual(files_of(self.suite), SUITE)

    def test_never_deletes_a_file_outside_its_folder(self):
        outside = self.suite.parent / "outside.txt"
        outside.write_text("somebody's file", encoding="utf-8")
        self.install("0.1.0", self.suite)
        with open(self.suite / "guide/installed.txt", "a", encoding="utf-16-le", newline="") as file:
            file.write(f"..\\outside.txt\r\n{windows_path(outside)}\r\nguide\\..\\..\\outside.txt\r\n")
        self.install("0.2.0", self.suite)
        self.uninstall()
        self.assertTrue(outside.exists())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
