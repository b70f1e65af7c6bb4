#!/usr/bin/env python3
"""How much of a processor four computers take that play at speed 50, and the window system for them.

    bench/smooth.py BUILD [--screen 3840x2160] [--seconds 30]

BUILD is a build folder. The game is played on a virtual screen; the processor times of the program and of
the screen are those of the system.
"""

import argparse
import os
import shutil
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests/window"))

import inifile
from display import Display
from start import start


def seconds_of(pid):
    with open("/proc/%d/stat" % pid) as file:
        user, system = file.read().rpartition(")")[2].split()[11:13]
    return (int(user) + int(system)) / os.sysconf("SC_CLK_TCK")


def sleeps_of(pid):
    """How often each of the program's threads has gone to sleep."""
    sleeps = {}
    for task in os.listdir("/proc/%d/task" % pid):
        with open("/proc/%d/task/%s/status" % (pid, task)) as file:
            sleeps[task] = sum(int(line.split()[1]) for line in file if line.startswith("voluntary"))
    return sleeps


def measure(display, process, seconds):
    screen = display.screen_process.pid
    program, system, sleeps = seconds_of(process.pid), seconds_of(screen), sleeps_of(process.pid)
    begin = time.monotonic()
    time.sleep(seconds)
    passed = time.monotonic() - begin
    woken = sum(now - sleeps.get(task, 0) for task, now in sleeps_of(process.pid).items())
    return ((seconds_of(process.pid) - program) / passed, (seconds_of(screen) - system) / passed,
            woken / passed)


def go_on(display):
    """Past the title, and past the message that the game goes on."""
    while True:
        time.sleep(0.05)
        window = display.active_window()
        if window and window.title == "Continuar la partida anterior":
            display.act("key Return")
            return
        if window and window.width < display.width:
            display.act("key space")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=lambda text: Path(text).resolve())
    parser.add_argument("--screen", default="3840x2160")
    parser.add_argument("--seconds", type=float, default=30)
    arguments = parser.parse_args()
    display = Display(*map(int, arguments.screen.split("x")))
    folder = Path(tempfile.mkdtemp(prefix="zorva-smooth-"))
    try:
        game = shutil.copy2(arguments.build / "app/zorva32", folder)
        for name, pause in (("four computers at speed 50", inifile.OFF), ("waiting for a throw", inifile.ON)):
            position = inifile.game_at({1: [5, 0, 0, 0], 2: [22, 0, 0, 0], 3: [39, 0, 0, 0], 4: [56, 0, 0, 0]}, turn=1)
            settings = inifile.Settings(pause=pause, speed=50)
            (folder / "ZORVA32.INI").write_bytes(inifile.to_bytes(settings, position))
            process, _ = start(game, display, folder)
            go_on(display)
            time.sleep(6)
            program, system, wakes = measure(display, process, arguments.seconds)
            print("%s, %s: the program %.1f %% of a processor, the window system %.1f %%, %.1f wake-ups a second"
                  % (arguments.screen, name, program * 100, system * 100, wakes))
            process.kill()
            process.wait()
    finally:
        display.close()
        shutil.rmtree(folder)


if __name__ == "__main__":
    main()
