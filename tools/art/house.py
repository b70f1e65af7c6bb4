"""A player's house: a trough for the waiting pieces, the die's tray and the name plate, or a lid over all of it."""

from .marks import draw_mark
from .palette import (BRASS, BRASS_DARK, BRASS_LIGHT, INK, IVORY_DARK, MAHOGANY, MAHOGANY_DARK, MAHOGANY_LIGHT,
                      PAPER, PAPER_LIGHT, TONES)
from .svg import Drawing, mix, star

SIDE = 231.0


def draw_house(board, colour, x, y):
    """Draws the house with its corner at (x, y)."""
    tones = TONES[colour]
    _ground(board, tones, x, y)
    _trough(board, tones, x + 33, y + SIDE / 2)
    _disc(board, tones, x + 140, y + 128)
    _plate(board, tones, x + 62, y + 35)
    _tray(board, tones, x + 104, y + 92)
    draw_mark(board, colour, x + 140.6, y + 128.8, 34, fill="#ffffff", fill_opacity=0.16)
    draw_mark(board, colour, x + 140, y + 128, 34, fill=mix(tones.deep, "#000000", 0.25))


def _ground(board, tones, x, y):
    shade = board.linear(x, y, x + SIDE, y + SIDE, (0, mix(tones.house, tones.light, 0.35)), (0.45, tones.house),
                         (1, mix(tones.house, tones.deep, 0.22)))
    board.rect(x, y, SIDE, SIDE, fill=shade)
    # Two opaque lines, one dark and one lit, read as a groove.
    board.rect(x + 6.5, y + 6.5, SIDE - 12, SIDE - 12, 7, stroke=mix(tones.house, tones.light, 0.6), stroke_width=1)
    board.rect(x + 5.5, y + 5.5, SIDE - 12, SIDE - 12, 7, stroke=mix(tones.house, tones.deep, 0.55), stroke_width=1)


def _trough(board, tones, cx, cy):
    # A recess: dark under its upper left edge, a line of light on the lower right one.
    left, top, width, height = cx - 20, cy - 68, 40, 136
    board.rect(left + 0.5, top + 0.6, width + 0.6, height + 0.6, 20, fill=mix(tones.house, tones.light, 0.6))
    board.rect(left - 1, top - 1, width + 1.4, height + 1.4, 20.6, fill=mix(tones.house, tones.deep, 0.75))
    floor = board.linear(left, top, left + width, top + height, (0, mix(tones.deep, tones.house, 0.35)),
                         (1, mix(tones.deep, tones.house, 0.7)))
    board.rect(left, top, width, height, 20, fill=floor)


def draw_rest(colour):
    """The hollow in which a waiting piece lies, in the units of a piece's drawing."""
    tones = TONES[colour]
    rest = Drawing((0, 0, 40, 40), "The place of a waiting piece. Drawn by tools/make_art.py.")
    rest.circle(20.5, 20.7, 15.2, fill=mix(tones.deep, tones.light, 0.55))
    rest.circle(20, 20, 15.2, fill=mix(tones.deep, "#000000", 0.45))
    rest.circle(20.6, 20.8, 13.8, fill=rest.linear(10, 9, 30, 31, (0, mix(tones.deep, "#000000", 0.15)),
                                                   (1, mix(tones.deep, tones.house, 0.5))))
    return rest


def draw_place(colour):
    """The ring of a safe square or the well of a goal; 0 is the ring of a safe square on plain paper."""
    place = Drawing((0, 0, 40, 40), "A place to stand on. Drawn by tools/make_art.py.")
    if colour:
        tones = TONES[colour]
        # A well: its upper left edge lies in its own shade, its lower right one in the light.
        place.circle(20.7, 20.8, 15.3, fill=mix(tones.base, "#ffffff", 0.5))
        place.circle(20, 20, 15.5, fill=mix(tones.deep, tones.base, 0.15))
        place.circle(20.5, 20.5, 14.6, fill=mix(tones.base, tones.deep, 0.5))
        place.circle(20.7, 20.7, 14.3, fill=mix(tones.base, tones.deep, 0.25))
        place.circle(20.9, 20.9, 14.1, fill=tones.base)
    else:
        # Printed flat, with the star of the board's middle: nobody takes it for a piece.
        place.circle(20, 20, 15.5, fill=mix(INK, PAPER_LIGHT, 0.2))
        place.circle(20, 20, 14, fill=PAPER_LIGHT)
        place.circle(20, 20, 12.9, fill=mix(BRASS, PAPER_LIGHT, 0.35))
        place.circle(20, 20, 12.1, fill=PAPER)
        place.path(star(20, 20, 10.5, 4, 8), fill=mix(BRASS_DARK, PAPER, 0.55))
    return place


def draw_lid(colour):
    """The lid over the house of a colour that takes no part: closed, with nothing to be seen but whose it is."""
    tones, m = TONES[colour], SIDE / 2
    lid = Drawing((0, 0, SIDE, SIDE), "The lid of a house that takes no part. Drawn by tools/make_art.py.")
    lid.rect(0, 0, SIDE, SIDE, fill=lid.linear(0, 0, SIDE, SIDE, (0, "#7a4022"), (0.5, "#643019"), (1, "#4c220f")))
    # A field that is raised within a groove: its edges are lit above and left.
    for grow, fill in ((1.6, "#260f05"), (0.4, MAHOGANY_LIGHT)):
        lid.rect(18 - grow, 18 - grow, SIDE - 36 + 2 * grow, SIDE - 36 + 2 * grow, 6 + grow, fill=fill)
    lid.rect(19, 19, SIDE - 37, SIDE - 37, 6,
             fill=lid.linear(18, 18, SIDE - 18, SIDE - 18, (0, "#74391d"), (0.5, "#5c2b15"), (1, "#47200f")))
    lid.soft_disc(m + 1.4, m + 2, 26, 3, 0.5)
    slant = (m - 26, m - 26, m + 26, m + 26)
    lid.circle(m, m, 26, fill=lid.linear(*slant, (0, BRASS_LIGHT), (0.5, BRASS), (1, BRASS_DARK)))
    lid.circle(m, m, 23.8, fill=lid.linear(*slant, (0, MAHOGANY_DARK), (1, MAHOGANY)))
    draw_mark(lid, colour, m, m, 26, fill=mix(tones.base, tones.light, 0.25))
    return lid


def _disc(board, tones, cx, cy):
    # The round ivory field of a traditional house, printed with two rings in the colour.
    board.circle(cx + 0.7, cy + 0.8, 64.6, fill=mix(tones.house, tones.light, 0.6))
    board.circle(cx - 0.5, cy - 0.6, 64.6, fill=mix(tones.house, tones.deep, 0.75))
    ivory = board.linear(cx - 45, cy - 45, cx + 45, cy + 45, (0, mix(tones.tint, "#ffffff", 0.25)),
                         (1, mix(tones.tint, IVORY_DARK, 0.35)))
    board.circle(cx, cy, 64, fill=ivory)
    ring = mix(tones.house, tones.deep, 0.2)
    board.circle(cx, cy, 60.6, stroke=ring, stroke_width=1.6)
    board.circle(cx, cy, 57.8, stroke=ring, stroke_width=0.7)


def _plate(board, tones, x, y):
    # Ivory let into the ground: all outlines have the same centres of their corners.
    for grow, fill in ((1.6, mix(tones.house, tones.deep, 0.7)), (0.9, BRASS_DARK)):
        board.rect(x - grow, y - grow, 156 + 2 * grow, 26 + 2 * grow, 5 + grow, fill=fill)
    board.rect(x, y, 156, 26, 5, fill=board.linear(x, y, x, y + 26, (0, "#e9dcc0"), (0.2, "#f5ecd8"), (1, "#faf3e3")))


def _tray(board, tones, x, y):
    side = 72
    rim = board.linear(x - 5, y - 5, x + side + 5, y + side + 5, (0, "#8a5432"), (0.5, "#6b3c22"), (1, "#43210f"))
    board.soft_rect(x - 4, y - 3.6, side + 9, side + 9, 11, 1.2, 0.3, layers=2)
    board.rect(x - 5, y - 5, side + 10, side + 10, 11, fill=rim)
    board.rect(x - 4.5, y - 4.5, side + 9, side + 9, 10.5, stroke="#a87a4a", stroke_width=0.8)
    felt = board.radial(x + side / 2, y + side / 2, 52, (0, mix(tones.deep, tones.house, 0.6)),
                        (1, mix(tones.deep, tones.house, 0.2)))
    board.rect(x, y, side, side, 7, fill="#140a05")
    board.rect(x + 0.6, y + 0.6, side - 0.8, side - 0.8, 6.5, fill=felt)
    fall = ((0, "#000000", 0.5), (1, "#000000", 0))
    board.rect(x + 0.6, y + 0.6, side - 0.8, 9, 6, fill=board.linear(x, y, x, y + 9, *fall))
    board.rect(x + 0.6, y + 0.6, 9, side - 0.8, 6, fill=board.linear(x, y, x + 9, y, *fall))
    board.rect(x + 0.4, y + 0.4, side - 0.4, side - 0.4, 6.6, stroke=INK, stroke_width=0.8)
