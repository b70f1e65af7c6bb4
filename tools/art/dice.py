"""The six faces of the die: old ivory with drilled and inked pips."""

from .palette import IVORY, IVORY_DARK, IVORY_LIGHT
from .svg import Drawing

PIPS = {
    1: [(0, 0)],
    2: [(-1, -1), (1, 1)],
    3: [(-1, -1), (0, 0), (1, 1)],
    4: [(-1, -1), (1, -1), (-1, 1), (1, 1)],
    5: [(-1, -1), (1, -1), (0, 0), (-1, 1), (1, 1)],
    6: [(-1, -1), (1, -1), (-1, 0), (1, 0), (-1, 1), (1, 1)],
}


def draw(face):
    die = Drawing((0, 0, 64, 64), f"The die, face {face}. Drawn by tools/make_art.py.")
    die.soft_rect(8.5, 9.5, 50, 50, 10, 3.4, 0.55, layers=12)
    draw_body(die, 6, 6, 52)
    for dx, dy in PIPS[face]:
        draw_pip(die, 32 + 14.2 * dx, 32 + 14.2 * dy, 5)
    return die


def draw_body(die, x, y, side):
    """The ivory body, lit from the top left, with rolled edges."""
    end_x, end_y = x + side, y + side
    die.rect(x, y, side, side, 11,
             fill=die.linear(x, y, end_x, end_y, (0, "#e8d7b2"), (0.5, IVORY_DARK), (1, "#7c6238")))
    die.rect(x + 0.9, y + 0.9, side - 2, side - 2, 10.2,
             fill=die.linear(x, y, end_x, end_y, (0, "#ffffff"), (0.45, IVORY), (1, "#bfa676")))
    die.rect(x + 3.6, y + 3.4, side - 7.6, side - 7.6, 9.5,
             fill=die.linear(x + 4, y + 4, end_x - 4, end_y - 4, (0, IVORY_LIGHT), (0.6, "#fbf3e0"), (1, "#efe2c4")))


def draw_pip(die, x, y, r):
    """A drilled hollow: the wall at the top left in shade, the opposite lip lit."""
    die.circle(x + 0.5, y + 0.6, r + 0.2, fill="#ffffff")
    die.circle(x, y, r, fill=die.linear(x - r, y - r, x + r, y + r, (0, "#0c0604"), (1, "#5a4234")))
    die.circle(x + 0.5, y + 0.6, r - 1, fill="#26170f")
