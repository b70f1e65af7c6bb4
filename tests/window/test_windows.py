"""The windows behind the menu, used with a real mouse and keyboard."""

from driver import WindowTest
from inifile import COMPUTER, ON, PERSON, Settings, game_at

POSITIONS = {1: [76, 76, 20, 40], 2: [84, 0, 84, 25], 3: [92, 92, 0, 60], 4: [100, 0, 100, 57]}
WINDOWS = {"help": ("F1", "Ayuda de la aplicación"), "settings": ("F3", "Personalizar la aplicación"),
           "history": ("F4", "Histórico de partidas")}
SETTINGS_TITLE = WINDOWS["settings"][1]
PERSON_IS_YELLOW = (PERSON, COMPUTER, COMPUTER, COMPUTER)


class MenuWindows(WindowTest):
    def setUp(self):
        super().setUp()
        self.before = game_at(POSITIONS, turn=1)
        self.start(Settings(types=PERSON_IS_YELLOW, pause=ON), self.before)

    def test_each_opens_waits_and_goes(self):
        for button, (key, title) in WINDOWS.items():
            for open_it, name, leave in ((self.click_button, button, "Escape"), (self.display.key, key, "alt+F4")):
                open_it(name)
                self.wait_for_message(title)
                self.click_board()
                self.settle()
                self.answer(title, key=leave)
                self.wait_for_board()
                self.assertEqual(self.game().moves, self.before.moves, "the game went on behind " + title)
        self.play_moves(1)

    def test_a_colour_turned_over_to_the_computer_moves(self):
        self.click_board()
        self.settle()
        self.assertEqual(self.game().moves, self.before.moves, "nobody waited for the person")
        self.display.key("F3")
        self.wait_for_message(SETTINGS_TITLE)
        # From yellow's state over its name and its level to its kind of player.
        self.display.key("Tab", "Tab", "Tab", "space")
        self.assertEqual(self.game().moves, self.before.moves, "moved before the window was left")
        self.answer(SETTINGS_TITLE, key="Escape")
        self.wait_for_moves(self.before.moves + 1)
        self.assertEqual(self.program.settings().types, (COMPUTER,) * 4)
