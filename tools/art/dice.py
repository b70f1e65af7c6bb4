"""The die: its six faces, and how it looks before a throw. Old ivory with drilled and inked pips."""

from .palette import IVORY, IVORY_DARK, IVORY_LIGHT
from .svg import Drawing, num, points

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


# What is seen of a die that stands on a corner: the face above and the two in front.
SIDES = {5: (3, 1), 6: (2, 3)}
HALF, LOW, TALL = 22.5, 12, 13.5  # half the width, how much a corner lies below the next, half a side's height


def draw_ready(face):
    """The die before it is thrown, `face` above: it stands on a corner, which no thrown die does."""
    die = Drawing((0, 0, 64, 64), f"The die before a throw, face {face} above. Drawn by tools/make_art.py.")
    die.soft_disc(35.5, 39, 20, 5, 0.55)
    left, right = SIDES[face]
    middle = 30
    sides = ((face, 32, middle - LOW, (HALF / 2, LOW / 2), (-HALF / 2, LOW / 2), ("#ffffff", "#f6ead0")),
             (left, 32 - HALF / 2, middle + TALL - LOW / 2, (HALF / 2, LOW / 2), (0, TALL), ("#f0e2c0", "#d2bc90")),
             (right, 32 + HALF / 2, middle + TALL - LOW / 2, (HALF / 2, -LOW / 2), (0, TALL), ("#cfb88a", "#94794c")))
    for pips, x, y, (ux, uy), (vx, vy), (near, far) in sides:
        corners = [(x + ux * a + vx * b, y + uy * a + vy * b) for a, b in ((-1, -1), (1, -1), (1, 1), (-1, 1))]
        tone = die.linear(*corners[0], *corners[2], (0, near), (1, far))
        die.path(points(corners), fill=tone, stroke=tone, stroke_width=3.2, stroke_linejoin="round")
        die.open_group("matrix({})".format(" ".join(num(n / 20) for n in (ux, uy, vx, vy)) + f" {num(x)} {num(y)}"))
        for dx, dy in PIPS[pips]:
            draw_pip(die, 11.4 * dx, 11.4 * dy, 4.2)
        die.close_group()
    # The rounded edges between the three catch the lamp.
    for x, y in ((32 - HALF, middle - LOW), (32 + HALF, middle - LOW), (32, middle + 2 * TALL)):
        die.line(32, middle, x, y, stroke="#ffffff", stroke_width=1.3, stroke_opacity=0.75, stroke_linecap="round")
    return die
