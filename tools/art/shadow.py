"""The shadow of the whole board on the table, drawn under it; light comes from the top left."""

from .svg import Drawing

BOARD = (-15, -15, 723, 723)  # the frame's outer edge, in the board's units


def draw():
    shadow = Drawing((-48, -48, 789, 789), "The board's shadow on the table; units and origin are the board's. "
                                           "Drawn by tools/make_art.py.")
    left, top, width, height = BOARD
    shadow.soft_rect(left + 6, top + 8, width, height, 8, 18, 0.55, layers=14)
    shadow.soft_rect(left + 1.5, top + 2, width, height, 4, 2.4, 0.5, layers=4)
    return shadow
