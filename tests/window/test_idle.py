"""Waiting costs no processor time, whatever the program waits for."""

import time

from driver import ABANDON_TITLE, WindowTest, processor_seconds
from inifile import COMPUTER, ON, PERSON, Settings, game_at

SECONDS = 2
LIMIT = 0.02  # of one core
POSITIONS = {1: [76, 76, 20, 40], 2: [84, 0, 84, 25], 3: [92, 92, 0, 60], 4: [100, 0, 100, 100]}


class Waiting(WindowTest):
    def assert_idle(self, what):
        """Measures once the sounds and lights of the step before have ended."""
        time.sleep(1)
        self.settle()
        before = processor_seconds(self.program.process)
        time.sleep(SECONDS)
        self.settle()
        share = (processor_seconds(self.program.process) - before) / SECONDS
        print("%-32s %.2f %% of a core" % (what, share * 100), flush=True)
        self.assertLess(share, LIMIT, what)

    def test_every_kind_of_waiting(self):
        self.start(Settings(pause=ON))
        self.assert_idle("before a game")
        self.program.kill()
        self.start(Settings(types=(PERSON, COMPUTER, COMPUTER, COMPUTER), pause=ON), game_at(POSITIONS, turn=1))
        steps = (("awaiting a throw", lambda: None),
                 ("in manual mode", lambda: self.click_board(button=3)),
                 ("with the recorder on", lambda: (self.click_board(button=3), self.click_recorder("on/off"))),
                 ("awaiting a move", lambda: (self.click_recorder("on/off"), self.click_board())),
                 ("pointing at a piece", lambda: self.point_at(self.layout.square(20))),
                 ("behind a question", lambda: (self.display.key("F2"), self.wait_for_message(ABANDON_TITLE))),
                 ("over the chances", lambda: (self.answer(ABANDON_TITLE, "no"), self.display.key("F7"))),
                 ("hidden", lambda: (self.display.key("Escape"), self.wait_for_board(), self.display.key("Escape"))))
        for what, step in steps:
            step()
            self.assert_idle(what)
