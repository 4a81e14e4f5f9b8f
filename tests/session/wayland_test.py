import subprocess
import unittest

from session import GREY, SOURCE, WINDOWS, Desktop, Game, wait


def panel(row):
    """A row of the side panel, as far as all windows with that picture show it."""
    command = f"convert side-panel.gif -crop 188x1+0+{row} -depth 8 BGRA:-".split()
    return subprocess.run(command, cwd=SOURCE / "assets/pictures", capture_output=True).stdout


class Wayland(Desktop):
    """A compositor whose screen is the X server's; where windows are is seen on it."""

    rows = {
        "start": (0, 30, panel(30)),
        "main": (2, 36 + 318, panel(318)),
        "about": (0, 30, panel(30)),
        "farewell": (4, 4, GREY * 304),
    }

    def __init__(self):
        super().__init__()
        options = subprocess.run(["weston", "--help"], capture_output=True, text=True).stdout
        renderer = "--renderer=pixman" if "--renderer=" in options else "--use-pixman"
        sizes = ("--width=1000", "--height=800", "--socket=wayland", "--idle-time=0")
        self.start("weston", "--backend=x11-backend.so", renderer, "--no-config", *sizes)
        # Its panel comes last.
        wait("the compositor", lambda: any(self.look(500, 10)[0][:3]))

    def hand(self, *words, **more):
        if words[3:4] in (("click",), ("mousedown",)):
            # A press counts where the arrow is; that may come late, or for a further movement only.
            x, y, *words = words[1:]
            arrow, move = self.look(x, y, 4, 8), super().hand
            words, path = words, ("mousemove", x - 1, y, "mousemove", x, y)
            wait("the arrow", lambda: [move(*path)] and self.look(x, y, 4, 8) != arrow)
        return super().hand(*words, **more)

    def find(self, name, _):
        x, y, pixels = self.rows[name]
        *_, left, top, colour = WINDOWS[name]
        at = self.screen.find(pixels)
        while at >= 0:
            corner = (at - self.first) % self.stride // 4 - x, (at - self.first) // self.stride - y
            if self.look(corner[0] + left, corner[1] + top) == [colour]:
                return *corner, None
            at = self.screen.find(pixels, at + 4)
        return None


class WaylandTest(unittest.TestCase):
    def test_plays(self):
        with Wayland() as desktop:
            Game(desktop, environment={"WAYLAND_DISPLAY": "wayland", "DISPLAY": ""}).plays()
