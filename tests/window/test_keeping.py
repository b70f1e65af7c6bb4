"""The game is never lost: left, ended from outside, started twice, begun anew."""

import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

import board
from display import BOUND
from driver import ABANDON_TITLE, CONTINUE_TITLE, LOAD_TITLE, POSTPONE_TITLE, SAVE_TITLE, START_TITLE, WindowTest
from inifile import COLOURS, COMPUTER, OFF, ON, PERSON, Settings, game_at, to_bytes

IN_USE_TITLE = "Los ficheros están en uso"
POSITIONS = {1: [76, 76, 20, 40], 2: [84, 0, 84, 25], 3: [92, 92, 0, 60], 4: [100, 0, 100, 100]}


class KeepingTest(WindowTest):
    def start_game(self, **settings):
        self.start(Settings(**{"pause": ON, **settings}), game_at(POSITIONS, turn=1))

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

    def test_leave_while_a_move_is_awaited(self):
        self.start_game(types=(PERSON, COMPUTER, COMPUTER, COMPUTER))
        game = self.game()
        self.click_board()
        self.display.key("F6")
        self.answer(POSTPONE_TITLE, key="space")
        self.assert_continues_at(game)

    def test_leave_while_the_computers_play(self):
        self.start_game(pause=OFF, speed=80)
        self.display.key("F6")
        self.answer(POSTPONE_TITLE, "yes")
        self.assertEqual(self.wait_for_end(), 0)
        self.assertTrue(self.game().in_progress)

    def test_leave_without_a_folder(self):
        """Saving fails: the player is asked, stays, and leaves with the game when the folder is back; or without."""
        self.start_game()
        self.play_moves(2)
        game, aside = self.game(), self.program.folder.parent / "aside"
        for stays in (True, False):
            self.program.folder.rename(aside)
            self.display.key("F6")
            self.answer(POSTPONE_TITLE, "yes")
            self.answer(SAVE_TITLE, *(("accept", "space") if stays else ("no",)))
            if stays:
                self.wait_for_board()
                aside.rename(self.program.folder)
                self.display.key("F6")
                self.answer(POSTPONE_TITLE, "no")
                self.wait_for_board()
        self.assertEqual(self.wait_for_end(), 0)
        aside.rename(self.program.folder)
        self.assertEqual(self.game(), game)

    def test_leave_without_a_game(self):
        for leave in self.ways_to_leave:
            self.start(Settings())
            leave()
            self.assertEqual(self.wait_for_end(), 0)


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


class BeginningAnew(KeepingTest):
    def test_a_new_game_inside_a_running_one(self):
        self.start_game()
        game = self.game()
        self.click_button("new game")
        self.wait_for_message(ABANDON_TITLE)
        self.assertEqual(self.program.spawn().wait(timeout=20), 0, "a second start behind the question")
        self.answer(ABANDON_TITLE, "no")
        self.wait_for_board()
        self.assertEqual(self.game().records, game.records)
        self.display.key("F2")
        self.answer(ABANDON_TITLE, "yes")
        self.wait_for_message(START_TITLE)
        self.assertFalse(self.game().in_progress, "the abandoned game is still in the file")
        self.answer(START_TITLE, "yes")
        self.play_moves(4)
        self.assertEqual([self.game().home(colour) for colour in COLOURS], [0] * 4)


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
