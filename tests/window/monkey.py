"""A monkey at the window: it clicks, drags, types, resizes and closes without sense, at full speed.

Again and again it stops and leaves the program as a player would. The program must then end with status 0,
which the sanitizers refuse on any finding, and its file must hold a possible position. A program that hangs
cannot be left. The environment variable ZORVA32 names the program; zorva-sim of the same build reads the file.

Usage: monkey.py [--seconds N] [--seed S] [--screen WIDTHxHEIGHT]
"""

import argparse
import os
import random
import subprocess
import sys
import time
from pathlib import Path

import inifile
from display import Display
from driver import Program
from inifile import COLOURS, PIECES
from layout import BUTTONS, RECORDER_KEYS, Layout

ROUND = 15      # seconds of nonsense before the program is left
TO_LEAVE = 120  # seconds that may take
KEYS = ("F1 F2 F3 F4 F5 F6 Return Escape space Tab shift+Tab Left Right Up Down Home End Prior Next BackSpace "
        "Delete Insert s n a z ntilde 0 5 9 plus minus comma quotedbl dead_acute ctrl+Home ctrl+Left ctrl+Right "
        "ctrl+Up ctrl+Down ctrl+End ctrl+a ctrl+v ctrl+c ctrl+Return alt+F4 alt+F4 alt+Tab super F11 Menu").split()
SIZES = ("640 480", "800 600", "1024 768", "1280 720", "1366 768", "300 200", "1920 1080", "700 1000")
# Escape closes a window, F6 asks to leave, Return says yes; ctrl+Home switches the recorder off, Tab and space
# let a colour take part, without which the settings cannot be left.
TO_GET_OUT = ("Escape", "Escape", "F6", "F6", "Return", "ctrl+Home", "Tab", "space")


class Finding(Exception):
    pass


class Monkey:
    def __init__(self, seed, width, height):
        self.chance = random.Random(seed)
        self.display = Display(width, height)
        self.program = Program(self.display, os.environ["ZORVA32"])
        self.sim = Path(os.environ["ZORVA32"]).resolve().parents[1] / "tools/zorva-sim"
        self.layout = Layout(width, height)
        self.done = 0

    def close(self):
        self.program.close()
        self.display.close()

    # -------------------------------------------------------------------------------- nonsense

    def to_somewhere(self):
        """Points at the screen: most of the time at something."""
        chance, layout = self.chance, self.layout
        places = (lambda: layout.button(chance.choice(BUTTONS)),
                  lambda: layout.recorder_key(chance.choice(RECORDER_KEYS)),
                  lambda: layout.square(chance.randint(1, 100)),
                  lambda: layout.box(chance.choice(COLOURS), chance.choice(PIECES)),
                  lambda: layout.house(chance.choice(COLOURS)),
                  lambda: (layout.width / 2 + chance.choice((-64, 0, 64)), layout.height / 2 + chance.randint(0, 120)))
        if chance.random() < 0.6:
            return "mousemove %d %d" % layout.device(chance.choice(places)())
        return "mousemove %d %d" % (chance.randrange(self.display.width), chance.randrange(self.display.height))

    def wander(self, most):
        return [self.to_somewhere() for _ in range(self.chance.randint(1, most))]

    def keys(self, most, names=KEYS):
        return ["key " + self.chance.choice(names) for _ in range(self.chance.randint(1, most))]

    def drag(self):
        button = self.chance.choice((1, 1, 3))
        middle = self.keys(1) if self.chance.random() < 0.3 else []
        up = ["mouseup %d" % button] if self.chance.random() < 0.8 else []
        return [self.to_somewhere(), "mousedown %d" % button, *self.wander(6), *middle, *up]

    def input(self):
        """Some commands for the mouse and the keyboard."""
        chance = self.chance
        ways = {lambda: [self.to_somewhere(), "click %d" % chance.choice((1, 1, 1, 1, 1, 3, 3, 2, 4, 5))]: 30,
                lambda: [self.to_somewhere(), *["click 1"] * chance.randint(2, 4)]: 5,
                self.drag: 14,
                lambda: self.wander(8): 10,
                lambda: self.keys(4): 25,
                # Sense for a moment, or no game would ever get far.
                lambda: self.keys(12, ("space", "Return", "space")): 25,
                lambda: ["key F2", *["key Return"] * 4]: 2,
                lambda: ["type --delay 0 " + chance.choice(("Ñandú", "a" * 20, "€uro", "x,y"))]: 2}
        self.display.act(*chance.choices(list(ways), ways.values())[0]())

    def treat_window(self):
        """Resizes, moves or hides the window; the window manager decides what comes of it."""
        way = self.chance.choice((["windowsize", *self.chance.choice(SIZES).split()], ["windowminimize"],
                                  ["windowmove", *(str(self.chance.randint(-300, 700)) for _ in "xy")]))
        self.ask("getactivewindow", *way)
        if way == ["windowminimize"]:
            self.start_second()

    def start_second(self):
        """A second start brings the first to the front; or becomes the first when that has just ended."""
        first, second = self.program.process, self.program.spawn()
        end = time.monotonic() + TO_LEAVE
        while second.poll() is None and first.poll() is None:
            if time.monotonic() > end:
                second.kill()
                raise Finding("the second start does not end")
            time.sleep(0.01)
        if first.poll() is not None:
            self.check()
            self.program.process = second
        elif second.returncode != 0:
            raise Finding("the second start ended with status %d" % second.returncode)

    def ask(self, *words):
        subprocess.run(["xdotool", *words], env=self.display.environment, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, timeout=TO_LEAVE, check=False)

    # ---------------------------------------------------------------------------------- rounds

    def act(self):
        (self.input if self.chance.random() < 0.97 else self.treat_window)()
        self.done += 1
        if self.chance.random() < 0.2:
            time.sleep(self.chance.uniform(0, 0.03))

    def leave(self):
        """Presses what leaves one window or another, as a player does who only wants to get out."""
        self.display.act(*("mouseup %d" % button for button in (1, 2, 3)),
                         *("keyup " + key for key in ("ctrl", "alt", "shift", "super")))
        end = time.monotonic() + TO_LEAVE
        while self.program.is_running():
            window = self.display.active_window()
            if not self.display.has_manager or time.monotonic() > end:
                raise Finding("cannot be left within %d s; on top is %s" % (TO_LEAVE, window))
            if window is None:
                self.ask("search", "--class", "zorva32", "windowactivate", "%@")
            self.display.act(*self.keys(1, TO_GET_OUT))
            time.sleep(0.1)

    def check(self):
        status = self.program.process.returncode
        if status != 0:
            raise Finding("the program ended with status %d" % status)
        read = subprocess.run([self.sim, "match", "--games", "1", "--seed", "1", "--threads", "1",
                               "--settings", self.program.ini], stdout=subprocess.DEVNULL, check=False)
        if read.returncode != 0:
            raise Finding("the file cannot be read")
        strange = {entry.name for entry in self.program.folder.iterdir()} - {"zorva32", "ZORVA32.HLP", "ZORVA32.INI",
                                                                              "ZORVA32.HIS"}
        if strange:
            raise Finding("files are left over: %s" % sorted(strange))

    def round(self, seconds):
        if self.chance.random() < 0.3:
            types, active = (tuple(self.chance.choice((1, 1, 2)) for _ in COLOURS) for _ in range(2))
            pause, tutor, order = (self.chance.choice((1, 2)) for _ in range(3))
            settings = inifile.Settings(types=types, active=active, pause=pause, tutor=tutor, order=order)
            self.program.ini.write_bytes(inifile.to_bytes(settings))
        self.program.start()
        end = time.monotonic() + seconds
        while time.monotonic() < end and self.program.is_running():
            self.act()
        self.leave()
        self.check()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--seconds", type=float, default=60)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--screen", default="1024x768")
    options = parser.parse_args()
    monkey = Monkey(options.seed, *map(int, options.screen.split("x")))
    end = time.monotonic() + options.seconds
    rounds = games = 0
    try:
        while time.monotonic() < end:
            monkey.round(min(ROUND, max(1, end - time.monotonic())))
            rounds += 1
            games += b"\r\n-1," in monkey.program.ini.read_bytes()
    except Finding as finding:
        monkey.display.picture().save(os.path.join(os.environ.get("ZORVA_PICTURES", "."), "monkey.png"))
        print("seed %d, round %d, action %d: %s" % (options.seed, rounds + 1, monkey.done, finding))
        return 1
    finally:
        monkey.close()
    print("seed %d: %d actions in %d rounds, %d of them left in the middle of a game"
          % (options.seed, monkey.done, rounds, games))
    return 0


if __name__ == "__main__":
    sys.exit(main())
