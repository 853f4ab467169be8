#!/usr/bin/env python3
"""The contents of the package for Windows.

    package_test.py PrintInin-windows-VERSION.zip
"""
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest
import zipfile

ZIP = pathlib.Path(sys.argv[1])
PROGRAMS = {"PrintInin.exe", "formviewer.exe", "inin-script.exe", "inin-site.exe", "inin-stand-in.exe"}
PLUGINS = {"qt/plugins/platforms/qwindows.dll", "qt/plugins/imageformats/qgif.dll", "qt/plugins/imageformats/qjpeg.dll",
           "qt/plugins/imageformats/qtiff.dll"}
LIBRARIES = {"Qt6Core.dll", "Qt6Gui.dll", "Qt6Widgets.dll", "Qt6PrintSupport.dll", "libgcc_s_seh-1.dll", "libstdc++-6.dll",
             "libwinpthread-1.dll"}
# Each part that is shipped, with its notices and a word of its licence. The programs contain the parts without a file.
NOTICES = {
    "Qt6*.dll": ("Qt.txt", "LGPL"),
    "qt/plugins/*/*.dll": ("Qt.txt", "LGPL"),
    "qt/plugins/imageformats/qtiff.dll": ("Qt TIFF plugin.txt", "LGPL"),
    "qt/translations/*": ("Qt translations.txt", "Qt"),
    "libgcc_s_seh-1.dll": ("gcc.txt", "GCC Runtime Library Exception"),
    "libstdc++-6.dll": ("gcc.txt", "GCC Runtime Library Exception"),
    "libwinpthread-1.dll": ("mingw-w64.txt", "winpthreads"),
    "fonts/ipaexm.ttf": ("IPAex Mincho.txt", "IPA Font License"),
    "fonts/ipaexg.ttf": ("IPAex Gothic.txt", "IPA Font License"),
}
INSIDE = {"HarfBuzz.txt": "HarfBuzz", "Expat.txt": "Expat", "zlib.txt": "zlib", "fmt.txt": "Zverovich",
          "CLI11.txt": "Cincinnati", "nlohmann json.txt": "Lohmann", "SQLite.txt": "public-domain",
          "mingw-w64.txt": "mingw-w64", "libpng.txt": "PNG", "libjpeg-turbo.txt": "libjpeg",
          "libdeflate.txt": "Biggers",
          "libtiff.txt": "Silicon Graphics", "ZBar.txt": "Lesser General", "Poppler.txt": "GPL",
          "FreeType.txt": "FreeType", "OpenJPEG.txt": "BSD"}
# The parts inside Qt that this build of Qt takes from Qt's own sources.
INSIDE_QT = ["PCRE2", "zlib", "Binary-Decimal", "HarfBuzz-NG", "LibJPEG", "LibPNG", "MD4C", "BLAKE2", "easing"]
# Libraries of every Windows 10.
WINDOWS = {"advapi32", "authz", "comdlg32", "d2d1", "d3d11", "d3d9", "dwmapi", "dwrite", "dxgi", "gdi32", "imm32", "kernel32", "mpr",
           "msvcrt", "netapi32", "odbc32", "ole32", "oleaut32", "opengl32", "setupapi", "shell32", "shlwapi", "shcore",
           "user32", "userenv", "uxtheme", "version", "winmm", "winspool.drv", "ws2_32", "wtsapi32"}
ICON, ICON_GROUP = 3, 14


def imports_of(path):
    listed = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", path], capture_output=True, text=True, check=True).stdout
    return [line.split("DLL Name: ")[1].strip() for line in listed.splitlines() if "DLL Name: " in line]


class Resources:
    """The resources of a program: their data by type and name."""

    def __init__(self, program):
        self.bytes = program.read_bytes()
        header = self.unpack("<I", 0x3C)[0]
        sections, optional = self.unpack("<H", header + 6)[0], self.unpack("<H", header + 20)[0]
        first = header + 24 + optional
        for at in range(first, first + 40 * sections, 40):
            if self.bytes[at:at + 8].rstrip(b"\0") == b".rsrc":
                self.address, _, self.start = self.unpack("<III", at + 12)

    def unpack(self, form, at):
        return struct.unpack_from(form, self.bytes, at)

    def entries(self, table):
        """The names (None for a text) and places of a directory's entries; a place with the top bit is a directory."""
        named, numbered = self.unpack("<HH", self.start + table + 12)
        for at in range(self.start + table + 16, self.start + table + 16 + 8 * (named + numbered), 8):
            name, place = self.unpack("<II", at)
            yield (None if name >> 31 else name), place

    def of_type(self, kind):
        for name, place in self.entries(0):
            if name == kind:
                for _, languages in self.entries(place & 0x7FFFFFFF):
                    for _, leaf in self.entries(languages & 0x7FFFFFFF):
                        address, size = self.unpack("<II", self.start + leaf)
                        at = address - self.address + self.start
                        yield self.bytes[at:at + size]


class Package(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.unpacked = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.unpacked.name)
        with zipfile.ZipFile(ZIP) as packed:
            packed.extractall(cls.folder)
        cls.files = {path.relative_to(cls.folder).as_posix() for path in cls.folder.rglob("*") if path.is_file()}

    @classmethod
    def tearDownClass(cls):
        cls.unpacked.cleanup()

    def binaries(self):
        return {name for name in self.files if name.endswith((".exe", ".dll"))}

    def notice(self, name):
        return (self.folder / "guide/licences" / name).read_text(encoding="utf-8")

    def test_has_the_programs_and_only_the_libraries_and_plugins_that_they_need(self):
        self.assertEqual(self.binaries(), PROGRAMS | LIBRARIES | PLUGINS)

    def test_each_library_that_a_program_needs_is_in_the_package_or_part_of_windows(self):
        for name in sorted(self.binaries()):
            for library in imports_of(self.folder / name):
                with self.subTest(program=name, library=library):
                    name_of_system = library.lower().removesuffix(".dll")
                    self.assertTrue(library in self.files or name_of_system in WINDOWS or
                                    name_of_system.startswith("api-ms-win-core-"))

    def test_has_the_notices_of_every_part_that_is_shipped(self):
        for pattern, (notice, word) in NOTICES.items():
            with self.subTest(pattern=pattern):
                self.assertTrue(any(pathlib.PurePath(name).match(pattern) for name in self.files))
                self.assertTrue(word in self.notice(notice))
        for name in LIBRARIES | PLUGINS | {file for file in self.files if file.startswith("fonts/")}:
            with self.subTest(name=name):
                self.assertTrue(any(pathlib.PurePath(name).match(pattern) for pattern in NOTICES))
        for notice, word in INSIDE.items():
            with self.subTest(notice=notice):
                self.assertTrue(word in self.notice(notice))
        for part in INSIDE_QT:
            with self.subTest(part=part):
                self.assertTrue(part.lower() in self.notice("Qt parts.txt").lower())

    def test_names_the_source_of_every_part(self):
        sources = self.notice("Sources.txt")
        for notice in [name for name, _ in NOTICES.values()] + list(INSIDE):
            with self.subTest(notice=notice):
                self.assertRegex(sources, rf"(?m)^{re.escape(notice.removesuffix('.txt'))}: Debian source package \S+, version \S+$")

    def test_has_the_licences_that_the_notices_refer_to(self):
        for text in ("LGPL-3", "LGPL-2.1", "GPL-3", "GPL-2"):
            with self.subTest(text=text):
                self.assertIn("GNU", self.notice(text + ".txt"))
        self.assertIn("PrintInin", (self.folder / "LICENSE.txt").read_text(encoding="utf-8"))

    def test_each_program_has_the_icon_in_every_size_of_the_icon_file(self):
        source = (pathlib.Path(__file__).resolve().parents[2] / "packaging/windows/program.ico").read_bytes()
        count = struct.unpack_from("<H", source, 4)[0]
        pictures = []
        for at in range(6, 6 + 16 * count, 16):
            size, place = struct.unpack_from("<II", source, at + 8)
            pictures.append(source[place:place + size])
        self.assertGreater(count, 1)
        for name in sorted(PROGRAMS):
            with self.subTest(program=name):
                resources = Resources(self.folder / name)
                found = list(resources.of_type(ICON))
                self.assertTrue(all(picture in found for picture in pictures))
                self.assertEqual(struct.unpack_from("<H", next(resources.of_type(ICON_GROUP)), 4)[0], count)

    def test_lists_its_own_files_for_the_installer(self):
        listed = (self.folder / "guide/installed.txt").read_text(encoding="utf-16").splitlines()
        self.assertEqual({name.replace("\\", "/") for name in listed}, self.files)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
