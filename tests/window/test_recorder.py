"""The recorder through all its keys, on a whole game with captures."""

import unittest
from pathlib import Path

import board
import inifile
from driver import ABANDON_TITLE, DRAW_TITLE, EXIT_TITLE, START_TITLE, WindowTest
from inifile import COLOURS, ON, PERSON, Settings, game_at, positions_after
from layout import RECORDER_KEYS

NOTICE_TITLE = "Tecla no activa"
TAPE = Path(__file__).parent.parent / "data/games/game15/expected.INI"
KEYBOARD = {"on/off": "ctrl+Home", "back": "ctrl+Left", "forward": "ctrl+Right", "auto back": "ctrl+Up",
            "auto forward": "ctrl+Down", "restore": "ctrl+End"}


class RecorderTest(WindowTest):
    speed = 100

    def setUp(self):
        super().setUp()
        self.tape = inifile.from_bytes(TAPE.read_bytes())[1]
        self.start(Settings(pause=ON, speed=self.speed), self.tape)
        self.press = self.click_recorder
        self.keys_down()

    def shows(self, moves):
        """Whether the board shows the game after that many of its moves."""
        return not board.difference(self.display.picture(), self.layout, positions_after(self.tape, moves))

    def wait_for_position(self, moves):
        self.wait_until(lambda: self.shows(moves), "the position after move %d" % moves)

    def assert_stays_at(self, moves, what=None):
        self.settle()
        self.assertTrue(self.shows(moves), what)

    def log_part(self):
        return self.part(self.settled_picture(), self.layout.log)

    def keys_down(self):
        """Which keys of the recorder are drawn otherwise than at the start of the test."""
        picture = self.display.picture()
        parts = {key: self.part(picture, (x - 10, y - 6, 20, 12))
                 for key, (x, y) in zip(RECORDER_KEYS, self.layout.keys)}
        self.up = getattr(self, "up", parts)
        return {key for key in parts if parts[key] != self.up[key]}

    def switch(self, on):
        self.press("on/off")
        self.wait_until(lambda: self.keys_down() == ({"on/off"} if on else set()), "the key for on and off")

    def replay_to(self, key, moves):
        """Presses an automatic key and waits until the replay has ended by itself there."""
        self.press(key)
        self.wait_for_position(moves)
        self.wait_until(lambda: self.keys_down() == {"on/off"}, "the automatic keys to be up")

    def step_to(self, moves, start):
        """Steps back one by one and looks at every position on the way."""
        for position in range(start - 1, moves - 1, -1):
            self.press("back")
            self.wait_for_position(position)


class Replaying(RecorderTest):
    def walk_through(self):
        end = self.tape.moves
        self.switch(on=True)
        self.replay_to("auto back", 0)
        self.press("back")
        self.press("auto back")
        self.assert_stays_at(0, "back from the start")
        for position in (1, 2, 3):
            self.press("forward")
            self.wait_for_position(position)
        self.replay_to("auto forward", end)
        self.press("forward")
        self.press("auto forward")
        self.assert_stays_at(end, "forward from the end")
        self.step_to(end - 20, end)
        self.switch(on=False)
        self.wait_for_position(end)

    def test_twice_through_a_whole_game(self):
        stamp, before = self.file_stamp(), self.settled_picture()
        self.walk_through()
        self.press = lambda key: self.display.key(KEYBOARD[key])
        self.walk_through()
        self.assertTrue(self.settled_picture().same_as(before), "not everything is as before")
        self.assertEqual(self.file_stamp(), stamp, "a replay changed the file")
        self.click_board()
        self.wait_for_moves(self.tape.moves + 1)
        self.assertEqual(self.game().records[:self.tape.moves], self.tape.records)

    def test_the_game_stands_still_meanwhile(self):
        log, position = self.log_part(), self.tape.moves - 3
        self.switch(on=True)
        self.step_to(position, self.tape.moves)
        self.assertNotEqual(self.log_part(), log, "the log marks the position")
        stamp = self.file_stamp()
        self.click_board()
        self.click_board(button=3)
        self.display.key("space", "Return", "Tab", "F5")
        self.assert_stays_at(position)
        for leave in self.ways_to_leave:
            leave()
            self.answer(EXIT_TITLE)
            self.wait_for_board()
            self.assertTrue(self.program.is_running())
        for key in ("Escape", "q", "Q"):
            self.display.key(key)
            self.wait_until(lambda: not self.board_is_active(), "the window to be hidden")
            self.assertEqual(self.program.spawn().wait(timeout=20), 0, "the second start")
            self.wait_for_board()
        self.assert_stays_at(position, "the recorder lost its place")
        self.assertEqual(self.file_stamp(), stamp, "the game went on")


class Stopping(RecorderTest):
    speed = 90  # slow enough to be stopped on the way

    def test_only_its_own_key_stops_an_automatic_replay(self):
        self.switch(on=True)
        ends = {"auto back": 0, "auto forward": self.tape.moves}
        for key, other in (("auto back", "auto forward"), ("auto forward", "auto back")):
            # Held, because on a busy machine the replay could end between two clicks.
            with self.held():
                for pressed in (key, other, "restore", "forward", "back", "on/off", key):
                    self.press(pressed)
            self.settle()
            self.assertFalse(self.shows(0) or self.shows(self.tape.moves), "the replay was not stopped on its way")
            self.assertTrue(any(self.shows(moves) for moves in range(self.tape.moves)), "no position of the tape")
            with self.held():
                self.press(key)
                self.press(other)

            def has_ended():
                self.assertNotIn(other, self.keys_down(), "both replays at once")
                return self.shows(ends[key])

            self.wait_until(has_ended, "the end of the replay")
            self.wait_until(lambda: self.keys_down() == {"on/off"}, "the automatic keys to be up")


class Restoring(RecorderTest):
    def restored_from(self, moves):
        """The moves that are left when the tape is restored at a position."""
        while moves > 0 and not self.tape.records[moves].turn_end:
            moves -= 1
        return moves

    def restore(self, back):
        """Steps back that far and restores; returns how many moves are left."""
        start = self.tape.moves
        self.switch(on=True)
        self.step_to(start - back, start)
        left = self.restored_from(start - back)
        self.press("restore")
        self.wait_until(lambda: self.game().moves == left, "the forgotten moves to be gone from the file")
        self.wait_for_position(left)
        return left

    def test_at_the_end_the_key_explains_itself(self):
        self.switch(on=True)
        self.press("restore")
        self.answer(NOTICE_TITLE)
        self.wait_for_board()
        self.assert_stays_at(self.tape.moves)
        self.switch(on=False)

    def test_restore_and_play_on_twice(self):
        for back in (30, 17):
            left = self.restore(back)
            game, forgotten = self.game(), self.tape.records[left]
            self.assertEqual(game.records, self.tape.records[:left])
            self.assertEqual(game.positions, positions_after(self.tape, left))
            self.assertEqual(game.colour, forgotten.following or forgotten.mover)
            self.play_moves(12)
            self.tape = self.game()
            self.assertEqual(self.tape.records[:left], game.records)
            self.assertEqual(positions_after(self.tape, self.tape.moves), self.tape.positions)

    def test_the_log_forgets_too(self):
        self.restore(20)
        after_restore = self.log_part()
        self.program.kill()
        self.start_again(continues=True)
        self.wait_until(lambda: self.log_part() == after_restore, "the log that the moves in the file give")

    def test_a_new_game_ends_the_replay(self):
        for key in ("auto back", "back"):
            self.switch(on=True)
            self.step_to(self.tape.moves - 3, self.tape.moves)
            self.press(key)
            self.display.key("F2")
            self.answer(ABANDON_TITLE, "yes")
            self.answer(START_TITLE, "yes")
            self.wait_for_message(DRAW_TITLE)
            self.assertEqual(self.game().records, [])
            self.assertFalse(self.game().in_progress)
            self.play_moves(12)
            self.assertEqual(self.keys_down(), set())
            self.tape = self.game()


class Dice(WindowTest):
    def houses(self):
        """For each colour a spot of its house, which lies in the shade or not, and the middle of its tray, with the
        face of a die but not its edges."""
        picture, spots = self.settled_picture(), zip(COLOURS, self.layout.houses, self.layout.trays)
        return {colour: (self.part(picture, (left + 8, top + height - 14, 6, 6)),
                         self.part(picture, (x + side / 5, y + side / 5, side * 3 / 5, side * 3 / 5)))
                for colour, (left, top, _, height), (x, y, side, _) in spots}

    def test_dice_and_houses_look_at_each_position_as_they_did(self):
        spots = {colour: [first, first + 1] for colour, first in zip(COLOURS, (6, 23, 40, 57))}
        self.start(Settings(types=(PERSON,) * 4, pause=ON), game_at(spots, turn=1))
        first, thrown, lit = self.game().moves, {}, {}
        while len(thrown) < 10:
            before = self.game()
            if not self.advances(self.click_board):
                lit[before.colour], seen = self.houses()[before.colour]
                self.display.key("Return")
                last = self.wait_for_moves(before.moves + 1).records[before.moves]
                if last.count != 20:  # a bonus is counted without a throw
                    thrown[last.mover, last.die] = seen
                self.settle()
        tape = self.game().records
        self.display.key("ctrl+Home")
        for key, positions in (("ctrl+Left", range(len(tape) - 1, first, -1)),
                               ("ctrl+Right", range(first + 2, len(tape)))):
            for position in positions:
                self.display.key(key)
                last, houses = tape[position - 1], self.houses()
                self.assertEqual([colour for colour in COLOURS if houses[colour][0] == lit[colour]],
                                 [tape[position].mover], "the house in the light after move %d" % position)
                dice = {colour: house[1] for colour, house in houses.items()}
                die = dice.pop(last.mover)
                # Where the player had no choice the throw was not seen.
                self.assertTrue(die == thrown.get((last.mover, last.die), die), "after move %d" % position)
                self.assertFalse(set(dice.values()) & set(thrown.values()), "another die after move %d" % position)


if __name__ == "__main__":
    unittest.main()
