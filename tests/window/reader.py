"""What a blind player hears: the screen reader Orca on a session bus of its own."""

import json
import os
import subprocess
import tempfile
import threading
from pathlib import Path

from display import BOUND

# The bus can start the bus of the screen readers and nothing else, so that nothing of the user's desktop comes in.
BUS = """<busconfig><type>session</type><listen>unix:dir=%s</listen><servicedir>%s</servicedir>
<policy context="default"><allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/></policy>
</busconfig>"""
SERVICE = "/usr/share/dbus-1/services/org.a11y.Bus.service"

# Starts Orca as its own command does, except that another Orca of this user may run, and that what it says is
# written, each text in a line of JSON.
ORCA = """
import json, sys
from orca import orca, speech

speech.init = speech.shutdown = speech.stop = speech.speakKeyEvent = lambda *_: None
speech._speak = speech.speakCharacter = lambda text, *_, **__: print(json.dumps(text), flush=True)
orca.getSettingsManager().activate(sys.argv[1], {"enableBraille": False, "enableSound": False, "enableKeyEcho": False})
sys.exit(orca.main())
"""


class Reader:
    """Programs that are started on the display afterwards are read."""

    def __init__(self, display):
        self._folder = tempfile.TemporaryDirectory(prefix="zorva-reader-")
        folder = Path(self._folder.name)
        os.makedirs(folder / "services")
        os.symlink(SERVICE, folder / "services" / Path(SERVICE).name)
        (folder / "bus.conf").write_text(BUS % (folder, folder / "services"))
        self._environment = dict(display.environment, HOME=folder, XDG_RUNTIME_DIR=folder, LC_ALL="C.UTF-8",
                                 GSETTINGS_BACKEND="memory")
        self._bus = self._start("dbus-daemon", "--nofork", "--print-address", "--config-file=%s/bus.conf" % folder,
                                stderr=subprocess.DEVNULL)
        address = self._bus.stdout.readline().strip()
        display.environment["DBUS_SESSION_BUS_ADDRESS"] = self._environment["DBUS_SESSION_BUS_ADDRESS"] = address
        self._orca = self._start("/usr/bin/python3", "-c", ORCA, folder / "prefs")
        if not self._orca.stdout.readline():  # its greeting
            raise RuntimeError("Orca does not start")
        display.workers.append(self._orca)
        self._said, self._taken = [], 0
        threading.Thread(target=self._listen, daemon=True).start()

    def _start(self, *command, **options):
        return subprocess.Popen([*BOUND, *command], env=self._environment, stdout=subprocess.PIPE, text=True, **options)

    def _listen(self):
        for line in self._orca.stdout:
            self._said.append(json.loads(line))

    def take(self):
        """The texts said since the last call."""
        said = self._said[self._taken:]
        self._taken += len(said)
        return said

    def close(self):
        """Whatever the bus has started ends with it."""
        for process in (self._orca, self._bus):
            process.kill()
            process.wait()
        self._folder.cleanup()
