"""The colours of all drawings and the marks of the four players."""

INK = "#2a1d14"
PAPER_LIGHT = "#fbf5e4"
PAPER = "#f6edd6"
PAPER_DARK = "#eadcbc"

MAHOGANY_DARK = "#47200f"
MAHOGANY = "#70371d"
MAHOGANY_LIGHT = "#a05c34"
BRASS_DARK = "#7d5a1e"
BRASS = "#c79a45"
BRASS_LIGHT = "#f6dfa0"
IVORY_LIGHT = "#fffdf5"
IVORY = "#f7edd8"
IVORY_DARK = "#cdb68e"


class Tones:
    """One player's colour: the fixed base and the tones of its hue around it."""

    def __init__(self, base, light, house, deep, tint, ink):
        self.base = base    # the colour itself: squares, goals and the faces of pieces (Palette.h has the same)
        self.light = light  # where the lamp falls on it
        self.house = house  # ground of a house that waits
        self.deep = deep    # its shade, and the felt of the die's tray
        self.tint = tint    # ivory tinted with it
        self.ink = ink      # what is printed on it


# By the colour's number: 1 yellow, 2 blue, 3 red, 4 green.
TONES = {
    1: Tones("#ffff00", "#fff27a", "#dcb000", "#824e00", "#fdf4c8", INK),
    2: Tones("#0000ff", "#5a6cff", "#0a0a98", "#04044c", "#eae9f2", PAPER_LIGHT),
    3: Tones("#ff0000", "#ff6a55", "#9c0707", "#4c0202", "#f8e9df", PAPER_LIGHT),
    4: Tones("#008000", "#4fb45a", "#04600b", "#02300a", "#ecefdd", PAPER_LIGHT),
}
