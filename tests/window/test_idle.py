"""Waiting costs no processor time, whatever the program waits for."""

import time
import unittest

from driver import ABANDON_TITLE, WindowTest
from inifile import COMPUTER, ON, PERSON, Settings, game_at

SECONDS = 3
LIMIT = 0.02  # of one core
POSITIONS = {1: [76, 76, 20, 40], 2: [84, 0, 84, 25], 3: [92, 92, 0, 60], 4: [100, 0, 100, 100]}


class Waiting(WindowTest):
    def assert_idle(self, what):
        """Measures once what led there has faded: sounds, glows, the last repaint."""
        time.sleep(1.5)
        before = self.program.processor_seconds()
        time.sleep(SECONDS)
        share = (self.program.processor_seconds() - before) / SECONDS
        print("%-32s %.2f %% of a core" % (what, share * 100), flush=True)
        self.assertLess(share, LIMIT, what)

    def test_every_kind_of_waiting(self):
        self.start(Settings(pause=ON))
        self.assert_idle("before a game")
        self.program.kill()
        types = (PERSON, COMPUTER, COMPUTER, COMPUTER)
        self.start(Settings(types=types, pause=ON), game_at(POSITIONS, turn=1))
        self.assert_idle("awaiting a throw")
        self.click_board(button=3)
        self.assert_idle("in manual mode")
        self.click_board(button=3)
        self.click_recorder("on/off")
        self.assert_idle("with the recorder on")
        self.click_recorder("on/off")
        self.click_board()
        self.assert_idle("awaiting a move")
        self.point_at(self.layout.square(20))
        self.assert_idle("pointing at a piece")
        self.display.key("F2")
        self.wait_for_message(ABANDON_TITLE)
        self.assert_idle("behind a question")
        self.answer(ABANDON_TITLE, "no")
        self.display.key("Escape")
        self.assert_idle("hidden")


if __name__ == "__main__":
    unittest.main()
