"""The four players' marks: shapes that tell the colours apart without their hue."""

import math

from .svg import num, points


def sun(cx, cy, size):
    """Yellow: a disc in a ring, open between the two (paint it with the even-odd rule)."""
    return "".join(_circle(cx, cy, r * size) for r in (0.5, 0.32, 0.17))


def drop(cx, cy, size):
    """Blue: a drop with its point up."""
    r = 0.355 * size
    y = cy + 0.5 * size - r
    return (f"M{num(cx)} {num(cy - 0.56 * size)}C{num(cx + 0.1 * size)} {num(cy - 0.28 * size)} "
            f"{num(cx + r)} {num(y - 0.3 * size)} {num(cx + r)} {num(y)}"
            f"A{num(r)} {num(r)} 0 0 1 {num(cx - r)} {num(y)}"
            f"C{num(cx - r)} {num(y - 0.3 * size)} {num(cx - 0.1 * size)} {num(cy - 0.28 * size)} "
            f"{num(cx)} {num(cy - 0.56 * size)}Z")


def diamond(cx, cy, size):
    """Red: a four-pointed star, broad enough to be a diamond when small."""
    tips = []
    for i in range(8):
        angle = math.radians(45 * i - 90)
        r = size * (0.57 if i % 2 == 0 else 0.31)
        tips.append((cx + r * math.cos(angle), cy + r * math.sin(angle)))
    return points(tips)


def clover(cx, cy, size):
    """Green: four leaves on the diagonals, where the diamond has its hollows."""
    r, d, bar = 0.225 * size, 0.265 * size, 0.11 * size
    data = "".join(_circle(cx + dx * d, cy + dy * d, r) for dx, dy in ((1, -1), (1, 1), (-1, 1), (-1, -1)))
    for way in (1, -1):
        ends = ((d - bar, d + bar), (d + bar, d - bar), (bar - d, -bar - d), (-bar - d, bar - d))
        # All parts turn the same way: where they lie on one another they would else cut holes.
        data += points([(cx + x * way, cy + y) for x, y in ends][::-way])
    return data


def _circle(cx, cy, r):
    return (f"M{num(cx - r)} {num(cy)}A{num(r)} {num(r)} 0 1 1 {num(cx + r)} {num(cy)}"
            f"A{num(r)} {num(r)} 0 1 1 {num(cx - r)} {num(cy)}Z")


# By the colour's number: the path and the rule that fills it.
MARKS = {1: (sun, "evenodd"), 2: (drop, "nonzero"), 3: (diamond, "nonzero"), 4: (clover, "nonzero")}


def draw_mark(drawing, colour, cx, cy, size, **style):
    """Draws a player's mark, `size` units high, around a centre."""
    outline, rule = MARKS[colour]
    drawing.path(outline(cx, cy, size), fill_rule=rule, **style)
