import os
import pathlib
import subprocess
import tempfile
import unittest

import pyatspi

from session import Desktop, Game, wait

# What a screen reader finds and does, one after the other: window, role, name, action. Newer ones
# call a push button a button.
READ = (
    ("start", "radio button", "Tre spelare", "Toggle"),
    ("start", "check box", "Ljud på/av", "Toggle"),
    ("start", "push button", "Starta", "Press"),
    ("main", "push button", "Tärning, visar 1", "Press"),
)


class X11(unittest.TestCase):
    def start(self, manager=("openbox",), **more):
        return Game(self.enterContext(Desktop(*manager)), **more)

    def folder(self):
        return pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def test_plays(self):
        for scale in (1, 2):
            with self.subTest(scale=scale):
                self.start(scale=scale).plays()

    def test_the_mouse(self):
        self.start().does(
            "begins throws drags:Namnlist,61,-41,1 catches_up drags:Namnlist,61,-41,2 catches_up "
            "drags:Namnlist,61,-41,3 catches_up lights:mnuArkiv lights:mnuOm goes_out:mnuArkiv "
            "hand:mousemove,3,3 goes_out:mnuOm notes:labMeddelande "
            "opens_menu click:mnuNytt_snabbt,2 hand:key,Escape closes:menu goes_out:mnuArkiv "
            "opens_menu click:mnuNytt_snabbt,3 hand:key,Escape closes:menu goes_out:mnuArkiv "
            "catches_up returns:labMeddelande"
        )

    def test_a_window_manager(self):
        game = self.start()
        game.does("begins hand:mousemove,3,3 has_keyboard:main notes:main")
        game.does("click:butMini closes:main")
        game.hand("-a", "Brusbo", tool="wmctrl")
        game.does(
            "hand:mousemove,3,3 returns:main presses:mnuOm is_told_to_close:about closes:about "
            "goes_out:mnuOm is_told_to_close:main has_keyboard:farewell hand:key,Escape "
            "catches_up is_told_to_close:farewell click:Stäng ends"
        )

    def test_keys_alone(self):
        # The second Return presses butNästa, or the nest exit that is offered.
        self.start().does(
            "has_keyboard:start hand:key,Return closes:start has_keyboard:main find:main "
            "notes:labMeddelande hand:key,space changes:labMeddelande notes:butEn_pjäs "
            "hand:key,Shift+Tab,Tab,Return changes:butEn_pjäs hand:key,68 has_keyboard:start "
            "hand:key,Return closes:start"
        )

    def test_a_start_window_that_was_never_seen_ends_the_program_too(self):
        file = self.folder() / "rc.xml"
        rule = '<application class="brusbo"><desktop>2</desktop></application>'
        file.write_text(f"<openbox_config><applications>{rule}</applications></openbox_config>")
        game = self.start(manager=("openbox", "--config-file", file))
        desktop = wait("it", lambda: game.hand("-l", tool="wmctrl")).split()[1]
        self.assertEqual(desktop, "1", "it is on the screen")
        game.hand("-c", "Brusbo", tool="wmctrl")
        game.ends()

    def test_walks_and_has_the_keyboard_without_a_window_manager(self):
        # A piece walks, or the next player has the turn. Key 68 is F2; for its name xdotool presses
        # Alt, too, where the keyboard's data speaks of both.
        self.start(manager=()).does(
            "begins throws notes:Picture1 click:butEn_pjäs changes:Picture1 "
            "has_keyboard:main hand:key,68 find:start"
        )

    def test_tells_of_a_bad_positions_file_before_it_shows_a_window(self):
        folder = self.folder()
        (folder / "brs.dat").write_bytes(b"\xff" * 128)
        game = self.start(manager=(), folder=folder)
        wait("the message", lambda: any(game.desktop.look(960, 700)[0]))
        self.assertFalse(game.sees("start"))
        game.hand("key", "Return")
        self.assertGreater(game.process.wait(30), 0)


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

    def has_keyboard(self, *_):
        """The compositor alone knows; its arrow is waited for instead."""
        return True

    def reach(self, x, y):
        # The arrow may come late, or for a further movement only.
        arrow = self.look(x, y, 4, 8)
        wait("the arrow", lambda: [self.move(x, y)] and self.look(x, y, 4, 8) != arrow)


class Elsewhere(unittest.TestCase):
    def test_plays_on_Wayland(self):
        desktop = self.enterContext(Wayland())
        Game(desktop, env=desktop.environment | {"WAYLAND_DISPLAY": "wayland", "DISPLAY": ""}).plays()

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
        Game(desktop, command=command, folder=desktop.home).plays()
        # What the sound library keeps for itself is its own affair.
        there = {file.name for file in desktop.home.iterdir()}
        self.assertLessEqual(there, {"Xvfb_screen0", tree.name, ".config", "pulse"})

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
            if window == "main":
                game.notes("labMeddelande")
            element.doAction(0)
        game.changes("labMeddelande")
