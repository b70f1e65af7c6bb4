"""The mouse cursors: dice and hands. A dark contour makes them visible on light ground, their own light or a light
hairline around it on dark ground."""

from .marks import draw_mark
from .palette import BRASS_DARK, BRASS_LIGHT, IVORY, IVORY_LIGHT, TONES
from .svg import Drawing, mix, points

DARK = "#1c120c"
CONTOUR = "#3b2212"
SKIN = ("#fff5e4", "#f0d0a8", "#a9683c")
WHITE = ("#ffffff", "#f1ece2", "#a89b86")
LEATHER = ("#7a5238", "#523320", "#2e1b0f")

# Each finger is a thick line: x1, y1, x2, y2, thickness.
OPEN_FINGERS = [(11.4, 17, 9.2, 8, 3.7), (15.1, 16, 14.5, 5, 3.8), (18.9, 16, 20, 5.8, 3.8), (22.2, 18, 25, 10, 3.4),
                (11.2, 23.2, 5, 17.6, 3.8)]
OPEN_PALM = "M10.4 15.5L23.4 16.5C24.2 21 22.8 24 21 26.5L12.6 26.5C10.6 23.5 9.2 20 10.4 15.5Z"
CLOSED_FINGERS = [(9.6, 12.6, 9.6, 19, 4.2), (13.8, 11, 13.8, 19, 4.4), (18.1, 11.2, 18.1, 19, 4.4),
                  (22.2, 12.9, 22.2, 19, 4)]
CLOSED_PALM = "M8 16L24 16C24.3 20 23.6 22.6 21.8 25L11.4 25C9 22.6 7.6 20 8 16Z"
CLOSED_THUMB = (9.4, 19.2, 16.4, 20.4, 4.2)
# The pointing hand: from the index finger by the knuckles of the others to the wrist, and back along the thumb.
POINTING = ("M10.3 4.8C10.4 1.7 14.1 1.7 14.3 4.8L14.8 12.7C15.4 11.7 17.9 11.8 18.3 13.5C18.9 12.6 21.2 12.8 21.6 14.6"
            "C22.3 13.8 24.5 14.2 24.7 16.3C25 19 25 21.3 24.1 23.4C23.7 24.4 23.5 25.2 23.5 27L13.5 27C13.5 25.1 12.6 24 11.6 22.8"
            "C10 21 8.3 19.3 6.7 17.5C5.6 16.1 7.2 14.4 8.7 15.4C9.4 15.9 10.1 16.5 10.7 17.1Z")

# The open hands: skin from the lit to the shaded side, then the cuff.
OPEN_HANDS = {
    "ManoAbie": (SKIN, LEATHER),
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
    for grow, colour in ((2.3, "#dcc79e"), (1.4, CONTOUR)):
        hand.path(palm, stroke=colour, stroke_width=grow, stroke_linejoin="round", fill=colour)
        for x1, y1, x2, y2, thick in fingers:
            hand.line(x1, y1, x2, y2, stroke=colour, stroke_width=thick + grow, stroke_linecap="round")
        hand.rect(x - grow / 2, y - grow / 2, width + grow, height + grow, 1.4 + grow / 2, fill=colour)
    fill = hand.linear(8, 6, 22, 27, (0, lit), (0.55, body), (1, mix(body, shade, 0.6)))
    for finger in fingers:
        _finger(hand, *finger, fill, skin)
    hand.path(palm, fill=fill)
    cloth = hand.linear(x, y, x + width, y, (0, cuff[0]), (0.5, cuff[1]), (1, cuff[2]))
    hand.rect(x, y, width, height, 1.4, fill=cloth)


def _finger(hand, x1, y1, x2, y2, thick, fill, skin):
    # Round: in its own shade to the right, lit to the left.
    lit, _, shade = skin
    hand.line(x1, y1, x2, y2, stroke=fill, stroke_width=thick, stroke_linecap="round")
    for off, part, tone, opacity in ((0.33, 0.3, shade, 0.2), (0.38, 0.2, shade, 0.24), (-0.24, 0.22, lit, 0.55)):
        hand.line(x1 + off * thick, y1 + abs(off), x2 + off * thick, y2, stroke=tone, stroke_width=part * thick,
                  stroke_linecap="round", stroke_opacity=opacity)


def _creases(hand, fingers, top, bottom, skin):
    for first, second in zip(fingers, fingers[1:]):
        x = (first[0] + second[0]) / 2
        hand.line(x, top, x, bottom, stroke=mix(skin[2], DARK, 0.45), stroke_width=0.8, stroke_linecap="round")


def _cuff(tones):
    return tones.light, tones.base, mix(tones.base, tones.deep, 0.4)


def _drawing(name):
    return Drawing((0, 0, 32, 32), f"Mouse cursor {name}. Drawn by tools/make_art.py.")


def draw_open(name, skin, cuff):
    hand = _drawing(name)
    _hand(hand, OPEN_FINGERS, OPEN_PALM, skin, cuff, (11.4, 26, 10.6, 3.6))
    for crease in ("M13.4 25.2C14 22.8 13.6 21 11.6 19.2", "M12.2 19C15 18.6 17.4 20 19.4 22",
                   "M15.8 18.4C18 19.4 20.6 19.2 22.4 18.2"):
        hand.path(crease, stroke=mix(skin[1], skin[2], 0.75), stroke_width=0.6, stroke_linecap="round")
    return hand


def draw_closed(name, colour):
    hand, cuff = _drawing(name), _cuff(TONES[colour])
    _hand(hand, CLOSED_FINGERS, CLOSED_PALM, SKIN, cuff, (10.4, 24.4, 12.4, 5.2))
    _creases(hand, CLOSED_FINGERS, 12.6, 19, SKIN)
    x1, y1, x2, y2, thick = CLOSED_THUMB
    hand.line(x1, y1, x2, y2, stroke=mix(SKIN[2], DARK, 0.45), stroke_width=thick + 1.3, stroke_linecap="round")
    hand.line(x1, y1, x2, y2, stroke=mix(SKIN[1], SKIN[2], 0.3), stroke_width=thick, stroke_linecap="round")
    hand.line(x1, y1 - 0.4, x2, y2 - 0.4, stroke=mix(SKIN[0], SKIN[1], 0.45), stroke_width=thick - 1,
              stroke_linecap="round")
    hand.rect(10.4, 24.4, 12.4, 0.9, fill=DARK)
    hand.rect(10.4, 27.4, 12.4, 0.9, fill=IVORY if colour != 1 else DARK, fill_opacity=0.8)
    return hand


def draw_index(name):
    """Seen from within: three fingers are bent, the thumb lies against them."""
    hand = _drawing(name)
    sleeve = "M12.7 27.2L24.3 27.2L24.9 31.2L12.1 31.2Z"
    for dx, dy, grow, colour, opacity in ((0.9, 1, 1.4, "#000000", 0.22), (0, 0, 1.2, CONTOUR, 1)):
        hand.open_group(f"translate({dx} {dy})")
        for outline in (POINTING, sleeve):
            hand.path(outline, stroke=colour, stroke_width=grow, stroke_linejoin="round", stroke_opacity=opacity,
                      fill=colour, fill_opacity=opacity)
        hand.close_group()
    lit, body, shade = SKIN
    hand.path(POINTING, fill=hand.linear(8, 3, 25, 28, (0, lit), (0.42, "#f9e2c3"), (0.7, body),
                                         (1, mix(body, shade, 0.55))))
    _modelling(hand)
    # The linen of the shirt, the sleeve and its brass button.
    hand.rect(13, 25.9, 11, 1.5, 0.5, fill=hand.linear(13, 0, 24, 0, (0, IVORY_LIGHT), (1, "#c9b48c")))
    hand.path(sleeve, fill=hand.linear(12, 0, 25, 0, (0, LEATHER[0]), (0.45, LEATHER[1]), (1, LEATHER[2])))
    hand.circle(21.5, 29.3, 1.25, fill="#1c0f06")
    hand.circle(21.3, 29.1, 1.1, fill=hand.linear(20.4, 28.2, 22.2, 30, (0, BRASS_LIGHT), (1, BRASS_DARK)))
    return hand


def _modelling(hand):
    lit, _, shade = SKIN
    line = mix(shade, DARK, 0.35)
    # The shaded side of the index finger, of each bent one and of the ball of the thumb.
    for outline, opacity in (
            ("M13 3C13.7 7 13.4 13 13.9 18L15 18.6L14.8 12.7L14.3 4.8C14.2 3.6 13.7 3.2 13 3Z", 0.4),
            ("M16.9 12.2C18 14.5 17.9 17 17.3 19.6L18.4 19.4L18.3 13.5C18 12.7 17.6 12.4 16.9 12.2Z", 0.36),
            ("M20.3 13.2C21.2 15.4 21.2 17.6 20.6 20L21.6 19.8L21.6 14.6C21.4 13.8 21 13.4 20.3 13.2Z", 0.36),
            ("M23.2 14.6C24.2 17 23.8 20.6 22.2 23.4C21.6 24.6 21.4 26 21.3 27L23.5 27C23.5 25.2 23.7 24.4 24.1 23.4"
             "C25 21.3 25 19 24.7 16.3C24.5 15.3 24 14.8 23.2 14.6Z", 0.4),
            ("M9 19.9C10.6 20.3 12.6 21.6 13.6 23.4C14.2 24.6 14.4 25.8 14.4 27L13.5 27C13.5 25.1 12.6 24 11.6 22.8Z",
             0.3)):
        hand.path(outline, fill=shade, fill_opacity=opacity)
    for x, top in ((14.8, 12.7), (18.3, 13.6), (21.6, 14.7)):
        hand.line(x, top, x, 18.9, stroke=line, stroke_width=0.75, stroke_linecap="round")
    # Where the tips of the bent fingers touch the palm, and the thumb the index finger.
    for data in ("M14.8 18.9C15.4 20.4 17.6 20.5 18.3 19C18.9 20.6 20.9 20.7 21.6 19.3C22.2 20.5 23.6 20.5 24.1 19.5",
                 "M10.7 17.1C11.4 17.9 12.6 18.4 13 20"):
        hand.path(data, stroke=line, stroke_width=0.75, stroke_linecap="round")
    hand.line(11.3, 4.6, 11.4, 15, stroke=lit, stroke_width=0.9, stroke_linecap="round")
    for y in (8.4, 12.4):
        hand.line(11.6, y, 13.4, y + 0.1, stroke=shade, stroke_width=0.5, stroke_linecap="round")


def draw_die(name, colour):
    """A die seen from a corner: the player's mark above, two and three pips on the sides."""
    die, tones = _drawing(name), TONES[colour]
    top, right, low_right, low, low_left, left, middle = (
        (16, 3.8), (26.8, 9.4), (26.8, 21.8), (16, 28.2), (5.2, 21.8), (5.2, 9.4), (16, 15.2))
    outline = points([top, right, low_right, low, low_left, left])
    for grow, colour_of_line in ((3.7, "#eddcb6"), (2.5, DARK)):
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
