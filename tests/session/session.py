"""A display, a person's hands, eyes and ears at it, and the program as players get it."""
import contextlib
import ctypes
import mmap
import os
import pathlib
import re
import shutil
import struct
import subprocess
import tempfile
import time

SOURCE = pathlib.Path(__file__).resolve().parents[2]
DATA = SOURCE / "assets/data"
OPENED, CLOSED = 0x20, 0x18  # of inotify
PROGRAM = os.environ.get("BRUSBO_PROGRAM", SOURCE / "build/release/bin/brusbo")
# Colours as the screen has them: blue, green, red and a filling byte.
FACE, WOOD, GREY = b"\xc0\xe0\xff\xff", b"\x64\x96\xc8\xff", b"\xf0" * 3 + b"\xff"
# Each window's size, and a place with a colour that nothing below it has there.
WINDOWS = {
    "start": (188, 305, 68, 263, FACE),
    "main": (570, 416, 565, 236, WOOD),
    "about": (188, 378, 64, 325, FACE),
    "farewell": (312, 212, 231, 9, GREY),
}
BUTTONS = ("mnuArkiv", "mnuOm", "butMini", "butAvsluta")
# What is looked at or touched: window, left, top, width, height.
PLACES = {
    "start": ("start", 0, 0, 188, 305),
    "Starta": ("start", 60, 258, 71, 33),
    "all": ("main", 0, 0, 570, 416),
    "title bar": ("main", 298, 29, 4, 4),
    "mnuArkiv": ("main", 14, 8, 41, 20),
    "mnuOm": ("main", 68, 10, 39, 20),
    "Label1": ("main", 120, 12, 225, 15),
    "butMini": ("main", 526, 8, 13, 20),
    "butAvsluta": ("main", 546, 10, 16, 19),
    "die": ("main", 52, 184, 10, 10),  # before its first throw
    "Nytt spel (snabbt)": ("main", 60, 53, 40, 10),
    "die row": ("main", 32, 164, 132, 50),
    "message": ("main", 30, 240, 131, 101),
    "butEn_pjäs": ("main", 24, 360, 143, 17),  # or butNästa
    "board": ("main", 190, 36, 378, 378),
    "bare board": ("main", 360, 264, 8, 8),
    "Klar": ("about", 56, 320, 71, 33),
    "corner": ("farewell", 308, 208, 4, 4),
    "elements": ("farewell", 10, 10, 220, 194),
    "Stäng": ("farewell", 236, 178, 65, 25),
}


def wait(what, question):
    """Asks every few milliseconds until the answer is true, and returns it."""
    end = time.monotonic() + 30
    while not (answer := question()):
        assert time.monotonic() < end, f"waited in vain for {what}"
        time.sleep(0.003)
    return answer


class Desktop(contextlib.ExitStack):
    """An X server with an empty home, no session bus and no sound server. All ends with it."""

    def __init__(self, *manager):
        super().__init__()
        self.home = pathlib.Path(self.enter_context(tempfile.TemporaryDirectory()))
        names = ("HOME", "XDG_RUNTIME_DIR", "DBUS_SESSION_BUS_ADDRESS", "PULSE_SERVER")
        self.environment = dict.fromkeys(names, str(self.home))
        self.environment |= {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8"}
        told, tell = os.pipe()
        server = f"Xvfb -displayfd {tell} -ac -nocursor -noreset -screen 0 1920x1400x24 -fbdir"
        self.start(*server.split(), self.home, pass_fds=[tell])
        os.close(tell)
        with open(told, encoding="ascii") as number:
            self.environment["DISPLAY"] = ":" + number.readline().strip()
        with open(self.home / "Xvfb_screen0", "rb") as screen:
            self.screen = mmap.mmap(screen.fileno(), 0, prot=mmap.PROT_READ)
        header = struct.unpack(">25I", self.screen[:100])
        self.first, self.stride = header[0] + 12 * header[19], header[12]
        self.hand("mousemove", 1900, 1300)
        if manager:
            # It loses windows that are shown before it has started.
            self.start(*manager, "--sm-disable", "--startup", f"touch {self.home}/managed")
            wait("the window manager", (self.home / "managed").exists)

    def start(self, *words, environment=None, **more):
        """A process that ends with this object, and with the test; its output goes to `log`."""
        with open(self.home / "log", "ab") as log:
            more |= {"env": self.environment | (environment or {}), "stdout": log, "stderr": log}
            process = subprocess.Popen(["setpriv", "--pdeathsig", "TERM", *words], **more)
        self.callback(process.wait)
        self.callback(process.terminate)
        return process

    def hand(self, *words, tool="xdotool"):
        """What the person does, and what it tells."""
        command = [tool, *map(str, words)]
        return subprocess.run(command, env=self.environment, capture_output=True, text=True).stdout

    def look(self, x, y, width=1, height=1):
        """The rows of pixels seen there."""
        starts = range(self.first + 4 * x + y * self.stride, len(self.screen), self.stride)
        return [self.screen[at : at + 4 * width] for at in starts[:height]]

    def find(self, name, scale):
        """Left, top and number of the window, if it is shown and painted."""
        width, height, *spot = (round(number * scale) for number in WINDOWS[name][:4])
        line = rf'(\w+) .*"brusbo"\)  {width}x{height}\S+ +\+(\d+)\+(\d+)$'
        for number, *corner in re.findall(line, self.hand("-root", "-tree", tool="xwininfo"), re.M):
            x, y = map(int, corner)
            if self.look(x + spot[0], y + spot[1]) == [WINDOWS[name][4]]:
                return x, y, int(number, 16)
        return None


class Game:
    """The program, started in a copy of its data or in another folder."""

    def __init__(
        self, desktop, *arguments, command=(PROGRAM,), scale=1, folder=None, environment=None
    ):
        self.desktop, self.hand, self.scale = desktop, desktop.hand, scale
        folder = folder or shutil.copytree(DATA, desktop.home / "game")
        # The files are numbered from 1 as the sounds are. Each play opens one anew; without the
        # closing in between, two plays in a row would be one event.
        libc = ctypes.CDLL(None)
        self.ears = libc.inotify_init1(os.O_NONBLOCK)
        for sound in ("s1.wav", "s2.wav", "s3.wav"):
            libc.inotify_add_watch(self.ears, bytes(folder / sound), OPENED | CLOSED)
        environment = {"QT_SCALE_FACTOR": str(scale)} | (environment or {})
        self.process = desktop.start(*command, *arguments, cwd=folder, environment=environment)

    def find(self, window):
        return wait(f"the {window} window", lambda: self.desktop.find(window, self.scale))

    def place(self, name):
        """Left, top, width and height on the screen."""
        window, *area = PLACES[name]
        left, top, _ = self.find(window)
        x, y, width, height = (round(length * self.scale) for length in area)
        return left + x, top + y, width, height

    def look(self, name):
        return self.desktop.look(*self.place(name))

    def middle(self, name):
        x, y, width, height = self.place(name)
        return x + width // 2, y + height // 2

    def point(self, name):
        self.hand("mousemove", *self.middle(name))

    def click(self, name):
        self.hand("mousemove", *self.middle(name), "click", 1)

    def closes(self, name):
        wait(f"the {name} window to go", lambda: not self.desktop.find(name, self.scale))

    def changes(self, name, before):
        wait(f"another look of {name}", lambda: self.look(name) != before)

    def ends(self):
        """By itself, with no complaint."""
        assert self.process.wait(30) == 0, f"ended with {self.process.returncode}"

    def hears(self, *expected):
        """Waits for sounds; each has to come before the next is caused, which may replace it."""
        heard = []

        def has_heard():
            with contextlib.suppress(BlockingIOError):
                events = struct.iter_unpack("iIII", os.read(self.ears, 4096))
                heard.extend(sound for sound, what, _, _ in events if what & OPENED)
            return len(heard) >= len(expected)

        wait(f"sounds {expected}", has_heard)
        assert heard == list(expected), f"heard {heard} instead of {expected}"

    def begins(self):
        self.click("Starta")
        self.hears(1)
        self.closes("start")
        self.normal = {button: self.face(button) for button in BUTTONS}
        return self

    def throws(self):
        message = self.look("message")
        self.click("die")
        self.hears(3)
        self.changes("message", message)

    def face(self, button):
        """What is seen of a picture button beside an arrow in its corner."""
        return [row[:-32] for row in self.look(button)[:-8]]

    def is_lit(self, button):
        return self.face(button) != self.normal[button]

    def lights(self, button):
        """Moves the mouse about in the button's corner until it lights up."""
        x, y, width, height = self.place(button)
        x, y = x + width - 4, y + height - 4
        # The first movement may be the last button's, or only enter the window.
        move = ("mousemove", x - 1, y, "mousemove", x, y)
        wait(f"{button} to light up", lambda: [self.hand(*move)] and self.is_lit(button))
        self.hears(2)

    def goes_out(self, button):
        wait(f"{button} to go out", lambda: not self.is_lit(button))

    def catches_up(self):
        """All input before has been handled when a button has lit up and gone out."""
        self.lights("mnuOm")
        self.point("bare board")
        self.goes_out("mnuOm")

    def drag(self, name, by, has_followed, button=1):
        """Holds a button of the mouse down there and moves it so far, until that is followed."""
        x, y = self.middle(name)
        self.hand("mousemove", x, y, "mousedown", button)
        x, y = x + by[0], y + by[1]
        # A compositor follows the movements that come after it has been asked to.
        move = ("mousemove", x + 1, y, "mousemove", x, y)
        wait(f"{name} to follow the mouse", lambda: [self.hand(*move)] and has_followed())
        self.hand("mouseup", button)

    def drags_window(self, by, button=1):
        x, y, _ = self.find("main")
        end = x + by[0], y + by[1]
        self.drag("title bar", by, lambda: self.find("main")[:2] == end, button)
        self.catches_up()
        assert self.find("main")[:2] == end, "the window sticks to the mouse"

    def opens_menu(self):
        self.lights("mnuArkiv")
        before = self.look("all")
        self.hand("click", 1)

        def is_at_its_place():
            # An arrow to the right of this may still be on its way.
            width = 4 * 45 * self.scale
            both = [(a[:width], b[:width]) for a, b in zip(before, self.look("all"))]
            left = min(len(os.path.commonprefix(row)) // 4 for row in both)
            top = next((y for y, row in enumerate(both) if len(set(row)) > 1), 0)
            # A window between two logical pixels has its menu on one of them.
            away = max(abs(left - 14 * self.scale), abs(top - 28 * self.scale))
            return away < self.scale

        wait("the menu at its place", is_at_its_place)

    def plays(self):
        """From the start window to the end of the program, as every display allows."""
        self.begins()
        self.throws()
        message = self.look("message")
        self.drags_window((-71, 53))
        self.opens_menu()
        self.click("Nytt spel (snabbt)")
        self.hears(1)
        self.changes("message", message)
        self.goes_out("mnuArkiv")
        self.lights("mnuOm")
        self.click("mnuOm")
        self.hears(1)
        self.click("Klar")
        self.hears(1)
        self.closes("about")
        self.point("bare board")
        self.goes_out("mnuOm")
        self.lights("butAvsluta")
        self.click("butAvsluta")
        self.hears(1)
        # A window of another size is not found.
        elements, stäng = self.place("elements"), self.middle("Stäng")
        look, grown = self.desktop.look, (elements[0] + 320 * self.scale, elements[1])
        before = look(*elements)
        by = 40 * self.scale, 30 * self.scale
        self.drag("corner", by, lambda: look(*grown) == [GREY])
        wait("the elements at their places", lambda: look(*elements) == before)
        self.hand("mousemove", *stäng, "click", 1)
        self.ends()
