"""Where everything lies on the board window. The program's own layout says so, by `zorva-layout`.

The environment variable ZORVA32 names the program. What the tests build for themselves lies in the folder
tests/window of the same build, or in the folder that ZORVA_HELPERS names.
"""

import json
import os
import subprocess
from pathlib import Path

BUTTONS = ("help", "new game", "settings", "history", "advice", "leave")
RECORDER_KEYS = ("on/off", "back", "forward", "auto back", "auto forward", "restore")


def helper(name):
    folder = os.environ.get("ZORVA_HELPERS") or Path(os.environ["ZORVA32"]).resolve().parents[1] / "tests/window"
    return str(Path(folder) / name)


class Layout:
    """The layout of a board of that many device pixels whose corner lies there on the screen. All other values are
    pixels of the layout."""

    def __init__(self, width, height, left=0, top=0):
        self.corner = (left, top)
        words = [helper("zorva-layout"), str(width), str(height)]
        vars(self).update(json.loads(subprocess.run(words, stdout=subprocess.PIPE, check=True).stdout))

    def device(self, point):
        return (self.corner[0] + round(point[0] * self.unit), self.corner[1] + round(self.top + point[1] * self.unit))

    def slot(self, square, slot):
        return self.squares[square - 1][slot - 1]

    def square(self, square):
        """The centre of a piece that stands alone."""
        return self.slot(square, 1)

    def box(self, colour, piece):
        return self.boxes[colour - 1][piece - 1]

    def house(self, colour):
        """A point in a colour's house where no piece ever lies."""
        x, y, width, height = self.houses[colour - 1]
        return (x + width - self.cell // 2, y + height - self.cell // 2)

    def recorder_key(self, key):
        return self.keys[RECORDER_KEYS.index(key)]

    def button(self, name):
        return self.buttons[BUTTONS.index(name)]
