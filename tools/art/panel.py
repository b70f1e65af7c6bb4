"""The leather band beside the board and the recorder's case on it.

The program stretches all of them but the reel and the cup: the corners keep their size, the 16 units between them
grow.
"""

import math

from .palette import BRASS, BRASS_DARK, BRASS_LIGHT, MAHOGANY, MAHOGANY_DARK, MAHOGANY_LIGHT
from .svg import Drawing, mix

MIDDLE = 16
LEATHER_LIGHT, LEATHER, LEATHER_DARK = "#35200f", "#28170a", "#190d06"


def drawings():
    """Yields the name of each image of the panel and the function that draws it."""
    yield "panel_band", draw_band
    yield "panel_shadow", draw_shadow
    yield "panel_case", draw_case
    yield "panel_reel", draw_reel
    yield "panel_cup", draw_cup


def _stretchable(corner, note):
    side = 2 * corner + MIDDLE
    return Drawing((0, 0, side, side), f"{note}; its middle {MIDDLE} units are stretched. Drawn by "
                                       "tools/make_art.py."), side


def draw_band():
    band, side = _stretchable(24, "The band of leather under the instruments")
    band.rect(0, 0, side, side, 7, fill="#000000", fill_opacity=0.28)
    band.rect(1, 1, side - 2, side - 2, 6.4, fill="#140904")
    wood = band.linear(0, 0, side, 0, (0, MAHOGANY_LIGHT), (0.06, MAHOGANY), (0.5, MAHOGANY), (0.94, MAHOGANY),
                       (1, MAHOGANY_DARK))
    band.rect(1.6, 1.6, side - 3.2, side - 3.2, 6, fill=wood)
    band.rect(2.4, 2.4, side - 4.8, side - 4.8, 5.4, stroke=mix(MAHOGANY_LIGHT, "#ffd9a0", 0.15), stroke_width=0.7)
    band.rect(5.6, 5.6, side - 11.2, side - 11.2, 3.6, fill="#1c0c05")
    band.rect(6.2, 6.2, side - 12.4, side - 12.4, 3.2, fill=BRASS)
    band.rect(7.2, 7.2, side - 14.4, side - 14.4, 2.8, fill="#120a05")
    hide = band.linear(0, 0, side, 0, (0, LEATHER_DARK), (0.3, LEATHER), (0.44, LEATHER_LIGHT), (0.56, LEATHER_LIGHT),
                       (0.72, LEATHER), (1, LEATHER_DARK))
    band.rect(7.8, 7.8, side - 15.6, side - 15.6, 2.4, fill=hide)
    for x, width, left, right in ((7.8, 9, 0.6, 0), (side - 12.8, 5, 0, 0.35)):
        band.rect(x, 7.8, width, side - 15.6,
                  fill=band.linear(x, 0, x + width, 0, (0, "#000000", left), (1, "#000000", right)))
    # Two lines of gold, as a bookbinder presses them.
    for inset, weight, tone in ((12.5, 0.9, mix(BRASS, LEATHER, 0.35)), (14.6, 0.5, mix(BRASS, LEATHER, 0.55))):
        band.rect(inset, inset, side - 2 * inset, side - 2 * inset, 4, stroke=tone, stroke_width=weight)
    return band


def draw_shadow():
    shadow, side = _stretchable(20, "The shadow of the case with the large keys")
    shadow.soft_rect(11, 12, side - 21, side - 21, 4, 7, 0.75, layers=12)
    return shadow


def draw_case():
    case, side = _stretchable(14, "The recorder's case")
    case.soft_rect(3.4, 3.8, side - 6, side - 6, 6, 2.6, 0.6, layers=8)
    case.rect(2, 1, side - 4, side - 4, 6, fill="#120703")
    edge = case.linear(0, 1, 0, side - 3, (0, mix(MAHOGANY_LIGHT, "#ffd9a0", 0.35)), (0.5, MAHOGANY),
                       (1, MAHOGANY_DARK))
    case.rect(2.6, 1.6, side - 5.2, side - 5.2, 5.5, fill=edge)
    face = case.linear(0, 2, 0, side - 4, (0, mix(MAHOGANY_LIGHT, MAHOGANY, 0.45)), (0.5, MAHOGANY),
                       (1, mix(MAHOGANY, MAHOGANY_DARK, 0.6)))
    case.rect(3.8, 2.8, side - 7.6, side - 7.6, 4.4, fill=face)
    case.rect(6.2, 5.2, side - 12.4, side - 12.4, 2.8, stroke=mix(BRASS, MAHOGANY, 0.25), stroke_width=0.7)
    # The slit that the paper comes out of.
    top = side - 6.4
    case.rect(8, top - 1.6, side - 16, 4.4, 1.2,
              fill=case.linear(0, top - 1.6, 0, top + 2.8, (0, BRASS_LIGHT), (0.45, BRASS), (1, BRASS_DARK)))
    case.rect(9.4, top + 0.2, side - 18.8, 2.2, 0.8, fill="#0c0502")
    return case


def draw_reel():
    reel = Drawing((0, 0, 64, 64), "A reel of the recorder. Drawn by tools/make_art.py.")
    reel.soft_disc(33, 33.6, 28.4, 2.4, 0.6)
    rim = reel.linear(8, 8, 56, 56, (0, BRASS_LIGHT), (0.45, BRASS), (1, BRASS_DARK))
    reel.circle(32, 32, 29.4, fill="#120703")
    reel.circle(32, 32, 28.8, fill=rim)
    reel.circle(32, 32, 27.2, fill="#1a0f09")
    for radius, tone in ((26.2, "#33231a"), (23.6, "#2a1b13"), (21, "#33231a"), (18.4, "#2a1b13"), (15.8, "#33231a")):
        reel.circle(32, 32, radius, stroke=tone, stroke_width=1)
    reel.path("M32 32L9 19A26.2 26.2 0 0 1 21 8.2Z", fill="#ffffff", fill_opacity=0.07)
    reel.path("M32 32L55 45A26.2 26.2 0 0 1 43 55.8Z", fill="#ffffff", fill_opacity=0.05)
    reel.circle(32.5, 32.8, 14, fill="#000000", fill_opacity=0.5)
    reel.circle(32, 32, 13.6, fill=reel.linear(22, 22, 43, 43, (0, BRASS_LIGHT), (0.5, BRASS), (1, BRASS_DARK)))
    reel.circle(32, 32, 12.2, fill=reel.linear(22, 22, 43, 43, (0, BRASS), (0.5, BRASS_LIGHT), (1, BRASS)))
    for third in range(3):
        angle = math.radians(120 * third - 90)
        x, y = 32 + 7.2 * math.cos(angle), 32 + 7.2 * math.sin(angle)
        reel.circle(x + 0.4, y + 0.5, 3.3, fill="#fff4cf")
        reel.circle(x, y, 3.2, fill="#24130a")
    reel.circle(32, 32, 2.6, fill="#24130a")
    reel.circle(31.6, 31.5, 1.5, fill=BRASS_LIGHT)
    return reel


def draw_cup():
    """An empty dice cup seen from above: the only die lies on the board."""
    cup = Drawing((0, 0, 140, 140), "A dice cup on the table. Drawn by tools/make_art.py.")
    x, y = 64, 64
    cup.soft_disc(x + 12, y + 14, 50, 10, 0.5)
    cup.soft_disc(x + 3, y + 4, 52, 4, 0.6)
    cup.circle(x, y, 53, fill="#1a0b05")
    slant = (x - 38, y - 40, x + 38, y + 40)
    cup.circle(x, y, 52, fill=cup.linear(*slant, (0, "#c8804a"), (0.5, "#94562e"), (1, "#5c2f18")))
    cup.circle(x, y, 49.4, fill=cup.linear(*slant, (0, "#a8653a"), (0.5, "#8a4e2a"), (1, "#6c3c20")))
    for stitch in range(44):
        angle = math.radians(360 / 44 * stitch)
        half = math.radians(2.6)
        ends = [(x + 45.6 * math.cos(angle + way * half), y + 45.6 * math.sin(angle + way * half)) for way in (-1, 1)]
        cup.line(*ends[0], *ends[1], stroke="#e0b888", stroke_width=1.5, stroke_linecap="round")
    cup.circle(x, y, 41.6, fill="#1a0b05")
    cup.circle(x, y, 41, fill=cup.linear(*slant, (0, "#170b06"), (0.6, "#3a2014"), (1, "#6b3c22")))
    cup.circle(x + 1.6, y + 2, 35,
               fill=cup.radial(x + 10, y + 13, 40, (0, "#6a3a1e"), (0.55, "#3a1d0e"), (1, "#150a05")))
    cup.circle(x + 1.6, y + 2, 35, fill=cup.linear(x - 25, y - 25, x + 24, y + 25, (0, "#0c0502", 0.88),
                                                   (0.5, "#0c0502", 0.5), (0.78, "#0c0502", 0.14), (1, "#0c0502", 0)))
    # The rim, polished by many hands.
    cup.path(f"M{x - 46} {y - 16}A48.6 48.6 0 0 1 {x - 16} {y - 46}", stroke="#ffdca8", stroke_width=2.4,
             stroke_opacity=0.55, stroke_linecap="round")
    cup.path(f"M{x + 38.6} {y + 12}A40.4 40.4 0 0 1 {x + 12} {y + 38.6}", stroke="#ffcf98", stroke_width=1.6,
             stroke_opacity=0.5, stroke_linecap="round")
    return cup
