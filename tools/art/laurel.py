"""What the winner of a game gets: a wreath of golden laurel around the die's tray, and a medal in it."""

import math

from .svg import Drawing, num

GOLD_LIGHT, GOLD, GOLD_DEEP, GOLD_DARK, RIM = "#fff1b8", "#eebf4a", "#b57f1c", "#7c5210", "#3b2404"
LAMP = -135  # the direction, in degrees, from which the light comes
RADIUS = 66  # of the branches, in the units of a house


def draw():
    """Two branches, tied below and open above. Its middle is that of the tray."""
    wreath = Drawing((-6, -6, 172, 172), "The winner's laurel. Drawn by tools/make_art.py.")
    leaves = [leaf for side in (1, -1) for leaf in _leaves(side)]
    for leaf in leaves:
        _shadow(wreath, *leaf)
    for side in (1, -1):
        _branch(wreath, side)
    for leaf in leaves:
        _leaf(wreath, *leaf)
    _ribbon(wreath)
    return wreath


def _at(angle, radius):
    turn = math.radians(angle)
    return 80 + radius * math.cos(turn), 80 + radius * math.sin(turn)


def _leaves(side):
    # From the tie to the tip, each pair further on; an angle of 90 is below.
    for step in range(8):
        angle = 90 - side * (16 + 16.2 * step)
        onward = angle - side * 90
        size = 1 - 0.035 * step
        yield (*_at(angle, RADIUS + 2), onward + side * 30, 23 * size, 8.6 * size)
        yield (*_at(angle - side * 5, RADIUS - 2), onward - side * 26, 20 * size, 7.6 * size)
    angle = 90 - side * (16 + 16.2 * 8)
    yield (*_at(angle, RADIUS), angle - side * 90, 17, 6.6)


def _half(x, y, direction, length, width, side):
    """Half a leaf, from its foot along the edge to the tip and back along the vein."""
    turn = math.radians(direction)
    along, across = (math.cos(turn), math.sin(turn)), (-math.sin(turn), math.cos(turn))

    def point(far, out):
        return " ".join(num(o + far * length * a + side * out * width * b)
                        for o, a, b in zip((x, y), along, across))
    return f"M{point(0, 0)}C{point(0.25, 0.62)} {point(0.7, 0.6)} {point(1, 0)}L{point(0, 0)}Z"


def _leaf(wreath, x, y, direction, length, width):
    for side in (1, -1):
        wreath.path(_half(x, y, direction, length, width, side), fill=RIM, stroke=RIM, stroke_width=1.5,
                    stroke_linejoin="round")
    for side in (1, -1):
        light = math.cos(math.radians(direction + side * 90 - LAMP))  # 1 where the half faces the lamp
        stops = ((0, GOLD_DEEP), (0.45, GOLD_LIGHT if light > 0.2 else GOLD), (1, GOLD)) if light > -0.2 else (
            (0, GOLD_DARK), (0.5, GOLD_DEEP), (1, GOLD_DEEP))
        turn = math.radians(direction)
        fill = wreath.linear(x, y, x + length * math.cos(turn), y + length * math.sin(turn), *stops)
        wreath.path(_half(x, y, direction, length, width, side), fill=fill)


def _shadow(wreath, x, y, direction, length, width):
    for side in (1, -1):
        wreath.path(_half(x + 1.6, y + 2, direction, length, width, side), fill="#000000", fill_opacity=0.28,
                    stroke="#000000", stroke_opacity=0.16, stroke_width=3)


def _branch(wreath, side):
    start, end = _at(90, RADIUS), _at(90 - side * 146, RADIUS)
    arc = f"M{num(start[0])} {num(start[1])}A{RADIUS} {RADIUS} 0 0 {0 if side > 0 else 1} {num(end[0])} {num(end[1])}"
    wreath.path(arc, stroke=RIM, stroke_width=3)
    wreath.path(arc, stroke=GOLD_DEEP, stroke_width=1.6)


def _ribbon(wreath):
    """The band that ties the branches, with two short ends."""
    lit, shade = "#e2402f", "#8c1010"
    for side in (1, -1):
        end = f"M80 {80 + RADIUS}L{num(80 + side * 20)} {80 + RADIUS + 5}L{num(80 + side * 14)} {80 + RADIUS + 8}" \
              f"L{num(80 + side * 15)} {80 + RADIUS + 14}L80 {80 + RADIUS + 3}Z"
        wreath.path(end, fill=lit if side < 0 else shade, stroke="#3c0505", stroke_width=1, stroke_linejoin="round")
    wreath.rect(74, 80 + RADIUS - 6, 12, 12, 3, stroke="#3c0505", stroke_width=1,
                fill=wreath.linear(74, 0, 86, 0, (0, lit), (1, shade)))


def draw_medal():
    """A medal with a raised star, which lies in the tray as a die does."""
    medal = Drawing((0, 0, 64, 64), "The winner's medal. Drawn by tools/make_art.py.")
    medal.soft_disc(34, 35, 24.5, 3, 0.5)
    slant = (14, 14, 50, 50)
    medal.circle(32, 32, 25.5, fill=RIM)
    medal.circle(32, 32, 24.6, fill=medal.linear(*slant, (0, GOLD_LIGHT), (0.5, GOLD), (1, GOLD_DARK)))
    medal.circle(32, 32, 21.4, fill=medal.linear(*slant, (0, GOLD_DARK), (0.6, GOLD_DEEP), (1, GOLD_LIGHT)))
    medal.circle(32, 32, 20.4, fill=medal.linear(*slant, (0, "#d9a436"), (1, "#f4d069")))
    corners = [(32 + r * math.sin(math.pi * i / 5), 32.6 - r * math.cos(math.pi * i / 5))
               for i, r in ((i, 7.4 if i % 2 else 18.6) for i in range(10))]
    outline = "M" + "L".join(f"{num(x)} {num(y)}" for x, y in corners) + "Z"
    medal.path(outline, fill=RIM, stroke=RIM, stroke_width=1.6, stroke_linejoin="round")
    for i, corner in enumerate(corners):
        following = corners[(i + 1) % 10]
        middle = math.degrees(math.pi * (i + 0.5) / 5) - 90
        across = middle + (90 if i % 2 else -90)  # a facet falls off to its side of the ray
        light = 0.65 * math.cos(math.radians(across - LAMP)) + 0.35 * math.cos(math.radians(middle - LAMP))
        fill = GOLD_LIGHT if light > 0.35 else GOLD if light > 0 else GOLD_DEEP if light > -0.5 else GOLD_DARK
        medal.path(f"M32 32.6L{num(corner[0])} {num(corner[1])}L{num(following[0])} {num(following[1])}Z", fill=fill)
    return medal
