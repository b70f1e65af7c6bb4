"""Reads the board off a picture: which colour's piece stands where."""

from math import cos, pi, sin

from inifile import COLOURS, PIECES


def _hue(red, green, blue):
    """The colour 1..4 that a pixel has, 0 for paper, wood and shadow."""
    if red > 110 and green > 80 and blue < 0.62 * min(red, green):
        return 1 if abs(red - green) < 0.45 * red else 0
    if blue > 90 and blue > 1.3 * max(red, green):
        return 2
    if red > 90 and red > 1.7 * max(green, blue):
        return 3
    if green > 55 and green > 1.3 * max(red, blue):
        return 4
    return 0


def piece_at(picture, layout, point):
    """The colour of the piece whose middle is drawn at a point; 0 when none is. A piece is a disc of
    its colour, yellow's with a dark mark in the middle, the others' with one of ivory."""
    x, y = layout.device(point)
    size = layout.piece_size * layout.unit
    y -= size * 2.6 / 28  # its face lies above its middle
    middle = picture.pixel(x, round(y))
    dark = min(max(picture.pixel(x, round(y + down))) for down in (-0.6, 0, 0.6))
    # The ring of yellow's mark; a footprint is smaller.
    ring = min(max(picture.pixel(round(x + aside * size), round(y))) for aside in (-0.2, -1 / 6, 1 / 6, 0.2))
    mark = 1 if dark < 115 and ring < 160 else 2 if min(middle) > 190 else 0
    body = [_hue(*picture.pixel(round(x + cos(a * pi / 6) * size * 0.33), round(y + sin(a * pi / 6) * size * 0.28)))
            for a in range(12 if mark else 0)]
    colour = max(COLOURS, key=body.count)
    return colour if body.count(colour) >= 7 and mark == (1 if colour == 1 else 2) else 0


def die_at_rest(picture, layout, colour):
    """The face of the die that lies upright in a colour's tray; 0 when it is empty, None when it waits."""
    x, y, width, height = layout.trays[colour - 1]
    pip = width * 64 / 72 * 14.2 / 64
    middle = (x + width / 2, y + height / 2)
    seen = [picture.pixel(*layout.device((middle[0] + dx * pip, middle[1] + dy * pip)))
            for dx, dy in ((0, 0), (-1, -1), (1, 1), (1, -1), (-1, 1), (-1, 0), (1, 0), (1.24, 0.48), (-1.24, -0.48))]
    pips = "".join("x" if max(each) < 100 else "." if min(each) > 190 else "?" for each in seen)
    faces = ("x......", ".xx....", "xxx....", ".xxxx..", "xxxxx..", ".xxxxxx")
    if "." not in pips:
        return 0
    # A die that waits stands on a corner: its sides in front are darker than any upright face.
    return faces.index(pips[:7]) + 1 if pips[7:] == ".." and pips[:7] in faces else None


def difference(picture, layout, positions):
    """What the picture shows otherwise than those positions; empty when it agrees with them. The pieces of a
    square may lie there in any order; a place without a piece shows 0."""
    groups, wrong, standing = [], [], {square: [] for square in range(1, 101)}
    for colour in COLOURS:
        for piece in PIECES:
            square = positions[colour][piece - 1]
            groups.append(([layout.box(colour, piece)], [0 if square else colour]))
            if square:
                standing[square].append(colour)
    for square, colours in standing.items():
        slots = range(1, max(1, len(colours)) + 1)
        groups.append(([layout.slot(square, slot) for slot in slots], sorted(colours) or [0]))
    for places, colours in groups:
        seen = sorted(piece_at(picture, layout, place) for place in places)
        if seen != colours:
            wrong.append("at %s: %s instead of %s" % (places, seen, colours))
    return "; ".join(wrong)
