#!/usr/bin/env python3
"""How long the game takes to start and what memory it holds, beside a bare window of Qt.

    bench/start.py BUILD [--runs N] [--screen 1920x1080]

BUILD is a build folder made with ZORVA_BENCH=ON. Both programs are started in turn, on one virtual screen,
and the screen's own memory is looked at: a time ends when the image has changed there. Printed are the
medians, and the medians of the ratios of neighbours.
"""

import argparse
import mmap
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests/window"))

import inifile
from display import BOUND, Display, Picture

LOOK = 0.0004  # seconds between two looks
LIMIT = 20


class Screen:
    """The pixels of a virtual screen, read while it is drawn to."""

    def __init__(self, display):
        self._file = open(display.memory_file, "rb")
        self._map = mmap.mmap(self._file.fileno(), 0, prot=mmap.PROT_READ)
        picture = Picture(self._map[:])
        self.width, self.height = picture.width, picture.height
        self._row, self._start = picture.row_bytes, picture.start

    def row(self, y, left=0.0, right=1.0):
        """The bytes of a part of a line of the screen."""
        at = self._start + y * self._row
        return self._map[at + int(self.width * left) * 4:at + int(self.width * right) * 4]

    def wait_for_change(self, y, before, left=0.0, right=1.0):
        end = time.perf_counter() + LIMIT
        while self.row(y, left, right) == before:
            if time.perf_counter() > end:
                raise RuntimeError("nothing is drawn")
            time.sleep(LOOK)
        return time.perf_counter()


def memory(process):
    """The proportional set size in MiB."""
    with open("/proc/%d/smaps_rollup" % process.pid) as file:
        for line in file:
            if line.startswith("Pss:"):
                return int(line.split()[1]) / 1024
    return 0


def processor_time(process):
    with open("/proc/%d/stat" % process.pid) as file:
        user, system = file.read().rpartition(")")[2].split()[11:13]
    return (int(user) + int(system)) * 1000 / os.sysconf("SC_CLK_TCK")


def start(program, display, folder):
    environment = dict(display.environment, HOME=str(folder), XDG_RUNTIME_DIR=str(folder),
                       SDL_AUDIODRIVER="dummy")
    begin = time.perf_counter()
    process = subprocess.Popen([*BOUND, program], env=environment, cwd=folder)
    return process, begin


def end(process, screen, before):
    process.kill()
    process.wait()
    deadline = time.perf_counter() + LIMIT
    while screen.row(screen.height // 2) != before and time.perf_counter() < deadline:
        time.sleep(0.01)
    time.sleep(0.1)


def measure_bare(program, display, screen, folder):
    before = screen.row(screen.height // 2)
    process, begin = start(program, display, folder)
    painted = screen.wait_for_change(screen.height // 2, before)
    time.sleep(1)
    result = {"first picture, ms": (painted - begin) * 1000, "memory, MiB": memory(process)}
    end(process, screen, before)
    return result


def measure_game(program, display, screen, folder, board):
    """`board` is what the middle of the screen shows when the board is up; None to find that out."""
    (folder / "ZORVA32.INI").write_bytes(inifile.to_bytes(inifile.Settings(speed=50)))
    middle = screen.height // 2
    before = screen.row(middle)
    process, begin = start(program, display, folder)
    title = screen.wait_for_change(middle, before)
    if board is None:
        time.sleep(9)  # until the title has ended by itself
        board = screen.row(middle)
        end(process, screen, before)
        return board
    up = end_title(display, screen, board)
    time.sleep(2)
    result = {"first picture, ms": (title - begin) * 1000, "board, ms": (up - begin) * 1000,
              "memory, MiB": memory(process), "processor, ms": processor_time(process),
              "answer to a key, ms": time_of_answer(display, screen)}
    end(process, screen, before)
    return result


def point_at_title(display, screen):
    """Below the line that is looked at: the cursor is part of the image."""
    display.move(screen.width // 2, round(screen.height * 0.55))


def end_title(display, screen, board):
    """Breaks the title off, with the first click that it takes. It may not have the keyboard yet."""
    asked, deadline = 0, time.perf_counter() + LIMIT
    while screen.row(screen.height // 2) != board:
        if time.perf_counter() > deadline:
            raise RuntimeError("the board does not come")
        if time.perf_counter() - asked > 0.05:
            display.act("mousedown 1", "mouseup 1")
            asked = time.perf_counter()
        time.sleep(LOOK)
    return time.perf_counter()


def time_of_answer(display, screen):
    """Until a key without a game makes the button for a new game glow anew, which it does below speed 100 alone."""
    line = round(screen.height * 0.17)
    panel = screen.row(line, 0.65)
    asked = time.perf_counter()
    display.act("key space")
    return (screen.wait_for_change(line, panel, 0.65) - asked) * 1000


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=lambda text: Path(text).resolve())
    parser.add_argument("--runs", type=int, default=15)
    parser.add_argument("--screen", default="1920x1080")
    arguments = parser.parse_args()
    width, height = map(int, arguments.screen.split("x"))
    display = Display(width, height)
    folder = Path(tempfile.mkdtemp(prefix="zorva-start-"))
    try:
        game = shutil.copy2(arguments.build / "app/zorva32", folder)
        shutil.copy2(arguments.build / "app/ZORVA32.HLP", folder)
        bare = arguments.build / "bench/bare-window"
        screen = Screen(display)
        point_at_title(display, screen)
        measure_bare(bare, display, screen, folder)  # fills the caches of the disk
        board = measure_game(game, display, screen, folder, None)
        rows = [(measure_bare(bare, display, screen, folder),
                 measure_game(game, display, screen, folder, board)) for _ in range(arguments.runs)]
        report(rows, arguments.screen)
    finally:
        display.close()
        shutil.rmtree(folder)


def report(rows, screen):
    print("%s, %d pairs, medians" % (screen, len(rows)))
    for what in rows[0][0]:
        print("  bare window: %-22s %7.1f" % (what, statistics.median(bare[what] for bare, _ in rows)))
    for what in rows[0][1]:
        print("  the game:    %-22s %7.1f" % (what, statistics.median(game[what] for _, game in rows)))
    for what in ("first picture, ms", "board, ms"):
        ratios = [game[what] / bare["first picture, ms"] for bare, game in rows]
        print("  %s over the bare window's first: %.2f" % (what.split(",")[0], statistics.median(ratios)))


if __name__ == "__main__":
    main()
