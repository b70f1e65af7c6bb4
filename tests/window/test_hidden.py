"""The player works with another program: the game waits with its messages, and comes back when it is wanted."""

import subprocess

import inifile
from driver import CONTINUE_TITLE, DRAW_TITLE, EXIT_TITLE, POSTPONE_TITLE, START_TITLE, WindowTest
from inifile import Settings, game_at

OTHER = "Event Tester"  # the title of the other program's window
POSITIONS = {1: [0, 0, 20, 40], 2: [84, 0, 0, 25], 3: [92, 0, 0, 60], 4: [0, 0, 0, 0]}


class Hidden(WindowTest):
    def open_other(self):
        other = subprocess.Popen(["xev"], env=self.display.environment, stdout=subprocess.DEVNULL)
        self.addCleanup(other.wait)
        self.addCleanup(other.kill)
        self.wait_until(lambda: self.title() == OTHER or self.display.activate(OTHER), OTHER)

    def hide(self):
        self.display.minimise(self.board)
        self.wait_until(lambda: not self.display.is_shown(self.board), "the end of the board")

    def state_of_board(self):
        return self.display.property(self.board, "_NET_WM_STATE")

    def wait_for_call(self):
        """Types in the other program until the game calls for the player."""
        self.wait_until(lambda: self.display.key("x") or "ATTENTION" in self.state_of_board(), "the call")
        self.settle()
        self.assertEqual(self.title(), OTHER)

    def start_second(self, title):
        self.assertEqual(self.program.spawn().wait(), 0)
        self.wait_until(lambda: self.display.is_shown(self.board), "the board")
        self.wait_for_message(title)

    def test_a_second_start_shows_the_waiting_message(self):
        self.program.ini.write_bytes(inifile.to_bytes(Settings(), game_at(POSITIONS, turn=1)))
        self.program.start()
        title = self.wait_until(self.display.active_window, "the title")
        self.board = self.wait_until(self.display.board, "the board")
        # By then the title has taken the keyboard from the board that opened behind it.
        self.wait_until(lambda: "Icon" in self.display.property(self.board, "_NET_WM_ICON"), "the icon")
        self.wait_until(lambda: (now := self.display.active_window()) and now.id == title.id, "the title on top")
        self.open_other()
        self.wait_until(lambda: not self.display.is_shown(title), "the end of the title")
        self.wait_for_call()
        self.hide()
        for _ in range(2):
            self.start_second(CONTINUE_TITLE)
            self.assertNotIn("ATTENTION", self.state_of_board())
            self.hide()

    def test_a_close_request_asks_once(self):
        self.start(Settings(speed=80))
        self.board = self.display.board()
        self.display.key("F2")
        self.answer(START_TITLE, "yes")
        self.hide()
        self.open_other()
        self.wait_for_call()
        self.assertFalse(self.display.is_shown(self.board))
        with self.held():
            for _ in range(2):
                self.display.ask_to_close(self.board)
        self.answer(EXIT_TITLE, "no")
        self.wait_until(lambda: self.game().moves or self.title() and self.answer(DRAW_TITLE), "the first move")
        self.hide()
        self.display.ask_to_close(self.board)
        self.answer(POSTPONE_TITLE, "yes")
        self.assertEqual(self.wait_for_end(), 0)
