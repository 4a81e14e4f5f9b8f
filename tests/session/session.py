"""A display, a person's hands and eyes at it, and the program as players get it."""
import contextlib
import math
import mmap
import os
import pathlib
import tempfile
import time
from subprocess import DEVNULL, PIPE, Popen, run

SOURCE = pathlib.Path(__file__).resolve().parents[2]
DATA = SOURCE / "assets/data"
BUILD = pathlib.Path(os.environ.get("BRUSBO_BUILD", SOURCE / "build/release"))
PROGRAM = BUILD / "bin/brusbo"
# What the command line takes.
NOTHING = "-platform offscreen -style x -stylesheet x -reverse -geometry 9x9+9+9".split()
# Width and height; left, top, width of the first long row of one colour, by which it is found.
WINDOWS = {
    "start": (188, 305, 62, 260, 67, b"\xc0\xe0\xff\xff"),
    "main": (570, 416, 0, 0, 570, b"\0\0\0\xff"),
    "menu": (0, 0, 14, 28, 16, b"\x96\x96\x96\xff"),  # its place is the main window's
    "about": (188, 378, 58, 322, 67, b"\xc0\xe0\xff\xff"),
    "farewell": (312, 212, 2, 2, 308, b"\xd6\xd6\xd6\xff"),
    "red-wins": (309, 294, 16, 68, 278, b"\0\0\xff\xff"),
    "blue-wins": (309, 294, 16, 68, 278, b"\xff\0\0\xff"),
    "message": (0, 0, 0, 0, 150, b"\xf0\xf0\xf0\xff"),
    "grown": (352, 242, 2, 2, 348, b"\xd6\xd6\xd6\xff"),  # the same
}
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
        names = dict.fromkeys(names, str(self.home))
        self.environment = names | {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8"}
        server = "Xvfb -displayfd 1 -ac -nocursor -noreset -screen 0 1920x1400x24 -fbdir".split()
        number = self.start(*server, self.home, stdout=PIPE).stdout.readline()
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
        process = self.enter_context(Popen(["setpriv", "--pdeathsig", "TERM", *words], **more))
        self.callback(process.terminate)
        return process

    def hand(self, *words, tool="xdotool"):
        command = [tool, *map(str, words)]
        return run(command, env=self.environment, capture_output=True, text=True).stdout

    def move(self, x, y):
        # The first movement may only enter a window, or belong to the button that it leaves.
        self.hand("mousemove", x - 1, y, "mousemove", x, y)

    reach = move  # so that a press is sure to count there

    def has_keyboard(self, width, height):
        return f"{width}x{height}\n" in self.hand("getwindowfocus", "getwindowgeometry")

    def has_sound(self, process):
        maps = pathlib.Path(f"/proc/{process.pid}/maps")
        wait("the sound part", lambda: b"libbrusbo_sound.so" in maps.read_bytes())

    def look(self, x, y, width=1, height=1):
        starts = range(self.first + 4 * x + y * self.stride, len(self.screen), self.stride)
        return [self.screen[at : at + 4 * width] for at in starts[:height]]


class Game:
    def __init__(self, desktop, command=(PROGRAM,), scale=1, folder=DATA, **more):
        self.desktop, self.hand, self.scale = desktop, desktop.hand, scale
        desktop.environment["QT_SCALE_FACTOR"] = str(scale)
        self.process = desktop.start(*command, *NOTHING, cwd=folder, **more)

    def does(self, words):
        """One thing after the other, each a method and what it is given: `click:Klar:1`."""
        for word in words.split():
            deed, *given = word.split(":")
            getattr(self, deed)(*given)

    def sees(self, window):
        """Left and top of the window, if it is shown and painted."""
        x, y, width, colour = WINDOWS[window][2:]
        at = self.desktop.screen.find(colour * width * self.scale, self.desktop.first)
        top, left = divmod((at - self.desktop.first) // 4, self.desktop.stride // 4)
        return at >= 0 and (left - x * self.scale, top - y * self.scale)

    def find(self, window):
        return wait(f"the {window} window", lambda: self.sees(window))

    def closes(self, window):
        wait(f"the {window} window to go", lambda: not self.sees(window))

    def has_keyboard(self, window):
        wait(f"{window}'s keyboard", lambda: self.desktop.has_keyboard(*self.place(window)[2:]))

    def manager(self, option, window=":ACTIVE:"):
        return self.hand(option, window, tool="wmctrl")

    def place(self, name):
        window, *area = PLACES.get(name) or (name, 0, 0, *WINDOWS[name][:2])
        left, top = self.find(window)
        x, y, width, height = (length * self.scale for length in area)
        return left + x, top + y, width, height

    def middle(self, name):
        x, y, width, height = self.place(name)
        return x + width // 2, y + height // 2

    def reaches(self, name):
        self.desktop.reach(*self.middle(name))

    def look(self, name):
        return self.desktop.look(*self.place(name))

    def notes(self, name):
        self.noted = self.place(name), self.look(name)

    def changes(self, name):
        wait(f"another look of {name}", lambda: self.look(name) != self.noted[1])

    def returns(self, name):
        wait(f"the same {name}", lambda: (self.place(name), self.look(name)) == self.noted)

    def click(self, name, button=1):
        self.reaches(name)
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

    def opens_menu(self):
        self.does("lights:mnuArkiv hand:click:1")
        # A compositor may be one pixel off.
        wait("the menu there", lambda: math.dist(self.find("menu"), self.find("main")) < 2)

    def catches_up(self):
        """All input before has been handled when a button has lit up and gone out."""
        self.does("lights:mnuOm reaches:labMeddelande goes_out:mnuOm")

    def drags(self, name, x, y, button=1, result=None):
        left, top = self.middle(name)
        self.does(f"reaches:{name} hand:mousedown:{button}")
        end, move = (left + int(x), top + int(y)), self.desktop.move
        follows = lambda: self.sees(result) if result else self.middle(name) == end
        wait(f"{name} to follow the mouse", lambda: [move(*end)] and follows())
        self.hand("mouseup", button)

    def begins(self):
        # A window that is given the keyboard lets go of a button that is held down.
        self.does("has_keyboard:start click:Starta closes:start")
        # The window's first row may be on the screen before its last.
        wait("all of it", lambda: self.look("main")[0] == self.look("main")[-1])

    def ends(self):
        assert self.process.wait(30) == 0, f"ended with {self.process.returncode}"

    def plays(self):
        self.does("begins throws drags:Namnlist:-71:53 catches_up")
        self.desktop.has_sound(self.process)
        self.does(
            "notes:labMeddelande opens_menu click:mnuNytt_snabbt changes:labMeddelande "
            "goes_out:mnuArkiv lights:mnuOm hand:click:1 click:Klar closes:about "
            "lights:butAvsluta hand:click:1 "
            f"drags:corner:{40 * self.scale}:{30 * self.scale}:1:grown click:Stäng ends"
        )


class Everywhere:
    """What a class of tests with a method that starts the game in any way has in common."""

    def test_plays(self):
        for scale in (1, 2):
            self.start("openbox", scale=scale).plays()

    def test_the_mouse(self):
        self.start("openbox").does(
            "begins throws drags:Namnlist:61:-41:1 catches_up drags:Namnlist:61:-41:2 catches_up "
            "drags:Namnlist:61:-41:3 catches_up lights:mnuArkiv lights:mnuOm goes_out:mnuArkiv "
            "hand:mousemove:3:3 goes_out:mnuOm notes:labMeddelande "
            "opens_menu click:mnuNytt_snabbt:2 hand:key:Escape closes:menu goes_out:mnuArkiv "
            "opens_menu click:mnuNytt_snabbt:3 hand:key:Escape closes:menu goes_out:mnuArkiv "
            "catches_up returns:labMeddelande"
        )

    def test_keys_alone(self):
        # The second Return presses butNästa, or the nest exit that is offered. Key 68 is F2; for
        # its name xdotool presses Alt, too, where the keyboard's data speaks of both.
        for manager in ((), ("openbox",)):
            self.start(*manager).does(
                "has_keyboard:start hand:key:Return closes:start has_keyboard:main "
                "notes:labMeddelande hand:key:space changes:labMeddelande notes:Picture1 "
                "hand:key:Shift+Tab:Tab:Return changes:Picture1 hand:key:68 has_keyboard:start "
                "hand:key:Return closes:start"
            )

    def test_tells_of_a_bad_positions_file_before_it_shows_a_window(self):
        folder = self.enterContext(tempfile.TemporaryDirectory())
        pathlib.Path(folder, "brs.dat").write_bytes(b"\xff" * 128)
        game = self.start(folder=folder)
        game.find("message")
        self.assertFalse(game.sees("start"))
        game.hand("key", "Return")
        self.assertGreater(game.process.wait(30), 0)
