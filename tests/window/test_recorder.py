"""The recorder through all its keys, on a whole game with captures."""

from pathlib import Path

import board
import inifile
from driver import ABANDON_TITLE, DRAW_TITLE, EXIT_TITLE, START_TITLE, WindowTest
from inifile import COLOURS, ON, Settings, positions_after, throw_behind
from layout import RECORDER_KEYS

TAPE = Path(__file__).parent.parent / "data/games/game15/expected.INI"
KEYBOARD = {"on/off": "ctrl+Home", "back": "ctrl+Left", "forward": "ctrl+Right", "auto back": "ctrl+Up",
            "auto forward": "ctrl+Down", "restore": "ctrl+End"}


class RecorderTest(WindowTest):
    def setUp(self):
        super().setUp()
        self.tape = inifile.from_bytes(TAPE.read_bytes())[1]
        self.start(Settings(pause=ON, speed=100), self.tape)
        self.press = self.click_recorder
        self.keys_down()

    def shows(self, moves, is_end=False):
        """Whether the board shows the game after that many of its moves: the pieces and the throw behind the last
        move, or at the end of the tape the one die that is ready."""
        picture = self.display.picture()
        dice = {colour: board.die_at_rest(picture, self.layout, colour) for colour in COLOURS}
        if is_end or moves == self.tape.moves:
            right = sorted(map(str, dice.values())) == ["0", "0", "0", "None"]
        else:
            right = {colour: face for colour, face in dice.items() if face != 0} == throw_behind(self.tape, moves)
        return right and not board.difference(picture, self.layout, positions_after(self.tape, moves))

    def wait_for_position(self, moves, is_end=False):
        self.wait_until(lambda: self.shows(moves, is_end), "the position after move %d" % moves)

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
        for position in (1, 2, 3):
            self.press("forward")
            self.wait_for_position(position)
        self.replay_to("auto forward", end)
        self.step_to(end - 20, end)
        self.switch(on=False)
        self.wait_for_position(end)

    def test_twice_through_a_whole_game(self):
        before, stamp = self.settled_picture(), self.file_stamp()
        self.walk_through()
        self.press = lambda key: self.display.key(KEYBOARD[key])
        self.walk_through()
        self.assertTrue(self.settled_picture().same_as(before), "not everything is as before")
        self.assertEqual(self.file_stamp(), stamp, "a replay changed the file")
        self.click_board()
        self.wait_for_moves(self.tape.moves + 1)
        self.assertEqual(self.game().records[:self.tape.moves], self.tape.records)

    def test_the_game_stands_still_meanwhile(self):
        position = self.tape.moves - 3
        self.switch(on=True)
        self.step_to(position, self.tape.moves)
        stamp = self.file_stamp()
        self.click_board()
        self.click_board(button=3)
        self.display.key("space", "Return", "Tab", "F5")
        for leave in self.ways_to_leave:
            leave()
            self.answer(EXIT_TITLE)
            self.wait_for_board()
        self.display.key("Escape")
        self.wait_until(lambda: not self.board_is_active(), "the window to be hidden")
        self.assertEqual(self.program.spawn().wait(timeout=20), 0, "the second start")
        self.wait_for_board()
        self.settle()
        self.assertTrue(self.shows(position), "the recorder lost its place")
        self.assertEqual(self.file_stamp(), stamp, "the game went on")


class Restoring(RecorderTest):
    def restore(self, back):
        """Steps back that far and restores; returns how many moves are left."""
        start = self.tape.moves
        self.switch(on=True)
        self.step_to(start - back, start)
        left = max(moves for moves in range(start - back + 1) if moves == 0 or self.tape.records[moves].turn_end)
        self.press("restore")
        self.wait_until(lambda: self.game().moves == left, "the forgotten moves to be gone from the file")
        self.wait_for_position(left, is_end=True)
        return left

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

    def test_a_new_game_ends_the_replay(self):
        self.switch(on=True)
        self.press("auto back")
        self.display.key("F2")
        self.answer(ABANDON_TITLE, "yes")
        self.answer(START_TITLE, "yes")
        self.wait_for_message(DRAW_TITLE)
        self.assertEqual(self.game().records, [])
        self.assertFalse(self.game().in_progress)
        self.play_moves(12)
        self.assertEqual(self.keys_down(), set())
