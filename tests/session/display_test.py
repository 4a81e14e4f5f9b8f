import os
import pathlib
import subprocess
import tempfile
import unittest

import pyatspi

from session import Desktop, Game, wait

SIZES = {"start": "188x305", "main": "570x416", "about": "188x378", "farewell": "312x212"}
# What a screen reader finds and does, one after the other: window, role, name, action. Newer ones
# call a push button a button.
READ = (
    ("start", "radio button", "Tre spelare", "Toggle"),
    ("start", "text", "Namn på spelare 2", "SetFocus"),
    ("start", "check box", "Ljud på/av", "Toggle"),
    ("start", "push button", "Starta", "Press"),
    ("main", "push button", "Tärning, visar 1", "Press"),
)


class X11(unittest.TestCase):
    def start(self, *arguments, manager=("openbox",), **more):
        return Game(self.enterContext(Desktop(*manager)), *arguments, **more)

    def focus(self, game, window):
        """The number of the window, once it has its size and the keyboard."""

        def number():
            told = game.hand("getwindowfocus", "getwindowgeometry")
            return SIZES[window] in told and told.split()[1]

        return wait(f"the focus of the {window} window", number)

    def close(self, game, window):
        game.hand("-i", "-c", self.focus(game, window), tool="wmctrl")

    def test_plays(self):
        for scale in (1, 2):
            with self.subTest(scale=scale):
                self.start(scale=scale).plays()

    def test_the_mouse(self):
        game = self.start().begins()
        for button in (1, 2, 3):
            game.drags_window((61, -41), button)
        game.lights("mnuArkiv")
        game.point("mnuOm")
        game.goes_out("mnuArkiv")
        game.lights("mnuOm")
        game.hand("mousemove", 3, 3)
        game.goes_out("mnuOm")
        game.throws()
        message = game.look("message")
        for button in (2, 3):
            game.opens_menu()
            game.point("Nytt spel (snabbt)", "click", button, "key", "Escape")
            game.closes("menu")
            game.goes_out("mnuArkiv")
        game.catches_up()
        self.assertEqual(game.look("message") == message, True, "another button chooses")

    def test_a_window_manager(self):
        game = self.start().begins()
        game.hand("mousemove", 3, 3)
        number = self.focus(game, "main")
        before = game.desktop.look(0, 0, 1920, 1400)
        game.click("butMini")
        game.closes("main")
        game.hand("mousemove", 3, 3, "windowactivate", number)
        wait("the same look", lambda: game.desktop.look(0, 0, 1920, 1400) == before)
        game.click("mnuOm")
        self.close(game, "about")
        game.closes("about")
        game.goes_out("mnuOm")
        self.close(game, "main")
        self.focus(game, "farewell")
        game.hand("key", "Escape")
        self.close(game, "farewell")
        game.click("Stäng")
        game.ends()

    def test_a_start_window_that_was_never_seen_ends_the_program_too(self):
        file = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()), "rc.xml")
        rule = '<application class="brusbo"><desktop>2</desktop></application>'
        file.write_text(f"<openbox_config><applications>{rule}</applications></openbox_config>")
        game = self.start(manager=("openbox", "--config-file", file))
        window, desktop, *_ = wait("it", lambda: game.hand("-l", tool="wmctrl")).split()
        self.assertEqual(desktop, "1", "it is on the screen")
        game.hand("-i", "-c", window, tool="wmctrl")
        game.ends()

    def test_walks_and_has_the_keyboard_without_a_window_manager(self):
        game = self.start(manager=()).begins()
        game.throws()
        board = game.look("board")
        game.click("butEn_pjäs")  # a piece walks, or the next player has the turn
        game.changes("board", board)
        self.focus(game, "main")
        # F2; where it has a combination with Alt of its own, xdotool presses that for the name.
        game.hand("key", 68)
        game.find("start")

    def test_tells_of_a_bad_positions_file_before_it_shows_a_window(self):
        folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        (folder / "brs.dat").write_bytes(b"\xff" * 128)
        game = self.start(manager=(), folder=folder)
        look, seen = game.desktop.look, set()
        # In the middle of the screen, and below it, where only the start window would be.
        wait("the message", lambda: seen.update(look(934, 810)) or any(look(960, 700)[0]))
        self.assertEqual(seen, {bytes(4)})
        game.hand("key", "Return")
        self.assertGreater(game.process.wait(30), 0)

    def test_the_command_line_has_no_effect(self):
        words = "-platform offscreen -style x -stylesheet x -reverse -geometry 9x9+9+9"
        games = self.start(), self.start(*words.split())
        wait("the start window", lambda: all(game.sees("start") for game in games))
        look = [game.desktop.look for game in games]
        wait("the same look", lambda: look[0](0, 0, 1920, 1400) == look[1](0, 0, 1920, 1400))


class Wayland(Desktop):
    """A compositor whose screen is the X server's."""

    def __init__(self):
        super().__init__()
        options = subprocess.run(["weston", "--help"], capture_output=True, text=True).stdout
        renderer = "--renderer=pixman" if "--renderer=" in options else "--use-pixman"
        sizes = ("--width=1000", "--height=800", "--socket=wayland", "--idle-time=0")
        self.start("weston", "--backend=x11-backend.so", renderer, "--no-config", *sizes)
        # Its panel comes last.
        wait("the compositor", lambda: any(self.look(500, 10)[0][:3]))

    def has_keyboard(self, _):
        """The compositor alone knows; its arrow is waited for instead."""
        return True

    def hand(self, *words, **more):
        if words[3:4] in (("click",), ("mousedown",)):
            # A press counts where the arrow is; that may come late, or for a further movement only.
            x, y, *words = words[1:]
            arrow, move = self.look(x, y, 4, 8), super().hand
            words, path = words, ("mousemove", x - 1, y, "mousemove", x, y)
            wait("the arrow", lambda: [move(*path)] and self.look(x, y, 4, 8) != arrow)
        return super().hand(*words, **more)


class Elsewhere(unittest.TestCase):
    def test_plays_on_Wayland(self):
        desktop = self.enterContext(Wayland())
        environment = desktop.environment | {"WAYLAND_DISPLAY": "wayland", "DISPLAY": ""}
        Game(desktop, env=environment).plays()

    def test_plays_where_it_is_installed_and_may_not_write(self):
        desktop = self.enterContext(Desktop())
        command = ["cmake", "--install", os.environ["BRUSBO_BUILD"], "--prefix", "/opt/brusbo"]
        tree = desktop.home / "träd"
        environment = os.environ | {"DESTDIR": str(tree)}
        subprocess.run(command, env=environment, check=True, stdout=subprocess.DEVNULL)
        subprocess.run(["chmod", "-R", "a+rX,a-w", tree], check=True)
        command = [tree / "opt/brusbo/bin/brusbo"]
        if os.geteuid() == 0:
            os.chown(desktop.home, 65534, 65534)
            command = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", *command]
        before = {*desktop.home.iterdir()}
        Game(desktop, command=command, folder=desktop.home).plays()
        # What the sound library keeps for itself is its own affair.
        written = {file.name for file in {*desktop.home.iterdir()} - before}
        self.assertLessEqual(written, {".config", "pulse"})

    def test_a_screen_reader(self):
        desktop = self.enterContext(Desktop())
        desktop.environment["DBUS_SESSION_BUS_ADDRESS"] = os.environ["DBUS_SESSION_BUS_ADDRESS"]
        desktop.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        game = Game(desktop)
        programs = pyatspi.Registry.getDesktop(0)
        program = wait("the program", lambda: [p for p in programs if p.name == "brusbo"])[0]
        for window, role, name, action in READ:
            game.find(window)
            element = pyatspi.findDescendant(
                program, lambda each: each.name == name and each.getRoleName() in role
            ).queryAction()
            self.assertEqual(element.getName(0), action)
            message = window == "main" and game.look("message")
            element.doAction(0)
        game.changes("message", message)
