import os
import time
import unittest
from subprocess import run

from session import PLACES, SOURCE, Desktop, Everywhere, Game, wait

(SETUP,) = SOURCE.glob("build/windows/brusbo-*-setup.exe")
PROGRAM = SOURCE / "build/windows/Brusbo/brusbo.exe"
APPROVED = SOURCE / "tests/widgets/pictures/lit-1.png"
WINNERS = "red-wins", "blue-wins"


class Wine(Desktop):
    """Windows' desktop on the X server, by a Wine of its own."""

    def __init__(self):
        super().__init__()
        self.environment |= {"WINEPREFIX": str(self.home / "wine"), "WINEDEBUG": "-all"}
        # A desktop, since beside others' windows Wine is mistaken about the places of its own.
        for key in (r"Explorer /v Desktop /d game", r"Explorer\Desktops /v game /d 1920x1400"):
            self.hand("reg", "add", *(r"HKCU\Software\Wine" + "\\" + key).split(), "/f", tool="wine")
        self.callback(self.hand, "-k", tool="wineserver")
        self.heard, pipe = self.home / "heard", self.home / "pipe"
        os.mkfifo(pipe)
        self.start("cp", pipe, self.heard)
        self.environment["PULSE_SERVER"] = f"unix:{self.home}/pulse/native"
        # Without the clock it would fill the disk as fast as that takes it.
        sink = f"module-pipe-sink file={pipe} rate=8000 channels=1 use_system_clock_for_timing=yes"
        self.start(*"pulseaudio -n -L module-native-protocol-unix -L".split(), sink)

    def has_keyboard(self, *_):
        return True  # X knows of one window only

    def has_sound(self, _):
        wait("a sound", lambda: any(self.heard.read_bytes()))


class Windows(Everywhere, unittest.TestCase):
    def start(self, *_, scale=1, command=("wine", PROGRAM), **more):
        desktop = self.enterContext(Wine())
        # The only way for a variable of that beginning.
        desktop.environment["WINEQT_SCALE_FACTOR"] = str(scale)
        return Game(desktop, command, scale=scale, **more)

    def test_looks_as_approved_and_comes_back(self):
        game = self.start()
        game.does("begins lights:mnuArkiv")
        for name in "Picture1", "mnuArkiv", "mnuOm", "butMini", "butAvsluta":
            crop = "{3}x{4}+{1}+{2}".format(*PLACES[name])
            command = ["convert", APPROVED, "-crop", crop, "bgra:-"]
            approved = run(command, capture_output=True, check=True).stdout
            self.assertEqual(b"".join(game.look(name)), approved, name)
        game.does("hand:mousemove:3:3 goes_out:mnuArkiv notes:main click:butMini closes:main")
        icon = "mousemove 60 1390 click --repeat 2 1 mousemove 3 3".split()
        wait("it to come back", lambda: [game.hand(*icon)] and game.sees("main"))
        game.does("returns:main")

    def test_a_whole_game(self):
        game = self.start()
        game.does("begins hand:mousemove:3:3")
        while not (winner := [each for each in WINNERS if game.sees(each)]):
            game.does("notes:main hand:key:space")
            time.sleep(0.5)
            # Where it changes nothing there is a choice, of which Tab marks the first.
            if game.look("main") == game.noted[1]:
                game.hand("key", "Tab")
        game.does(f"hand:key:Tab:Tab:space closes:{winner[0]} throws hand:key:68 find:start begins")

    def test_the_setup_program(self):
        link = "AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Brusbo.lnk"
        desktop = self.enterContext(Wine())
        desktop.hand(SETUP, "/S", tool="wine")
        (user,) = desktop.home.glob("wine/drive_c/users/*/AppData/Local/Programs")
        folder = user / "Brusbo"
        (folder / "brs.dat").chmod(0o444)
        # The entry of the menu begins where the data is.
        game = Game(desktop, ("wine", "start", "/wait", "/unix", user.parents[2] / link))
        game.plays()
        desktop.hand(folder / "uninstall.exe", "/S", tool="wine")
        wait("the folder to go", lambda: not folder.exists())
        self.assertFalse((user.parents[2] / link).exists())
        key = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Brusbo"
        self.assertNotIn("Brusbo", desktop.hand("reg", "query", key, tool="wine"))
