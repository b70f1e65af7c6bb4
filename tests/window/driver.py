"""Plays the real program in a real window: the helper of all tests with a window.

A test never sleeps for a while and hopes: it looks again and again until it sees what it waits for, or until
the program, the screen and the window manager all rest. The environment variable ZORVA32 names the program,
ZORVA_PICTURES the folder for a picture of the screen at each failure.
"""

import contextlib
import functools
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
import zlib
from pathlib import Path

import inifile
from display import BOUND, Display
from layout import Layout, helper

POLL = 0.01       # seconds between two looks
REST = 0.12       # seconds without any work after which everything has come to rest; a key looks pressed for 0.07
PATIENCE = 20     # seconds until a test gives up what it waits for
TEST_LIMIT = 240  # seconds for a whole test

START_TITLE = "Comienza la Partida"
DRAW_TITLE = "Sorteo del jugador que comienza"
SIXES_TITLE = "Ha sacado 3 seises"
END_TITLE = "Final de la Partida"
HISTORY_TITLE = "Histórico de partidas jugadas"
CONTINUE_TITLE = "Continuar la partida anterior"
POSTPONE_TITLE = "Posponer la partida en curso"
EXIT_TITLE = "Salir del programa"
ABANDON_TITLE = "Abandonar la partida en curso"
SAVE_TITLE = "No se puede guardar"
LOAD_TITLE = "Error en la carga de datos iniciales"


def message_button(window, button):
    """Where a message has that button, on the screen. A message is 400 pixels of the layout wide."""
    unit, middle = window.width / 400, {"accept": 200, "yes": 136, "no": 264}[button]
    return (round(window.x + middle * unit), round(window.y + window.height - 38 * unit))


class Program:
    """The program in a folder of its own, on a display. `dice` is the seed of its dice."""

    def __init__(self, display, binary, dice=None):
        self._folder = tempfile.TemporaryDirectory(prefix="zorva-program-")
        root = Path(self._folder.name)
        self.folder = self.data = root / "game"  # `data` is where the program keeps its files
        for name in ("game", "home", "run"):
            (root / name).mkdir(mode=0o700)
        self._words = [*BOUND, shutil.copy2(binary, self.folder)]
        for manual in Path(binary).parent.glob("ZORVA32.HLP"):
            shutil.copy2(manual, self.folder)
        # Without a locale, which must make no difference.
        self.environment = {name: value for name, value in display.environment.items()
                            if name not in ("LANG", "XDG_DATA_HOME") and not name.startswith("LC_")}
        self.environment.update(HOME=str(root / "home"), XDG_RUNTIME_DIR=str(root / "run"), SDL_AUDIODRIVER="dummy")
        if dice is not None:
            self.environment.update(LD_PRELOAD=helper("libhooks.so"), ZORVA_DICE=str(dice))
        self.process = None

    @property
    def ini(self):
        return self.data / "ZORVA32.INI"

    @property
    def history(self):
        return self.data / "ZORVA32.HIS"

    def spawn(self):
        return subprocess.Popen(self._words, env=self.environment, cwd=self.folder)

    def start(self):
        self.process = self.spawn()

    def is_running(self):
        return self.process is not None and self.process.poll() is None

    def game(self):
        """The game as the file has it: at the beginning of a turn."""
        return inifile.from_bytes(self.ini.read_bytes())[1]

    def settings(self):
        return inifile.from_bytes(self.ini.read_bytes())[0]

    def kill(self):
        self.process.kill()
        self.process.wait()

    def close(self):
        if self.is_running():
            self.kill()
        self._folder.cleanup()


def processor_seconds(process):
    """The time that the main thread of a process and Qt's reader of window events have run; None while one of them
    runs or waits for a processor. The thread that mixes sounds goes on when all else rests."""
    seconds = 0
    try:
        for thread in os.listdir("/proc/%d/task" % process.pid):
            folder = "/proc/%d/task/%s/" % (process.pid, thread)
            with open(folder + "stat") as stat, open(folder + "schedstat") as times:
                _, name, state = re.split(r"[()] ?", stat.read(), maxsplit=2)
                if int(thread) == process.pid or name == "QXcbEventQueue":
                    seconds += int(times.read().split()[0]) / 1e9
                    if state[0] == "R":
                        return None
    except (FileNotFoundError, ProcessLookupError):
        return 0  # the process or one of its threads has just ended
    return seconds


class WindowTest(unittest.TestCase):
    """A test with a screen and the program; `screen` is the size in device pixels."""

    screen = (1024, 768)
    dice_fall_the_same_way = True

    @classmethod
    def setUpClass(cls):
        cls.display = Display(*cls.screen)
        cls.addClassCleanup(cls.display.close)

    def setUp(self):
        signal.signal(signal.SIGALRM, self._out_of_time)
        signal.alarm(TEST_LIMIT)
        self.addCleanup(signal.alarm, 0)
        dice = zlib.crc32(self.id().encode()) if self.dice_fall_the_same_way else None
        self.program = Program(self.display, os.environ["ZORVA32"], dice)
        self.addCleanup(self.program.close)
        self.addCleanup(self._keep_picture)

    @functools.cached_property
    def layout(self):
        return Layout(*self.screen)

    def _out_of_time(self, *_):
        raise TimeoutError("the test took longer than %d seconds" % TEST_LIMIT)

    def _keep_picture(self):
        result = self._outcome.result
        if any(case is self for case, _ in result.failures + result.errors):
            self.display.picture().save(Path(os.environ.get("ZORVA_PICTURES", ".")) / (self.id() + ".ppm"))

    # ------------------------------------------------------------------------------- waiting

    def wait_until(self, condition, what, timeout=PATIENCE):
        end = time.monotonic() + timeout
        while not (answer := condition()):
            if time.monotonic() > end:
                window = self.display.active_window()
                self.fail("%s: not within %g s; the program's status is %s, the window on top is %s"
                          % (what, timeout, self.program.process.poll(), window and repr(window.title)))
            time.sleep(POLL)
        return answer

    def comes_before_rest(self, condition, rest=REST):
        """Whether the condition holds before the program, the screen and the window manager all sleep and have
        done nothing for `rest` seconds. Below full speed the game's own pauses may be longer than REST."""
        seen, since, end = None, 0, time.monotonic() + PATIENCE
        while not condition():
            now = time.monotonic()
            work = [processor_seconds(process) for process in (self.program.process, *self.display.workers)]
            if work != seen or None in work:
                seen, since = work, now
            elif now - since > rest:
                return False
            self.assertLess(now, end, "the program never rests")
            time.sleep(POLL)
        return True

    def settle(self, rest=REST):
        self.comes_before_rest(lambda: False, rest)

    @contextlib.contextmanager
    def held(self):
        """Stops the program, which gets all that happens in between at once when it goes on."""
        self.program.process.send_signal(signal.SIGSTOP)
        yield
        self.program.process.send_signal(signal.SIGCONT)

    def advances(self, act):
        before = self.file_stamp()
        act()
        return self.comes_before_rest(lambda: self.file_stamp() != before)

    def file_stamp(self):
        """Changes whenever the program writes its file, which it does at every turn."""
        status = os.stat(self.program.ini)
        return (status.st_ino, status.st_mtime_ns)

    # -------------------------------------------------------------------------- start and end

    def start(self, settings=None, game=None):
        """Starts the program with that file, until the board awaits the player."""
        if settings is not None:
            self.program.ini.write_bytes(inifile.to_bytes(settings, game))
        self.start_again(continues=game is not None and game.in_progress)

    def start_again(self, continues=False):
        self.start_with_message(CONTINUE_TITLE if continues else None)
        self.wait_for_board()

    def start_with_message(self, title):
        self.program.start()
        self.skip_title()
        if title:
            self.answer(title, key="Return")

    def skip_title(self):
        window = self.wait_until(lambda: (now := self.display.active_window()) and self.display.is_dialog(now) and now,
                                 "the title")
        self.assertEqual(window.title, "Zorva")
        self.display.key("space")
        # The board may get the keyboard before the splash window has closed.
        self.wait_until(lambda: not self.display.is_shown(window), "the end of the title")

    def wait_for_end(self):
        self.wait_until(lambda: not self.program.is_running(), "the program's end")
        return self.program.process.returncode

    # ------------------------------------------------------------------------------- windows

    def title(self):
        """The title of the message that has the keyboard, if any."""
        window = self.display.active_window()
        return window.title if window and window.title != "Zorva" else None

    def board_is_active(self):
        window = self.display.active_window()
        return bool(window and window.title == "Zorva" and window.width == self.display.width)

    def wait_for_board(self):
        self.wait_until(self.board_is_active, "the board on top")

    def wait_for_message(self, title):
        return self.wait_until(lambda: (now := self.display.active_window()) and now.title == title and now, title)

    def answer(self, title, button="accept", key=None):
        """Waits for a message, clicks its button or presses a key, and waits until the message has closed."""
        window = self.wait_for_message(title)
        if key:
            self.display.key(key)
        else:
            self.display.click(*message_button(window, button))
        self.wait_until(lambda: not self.program.is_running() or
                        (now := self.display.active_window()) and now.id != window.id, "the end of " + title)

    def look_at_window(self, key, title):
        self.display.key(key)
        window = self.wait_for_message(title)
        self.answer(title, key="Escape")
        self.wait_for_board()
        return window

    # ------------------------------------------------------------------------ mouse on the board

    @property
    def ways_to_leave(self):
        return (lambda: self.click_button("leave"), lambda: self.display.key("F6"), lambda: self.display.key("alt+F4"))

    def point_of_piece(self, game, colour, piece):
        square = game.piece(colour, piece)
        return self.layout.slot(square, game.slot_of(colour, piece)) if square else self.layout.box(colour, piece)

    def rest_pointer(self):
        """Puts the cursor, which pictures show, where it covers and touches nothing."""
        self.point_at(self.layout.house(3))

    def point_at(self, point):
        self.display.move(*self.layout.device(point))

    def click(self, point, button=1):
        self.display.click(*self.layout.device(point), button)

    def click_board(self, button=1):
        """Clicks on the board where no piece ever is."""
        self.click(self.layout.house(3), button)

    def click_button(self, name):
        self.click(self.layout.button(name))

    def click_recorder(self, key):
        self.click(self.layout.recorder_key(key))
        self.rest_pointer()

    def drag(self, start, end):
        self.display.drag(self.layout.device(start), self.layout.device(end))

    def settled_picture(self):
        self.rest_pointer()
        self.settle()
        return self.display.picture()

    def part(self, picture, box):
        size = (round(length * self.layout.unit) for length in box[2:])
        return picture.part(*self.layout.device(box[:2]), *size)

    # --------------------------------------------------------------------------------- the game

    def game(self):
        return self.program.game()

    def wait_for_moves(self, moves):
        """The game after at least that many moves. A third six on the way is acknowledged."""
        def reached():
            if self.game().moves < moves and self.title() == SIXES_TITLE:
                self.answer(SIXES_TITLE)
            return self.game().moves >= moves

        self.wait_until(reached, "move %d" % moves)
        return self.game()

    def play_until(self, is_enough, act, answer=lambda title: None):
        """Plays on with `act`, which says whether the game went on, and answers every message on the way."""
        last_change = time.monotonic()
        while not is_enough():
            if act():
                last_change = time.monotonic()
            elif title := self.title():
                if is_enough():
                    break
                answer(title)
                last_change = time.monotonic()
            self.assertLess(time.monotonic(), last_change + PATIENCE, "after move %d" % self.game().moves)

    def play_moves(self, moves):
        """Makes at least that many more moves by keys, until the next colour is about to throw."""
        wanted = self.game().moves + moves
        self.play_until(lambda: self.game().moves >= wanted, lambda: self.advances(lambda: self.display.key("space")),
                        self.answer)
        self.settle()
