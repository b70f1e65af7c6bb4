"""The letters of the title: four lacquered counters and a die, each with a letter inlaid, and a brass plate."""

from .dice import draw_body
from .palette import BRASS, BRASS_DARK, BRASS_LIGHT, INK, IVORY_LIGHT
from .pieces import LACQUER
from .svg import Drawing, mix

# Centre lines of the letters' strokes in a square of 30 units around (0, 0).
STROKES = {
    "z": "M-9.5 -11L9.5 -11L-9.5 11L9.5 11",
    "o": "M0 -11.5C6.8 -11.5 10.8 -6.4 10.8 0C10.8 6.4 6.8 11.5 0 11.5C-6.8 11.5 -10.8 6.4 -10.8 0C-10.8 -6.4 -6.8 -11.5 0 -11.5Z",
    "r": "M-8 11.5L-8 -11.5L1 -11.5C5.6 -11.5 8.4 -8.8 8.4 -5C8.4 -1.2 5.6 1.4 1 1.4L-8 1.4M1.6 1.4L9 11.5",
    "v": "M-10 -11.5L0 11.5L10 -11.5",
    "a": "M-10 11.5L0 -11.5L10 11.5M-6.2 4L6.2 4",
}
COLOURS = {"z": 1, "o": 2, "r": 3, "v": 4}


def drawings():
    """Yields the name of each image of the title and the function that draws it."""
    for letter in STROKES:
        yield f"careta_{letter}", lambda letter=letter: draw_letter(letter)
    yield "careta_plate", draw_plate


def draw_letter(letter):
    drawing = Drawing((0, 0, 76, 76), f"The title's letter {letter.upper()}. Drawn by tools/make_art.py.")
    if letter in COLOURS:
        inlay, groove = _counter(drawing, COLOURS[letter])
    else:
        drawing.soft_rect(10, 11, 60, 60, 12, 4, 0.55, layers=12)
        draw_body(drawing, 6, 6, 62)
        inlay, groove = "#3a2416", "#ffffff"
    for shift, colour in ((1.1, groove), (0, inlay)):
        drawing.open_group(f"translate({37.4 + shift} {36.4 + shift})")
        drawing.path(STROKES[letter], stroke=colour, stroke_width=5.4, stroke_linecap="round", stroke_linejoin="round")
        drawing.close_group()
    return drawing


def _counter(drawing, colour):
    gleam, lit, body, shade, dark, inlay = LACQUER[colour]
    drawing.soft_disc(41, 42, 32, 5, 0.55)
    drawing.circle(38, 38, 33, fill=dark)
    drawing.circle(38, 38, 32, fill=drawing.linear(12, 14, 64, 64, (0, body), (0.5, shade), (1, dark)))
    drawing.ellipse(38, 36.6, 31, 30.4, fill=drawing.linear(16, 12, 60, 62, (0, gleam), (0.3, lit), (0.65, body), (1, shade)))
    drawing.ellipse(37.6, 36.4, 26, 25.6, fill=drawing.linear(18, 16, 58, 58, (0, shade), (0.55, body), (1, gleam)))
    drawing.ellipse(37.6, 36.6, 24.6, 24.2, fill=drawing.radial(30, 28, 34, (0, mix(lit, gleam, 0.35)), (0.5, lit), (1, body)))
    drawing.path("M12 27C15.6 16.6 25 9.6 35.6 8.6C27 12.4 20 18 15.4 28C14.4 30.2 11.2 29.6 12 27Z", fill="#ffffff", fill_opacity=0.5)
    return (INK, gleam) if inlay == INK else (IVORY_LIGHT, dark)


def draw_plate():
    """The brass plate that bears the game's name."""
    plate = Drawing((0, 0, 210, 46), "The title's plate. Drawn by tools/make_art.py.")
    plate.soft_rect(6, 6, 200, 36, 8, 4, 0.6, layers=10)
    plate.rect(3, 3, 200, 37, 8, fill="#33200a")
    plate.rect(4, 4, 198, 35, 7.2, fill=plate.linear(4, 4, 202, 39, (0, BRASS_LIGHT), (0.35, BRASS), (0.6, BRASS_LIGHT), (1, BRASS_DARK)))
    plate.rect(7.5, 7.5, 191, 28, 4.6, stroke="#4d3510", stroke_width=0.9)
    for x in (14.5, 191.5):
        plate.circle(x + 0.4, 21.9, 3, fill="#fff4cf")
        plate.circle(x, 21.5, 3, fill="#6b4a16")
        plate.line(x - 2, 20.5, x + 2, 22.5, stroke="#2a1a06", stroke_width=0.9)
    return plate
