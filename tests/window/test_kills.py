"""Killed at any moment, also in the middle of replacing its file, the program loses at most the move in hand,
no record of the history, and leaves no files behind.

The environment variable ZORVA_KILLS says how often it is killed.
"""

import os
import random
import signal
import time

from driver import CONTINUE_TITLE, PATIENCE, WindowTest
from inifile import OFF, Settings, game_at, to_bytes

KILLS = int(os.environ.get("ZORVA_KILLS", "20"))
RECORD = 53  # bytes of the history
POSITIONS = {1: [0, 0, 20, 40], 2: [84, 0, 0, 25], 3: [92, 0, 0, 60], 4: [0, 0, 0, 0]}
FILES = {"zorva32", "ZORVA32.HLP", "ZORVA32.INI", "ZORVA32.HIS"}


class Kills(WindowTest):
    def start_and_continue(self, at, game):
        self.program.environment["ZORVA_DIE_AT"] = at
        self.start_with_message(CONTINUE_TITLE if game.in_progress else None)

    def play_until_killed(self, seconds):
        """Plays, from one game into the next, until the program is killed, by us or by itself. Returns the game
        that was in the file just before, and whether a new one was begun."""
        end = time.monotonic() + seconds
        seen, new = self.game(), False
        while self.program.is_running() and time.monotonic() < end:
            if self.title():
                self.display.key("Return")
            elif self.board_is_active() and not seen.in_progress:
                self.display.key("F2")
                new = True
            seen = self.game()
        if self.program.is_running():
            self.program.kill()
        self.assertEqual(self.program.process.returncode, -signal.SIGKILL)
        return seen, new

    def check_files(self, history):
        self.assertLessEqual({entry.name for entry in self.program.folder.iterdir()}, FILES | {"ZORVA32.TMP"})
        now = self.program.history.read_bytes()
        self.assertTrue(now.startswith(history), "the history has changed")
        self.assertEqual(len(now) % RECORD, 0, "a record is torn")
        return now

    def test_any_moment(self):
        signal.alarm(60 + 30 * KILLS)
        chance = random.Random(5)
        history = b"200103050907%-9s%-27s250\r\n" % (b"Ana", b"Luis")
        self.program.history.write_bytes(history)
        self.program.ini.write_bytes(to_bytes(Settings(pause=OFF), game_at(POSITIONS, turn=1)))
        game, compared = self.game(), 0
        for number in range(KILLS):
            at = "%s:%d" % (chance.choice(("write", "rename", "renamed")), chance.randint(1, 40)) if number % 4 else ""
            self.start_and_continue(at, game)
            seen, new = self.play_until_killed(PATIENCE if at else chance.uniform(0, 1.2))
            left, history = self.game(), self.check_files(history)
            if left.in_progress and not new:
                compared += 1
                for before in (seen, game):
                    self.assertEqual(left.records[:before.moves], before.records, "kill %d %s" % (number + 1, at))
            game = left
        self.start_and_continue("", game)
        self.program.process.terminate()
        self.wait_for_end()
        self.assertLessEqual({entry.name for entry in self.program.folder.iterdir()}, FILES)
        print("%d kills, %d of them in a game that went on, %d games ended"
              % (KILLS, compared, len(history) // RECORD - 1), flush=True)
        self.assertGreater(compared, KILLS // 4)
