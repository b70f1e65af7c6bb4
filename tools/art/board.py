"""The board: 21 cells of 33 units, in a frame of 16.

Only the lower arm, yellow's, is described. Quarter turns counter-clockwise give the arms of blue, red and green,
with their numbers upright for the player on that side. Coordinates are in units of the drawing from the top left
corner of the field within the frame.
"""

from . import frame, house
from .digits import number
from .palette import BRASS, BRASS_DARK, BRASS_LIGHT, INK, PAPER, PAPER_DARK, PAPER_LIGHT, TONES
from .svg import Drawing, mix, points, star

CELL = 33.0
BLOCK = 77.0
SIDE = 21 * CELL
MIDDLE = SIDE / 2
LINE = 1.0
LINE_INK = mix(INK, PAPER, 0.1)
FIGURE = 12.0


def turned(arm):
    """A function that turns a point of the lower arm to the arm of colour `arm` + 1."""
    def place(x, y):
        x, y = x - MIDDLE, y - MIDDLE
        for _ in range(arm):
            x, y = y, -x
        return x + MIDDLE, y + MIDDLE
    return place


def square_number(arm, square):
    """The number of a square of arm `arm`; `square` is the number of its counterpart on the lower arm."""
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
    # Shaded downwards only: a slanting gradient of this size takes ten times as long to paint.
    sheet = board.linear(0, 0, 0, SIDE, (0, PAPER_LIGHT), (0.5, PAPER), (1, PAPER_DARK))
    board.rect(0, 0, SIDE, SIDE, fill=sheet)


def _quad(place, x1, y1, x2, y2):
    return points([place(*p) for p in ((x1, y1), (x2, y1), (x2, y2), (x1, y2))])


def _coloured_squares(board, arm):
    place = turned(arm)
    for row in range(7):
        _inlaid_square(board, arm, place, 4 * BLOCK, (13 + row) * CELL)
    x, y = row_centre(5)
    _inlaid_square(board, arm, place, x - BLOCK / 2, y - CELL / 2)


def _inlaid_square(board, arm, place, x, y):
    # The full colour without shading, in a narrow border of a deeper tone.
    tones = TONES[arm + 1]
    board.path(_quad(place, x, y, x + BLOCK, y + CELL), fill=tones.edge)
    left = 3 if x < MIDDLE else 2
    board.path(_quad(place, x + left, y + 2, x + BLOCK - 3, y + CELL - 3), fill=tones.base)


def _goal(board, arm):
    tones, place = TONES[arm + 1], turned(arm)
    corners = [(8 * CELL, 13 * CELL), (13 * CELL, 13 * CELL), (MIDDLE, MIDDLE)]
    cx, cy = place(MIDDLE, 12.35 * CELL)
    shade = board.radial(cx, cy, 2.7 * CELL, (0, tones.base), (0.5, tones.base), (1, tones.edge))
    board.path(points([place(*p) for p in corners]), fill=shade)
    for across, forward in ((4.5, 0), (4.9, 0), (4.1, 0), (4.5, 0.4)):
        x, y = place(across * BLOCK, 12.5 * CELL - forward * BLOCK)
        board.circle(x + 0.5, y + 0.5, 12.4, stroke=mix(tones.base, "#ffffff", 0.3), stroke_width=1)
        board.circle(x, y, 12.4, stroke=mix(tones.base, tones.deep, 0.45), stroke_width=1)


def _safe_rings(board):
    for arm in range(4):
        place = turned(arm)
        for square in (5, 63, 68):
            x, y = place(*row_centre(square))
            tones = TONES[arm + 1]
            ink, ground, middle = (tones.ink, tones.base, tones.base) if square == 5 else (INK, PAPER, PAPER_LIGHT)
            board.circle(x, y, 14.2, fill=mix(ink, ground, 0.12))
            board.circle(x, y, 12.9, fill=ground)
            board.circle(x, y, 11.4, fill=mix(ink, ground, 0.4))
            board.circle(x, y, 10.7, fill=middle)


def _crisp(value):
    # A line one unit wide covers whole pixels if it lies beside the border of the cells, not across it.
    return value + LINE / 2 if value < MIDDLE else value - LINE / 2


def _arm_lines():
    x1, x2, x3, x4 = (_crisp(i * BLOCK) for i in (3, 4, 5, 6))
    yield (x1, SIDE - x1), (x1, SIDE)
    yield (x2, 13 * CELL), (x2, SIDE)
    yield (x3, 13 * CELL), (x3, SIDE)
    yield (x4, x4), (x4, SIDE)
    for row in range(14, 21):
        yield (x1, _crisp(row * CELL)), (x4, _crisp(row * CELL))
    yield (8 * CELL, _crisp(13 * CELL)), (13 * CELL, _crisp(13 * CELL))
    yield (MIDDLE, MIDDLE), (14 * CELL, 14 * CELL)


def _lines(board):
    # Opaque strokes, one element each: Qt's renderer is many times slower with translucent or joined ones.
    for arm in range(4):
        place = turned(arm)
        for start, end in _arm_lines():
            board.line(*place(*start), *place(*end), stroke=LINE_INK, stroke_width=LINE)


def _figure_place(arm, square):
    """Where the figure of a square stands on the lower arm, and how high it is."""
    x, y = row_centre(square)
    if square == 68:
        # The second piece in the middle of an arm's end goes to the right or down on the screen.
        return (x - 26.5 if arm in (0, 3) else x + 26.5), y, FIGURE
    outward = 1 if square < 60 else -1
    if square in (8, 60):
        # Between the piece and the cut corner: lower and smaller.
        return x + outward * 17, y + 9, FIGURE - 3
    return x + outward * 26.5, y, FIGURE


def _figures(board):
    for arm in range(4):
        for square in [*range(1, 9), *range(60, 69)]:
            x, y, height = _figure_place(arm, square)
            board.path(number(square_number(arm, square), x, y, height, turned(arm)),
                       stroke=TONES[arm + 1].ink if square == 5 else INK, stroke_width=1.5,
                       stroke_linecap="round", stroke_linejoin="round")


def _medallion(board):
    m, r = MIDDLE, 17.5
    board.soft_disc(m + 0.8, m + 1, r, 1.8, 0.45)
    slant = (m - r, m - r, m + r, m + r)
    board.circle(m, m, r, fill=board.linear(*slant, (0, BRASS_LIGHT), (0.5, BRASS), (1, BRASS_DARK)))
    board.circle(m, m, r - 2, fill=board.linear(*slant, (0, BRASS_DARK), (0.5, BRASS), (1, BRASS_LIGHT)))
    board.circle(m, m, r - 3, fill="#54301a")
    board.path(star(m, m, r - 3.6, 5.4, 8), fill=board.linear(m, m - r, m, m + r, (0, BRASS_LIGHT), (1, BRASS)))
    board.circle(m, m, 3.2, fill="#54301a")
    board.circle(m, m, r, stroke=INK, stroke_width=0.8, stroke_opacity=0.8)
