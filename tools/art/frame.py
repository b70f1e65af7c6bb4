"""The board's varnished frame: four mitred mouldings, a brass string, brass fittings and its shadow on the paper."""

import math

from .palette import BRASS, BRASS_DARK, BRASS_LIGHT, MAHOGANY, MAHOGANY_DARK, MAHOGANY_LIGHT
from .svg import mix, points

WIDTH = 15.0
GROOVE = "#241008"
FITTING, ARM = 13.0, 36.0  # the width of a corner's brass, and how far it reaches along the frame


def draw_frame(board, side):
    out, o = side + WIDTH, -WIDTH
    board.rect(-15.6, -15.6, side + 31.2, side + 31.2, fill="#1c0d06")
    mouldings = (
        # corners, outer edge point, inner edge point, light on this side
        ([(o, o), (out, o), (side, 0), (0, 0)], (0, o), (0, 0), 0.24),
        ([(o, o), (0, 0), (0, side), (o, out)], (o, 0), (0, 0), 0.12),
        ([(out, o), (out, out), (side, side), (side, 0)], (out, 0), (side, 0), -0.16),
        ([(o, out), (0, side), (side, side), (out, out)], (0, out), (0, side), -0.3),
    )
    for corners, outer, inner, light in mouldings:
        board.path(points(corners), fill=_moulding(board, outer, inner, light))
    _string(board, side)
    for i in range(4):
        _fitting(board, side, i)


def _moulding(board, outer, inner, light):
    def lit(colour):
        return mix(colour, "#ffd9a0", light) if light > 0 else mix(colour, "#120603", -light)
    # The narrow line of light in the varnish lies where the moulding is round.
    gloss = mix(MAHOGANY_LIGHT, "#ffe2b4", 0.3)
    return board.linear(*outer, *inner, (0, lit(MAHOGANY_DARK)), (0.08, lit(MAHOGANY)), (0.24, lit(MAHOGANY_LIGHT)),
                        (0.3, lit(gloss)), (0.37, lit(MAHOGANY_LIGHT)), (0.55, lit(MAHOGANY)),
                        (0.85, lit(MAHOGANY_DARK)), (1, "#2a1008"))


def _string(board, side):
    metal = board.linear(0, 0, 0, side, (0, BRASS_LIGHT), (0.3, BRASS), (0.5, BRASS_LIGHT), (0.75, BRASS),
                         (1, BRASS_DARK))
    for grow, fill, width in ((2.3, GROOVE, 4.8), (3.2, metal, 1.6)):
        board.rect(-grow, -grow, side + 2 * grow, side + 2 * grow, stroke=fill, stroke_width=width)


def _fitting(board, side, corner):
    """The brass on a corner, clockwise from the top left: an angle with pointed ends, engraved, on two pins."""
    def at(x, y):
        # From the frame's corner along both of its sides to the middle of the board.
        x, y = x - 14.6 - side / 2, y - 14.6 - side / 2
        for _ in range(corner):
            x, y = -y, x
        return x + side / 2, y + side / 2

    def angle(grow):
        w, a, g = FITTING + grow, ARM + grow, -grow
        tip = ((a - 9, g), (a - 5, g + 2.2), (a - 5.4, 4.6), (a, FITTING / 2), (a - 5.4, w - 4.6), (a - 5, w - 2.2),
               (a - 9, w))
        return [(g, g), *tip, (w + 1.5, w), (w, w + 1.5), *((y, x) for x, y in reversed(tip))]

    metal = board.linear(*at(0, 0), *at(26, 26), *_METAL[corner])
    for grow, fill in ((1, "#1c0d06"), (0.2, _EDGE[corner]), (-0.5, metal)):
        board.path(points([at(x, y) for x, y in angle(grow)]), fill=fill)
    _engraving(board, at)


# Old brass, by the corner that it lies on: the nearer to the lamp, the lighter.
_OLD = mix(BRASS, BRASS_DARK, 0.35)
_METAL = tuple(((0, mix(_OLD, BRASS_LIGHT, 0.15 * lit)), (0.35, mix(_OLD, BRASS_LIGHT, 0.62 * lit)),
                (0.65, mix(_OLD, BRASS_DARK, 0.3 - 0.3 * lit)), (1, mix(_OLD, BRASS_DARK, 0.9 - 0.5 * lit)))
               for lit in (1, 0.6, 0.2, 0.6))
_EDGE = (BRASS_LIGHT, BRASS, BRASS_DARK, BRASS)


def _engraving(board, at):
    line = mix(BRASS_DARK, "#3a2408", 0.45)
    petals = []
    for i in range(5):
        # A quarter of a rose around the inner corner, as in the houses.
        turn = math.radians(180 + 9 + 18 * i)
        petals.append([(FITTING - 1.4 + r * math.cos(turn + t), FITTING - 1.4 + r * math.sin(turn + t))
                       for r, t in ((3, 0), (7.6, -0.11), (9, 0), (7.6, 0.11))])
    board.path("".join(points([at(*p) for p in petal]) for petal in petals), fill=line)
    for x, y in ((23, 6.5), (6.5, 23)):
        px, py = at(x, y)
        board.circle(px + 0.4, py + 0.5, 2.2, fill=line)
        board.circle(px, py, 1.9, fill=BRASS_LIGHT)


def draw_inner_edge(board, side):
    """The frame's shadow on the paper; the light comes from the top left."""
    depth = 8.0
    fall = ((0, "#1a0c04", 0.5), (0.4, "#1a0c04", 0.18), (1, "#1a0c04", 0))
    board.rect(0, 0, side, depth, fill=board.linear(0, 0, 0, depth, *fall))
    board.rect(0, 0, depth, side, fill=board.linear(0, 0, depth, 0, *fall))
