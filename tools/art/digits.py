"""The digits of the square numbers: printer's figures with thick stems, thin turns and ball ends, 11 units high.

A stroke is a centre line whose width follows its direction, as a broad pen writes: thick where it goes up or down,
thin where it goes across.
"""

import math

from .svg import num

HEIGHT = 11.0
GAP = 1.1
THICK, THIN = 2.2, 0.9
STEPS = 7  # straight pieces for each curve

# Width of each digit, then its strokes: a path of M, L and C in which blanks separate all words, and a width where
# the pen's own is not wanted; then the balls at its ends: centre and radius. Digits are 11 units high from 0 to 11.
FIGURES = {
    "0": (7.4, [("M 3.7 0.5 C 5.6 0.5 6.2 2.8 6.2 5.5 C 6.2 8.2 5.6 10.5 3.7 10.5 C 1.8 10.5 1.2 8.2 1.2 5.5 "
                 "C 1.2 2.8 1.8 0.5 3.7 0.5", None)], []),
    "1": (5.0, [("M 2.9 0 L 2.9 10.6", 2.2), ("M 3.2 0.2 C 2.6 1.3 1.6 1.9 0.3 2.1", 0.95),
                ("M 0.4 10.5 L 5.2 10.5", 1.0)], []),
    "2": (6.9, [("M 1.5 3 C 1.1 1.5 2 0.45 3.5 0.45 C 5.2 0.45 5.75 1.8 5.6 3.1 C 5.4 5 3.4 6.6 0.9 9.8", None),
                ("M 0.5 9.9 L 6.1 9.9", 1.9), ("M 6.15 10.6 L 6.4 7.5", 0.8)], [(1.5, 2.9, 1.3)]),
    "3": (6.8, [("M 1.3 2.5 C 1.1 1.2 2 0.45 3.3 0.45 C 4.9 0.45 5.4 1.5 5.3 2.7 C 5.2 4.1 4.2 5 2.6 5.1", None),
                ("M 2.6 5.1 C 4.6 5.1 5.6 6.1 5.6 7.7 C 5.6 9.5 4.6 10.55 3 10.55 C 1.6 10.55 0.9 9.6 1.1 8.4", None)],
          [(1.45, 2.5, 1.25), (1.35, 8.3, 1.35)]),
    "4": (7.2, [("M 4.9 0 L 4.9 10.6", 2.2), ("M 4.4 0.3 L 0.5 7.6", 1.0), ("M 0.1 7.5 L 7.2 7.5", 1.05),
                ("M 2.6 10.5 L 7 10.5", 1.0)], []),
    "5": (6.8, [("M 1.1 0 L 1.1 5.3", 0.9), ("M 0.7 1 L 5.6 1", 2),
                ("M 1.1 5.4 C 1.7 4.5 2.5 4.1 3.4 4.1 C 5.1 4.1 5.6 5.6 5.6 7.2 C 5.6 9.3 4.6 10.55 3 10.55 "
                 "C 1.6 10.55 0.9 9.6 1.1 8.4", None)], [(1.35, 8.3, 1.3)]),
    "6": (7.2, [("M 5.9 2.4 C 5.7 1.1 4.9 0.45 4 0.45 C 2 0.45 1.2 3 1.2 6.2 C 1.2 9 2 10.55 3.7 10.55 "
                 "C 5.4 10.55 6 9.1 6 7.4 C 6 5.6 5.3 4.5 3.9 4.5 C 2.6 4.5 1.7 5.4 1.4 6.6", None)],
          [(5.45, 2.3, 1.2)]),
    "7": (6.6, [("M 0.7 1 L 6.3 1", 2), ("M 0.6 0 L 0.3 3.3", 0.8),
                ("M 5.4 0.6 C 4.2 3.8 3 6.3 3 10.9", 2.2)], []),
    "8": (7.2, [("M 3.6 0.45 C 2.2 0.45 1.5 1.5 1.5 2.6 C 1.5 4.9 5.9 5.4 5.9 8 C 5.9 9.6 5 10.55 3.6 10.55 "
                 "C 2.1 10.55 1.2 9.6 1.2 8.1 C 1.2 5.7 5.6 4.9 5.6 2.6 C 5.6 1.4 4.9 0.45 3.6 0.45", None)], []),
    "9": (7.2, [("M 1.3 8.6 C 1.5 9.9 2.3 10.55 3.2 10.55 C 5.2 10.55 6 8 6 4.8 C 6 2 5.2 0.45 3.5 0.45 "
                 "C 1.8 0.45 1.2 1.9 1.2 3.6 C 1.2 5.4 1.9 6.5 3.3 6.5 C 4.6 6.5 5.5 5.6 5.8 4.4", None)],
          [(1.75, 8.7, 1.2)]),
}


def width(text):
    """The width of a number whose digits are 11 units high."""
    return sum(FIGURES[c][0] for c in text) + GAP * (len(text) - 1)


def number(value, cx, cy, height):
    """The path of a number centred on (cx, cy), to be filled."""
    text = str(value)
    scale = height / HEIGHT
    x, y = cx - width(text) * scale / 2, cy - height / 2
    data = []
    for figure in text:
        advance, strokes, balls = FIGURES[figure]
        outlines = [_outline(path, pen) for path, pen in strokes] + [_ball(*ball) for ball in balls]
        for outline in outlines:
            points = [f"{num(x + px * scale)} {num(y + py * scale)}" for px, py in outline]
            data.append("M" + "L".join(points) + "Z")
        x += (advance + GAP) * scale
    return "".join(data)


def _ball(cx, cy, r):
    # Turns the same way as the outlines of strokes: where they overlap, they would else cut holes.
    return [(cx + r * math.cos(a), cy + r * math.sin(a)) for a in (math.pi * i / 6 for i in range(12))]


def _outline(path, pen):
    """The polygon around a stroke: along its left side and back along its right side."""
    line = _centre_line(path)
    left, right = [], []
    for before, (x, y), after in zip([line[0], *line], line, [*line[1:], line[-1]]):
        dx, dy = after[0] - before[0], after[1] - before[1]
        length = math.hypot(dx, dy)
        half = (pen or THIN + (THICK - THIN) * (dy / length) ** 2) / 2
        dx, dy = dx / length * half, dy / length * half
        left.append((x + dy, y - dx))
        right.append((x - dy, y + dx))
    return left + right[::-1]


def _centre_line(path):
    words = iter(path.split())
    line, point = [], lambda: (float(next(words)), float(next(words)))
    for word in words:
        if word == "C":
            a, (b, c, d) = line[-1], (point() for _ in range(3))
            for t in (i / STEPS for i in range(1, STEPS + 1)):
                u = 1 - t
                line.append(tuple(u ** 3 * p + 3 * u * u * t * q + 3 * u * t * t * r + t ** 3 * s
                                  for p, q, r, s in zip(a, b, c, d)))
        else:
            line.append(point())
    return line
