"""The pieces: turned, lacquered counters seen slightly from the front, each with its colour's mark inlaid."""

from .marks import draw_mark
from .palette import INK, IVORY_LIGHT, TONES
from .svg import Drawing, mix

# Lacquer of each colour, from the lit to the shaded side, and the inlay of its mark.
LACQUER = {
    1: ("#fffbb0", "#ffea1c", "#eec400", "#a87800", "#4a3000", INK),
    2: ("#8fa6ff", "#2b46f0", "#1022c8", "#0a1480", "#040838", IVORY_LIGHT),
    3: ("#ff9c86", "#f4261a", "#cf0e0a", "#860705", "#360202", IVORY_LIGHT),
    4: ("#86d88e", "#119033", "#077024", "#034415", "#011c08", IVORY_LIGHT),
}


def draw(colour):
    gleam, lit, body, shade, dark, inlay = LACQUER[colour]
    name = ("", "yellow", "blue", "red", "green")[colour]
    piece = Drawing((0, 0, 40, 40), f"A piece, {name}. Drawn by tools/make_art.py.")
    piece.soft_disc(22, 22.8, 13.2, 3.6, 0.55)
    # The foot, of which the front shows, then the rounded shoulder and the hollowed top.
    piece.circle(20, 20, 14, fill=dark)
    piece.circle(20, 20, 13.3, fill=piece.linear(8, 12, 32, 32, (0, body), (0.5, shade), (1, dark)))
    piece.ellipse(20, 19, 12.9, 12.5,
                  fill=piece.linear(11, 9, 29, 30, (0, gleam), (0.3, lit), (0.65, body), (1, shade)))
    piece.ellipse(20, 18.9, 10.6, 10.3, fill=piece.linear(12, 10, 28, 28, (0, shade), (0.55, body), (1, gleam)))
    piece.ellipse(20, 19, 9.9, 9.6, fill=piece.radial(17, 15.5, 14, (0, mix(lit, gleam, 0.35)), (0.5, lit), (1, body)))
    size = {1: 14.4, 2: 14.2, 3: 16, 4: 15.6}[colour]
    draw_mark(piece, colour, 20.45, 19.55, size, fill=dark if inlay != INK else gleam, fill_opacity=0.55)
    draw_mark(piece, colour, 20, 19, size, fill=inlay)
    piece.path("M9.6 15.2C11.2 10.6 15 7.9 19.4 7.6C15.6 9.2 12.6 11.6 10.6 15.8C10.2 16.6 9.3 16.2 9.6 15.2Z",
               fill="#ffffff", fill_opacity=0.55)
    return piece


def draw_shadow():
    """The shadow of a piece in the air. The program paints it at a distance, so it is a drawing of its own."""
    shadow = Drawing((0, 0, 40, 40), "The shadow of a piece in the air. Drawn by tools/make_art.py.")
    dark = "#000000"
    shadow.circle(20, 20, 15.4, fill=shadow.radial(20, 20, 15.4, (0, dark, 0.5), (0.6, dark, 0.32), (1, dark, 0)))
    return shadow
