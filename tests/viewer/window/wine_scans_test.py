#!/usr/bin/env python3
"""Reads scanned pages with formviewer.exe under Wine and with the native program, whose reports must be the same.

wine_scans_test.py FORMVIEWER ZIP PAGES
FORMVIEWER is the native program, ZIP the Windows package, PAGES a folder with degraded pages (*.png) and with printed
letters (*.pdf). WINEPREFIX is the Wine prefix. scripts/test-windows --windows runs this.
"""
import json
import os
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import zipfile


def pdf_of(jpeg, width, height):
    """A PDF as a scanner writes it: a page of 200 dots per inch that is one grey JPEG."""
    paper = f"{width * 72 / 200} {height * 72 / 200}"
    content = f"{width * 72 / 200} 0 0 {height * 72 / 200} 0 0 cm /Scan Do".encode()
    picture = (f"<</Type/XObject/Subtype/Image/Width {width}/Height {height}/ColorSpace/DeviceGray/BitsPerComponent 8"
               f"/Filter/DCTDecode/Length {len(jpeg)}>>stream\n").encode() + jpeg + b"\nendstream"
    objects = [b"<</Type/Catalog/Pages 2 0 R>>", b"<</Type/Pages/Kids[3 0 R]/Count 1>>",
               f"<</Type/Page/Parent 2 0 R/MediaBox[0 0 {paper}]/Contents 4 0 R/Resources<</XObject<</Scan 5 0 R>>>>>>".encode(),
               f"<</Length {len(content)}>>stream\n".encode() + content + b"\nendstream", picture]
    pdf, places = b"%PDF-1.4\n", []
    for number, text in enumerate(objects, 1):
        places.append(len(pdf))
        pdf += b"%d 0 obj" % number + text + b"endobj\n"
    table = b"".join(b"%010d 00000 n \n" % place for place in places)
    return pdf + (b"xref\n0 6\n0000000000 65535 f \n" + table +
                  b"trailer<</Size 6/Root 1 0 R>>\nstartxref\n%d\n%%%%EOF\n" % len(pdf))


def convert(*arguments):
    subprocess.run(["convert", *map(str, arguments)], check=True)


def other_kinds(folder, pages):
    """The first pages as files of the other kinds that scanners write."""
    convert(pages[0], folder / "a.jpg")
    convert(pages[1], "-threshold", "45%", "-compress", "Group4", folder / "group4.tif")
    convert(pages[2], "-compress", "JPEG", folder / "jpeg.tif")
    convert(*pages[3:6], "-compress", "LZW", folder / "three pages.tif")
    convert(pages[6], folder / "scan.jpg")
    width, height = struct.unpack(">II", pages[6].read_bytes()[16:24])
    (folder / "scan.pdf").write_bytes(pdf_of((folder / "scan.jpg").read_bytes(), width, height))
    (folder / "cut.pdf").write_bytes(b"%PDF-1.7\nnothing else")
    (folder / "words.tif").write_bytes(b"no picture")


def report(command, folder, ledger):
    """The report about all files of the folder, and the exit code."""
    files = sorted(path.name for path in folder.iterdir())
    ended = subprocess.run([*command, "--json", "--returned", *files], cwd=folder, env={**os.environ, "ININ_LEDGER": ledger},
                           capture_output=True, check=False)
    if not ended.stdout:
        sys.exit(f"no report, exit code {ended.returncode}: {ended.stderr.decode(errors='replace')}")
    return json.loads(ended.stdout), ended.returncode


def main():
    formviewer, package, pages = (pathlib.Path(path).resolve() for path in sys.argv[1:4])
    with tempfile.TemporaryDirectory() as work, zipfile.ZipFile(package) as packed:
        programs, scans = pathlib.Path(work, "programs"), pathlib.Path(work, "scans")
        packed.extractall(programs)
        shutil.copytree(pages, scans)
        other_kinds(scans, sorted(scans.glob("*.png")))
        here = report([formviewer], scans, work + "/here.db")
        there = report(["wine", programs / "formviewer.exe"], scans, "Z:" + work.replace("/", "\\") + "\\there.db")
    read = [page for page in here[0]["pages"] if page["code"]]
    print(f"{len(here[0]['pages'])} pages, {len(read)} codes read, {len(here[0]['unreadFiles'])} files refused")
    if not read:
        sys.exit("FAILED: nothing was read")
    if here == there:
        return 0
    for page, other in zip(here[0]["pages"], there[0]["pages"]):
        if page != other:
            print(f"here  {page}\nthere {other}")
    print(f"FAILED: exit codes {here[1]} and {there[1]}, {here[0]['unreadFiles']}, {there[0]['unreadFiles']}")
    return 1


if __name__ == "__main__":
    sys.exit(main())
