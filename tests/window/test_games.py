"""Whole games, from the button for a new game to the question about the history."""

import unittest

from driver import END_TITLE, HISTORY_TITLE, START_TITLE, WindowTest
from inifile import COMPUTER, NAMES, ON, PERSON, Settings
from layout import COLOURS, GOAL_SQUARE, PIECES


class WholeGames(WindowTest):
    def assert_result_kept(self, question_key=None, question_button="yes"):
        """The end is told; the winner and the points stand in the history once it is said yes to."""
        self.answer(END_TITLE, key=question_key)
        self.assertFalse(self.program.history.exists(), "written before the question was answered")
        self.answer(HISTORY_TITLE, question_button, key=question_key)
        self.wait_for_board()
        game = self.wait_until(lambda: not self.game().in_progress and self.game(), "the end in the file")
        winners = [colour for colour in COLOURS if game.home(colour) == 4]
        self.assertEqual(len(winners), 1)
        line = self.program.history.read_bytes().decode("cp1252")
        names = "".join("%-9s" % NAMES[c - 1] for c in winners + [c for c in COLOURS if c not in winners])
        self.assertRegex(line, r"^20\d{10}")
        self.assertRegex(line[12:], names + r"\d{3}\r\n$")
        self.assertEqual(game.records, [])

    def test_a_person_by_mouse_against_three_computers(self):
        self.start(Settings(types=(COMPUTER, PERSON, COMPUTER, COMPUTER), pause=ON))
        picks = []

        def throw_or_pick():
            if self.advances(self.click_board):
                return True
            game = self.game()
            for piece in PIECES:
                if game.piece(2, piece) == GOAL_SQUARE[2]:
                    continue
                if self.advances(lambda: self.click_piece(game, 2, piece), 0.1):
                    picks.append(piece)
                    return True
            return False

        self.click_button("new game")
        self.answer(START_TITLE, "yes")
        self.play_until(END_TITLE, throw_or_pick, self.answer)
        self.assert_result_kept()
        self.assertGreater(len(picks), 10, "the person had nothing to pick")

    def test_a_person_by_keyboard_alone(self):
        self.start(Settings(types=(COMPUTER, COMPUTER, PERSON, COMPUTER), pause=ON))
        ways = (("Tab", "Return"), ("Left", "Left", "Return"), ("Return",), ("Down", "space"))
        turn = [0]

        def throw_or_pick():
            turn[0] += 1
            return self.advances(lambda: self.display.key(*ways[turn[0] % len(ways)]))

        self.display.key("F2")
        self.answer(START_TITLE, key="Return")
        self.play_until(END_TITLE, throw_or_pick, lambda title: self.answer(title, key="space"))
        self.assert_result_kept(question_key="Return")


if __name__ == "__main__":
    unittest.main()
