"""The images of the windows over the board: switches, scales, keys and the folder of the history."""

from .keys import Emblem, draw_inlay, draw_key
from .palette import (BRASS, BRASS_DARK, BRASS_LIGHT, INK, IVORY, IVORY_DARK, IVORY_LIGHT, PAPER, PAPER_DARK,
                      PAPER_LIGHT)
from .svg import Drawing, mix, points

MANILA_LIGHT, MANILA, MANILA_DARK = "#ecd29a", "#dcb970", "#a97f3c"


def drawings():
    """Yields the name of each image of the windows and the function that draws it."""
    yield "personal_selector_1", lambda: draw_selector("first answer", False)
    yield "personal_selector_2", lambda: draw_selector("second answer", True)
    yield "personal_switch_on", lambda: draw_selector("on", True, lit=True)
    yield "personal_switch_off", lambda: draw_selector("off", False)
    yield "personal_scale", draw_scale
    yield "personal_marker", draw_marker
    for pressed, ending in ((False, ""), (True, "_pressed")):
        yield f"personal_rules{ending}", lambda pressed=pressed: _draw_key(156, _book, "rules", pressed)
        yield f"personal_back{ending}", lambda pressed=pressed: _draw_key(96, _arrow, "back", pressed)
    yield "historic_folder", draw_folder
    yield "historic_newer", lambda: draw_corner(False)
    yield "historic_older", lambda: draw_corner(True)


def draw_selector(meaning, right, lit=False):
    """A switch with two positions. The first of two answers is on the left, the second on the right. An option that is
    on is on the right, in a lit groove."""
    switch = Drawing((0, 0, 30, 21), f"Selector, {meaning}. Drawn by tools/make_art.py.")
    groove = ((0, "#2c5c1c"), (1, "#7fc24a")) if lit else ((0, "#150a05"), (1, "#4a2d1a"))
    switch.rect(0.5, 0.5, 29, 20, 10, fill="#ffffff", fill_opacity=0.5)
    switch.rect(0, 0, 29, 20, 10, fill=switch.linear(0, 0, 29, 20, (0, BRASS_DARK), (0.5, BRASS), (1, BRASS_LIGHT)))
    switch.rect(1.6, 1.6, 25.8, 16.8, 8.4, fill=switch.linear(0, 1, 0, 19, *groove))
    x = 19.2 if right else 9.8
    switch.circle(x + 0.8, 11.2, 7.4, fill="#000000", fill_opacity=0.45)
    switch.circle(x, 10, 7.4, fill=switch.linear(x - 5, 4, x + 5, 16, (0, "#ffffff"), (0.5, IVORY), (1, IVORY_DARK)))
    switch.circle(x, 10, 4.6, fill=switch.linear(x - 4, 6, x + 4, 14, (0, IVORY_DARK), (1, IVORY_LIGHT)))
    return switch


def draw_scale():
    """The groove of a scale from 0 to 100, 6 units in from either end, with a mark at every tenth."""
    scale = Drawing((0, 0, 112, 18), "Scale. Drawn by tools/make_art.py.")
    for tenth in range(11):
        tall = tenth % 5 == 0
        scale.rect(5.6 + 10 * tenth, 13, 0.8, 4.4 if tall else 2.6, fill=INK, fill_opacity=0.7 if tall else 0.45)
    scale.rect(3, 7.2, 107, 4.6, 2.3, fill="#ffffff", fill_opacity=0.8)
    scale.rect(2.5, 6.2, 107, 4.8, 2.4, fill=scale.linear(0, 6, 0, 11, (0, "#1c0e06"), (1, "#6b4a2c")))
    return scale


def draw_marker():
    """The marker that is dragged along a scale. Its point shows the value."""
    marker = Drawing((0, 0, 12, 18), "Scale's marker. Drawn by tools/make_art.py.")
    outline = [(0.6, 1.6), (1.6, 0.6), (10.4, 0.6), (11.4, 1.6), (11.4, 11.6), (6, 17.6), (0.6, 11.6)]
    marker.path(points([(x + 0.4, min(y + 0.4, 17.8)) for x, y in outline]), fill="#000000", fill_opacity=0.35)
    marker.path(points(outline), fill="#3a2509")
    inner = [(1.6, 2), (2.2, 1.5), (9.8, 1.5), (10.4, 2), (10.4, 11.2), (6, 16.1), (1.6, 11.2)]
    marker.path(points(inner), fill=marker.linear(1, 0, 11, 6, (0, BRASS_LIGHT), (0.45, BRASS), (1, BRASS_DARK)))
    for x in (4, 6, 8):
        marker.rect(x - 0.4, 3.6, 0.8, 6, fill="#3a2509", fill_opacity=0.75)
        marker.rect(x + 0.4, 3.6, 0.5, 6, fill="#fff4cf", fill_opacity=0.8)
    return marker


def _draw_key(width, emblem, name, pressed):
    state = "pressed" if pressed else "at rest"
    key = Drawing((0, 0, width, 30), f"Settings button: {name}, {state}. Drawn by tools/make_art.py.")
    draw_key(key, 2.2, 2, width - 5, 25, 6, pressed)
    draw_inlay(key, 5.2, 5, width - 11, 19, 3.6, pressed, weight=0.8)
    Emblem(key, pressed).paint(emblem)
    return key


def _book(d, colour, wood):
    d.path("M16.5 11C14.5 9.4 12 9 9 9.2L9 19C12 18.8 14.5 19.2 16.5 20.6C18.5 19.2 21 18.8 24 19L24 9.2C21 9 18.5 9.4 16.5 11Z",
           fill=colour)
    d.line(16.5, 11, 16.5, 20, stroke=wood, stroke_width=1)
    for y in (12.2, 14.6):
        d.line(11, y, 14.6, y + 0.5, stroke=wood, stroke_width=0.9)
        d.line(18.4, y + 0.5, 22, y, stroke=wood, stroke_width=0.9)


def _arrow(d, colour, wood):
    d.path("M23 15L12 15M16.4 10L11 15L16.4 20", stroke=colour, stroke_width=3, stroke_linecap="round", stroke_linejoin="round")


def draw_folder():
    """The open folder: on the left its cover, on the right the sheet with the games."""
    folder = Drawing((0, 0, 548, 340), "The folder of the history. Drawn by tools/make_art.py.")
    folder.soft_rect(8, 12, 536, 324, 8, 5, 0.5, layers=10)
    _board(folder, 2, 14, 178, 318)
    _board(folder, 180, 14, 366, 318)
    folder.path("M470 14L476 3C477 1.6 478.4 1 480 1L528 1C529.6 1 531 1.6 532 3L538 14Z", fill=MANILA)
    folder.path("M470 14L476 3C477 1.6 478.4 1 480 1L528 1C529.6 1 531 1.6 532 3", stroke="#fff3cf", stroke_width=1)
    crease = folder.linear(168, 0, 192, 0, (0, "#5d3f12", 0), (0.45, "#3b2506", 0.55), (0.55, "#fff1c8", 0.4), (1, "#5d3f12", 0))
    folder.rect(168, 14, 24, 318, fill=crease)
    _label(folder)
    _sheets(folder)
    for y in (120, 226):
        _ring(folder, y)
    return folder


def _board(folder, x, y, width, height):
    folder.rect(x, y, width, height, 6, fill=MANILA_DARK)
    shade = folder.linear(x, y, x + width, y + height, (0, MANILA_LIGHT), (0.5, MANILA), (1, mix(MANILA, MANILA_DARK, 0.5)))
    folder.rect(x + 0.8, y + 0.8, width - 2, height - 2.2, 5.4, fill=shade)


def _label(folder):
    # The program writes the folder's title on it.
    folder.rect(23, 53, 136, 58, 3, fill="#3b2506", fill_opacity=0.35)
    folder.rect(22, 52, 136, 58, 3, fill=folder.linear(22, 52, 158, 110, (0, PAPER_LIGHT), (1, PAPER_DARK)))
    folder.rect(26, 56, 128, 50, 2, stroke="#a0332a", stroke_width=1.2)
    folder.rect(28.2, 58.2, 123.6, 45.6, 1.4, stroke="#a0332a", stroke_width=0.6)


def _sheets(folder):
    for shift in (3, 1.5):
        folder.rect(190 + shift, 22 + shift, 350, 302, 1.5, fill="#4a3210", fill_opacity=0.3)
        folder.rect(189.4 + shift, 21 + shift, 350, 302, 1.5, fill=PAPER_DARK)
    folder.rect(189, 21, 350, 302, 1.5, fill=folder.linear(189, 21, 539, 323, (0, "#fffdf4"), (0.5, PAPER_LIGHT), (1, PAPER)))
    gutter = folder.linear(189, 0, 203, 0, (0, "#6b4e22", 0.35), (1, "#6b4e22", 0))
    folder.rect(189, 21, 14, 302, fill=gutter)


def _ring(folder, y):
    # One of the two brass clasps that hold the sheets.
    folder.circle(196.5, y + 0.6, 3.4, fill="#3b2506", fill_opacity=0.55)
    metal = folder.linear(176, y - 4, 196, y + 6, (0, BRASS_LIGHT), (0.5, BRASS), (1, BRASS_DARK))
    folder.path(f"M176 {y + 2}C176 {y - 7} 197 {y - 7} 197 {y + 1}", stroke="#2a1a06", stroke_width=4.4, stroke_linecap="round")
    folder.path(f"M176 {y + 2}C176 {y - 7} 197 {y - 7} 197 {y + 1}", stroke=metal, stroke_width=3.2, stroke_linecap="round")


def draw_corner(older):
    """The lifted corner that turns the page: on the right to older games, on the left to newer ones."""
    corner = Drawing((0, 0, 52, 30), f"Page corner, to {'older' if older else 'newer'} games. Drawn by tools/make_art.py.")
    if not older:
        corner.open_group("translate(52 0) scale(-1 1)")
    corner.path("M28 30L52 6L52 30Z", fill=corner.linear(38, 16, 52, 30, (0, "#b79f68"), (1, PAPER_DARK)))
    corner.path("M24 30L52 2L36 6C34.6 14 30 22 24 30Z", fill="#2a1a08", fill_opacity=0.22)
    leaf = corner.linear(28, 8, 41, 20, (0, "#fffdf4"), (0.55, PAPER_LIGHT), (1, "#cfb781"))
    corner.path("M27 30C29.4 22 31 14 30.4 8C38 9 45 8.4 52 5Z", fill=leaf, stroke="#9c8350", stroke_width=0.6,
                stroke_linejoin="round")
    corner.path("M3 20L19 20M14 14.6L20 20L14 25.4", stroke="#a0332a", stroke_width=2.4, stroke_linecap="round",
                stroke_linejoin="round")
    if not older:
        corner.close_group()
    return corner
