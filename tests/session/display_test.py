import os
import pathlib
import subprocess
import tempfile
import unittest

import pyatspi

from session import PROGRAM, Desktop, Game, wait


class X11(unittest.TestCase):
    def start(self, *manager, **more):
        return Game(self.enterContext(Desktop(*manager)), **more)

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

    def test_a_window_manager(self):
        self.start("openbox").does(
            "begins hand:mousemove:3:3 has_keyboard:main notes:main "
            "click:butMini closes:main manager:-a:Brusbo hand:mousemove:3:3 returns:main "
            "lights:mnuOm hand:click:1 has_keyboard:about manager:-c closes:about goes_out:mnuOm "
            "has_keyboard:main manager:-c has_keyboard:farewell "
            "hand:key:Escape catches_up has_keyboard:farewell manager:-c click:Stäng ends"
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

    def test_a_start_window_that_was_never_seen_ends_the_program_too(self):
        file = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()), "rc.xml")
        rule = '<application class="brusbo"><desktop>2</desktop></application>'
        file.write_text(f"<openbox_config><applications>{rule}</applications></openbox_config>")
        game = self.start("openbox", "--config-file", file)
        wait("it on the second desktop", lambda: " 1 " in game.manager("-l"))
        game.does("manager:-c:Brusbo ends")

    def test_tells_of_a_bad_positions_file_before_it_shows_a_window(self):
        folder = self.enterContext(tempfile.TemporaryDirectory())
        pathlib.Path(folder, "brs.dat").write_bytes(b"\xff" * 128)
        game = self.start(folder=folder)
        wait("the message", lambda: any(game.desktop.look(960, 700)[0]))
        self.assertFalse(game.sees("start"))
        game.hand("key", "Return")
        self.assertGreater(game.process.wait(30), 0)


class Wayland(Desktop):
    """A compositor whose screen is the X server's."""

    def has_keyboard(self, *_):
        return True  # the compositor alone knows; its arrow is waited for instead

    def reach(self, x, y):
        # The arrow may come late, or for a further movement only.
        arrow = self.look(x, y, 4, 8)
        wait("the arrow", lambda: [self.move(x, y)] and self.look(x, y, 4, 8) != arrow)


class Elsewhere(unittest.TestCase):
    def test_plays_on_Wayland(self):
        desktop = self.enterContext(Wayland())
        options = subprocess.run(["weston", "--help"], capture_output=True, text=True).stdout
        renderer = "--renderer=pixman" if "--renderer=" in options else "--use-pixman"
        options = "--no-config --width=1000 --height=800 --socket=wayland --idle-time=0".split()
        desktop.start("weston", "--backend=x11-backend.so", renderer, *options)
        # Its panel comes last.
        wait("the compositor", lambda: any(desktop.look(500, 10)[0][:3]))
        Game(desktop, ("env", "DISPLAY=", "WAYLAND_DISPLAY=wayland", PROGRAM)).plays()

    def test_plays_where_it_is_installed_and_may_not_write(self):
        desktop = self.enterContext(Desktop())
        tree = desktop.home / "träd"
        command = ["cmake", "--install", os.environ["BRUSBO_BUILD"], "--prefix", tree]
        subprocess.run(command, check=True)
        subprocess.run(["chmod", "-R", "a+rX,a-w", tree], check=True)
        command = [tree / "bin/brusbo"]
        if os.geteuid() == 0:
            os.chown(desktop.home, 65534, 65534)
            command = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", *command]
        Game(desktop, command=command, folder=desktop.home).plays()
        # What the sound library keeps for itself is its own affair.
        there = {file.name for file in desktop.home.iterdir()}
        self.assertLessEqual(there, {"Xvfb_screen0", tree.name, ".config", "pulse"})

    def test_a_screen_reader(self):
        bus = "DBUS_SESSION_BUS_ADDRESS"
        desktop = self.enterContext(Desktop())
        desktop.environment |= {bus: os.environ[bus], "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        game, programs = Game(desktop), pyatspi.Registry.getDesktop(0)

        def finds_and_does(action, role, name):
            # Newer ones call a push button a button.
            fits = lambda each: each.name == name and each.getRoleName().endswith(role)
            element = wait(name, lambda: pyatspi.findDescendant(programs, fits)).queryAction()
            self.assertEqual(element.getName(0), action)
            element.doAction(0)

        finds_and_does("Toggle", "radio button", "Tre spelare")
        finds_and_does("Toggle", "check box", "Ljud på/av")
        finds_and_does("Press", "button", "Starta")
        game.notes("labMeddelande")
        finds_and_does("Press", "button", "Tärning, visar 1")
        game.changes("labMeddelande")
