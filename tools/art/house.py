"""A player's house: a trough for the waiting pieces, the die's tray and the name plate, or a lid over all of it.

Its ground is lacquer over a veneer whose rays run from the tray. A brass string runs along the edge, with a fan of
shaded ivory in each corner, and the tray lies in the middle of an eight-pointed star.
"""

import copy
import math

from .marks import draw_mark
from .palette import (BRASS, BRASS_DARK, BRASS_LIGHT, INK, MAHOGANY, MAHOGANY_DARK, MAHOGANY_LIGHT,
                      PAPER, PAPER_LIGHT, TONES)
from .svg import Drawing, mix, num, points, star

SIDE = 231.0
EDGE = 5.0  # of the brass string, from the house's edge
FAN = 19.0  # the radius of a corner's fan
ROSETTE = (140, 128)  # its middle, which is the tray's
PANEL = 10.0  # of the field with the rays, from the house's edge
RAYS = 24  # of the veneer around the tray, every other one dark
IVORY_LIT, IVORY_SHADE = "#d0ba8c", "#8a6a3a"  # of inlays: each is split along its middle
DARK = "#140a05"


def draw_house(board, colour, x, y):
    """Draws the house with its corner at (x, y)."""
    tones = _lacquer(colour)
    _ground(board, TONES[colour], x, y)
    _edge(board, tones, x, y)
    _trough(board, tones, x + 33, y + SIDE / 2)
    _rosette(board, tones, x + ROSETTE[0], y + ROSETTE[1])
    _plate(board, tones, x + 62, y + 35)
    _tray(board, tones, x + 104, y + 92)
    _inlaid_mark(board, tones, colour, x + ROSETTE[0], y + ROSETTE[1])


def _lacquer(colour):
    tones = copy.copy(TONES[colour])
    if colour == 1:
        tones.deep = "#6e4200"  # inlays must stand out from gold, too
    return tones


def _ground(board, tones, x, y):
    # Upright gradients, the second over all, are painted quicker than one that slants.
    def lacquer(darker):
        tints = ((0, tones.light, 0.42), (0.16, tones.light, 0.3), (0.55, tones.deep, 0), (1, tones.deep, 0.4))
        return board.linear(0, y, 0, y + SIDE, *((at, mix(mix(tones.house, tint, share), tones.deep, darker))
                                                 for at, tint, share in tints))
    board.rect(x, y, SIDE, SIDE, fill=lacquer(0))
    for ray in _rays(x, y):
        board.path(ray, fill=lacquer(0.13))
    board.path(_panel(x, y), stroke=mix(tones.house, tones.deep, 0.55), stroke_width=1)
    board.rect(x, y, SIDE, SIDE, fill=board.linear(x, 0, x + SIDE, 0, (0, tones.deep, 0), (0.25, tones.deep, 0),
                                                   (0.6, tones.deep, 0.14), (1, tones.deep, 0.5)))


def _edge(board, tones, x, y):
    """The brass string along the edge, with its fans."""
    metal = board.linear(0, y, 0, y + SIDE, (0, mix(BRASS_LIGHT, BRASS, 0.35)), (0.5, BRASS), (1, BRASS_DARK))
    for fill, width in ((mix(tones.deep, "#000000", 0.3), 2.6), (metal, 1.3)):
        board.rect(x + EDGE, y + EDGE, SIDE - 2 * EDGE, SIDE - 2 * EDGE, stroke=fill, stroke_width=width)
    _fans(board, tones, x, y)


def _panel(x, y):
    """The outline of the field within the string, hollowed at the corners around their fans."""
    first = math.asin((PANEL - EDGE) / (FAN + 4))
    hollow = [(EDGE + (FAN + 4) * math.sin(turn), EDGE + (FAN + 4) * math.cos(turn))
              for turn in (first + i * (math.pi / 2 - 2 * first) / 6 for i in range(7))]
    outline = []
    for _ in range(4):
        outline += hollow
        hollow = [(SIDE - b, a) for a, b in hollow]
    return points([(x + a, y + b) for a, b in outline])


def _rays(x, y):
    """Every other ray of the veneer, from the rosette to the edge of its field, one path each."""
    def end(turn):
        c, s = math.cos(turn), math.sin(turn)
        reach = min((SIDE - PANEL - ROSETTE[0] if c > 0 else ROSETTE[0] - PANEL) / max(abs(c), 1e-9),
                    (SIDE - PANEL - ROSETTE[1] if s > 0 else ROSETTE[1] - PANEL) / max(abs(s), 1e-9))
        while any(math.hypot(ROSETTE[0] + reach * c - cx, ROSETTE[1] + reach * s - cy) < FAN + 4
                  for cx in (EDGE, SIDE - EDGE) for cy in (EDGE, SIDE - EDGE)):
            reach -= 0.25
        return x + ROSETTE[0] + reach * c, y + ROSETTE[1] + reach * s

    for i in range(0, RAYS, 2):
        turns = [2 * math.pi * (i + share) / RAYS for share in (0.5, 1, 1.5)]
        foot = [(x + ROSETTE[0] + 60 * math.cos(turn), y + ROSETTE[1] + 60 * math.sin(turn))
                for turn in (turns[-1], turns[0])]
        yield points([*map(end, turns), *foot])


def _facet(x, y, turn, outline):
    """A figure that is drawn along the x axis around the origin, turned by `turn` degrees and put at (x, y)."""
    c, s = math.cos(math.radians(turn)), math.sin(math.radians(turn))
    return points([(x + c * a - s * b, y + s * a + c * b) for a, b in outline])


def _inlays(board, inlays, light=IVORY_LIT, shade=IVORY_SHADE):
    """Inlays, of ivory unless other colours are given: each a place, a direction and half its outline, from the axis
    to the right. One half of each lies in the light of the lamp, the other is shaded; all that are alike make one
    path."""
    lit, shaded = "", ""
    for x, y, turn, half in inlays:
        for side in (1, -1):
            data = _facet(x, y, turn, [(a, side * b) for a, b in half])
            if math.cos(math.radians(turn + 90 * side + 135)) > 0:
                lit += data
            else:
                shaded += data
    board.path(shaded, fill=shade)
    board.path(lit, fill=light)


def _fans(board, tones, x, y):
    petal = ((3.5, 0), (13.6, 1.8), (16.3, 1.3), (17.2, 0))
    for cx, cy, first in ((x + EDGE, y + EDGE, 0), (x + SIDE - EDGE, y + EDGE, 90),
                          (x + SIDE - EDGE, y + SIDE - EDGE, 180), (x + EDGE, y + SIDE - EDGE, 270)):
        start = math.radians(first)
        ax, ay = math.cos(start), math.sin(start)
        for radius, fill in ((FAN + 0.9, BRASS), (FAN - 0.3, mix(tones.deep, "#000000", 0.25))):
            board.path(f"M{num(cx)} {num(cy)}L{num(cx + radius * ax)} {num(cy + radius * ay)}"
                       f"A{num(radius)} {num(radius)} 0 0 1 {num(cx - radius * ay)} {num(cy + radius * ax)}Z",
                       fill=fill)
        _inlays(board, [(cx, cy, first + 9 + 18 * i, petal) for i in range(5)])


def _trough(board, tones, cx, cy):
    # Mahogany let into the lacquer within a brass string.
    left, top, width, height = cx - 20, cy - 68, 40, 136
    for grow, fill in ((1.5, mix(tones.house, tones.deep, 0.8)), (0.9, BRASS), (-0.3, DARK)):
        board.rect(left - grow, top - grow, width + 2 * grow, height + 2 * grow, 20 + grow, fill=fill)
    wood = board.linear(left, 0, left + width, 0, (0, "#532a17"), (0.4, "#66351d"), (1, "#43210f"))
    board.rect(left + 0.9, top + 0.9, width - 1.8, height - 1.8, 19.1, fill=wood)


def draw_rest(colour):
    """The hollow in which a waiting piece lies, in the units of a piece's drawing."""
    tones = _lacquer(colour)
    rest = Drawing((0, 0, 40, 40), "The place of a waiting piece. Drawn by tools/make_art.py.")
    # The edge is turned round: in its own shade above and left, in the light below and right.
    rest.circle(20, 20, 16, fill=rest.linear(9, 9, 31, 31, (0, "#2a1208"), (0.45, "#5a2e18"), (1, "#b9794a")))
    rest.circle(20, 20, 14.9, fill=DARK)
    floor = mix(tones.deep, tones.house, 0.35)
    rest.circle(20.2, 20.3, 14.5, fill=rest.radial(22.6, 23.4, 17, (0, floor), (0.45, mix(floor, DARK, 0.3)),
                                                   (0.8, mix(floor, DARK, 0.72)), (1, DARK)))
    return rest


def draw_place(colour):
    """The ring of an exit, in its colour, or 0 of a safe square on plain paper."""
    place = Drawing((0, 0, 40, 40), "A safe place to stand on. Drawn by tools/make_art.py.")
    if colour:
        tones = TONES[colour]
        place.circle(20, 20, 14.6, fill=tones.base)
        place.circle(20, 20, 14.6, stroke=mix(tones.base, tones.deep, 0.8), stroke_width=1.1)
    else:
        # Printed flat and lighter than any piece, with the star of the board's middle.
        print_ = mix(BRASS_DARK, PAPER, 0.3)
        place.circle(20, 20, 15.4, fill=print_)
        place.circle(20, 20, 14.4, fill=PAPER)
        place.circle(20, 20, 13.2, stroke=print_, stroke_width=0.6)
        place.path(star(20, 20, 11.4, 4.4, 8), fill=print_)
        place.circle(20, 20, 2.4, fill=PAPER)
    return place


def draw_well(colour):
    """A well of the goal: its upper left side lies in its own shade, its lower right edge in the light."""
    tones = TONES[colour]
    well = Drawing((0, 0, 40, 40), "The place of a piece that has come home. Drawn by tools/make_art.py.")
    well.circle(20.9, 21, 14, fill=mix(tones.base, BRASS_LIGHT, 0.8))
    well.circle(20, 20, 14, fill=mix(tones.deep, "#000000", 0.5))
    for inset, radius, shade in ((0.8, 13, 0.9), (1.2, 12.6, 0.66), (1.5, 12.4, 0.4)):
        well.circle(20 + inset, 20 + inset, radius, fill=mix(tones.base, tones.deep, shade))
    floor = well.linear(12, 12, 31, 31, (0, mix(tones.base, tones.deep, 0.7)),
                        (0.16, mix(tones.base, tones.deep, 0.3)), (0.28, tones.base), (1, tones.base))
    well.circle(21.8, 21.8, 12.1, fill=floor)
    return well


def draw_lid(colour):
    """The lid over the house of a colour that takes no part: closed, with nothing to be seen but whose it is."""
    tones, m = TONES[colour], SIDE / 2
    lid = Drawing((0, 0, SIDE, SIDE), "The lid of a house that takes no part. Drawn by tools/make_art.py.")
    lid.rect(0, 0, SIDE, SIDE, fill=lid.linear(0, 0, SIDE, SIDE, (0, "#7a4022"), (0.5, "#643019"), (1, "#4c220f")))
    _edge(lid, tones, 0, 0)
    # A field that is raised within a groove: its edges are lit above and left.
    for off, stroke in ((1, "#260f05"), (0, MAHOGANY_LIGHT)):
        lid.path(_panel(off, off), stroke=stroke, stroke_width=1.2)
    _inlays(lid, [(m, m, 45 * i, ((20, 0), (31, 4), (52 - 14 * (i % 2), 0))) for i in range(8)])
    lid.soft_disc(m + 1.4, m + 2, 26, 3, 0.5)
    slant = (m - 26, m - 26, m + 26, m + 26)
    lid.circle(m, m, 26, fill=lid.linear(*slant, (0, BRASS_LIGHT), (0.5, BRASS), (1, BRASS_DARK)))
    lid.circle(m, m, 23.8, fill=lid.linear(*slant, (0, MAHOGANY_DARK), (1, MAHOGANY)))
    draw_mark(lid, colour, m, m, 26, fill=mix(tones.base, tones.light, 0.25))
    return lid


def _rosette(board, tones, cx, cy):
    """The star in which the tray lies: its square is one of the two that make the star."""
    board.circle(cx, cy, 64.7, fill=mix(tones.deep, "#000000", 0.3))
    metal = board.linear(cx, cy - 64, cx, cy + 64, (0, BRASS_LIGHT), (0.5, BRASS), (1, BRASS_DARK))
    board.circle(cx, cy, 64, fill=metal)
    board.circle(cx, cy, 62.4, fill=board.linear(0, cy - 62, 0, cy + 62, (0, mix(tones.house, tones.deep, 0.55)),
                                                 (0.12, mix(tones.house, tones.deep, 0.3)),
                                                 (1, mix(tones.house, tones.deep, 0.75))))
    tip = ((36, 0), (36, 22), (58, 0))
    kite = ((47.5, 0), (53, 3.1), (59.5, 0))
    ground = mix(tones.house, tones.deep, 0.5)
    for quarter in range(0, 360, 90):
        _inlays(board, [(cx, cy, quarter, tip), (cx, cy, quarter + 22.5, kite), (cx, cy, quarter - 22.5, kite)],
                mix(BRASS, ground, 0.2), mix(BRASS_DARK, ground, 0.35))


def _plate(board, tones, x, y):
    # Ivory let into the ground: all outlines have the same centres of their corners.
    metal = board.linear(0, y, 0, y + 26, (0, BRASS_LIGHT), (0.4, BRASS), (1, BRASS_DARK))
    for grow, fill in ((2.4, mix(tones.house, tones.deep, 0.8)), (1.7, metal), (0.4, "#5a3c12")):
        board.rect(x - grow, y - grow, 156 + 2 * grow, 26 + 2 * grow, 5 + grow, fill=fill)
    board.rect(x, y, 156, 26, 5, fill=board.linear(0, y, 0, y + 26, (0, "#d9c9a6"), (0.16, "#eadfc6"),
                                                   (1, "#f3e9d3")))


def _tray(board, tones, x, y):
    side = 72
    board.soft_rect(x - 2.2, y - 1.6, side + 6, side + 6, 9, 1.4, 0.34, layers=2)
    board.rect(x - 4.4, y - 4.4, side + 8.8, side + 8.8, 9.4, fill="#2a1208")
    wood = board.linear(0, y - 4, 0, y + side + 4, (0, MAHOGANY_LIGHT), (0.4, MAHOGANY), (1, MAHOGANY_DARK))
    board.rect(x - 3.9, y - 3.9, side + 7.8, side + 7.8, 8.9, fill=wood)
    metal = board.linear(x, y, x, y + side, (0, BRASS_DARK), (0.5, BRASS), (1, BRASS_LIGHT))
    board.rect(x - 1, y - 1, side + 2, side + 2, 7, fill=metal)
    board.rect(x, y, side, side, 6.2, fill=mix(tones.deep, DARK, 0.7))
    felt = board.linear(0, y, 0, y + side, (0, mix(tones.house, tones.deep, 0.8)),
                        (0.3, mix(tones.house, tones.deep, 0.55)), (1, mix(tones.house, tones.deep, 0.3)))
    board.rect(x + 0.5, y + 0.5, side - 1, side - 1, 5.8, fill=felt)
    fall = ((0, "#000000", 0.45), (0.4, "#000000", 0.16), (1, "#000000", 0))
    board.rect(x + 0.5, y + 0.5, side - 1, 11, 5.5, fill=board.linear(x, y, x, y + 11, *fall))
    board.rect(x + 0.5, y + 0.5, 11, side - 1, 5.5, fill=board.linear(x, y, x + 11, y, *fall))


def _inlaid_mark(board, tones, colour, cx, cy):
    """The player's mark in brass, let into the felt: quiet, for the die lies on it. Yellow's is of dark wood."""
    felt = mix(tones.house, tones.deep, 0.35)
    upper, lower = (tones.deep, mix(tones.deep, felt, 0.2)) if colour == 1 else (
        mix(BRASS, felt, 0.25), mix(BRASS_DARK, felt, 0.1))
    draw_mark(board, colour, cx - 0.5, cy - 0.6, 33, fill=mix(tones.deep, DARK, 0.4))
    draw_mark(board, colour, cx + 0.5, cy + 0.6, 33, fill=mix(felt, BRASS_LIGHT, 0.4))
    draw_mark(board, colour, cx, cy, 32.4, fill=board.linear(0, cy - 17, 0, cy + 17, (0, upper), (1, lower)))
