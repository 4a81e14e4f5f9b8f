import os
import pathlib
import subprocess
import tempfile
import unittest

import pyatspi

from session import BUILD, PROGRAM, Desktop, Everywhere, Game, wait


class X11(Everywhere, unittest.TestCase):
    def start(self, *manager, **more):
        return Game(self.enterContext(Desktop(*manager)), **more)

    def test_a_window_manager(self):
        self.start("openbox").does(
            "begins hand:mousemove:3:3 has_keyboard:main notes:main "
            "click:butMini closes:main manager:-a:Brusbo hand:mousemove:3:3 returns:main "
            "lights:mnuOm hand:click:1 has_keyboard:about manager:-c closes:about goes_out:mnuOm "
            "has_keyboard:main manager:-c has_keyboard:farewell "
            "hand:key:Escape catches_up has_keyboard:farewell manager:-c click:Stäng ends"
        )


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
        command = ["cmake", "--install", BUILD, "--prefix", tree]
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
