"""A player's house: resting places for the waiting pieces, the die's tray and the name plate."""

from .marks import draw_mark
from .palette import INK, TONES
from .svg import mix

SIDE = 231.0


def draw_house(board, colour, x, y):
    """Draws the house with its corner at (x, y)."""
    tones = TONES[colour]
    _ground(board, tones, x, y)
    _resting_places(board, tones, x + 33, y + SIDE / 2)
    _disc(board, tones, x + 140, y + 128)
    _plate(board, tones, x + 62, y + 35)
    _tray(board, tones, x + 104, y + 92)
    draw_mark(board, colour, x + 140.6, y + 128.8, 34, fill="#ffffff", fill_opacity=0.16)
    draw_mark(board, colour, x + 140, y + 128, 34, fill=mix(tones.deep, "#000000", 0.25))


def _ground(board, tones, x, y):
    shade = board.linear(x, y, x + SIDE, y + SIDE, (0, mix(tones.house, tones.light, 0.35)), (0.45, tones.house),
                         (1, mix(tones.house, tones.deep, 0.3)))
    board.rect(x, y, SIDE, SIDE, fill=shade)
    # Two opaque lines, one dark and one lit, read as a groove.
    board.rect(x + 6.5, y + 6.5, SIDE - 12, SIDE - 12, 7, stroke=mix(tones.house, tones.light, 0.6), stroke_width=1)
    board.rect(x + 5.5, y + 5.5, SIDE - 12, SIDE - 12, 7, stroke=mix(tones.house, tones.deep, 0.55), stroke_width=1)


def _sunk(board, tones, x, y, width, height, rx):
    # A recess: dark under its upper left edge, a line of light on the lower right one.
    board.rect(x - 0.2, y - 0.2, width + 1.4, height + 1.4, rx + 0.6, fill=mix(tones.house, "#ffffff", 0.4))
    board.rect(x - 0.8, y - 0.8, width + 1.4, height + 1.4, rx + 0.6, fill=mix(tones.house, tones.deep, 0.55))


def _resting_places(board, tones, cx, cy):
    left, top, width, height = cx - 20, cy - 68, 40, 136
    _sunk(board, tones, left, top, width, height, 20)
    floor = board.linear(left, top, left + width, top + height, (0, mix(tones.deep, tones.house, 0.45)),
                         (1, mix(tones.deep, tones.house, 0.75)))
    board.rect(left, top, width, height, 20, fill=floor)
    for i in range(4):
        y = cy + 32 * (i - 1.5)
        hollow = board.linear(cx - 10, y - 10, cx + 10, y + 10, (0, mix(tones.deep, "#000000", 0.25)),
                              (1, mix(tones.deep, tones.house, 0.55)))
        board.circle(cx + 0.5, y + 0.6, 14.2, fill=mix(tones.house, tones.light, 0.4))
        board.circle(cx, y, 14.2, fill=hollow)
        board.circle(cx + 0.8, y + 0.9, 12.3, fill=mix(tones.deep, tones.house, 0.4))


def _disc(board, tones, cx, cy):
    # The round paper field of a traditional house, printed with two rings in the colour.
    board.circle(cx + 0.7, cy + 0.8, 64.6, fill=mix(tones.house, tones.light, 0.7))
    board.circle(cx - 0.5, cy - 0.6, 64.6, fill=mix(tones.house, tones.deep, 0.7))
    paper = board.linear(cx - 45, cy - 45, cx + 45, cy + 45, (0, mix(tones.tint, "#ffffff", 0.4)),
                         (1, mix(tones.tint, tones.house, 0.12)))
    board.circle(cx, cy, 64, fill=paper)
    board.circle(cx, cy, 60.6, stroke=tones.house, stroke_width=1.6)
    board.circle(cx, cy, 57.8, stroke=tones.house, stroke_width=0.7)


def _plate(board, tones, x, y):
    _sunk(board, tones, x, y, 156, 26, 6)
    floor = board.linear(x, y, x, y + 26, (0, "#efe4cb"), (0.25, "#faf4e4"), (1, "#fffbf0"))
    board.rect(x, y, 156, 26, 6, fill=floor)


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
