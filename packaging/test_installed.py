"""Starts the installed game as an ordinary user and as root, plays some moves, leaves it and continues.

The environment variable ZORVA_INSTALLED is the path of the program, and ZORVA_ROOT the root folder of the system in
which it is installed, if that is not this one. Nothing may be written beside the program.
"""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests/window"))

import driver  # noqa: E402
from display import BOUND  # noqa: E402

NOBODY = 65534  # the user and the group nobody, who own no files


class Installed(driver.Program):
    """The installed program, run by a user with an empty home folder."""

    user = NOBODY

    def __init__(self, display, binary, *_):
        self.root = Path(os.environ.get("ZORVA_ROOT", "/"))
        self.folder = (self.root / binary.lstrip("/")).parent
        self._folder = tempfile.TemporaryDirectory(prefix="zorva-home-", dir=self.root / "tmp")
        home = "/" / Path(self._folder.name).relative_to(self.root)
        self.data = Path(self._folder.name) / ".local/share/zorva32"
        environment = {
            "PATH": "/usr/games:/usr/bin:/bin", "HOME": str(home), "XDG_RUNTIME_DIR": str(home),
            "LANG": "C.UTF-8", "DISPLAY": display.name, "SDL_AUDIODRIVER": "dummy", "TMPDIR": str(home)}
        words = ["env", "-i", *(name + "=" + value for name, value in environment.items()), binary]
        if self.root != Path("/"):
            words = ["chroot", "--userspec=%d:%d" % (self.user, self.user), str(self.root), *words]
        elif os.geteuid() == 0:
            words = ["setpriv", "--reuid=%d" % self.user, "--regid=%d" % self.user, "--clear-groups", *words]
        if os.geteuid() == 0:
            os.chown(self._folder.name, self.user, self.user)
        self._words = words
        self.process = None

    # BOUND ends the program together with this process. Changing the user would undo it, so it comes afterwards.
    def spawn(self):
        at = self._words.index("env")
        bond = BOUND if self.root == Path("/") else ()
        return subprocess.Popen([*self._words[:at], *bond, *self._words[at:]])


class InstalledGame(driver.WindowTest):
    user = NOBODY

    def setUp(self):
        Installed.user = self.user
        driver.Program = Installed
        os.environ["ZORVA32"] = os.environ["ZORVA_INSTALLED"]
        super().setUp()

    def test_is_played_left_and_goes_on(self):
        before = sorted(self.program.folder.iterdir())
        self.start_with_message(driver.LOAD_TITLE)
        self.wait_for_board()
        manual = self.look_at_window("F1", "Ayuda de la aplicación")
        self.assertGreater(manual.height, 400, "a message, not the manual")

        self.display.key("F2")
        self.answer(driver.START_TITLE, key="space")
        self.answer(driver.DRAW_TITLE, key="space")
        self.play_moves(5)
        self.display.key("F6")
        self.answer(driver.POSTPONE_TITLE, key="space")
        self.assertEqual(self.wait_for_end(), 0)
        moves = self.game().moves
        self.assertGreaterEqual(moves, 5)

        self.start_again(continues=True)
        self.assertEqual(self.game().moves, moves)
        self.assertEqual(sorted(self.program.folder.iterdir()), before, "something was written beside the program")
        self.assertEqual([path.name for path in self.program.data.iterdir()], ["ZORVA32.INI"])


@unittest.skipUnless(os.geteuid() == 0, "only root can be root")
class InstalledGameOfRoot(InstalledGame):
    """Root may write anywhere, so only the program itself can decide not to write beside itself."""

    user = 0


if __name__ == "__main__":
    unittest.main()
