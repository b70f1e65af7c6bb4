"""The recorder's strip: on the left all keys at rest, and 51 units further right the same keys pressed."""

from .palette import BRASS, BRASS_DARK, BRASS_LIGHT, INK, IVORY, IVORY_DARK, IVORY_LIGHT
from .svg import Drawing, mix, points

STEP = 51
POWER, BACK, FORWARD, REWIND, ADVANCE, RESTORE = range(6)
# x, y and width of each key. The switch is drawn as wide as it can be clicked, 38; the image that the program
# copies is 4 units wider.
KEYS = {POWER: (6, 6, 38), BACK: (4, 25, 21), FORWARD: (25, 25, 21), REWIND: (4, 41, 21), ADVANCE: (25, 41, 21),
        RESTORE: (14, 57, 21)}
HEIGHT = 13


def draw():
    strip = Drawing((0, 0, 102, 75), "The move recorder: keys at rest and, 51 further right, pressed. "
                                     "Drawn by tools/make_art.py.")
    for pressed in (False, True):
        left = STEP if pressed else 0
        _body(strip, left)
        for key, (x, y, width) in KEYS.items():
            _key(strip, x + left, y, width, pressed)
            _symbol(strip, key, x + left + width / 2, y + HEIGHT / 2 + (0.5 if pressed else 0), pressed)
    return strip


def _body(strip, x):
    case = strip.linear(x, 0, x, 75, (0, "#1a0d06"), (0.06, "#2e1a0f"), (0.9, "#3a2214"), (1, "#4e301d"))
    metal = strip.linear(x, 0, x + 50, 75, (0, BRASS_LIGHT), (0.4, BRASS), (0.6, BRASS_LIGHT), (1, BRASS_DARK))
    strip.rect(x, 0, 50, 75, 4, fill="#0d0603")
    strip.rect(x + 0.5, 0.5, 49, 74, 3.6, fill=metal)
    strip.rect(x + 1.5, 1.5, 47, 72, 2.8, fill=case)
    strip.rect(x + 6, 21.6, 38, 0.5, fill="#000000")
    strip.rect(x + 6, 22.1, 38, 0.4, fill="#6b4a34")


def _key(strip, x, y, width, pressed):
    strip.rect(x + 0.3, y + 0.2, width - 0.6, HEIGHT - 0.4, 2.4, fill="#0a0502")
    if pressed:
        ivory = strip.linear(x, y, x, y + HEIGHT, (0, "#8f7c58"), (0.25, "#b8a47c"), (1, "#cbb88f"))
        strip.rect(x + 0.9, y + 1.2, width - 1.8, HEIGHT - 1.8, 1.8, fill=ivory)
        return
    side = strip.linear(x, y, x, y + HEIGHT, (0, "#ffffff"), (0.6, IVORY_DARK), (1, "#8d7448"))
    strip.rect(x + 0.8, y + 0.6, width - 1.6, HEIGHT - 1.4, 1.9, fill=side)
    ivory = strip.linear(x, y, x, y + HEIGHT, (0, IVORY_LIGHT), (0.5, IVORY), (1, "#e3d2aa"))
    strip.rect(x + 1.3, y + 1.1, width - 2.6, HEIGHT - 3.1, 1.4, fill=ivory)


def _triangle(cx, cy, size, way):
    tip, back, rise = cx + way * size * 0.5, cx - way * size * 0.5, size * 0.62
    return points([(tip, cy), (back, cy - rise), (back, cy + rise)])


def _symbol(strip, key, cx, cy, pressed):
    ink = INK if not pressed else mix(INK, "#000000", 0.3)
    cy -= 0.3
    if key == POWER:
        _lamp(strip, cx, cy, pressed)
    elif key == RESTORE:
        strip.path(f"M{cx - 3.4} {cy - 1.2}C{cx + 0.5} {cy - 3.6} {cx + 4.6} {cy - 1.6} {cx + 4.2} {cy + 1.4}"
                   f"C{cx + 3.9} {cy + 3.2} {cx + 1.6} {cy + 3.6} {cx - 0.6} {cy + 3.4}",
                   stroke=ink, stroke_width=1.5, stroke_linecap="round")
        strip.path(points([(cx - 5.6, cy - 0.3), (cx - 2.6, cy - 3.8), (cx - 1.4, cy + 0.9)]), fill=ink)
    elif key in (REWIND, ADVANCE):
        way = 1 if key == ADVANCE else -1
        strip.path(_triangle(cx - 2.6, cy, 5, way), fill=ink)
        strip.path(_triangle(cx + 2.6, cy, 5, way), fill=ink)
    else:
        way = 1 if key == FORWARD else -1
        strip.path(_triangle(cx - way * 1, cy, 5.4, way), fill=ink)
        strip.rect(cx + way * 3 - 0.8, cy - 3.3, 1.6, 6.6, fill=ink)


def _lamp(strip, x, cy, lit):
    if lit:
        strip.circle(x, cy, 5.6, fill=strip.radial(x, cy, 5.6, (0, "#ff5a1e", 0.8), (1, "#ff5a1e", 0)))
    strip.circle(x, cy, 3, fill="#1a0c06")
    glass = ((0, "#a8604c"), (0.5, "#5a1a10"), (1, "#2e0a06"))
    if lit:
        glass = ((0, "#fff2c0"), (0.4, "#ff7a2a"), (1, "#d42208"))
    strip.circle(x, cy, 2.4, fill=strip.radial(x - 0.7, cy - 0.8, 3, *glass))
