"""What a player sees when the surroundings are against the game; nothing is lost by it."""

import os
import subprocess
import time
import unittest

import board
from driver import LOAD_TITLE, SAVE_TITLE, SIXES_TITLE, WindowTest
from inifile import ON, Settings, game_at
from layout import Layout

POSITIONS = {1: [0, 0, 20, 40], 2: [84, 0, 0, 25], 3: [92, 0, 0, 60], 4: [0, 0, 0, 0]}
RECORD = b"200103050907Ana      Luis     Eva               250\r\n"


class CommandLine(unittest.TestCase):
    def test_without_a_display(self):
        rows = ((("--version",), 0, r"zorva32 \d+\.\d+\.\d+\n", ""), (("--help",), 0, r"Uso: zorva32 (.*\n)+", ""),
                (("--sound",), 2, "", "zorva32: opción desconocida: «--sound».*\n"),
                ((), 1, "", "zorva32: no se puede abrir la ventana.*\n"),
                (("-session", "1"), 1, "", "zorva32: no se puede abrir la ventana.*\n"))
        for environment in ({}, {"DISPLAY": ":none"}, {"QT_QPA_PLATFORM": "none"}):
            for options, status, *streams in rows:
                done = subprocess.run([os.environ["ZORVA32"], *options], env=environment, capture_output=True, text=True)
                self.assertEqual(done.returncode, status, options)
                for stream, expected in zip((done.stdout, done.stderr), streams):
                    self.assertRegex(stream, "^%s$" % expected)


class HostileTest(WindowTest):
    def begin(self):
        self.start(Settings(pause=ON), game_at(POSITIONS, turn=1))

    def throw(self):
        """By a click: unlike a key it answers no message that has just come."""
        if self.title() == SIXES_TITLE:
            self.answer(SIXES_TITLE)
        self.click_board()
        self.settle()


class Files(HostileTest):
    def test_folder_removed_while_playing(self):
        """The player is told once, the game goes on, and is kept again as soon as the folder is back."""
        self.begin()
        aside = self.program.folder.parent / "aside"
        os.rename(self.program.folder, aside)
        self.wait_until(lambda: self.throw() or self.title() == SAVE_TITLE, "the message " + SAVE_TITLE)
        self.answer(SAVE_TITLE)
        for _ in range(10):
            self.throw()
            self.assertIn(self.title(), (None, SIXES_TITLE), "told again")
        os.rename(aside, self.program.folder)
        moves = self.game().moves
        self.throw()
        self.assertGreater(self.wait_for_moves(moves + 1).moves, moves + 5, "the game stood still")

    def test_whatever_lies_in_place_of_the_settings(self):
        """It is told by its number, kept under another name, and the game starts with the defaults."""
        ini = self.program.ini
        rows = (("nothing", lambda: None), ("a folder", ini.mkdir), ("an empty file", ini.touch),
                ("100 megabytes", lambda: ini.write_bytes(bytes(100_000_000))))
        for number, (name, put) in enumerate(rows):
            ini.unlink(missing_ok=True)
            put()
            self.start_with_message(LOAD_TITLE)
            if number > 0:
                self.answer(LOAD_TITLE, key="Return")  # where the file lies
            self.wait_for_board()
            kept = self.program.folder / ("ZORVA32-%d.MAL" % number)
            self.assertEqual(kept.exists(), number > 0, name)
            self.assertEqual(self.program.settings(), Settings(pause=ON, tutor=ON, speed=50), name)
            self.assertFalse(self.game().in_progress)
            self.assertEqual(list(self.program.folder.glob("*.WRK")), [])
            self.program.kill()

    def test_a_history_of_a_million_games(self):
        self.program.history.write_bytes(RECORD * 1_000_000)
        self.start(Settings(pause=ON))
        begun = time.monotonic()
        self.look_at_window("F4", "Histórico de partidas")
        self.assertLess(time.monotonic() - begun, 5)


class Screens(HostileTest):
    screen = (1366, 768)

    def xrandr(self, *arguments):
        subprocess.run(["xrandr", *map(str, arguments)], env=self.display.environment, check=True)

    def test_another_size_while_playing(self):
        """The board follows, and a click hits what is seen."""
        self.begin()
        for width, height in ((1024, 768), (800, 600), (640, 480), self.screen):
            mode = "%dx%d-here" % (width, height)
            self.xrandr("--newmode", mode, 60, width, width + 8, width + 16, width + 32,
                        height, height + 1, height + 2, height + 3)
            self.xrandr("--addmode", "screen", mode)
            self.xrandr("--output", "screen", "--mode", mode)
            self.layout = Layout(width, height)
            self.wait_until(lambda: not board.difference(self.display.picture(), self.layout, self.game().positions),
                            "the board in %d x %d" % (width, height))
            moves = self.game().moves
            self.wait_until(lambda: self.game().moves > moves or self.throw(), "a move by a click")
