"""Where everything lies on the board window, computed from the screen's size alone.

Written apart from the program's own arithmetic, so that the one checks the other. All values are
pixels of the layout; `Layout.device` turns them into pixels of the screen.
"""

from math import floor

EXIT_SQUARE = {1: 5, 2: 22, 3: 39, 4: 56}
GOAL_SQUARE = {1: 76, 2: 84, 3: 92, 4: 100}
COLOURS = (1, 2, 3, 4)
PIECES = (1, 2, 3, 4)

# Squares of a run; then x and y as functions of the square s, the block b and the cell c. Python's
# round() rounds halves to even, as the layout does.
RUNS = (
    (1, 8, lambda s, b, c: (5.5 * b, floor((21.5 - s) * c))),
    (9, 17, lambda s, b, c: (floor((s + 4.5) * c), 5.5 * b)),
    (18, 25, lambda s, b, c: (floor((38.5 - s) * c), 3.5 * b)),
    (26, 34, lambda s, b, c: (5.5 * b, floor((33.5 - s) * c))),
    (35, 42, lambda s, b, c: (3.5 * b, floor((s - 34.5) * c))),
    (43, 51, lambda s, b, c: (floor((50.5 - s) * c), 3.5 * b)),
    (52, 59, lambda s, b, c: (floor((s - 51.5) * c), 5.5 * b)),
    (60, 68, lambda s, b, c: (3.5 * b, floor((s - 46.5) * c))),
    (69, 75, lambda s, b, c: (4.5 * b, floor((88.5 - s) * c))),
    (77, 83, lambda s, b, c: (floor((96.5 - s) * c), 4.5 * b)),
    (85, 91, lambda s, b, c: (4.5 * b, floor((s - 83.5) * c))),
    (93, 99, lambda s, b, c: (floor((s - 91.5) * c), 4.5 * b)),
)

# Left, top, width, height of the recorder's keys within its strip.
RECORDER_KEYS = {
    "on/off": (6, 6, 38, 13),
    "back": (4, 25, 21, 13),
    "forward": (25, 25, 21, 13),
    "auto back": (4, 41, 21, 13),
    "auto forward": (25, 41, 21, 13),
    "restore": (14, 57, 21, 13),
}

BUTTONS = ("help", "new game", "settings", "history", "advice", "leave")


class Layout:
    """The layout of a screen of that size in device pixels."""

    def __init__(self, width, height):
        self.left = 0
        self.top = 0
        if width * 4 < height * 5:
            used = width * 4 // 5
            self.top = (height - used) // 2
            height = used
        low = width > 800 and height < 768
        self.unit = height / 768 if low else max(1.0, min(height / 768, width / 1024))
        self.width = round(width / self.unit)
        self.height = round(height / self.unit)
        size_class = 1 if self.width < 800 else 2 if self.width == 800 else 3
        self.cell = size_class * 6 + 15
        self.block = round(self.cell * 7 / 3)
        self.margin = floor((self.height - 21 * self.cell) / 2)
        self.board_extent = 2 * self.margin + 21 * self.cell
        self.piece_size = self.cell - 5
        near, far = self.margin, 6 * self.block + self.margin
        self.corner = {1: (far, far), 2: (far, near), 3: (near, near), 4: (near, far)}

    def device(self, point):
        """The screen's pixel at a point of the layout."""
        return (round(self.left + point[0] * self.unit), round(self.top + point[1] * self.unit))

    def square(self, square):
        """Where a lone piece stands; on a goal the first of its places."""
        if square in GOAL_SQUARE.values():
            return self.goal(square, 1)
        place = next(run[2] for run in RUNS if run[0] <= square <= run[1])
        x, y = (round(v + self.margin) for v in place(square, self.block, self.cell))
        dx, dy = {17: (-1, -1), 34: (-1, 1), 51: (1, 1), 68: (1, -1)}.get(square, (0, 0))
        lies = square in (17, 51)
        return (x + dx * (self.cell if lies else self.block), y + dy * (self.block if lies else self.cell))

    def goal(self, square, slot):
        across = {1: 4.5, 2: 4.9, 3: 4.1, 4: 4.5}[slot] * self.block
        along = floor((12.5 if square in (76, 84) else 8.5) * self.cell)
        if slot == 4:
            along += 0.4 * self.block * (-1 if square in (76, 84) else 1)
        x, y = (across, along) if square in (76, 92) else (along, across)
        return (round(x + self.margin), round(y + self.margin))

    def slot(self, square, slot):
        """A piece by its slot. The second piece of a square stands beside the first, towards the
        middle lane (in the last square of a run, which is a middle lane, at the far side)."""
        if square in GOAL_SQUARE.values():
            return self.goal(square, slot)
        x, y = self.square(square)
        upright = square <= 8 or 26 <= square <= 42 or 60 <= square <= 75 or 85 <= square <= 91
        outer_lane = square <= 16 or 26 <= square <= 33 or 52 <= square <= 59
        shift = {1: 0, 2: 1, 3: -1}[slot] * (self.cell * 2 // 3) * (-1 if outer_lane else 1)
        return (x + shift, y) if upright else (x, y + shift)

    def box(self, colour, piece):
        """Where a piece lies in its waiting box."""
        x, y = self.corner[colour]
        return (x + self.cell, round(y + 3 * self.block / 2 + (self.piece_size + 4) * (piece - 2.5)))

    def house(self, colour):
        """A place in a colour's house where no piece lies."""
        x, y = self.corner[colour]
        return (x + 3 * self.block - self.cell // 2, y + 3 * self.block - self.cell // 2)

    def recorder_key(self, key):
        """The middle of a key of the recorder."""
        left = round(self.board_extent + (self.width - self.board_extent - 50) / 2)
        x, y, width, height = RECORDER_KEYS[key]
        return (left + x + width // 2, 220 + y + height // 2)

    def button(self, name):
        """The middle of a menu button: two rows of three above the recorder."""
        room = self.width - self.board_extent
        side = min(max((room - 36) // 3, 28), 64)
        width, height = 3 * side + 12, 2 * side + 6
        left = round(self.board_extent + (room - width) / 2)
        top = max(8, (220 - height) // 2)
        column, row = BUTTONS.index(name) % 3, BUTTONS.index(name) // 3
        return (left + column * (side + 6) + side // 2, top + row * (side + 6) + side // 2)
