"""A printer for tests: a queue of a CUPS server of its own, which keeps what is printed.

The server needs no service and no rights: its files are in a temporary folder, and it listens on the loopback only. The
queue has the description of a PostScript printer from Debian's printer-driver-cups-pdf.
"""
import getpass
import grp
import os
import pathlib
import re
import shutil
import socket
import subprocess
import tempfile
import time

DESCRIPTION = "/usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd"
NAME = "letters"
PATIENCE = 600

FILES = """ServerRoot {top}/etc
CacheDir {top}/cache
StateDir {top}/state
RequestRoot {top}/spool
TempDir {top}/spool/tmp
AccessLog {top}/log/access
ErrorLog {top}/log/error
PageLog {top}/log/page
FileDevice Yes
SystemGroup root
User {user}
Group {group}
"""
SERVER = """Listen 127.0.0.1:{port}
Browsing Off
WebInterface No
DefaultAuthType None
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
<Limit All>
Order allow,deny
Allow all
</Limit>
</Policy>
"""
QUEUE = """<DefaultPrinter {name}>
DeviceURI file:{top}/job.ps
State Idle
Accepting Yes
</DefaultPrinter>
"""


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class PrintQueue:
    """The default printer of the programs that run in its environment."""

    def __enter__(self):
        self.top = pathlib.Path(tempfile.mkdtemp(prefix="inin-printer."))
        self.top.chmod(0o755)  # the filters of a server that root starts run as another user
        for name in ("etc/ppd", "cache", "state", "spool/tmp", "log"):
            (self.top / name).mkdir(parents=True)
        user, group = ("lp", "lp") if os.getuid() == 0 else (getpass.getuser(), grp.getgrgid(os.getgid()).gr_name)
        values = {"top": self.top, "port": free_port(), "name": NAME, "user": user, "group": group}
        for name, text in (("cups-files.conf", FILES), ("cupsd.conf", SERVER), ("printers.conf", QUEUE)):
            (self.top / "etc" / name).write_text(text.format(**values), encoding="utf-8")
        shutil.copy(DESCRIPTION, self.top / "etc/ppd" / (NAME + ".ppd"))
        self.environment = {"CUPS_SERVER": "127.0.0.1:{port}".format(**values)}
        self.server = subprocess.Popen(["/usr/sbin/cupsd", "-f", "-c", self.top / "etc/cupsd.conf",
                                        "-s", self.top / "etc/cups-files.conf"])
        self.jobs = 0
        self._wait("the print server", lambda: self.server.poll() is not None or NAME in self._state("-d"))
        if self.server.returncode is not None:
            raise RuntimeError("the print server does not start: " + (self.top / "log/error").read_text())
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()
        for folder in self.top, *self.top.rglob("*/"): # the server has given some of them to its own user
            folder.chmod(0o777)
        shutil.rmtree(self.top)

    def _state(self, *options):
        return subprocess.run(["lpstat", *options], env={**os.environ, **self.environment, "LC_ALL": "C"},
                              capture_output=True, text=True, check=False).stdout

    @staticmethod
    def _wait(what, condition):
        end = time.monotonic() + PATIENCE
        while not condition():
            if time.monotonic() > end:
                raise TimeoutError(f"waited in vain for {what}")
            time.sleep(0.2)

    def next_job(self, pdf):
        """Waits until one more job is printed and writes it as a PDF."""
        self.jobs += 1
        self._wait(f"job {self.jobs}", lambda: len(self._state("-W", "completed", "-o").splitlines()) >= self.jobs)
        subprocess.run(["gs", "-q", "-dBATCH", "-dNOPAUSE", "-dSAFER", "-sDEVICE=pdfwrite", f"-sOutputFile={pdf}",
                        self.top / "job.ps"], check=True)


def page_count(pdf):
    found = subprocess.run(["pdfinfo", pdf], capture_output=True, text=True, check=True).stdout
    return int(re.search(r"^Pages: *(\d+)", found, re.MULTILINE)[1])


class Page:
    """A page as a grey picture, one number with a byte for each pixel."""

    def __init__(self, path):
        kind, size, _, pixels = path.read_bytes().split(b"\n", 3)
        assert kind == b"P5"
        self.width, self.height = map(int, size.split())
        self.pixels = pixels

    def ink(self, lightest):
        """1 for each pixel that is at most that light."""
        return int.from_bytes(self.pixels.translate(bytes(level <= lightest for level in range(256))), "big")

    def surroundings(self, lightest):
        """The same, with the eight neighbours of each such pixel."""
        ink = self.ink(lightest)
        for step in (8, 8 * self.width):
            ink |= ink << step | ink >> step
        return ink


DARK, LIGHT = 100, 235


def stray_ink(pdf, other, resolution=100):
    """The pages where a pixel of dark ink of one PDF has no ink in the other one within a pixel: (page, count)."""
    strays = []
    with tempfile.TemporaryDirectory() as folder:
        for name, document in (("a", pdf), ("b", other)):
            subprocess.run(["pdftoppm", "-q", "-gray", "-r", str(resolution), document, f"{folder}/{name}"], check=True)
        ours, theirs = (sorted(pathlib.Path(folder).glob(name + "-*.pgm")) for name in "ab")
        for number, (one, two) in enumerate(zip(ours, theirs, strict=True), 1):
            here, there = Page(one), Page(two)
            assert (here.width, here.height) == (there.width, there.height), f"the size of page {number}"
            count = sum((a.ink(DARK) & ~b.surroundings(LIGHT)).bit_count() for a, b in ((here, there), (there, here)))
            assert here.ink(DARK), f"page {number} is empty"
            if count:
                strays.append((number, count))
    return strays
