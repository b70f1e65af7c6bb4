"""The board: 21 cells of 33 units, in a frame of 16, and what is printed on it.

The program draws the squares between the two, on the pixels of the screen. Only the lower arm, yellow's, is
described. Quarter turns counter-clockwise give the arms of blue, red and green. All numbers stand upright, for everybody
looks at the screen from the same side. Coordinates are in units of the drawing from the top left corner of the field
within the frame.
"""

from . import frame, house
from .digits import number
from .palette import BRASS, BRASS_DARK, BRASS_LIGHT, INK, PAPER, TONES
from .svg import Drawing, star

CELL = 33.0
BLOCK = 77.0
SIDE = 21 * CELL
MIDDLE = SIDE / 2
VIEW = (-16, -16, 725, 725)
FIGURE = 12.6
SHADE = "#6b4a1e"  # of the paper, far from the lamp
PRINT = "#604b39"  # of the figures: quieter than the pieces
ASIDE = 26.75  # from the middle of the lane to that of a figure: halfway between a piece's ring and the line


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
    board = Drawing(VIEW, "The board without its squares. Drawn by tools/make_art.py; units: a cell is 33.")
    frame.draw_frame(board, SIDE)
    _paper(board)
    for colour, column, row in ((3, 0, 0), (2, 6, 0), (4, 0, 6), (1, 6, 6)):
        house.draw_house(board, colour, column * BLOCK, row * BLOCK)
    return board


def draw_print():
    """What lies on the squares: their numbers, the medallion, the frame's shadow."""
    board = Drawing(VIEW, "What is printed on the board's squares. Drawn by tools/make_art.py; units: a cell is 33.")
    _figures(board)
    _medallion(board)
    frame.draw_inner_edge(board, SIDE)
    return board


def _paper(board):
    """Two sheets that cross, where no house lies on them. The lamp lights them from the top left."""
    # Two upright gradients: one that slants takes many times as long to paint.
    arm = 3 * BLOCK
    down = board.linear(0, 0, 0, SIDE, (0, "#fffaea"), (0.35, PAPER), (1, "#ead8ae"))
    across = board.linear(arm, 0, SIDE, 0, (0, SHADE, 0), (0.3, SHADE, 0.03), (1, SHADE, 0.1))
    for fill, left in ((down, 0), (across, arm)):
        board.rect(arm, 0, arm, arm, fill=fill)
        board.rect(left, arm, SIDE - left, arm, fill=fill)
        board.rect(arm, 2 * arm, arm, arm, fill=fill)


def _figure_place(arm, square):
    """Where the figure of a square stands on the lower arm: between its line and a piece in its middle."""
    x, y = row_centre(square)
    if square == 68:
        # The second piece in the middle of an arm's end goes to the right or down on the screen.
        return (x - ASIDE if arm in (0, 3) else x + ASIDE), y
    outward = 1 if square < 60 else -1
    # The corner that is cut leaves no room on the outer side.
    return x + (-outward if square in (8, 60) else outward) * ASIDE, y


def _figures(board):
    for arm in range(4):
        turn = turned(arm)
        for square in [*range(1, 9), *range(60, 69)]:
            x, y = turn(*_figure_place(arm, square))
            # Lines take the last unit of each square, and pieces stand in the middle of the rest.
            board.path(number(square_number(arm, square), x - 0.5, y - 0.5, FIGURE),
                       fill=TONES[arm + 1].ink if square == 5 else PRINT)


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
