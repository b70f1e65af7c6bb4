"""The game is never lost: left, ended from outside, killed, started twice, begun anew."""

import signal
import unittest

import board
from driver import ABANDON_TITLE, DRAW_TITLE, POSTPONE_TITLE, START_TITLE, WindowTest
from inifile import COMPUTER, OFF, ON, PERSON, Settings, game_at

POSITIONS = {1: [76, 76, 20, 40], 2: [84, 0, 84, 25], 3: [92, 92, 0, 60], 4: [100, 0, 100, 100]}


class KeepingTest(WindowTest):
    def start_game(self, **settings):
        self.start(Settings(**dict({"pause": ON}, **settings)), game_at(POSITIONS, turn=1))

    def assert_continues_at(self, game):
        """The next start shows the same position with the same colour on turn, and plays on."""
        self.start_again(continues=True)
        self.wait_until(lambda: not board.difference(self.display.picture(), self.layout, game.positions),
                        "the position that was left")
        now = self.game()
        self.assertEqual((now.positions, now.slots, now.records, now.colour, now.sixes),
                         (game.positions, game.slots, game.records, game.colour, game.sixes))
        self.play_moves(2)
        self.assertEqual(self.game().records[:game.moves], game.records)


class Leaving(KeepingTest):
    def test_leave_and_continue(self):
        ways = (lambda: self.click_button("leave"), lambda: self.display.key("F6"),
                lambda: self.display.key("alt+F4"))
        self.start_game()
        for leave in ways:
            self.play_moves(6)
            game = self.game()
            leave()
            self.answer(POSTPONE_TITLE, "no")
            self.wait_for_board()
            leave()
            self.wait_for_message(POSTPONE_TITLE)
            self.display.key("alt+F4")
            self.wait_for_board()
            self.assertTrue(self.program.is_running())
            leave()
            self.answer(POSTPONE_TITLE, "yes")
            self.assertEqual(self.wait_for_end(), 0)
            self.assert_continues_at(game)

    def test_leave_while_a_move_is_awaited(self):
        self.start_game(types=(PERSON, COMPUTER, COMPUTER, COMPUTER))
        game = self.game()
        self.click_board()
        self.display.key("F6")
        self.answer(POSTPONE_TITLE, key="space")
        self.assertEqual(self.wait_for_end(), 0)
        self.assert_continues_at(game)

    def test_leave_while_the_computers_play(self):
        self.start_game(pause=OFF, speed=80)
        self.wait_for_moves(self.game().moves + 3)
        self.display.key("F6")
        self.answer(POSTPONE_TITLE, "yes")
        self.assertEqual(self.wait_for_end(), 0)
        self.assertTrue(self.game().in_progress)

    def test_leave_without_a_game(self):
        for leave in (lambda: self.click_button("leave"), lambda: self.display.key("F6"),
                      lambda: self.display.key("alt+F4")):
            self.start(Settings())
            leave()
            self.assertEqual(self.wait_for_end(), 0)


class EndedFromOutside(KeepingTest):
    def test_the_end_of_the_session_keeps_the_game(self):
        self.start_game()
        for signal_number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            self.play_moves(6)
            game = self.game()
            self.program.process.send_signal(signal_number)
            self.assertEqual(self.wait_for_end(), 0, signal_number)
            self.assert_continues_at(game)

    def test_the_end_of_the_session_behind_a_message(self):
        self.start_game()
        game = self.game()
        self.display.key("F2")
        self.wait_for_message(ABANDON_TITLE)
        self.program.process.terminate()
        self.assertEqual(self.wait_for_end(), 0)
        self.assert_continues_at(game)


class Starting(KeepingTest):
    def test_a_second_start_behind_a_message(self):
        self.start_game()
        self.display.key("F2")
        self.wait_for_message(ABANDON_TITLE)
        self.assertEqual(self.program.spawn().wait(timeout=20), 0)
        self.answer(ABANDON_TITLE, "no")
        self.wait_for_board()


class BeginningAnew(KeepingTest):
    def test_a_new_game_inside_a_running_one(self):
        self.start_game()
        game = self.game()
        for ask in (lambda: self.click_button("new game"), lambda: self.display.key("F2")):
            ask()
            self.answer(ABANDON_TITLE, "no")
            self.wait_for_board()
            self.assertEqual(self.game().records, game.records)
        for _ in range(5):
            self.display.key("F2")
            self.answer(ABANDON_TITLE, "yes")
            self.wait_for_message(START_TITLE)
            self.assertFalse(self.game().in_progress, "the abandoned game is still in the file")
            self.answer(START_TITLE, "yes")
            self.wait_for_message(DRAW_TITLE)
            self.play_moves(4)
            self.assertLess(self.game().moves, game.moves + 4)
        for colour in (1, 2, 3, 4):
            self.assertEqual(self.game().home(colour), 0)


if __name__ == "__main__":
    unittest.main()
