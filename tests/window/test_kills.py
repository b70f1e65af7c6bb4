"""Killed at any moment, also in the middle of replacing its file, the program loses the move in hand at
most, no record of the history, and leaves no files behind.

ZORVA_KILLS says how often it is killed, ZORVA_KILLS_SPEED how fast it plays, ZORVA_DIE_AT_LIBRARY names the library that does it inside a
file operation.
"""

import os
import random
import signal
import time
import unittest

import board
from driver import CONTINUE_TITLE, PATIENCE, START_TITLE, WindowTest
from inifile import OFF, Settings, game_at, to_bytes

KILLS = int(os.environ.get("ZORVA_KILLS", "20"))
SPEED = int(os.environ.get("ZORVA_KILLS_SPEED", "100"))
RECORD = 53  # bytes of the history
POSITIONS = {1: [0, 0, 20, 40], 2: [84, 0, 0, 25], 3: [92, 0, 0, 60], 4: [0, 0, 0, 0]}
PLACES = ("write", "rename", "renamed")


class Kills(WindowTest):
    def setUp(self):
        super().setUp()
        signal.alarm(60 + 30 * KILLS)
        self.chance = random.Random(5)
        self.games_begun = self.killed_inside = self.compared = 0

    def start_and_continue(self, game):
        """Starts the program; a game in the file must be offered, and goes on."""
        self.program.start()
        self.skip_title()
        if game.in_progress:
            self.answer(CONTINUE_TITLE)

    def answer_what_is_asked(self):
        """Messages of a game that plays itself, and from one game into the next."""
        title = self.title()
        if title:
            self.games_begun += title == START_TITLE
            self.display.key("Return")
        elif self.board_is_active() and not self.game().in_progress:
            self.display.key("F2")

    def play_until_killed(self, place):
        """Lets the game play until it is killed; gives the game that was in the file just before."""
        end = time.monotonic() + (self.chance.uniform(0, 1.2 if SPEED == 100 else 4) if place is None else PATIENCE)
        seen = first = self.game()
        while self.program.is_running() and time.monotonic() < end:
            self.answer_what_is_asked()
            seen = self.game()
        if self.program.is_running():
            self.program.process.send_signal(signal.SIGSTOP)
            self.assert_only_the_move_in_hand_is_missing(first, self.game())
            self.program.kill()
        else:
            self.assertEqual(self.program.process.returncode, -signal.SIGKILL)
            self.killed_inside += 1
        return seen

    def assert_only_the_move_in_hand_is_missing(self, first, game):
        """One piece may have moved, and one that it captured, each from one place to another. Nothing is
        told at full speed, when the picture lags behind the game, nor while the pieces are being put down."""
        if SPEED == 100 or not game.in_progress or self.title() or game.records[:first.moves + 1] == first.records:
            return
        wrong = board.difference(self.display.picture(), self.layout, game.positions)
        self.assertLessEqual(wrong.count("instead of"), 4, wrong)

    def check_files(self, history):
        names = {entry.name for entry in self.program.folder.iterdir()}
        self.assertLessEqual(names, {"zorva32", "ZORVA32.HLP", "ZORVA32.INI", "ZORVA32.HIS", "ZORVA32.TMP"})
        now = self.program.history.read_bytes()
        self.assertTrue(now.startswith(history), "the history has changed")
        self.assertEqual(len(now) % RECORD, 0, "a record is torn")
        return now

    def test_any_moment(self):
        history = b"200103050907%-9s%-27s250\r\n" % (b"Ana", b"Luis")
        self.program.history.write_bytes(history)
        self.program.ini.write_bytes(to_bytes(Settings(pause=OFF, speed=SPEED), game_at(POSITIONS, turn=1)))
        game = self.game()
        for number in range(KILLS):
            place = self.chance.choice((None, *PLACES)) if "ZORVA_DIE_AT_LIBRARY" in os.environ else None
            at = "%s:%d" % (place, self.chance.randint(1, 40)) if place else ""
            self.use_hook(at)
            begun = self.games_begun
            self.start_and_continue(game)
            seen = self.play_until_killed(place)
            left, history = self.game(), self.check_files(history)
            where = "kill %d %s" % (number + 1, at)
            if self.games_begun == begun and left.in_progress:
                self.compared += 1
                self.assertEqual(left.records[:seen.moves], seen.records, where)
                self.assertEqual(left.records[:game.moves], game.records, where)
            game = left
        self.use_hook("")
        self.start_and_continue(game)
        self.wait_until(lambda: not (self.program.folder / "ZORVA32.TMP").exists() or self.leave_quietly(),
                        "the file that a kill left to be used up")
        print("%d kills, %d of them inside a file operation, %d in the middle of a game that went on, %d games ended"
              % (KILLS, self.killed_inside, self.compared, len(history) // RECORD - 1), flush=True)
        self.assertGreater(self.compared, KILLS // 4)

    def leave_quietly(self):
        self.program.process.terminate()
        self.wait_for_end()
        return not (self.program.folder / "ZORVA32.TMP").exists()

    def use_hook(self, at):
        libraries = [os.environ.get("ZORVA_SAME_DICE"), os.environ.get("ZORVA_DIE_AT_LIBRARY")]
        self.program._environment["LD_PRELOAD"] = ":".join(filter(None, libraries))
        self.program._environment["ZORVA_DIE_AT"] = at


if __name__ == "__main__":
    unittest.main()
