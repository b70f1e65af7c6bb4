"""What a player sees when the surroundings are against the game; nothing is lost by it."""

import fcntl
import os
import subprocess
import time
import unittest

import board
from driver import CONTINUE_TITLE, LOAD_TITLE, SIXES_TITLE, WindowTest
from inifile import OFF, ON, Settings, game_at, to_bytes
from layout import Layout

POSITIONS = {1: [0, 0, 20, 40], 2: [84, 0, 0, 25], 3: [92, 0, 0, 60], 4: [0, 0, 0, 0]}
SAVE_TITLE = "No se puede guardar"
RECORD = b"200103050907Ana      Luis     Eva               250\r\n"


class Disk(WindowTest):
    def throw(self):
        """By a click: unlike a key it answers no message that has just come."""
        if self.title() == SIXES_TITLE:
            self.answer(SIXES_TITLE)
        self.click_board()

    def throw_until(self, title):
        """Throws until that message is open."""
        self.wait_until(lambda: self.title() == title or self.throw(), "the message " + title)

    def assert_told_once_and_kept_later(self, back):
        """It is told that nothing can be written, the game goes on, and is kept as soon as it can be."""
        self.throw_until(SAVE_TITLE)
        self.answer(SAVE_TITLE)
        spent = self.program.processor_seconds()
        for _ in range(20):
            self.throw()
            self.assertIn(self.title(), (None, SIXES_TITLE), "told again")
        self.assertGreater(self.program.processor_seconds(), spent, "the game stands still")
        back()
        self.wait_until(lambda: self.throw() or self.program.ini.exists() and
                        self.program.ini.read_bytes() != self.before, "the game to be kept again")
        self.program.kill()
        self.program.start()
        self.skip_title()
        self.answer(CONTINUE_TITLE)
        self.wait_for_board()

    def begin(self):
        self.start(Settings(pause=ON), game_at(POSITIONS, turn=1))
        self.before = self.program.ini.read_bytes()

    def test_full(self):
        sign = self.program.folder.parent / "full"
        self.program._environment["LD_PRELOAD"] = ":".join(filter(None, (
            os.environ.get("ZORVA_SAME_DICE"), os.environ["ZORVA_DIE_AT_LIBRARY"])))
        self.program._environment["ZORVA_DISK_FULL_WHILE"] = str(sign)
        self.begin()
        sign.touch()
        self.throw_until(SAVE_TITLE)
        self.assertEqual(self.program.ini.read_bytes(), self.before, "the last good file is gone")
        self.assertEqual({entry.name for entry in self.program.folder.iterdir()} - {"ZORVA32.HLP"},
                         {"zorva32", "ZORVA32.INI"})
        self.assert_told_once_and_kept_later(sign.unlink)

    def test_folder_removed_while_playing(self):
        self.begin()
        aside = self.program.folder.parent / "aside"
        os.rename(self.program.folder, aside)
        self.assert_told_once_and_kept_later(lambda: os.rename(aside, self.program.folder))


class Files(WindowTest):
    def put_hole(self, size):
        with open(self.program.ini, "wb") as file:
            file.truncate(size)

    def test_whatever_lies_in_place_of_the_settings(self):
        """It is told by its number, kept under another name, and the game starts with the defaults."""
        rows = (("a folder", lambda: self.program.ini.mkdir(), "is_dir"),
                ("nothing in it", lambda: self.put_hole(0), "is_file"),
                ("100 megabytes", lambda: self.put_hole(100_000_000), "is_file"))
        for number, (name, put, kind) in enumerate(rows, 1):
            self.program.ini.unlink(missing_ok=True)
            put()
            self.program.start()
            self.skip_title()
            self.answer(LOAD_TITLE)
            self.wait_for_board()
            kept = self.program.folder / ("ZORVA32-%d.MAL" % number)
            self.assertTrue(getattr(kept, kind)(), name)
            self.assertEqual(self.program.settings(), Settings(pause=ON, tutor=ON, speed=50), name)
            self.program.kill()

    def test_settings_that_another_program_holds(self):
        self.program.ini.write_bytes(to_bytes(Settings(pause=ON), game_at(POSITIONS, turn=1)))
        with open(self.program.ini, "r+b") as held:
            fcntl.flock(held, fcntl.LOCK_EX)
            fcntl.lockf(held, fcntl.LOCK_EX)
            self.start_again(continues=True)
            self.play_moves(3)

    def test_a_history_of_a_million_games(self):
        self.program.history.write_bytes(RECORD * 1_000_000)
        self.start(Settings(pause=ON))
        begun = time.monotonic()
        self.display.key("F4")
        window = self.wait_until(lambda: (w := self.display.active_window()) and w.title != "Zorva" and w, "the history")
        self.assertLess(time.monotonic() - begun, 5)
        self.display.key("Next", "Next", "Escape")
        self.wait_until_gone(window)
        self.wait_for_board()

    def test_without_the_manual(self):
        (self.program.folder / "ZORVA32.HLP").unlink()
        self.start(Settings(pause=ON))
        self.display.key("F1")
        window = self.wait_until(lambda: (w := self.display.active_window()) and w.title != "Zorva" and w,
                                 "what F1 opens")
        self.display.key("Escape")
        self.wait_until_gone(window)
        self.wait_for_board()


class Screens(WindowTest):
    screen = (1366, 768)

    def xrandr(self, *arguments):
        subprocess.run(["xrandr", *map(str, arguments)], env=self.display.environment, check=True)

    def test_another_size_while_playing(self):
        """The board follows, and what is clicked is what is seen."""
        self.start(Settings(pause=ON), game_at(POSITIONS, turn=1))
        for width, height in ((1024, 768), (800, 600), (1280, 720), (640, 480), self.screen):
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

    def throw(self):
        if self.title() == SIXES_TITLE:
            self.display.key("Return")
        self.click_board()


class Languages(WindowTest):
    def test_none_at_all(self):
        for name in [name for name in self.program._environment if name.startswith("LC_") or name == "LANG"]:
            del self.program._environment[name]
        game = game_at({1: [76, 76, 76, 68], 3: [92, 92, 92, 34]}, turn=1)
        settings = Settings(pause=OFF, names=("Ñu", "Ana", "Íñigo", "Verde"), active=(ON, OFF, ON, OFF))
        self.program.ini.write_bytes(to_bytes(settings, game))
        self.program.start()
        self.skip_title()
        self.wait_until(lambda: self.display.key("Return") or self.program.history.exists(), "the end of the game")
        line = self.program.history.read_bytes()
        self.assertEqual(len(line), len(RECORD))
        self.assertRegex(line[48:51], rb"\d{3}")


if __name__ == "__main__":
    unittest.main()
