import itertools
import pathlib
import tempfile
import unittest

from session import BUTTONS, Desktop, Game, wait


class X11(unittest.TestCase):
    def start(self, *arguments, manager=("openbox",), **more):
        desktop = Desktop(*manager)
        self.addCleanup(desktop.close)
        return Game(desktop, *arguments, **more)

    def request_close(self, game, name):
        game.hand("-i", "-c", game.find(name)[2], tool="wmctrl")

    def type(self, game, name, key):
        number = str(game.find(name)[2])
        wait("the focus", lambda: game.hand("getwindowfocus").strip() == number)
        game.hand("key", key)

    def test_plays(self):
        for scale in (1, 2):
            with self.subTest(scale=scale):
                self.start(scale=scale).plays()

    def test_only_the_bare_title_bar_moves_the_window(self):
        game = self.start().begins()
        for button in (1, 2, 3):
            game.drags_window((61, -41), button)
        place = game.find("main")
        for name in ("Label1", "bare board", "mnuArkiv"):
            x, y = game.middle(name)
            if name in BUTTONS:
                game.lights(name)
            game.hand("mousemove", x, y, "mousedown", 1, "mousemove", x + 9, y + 90, "mouseup", 1)
            game.catches_up()
            self.assertEqual(game.find("main"), place, name)

    def test_picture_buttons_light_up_once_and_hand_over(self):
        game = self.start().begins()
        for button in BUTTONS:
            game.lights(button)
            # Further sounds would come before the next button's.
            game.hand("mousemove_relative", "--", -2, -2, "mousemove", 3, 3)
            game.goes_out(button)
        game.lights(BUTTONS[0])
        for last, button in itertools.pairwise([*BUTTONS, BUTTONS[0]]):
            # The first movement still belongs to the button that is left.
            game.point(button)
            game.goes_out(last)
            self.assertFalse(game.is_lit(button))
            game.hand("mousemove_relative", 1, 0)
            game.hears(2)

    def test_only_the_left_button_chooses_from_the_menu(self):
        game = self.start().begins()
        game.throws()
        message = game.look("message")
        for button in (2, 3):
            game.opens_menu()
            game.point("Nytt spel (snabbt)")
            game.hand("click", button, "key", "Escape")
            game.hears(1)
            game.goes_out("mnuArkiv")
            game.catches_up()
            self.assertEqual(game.look("message") == message, True, f"button {button} chooses")

    def test_F2_asks_for_a_new_game_and_closing_its_window_ends_the_program(self):
        game = self.start().begins()
        self.type(game, "main", "F2")
        self.type(game, "start", "Escape")
        game.begins().catches_up()
        self.type(game, "main", "F2")
        self.request_close(game, "start")
        game.ends()

    def test_minimises_and_comes_back_three_times(self):
        game = self.start().begins()
        game.hand("mousemove", 3, 3)
        before, place = game.look("all"), game.find("main")
        for _ in range(3):
            game.click("butMini")
            game.closes("main")
            game.hand("mousemove", 3, 3, "windowactivate", place[2])
            wait("the window as it was", lambda: game.look("all") == before)
            self.assertEqual(game.find("main"), place)
        game.click("mnuOm")
        self.request_close(game, "about")
        game.closes("about")
        game.goes_out("mnuOm")

    def test_the_farewell_window_stays_until_its_button_is_pressed(self):
        game = self.start().begins()
        self.request_close(game, "main")
        game.hears(1)
        self.type(game, "farewell", "Escape")
        self.request_close(game, "farewell")
        game.catches_up()
        game.click("Stäng")
        game.ends()

    def test_a_start_window_that_was_never_seen_ends_the_program_too(self):
        rules = pathlib.Path("/etc/xdg/openbox/rc.xml").read_text(encoding="utf-8")
        with tempfile.NamedTemporaryFile("w", encoding="utf-8") as file:
            other = '<applications><application class="brusbo"><desktop>2</desktop></application>'
            file.write(rules.replace("<applications>", other))
            file.flush()
            game = self.start(manager=("openbox", "--config-file", file.name))
        window = wait("the window", lambda: game.hand("-l", tool="wmctrl")).split()[0]
        game.hand("-i", "-c", window, tool="wmctrl")
        game.ends()

    def test_walks_and_has_the_keyboard_without_a_window_manager(self):
        game = self.start(manager=()).begins()
        game.throws()
        board = game.look("board")
        game.click("butEn_pjäs")  # a piece walks, or the next player has the turn
        game.changes("board", board)
        self.type(game, "main", "F2")
        game.find("start")

    def test_tells_of_a_bad_positions_file_before_it_shows_a_window(self):
        folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        (folder / "brs.dat").write_bytes(b"\xff" * 128)
        game = self.start(manager=(), folder=folder)
        shown = set()

        def has_told():
            # Below the middle of the screen, where only the start window would be seen.
            shown.update(game.desktop.look(934, 810))
            return any(game.desktop.look(960, 700)[0]) and not game.desktop.find("start", 1)

        wait("the message", has_told)
        self.assertEqual(shown, {bytes(4)})
        game.hand("key", "Return")
        self.assertGreater(game.process.wait(30), 0)

    def test_the_command_line_has_no_effect(self):
        words = "-platform offscreen -style x -stylesheet x -reverse -geometry 9x9+9+9"
        games = self.start(), self.start(*words.split())
        self.assertEqual(*[game.find("start") for game in games])
        wait("the same look", lambda: games[0].look("start") == games[1].look("start"))
