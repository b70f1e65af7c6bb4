"""A monkey at the window: it clicks, drags, types, resizes and closes without sense, at full speed.

Again and again it stops and leaves the program as a player would. The program must then end with status 0,
which the sanitizers refuse on any finding, and its file must hold a possible position, by zorva-sim of the same
build. A program that hangs cannot be left. The environment variables ZORVA_SECONDS, ZORVA_SEED and ZORVA_SCREEN
say how long the monkey plays, which nonsense, and on a screen of which size.
"""

import os
import random
import signal
import subprocess
import time
from pathlib import Path

import inifile
from driver import WindowTest
from inifile import COLOURS, PIECES
from layout import BUTTONS, RECORDER_KEYS

SECONDS = float(os.environ.get("ZORVA_SECONDS", "60"))
ROUND = 15     # seconds of nonsense before the program is left
TO_LEAVE = 60  # seconds that may take
KEYS = ("F1 F2 F3 F4 F5 F6 Return Escape space Tab shift+Tab Left Right Up Down Home End Prior Next BackSpace "
        "Delete Insert s n a z ntilde 0 5 9 plus minus comma quotedbl dead_acute ctrl+Home ctrl+Left ctrl+Right "
        "ctrl+Up ctrl+Down ctrl+End ctrl+a ctrl+v ctrl+c ctrl+Return alt+F4 alt+F4 alt+Tab super F7 F7 F11 F12 Menu").split()
SIZES = ("640 480", "800 600", "1024 768", "1280 720", "1366 768", "300 200", "1920 1080", "700 1000")
# Escape closes a window, F6 asks to leave, Return says yes; ctrl+Home switches the recorder off, Tab and space
# let a colour take part, without which the settings cannot be left.
TO_GET_OUT = ("Escape", "Escape", "F6", "F6", "Return", "ctrl+Home", "Tab", "space")


class Monkey(WindowTest):
    screen = tuple(map(int, os.environ.get("ZORVA_SCREEN", "1024x768").split("x")))
    dice_fall_the_same_way = False  # the library for that would come before the sanitizers'

    def to_somewhere(self):
        chance, layout = self.chance, self.layout
        places = (lambda: layout.button(chance.choice(BUTTONS)),
                  lambda: layout.recorder_key(chance.choice(RECORDER_KEYS)),
                  lambda: layout.square(chance.randint(1, 100)),
                  lambda: layout.box(chance.choice(COLOURS), chance.choice(PIECES)),
                  lambda: layout.house(chance.choice(COLOURS)),
                  lambda: (layout.width / 2 + chance.choice((-64, 0, 64)), layout.height / 2 + chance.randint(0, 120)))
        anywhere = [chance.randrange(size) for size in self.screen]
        return "mousemove %d %d" % (layout.device(chance.choice(places)()) if chance.random() < 0.6 else (*anywhere,))

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

    def ask_manager(self, *words):
        subprocess.run(["xdotool", *words], env=self.display.environment, capture_output=True, timeout=TO_LEAVE,
                       check=False)

    def treat_window(self):
        way = self.chance.choice((["windowsize", *self.chance.choice(SIZES).split()], ["windowminimize"],
                                  ["windowmove", *(str(self.chance.randint(-300, 700)) for _ in "xy")]))
        self.ask_manager("getactivewindow", *way)
        if way == ["windowminimize"]:
            self.start_second()

    def start_second(self):
        """A second start brings the first to the front; or becomes the first when that has just ended."""
        first, second = self.program.process, self.program.spawn()
        self.wait_until(lambda: second.poll() is not None or first.poll() is not None, "one of two", TO_LEAVE)
        if first.poll() is not None:
            self.check()
            self.program.process = second
        else:
            self.assertEqual(second.returncode, 0, "the second start")

    def leave(self):
        self.display.act(*("mouseup %d" % button for button in (1, 2, 3)),
                         *("keyup " + key for key in ("ctrl", "alt", "shift", "super")))

        def is_out():
            self.assertIsNone(self.display.manager_process.poll(), "the window manager has ended")
            if self.display.active_window() is None:
                self.ask_manager("search", "--class", "zorva32", "windowactivate", "%@")
            self.display.act(*self.keys(1, TO_GET_OUT))
            time.sleep(0.1)
            return not self.program.is_running()

        self.wait_until(is_out, "the way out", TO_LEAVE)

    def check(self):
        self.assertEqual(self.program.process.returncode, 0, "the program's status")
        sim = Path(os.environ["ZORVA32"]).resolve().parents[1] / "tools/zorva-sim"
        subprocess.run([sim, "match", "--games", "1", "--seed", "1", "--threads", "1", "--settings", self.program.ini],
                       stdout=subprocess.DEVNULL, check=True)
        self.assertLessEqual({entry.name for entry in self.program.folder.iterdir()},
                             {"zorva32", "ZORVA32.HLP", "ZORVA32.INI", "ZORVA32.HIS"})

    def round(self, seconds):
        if self.chance.random() < 0.3:
            types, active = (tuple(self.chance.choice((1, 1, 2)) for _ in COLOURS) for _ in range(2))
            choices = {name: self.chance.choice((1, 2)) for name in ("pause", "tutor", "order")}
            self.program.ini.write_bytes(inifile.to_bytes(inifile.Settings(types=types, active=active, **choices)))
        self.program.start()
        end = time.monotonic() + seconds
        while time.monotonic() < end and self.program.is_running():
            (self.input if self.chance.random() < 0.97 else self.treat_window)()
            self.done += 1
            if self.chance.random() < 0.2:
                time.sleep(self.chance.uniform(0, 0.03))
        self.leave()
        self.check()

    def test_nonsense(self):
        signal.alarm(0)
        self.chance, self.done = random.Random(int(os.environ.get("ZORVA_SEED", "1"))), 0
        end = time.monotonic() + SECONDS
        rounds = games = 0
        while time.monotonic() < end:
            self.round(min(ROUND, max(1, end - time.monotonic())))
            rounds += 1
            games += b"\r\n-1," in self.program.ini.read_bytes()
        print("%d actions in %d rounds, %d of them left in the middle of a game" % (self.done, rounds, games))
