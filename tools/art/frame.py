"""The board's varnished frame: four mitred mouldings, a brass inlay, and its shadow on the paper."""

from .palette import BRASS, BRASS_DARK, BRASS_LIGHT, MAHOGANY, MAHOGANY_DARK, MAHOGANY_LIGHT
from .svg import mix, points

WIDTH = 15.0


def draw_frame(board, side):
    out, o = side + WIDTH, -WIDTH
    board.rect(-15.6, -15.6, side + 31.2, side + 31.2, fill="#1c0d06")
    mouldings = (
        # corners, outer edge point, inner edge point, light on this side
        ([(o, o), (out, o), (side, 0), (0, 0)], (0, o), (0, 0), 0.22),
        ([(o, o), (0, 0), (0, side), (o, out)], (o, 0), (0, 0), 0.1),
        ([(out, o), (out, out), (side, side), (side, 0)], (out, 0), (side, 0), -0.12),
        ([(o, out), (0, side), (side, side), (out, out)], (0, out), (0, side), -0.25),
    )
    for corners, outer, inner, light in mouldings:
        board.path(points(corners), fill=_moulding(board, outer, inner, light))
    for corner in ((o, o, 0, 0), (out, o, side, 0), (o, out, 0, side), (out, out, side, side)):
        board.line(*corner, stroke="#2a1208", stroke_width=0.6)
    _inlay(board, side)


def _moulding(board, outer, inner, light):
    def lit(colour):
        return mix(colour, "#ffd9a0", light) if light > 0 else mix(colour, "#120603", -light)
    return board.linear(*outer, *inner, (0, lit(MAHOGANY_DARK)), (0.1, lit(MAHOGANY)), (0.3, lit(MAHOGANY_LIGHT)),
                        (0.55, lit(MAHOGANY)), (0.85, lit(MAHOGANY_DARK)), (1, "#2a1008"))


def _inlay(board, side):
    metal = board.linear(0, 0, 0, side, (0, BRASS_LIGHT), (0.3, BRASS), (0.5, BRASS_LIGHT), (0.75, BRASS),
                         (1, BRASS_DARK))
    for grow, fill, width in ((2.3, "#241008", 4.8), (3.2, metal, 1.6)):
        board.rect(-grow, -grow, side + 2 * grow, side + 2 * grow, stroke=fill, stroke_width=width)


def draw_inner_edge(board, side):
    """The frame's shadow on the paper; the light comes from the top left."""
    depth = 7.0
    down = board.linear(0, 0, 0, depth, (0, "#1a0c04", 0.42), (0.4, "#1a0c04", 0.14), (1, "#1a0c04", 0))
    right = board.linear(0, 0, depth, 0, (0, "#1a0c04", 0.42), (0.4, "#1a0c04", 0.14), (1, "#1a0c04", 0))
    board.rect(0, 0, side, depth, fill=down)
    board.rect(0, 0, depth, side, fill=right)
