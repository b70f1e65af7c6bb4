"""The windows over the board: what is chosen there holds, and is found again after a restart."""

import unittest

from driver import START_TITLE, WindowTest
from inifile import OFF, ON, PERSON, Settings

SETTINGS_TITLE = "Personalizar la aplicación"
HISTORY_TITLE = "Histórico de partidas"
REFUSAL_TITLE = "Selección improcedente"
NOBODY_TITLE = "Datos incorrectos"

# Middles of the selectors, in pixels of the settings window at a scale of one.
STATES = [(43 + 149 * player, 112) for player in range(4)]
TYPES = [(43 + 149 * player, 232) for player in range(4)]
PAUSE, TUTOR, ORDER, SOUND, INFO = (48, 305), (242, 305), (436, 305), (48, 351), (242, 351)


class Windows(WindowTest):
    def open(self, key, title):
        self.display.key(key)
        return self.wait_for_message(title)

    def flip(self, window, *selectors):
        for x, y in selectors:
            self.display.click(window.x + x, window.y + y)

    def leave(self, window):
        self.display.key("Escape")
        self.wait_until_gone(window)
        self.wait_for_board()

    def assert_kept(self, expected):
        self.wait_until(lambda: self.program.settings() == expected, "the settings %r in the file" % expected)

    def test_options_flipped_by_mouse_are_found_again(self):
        self.start(Settings(pause=ON, tutor=ON))
        self.flip(self.open("F3", SETTINGS_TITLE), *TYPES, STATES[3], PAUSE, TUTOR, ORDER, SOUND, INFO)
        self.display.key("Escape")
        flipped = Settings(types=(PERSON,) * 4, active=(ON, ON, ON, OFF), pause=OFF, tutor=OFF, order=1,
                           sound=OFF, button_info=OFF)
        self.wait_for_board()
        self.assert_kept(flipped)
        self.program.kill()
        self.start_again()
        window = self.open("F3", SETTINGS_TITLE)
        self.flip(window, STATES[3], *TYPES, PAUSE, TUTOR, ORDER, SOUND, INFO)
        self.leave(window)
        self.assert_kept(Settings(pause=ON, tutor=ON))

    def test_options_flipped_by_keys(self):
        self.start(Settings())
        window = self.open("F3", SETTINGS_TITLE)
        self.display.key("space")  # the first player's state, then the second's
        self.display.key("Tab")
        self.display.key("Return")
        self.leave(window)
        self.assert_kept(Settings(active=(OFF, OFF, ON, ON)))

    def test_somebody_has_to_play(self):
        self.start(Settings())
        window = self.open("F3", SETTINGS_TITLE)
        self.flip(window, *STATES)
        self.display.key("Escape")
        self.answer(NOBODY_TITLE)
        self.flip(window, STATES[1])
        self.leave(window)
        self.assert_kept(Settings(active=(OFF, ON, OFF, OFF)))

    def test_a_game_holds_its_order_and_its_players(self):
        self.start(Settings(pause=ON))
        self.display.key("F2")
        self.answer(START_TITLE, key="space")
        self.play_moves(4)
        window = self.open("F3", SETTINGS_TITLE)
        for selector in (ORDER, STATES[2]):
            self.flip(window, selector)
            self.answer(REFUSAL_TITLE)
        self.flip(window, SOUND)
        self.leave(window)
        self.assert_kept(Settings(pause=ON, sound=OFF))

    def test_the_history_opens_without_a_file(self):
        self.start(Settings())
        self.leave(self.open("F4", HISTORY_TITLE))
        self.leave(self.open("F1", "Ayuda de la aplicación"))


if __name__ == "__main__":
    unittest.main()
