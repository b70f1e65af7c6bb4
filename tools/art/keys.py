"""The wooden keys: six menu buttons, five large keys of the recorder and the buttons of the message window."""

from .palette import BRASS, BRASS_DARK, BRASS_LIGHT, IVORY
from .svg import Drawing, mix, num

SHADE = "#241007"
LIT, FACE, DEEP = "#a4532c", "#7a3418", "#4c1c0b"  # the polished mahogany of a key, redder than the leather under it


def draw_key(drawing, x, y, width, height, rx, pressed):
    """A key of polished mahogany; a pressed one has sunk into its well."""
    end_y = y + height
    slant = x + width if width < 1.5 * height else x
    if not pressed:
        drawing.soft_rect(x + 1.4, y + 2, width, height, rx, 2.2, 0.6, layers=8)
    drawing.rect(x - 0.8, y - 0.8, width + 1.6, height + 1.6, rx + 0.8, fill="#150904")
    if pressed:
        edge = drawing.linear(x, y, x, end_y, (0, "#1c0c05"), (0.5, DEEP), (1, mix(FACE, "#000000", 0.2)))
        face = drawing.linear(x, y, slant, end_y, (0, mix(DEEP, "#000000", 0.25)), (1, mix(FACE, "#000000", 0.12)))
    else:
        edge = drawing.linear(x, y, x, end_y, (0, "#e09a64"), (0.3, LIT), (1, DEEP))
        face = drawing.linear(x, y, slant, end_y, (0, LIT), (0.5, FACE), (1, mix(FACE, DEEP, 0.8)))
    bevel = min(width, height) * 0.045
    drawing.rect(x, y, width, height, rx, fill=edge)
    drawing.rect(x + bevel, y + bevel, width - 2 * bevel, height - 2 * bevel, rx - bevel, fill=face)
    if pressed:
        fall = drawing.linear(x, y, x, y + height * 0.25, (0, "#000000", 0.55), (1, "#000000", 0))
        drawing.rect(x, y, width, height * 0.3, rx, fill=fall)


def draw_inlay(drawing, x, y, width, height, rx, pressed, weight=1.2):
    """A line of brass along a key's border."""
    metal = drawing.linear(x, y, x + width, y + height, (0, BRASS_LIGHT), (0.35, BRASS), (0.6, BRASS_LIGHT),
                           (1, BRASS_DARK))
    drawing.rect(x + 0.6, y + 0.7, width, height, rx, stroke=SHADE, stroke_width=weight, stroke_opacity=0.6)
    drawing.rect(x, y, width, height, rx, stroke=metal, stroke_width=weight, stroke_opacity=0.6 if pressed else 0.95)


class Emblem:
    """Draws an emblem twice: first its shadow in the wood, then the ivory inlay."""

    def __init__(self, drawing, pressed):
        self.drawing = drawing
        shift = 1.2 if pressed else 0
        ivory = mix(IVORY, FACE, 0.3) if pressed else "#fdf4df"
        self.passes = ((shift + 0.9, shift + 1.1, SHADE), (shift, shift, ivory))

    def paint(self, shape):
        for dx, dy, colour in self.passes:
            self.drawing.open_group(f"translate({num(dx)} {num(dy)})")
            shape(self.drawing, colour, DEEP if colour != SHADE else SHADE)
            self.drawing.close_group()


def _stroke(drawing, colour, data, weight=4.6):
    drawing.path(data, stroke=colour, stroke_width=weight, stroke_linecap="round", stroke_linejoin="round")


def _help(d, colour, wood):
    _stroke(d, colour, "M23 25C23 19.6 27 16.2 32.2 16.2C37.6 16.2 41.4 19.6 41.4 24.4"
                       "C41.4 31 32.4 31.2 32.2 38.6", 5.2)
    d.circle(32.2, 47.2, 3.3, fill=colour)


def _die(d, colour, wood, transform, pips):
    d.open_group(transform)
    d.rect(-11, -11, 22, 22, 4.6, fill=wood, stroke=wood, stroke_width=3.4)
    d.rect(-11, -11, 22, 22, 4.6, fill=colour)
    for x, y in pips:
        d.circle(x * 5.6, y * 5.6, 2.5, fill=wood)
    d.close_group()


def _new_game(d, colour, wood):
    _die(d, colour, wood, "translate(39.6 25) rotate(14)", [(-1, -1), (1, 1), (0, 0)])
    _die(d, colour, wood, "translate(25.6 38.6) rotate(-12)", [(-1, -1), (1, -1), (0, 0), (-1, 1), (1, 1)])


def _settings(d, colour, wood):
    for y, knob in ((20.5, 40), (32, 25), (43.5, 36)):
        _stroke(d, colour, f"M17 {y}L47 {y}", 3.4)
        d.circle(knob, y, 6, fill=wood)
        d.circle(knob, y, 4.9, fill=colour)


def _history(d, colour, wood):
    _stroke(d, colour, "M23.5 20.5C17.5 20 16 23 17.6 26.8C18.8 29.6 21.6 31.6 25 32"
                       "M40.5 20.5C46.5 20 48 23 46.4 26.8C45.2 29.6 42.4 31.6 39 32", 2.8)
    d.path("M22.6 16.5L41.4 16.5C41.8 25 40.4 32 34.6 35.6L34.6 40.4L29.4 40.4L29.4 35.6C23.6 32 22.2 25 22.6 16.5Z",
           fill=colour)
    d.path("M27 40L37 40L39 43.6L25 43.6Z", fill=colour)
    d.rect(22.4, 43.2, 19.2, 4.8, 1.2, fill=colour)


def _tutor(d, colour, wood):
    d.path("M32 14.5C39 14.5 44 19.6 44 26C44 30.4 41.6 33 39.4 35.6C38 37.2 37.2 38.6 37 40.6"
           "L27 40.6C26.8 38.6 26 37.2 24.6 35.6C22.4 33 20 30.4 20 26C20 19.6 25 14.5 32 14.5Z", fill=colour)
    _stroke(d, wood, "M29.4 40.6L29.4 33L26.4 28.2L29.6 30.2L32 27.6L34.4 30.2L37.6 28.2L34.6 33L34.6 40.6", 1.7)
    d.rect(27.2, 42.2, 9.6, 2.8, 1.2, fill=colour)
    d.rect(28.4, 46.2, 7.2, 2.8, 1.4, fill=colour)


def _exit(d, colour, wood):
    d.path("M18.6 15.5L38.4 15.5L38.4 21.6L35 21.6L35 18.9L27.2 18.9L27.2 45.1"
           "L35 45.1L35 41.4L38.4 41.4L38.4 48.5L27.2 48.5L27.2 51L17.4 47.4L17.4 16.7"
           "C17.4 16 17.9 15.5 18.6 15.5Z", fill=colour)
    d.circle(24.2, 33, 1.7, fill=wood)
    d.path("M32 29.6L40.6 29.6L40.6 24.4L49.4 31.6L40.6 38.8L40.6 33.6L32 33.6Z", fill=colour)


EMBLEMS = (_help, _new_game, _settings, _history, _tutor, _exit)
NAMES = ("help", "new game", "settings", "history", "tutor", "exit")


def draw_button(index, pressed):
    state = "pressed" if pressed else "at rest"
    key = Drawing((0, 0, 64, 64), f"Menu button: {NAMES[index]}, {state}. Drawn by tools/make_art.py.")
    draw_key(key, 3.5, 3.5, 55.5, 55.5, 11, pressed)
    draw_inlay(key, 8.2, 8.2, 46.1, 46.1, 7.2, pressed)
    key.open_group("translate(31.2 31.2) scale(0.96) translate(-32 -32)")
    Emblem(key, pressed).paint(EMBLEMS[index])
    key.close_group()
    return key


def _triangle(d, colour, left, right):
    d.path(f"M{right} 32L{left} 18L{left} 46Z", fill=colour, stroke=colour, stroke_width=3, stroke_linejoin="round")


def _one(d, colour, back, front):
    _triangle(d, colour, back, front)
    d.rect(front + (4 if front > back else -9), 16.6, 5, 30.8, 1.6, fill=colour)


def _back_one(d, colour, wood):
    _one(d, colour, 45, 25)


def _forward_one(d, colour, wood):
    _one(d, colour, 19, 39)


def _back(d, colour, wood):
    _triangle(d, colour, 31, 14)
    _triangle(d, colour, 49, 32)


def _forward(d, colour, wood):
    _triangle(d, colour, 15, 32)
    _triangle(d, colour, 33, 50)


def _restore(d, colour, wood):
    _stroke(d, colour, "M24 24L38 24C53 24 53 45.5 38 45.5L23 45.5", 5)
    d.path("M11 24L27 12.5L27 35.5Z", fill=colour, stroke=colour, stroke_width=2, stroke_linejoin="round")


RECORDER = {1: (_back_one, "one move back"), 2: (_forward_one, "one move forward"), 3: (_back, "back by itself"),
            4: (_forward, "forward by itself"), 5: (_restore, "restore")}


def draw_recorder(index, pressed):
    """A large key of the recorder; its switch, the first of the six, is a reel."""
    emblem, name = RECORDER[index]
    state = "pressed" if pressed else "at rest"
    key = Drawing((0, 0, 64, 64), f"Large key of the recorder: {name}, {state}. Drawn by tools/make_art.py.")
    draw_key(key, 3.5, 3.5, 55.5, 55.5, 11, pressed)
    draw_inlay(key, 8.2, 8.2, 46.1, 46.1, 7.2, pressed)
    key.open_group("translate(31.2 31.2) scale(0.74) translate(-32 -32)")
    Emblem(key, pressed).paint(emblem)
    key.close_group()
    return key


def _bars(d, colour, wood):
    for x, top in ((12, 34), (26.5, 16), (41, 26)):
        d.rect(x, top, 10.5, 51 - top, 2, fill=colour)


def draw_chances(pressed):
    """The small key of the window of chances. It has no inlay: that would be too fine."""
    state = "pressed" if pressed else "at rest"
    key = Drawing((0, 0, 64, 64), f"Key of the chances, {state}. Drawn by tools/make_art.py.")
    draw_key(key, 3.5, 3.5, 55.5, 55.5, 11, pressed)
    Emblem(key, pressed).paint(_bars)
    return key


def _tick(d, colour, wood):
    _stroke(d, colour, "M10.5 15.2L14.8 19.6L22.4 10.2", 3)


def _cross(d, colour, wood):
    _stroke(d, colour, "M11.6 10.2L21 19.8M21 10.2L11.6 19.8", 3)


def draw_answer(name, pressed):
    """A button of the message window; the program writes its text right of the emblem."""
    state = "pressed" if pressed else "at rest"
    key = Drawing((0, 0, 96, 30), f"Message button: {name}, {state}. Drawn by tools/make_art.py.")
    draw_key(key, 2.2, 2, 91, 25, 6, pressed)
    draw_inlay(key, 5.2, 5, 85, 19, 3.6, pressed, weight=0.8)
    Emblem(key, pressed).paint(_cross if name == "no" else _tick)
    return key
