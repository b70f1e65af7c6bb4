"""The recorder through all its keys, on a whole game with captures."""

import time
import unittest
from pathlib import Path

import board
import inifile
from driver import EXIT_TITLE, WindowTest
from inifile import ON, Settings, positions_after

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
        self.off = self.key_part("on/off")
        self.up = self.automatic_keys()

    def difference(self, moves):
        return board.difference(self.display.picture(), self.layout, positions_after(self.tape, moves))

    def wait_for_position(self, moves):
        """The board shows the game after that many of its moves."""
        self.wait_until(lambda: not self.difference(moves), "the position after move %d" % moves)

    def position(self):
        """The numbers of moves whose position is on the board, once it stands still: more than one
        when nothing moved in between."""
        picture = [None]

        def shown():
            before, picture[0] = picture[0], self.display.picture()
            time.sleep(0.1)
            if not before or self.board_part(before) != self.board_part(picture[0]):
                return []
            return [moves for moves in range(self.tape.moves + 1)
                    if not board.difference(picture[0], self.layout, positions_after(self.tape, moves))]

        return self.wait_until(shown, "a position of the tape")

    def board_part(self, picture):
        x, y = self.layout.device((self.layout.margin, self.layout.margin))
        side = round(21 * self.layout.cell * self.layout.unit)
        return picture.part(x, y, side, side)

    def log_part(self, picture):
        left = round(self.layout.board_extent + (self.layout.width - self.layout.board_extent - 150) / 2)
        x, y = self.layout.device((left, 304))
        return picture.part(x, y, 150, picture.height - y)

    def switch_on(self):
        self.press("on/off")
        self.wait_until(lambda: self.key_part("on/off") != self.off, "the recorder to be on")

    def switch_off(self):
        self.press("on/off")
        self.wait_until(lambda: self.key_part("on/off") == self.off, "the recorder to be off")

    def key_part(self, key):
        x, y = self.layout.device(self.layout.recorder_key(key))
        return self.display.picture().part(x - 10, y - 6, 20, 12)

    def automatic_keys(self):
        return [self.key_part("auto back"), self.key_part("auto forward")]

    def wait_for_rest(self):
        """No automatic replay runs: both its keys are up."""
        self.wait_until(lambda: self.automatic_keys() == self.up, "the automatic keys to be up")

    def step_to(self, moves, start):
        """Steps back one by one; every position on the way is looked at."""
        for position in range(start - 1, moves - 1, -1):
            self.press("back")
            self.wait_for_position(position)


class Replaying(RecorderTest):
    def walk_through(self):
        end = self.tape.moves
        self.switch_on()
        self.press("auto back")
        self.wait_for_position(0)
        self.wait_for_rest()
        self.press("back")
        self.press("auto back")
        self.assertIn(0, self.position(), "back from the start")
        for position in (1, 2, 3):
            self.press("forward")
            self.wait_for_position(position)
        self.press("auto forward")
        self.wait_for_position(end)
        self.wait_for_rest()
        self.press("forward")
        self.press("auto forward")
        self.assertIn(end, self.position(), "forward from the end")
        self.step_to(end - 25, end)
        self.switch_off()
        self.wait_for_position(end)

    def test_twice_through_a_whole_game(self):
        stamp = self.file_stamp()
        self.rest_pointer()
        time_before = self.display.picture()
        self.walk_through()
        self.press = lambda key: self.display.key(KEYBOARD[key])
        self.walk_through()
        self.rest_pointer()
        self.wait_until(lambda: self.board_part(self.display.picture()) == self.board_part(time_before)
                        and self.log_part(self.display.picture()) == self.log_part(time_before),
                        "the board and the log as before")
        self.assertEqual(self.file_stamp(), stamp, "a replay changed the file")
        self.click_board()
        self.wait_for_moves(self.tape.moves + 1)
        self.assertEqual(self.game().records[:self.tape.moves], self.tape.records)

    def test_the_game_stands_still_meanwhile(self):
        self.switch_on()
        self.step_to(self.tape.moves - 3, self.tape.moves)
        stamp = self.file_stamp()
        self.click_board()
        self.click_board(button=3)
        self.display.key("space", "Return", "Tab", "F5")
        self.holds_for(0.5, lambda: self.file_stamp() == stamp, "the game went on")
        self.assertIn(self.tape.moves - 3, self.position())
        for leave in (lambda: self.click_button("leave"), lambda: self.display.key("F6"),
                      lambda: self.display.key("alt+F4")):
            leave()
            self.answer(EXIT_TITLE)
            self.wait_for_board()
            self.assertTrue(self.program.is_running())
        self.display.key("Escape")
        self.wait_until(lambda: not self.board_is_active(), "the window to be hidden")
        self.program.spawn().wait(timeout=20)
        self.wait_for_board()
        self.assertIn(self.tape.moves - 3, self.position(), "the recorder lost its place")


class Stopping(RecorderTest):
    speed = 85  # slow enough to be stopped on the way

    def test_only_its_own_key_stops_an_automatic_replay(self):
        self.switch_on()
        ends = {"auto back": 0, "auto forward": self.tape.moves}
        for key, other in (("auto back", "auto forward"), ("auto forward", "auto back")):
            self.start_replay(key)
            for ignored in (other, "restore", "forward", "back", "on/off"):
                self.press(ignored)
            self.press(key)
            self.wait_for_rest()
            reached = self.position()
            self.assertFalse(set(reached) & set(ends.values()), "the replay was not stopped on its way")
            self.start_replay(key)
            self.press(other)
            self.wait_for_position(ends[key])
            self.wait_for_rest()

    def start_replay(self, key):
        self.press(key)
        self.wait_until(lambda: self.automatic_keys() != self.up, "the replay to begin")


class Restoring(RecorderTest):
    def restored_from(self, moves):
        """The moves that are left when the tape is restored at a position."""
        position = moves + 1
        while position > 1 and not self.tape.records[position - 1].turn_end:
            position -= 1
        return position - 1

    def test_at_the_end_the_key_explains_itself(self):
        self.switch_on()
        self.press("restore")
        self.answer(NOTICE_TITLE)
        self.wait_for_board()
        self.assertIn(self.tape.moves, self.position())
        self.switch_off()

    def test_restore_and_play_on_twice(self):
        for back in (30, 17):
            start = self.tape.moves
            self.switch_on()
            self.step_to(start - back, start)
            left = self.restored_from(start - back)
            self.press("restore")
            self.wait_until(lambda: self.game().moves == left, "the forgotten moves to be gone from the file")
            self.wait_for_position(left)
            game = self.game()
            self.assertEqual(game.records, self.tape.records[:left])
            self.assertEqual(game.positions, positions_after(self.tape, left))
            forgotten = self.tape.records[left]
            self.assertEqual(game.colour, forgotten.following or forgotten.mover)
            self.play_moves(12)
            self.tape = self.game()
            self.assertEqual(self.tape.records[:left], game.records)
            self.assertEqual(positions_after(self.tape, self.tape.moves), self.tape.positions)

    def test_the_log_forgets_too(self):
        self.switch_on()
        self.step_to(self.tape.moves - 20, self.tape.moves)
        left = self.restored_from(self.tape.moves - 20)
        self.press("restore")
        self.wait_until(lambda: self.game().moves == left, "the file of the restored game")
        self.wait_for_position(left)
        self.rest_pointer()
        self.position()
        after_restore = self.log_part(self.display.picture())
        self.program.kill()
        self.start_again(continues=True)
        self.rest_pointer()
        self.wait_until(lambda: self.log_part(self.display.picture()) == after_restore,
                        "the log that the moves in the file give")

    def test_a_new_game_ends_the_replay(self):
        self.switch_on()
        self.step_to(self.tape.moves - 5, self.tape.moves)
        self.press("auto back")
        self.display.key("F2")
        self.answer("Abandonar la partida en curso", "yes")
        self.answer("Comienza la Partida", "yes")
        self.wait_until(lambda: self.title() == "Sorteo del jugador que comienza", "the draw")
        self.assertFalse(self.game().in_progress)
        self.assertEqual(self.game().records, [])


if __name__ == "__main__":
    unittest.main()
