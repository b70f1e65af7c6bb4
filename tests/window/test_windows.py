"""The windows behind the menu, and what a start may find."""

import unittest

import inifile
from driver import LOAD_TITLE, START_TITLE, WindowTest
from inifile import COMPUTER, NAMES, OFF, ON, PERSON, Settings, game_at

POSITIONS = {1: [76, 76, 20, 40], 2: [84, 0, 84, 25], 3: [92, 92, 0, 60], 4: [100, 0, 100, 57]}
WINDOWS = {"help": ("F1", "Ayuda de la aplicación"), "settings": ("F3", "Personalizar la aplicación"),
           "history": ("F4", "Histórico de partidas")}
PERSON_IS_YELLOW = (PERSON, COMPUTER, COMPUTER, COMPUTER)

# Middles of the selectors, in pixels of the settings window at a scale of one.
STATES = [(43 + 149 * player, 112) for player in range(4)]
TYPES = [(43 + 149 * player, 232) for player in range(4)]
PAUSE, TUTOR, ORDER, SOUND, INFO = (48, 305), (242, 305), (436, 305), (48, 351), (242, 351)


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

    def test_options_flipped_by_mouse_are_found_again(self):
        first = Settings(pause=ON, tutor=ON)
        flipped = Settings(types=(PERSON,) * 4, active=(ON, ON, ON, OFF), pause=OFF, tutor=OFF, order=1,
                           sound=OFF, button_info=OFF)
        self.program.ini.write_bytes(inifile.to_bytes(first))
        # A colour that takes no part does not show its kind of player.
        for order, kept in (((*TYPES, STATES[3]), flipped), ((STATES[3], *TYPES), first)):
            self.start_again()
            self.display.key("F3")
            window = self.wait_for_message(WINDOWS["settings"][1])
            for x, y in (*order, PAUSE, TUTOR, ORDER, SOUND, INFO):
                self.display.click(window.x + x, window.y + y)
            self.display.key("Escape")
            self.wait_for_board()
            self.wait_until(lambda: self.program.settings() == kept, "%r in the file" % kept)
            self.program.kill()

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

    def test_the_first_start_makes_the_file(self):
        self.start_and_read(LOAD_TITLE)
        settings, game = inifile.from_bytes(self.program.ini.read_bytes())
        self.assertEqual(settings, Settings(pause=ON, tutor=ON, speed=50))
        self.assertEqual(settings.names, NAMES)
        self.assertFalse(game.in_progress)
        self.assertEqual([path.name for path in self.program.folder.glob("*.WRK")], [])


if __name__ == "__main__":
    unittest.main()
