#!/usr/bin/env python3
"""Draws the game's pictures into assets/.

    tools/make_art.py            draws all of them
    tools/make_art.py board die  draws those whose name begins with one of the words
"""

import pathlib
import sys
from functools import partial

from art import board, dice, pieces, surface

ASSETS = pathlib.Path(__file__).resolve().parent.parent / "assets"


def drawings():
    """Every picture by its file's name, as something that draws it when called."""
    yield "bitmaps/board", board.draw
    yield "bitmaps/surface", surface.draw
    for colour in range(1, 5):
        yield f"bitmaps/piece_{colour}", partial(pieces.draw, colour)
    for face in range(1, 7):
        yield f"bitmaps/die_{face}", partial(dice.draw, face)


def main(words):
    for name, draw in drawings():
        if words and not any(name.split("/")[1].startswith(w) for w in words):
            continue
        file = ASSETS / f"{name}.svg"
        file.parent.mkdir(exist_ok=True)
        file.write_text(draw().text(), encoding="utf-8")


if __name__ == "__main__":
    main(sys.argv[1:])
