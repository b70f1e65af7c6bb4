"""Whole games, from the button for a new game to the question about the history."""

import unittest

from driver import END_TITLE, HISTORY_TITLE, START_TITLE, WindowTest
from inifile import COMPUTER, NAMES, ON, PERSON, Settings
from layout import COLOURS, EXIT_SQUARE, GOAL_SQUARE, PIECES

FIRST_COLUMN = {1: 69, 2: 77, 3: 85, 4: 93}
HOME_ENTRY = {1: 68, 2: 17, 3: 34, 4: 51}


def steps_walked(colour, square):
    """Steps from the colour's exit square to where a piece stands; 0 in its box."""
    if square == 0:
        return 0
    if square >= FIRST_COLUMN[colour]:
        return 64 + square - FIRST_COLUMN[colour]
    return (square - EXIT_SQUARE[colour]) % 68


def points(game, winner):
    """The winner's points times a hundred: what the losers had still to go, in thousandths."""
    losers = [colour for colour in COLOURS if colour != winner]
    walked = sum(steps_walked(c, game.piece(c, p)) for c in losers for p in PIECES)
    return min(round((len(losers) * 284 - walked) / len(losers) * 1000 / 284), 999)


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
        self.assertEqual(line[12:], "%s%03d\r\n" % (names, points(game, winners[0])))
        self.assertEqual(game.records, [])

    def answer_by_mouse(self, title):
        self.answer(title)

    def answer_by_key(self, title):
        self.answer(title, key="space")

    def test_four_computers_thrown_for_by_clicks(self):
        self.start(Settings(pause=ON))
        self.click_button("new game")
        self.answer(START_TITLE, "yes")
        self.play_until(END_TITLE, lambda: self.advances(self.click_board), self.answer_by_mouse)
        self.assert_result_kept()

    def test_four_computers_thrown_for_by_keys(self):
        self.start(Settings(pause=ON))
        self.display.key("F2")
        self.answer(START_TITLE, key="Return")
        self.play_until(END_TITLE, lambda: self.advances(lambda: self.display.key("space")),
                        self.answer_by_key)
        self.assert_result_kept(question_key="s")

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
        self.play_until(END_TITLE, throw_or_pick, self.answer_by_mouse)
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
        self.play_until(END_TITLE, throw_or_pick, self.answer_by_key)
        self.assert_result_kept(question_key="Return")


if __name__ == "__main__":
    unittest.main()
