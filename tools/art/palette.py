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
    """One player's colour: the fixed base and the tones around it."""

    def __init__(self, base, edge, light, house, deep, tint, ink):
        self.base = base    # the colour itself, on every flat area of the track
        self.edge = edge    # where such an area meets its border
        self.light = light  # lit side of houses and pieces
        self.house = house  # ground of the house
        self.deep = deep    # shaded side, felt of the die tray
        self.tint = tint    # paper tinted with the colour
        self.ink = ink      # what is printed on the colour


# By the colour's number: 1 yellow, 2 blue, 3 red, 4 green.
TONES = {
    1: Tones("#ffff00", "#f7d900", "#ffee58", "#f3c90c", "#8f6404", "#fff6cf", INK),
    2: Tones("#0000ff", "#0000bb", "#4a63f2", "#1a2cc4", "#0c1262", "#e6e9f6", PAPER_LIGHT),
    3: Tones("#ff0000", "#c40000", "#f0503c", "#cd1a12", "#6e0907", "#fae6dc", PAPER_LIGHT),
    4: Tones("#008000", "#005c0c", "#3fa552", "#0d6f28", "#06371a", "#e4eeda", PAPER_LIGHT),
}
