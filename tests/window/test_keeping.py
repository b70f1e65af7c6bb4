"""The game is never lost: left, ended from outside, started twice."""

import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

import board
from display import BOUND
from driver import ABANDON_TITLE, CONTINUE_TITLE, LOAD_TITLE, POSTPONE_TITLE, WindowTest
from inifile import ON, Settings, game_at, to_bytes

IN_USE_TITLE = "Los ficheros están en uso"
POSITIONS = {1: [76, 76, 20, 40], 2: [84, 0, 84, 25], 3: [92, 92, 0, 60], 4: [100, 0, 100, 100]}


class KeepingTest(WindowTest):
    def start_game(self):
        self.start(Settings(pause=ON), game_at(POSITIONS, turn=1))

    def assert_continues_at(self, game):
        self.assertEqual(self.wait_for_end(), 0)
        self.start_again(continues=True)
        self.wait_until(lambda: not board.difference(self.display.picture(), self.layout, game.positions),
                        "the position that was left")
        self.assertEqual(self.game(), game)
        self.play_moves(2)
        self.assertEqual(self.game().records[:game.moves], game.records)


class Leaving(KeepingTest):
    def test_leave_and_continue(self):
        self.start_game()
        for leave in self.ways_to_leave:
            self.play_moves(4)
            game = self.game()
            leave()
            self.answer(POSTPONE_TITLE, "no")
            self.wait_for_board()
            leave()
            self.answer(POSTPONE_TITLE, "yes")
            self.assert_continues_at(game)


class EndedFromOutside(KeepingTest):
    def test_the_end_of_the_session_keeps_the_game(self):
        self.start_game()
        for signal_number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            self.play_moves(2)
            if signal_number == signal.SIGHUP:
                self.display.key("F2")
                self.wait_for_message(ABANDON_TITLE)
            game = self.game()
            self.program.process.send_signal(signal_number)
            self.assert_continues_at(game)

    def test_a_dead_disk_holds_nothing_up(self):
        game = game_at(POSITIONS, turn=1)
        self.program.ini.write_bytes(to_bytes(Settings(pause=ON), game))
        for call, key in (("fsync", "F3"), ("rename", "space")):
            self.program.environment["ZORVA_HANGS"] = call
            self.start_with_message(CONTINUE_TITLE)
            self.display.key(key)
            begun = time.monotonic()
            self.program.process.terminate()
            self.assertEqual(self.wait_for_end(), 0)
            self.assertLess(time.monotonic() - begun, 2, call)  # a second is promised
            self.assertEqual(self.game(), game)


class StartedTwice(KeepingTest):
    def spawn_copy(self):
        """Another copy of the program, in a folder of its own."""
        copy = Path(tempfile.mkdtemp(dir=self.program.folder.parent), "copy")
        shutil.copytree(self.program.folder, copy)
        process = subprocess.Popen([*BOUND, copy / "zorva32"], env=self.program.environment, stderr=subprocess.PIPE)
        self.addCleanup(process.stderr.close)
        self.addCleanup(process.kill)
        return process

    def test_two_copies_with_one_data_folder(self):
        """The second brings the first to the front; when that does not answer, it says who has the files."""
        (self.program.folder / "CSCD.WRK").mkdir()  # as if the folder were read-only, to root, too
        self.program.data = Path(self.program.environment["HOME"]) / ".local/share/zorva32"
        self.start_with_message(LOAD_TITLE)
        self.wait_for_board()
        second = self.spawn_copy()
        self.assertEqual(second.wait(timeout=20), 0)
        with self.held():
            second = self.spawn_copy()
            self.answer(IN_USE_TITLE, key="Return")
            self.assertEqual(second.wait(timeout=20), 1)
            self.assertIn(str(self.program.data), second.stderr.read().decode())
        self.look_at_window("F4", "Histórico de partidas")
