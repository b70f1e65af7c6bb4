"""Plays the real program in a real window: the helper of all tests with a window.

A test says what a player does and sees; what it waits for is looked at again and again until it is
there, never slept for. The environment variable ZORVA32 names the program; ZORVA_PICTURES the
folder for a picture of the screen at each failure; ZORVA_SAME_DICE the library that makes the dice
fall the same way at each run of a test (without it they fall as they like).
"""

import os
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
from layout import Layout

POLL = 0.02       # seconds between two looks
PATIENCE = 20     # seconds until something expected is given up
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
LOAD_TITLE = "Error en la carga de datos iniciales"

# Where a message has its buttons: pixels of the layout from its middle and from its lower edge.
MESSAGE_BUTTONS = {"accept": 0, "yes": -64, "no": 64}
ABOVE_EDGE = 38


class Program:
    """The program in a folder of its own, on a display."""

    def __init__(self, display, binary, dice=0):
        self._folder = tempfile.TemporaryDirectory(prefix="zorva-program-")
        root = Path(self._folder.name)
        self.folder = root / "game"
        self.folder.mkdir()
        self.data = self.folder  # where the program keeps its files
        self.fallback = root / "home/.local/share/zorva32"
        self._binary = shutil.copy2(binary, self.folder)
        for manual in Path(binary).parent.glob("ZORVA32.HLP"):
            shutil.copy2(manual, self.folder)
        for name in ("home", "run"):
            (root / name).mkdir(mode=0o700)
        self._environment = dict(display.environment, HOME=str(root / "home"),
                                 XDG_RUNTIME_DIR=str(root / "run"), SDL_AUDIODRIVER="dummy")
        self._environment.pop("XDG_DATA_HOME", None)
        if "ZORVA_SAME_DICE" in os.environ:
            self._environment.update(LD_PRELOAD=os.environ["ZORVA_SAME_DICE"], ZORVA_DICE=str(dice))
        self.process = None
        self._read = (None, None)

    @property
    def ini(self):
        return self.data / "ZORVA32.INI"

    @property
    def history(self):
        return self.data / "ZORVA32.HIS"

    def spawn(self):
        return subprocess.Popen([*BOUND, self._binary], env=self._environment, cwd=self.folder)

    def start(self):
        self.process = self.spawn()

    def is_running(self):
        return self.process is not None and self.process.poll() is None

    def condition(self):
        if self.is_running():
            return "is running"
        return "ended with status %s" % (self.process and self.process.returncode)

    def game(self):
        """The game as the file has it: at the beginning of a turn."""
        return self._file()[1]

    def settings(self):
        return self._file()[0]

    # The file is replaced whole at every turn; it is parsed once for each.
    def _file(self):
        with open(self.ini, "rb") as file:
            status = os.fstat(file.fileno())
            key = (status.st_ino, status.st_mtime_ns, status.st_size)
            if self._read[0] != key:
                self._read = (key, inifile.from_bytes(file.read()))
        return self._read[1]

    def processor_seconds(self):
        user, system = self._status()[11:13]
        return (int(user) + int(system)) / os.sysconf("SC_CLK_TCK")

    def is_asleep(self):
        """Whether it waits for something, rather than for the processor."""
        return self._status()[0] == "S"

    def _status(self):
        with open("/proc/%d/stat" % self.process.pid) as file:
            return file.read().rpartition(")")[2].split()

    def kill(self):
        self.process.kill()
        self.process.wait()

    def close(self):
        if self.is_running():
            self.kill()
        self._folder.cleanup()


class WindowTest(unittest.TestCase):
    """A test with a screen and the program; `screen` is the size in device pixels."""

    screen = (1024, 768)

    def setUp(self):
        signal.signal(signal.SIGALRM, self._out_of_time)
        signal.alarm(TEST_LIMIT)
        self.addCleanup(signal.alarm, 0)
        self.display = Display(*self.screen)
        self.addCleanup(self.display.close)
        self.program = Program(self.display, os.environ["ZORVA32"], zlib.crc32(self.id().encode()))
        self.addCleanup(self.program.close)
        self.addCleanup(self._keep_picture)
        self.layout = Layout(*self.screen)

    def _out_of_time(self, *_):
        raise TimeoutError("the test took longer than %d seconds" % TEST_LIMIT)

    def _keep_picture(self):
        failed = any(error for _, error in getattr(self._outcome, "errors", ())) or any(
            case is self for case, _ in self._outcome.result.failures + self._outcome.result.errors)
        if failed:
            folder = Path(os.environ.get("ZORVA_PICTURES", "."))
            self.display.picture().save(folder / (self.id() + ".png"))

    # ------------------------------------------------------------------------------- waiting

    def wait_until(self, condition, what, timeout=PATIENCE):
        """Looks until the condition holds, and returns what it gave."""
        end = time.monotonic() + timeout
        while True:
            answer = condition()
            if answer:
                return answer
            if time.monotonic() > end:
                window = self.display.active_window()
                self.fail("%s: not within %g s; the program %s, the window on top is %s"
                          % (what, timeout, self.program.condition(), window and repr(window.title)))
            time.sleep(POLL)

    def holds_for(self, seconds, condition, what):
        """Looks for that long whether the condition stays true."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            self.assertTrue(condition(), what)
            time.sleep(POLL)

    # -------------------------------------------------------------------------- start and end

    def start(self, settings=None, game=None):
        """Starts the program with that file, until the board awaits the player."""
        if settings is not None:
            self.program.ini.write_bytes(inifile.to_bytes(settings, game))
        self.start_again(continues=game is not None and game.in_progress)

    def start_again(self, continues=False):
        """Starts the program with the file that is there."""
        self.program.start()
        self.skip_title()
        if continues:
            self.answer(CONTINUE_TITLE)
        self.wait_for_board()

    def skip_title(self):
        """Breaks the title of the start off with a key."""
        def title_window():
            window = self.display.active_window()
            return window if window and self.display.is_dialog(window) else None

        window = self.wait_until(title_window, "the title")
        self.assertEqual(window.title, "Zorva")
        self.display.key("space")
        # The board may have the keyboard before the title has gone.
        self.wait_until(lambda: not self.display.is_shown(window), "the end of the title")

    def wait_for_end(self):
        """The exit status with which the program ends by itself."""
        self.wait_until(lambda: not self.program.is_running(), "the program's end")
        return self.program.process.returncode

    # ------------------------------------------------------------------------------- windows

    def title(self):
        """The title of the message that is open; None when the board has the keyboard."""
        window = self.display.active_window()
        return window.title if window and window.title != "Zorva" else None

    def board_is_active(self):
        window = self.display.active_window()
        return bool(window and window.title == "Zorva" and window.width == self.display.width)

    def wait_for_board(self):
        self.wait_until(self.board_is_active, "the board on top")

    def wait_for_message(self, title):
        def found():
            window = self.display.active_window()
            return window if window and window.title == title else None

        return self.wait_until(found, "the message %r" % title)

    def wait_until_gone(self, window):
        def gone():
            now = self.display.active_window()
            return not self.program.is_running() or (now is not None and now.id != window.id)

        self.wait_until(gone, "the end of the window %r" % window.title)

    def answer(self, title, button="accept", key=None):
        """Waits for a message, clicks its button or presses a key, and sees it go."""
        window = self.wait_for_message(title)
        if key:
            self.display.key(key)
        else:
            x = window.x + window.width / 2 + MESSAGE_BUTTONS[button] * self.layout.unit
            y = window.y + window.height - ABOVE_EDGE * self.layout.unit
            self.display.click(round(x), round(y))
        self.wait_until_gone(window)

    # ------------------------------------------------------------------------ mouse on the board

    def point_of_piece(self, game, colour, piece):
        """Where a piece is drawn, as a point of the layout."""
        square = game.piece(colour, piece)
        if square == 0:
            return self.layout.box(colour, piece)
        return self.layout.slot(square, game.slot_of(colour, piece))

    def rest_pointer(self):
        """Puts the pointer, which pictures show, where it covers and touches nothing."""
        self.point_at(self.layout.house(3))

    def point_at(self, point):
        self.display.move(*self.layout.device(point))

    def click(self, point, button=1):
        self.display.click(*self.layout.device(point), button)

    def click_piece(self, game, colour, piece):
        self.click(self.point_of_piece(game, colour, piece))

    def click_board(self, button=1):
        """A click on the board where no piece ever is."""
        self.click(self.layout.house(3), button)

    def click_button(self, name):
        self.click(self.layout.button(name))

    def click_recorder(self, key):
        self.click(self.layout.recorder_key(key))
        self.rest_pointer()

    def drag(self, start, end):
        self.display.drag(self.layout.device(start), self.layout.device(end))

    # --------------------------------------------------------------------------------- the game

    def game(self):
        return self.program.game()

    def wait_for_moves(self, moves, timeout=PATIENCE):
        """The game at the beginning of a turn after at least that many moves. A third six on the way
        is acknowledged."""
        def reached():
            if self.game().moves >= moves:
                return True
            if self.title() == SIXES_TITLE:
                self.answer(SIXES_TITLE)
            return False

        self.wait_until(reached, "move %d" % moves, timeout)
        return self.game()

    def file_stamp(self):
        """Changes whenever the program writes its file, which it does at every turn."""
        status = os.stat(self.program.ini)
        return (status.st_ino, status.st_mtime_ns)

    def advances(self, act, patience=0.15):
        """Does something and says whether the game went on by it."""
        before = self.file_stamp()
        act()
        end = time.monotonic() + patience
        while time.monotonic() < end:
            if self.file_stamp() != before:
                return True
            time.sleep(0.005)
        return False

    def settle(self):
        """Waits until the program has done all it was asked: it sleeps, and has done nothing for a while.
        A key pressed too early is kept by the game for its next throw, so the file alone does not tell."""
        seen, since = None, time.monotonic()
        while seen is None or time.monotonic() - since < 0.3:
            now = (self.program.processor_seconds(), self.file_stamp(), self.title())
            if now != seen or not self.program.is_asleep():
                seen, since = now, time.monotonic()
            time.sleep(POLL)

    def play_moves(self, moves):
        """At least that many more moves by keys, which throw and take the advised move; up to a position
        before a throw, at which the game stands still."""
        wanted, last_change = self.game().moves + moves, time.monotonic()
        while self.game().moves < wanted or self.game().bonus_due():
            if self.advances(lambda: self.display.key("space")):
                last_change = time.monotonic()
            elif self.title():
                self.answer(self.title())
            if self.game().moves >= wanted:
                self.settle()
            self.assertLess(time.monotonic() - last_change, PATIENCE, "the game stands still")

    def play_until(self, title, act, answer):
        """Plays on until that message is open: does `act`, which says whether the game went on, and
        answers every message on the way. A game that nothing moves any more is a failure."""
        last_change = time.monotonic()
        while True:
            if act():
                last_change = time.monotonic()
                continue
            now = self.title()
            if now == title:
                return
            if now:
                answer(now)
                last_change = time.monotonic()
            if time.monotonic() - last_change > PATIENCE:
                self.fail("the game stands still after move %d" % self.game().moves)
