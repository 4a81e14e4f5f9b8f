"""A display, a person's hands and eyes at it, and the program as players get it."""
import contextlib
import math
import mmap
import os
import pathlib
import re
import subprocess
import tempfile
import time
from subprocess import DEVNULL

SOURCE = pathlib.Path(__file__).resolve().parents[2]
DATA = SOURCE / "assets/data"
PROGRAM = os.environ.get("BRUSBO_PROGRAM", SOURCE / "build/release/bin/brusbo")
# What the command line takes.
NOTHING = "-platform offscreen -style x -stylesheet x -reverse -geometry 9x9+9+9".split()
# By what a window is found: left, top and width of its first long row of one colour.
ROWS = {
    "start": (62, 260, 67, b"\xc0\xe0\xff\xff"),
    "main": (0, 0, 570, b"\0\0\0\xff"),
    "menu": (14, 28, 16, b"\x96\x96\x96\xff"),  # its place is the main window's
    "about": (58, 322, 67, b"\xc0\xe0\xff\xff"),
    "farewell": (2, 2, 308, b"\xd6\xd6\xd6\xff"),
    "grown": (2, 2, 348, b"\xd6\xd6\xd6\xff"),  # the same
}
SIZES = {"start": (188, 305), "main": (570, 416), "about": (188, 378), "farewell": (312, 212)}
# What is looked at or touched: window, left, top, width, height.
PLACES = {
    "Starta": ("start", 60, 258, 71, 33),
    "Namnlist": ("main", 298, 29, 4, 4),
    "mnuArkiv": ("main", 14, 8, 41, 20),
    "mnuOm": ("main", 68, 10, 39, 20),
    "butMini": ("main", 526, 8, 13, 20),
    "butAvsluta": ("main", 546, 10, 16, 19),
    "mnuNytt_snabbt": ("main", 60, 53, 40, 10),
    "Tärning": ("main", 52, 184, 10, 10),  # before its first throw
    "labMeddelande": ("main", 30, 240, 131, 101),
    "butEn_pjäs": ("main", 24, 360, 143, 17),  # or butNästa
    "Picture1": ("main", 190, 36, 378, 378),
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

    def move(self, x, y):
        # The first movement may only enter a window, or belong to the button that it leaves.
        self.hand("mousemove", x - 1, y, "mousemove", x, y)

    def reach(self, x, y):
        """So that a press is sure to count there."""
        self.move(x, y)

    def has_keyboard(self, width, height):
        return f"{width}x{height}\n" in self.hand("getwindowfocus", "getwindowgeometry")

    def look(self, x, y, width=1, height=1):
        """The rows of pixels seen there."""
        starts = range(self.first + 4 * x + y * self.stride, len(self.screen), self.stride)
        return [self.screen[at : at + 4 * width] for at in starts[:height]]


class Game:
    """The program, started where its data is."""

    def __init__(self, desktop, command=(PROGRAM,), scale=1, folder=DATA, **more):
        self.desktop, self.hand, self.scale = desktop, desktop.hand, scale
        desktop.environment["QT_SCALE_FACTOR"] = str(scale)
        self.process = desktop.start(*command, *NOTHING, cwd=folder, **more)

    def does(self, words):
        """One thing after the other, each a method and what it is given: `click:Klar`."""
        for word in words.split():
            deed, *given = re.split("[:,]", word)
            getattr(self, deed)(*given)

    def sees(self, window):
        """Left and top of the window, if it is shown and painted."""
        x, y, width, colour = ROWS[window]
        at = self.desktop.screen.find(colour * width * self.scale, self.desktop.first)
        top, left = divmod((at - self.desktop.first) // 4, self.desktop.stride // 4)
        return at >= 0 and (left - x * self.scale, top - y * self.scale)

    def find(self, window):
        return wait(f"the {window} window", lambda: self.sees(window))

    def closes(self, window):
        wait(f"the {window} window to go", lambda: not self.sees(window))

    def has_keyboard(self, window):
        size = [self.scale * length for length in SIZES[window]]
        wait(f"the {window} window's keyboard", lambda: self.desktop.has_keyboard(*size))

    def is_told_to_close(self, window):
        self.has_keyboard(window)
        self.hand("-c", ":ACTIVE:", tool="wmctrl")

    def place(self, name):
        """Left, top, width and height on the screen, of a window too."""
        window, *area = PLACES.get(name) or (name, 0, 0, *SIZES[name])
        left, top = self.find(window)
        x, y, width, height = (length * self.scale for length in area)
        return left + x, top + y, width, height

    def middle(self, name):
        x, y, width, height = self.place(name)
        return x + width // 2, y + height // 2

    def look(self, name):
        return self.desktop.look(*self.place(name))

    def notes(self, name):
        self.noted = self.place(name), self.look(name)

    def changes(self, name):
        wait(f"another look of {name}", lambda: self.look(name) != self.noted[1])

    def returns(self, name):
        """Unchanged, to the same place."""
        wait(f"the same {name}", lambda: (self.place(name), self.look(name)) == self.noted)

    def click(self, name, button=1):
        self.desktop.reach(*self.middle(name))
        self.hand("click", button)

    def throws(self):
        self.does("notes:labMeddelande click:Tärning changes:labMeddelande")

    def is_lit(self, button):
        """Its brightest red tells, above an arrow in its middle."""
        return any(max(row[2::4]) > 240 for row in self.look(button)[:8])

    def lights(self, button):
        x, y = self.middle(button)
        wait(f"{button} to light up", lambda: [self.desktop.move(x, y)] and self.is_lit(button))

    def goes_out(self, button):
        wait(f"{button} to go out", lambda: not self.is_lit(button))

    def presses(self, button):
        self.lights(button)
        self.hand("click", 1)

    def opens_menu(self):
        self.presses("mnuArkiv")
        # A compositor may be one pixel off.
        place = self.find("main")
        wait("the menu at its place", lambda: math.dist(self.find("menu"), place) < 2)

    def catches_up(self):
        """All input before has been handled when a button has lit up and gone out."""
        self.lights("mnuOm")
        self.desktop.move(*self.middle("labMeddelande"))
        self.goes_out("mnuOm")

    def drags(self, name, x, y, button=1, result=None):
        """Holds a button of the mouse down there and moves it so far, until that is followed, or
        the window is seen that results from it."""
        left, top = self.middle(name)
        self.desktop.reach(left, top)
        self.hand("mousedown", button)
        end, move = (left + int(x), top + int(y)), self.desktop.move
        follows = lambda: self.sees(result) if result else self.middle(name) == end
        wait(f"{name} to follow the mouse", lambda: [move(*end)] and follows())
        self.hand("mouseup", button)

    def begins(self):
        # A window that is given the keyboard lets go of a button that is held down.
        self.has_keyboard("start")
        self.does("click:Starta closes:start")
        # The window's first row may be on the screen before its last.
        ground, row, at = b"\x64\x96\xc8\xff", -18 * self.scale, 36 * self.scale
        wait("all of the window", lambda: self.look("Picture1")[row][at : at + 4] == ground)

    def ends(self):
        """By itself, with no complaint."""
        assert self.process.wait(30) == 0, f"ended with {self.process.returncode}"

    def plays(self):
        """From the start window to the end of the program, as every display allows."""
        self.does("begins throws drags:Namnlist,-71,53 catches_up")
        maps = pathlib.Path(f"/proc/{self.process.pid}/maps")
        wait("the sound part", lambda: b"libbrusbo_sound.so" in maps.read_bytes())
        self.does(
            "notes:labMeddelande opens_menu click:mnuNytt_snabbt changes:labMeddelande "
            "goes_out:mnuArkiv presses:mnuOm click:Klar closes:about presses:butAvsluta "
            f"drags:corner,{40 * self.scale},{30 * self.scale},1,grown click:Stäng ends"
        )
