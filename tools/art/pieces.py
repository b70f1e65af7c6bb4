"""The pieces: turned, lacquered counters seen slightly from the front, each with its colour's mark inlaid."""

from .marks import draw_mark
from .palette import INK, IVORY_LIGHT, TONES
from .svg import Drawing, num

# Lacquer of each colour, from the gleam over the colour itself to its darkest shade, and the inlay of its mark.
LACQUER = {
    1: ("#ffffd0", "#ffff5a", TONES[1].base, "#c09400", "#4a3400", INK),
    2: ("#b4beff", "#4a5cff", TONES[2].base, "#0000a0", "#02022e", IVORY_LIGHT),
    3: ("#ffb8a8", "#ff5a44", TONES[3].base, "#960000", "#300000", IVORY_LIGHT),
    4: ("#a4e4a8", "#2ca63c", TONES[4].base, "#004a06", "#001a04", IVORY_LIGHT),
}

# The rim of the top: ivory, which stands out from the squares of the same colour.
RIM = (0, "#fffdf2"), (0.4, "#f6e8c4"), (1, "#b98f4a")


def draw(colour):
    gleam, lit, body, shade, dark, inlay = LACQUER[colour]
    name = ("", "yellow", "blue", "red", "green")[colour]
    piece = Drawing((0, 0, 40, 40), f"A piece, {name}. Drawn by tools/make_art.py.")
    piece.soft_disc(23.4, 25, 11.6, 4.6, 0.5)
    piece.soft_disc(21, 22.2, 13.6, 2.2, 0.9)
    _side(piece, lit, body, shade, dark)
    # The top, 28 wide: a rounded rim, and in it a flat face in the colour itself.
    cy = 17.3
    piece.ellipse(20, cy, 13.5, 11.7,
                  fill=piece.linear(10, 8, 30, 29, *RIM))
    piece.ellipse(20, cy, 11.6, 9.9, fill=piece.linear(11, 9, 29, 27, (0, dark), (0.5, shade), (1, lit)))
    piece.ellipse(20, cy + 0.1, 11.1, 9.4, fill=body)
    draw_mark(piece, colour, 20, cy + 0.1, {1: 11, 2: 11.2, 3: 11.4, 4: 11}[colour], fill=inlay)
    piece.path("M8.2 13.8C10.2 9.4 14.4 6.6 19.4 6.3C15.4 7.5 11.8 10.2 9.3 14.4C8.8 15.3 7.8 14.8 8.2 13.8Z",
               fill="#ffffff", fill_opacity=0.6)
    return piece


def _side(piece, lit, body, shade, dark):
    """The wall under the top: what is seen of it below the top's front edge."""
    def slab(top, bottom, rx, ry, fill):
        piece.path(f"M{num(20 - rx)} {num(top)}A{num(rx)} {num(ry)} 0 0 1 {num(20 + rx)} {num(top)}L{num(20 + rx)} "
                   f"{num(bottom)}A{num(rx)} {num(ry)} 0 0 1 {num(20 - rx)} {num(bottom)}Z", fill=fill)
    slab(17.2, 22, 14, 12, dark)
    slab(17.2, 21.5, 13.6, 11.8, piece.linear(6, 0, 34, 0, (0, shade), (0.22, body), (0.38, lit), (0.6, body),
                                            (0.85, shade), (1, dark)))


def draw_shadow():
    """The shadow of a piece in the air. The program paints it at a distance, so it is a drawing of its own."""
    shadow = Drawing((0, 0, 40, 40), "The shadow of a piece in the air. Drawn by tools/make_art.py.")
    dark = "#000000"
    shadow.circle(20, 20, 15.4, fill=shadow.radial(20, 20, 15.4, (0, dark, 0.5), (0.6, dark, 0.32), (1, dark, 0)))
    return shadow
