"""The digits of the square numbers, as centre lines of strokes. They are 11 units high; each has its own width."""

from .svg import num

HEIGHT = 11.0
GAP = 2.1

# Width and path of each digit. The path has only the absolute commands M, L and C; blanks separate all words.
FIGURES = {
    "0": (6.4, "M 3.2 0 C 5.3 0 6.4 2.1 6.4 5.5 C 6.4 8.9 5.3 11 3.2 11 C 1.1 11 0 8.9 0 5.5 C 0 2.1 1.1 0 3.2 0"),
    "1": (3.4, "M 0 2.5 L 3.2 0 L 3.2 11"),
    "2": (6.2, "M 0.1 2.9 C 0.4 1.1 1.5 0 3.1 0 C 4.9 0 6 1.2 6 2.9 C 6 4.4 5.1 5.6 3.7 7.1 L 0 11 L 6.2 11"),
    "3": (6.2, "M 0.3 0 L 5.7 0 L 2.6 4.2 C 4.8 4.1 6.2 5.5 6.2 7.5 C 6.2 9.6 4.8 11 2.9 11 C 1.5 11 0.4 10.3 0 9"),
    "4": (6.6, "M 5 11 L 5 0 L 0 7.9 L 6.6 7.9"),
    "5": (6.2, "M 5.8 0 L 1.1 0 L 0.6 4.9 C 1.3 4.3 2.1 4 3 4 C 4.9 4 6.2 5.4 6.2 7.4 C 6.2 9.5 4.9 11 3 11 "
               "C 1.5 11 0.4 10.2 0 8.9"),
    "6": (6.4, "M 4.9 0 C 2.6 1.3 0 4.2 0 7.6 C 0 9.7 1.3 11 3.2 11 C 5.1 11 6.4 9.6 6.4 7.6 C 6.4 5.6 5.1 4.3 3.2 4.3 "
               "C 1.5 4.3 0.2 5.6 0 7.3"),
    "7": (6.0, "M 0 0 L 6 0 L 2.1 11"),
    "8": (6.4, "M 3.2 5.1 C 1.5 5.1 0.4 4.1 0.4 2.6 C 0.4 1.1 1.5 0 3.2 0 C 4.9 0 6 1.1 6 2.6 C 6 4.1 4.9 5.1 3.2 5.1 "
               "C 1.3 5.1 0 6.3 0 8.1 C 0 9.9 1.3 11 3.2 11 C 5.1 11 6.4 9.9 6.4 8.1 C 6.4 6.3 5.1 5.1 3.2 5.1"),
    "9": (6.4, "M 1.5 11 C 3.8 9.7 6.4 6.8 6.4 3.4 C 6.4 1.3 5.1 0 3.2 0 C 1.3 0 0 1.4 0 3.4 C 0 5.4 1.3 6.7 3.2 6.7 "
               "C 4.9 6.7 6.2 5.4 6.4 3.7"),
}


def width(text):
    """The width of a number whose digits are 11 units high."""
    return sum(FIGURES[c][0] for c in text) + GAP * (len(text) - 1)


def number(value, cx, cy, height, place):
    """The path of a number centred on (cx, cy). `place` maps each point to its final position."""
    text = str(value)
    scale = height / HEIGHT
    x = cx - width(text) * scale / 2
    data = []
    for figure in text:
        advance, strokes = FIGURES[figure]
        data.append(_place(strokes, x, cy - height / 2, scale, place))
        x += (advance + GAP) * scale
    return "".join(data)


def _place(strokes, x, y, scale, place):
    words, out = strokes.split(), []
    i = 0
    while i < len(words):
        if words[i].isalpha():
            out.append(words[i])
            i += 1
        px, py = place(x + float(words[i]) * scale, y + float(words[i + 1]) * scale)
        out.append(f"{num(px)} {num(py)} ")
        i += 2
    return "".join(out).replace(" L", "L").replace(" C", "C").replace(" M", "M").strip()
