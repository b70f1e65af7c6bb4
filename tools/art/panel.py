"""The leather pad beside the board, the recorder's case, its reels and the cup.

The program stretches the pad, its shadow and the case: the corners keep their size, the 16 units between them grow.
"""

import math
import random

from .palette import BRASS, BRASS_DARK, BRASS_LIGHT, MAHOGANY, MAHOGANY_DARK, MAHOGANY_LIGHT
from .svg import Drawing, mix, num, star

MIDDLE = 16
GRAIN, PEBBLE = 48, 4
LEATHER_LIGHT, LEATHER, LEATHER_DARK = "#3a5745", "#283f31", "#182a1f"
COGNAC_LIGHT, COGNAC, COGNAC_DARK = "#9a6136", "#7c4a27", "#5c361b"  # of the cup
GOLD = "#c9a055"
CUP_TURN = -38  # degrees; the mouth of the lying cup looks to the upper left
MOUTH_X, MOUTH_Y, MOUTH_RY, BASE_X = 43, -36, 18, 32  # the mouth's middle and radii, half the base


def drawings():
    """Yields the name of each image of the panel and the function that draws it."""
    yield "panel_band", draw_band
    yield "panel_grain", draw_grain
    yield "panel_shadow", draw_shadow
    yield "panel_case", draw_case
    yield "panel_slit", draw_slit
    yield "panel_reel", draw_reel
    yield "panel_crest", draw_crest
    yield "panel_cup", draw_cup


def _stretchable(corner, note):
    side = 2 * corner + MIDDLE
    return Drawing((0, 0, side, side), f"{note}; its middle {MIDDLE} units are stretched. Drawn by "
                                       "tools/make_art.py."), side


def draw_band():
    """A pad of green leather with an edge of brass. The program darkens it down the table."""
    band, side = _stretchable(24, "The pad of leather under the instruments")
    band.rect(0.6, 0.6, side - 1.2, side - 1.2, 5, fill="#1a0d05")
    band.rect(1.2, 1.2, side - 2.4, side - 2.4, 4.6, fill=mix(BRASS, LEATHER, 0.25))
    band.rect(2.2, 2.2, side - 4.4, side - 4.4, 3.8, fill="#22130a")
    band.rect(2.8, 2.8, side - 5.6, side - 5.6, 3.4,
              fill=band.linear(0, 0, side, 0, (0, LEATHER), (0.4, mix(LEATHER_LIGHT, LEATHER, 0.3)), (0.6, LEATHER),
                               (1, LEATHER_DARK)))
    # The padding falls off towards the edge, and more so on the side away from the lamp.
    for x, width, left, right in ((2.8, 13, 0.34, 0), (side - 22.8, 20, 0, 0.36)):
        band.rect(x, 2.8, width, side - 5.6,
                  fill=band.linear(x, 0, x + width, 0, (0, "#1a0d05", left), (1, "#1a0d05", right)))
    # Two lines of gold, as a bookbinder presses them: each lies in a groove. Qt is slower with one stroke.
    for inset, weight, share in ((5.8, 1.1, 0.1), (8.2, 0.6, 0.25)):
        for shift, tone in ((0.4, mix(LEATHER, "#20120a", 0.55)), (0, mix(GOLD, LEATHER, share))):
            near, far, length = inset + shift, side - inset - weight + shift, side - 2 * inset
            for x, y, width, height in ((near, near, length, weight), (near, far, length, weight),
                                        (near, near, weight, length), (far, near, weight, length)):
                band.rect(x, y, width, height, fill=tone)
    return band


def draw_grain():
    """The creases of leather; the program lays the tile over the pads again and again."""
    tile = Drawing((0, 0, GRAIN, GRAIN), "The grain of leather, a tile. Drawn by tools/make_art.py.")
    chance = random.Random()
    count = GRAIN // PEBBLE
    for row in range(-1, count + 1):
        for column in range(-1, count + 1):
            # What reaches over an edge of the tile comes in again at the other.
            chance.seed(f"{row % count} {column % count}")
            x, y = ((at + 0.5 + chance.uniform(-0.3, 0.3)) * PEBBLE for at in (column, row))
            wide, high = (PEBBLE * chance.uniform(0.4, 0.62) for _ in range(2))
            tile.ellipse(x + 0.5, y + 0.6, wide, high, stroke="#1a0a02", stroke_opacity=0.13, stroke_width=0.7)
            tile.ellipse(x - 0.3, y - 0.4, wide * 0.6, high * 0.6, fill="#e8f0d8", fill_opacity=0.06)
    return tile


def draw_shadow():
    """The shadow of a pad: gradients side by side, which Qt paints sooner than a pile of shapes."""
    shadow, side = _stretchable(20, "The shadow of a pad or of the paper")
    fall = [(0, "#000000", 0)] + [(share, "#000000", 0.72 * left) for share, left in
                                  ((0.25, 0.08), (0.45, 0.32), (0.7, 0.75), (1, 1))]
    corner, far = 20, 20 + MIDDLE
    for x, y in ((0, 0), (far, 0), (0, far), (far, far)):
        middle = (max(corner, x), max(corner, y))
        shadow.rect(x, y, corner, corner, fill=shadow.radial(
            *middle, corner, *[(1 - place, colour, opacity) for place, colour, opacity in reversed(fall)]))
    for outer, inner, at in ((0, corner, 0), (side, far, far)):
        shadow.rect(corner, at, MIDDLE, corner, fill=shadow.linear(0, outer, 0, inner, *fall))
        shadow.rect(at, corner, corner, MIDDLE, fill=shadow.linear(outer, 0, inner, 0, *fall))
    shadow.rect(corner, corner, MIDDLE, MIDDLE, fill="#000000", fill_opacity=0.72)
    return shadow


def draw_case():
    case, side = _stretchable(14, "The recorder's case")
    case.soft_rect(3.4, 3.8, side - 6, side - 6, 6, 2.6, 0.6, layers=8)
    case.rect(2, 1, side - 4, side - 4, 6, fill="#120703")
    edge = case.linear(0, 1, 0, side - 3, (0, mix(MAHOGANY_LIGHT, "#ffd9a0", 0.35)), (0.5, MAHOGANY),
                       (1, MAHOGANY_DARK))
    case.rect(2.6, 1.6, side - 5.2, side - 5.2, 5.5, fill=edge)
    face = case.linear(0, 2, 0, side - 4, (0, mix(MAHOGANY_LIGHT, MAHOGANY, 0.15)), (0.45, MAHOGANY),
                       (1, mix(MAHOGANY, MAHOGANY_DARK, 0.75)))
    case.rect(3.8, 2.8, side - 7.6, side - 7.6, 4.4, fill=face)
    case.rect(6.2, 5.2, side - 12.4, side - 12.4, 2.8, stroke=mix(BRASS_LIGHT, BRASS, 0.7), stroke_width=0.7)
    return case


def draw_slit():
    """The slit in the case that the paper comes out of; the program stretches it."""
    slit = Drawing((0, 0, 120, 4.4), "The slit that the paper comes out of. Drawn by tools/make_art.py.")
    slit.rect(0, 0, 120, 4.4, 1.2, fill=slit.linear(0, 0, 0, 4.4, (0, BRASS_LIGHT), (0.45, BRASS), (1, BRASS_DARK)))
    slit.rect(1.4, 1.8, 117.2, 2.2, 0.8, fill="#0c0502")
    return slit


def draw_crest():
    """The star of the board, pressed into the leather in gold."""
    crest = Drawing((0, 0, 132, 132), "The crest on the leather. Drawn by tools/make_art.py.")
    tone = mix(GOLD, LEATHER, 0.35)
    for shift, colour in ((0.9, mix(LEATHER_LIGHT, "#ffffff", 0.12)), (-0.7, "#0d1710"), (0, tone)):
        m = 66 + shift
        for radius, weight in ((62, 1.6), (57, 0.7), (24, 0.7)):
            crest.circle(m, m, radius, stroke=colour, stroke_width=weight)
        crest.path(star(m, m, 52, 21, 8), stroke=colour, stroke_width=1.2, stroke_linejoin="round")
        crest.path(star(m, m, 44, 15, 8, 22.5), stroke=colour, stroke_width=0.7, stroke_linejoin="round")
        crest.path(star(m, m, 19, 7, 8), fill=colour)
    return crest


def draw_reel():
    reel = Drawing((0, 0, 64, 64), "A reel of the recorder. Drawn by tools/make_art.py.")
    _platter(reel)
    _hub(reel, 13.6)
    for third in range(3):
        angle = math.radians(120 * third - 90)
        x, y = 32 + 7.2 * math.cos(angle), 32 + 7.2 * math.sin(angle)
        reel.circle(x + 0.4, y + 0.5, 3.3, fill="#fff4cf")
        reel.circle(x, y, 3.2, fill="#24130a")
    reel.circle(32, 32, 2.6, fill="#24130a")
    reel.circle(31.6, 31.5, 1.5, fill=BRASS_LIGHT)
    return reel


def draw_switch(pressed):
    """The reel that switches the recorder on and off. It glows while it is pressed, that is on."""
    state = "pressed" if pressed else "at rest"
    reel = Drawing((0, 0, 64, 64), f"Large key of the recorder: on and off, {state}. Drawn by tools/make_art.py.")
    _platter(reel)
    if pressed:
        reel.circle(32, 32, 27, fill=reel.radial(32, 32, 27, (0.5, "#ff8a26", 0.95), (1, "#ff7a1e", 0)))
    _hub(reel, 17)
    for shift, ink in ((0.7, "#fff4cf"), (0, "#a82c06" if pressed else "#24130a")):
        reel.path(f"M{num(27 + shift)} {num(26.6 + shift)}A7.8 7.8 0 1 0 {num(37 + shift)} {num(26.6 + shift)}",
                  stroke=ink, stroke_width=3, stroke_linecap="round")
        reel.line(32 + shift, 22.4 + shift, 32 + shift, 31 + shift, stroke=ink, stroke_width=3,
                  stroke_linecap="round")
    return reel


def _platter(reel):
    reel.soft_disc(33, 33.6, 28.4, 2.4, 0.6)
    rim = reel.linear(8, 8, 56, 56, (0, BRASS_LIGHT), (0.45, BRASS), (1, BRASS_DARK))
    reel.circle(32, 32, 29.4, fill="#120703")
    reel.circle(32, 32, 28.8, fill=rim)
    reel.circle(32, 32, 27.2, fill="#1a0f09")
    for radius, tone in ((26.2, "#33231a"), (23.6, "#2a1b13"), (21, "#33231a"), (18.4, "#2a1b13"), (15.8, "#33231a")):
        reel.circle(32, 32, radius, stroke=tone, stroke_width=1)
    reel.path("M32 32L9 19A26.2 26.2 0 0 1 21 8.2Z", fill="#ffffff", fill_opacity=0.07)
    reel.path("M32 32L55 45A26.2 26.2 0 0 1 43 55.8Z", fill="#ffffff", fill_opacity=0.05)


def _hub(reel, radius):
    reel.circle(32.5, 32.8, radius + 0.4, fill="#000000", fill_opacity=0.5)
    reel.circle(32, 32, radius, fill=reel.linear(22, 22, 43, 43, (0, BRASS_LIGHT), (0.5, BRASS), (1, BRASS_DARK)))
    reel.circle(32, 32, radius - 1.4, fill=reel.linear(22, 22, 43, 43, (0, BRASS), (0.5, BRASS_LIGHT), (1, BRASS)))


def draw_cup():
    """A dice cup of cognac leather, which lies on its side with its mouth towards the board."""
    cup = Drawing((0, 0, 140, 140), "A dice cup lying on the table. Drawn by tools/make_art.py.")
    _cup_shadow(cup)
    # From here on it stands upright, its mouth above; the lamp then hangs at the left.
    cup.open_group(f"translate(69 67) rotate({CUP_TURN}) scale(1.08)")
    _cup_wall(cup)
    _cup_mouth(cup)
    cup.close_group()
    return cup


def _cup_shadow(cup):
    """Of the cup's own shape, dark where it touches the table and soft away from the lamp."""
    layers = 12
    for i in range(layers):
        away = 1 - i / (layers - 1)
        cup.open_group(f"translate({num(70.5 + 8 * away)} {num(69 + 9 * away)}) rotate({CUP_TURN}) "
                       f"scale({num(1.06 + 0.1 * away)})")
        cup.path(_cup_outline(), fill="#0c0502", fill_opacity=0.1)
        cup.close_group()


def _cup_outline(inset=0.0):
    """Path data of the wall: the half of the rim below the mouth's middle, the sides and the round base."""
    top, low, floor = MOUTH_X - inset, BASE_X - inset, 50 - inset
    return (f"M{num(-top)} {num(MOUTH_Y)}C{num(-top + 1)} -10 {num(-low - 2.5)} 8 {num(-low)} 36"
            f"C{num(-low + 1)} {num(floor - 2)} {num(-low * 0.6)} {num(floor + 4)} 0 {num(floor + 4)}"
            f"C{num(low * 0.6)} {num(floor + 4)} {num(low - 1)} {num(floor - 2)} {num(low)} 36"
            f"C{num(low + 2.5)} 8 {num(top - 1)} -10 {num(top)} {num(MOUTH_Y)}Z")


def _reach(y):
    """How far the wall reaches at that height on both sides of its middle: the curve of the outline."""
    low, high = 0.0, 1.0
    for _ in range(20):
        at = (low + high) / 2
        weights = (1 - at) ** 3, 3 * at * (1 - at) ** 2, 3 * at * at * (1 - at), at ** 3
        here = sum(w * v for w, v in zip(weights, (MOUTH_Y, -10, 8, 36)))
        low, high = (at, high) if here < y else (low, at)
    return sum(w * v for w, v in zip(weights, (MOUTH_X, MOUTH_X - 1, BASE_X + 2.5, BASE_X)))


def _band(y, sag):
    """Path data of a line round the wall, as the eye sees it."""
    x = _reach(y) - 1
    return f"M{num(-x)} {num(y)}Q0 {num(y + 2 * sag)} {num(x)} {num(y)}"


def _cup_wall(cup):
    across = (-MOUTH_X, 0, MOUTH_X, 0)
    cup.path(_cup_outline(0.4), fill="#2c170a")
    cup.path(_cup_outline(0.8),
             fill=cup.linear(*across, (0, "#4a2a14"), (0.1, "#8a5128"), (0.26, "#d79a5c"), (0.36, "#c07f45"),
                             (0.62, COGNAC), (0.84, "#42240f"), (0.95, "#2c170a"), (1, "#4e2d16")))
    # The base and the foot of the rim are in shade.
    cup.path(_cup_outline(0.8), fill=cup.linear(0, -40, 0, 54, (0, "#160a04", 0.5), (0.2, "#160a04", 0),
                                                (0.72, "#160a04", 0), (1, "#160a04", 0.6)))
    for y, sag in ((-16, 10), (28.5, 9)):
        cup.path(_band(y + 1, sag), stroke="#1c0d05", stroke_width=4.2, stroke_opacity=0.75)
        for off, weight, dim in ((0, 3, 0), (-5.2, 0.9, 0.35), (5.2, 0.9, 0.35)):
            cup.path(_band(y + off, sag), stroke=_gold(cup, _reach(y), dim), stroke_width=weight)
    _stitches(cup)


def _gold(cup, reach, dim=0.0):
    """Gold that goes round the cup: bright under the lamp, brown away from it."""
    tones = ((0, "#7a5420"), (0.14, GOLD), (0.28, "#fff0bd"), (0.42, GOLD), (0.72, "#7e5722"), (1, "#4a3012"))
    return cup.linear(-reach, 0, reach, 0, *((place, mix(tone, COGNAC, dim)) for place, tone in tones))


def _stitches(cup):
    """The seam along the wall: a groove with a saddler's stitches of light thread on both sides."""
    for x, tone, weight in ((8, "#24120a", 1.3), (9.3, "#c48a54", 0.6)):
        cup.path(f"M{num(x + 0.9)} 1L{num(x)} 32", stroke=tone, stroke_width=weight, stroke_opacity=0.8)
    for i in range(6):
        y = 3.4 + 4.7 * i
        for x in (4.4, 11.8):
            cup.line(x + 0.5, y + 0.7, x + 0.5, y + 3.3, stroke="#1c0d05", stroke_width=1.5, stroke_opacity=0.7)
            cup.line(x, y, x, y + 2.6, stroke="#ecd3a0", stroke_width=1.2)


def _cup_mouth(cup):
    """The rim of gold, the lining, lit across from the lamp, and the dark of the cup."""
    for grow, tone in ((0.5, "#5a3c16"), (0, None)):
        cup.ellipse(0, MOUTH_Y, MOUTH_X + grow, MOUTH_RY + grow, fill=tone or _gold(cup, MOUTH_X))
    cup.ellipse(0, MOUTH_Y, MOUTH_X - 3.2, MOUTH_RY - 2.6, fill="#241208")
    cup.ellipse(0, MOUTH_Y, MOUTH_X - 4, MOUTH_RY - 3.3,
                fill=cup.linear(-36, 0, 36, 0, (0, "#1c0805"), (0.45, "#3e120d"), (0.8, "#8e3322"), (1, "#b5543a")))
    cup.open_group(f"translate(-4 {num(MOUTH_Y + 1)}) scale(1 {num(MOUTH_RY / MOUTH_X)})")
    cup.circle(0, 0, 36, fill=cup.radial(0, 0, 36, (0, "#080302"), (0.6, "#0a0302", 0.95), (0.85, "#120504", 0.5),
                                         (1, "#1a0705", 0)))
    cup.close_group()
