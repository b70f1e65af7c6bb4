"""The table top: wide planks of oiled walnut in full light; the program paints where the lamp leaves shade."""

import math
import random

from .svg import Drawing, mix, num

WIDTH, HEIGHT = 1920, 1080
PLANKS = ((0, 262), (262, 274), (536, 278), (814, 266))
DARK, BODY, LIGHT = "#52290f", "#a56836", "#d6955a"
STEP = 150  # between the points of a line of the grain, about


def draw():
    table = Drawing((0, 0, WIDTH, HEIGHT), "The table top. Drawn by tools/make_art.py.")
    chance = random.Random(1492)
    for top, height in PLANKS:
        _plank(table, chance, top, height)
    for top, _ in PLANKS[1:]:
        _seam(table, top)
    return table


def _plank(table, chance, top, height):
    body = mix(BODY, chance.choice((DARK, LIGHT)), chance.uniform(0, 0.08))
    table.rect(0, top, WIDTH, height + 1, fill=body)
    flow = _flow(chance, top, height)
    # The board hides most of the left half, and windows, which are of this wood, have texts on it.
    for lines, left, right in ((4, -200, 1020), (25, 980, WIDTH)):
        for line in range(lines):
            start = (line + chance.uniform(0.1, 0.9)) / lines
            tone, share = chance.choice(((DARK, chance.uniform(0.15, 0.6)), (LIGHT, chance.uniform(0.1, 0.5))))
            width = chance.choice((1, 1.4, 1.8, 2.6, 4, 8))
            first = chance.uniform(left, left + (right - left) * 0.6)
            last = min(first + chance.uniform(0.4, 0.95) * (right - left), right + 200)
            _grain(table, flow, start, width, (first, last), fill=mix(body, tone, share / (1 + width * 0.1)))


def _flow(chance, top, height):
    """Where a line of the grain lies at x, by where it starts (0..1 of the plank's height).

    The lines part around two hearts, as they do where the saw has cut a plank flat, and sway a little.
    """
    hearts = ((chance.uniform(200, 700), chance.uniform(260, 420)),
              (chance.uniform(1500, 1800), chance.uniform(150, 260)))
    middle, swing = chance.uniform(0.35, 0.65), chance.uniform(0, 6)

    def height_at(start, x):
        away = start - middle
        parted = sum(math.exp(-((x - heart) / length) ** 2) for heart, length in hearts)
        push = 0.16 * parted * math.copysign(math.exp(-(away / 0.2) ** 2), away)
        sway = 0.03 * math.sin(x / 310 + swing + 2 * start) + 0.014 * math.sin(x / 127 + 3 * swing)
        place = start + push * (0.4 + abs(away)) + sway * (1 - 2 * abs(start - 0.5))
        return top + height * min(max(place, 0.004), 0.996)

    return height_at


def _grain(table, flow, start, width, ends, **style):
    """A line of the grain that swells and thins out. Its cost for Qt is that of its length."""
    pieces = max(2, round((ends[1] - ends[0]) / STEP))
    upper, lower = [], []
    for piece in range(pieces + 1):
        x = ends[0] + (ends[1] - ends[0]) * piece / pieces
        swell = width / 2 * math.sin(math.pi * piece / pieces) ** 0.6
        upper.append((x, flow(start, x) - swell))
        lower.append((x, flow(start, x) + swell))
    table.path(_curve("M", upper) + _curve("L", lower[::-1]) + "Z", **style)


def _curve(begin, points):
    """Path data of a smooth curve through points of the same distance."""
    data = f"{begin}{num(points[0][0])} {num(points[0][1])}"
    for i in range(len(points) - 1):
        (x0, y0), (x1, y1), (x2, y2), (x3, y3) = (points[max(0, min(i + k, len(points) - 1))] for k in (-1, 0, 1, 2))
        data += (f"C{num(x1 + (x2 - x0) / 6)} {num(y1 + (y2 - y0) / 6)} {num(x2 - (x3 - x1) / 6)} "
                 f"{num(y2 - (y3 - y1) / 6)} {num(x2)} {num(y2)}")
    return data


def _seam(table, y):
    """A fine joint with rounded edges."""
    table.rect(0, y - 7, WIDTH, 7, fill=table.linear(0, y - 7, 0, y, (0, "#1c0e06", 0), (1, "#1c0e06", 0.26)))
    table.rect(0, y, WIDTH, 1, fill=mix(BODY, "#000000", 0.42))
    table.rect(0, y + 1, WIDTH, 4, fill=table.linear(0, y + 1, 0, y + 5, (0, "#ffd9a8", 0.1), (1, "#ffd9a8", 0)))
