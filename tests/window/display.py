"""A virtual screen with a window manager, a mouse and a keyboard."""

import os
import re
import struct
import subprocess
import tempfile
import time
from collections import namedtuple
from pathlib import Path

# A program that is started through this ends together with the tests, however they end.
BOUND = ("setpriv", "--pdeathsig", "KILL", "--")


CLOSE_REQUEST = """
import ctypes, struct, sys
x11 = ctypes.CDLL("libX11.so.6")
x11.XOpenDisplay.restype = ctypes.c_void_p
display = ctypes.c_void_p(x11.XOpenDisplay(None))
atoms = [x11.XInternAtom(display, name, 0) for name in (b"WM_PROTOCOLS", b"WM_DELETE_WINDOW")]
window = int(sys.argv[1])
client_message = struct.pack("iLiPLLi5l96x", 33, 0, 0, 0, window, atoms[0], 32, atoms[1], 0, 0, 0, 0)
x11.XSendEvent(display, window, 0, 0, client_message)
x11.XSync(display, 0)
"""

Window = namedtuple("Window", "id title x y width height")


class Picture:
    """What was on the screen at one moment."""

    def __init__(self, data):
        header = struct.unpack(">25I", data[:100])
        self.width, self.height, self.row_bytes = header[4], header[5], header[12]
        self.start = header[0] + header[19] * 12
        self._data = data

    def pixel(self, x, y):
        """Red, green and blue; black outside the screen."""
        at = self.start + y * self.row_bytes + x * 4
        inside = 0 <= x < self.width and 0 <= y < self.height
        return tuple(self._data[at:at + 3][::-1]) if inside else (0, 0, 0)

    def part(self, x, y, width, height):
        x, y = max(x, 0), max(y, 0)
        rows = range(y, min(y + height, self.height))
        first = (self.start + row * self.row_bytes + x * 4 for row in rows)
        return b"".join(self._data[at:at + width * 4] for at in first)

    def same_as(self, other):
        return self._data == other._data

    def save(self, path):
        """Writes a PPM file."""
        rows, colours = self.part(0, 0, self.width, self.height), bytearray(self.width * self.height * 3)
        colours[0::3], colours[1::3], colours[2::3] = rows[2::4], rows[1::4], rows[0::4]
        Path(path).write_bytes(b"P6 %d %d 255\n" % (self.width, self.height) + colours)


class Display:
    """One virtual screen. A call of the mouse or the keyboard returns when the screen has received all of it."""

    def __init__(self, width, height):
        self.width, self.height = width, height
        self._folder = tempfile.TemporaryDirectory(prefix="zorva-screen-")
        self._processes = []
        # The file in which the screen keeps its pixels; Picture reads it.
        self.memory_file = os.path.join(self._folder.name, "Xvfb_screen0")
        self.name = self._start_screen()
        self.screen_process = self._processes[0]
        # Without this address a library would start a session bus at some moment of a test.
        self.environment = dict(os.environ, DISPLAY=self.name, HOME=self._folder.name,
                                DBUS_SESSION_BUS_ADDRESS="unix:path=%s/none" % self._folder.name)
        self._empty_menu()
        self.manager_process = self._start("openbox", stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self._wait_for_manager()
        self.workers = [self.screen_process, self.manager_process]  # busy for a while after the program
        # Line by line: each answer must arrive when its command is done.
        self._hand = self._start("stdbuf", "-oL", "xdotool", "-", stdin=subprocess.PIPE,
                                 stdout=subprocess.PIPE, text=True)

    def _start(self, *command, **options):
        options.setdefault("env", getattr(self, "environment", os.environ))
        process = subprocess.Popen([*BOUND, *command], **options)
        self._processes.append(process)
        return process

    def _start_screen(self):
        reading, writing = os.pipe()
        self._start("Xvfb", "-displayfd", str(writing), "-screen", "0",
                    "%dx%dx24" % (self.width, self.height), "-nolisten", "tcp", "-noreset",
                    "-fbdir", self._folder.name, pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError("the virtual screen does not start")
        return ":" + number

    def _empty_menu(self):
        """Empties the menu that a click on the bare screen opens: one of its entries ends the manager."""
        folder = Path(self._folder.name, "openbox")
        folder.mkdir()
        (folder / "menu.xml").write_text('<openbox_menu xmlns="http://openbox.org/3.4/menu">'
                                         '<menu id="root-menu" label=""/></openbox_menu>')
        self.environment["XDG_CONFIG_HOME"] = self._folder.name

    def _wait_for_manager(self):
        """Waits until the manager obeys. It announces itself earlier, and a window that opens in between is not
        shown. It shall have one desktop, because it brings nothing to the front from another one."""
        end = time.monotonic() + 20
        while "= 1" not in self._run("xprop", "-root", "_NET_NUMBER_OF_DESKTOPS"):
            if time.monotonic() > end:
                raise RuntimeError("the window manager does not start")
            self._run("xdotool", "set_num_desktops", "1")

    def close(self):
        self._hand.stdin.close()
        self._hand.stdout.close()
        for process in reversed(self._processes):
            process.terminate()
        for process in reversed(self._processes):
            process.wait(timeout=20)
        self._folder.cleanup()

    def picture(self):
        return Picture(Path(self.memory_file).read_bytes())

    def _run(self, *command):
        """What a command that looks at the screen prints; nothing when it fails. xdotool may hang when a window
        closes while it looks at it: the caller gets nothing then, and looks again."""
        try:
            done = subprocess.run(command, env=self.environment, timeout=5, stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL, text=True)
        except subprocess.TimeoutExpired:
            return ""
        return done.stdout if done.returncode == 0 else ""

    def active_window(self):
        """The window that gets the keys; None when that is the manager's own."""
        return self._window("getwindowfocus", "getwindowname", "getwindowgeometry", "--shell")

    def board(self):
        """The board window; None when it is not shown."""
        windows = (self._window("getwindowname", number, "getwindowgeometry", "--shell", number)
                   for number in self._run("xdotool", "search", "--onlyvisible", "--name", "^Zorva$").split())
        return next((window for window in windows if window and window.width == self.width), None)

    def _window(self, *words):
        answer = self._run("xdotool", *words)
        title, _, rest = answer.partition("\n")
        values = dict(re.findall(r"^(\w+)=(-?\d+)$", rest, re.MULTILINE))
        sizes = [int(values.get(key, 0)) for key in ("X", "Y", "WIDTH", "HEIGHT")]
        if min(sizes[2:]) < 2:
            return None
        # Qt adds the program's name to every title but the board's.
        return Window(values["WINDOW"], title.removesuffix(" — Zorva"), *sizes)

    def is_shown(self, window):
        return window.id in self._run("xdotool", "search", "--onlyvisible", "--name", "^Zorva").split()

    def is_mapped(self, window):
        return "IsViewable" in self._run("xwininfo", "-id", window.id)

    def is_dialog(self, window):
        return "window id" in self.property(window, "WM_TRANSIENT_FOR")

    def property(self, window, name):
        return self._run("xprop", "-id", window.id, name)

    def place(self, window):
        """Left, top, width and height of what lies within the manager's frame."""
        numbers = re.findall(r"(?:Absolute upper-left [XY]|Width|Height): +(-?[0-9]+)",
                             self._run("xwininfo", "-id", window.id))
        return tuple(map(int, numbers))

    def resize(self, window, width, height):
        self._run("xdotool", "windowsize", window.id, str(width), str(height))

    def minimise(self, window):
        self._run("xdotool", "windowminimize", window.id)

    def activate(self, title):
        self._run("xdotool", "search", "--name", "^%s$" % title, "windowactivate")

    def ask_to_close(self, window):
        """Asks the program to close a window, as the task bar does."""
        self._run("python3", "-c", CLOSE_REQUEST, window.id)

    def act(self, *commands):
        """Carries out commands of xdotool one after the other. The question at the end tells when they are done.
        It concerns the screen and no window, because xdotool ends when a window closes while it looks at it."""
        self._hand.stdin.write("".join(command + "\n" for command in commands) + "getdisplaygeometry\n")
        self._hand.stdin.flush()
        if not self._hand.stdout.readline():
            raise RuntimeError("the virtual mouse and keyboard are gone")

    def move(self, x, y):
        self.act("mousemove %d %d" % (x, y))

    def click(self, x, y, *buttons):
        self.act("mousemove %d %d" % (x, y), *("click %d" % button for button in buttons or (1,)))

    def drag(self, start, end, steps=8):
        way = (tuple(a + (b - a) * step / steps for a, b in zip(start, end)) for step in range(1, steps + 1))
        self.act("mousemove %d %d" % start, "mousedown 1", *("mousemove %d %d" % point for point in way), "mouseup 1")

    def key(self, *names):
        self.act(*("key " + name for name in names))
