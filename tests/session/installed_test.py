import os
import subprocess
import unittest

from session import Desktop, Game


class Installed(unittest.TestCase):
    def test_a_player_who_may_not_write_the_data_plays_and_nothing_is_written(self):
        desktop = self.enterContext(Desktop())
        tree, own = desktop.home / "träd", desktop.home / "own"
        command = ["cmake", "--install", os.environ["BRUSBO_BUILD"], "--prefix", "/opt/brusbo"]
        environment = os.environ | {"DESTDIR": str(tree)}
        subprocess.run(command, env=environment, check=True, stdout=subprocess.DEVNULL)
        subprocess.run(["chmod", "-R", "a+rX,a-w", tree], check=True)
        own.mkdir(mode=0o700)
        player = []
        if os.geteuid() == 0:
            player = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]
            desktop.home.chmod(0o711)
            os.chown(own, 65534, 65534)
        home = dict.fromkeys(("HOME", "TMPDIR", "XDG_RUNTIME_DIR"), str(own))

        def written():
            # What the sound library keeps for itself is its own affair.
            return [file.name for file in own.iterdir() if file.name not in (".config", "pulse")]

        game = Game(
            desktop,
            folder=tree / "opt/brusbo/share/brusbo",
            command=[*player, tree / "opt/brusbo/bin/brusbo"],
            environment=home,
        )
        game.begins().throws()
        self.assertEqual(written(), [])
        game.process.terminate()
        game.process.wait()
        program = tree / "opt/brusbo/libexec/brusbo/brusbo"
        Game(desktop, folder=own, command=[*player, program], environment=home).find("start")
        self.assertEqual(written(), ["brs.dat"])
        self.assertEqual((own / "brs.dat").read_bytes(), b"")
