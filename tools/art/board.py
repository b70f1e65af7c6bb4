"""The board: 21 cells of 33 units, in a frame of 16.

One arm is described, the lower one; turning it by quarter turns against the clock gives the
arms of blue, red and green, with the figures the right way round for the player at that side.
"""

from . import frame, house
from .digits import number
from .palette import BRASS, BRASS_DARK, BRASS_LIGHT, INK, PAPER, PAPER_DARK, PAPER_LIGHT, TONES
from .svg import Drawing, num, points, star

CELL = 33.0
BLOCK = 77.0
SIDE = 21 * CELL
MIDDLE = SIDE / 2
LINE = 1.0
FIGURE = 12.0
SAFE_ROWS = {"left": (63, 1), "right": (5, 2)}


def turned(arm):
    """The quarter turn that brings the lower arm to the arm of colour `arm` + 1."""
    def place(x, y):
        x, y = x - MIDDLE, y - MIDDLE
        for _ in range(arm):
            x, y = y, -x
        return x + MIDDLE, y + MIDDLE
    return place


def square_number(arm, square):
    """The number on arm `arm` of what is `square` on the lower arm."""
    return (square + 17 * arm - 1) % 68 + 1


def row_centre(square):
    """Centre of a square of the lower arm."""
    if square == 68:
        return 4.5 * BLOCK, 20.5 * CELL
    if square >= 60:
        return 3.5 * BLOCK, (square - 46.5) * CELL
    return 5.5 * BLOCK, (21.5 - square) * CELL


def draw():
    board = Drawing((-16, -16, 725, 725), "The board. Drawn by tools/make_art.py; units: a cell is 33.")
    frame.draw_frame(board, SIDE)
    _paper(board)
    for colour, column, row in ((3, 0, 0), (2, 6, 0), (4, 0, 6), (1, 6, 6)):
        house.draw_house(board, colour, column * BLOCK, row * BLOCK)
    for arm in range(4):
        _coloured_squares(board, arm)
        _goal(board, arm)
    _safe_rings(board)
    _lines(board)
    _figures(board)
    _medallion(board)
    frame.draw_inner_edge(board, SIDE)
    return board


def _paper(board):
    sheet = board.linear(0, 0, SIDE, SIDE, (0, PAPER_LIGHT), (0.5, PAPER), (1, PAPER_DARK))
    board.rect(0, 0, SIDE, SIDE, fill=sheet)


def _quad(place, x1, y1, x2, y2):
    return points([place(*p) for p in ((x1, y1), (x2, y1), (x2, y2), (x1, y2))])


def _across(board, place, x, y, tones):
    # Full colour over most of the lane's width, deeper at both of its ends.
    start, end = place(x, y), place(x + BLOCK, y)
    return board.linear(*start, *end, (0, tones.edge), (0.16, tones.base), (0.84, tones.base), (1, tones.edge))


def _coloured_squares(board, arm):
    tones, place = TONES[arm + 1], turned(arm)
    left, top = 4 * BLOCK, 13 * CELL
    board.path(_quad(place, left, top, left + BLOCK, top + 7 * CELL), fill=_across(board, place, left, top, tones))
    x, y = row_centre(5)
    x, y = x - BLOCK / 2, y - CELL / 2
    board.path(_quad(place, x, y, x + BLOCK, y + CELL), fill=_across(board, place, x, y, tones))


def _goal(board, arm):
    tones, place = TONES[arm + 1], turned(arm)
    corners = [(8 * CELL, 13 * CELL), (13 * CELL, 13 * CELL), (MIDDLE, MIDDLE)]
    cx, cy = place(MIDDLE, 12.35 * CELL)
    shade = board.radial(cx, cy, 2.7 * CELL, (0, tones.base), (0.5, tones.base), (1, tones.edge))
    board.path(points([place(*p) for p in corners]), fill=shade)
    for across, forward in ((4.5, 0), (4.9, 0), (4.1, 0), (4.5, 0.4)):
        x, y = place(across * BLOCK, 12.5 * CELL - forward * BLOCK)
        board.circle(x + 0.5, y + 0.5, 12.4, stroke="#ffffff", stroke_opacity=0.3, stroke_width=1)
        board.circle(x, y, 12.4, stroke=tones.deep, stroke_opacity=0.4, stroke_width=1)


def _safe_rings(board):
    for arm in range(4):
        place = turned(arm)
        for square in (5, 63, 68):
            x, y = place(*row_centre(square))
            ink, middle = INK, PAPER
            if square == 5:
                ink, middle = TONES[arm + 1].ink, TONES[arm + 1].base
            board.circle(x, y, 13.6, stroke=ink, stroke_width=1.3,
                         stroke_opacity=0.85, fill=middle if square == 5 else PAPER_LIGHT)
            board.circle(x, y, 11, stroke=ink, stroke_width=0.7, stroke_opacity=0.6)


def _crisp(value):
    # A line of one unit covers whole pixels when it lies beside the cells' borders.
    return value + LINE / 2 if value < MIDDLE else value - LINE / 2


def _lines(board):
    strokes = []
    for arm in range(4):
        place = turned(arm)
        for x in (4 * BLOCK, 5 * BLOCK):
            strokes.append([(_crisp(x), 13 * CELL), (_crisp(x), SIDE)])
        for row in range(14, 21):
            strokes.append([(3 * BLOCK, _crisp(row * CELL)), (6 * BLOCK, _crisp(row * CELL))])
        strokes.append([(8 * CELL, _crisp(13 * CELL)), (13 * CELL, _crisp(13 * CELL))])
        strokes.append([(6 * BLOCK, SIDE), (_crisp(6 * BLOCK), _crisp(6 * BLOCK)), (SIDE, _crisp(6 * BLOCK))])
        strokes[-1][0] = (_crisp(6 * BLOCK), SIDE)
        strokes = strokes[:-11] + [[place(*p) for p in s] for s in strokes[-11:]]
    for sign in (1, -1):
        corners = [(MIDDLE - 3.5 * CELL, MIDDLE - sign * 3.5 * CELL), (MIDDLE + 3.5 * CELL, MIDDLE + sign * 3.5 * CELL)]
        strokes.append(corners)
    data = "".join(points(s, closed=False) for s in strokes)
    board.path(data, stroke=INK, stroke_width=LINE, stroke_opacity=0.9)


def _figure_place(arm, square):
    """Where the figure of a square stands on the lower arm, and how high it is."""
    x, y = row_centre(square)
    if square == 68:
        # The second piece in the middle of an arm's end goes to the right or down on the screen.
        return (x - 26.5 if arm in (0, 3) else x + 26.5), y, FIGURE
    outward = 1 if square < 60 else -1
    if square in (8, 60):
        return x + outward * 18.3, y + 7.6, FIGURE - 2.4
    return x + outward * 26.5, y, FIGURE


def _figures(board):
    ink = {INK: "", PAPER_LIGHT: ""}
    for arm in range(4):
        for square in [*range(1, 9), *range(60, 69)]:
            colour = TONES[arm + 1].ink if square == 5 else INK
            x, y, height = _figure_place(arm, square)
            ink[colour] += number(square_number(arm, square), x, y, height, turned(arm))
    for colour, data in ink.items():
        board.path(data, stroke=colour, stroke_width=1.5, stroke_linecap="round", stroke_linejoin="round")


def _medallion(board):
    m, r = MIDDLE, 17.5
    board.soft_ellipse(m + 0.8, m + 1, r, r, 1.6, 0.4, layers=3)
    board.circle(m, m, r, fill=board.linear(m - r, m - r, m + r, m + r, (0, BRASS_LIGHT), (0.5, BRASS), (1, BRASS_DARK)))
    board.circle(m, m, r - 2, fill=board.linear(m - r, m - r, m + r, m + r, (0, BRASS_DARK), (0.5, BRASS), (1, BRASS_LIGHT)))
    board.circle(m, m, r - 3, fill="#54301a")
    board.path(star(m, m, r - 3.6, 5.4, 8), fill=board.linear(m, m - r, m, m + r, (0, BRASS_LIGHT), (1, BRASS)))
    board.circle(m, m, 3.2, fill="#54301a")
    board.circle(m, m, r, stroke=INK, stroke_width=0.8, stroke_opacity=0.8)
