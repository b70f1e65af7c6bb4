"""The shadow of the whole board on the table, drawn under it; light comes from the top left."""

import math

from .svg import Drawing

BOARD = (-15, -15, 723, 723)  # the frame's outer edge, in the board's units


def draw():
    shadow = Drawing((-76, -76, 845, 845), "The board's shadow on the table; units and origin are the board's. "
                                           "Drawn by tools/make_art.py.")
    left, top, width, height = BOARD
    _wide(shadow, left + 15, top + 19, width, height)
    shadow.soft_rect(left + 3, top + 4, width, height, 4, 4, 0.7, layers=4)
    return shadow


def _wide(shadow, x, y, width, height):
    """A blurred rectangle of 24 nested ones. The outermost and innermost are faint, so that none shows its edge."""
    layers, blur, opacity = 24, 38, 0.78
    for i in range(layers):
        at = (i + 0.5) / layers
        grow, share = blur * (1 - 2 * at), (1 - math.cos(2 * math.pi * at)) / layers
        shadow.rect(x - grow, y - grow, width + 2 * grow, height + 2 * grow, 44 + grow,
                    fill="#000000", fill_opacity=f"{1 - (1 - opacity) ** share:.3f}")
