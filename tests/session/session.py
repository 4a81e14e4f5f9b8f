"""A display, a person's hands and eyes at it, and the program as players get it."""
import contextlib
import math
import mmap
import os
import pathlib
import subprocess
import tempfile
import time
from subprocess import DEVNULL

SOURCE = pathlib.Path(__file__).resolve().parents[2]
DATA = SOURCE / "assets/data"
PROGRAM = os.environ.get("BRUSBO_PROGRAM", SOURCE / "build/release/bin/brusbo")
# By what a window is found: left, top and width of its first long row of one colour.
ROWS = {
    "start": (62, 260, 67, b"\xc0\xe0\xff\xff"),
    "main": (0, 0, 570, b"\0\0\0\xff"),
    "menu": (14, 28, 16, b"\x96\x96\x96\xff"),  # its place is the main window's
    "about": (58, 322, 67, b"\xc0\xe0\xff\xff"),
    "farewell": (4, 4, 304, b"\xf0\xf0\xf0\xff"),
    "grown farewell": (4, 4, 344, b"\xf0\xf0\xf0\xff"),
}
BUTTONS = ("mnuArkiv", "mnuOm", "butMini", "butAvsluta")
# What is looked at or touched: window, left, top, width, height.
PLACES = {
    "Starta": ("start", 60, 258, 71, 33),
    "all": ("main", 0, 0, 570, 416),
    "title bar": ("main", 298, 29, 4, 4),
    "mnuArkiv": ("main", 14, 8, 41, 20),
    "mnuOm": ("main", 68, 10, 39, 20),
    "butMini": ("main", 526, 8, 13, 20),
    "butAvsluta": ("main", 546, 10, 16, 19),
    "Nytt spel (snabbt)": ("main", 60, 53, 40, 10),
    "die": ("main", 52, 184, 10, 10),  # before its first throw
    "message": ("main", 30, 240, 131, 101),
    "butEn_pjäs": ("main", 24, 360, 143, 17),  # or butNästa
    "board": ("main", 190, 36, 378, 378),
    "bare board": ("main", 360, 264, 8, 8),
    "Klar": ("about", 56, 320, 71, 33),
    "Stäng": ("farewell", 236, 178, 65, 25),
    "corner": ("farewell", 308, 208, 4, 4),
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
        server = "Xvfb -displayfd 1 -ac -nocursor -noreset -screen 0 1920x1400x24 -fbdir".split()
        number = self.start(*server, self.home, stdout=subprocess.PIPE).stdout.readline()
        self.environment["DISPLAY"] = ":" + number.decode().strip()
        with open(self.home / "Xvfb_screen0", "rb") as screen:
            self.screen = mmap.mmap(screen.fileno(), 0, prot=mmap.PROT_READ)
        self.stride = 4 * 1920
        self.first = len(self.screen) - 1400 * self.stride
        self.hand("mousemove", 1900, 1300)
        if manager:
            # It loses windows that are shown before it has started.
            self.start(*manager, "--sm-disable", "--startup", f"touch {self.home}/managed")
            wait("the window manager", (self.home / "managed").exists)

    def start(self, *words, **more):
        """A process that ends with this object, and with the test."""
        more = {"env": self.environment, "stdout": DEVNULL, "stderr": DEVNULL} | more
        process = subprocess.Popen(["setpriv", "--pdeathsig", "TERM", *words], **more)
        self.callback(process.wait)
        self.callback(process.terminate)
        return process

    def hand(self, *words, tool="xdotool"):
        """What the person does, and what it tells."""
        command = [tool, *map(str, words)]
        return subprocess.run(command, env=self.environment, capture_output=True, text=True).stdout

    def has_keyboard(self, size):
        return size in self.hand("getwindowfocus", "getwindowgeometry")

    def look(self, x, y, width=1, height=1):
        """The rows of pixels seen there."""
        starts = range(self.first + 4 * x + y * self.stride, len(self.screen), self.stride)
        return [self.screen[at : at + 4 * width] for at in starts[:height]]


class Game:
    """The program, started where its data is."""

    def __init__(self, desktop, *arguments, command=(PROGRAM,), scale=1, folder=DATA, **more):
        self.desktop, self.hand, self.scale = desktop, desktop.hand, scale
        desktop.environment["QT_SCALE_FACTOR"] = str(scale)
        self.process = desktop.start(*command, *arguments, cwd=folder, **more)

    def sees(self, window):
        """Left and top of the window, if it is shown and painted."""
        x, y, width, colour = ROWS[window]
        at = self.desktop.screen.find(colour * width * self.scale, self.desktop.first)
        top, left = divmod((at - self.desktop.first) // 4, self.desktop.stride // 4)
        return at >= 0 and (left - x * self.scale, top - y * self.scale)

    def are_together(self, part, window):
        """To the pixel; a compositor, or a window between two logical ones, may be one off."""
        return math.dist(self.sees(part) or (0, 0), self.find(window)) < 2

    def find(self, window):
        return wait(f"the {window} window", lambda: self.sees(window))

    def place(self, name):
        """Left, top, width and height on the screen."""
        window, *area = PLACES[name]
        left, top = self.find(window)
        x, y, width, height = (length * self.scale for length in area)
        return left + x, top + y, width, height

    def look(self, name):
        return self.desktop.look(*self.place(name))

    def middle(self, name):
        x, y, width, height = self.place(name)
        return x + width // 2, y + height // 2

    def point(self, name, *words):
        self.hand("mousemove", *self.middle(name), *words)

    def click(self, name):
        self.point(name, "click", 1)

    def closes(self, name):
        wait(f"the {name} window to go", lambda: not self.sees(name))

    def changes(self, name, before):
        wait(f"another look of {name}", lambda: self.look(name) != before)

    def ends(self):
        """By itself, with no complaint."""
        assert self.process.wait(30) == 0, f"ended with {self.process.returncode}"

    def begins(self):
        self.find("start")
        # A window that is given the keyboard lets go of a button that is held down.
        size = f"{188 * self.scale}x{305 * self.scale}"
        wait("the keyboard", lambda: self.desktop.has_keyboard(size))
        self.click("Starta")
        self.closes("start")
        # The window's first row may be on the screen before its last.
        ground = b"\x64\x96\xc8\xff"
        wait("all of the window", lambda: self.look("board")[-1][:4] == ground)
        self.normal = {button: self.look(button)[:8] for button in BUTTONS}
        return self

    def throws(self):
        message = self.look("message")
        self.click("die")
        self.changes("message", message)

    def is_lit(self, button):
        """As far as it lies above an arrow in its middle."""
        return self.look(button)[:8] != self.normal[button]

    def lights(self, button):
        x, y = self.middle(button)
        # The first movement may be the last button's, or only enter the window.
        move = ("mousemove", x - 1, y, "mousemove", x, y)
        wait(f"{button} to light up", lambda: [self.hand(*move)] and self.is_lit(button))

    def goes_out(self, button):
        wait(f"{button} to go out", lambda: not self.is_lit(button))

    def catches_up(self):
        """All input before has been handled when a button has lit up and gone out."""
        self.lights("mnuOm")
        x, y = self.middle("bare board")
        # A leap into another window may be no movement there.
        move = ("mousemove", x - 1, y, "mousemove", x, y)
        wait("mnuOm to go out", lambda: [self.hand(*move)] and not self.is_lit("mnuOm"))

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
        x, y = self.find("main")
        end = x + by[0], y + by[1]
        self.drag("title bar", by, lambda: self.sees("main") == end, button)
        self.catches_up()
        assert self.find("main") == end, "the window sticks to the mouse"

    def opens_menu(self):
        self.lights("mnuArkiv")
        self.hand("click", 1)
        wait("the menu at its place", lambda: self.are_together("menu", "main"))

    def plays(self):
        """From the start window to the end of the program, as every display allows."""
        self.begins()
        self.throws()
        message = self.look("message")
        mapped = pathlib.Path(f"/proc/{self.process.pid}/maps")
        wait("the sound part", lambda: b"libbrusbo_sound.so" in mapped.read_bytes())
        self.drags_window((-71, 53))
        self.opens_menu()
        self.click("Nytt spel (snabbt)")
        self.changes("message", message)
        self.goes_out("mnuArkiv")
        self.lights("mnuOm")
        self.hand("click", 1)
        self.click("Klar")
        self.closes("about")
        self.lights("butAvsluta")
        self.hand("click", 1)
        by = 40 * self.scale, 30 * self.scale
        self.drag("corner", by, lambda: self.are_together("grown farewell", "farewell"))
        self.click("Stäng")
        self.ends()
