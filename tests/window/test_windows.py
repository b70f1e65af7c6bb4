"""The windows behind the menu, and what a start may find."""

import unittest

import board
import inifile
from driver import CONTINUE_TITLE, LOAD_TITLE, START_TITLE, WindowTest
from inifile import COMPUTER, NAMES, ON, PERSON, Settings, game_at

POSITIONS = {1: [76, 76, 20, 40], 2: [84, 0, 84, 25], 3: [92, 92, 0, 60], 4: [100, 0, 100, 57]}
WINDOWS = {"help": ("F1", "Ayuda de la aplicación"), "settings": ("F3", "Personalizar la aplicación"),
           "history": ("F4", "Histórico de partidas")}
PERSON_IS_YELLOW = (PERSON, COMPUTER, COMPUTER, COMPUTER)


class MenuWindows(WindowTest):
    def setUp(self):
        super().setUp()
        self.before = game_at(POSITIONS, turn=1)

    def test_each_opens_waits_and_goes(self):
        self.start(Settings(types=PERSON_IS_YELLOW, pause=ON), self.before)
        for button, (key, title) in WINDOWS.items():
            ways = ((lambda: self.click_button(button), "Escape"), (lambda: self.display.key(key), "alt+F4"))
            for open_it, leave in ways:
                open_it()
                window = self.wait_for_message(title)
                self.click_board()
                self.holds_for(0.3, lambda: self.title() == title, "the game got a click")
                self.display.key(leave)
                self.wait_until_gone(window)
                self.wait_for_board()
                self.assertEqual(self.game().moves, self.before.moves, "the game went on behind " + title)
        self.play_moves(1)

    def test_a_colour_turned_over_to_the_computer_moves(self):
        self.start(Settings(types=PERSON_IS_YELLOW, pause=ON), self.before)
        self.click_board()
        self.holds_for(0.5, lambda: self.game().moves == self.before.moves, "nobody waited for the person")
        self.display.key("F3")
        window = self.wait_for_message(WINDOWS["settings"][1])
        # From yellow's state over its name and its level to its kind of player.
        self.display.key("Tab", "Tab", "Tab", "space")
        self.assertEqual(self.game().moves, self.before.moves, "moved before the window was left")
        self.display.key("Escape")
        self.wait_until_gone(window)
        game = self.wait_for_moves(self.before.moves + 1)
        self.assertEqual(game.records[self.before.moves].mover, 1)
        self.assertEqual(self.program.settings().types, (COMPUTER,) * 4)

    def test_a_refused_start_opens_the_settings(self):
        self.start(Settings())
        self.display.key("F2")
        self.answer(START_TITLE, "no")
        self.wait_for_message(WINDOWS["settings"][1])
        self.display.key("Escape")
        self.wait_for_board()


class Starts(WindowTest):
    def start_and_read(self, title):
        self.program.start()
        self.skip_title()
        self.answer(title)
        self.wait_for_board()

    def test_the_title_ends_by_itself(self):
        self.program.ini.write_bytes(inifile.to_bytes(Settings()))
        self.program.start()
        window = self.wait_until(lambda: self.display.active_window(), "the title")
        self.wait_until(lambda: self.display.is_dialog(self.display.active_window() or window), "the title")
        self.wait_for_board()

    def test_the_first_start_makes_the_file(self):
        self.start_and_read(LOAD_TITLE)
        settings, game = inifile.from_bytes(self.program.ini.read_bytes())
        self.assertEqual(settings, Settings(pause=ON, tutor=ON, speed=50))
        self.assertEqual(settings.names, NAMES)
        self.assertFalse(game.in_progress)
        self.assertEqual([path.name for path in self.program.folder.glob("*.WRK")], [])

    def test_a_damaged_file_is_told_and_kept(self):
        damaged = inifile.to_bytes(Settings(pause=ON), game_at(POSITIONS, turn=1)).replace(b"76", b"75", 1)
        self.program.ini.write_bytes(damaged)
        self.start_and_read(LOAD_TITLE)
        kept = [path.read_bytes() for path in self.program.folder.glob("ZORVA32*") if path.suffix not in (".HLP", "")]
        self.assertIn(damaged, kept)
        self.assertFalse(self.game().in_progress)

    def test_a_folder_that_cannot_be_written_is_left_alone(self):
        original = inifile.to_bytes(Settings(pause=ON), game_at(POSITIONS, turn=1))
        self.program.ini.write_bytes(original)
        (self.program.folder / "CSCD.WRK").mkdir()  # the probe cannot be made, whoever runs the test
        there = self.program.ini
        self.program.data = self.program.fallback
        self.start_again(continues=True)
        self.play_moves(2)
        self.assertEqual(there.read_bytes(), original)
        self.program.kill()
        game = self.game()
        self.start_again(continues=True)
        self.wait_until(lambda: not board.difference(self.display.picture(), self.layout, game.positions),
                        "the position that was left")


if __name__ == "__main__":
    unittest.main()
