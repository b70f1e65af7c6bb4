"""Plays a thousand whole games in one run of the program, at full speed, and measures whether it grows.

Every tenth game is given up in the middle for a new one, which does not count. The environment
variable ZORVA32 names the program. Prints memory, open files, threads and stack as a table, and ends
with status 1 when one of them grows.

Usage: long_run.py [--games N] [--minutes M]
"""

import argparse
import os
import re
import statistics
import sys
import time

import inifile
from display import Display
from driver import PATIENCE, Program

RECORD = 53        # bytes of the history: one finished game
SAMPLES = 100      # rows of the table
MAY_GROW = {"own KiB": 1024, "RSS KiB": 1024, "files": 0, "threads": 0, "stack KiB": 0}


class LongRun:
    def __init__(self):
        self.display = Display(1024, 768)
        self.program = Program(self.display, os.environ["ZORVA32"])
        # Two colours: each game has all that a game can have, and is over sooner.
        two = (inifile.ON, inifile.OFF, inifile.ON, inifile.OFF)
        self.program.ini.write_bytes(inifile.to_bytes(inifile.Settings(active=two)))
        self.given_up = 0

    def close(self):
        self.program.close()
        self.display.close()

    def start(self):
        self.program.start()
        self.wait_until(lambda: (window := self.display.active_window()) and self.display.is_dialog(window))
        self.display.key("space")
        self.wait_until(self.board_is_active)

    def wait_until(self, condition):
        end = time.monotonic() + PATIENCE
        while not condition():
            if time.monotonic() > end or not self.program.is_running():
                raise RuntimeError("the program stands still")
            time.sleep(0.02)

    def finished(self):
        return self.program.history.stat().st_size // RECORD if self.program.history.exists() else 0

    def play_one(self, give_up):
        """F2 asks for a new game; Return says yes to every message on the way."""
        before = self.finished()
        self.wait_until(self.board_is_active)
        self.display.key("F2")
        asked = time.monotonic()
        while self.finished() == before:
            self.display.key("Return")
            moves = self.program.game().moves
            if give_up and moves > 20:
                give_up = False
                self.given_up += 1
                self.display.key("F2")
            if moves > 0:
                asked = time.monotonic()
            elif time.monotonic() - asked > PATIENCE and self.board_is_active():
                raise RuntimeError("no game begins")
            if not self.program.is_running():
                raise RuntimeError("the program ended with status %s" % self.program.process.returncode)
            time.sleep(0.05)

    def board_is_active(self):
        window = self.display.active_window()
        return window is not None and window.title == "Zorva" and not self.display.is_dialog(window)

    def measure(self):
        pid = self.program.process.pid
        with open("/proc/%d/status" % pid) as file:
            status = dict(re.findall(r"^(\w+):\s+(\d+)", file.read(), re.M))
        with open("/proc/%d/smaps_rollup" % pid) as file:
            own = int(re.search(r"^Private_Dirty:\s+(\d+)", file.read(), re.M).group(1))
        with open("/proc/%d/maps" % pid) as file:
            if re.search(r" rwx", file.read()):
                raise RuntimeError("memory is writable and executable")
        return {"own KiB": own, "RSS KiB": int(status["VmRSS"]), "files": len(os.listdir("/proc/%d/fd" % pid)),
                "threads": int(status["Threads"]), "stack KiB": int(status["VmStk"])}


def growth(rows, key):
    """From the second tenth, when all is warm, to the last."""
    tenth = max(1, len(rows) // 10)
    values = [row[key] for row in rows]
    return statistics.median(values[-tenth:]) - statistics.median(values[tenth:2 * tenth])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--games", type=int, default=1000)
    parser.add_argument("--minutes", type=float, default=24 * 60, help="ends earlier after that time")
    options = parser.parse_args()
    games = options.games
    run = LongRun()
    rows = []
    try:
        run.start()
        begun = time.monotonic()
        print("games", *MAY_GROW, sep="\t")
        for game in range(1, games + 1):
            run.play_one(give_up=game % 10 == 0)
            if game % max(1, games // SAMPLES) == 0:
                rows.append(run.measure())
                print(game, *rows[-1].values(), sep="\t", flush=True)
            if time.monotonic() - begun > 60 * options.minutes:
                games = game
                break
        seconds = time.monotonic() - begun
    finally:
        run.close()
    print("%d games to their end and %d given up, %.0f s" % (games, run.given_up, seconds))
    grown = {key: growth(rows, key) for key in MAY_GROW}
    print("grown by", grown)
    return any(grown[key] > MAY_GROW[key] for key in MAY_GROW)


if __name__ == "__main__":
    sys.exit(main())
