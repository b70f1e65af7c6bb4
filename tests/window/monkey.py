"""A monkey at the window: it clicks, drags, types, resizes and closes without sense, at full speed.

Again and again it stops and leaves the program as a player would. The program must then end with
status 0, which the sanitizers refuse on any finding, and its file must hold a possible position. A
program that hangs cannot be left. The environment variable ZORVA32 names the program, ZORVA_SIM the
player without a window, which reads the file.

Usage: monkey.py [--seconds N] [--seed S] [--screen WIDTHxHEIGHT]
"""

import argparse
import os
import random
import subprocess
import sys
import time

import inifile
from display import Display
from driver import ABOVE_EDGE, MESSAGE_BUTTONS, Program
from layout import BUTTONS, COLOURS, PIECES, RECORDER_KEYS, Layout

ROUND = 15    # seconds of nonsense before the program is left
TO_LEAVE = 120 # seconds that may take
KEYS = ("F1 F2 F3 F4 F5 F6 Return Escape space Tab shift+Tab Left Right Up Down Home End Prior Next BackSpace "
        "Delete Insert s n a z ntilde 0 5 9 plus minus comma quotedbl dead_acute ctrl+Home ctrl+Left ctrl+Right "
        "ctrl+Up ctrl+Down ctrl+End ctrl+a ctrl+v ctrl+c ctrl+Return alt+F4 alt+F4 alt+Tab super F11 Menu").split()
SIZES = ((640, 480), (800, 600), (1024, 768), (1280, 720), (1366, 768), (300, 200), (1920, 1080), (700, 1000))
# What ends each question without staying: the leave is confirmed, all others are refused.
YES = ("Posponer la partida en curso", "Salir del programa")


class Finding(Exception):
    pass


class Monkey:
    def __init__(self, seed, width, height):
        self.chance = random.Random(seed)
        self.display = Display(width, height)
        self.program = Program(self.display, os.environ["ZORVA32"])
        self.layout = Layout(width, height)
        self.done = 0
        # On a second desktop, to which a wheel leads, the window manager would let nothing come to the front.
        self.display.act("set_num_desktops 1")

    def close(self):
        self.program.close()
        self.display.close()

    # -------------------------------------------------------------------------------- nonsense

    def somewhere(self):
        """A point of the screen: half of the time where something is."""
        chance, layout = self.chance, self.layout
        places = (lambda: layout.button(chance.choice(BUTTONS)),
                  lambda: layout.recorder_key(chance.choice(list(RECORDER_KEYS))),
                  lambda: layout.square(chance.randint(1, 100)),
                  lambda: layout.box(chance.choice(COLOURS), chance.choice(PIECES)),
                  lambda: layout.house(chance.choice(COLOURS)),
                  lambda: (layout.width / 2 + chance.choice((-64, 0, 64)), layout.height / 2 + chance.randint(0, 120)))
        if chance.random() < 0.6:
            return layout.device(chance.choice(places)())
        return (chance.randint(0, self.display.width - 1), chance.randint(0, self.display.height - 1))

    def click(self):
        button = self.chance.choice((1, 1, 1, 1, 1, 3, 3, 2, 4, 5))
        self.display.act("mousemove %d %d" % self.somewhere(), "click %d" % button)

    def double_click(self):
        self.display.act("mousemove %d %d" % self.somewhere(), *["click 1"] * self.chance.randint(2, 4))

    def drag(self):
        button = self.chance.choice((1, 1, 3))
        moves = ["mousemove %d %d" % self.somewhere() for _ in range(self.chance.randint(1, 6))]
        middle = ["key %s" % self.chance.choice(KEYS)] if self.chance.random() < 0.3 else []
        up = ["mouseup %d" % button] if self.chance.random() < 0.8 else []
        self.display.act("mousemove %d %d" % self.somewhere(), "mousedown %d" % button, *moves, *middle, *up)

    def point(self):
        self.display.act(*("mousemove %d %d" % self.somewhere() for _ in range(self.chance.randint(1, 8))))

    def leave_window(self):
        edge = self.chance.choice(((0, 0), (self.display.width - 1, 0), (0, self.display.height - 1)))
        self.display.act("mousemove %d %d" % edge)

    def key(self):
        self.display.act(*("key %s" % self.chance.choice(KEYS) for _ in range(self.chance.randint(1, 4))))

    def play(self):
        """Sense for a moment, or no game would ever get far."""
        self.display.act(*["key %s" % self.chance.choice(("space", "Return", "space"))] * self.chance.randint(1, 12))

    def new_game(self):
        self.display.act("key F2", "key Return", "key Return", "key Return", "key Return")

    def type_text(self):
        self.display.act("type --delay 0 %s" % self.chance.choice(("Ñandú", "aaaaaaaaaaaaaaaaaaaa", "€uro", "x,y")))

    def resize(self):
        """The window manager decides what comes of it, as on a player's desktop."""
        size = self.chance.choice(SIZES)
        self.ask("xdotool", "getactivewindow", "windowsize", "%d" % size[0], "%d" % size[1])

    def move_window(self):
        self.ask("xdotool", "getactivewindow", "windowmove", "%d" % self.chance.randint(-300, 900),
                 "%d" % self.chance.randint(-300, 700))

    def iconify(self):
        self.ask("xdotool", "getactivewindow", "windowminimize")
        self.start_second()

    def start_second(self):
        """A second start brings the first to the front; or becomes the first when that has just ended."""
        first = self.program.process
        second = self.program.spawn()
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

    def ask(self, *command):
        subprocess.run(command, env=self.display.environment, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, timeout=TO_LEAVE, check=False)

    ACTIONS = ((click, 30), (double_click, 5), (drag, 14), (point, 10), (leave_window, 2), (key, 25), (play, 25),
               (new_game, 2), (type_text, 2), (resize, 2), (move_window, 1), (iconify, 1))

    def act(self):
        actions, weights = zip(*self.ACTIONS)
        self.chance.choices(actions, weights)[0](self)
        self.done += 1
        if self.chance.random() < 0.2:
            time.sleep(self.chance.uniform(0, 0.03))

    # ---------------------------------------------------------------------------------- rounds

    def settings(self):
        chance = self.chance
        return inifile.Settings(types=tuple(chance.choice((1, 1, 2)) for _ in COLOURS), speed=100,
                                pause=chance.choice((1, 2)), tutor=chance.choice((1, 2)),
                                order=chance.choice((1, 2)), active=tuple(chance.choice((1, 1, 2)) for _ in COLOURS))

    def start(self):
        if self.chance.random() < 0.3:
            self.program.ini.write_bytes(inifile.to_bytes(self.settings()))
        self.program.start()

    def leave(self):
        """Leaves the program as a patient player does."""
        self.display.act("mouseup 1", "mouseup 2", "mouseup 3", "keyup ctrl", "keyup alt", "keyup shift", "keyup super")
        end = time.monotonic() + TO_LEAVE
        step = 0
        while self.program.is_running():
            if not self.display.has_manager:
                raise Finding("the window manager has ended")
            window = self.display.active_window()
            title = window.title if window else None
            if step % 20 == 19:
                self.click_what_lies_on_top()
            if title in YES:
                # A notice that the recorder is on has the same title: it goes with the same key.
                self.display.act("key Return")
                time.sleep(0.1)
                if self.program.is_running():
                    self.display.act("key ctrl+Home")
            elif title == "Zorva" and not self.display.is_dialog(window):
                self.display.act("key F6" if step % 2 else "key alt+F4")
            elif window is None:
                # As a task bar does it; a window manager lets no program do it at any time.
                self.display.act("key Escape")
                self.ask("xdotool", "search", "--class", "zorva32", "windowactivate", "%@")
            elif step > 20:
                # The settings cannot be left while no colour takes part.
                self.display.act("key %s" % self.chance.choice(("Tab", "space", "Escape")))
            else:
                self.display.act("key Escape")
            step += 1
            time.sleep(0.1)
            if time.monotonic() > end:
                raise Finding("cannot be left within %d s; on top is %s" % (TO_LEAVE, title))

    def click_what_lies_on_top(self):
        """What a player does whose keys go nowhere: the yes of a question, or else the middle of the screen."""
        self.display.act("key Escape")  # ends what the window manager may be in the middle of
        for title in YES:
            window = self.display.window_named(title)
            if window:
                self.display.click(round(window.x + window.width / 2 + MESSAGE_BUTTONS["yes"] * self.layout.unit),
                                   round(window.y + window.height - ABOVE_EDGE * self.layout.unit))
                return
        self.display.click(self.display.width // 2, self.display.height // 2)

    def check(self):
        status = self.program.process.returncode
        if status != 0:
            raise Finding("the program ended with status %d" % status)
        read = subprocess.run([os.environ["ZORVA_SIM"], "match", "--games", "1", "--seed", "1", "--threads", "1",
                               "--settings", self.program.ini], stdout=subprocess.DEVNULL, check=False)
        if read.returncode != 0:
            raise Finding("the file cannot be read")
        names = {entry.name for entry in self.program.folder.iterdir()}
        strange = names - {"zorva32", "ZORVA32.HLP", "ZORVA32.INI", "ZORVA32.HIS"}
        if strange:
            raise Finding("files are left over: %s" % sorted(strange))

    def round(self, seconds):
        self.start()
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
