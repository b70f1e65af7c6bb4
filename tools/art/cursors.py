"""The mouse cursors: dice and hands. A dark and a light outline make them visible on any ground."""

from .marks import draw_mark
from .palette import IVORY, IVORY_LIGHT, TONES
from .svg import Drawing, mix, points

DARK = "#1c120c"
SKIN = ("#fff3e2", "#efcaa2", "#b98a60")
WHITE = ("#ffffff", "#f1ece2", "#b9b1a3")

# Each finger is a thick line: x1, y1, x2, y2, thickness.
OPEN_FINGERS = [(11.4, 17, 9.2, 8, 3.7), (15.1, 16, 14.5, 5, 3.8), (18.9, 16, 20, 5.8, 3.8), (22.2, 18, 25, 10, 3.4),
                (11.2, 23.2, 5, 17.6, 3.8)]
OPEN_PALM = "M10.4 15.5L23.4 16.5C24.2 21 22.8 24 21 26.5L12.6 26.5C10.6 23.5 9.2 20 10.4 15.5Z"
CLOSED_FINGERS = [(9.6, 12.6, 9.6, 19, 4.2), (13.8, 11, 13.8, 19, 4.4), (18.1, 11.2, 18.1, 19, 4.4),
                  (22.2, 12.9, 22.2, 19, 4)]
CLOSED_PALM = "M8 16L24 16C24.3 20 23.6 22.6 21.8 25L11.4 25C9 22.6 7.6 20 8 16Z"
CLOSED_THUMB = (9.4, 19.2, 16.4, 20.4, 4.2)
POINT_FINGERS = [(12.3, 5, 12.3, 20, 4.3), (16.5, 14.6, 16.5, 20, 4.1), (20.5, 15.4, 20.5, 20, 4),
                 (24.2, 16.8, 24.2, 20, 3.6), (11.6, 23.2, 7.2, 18.2, 4)]
POINT_PALM = "M10.6 17L25.8 18.4C26.2 22 25 24.4 23.4 26.8L13.4 26.8C11.6 24.4 10.4 21.5 10.6 17Z"

# The open hands: skin from the lit to the shaded side, then the cuff.
OPEN_HANDS = {
    "ManoAbie": (SKIN, ("#6f94c8", "#3a5f9c", "#1f3c6e")),
    "ManoBlan": (WHITE, WHITE),
    "ManoRoja": (("#ff8a78", "#ee2a1c", "#8e0a06"), WHITE),
    "ManoVerde": (("#7fd48c", "#159238", "#044a18"), WHITE),
}

HOT_SPOTS = {"ManoIndice": (12, 3)}


def hot_spot(name):
    """The hot spot of a cursor: x and y in its drawing, which is 32 units wide. Most have it in the middle."""
    return HOT_SPOTS.get(name, (16, 16))


def _hand(hand, fingers, palm, skin, cuff, cuff_box):
    lit, body, shade = skin
    x, y, width, height = cuff_box
    for grow, colour in ((4.4, "#ffffff"), (2.2, DARK)):
        hand.path(palm, stroke=colour, stroke_width=grow, stroke_linejoin="round", fill=colour)
        for x1, y1, x2, y2, thick in fingers:
            hand.line(x1, y1, x2, y2, stroke=colour, stroke_width=thick + grow, stroke_linecap="round")
        hand.rect(x - grow / 2, y - grow / 2, width + grow, height + grow, 1.4 + grow / 2, fill=colour)
    fill = hand.linear(8, 6, 22, 27, (0, lit), (0.55, body), (1, mix(body, shade, 0.6)))
    hand.path(palm, fill=fill)
    for x1, y1, x2, y2, thick in fingers:
        hand.line(x1, y1, x2, y2, stroke=fill, stroke_width=thick, stroke_linecap="round")
    cloth = hand.linear(x, y, x + width, y, (0, cuff[0]), (0.5, cuff[1]), (1, cuff[2]))
    hand.rect(x, y, width, height, 1.4, fill=cloth)


def _creases(hand, fingers, top, bottom, skin):
    for first, second in zip(fingers, fingers[1:]):
        x = (first[0] + second[0]) / 2
        hand.line(x, top, x, bottom, stroke=mix(skin[2], DARK, 0.55), stroke_width=0.9, stroke_linecap="round")


def _cuff(tones):
    return tones.light, tones.base, mix(tones.base, tones.deep, 0.4)


def _drawing(name):
    return Drawing((0, 0, 32, 32), f"Mouse cursor {name}. Drawn by tools/make_art.py.")


def draw_open(name, skin, cuff):
    hand = _drawing(name)
    _hand(hand, OPEN_FINGERS, OPEN_PALM, skin, cuff, (11.4, 26, 10.6, 3.6))
    hand.path("M12.6 22.6C14.2 20.6 15.4 20.2 17.6 20.4", stroke=mix(skin[2], DARK, 0.2), stroke_width=0.8,
              stroke_linecap="round")
    return hand


def draw_closed(name, colour):
    hand, cuff = _drawing(name), _cuff(TONES[colour])
    _hand(hand, CLOSED_FINGERS, CLOSED_PALM, SKIN, cuff, (10.4, 24.4, 12.4, 5.2))
    _creases(hand, CLOSED_FINGERS, 12.6, 19, SKIN)
    x1, y1, x2, y2, thick = CLOSED_THUMB
    hand.line(x1, y1, x2, y2, stroke=mix(SKIN[2], DARK, 0.55), stroke_width=thick + 1.6, stroke_linecap="round")
    hand.line(x1, y1, x2, y2, stroke=mix(SKIN[0], SKIN[1], 0.6), stroke_width=thick, stroke_linecap="round")
    hand.rect(10.4, 24.4, 12.4, 0.9, fill=DARK)
    hand.rect(10.4, 27.4, 12.4, 0.9, fill=IVORY if colour != 1 else DARK, fill_opacity=0.8)
    return hand


def draw_index(name):
    hand = _drawing(name)
    _hand(hand, POINT_FINGERS, POINT_PALM, SKIN, ("#6f94c8", "#3a5f9c", "#1f3c6e"), (12.6, 26.2, 11.6, 3.4))
    _creases(hand, POINT_FINGERS[:4], 16, 20.5, SKIN)
    return hand


def draw_die(name, colour):
    """A die seen from a corner: the player's mark above, two and three pips on the sides."""
    die, tones = _drawing(name), TONES[colour]
    top, right, low_right, low, low_left, left, middle = (
        (16, 3.8), (26.8, 9.4), (26.8, 21.8), (16, 28.2), (5.2, 21.8), (5.2, 9.4), (16, 15.2))
    outline = points([top, right, low_right, low, low_left, left])
    for grow, colour_of_line in ((5.4, "#ffffff"), (3, DARK)):
        die.path(outline, stroke=colour_of_line, stroke_width=grow, stroke_linejoin="round", fill=colour_of_line)
    lit = {1: "#fff76a", 2: "#5a74ff", 3: "#ff6a55", 4: "#35a548"}[colour]
    front = {1: "#f2cf00", 2: "#2438e8", 3: "#ea1a10", 4: "#0c7c24"}[colour]
    for corners, fill in (([top, right, middle, left], lit), ([left, middle, low, low_left], front),
                          ([middle, right, low_right, low], mix(tones.deep, tones.base, 0.35))):
        die.path(points(corners), fill=fill, stroke=fill, stroke_width=0.9, stroke_linejoin="round")
    ink = DARK if colour == 1 else IVORY_LIGHT
    die.open_group("translate(16 9.5) scale(1 0.62)")
    draw_mark(die, colour, 0, 0, 9.6, fill=ink)
    die.close_group()
    for x, y in ((8.2, 14.6), (13, 23), (18.6, 23.6), (21.4, 18.8), (24.2, 13.8)):
        die.ellipse(x, y, 1.35, 1.75, fill=ink)
    return die
