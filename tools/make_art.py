#!/usr/bin/env python3
"""Draws the game's pictures into assets/.

    tools/make_art.py            draws all of them
    tools/make_art.py board die  draws those whose name begins with one of the words
"""

import pathlib
import sys
from functools import partial

from art import board, dice, icon, keys, pieces, pointers, recorder, shadow, surface

ASSETS = pathlib.Path(__file__).resolve().parent.parent / "assets"


def drawings():
    """Every picture by its file's name, as something that draws it when called."""
    yield "bitmaps/board", board.draw
    yield "bitmaps/board_shadow", shadow.draw
    yield "bitmaps/surface", surface.draw
    for colour in range(1, 5):
        yield f"bitmaps/piece_{colour}", partial(pieces.draw, colour)
    for face in range(1, 7):
        yield f"bitmaps/die_{face}", partial(dice.draw, face)
    yield "bitmaps/recorder", recorder.draw
    for pressed, ending in ((False, ""), (True, "_pressed")):
        for index in range(6):
            yield f"bitmaps/button_{index}{ending}", partial(keys.draw_button, index, pressed)
        for name in ("yes", "no", "accept"):
            yield f"bitmaps/{name}{ending}", partial(keys.draw_answer, name, pressed)


    yield from pointer_drawings()
    yield "icon/zorva", icon.draw


def pointer_drawings():
    for colour, (die, hand) in enumerate((("DadoAmar", "ManoCeAm"), ("DadoAzul", "ManoCeAz"), ("DadoRojo", "ManoCeRo"),
                                          ("DadoVerd", "ManoCeVe")), start=1):
        yield f"cursors/{die}", partial(pointers.draw_die, die, colour)
        yield f"cursors/{hand}", partial(pointers.draw_closed, hand, colour)
    for hand, (skin, cuff) in pointers.OPEN_HANDS.items():
        yield f"cursors/{hand}", partial(pointers.draw_open, hand, skin, cuff)
    yield "cursors/ManoIndice", partial(pointers.draw_index, "ManoIndice")


def write_hot_spots():
    names = sorted(name.split("/")[1] for name, _ in pointer_drawings())
    lines = [f"{name} {pointers.hot_spot(name)[0]} {pointers.hot_spot(name)[1]}\n" for name in names]
    (ASSETS / "cursors/hotspots.txt").write_text("".join(lines), encoding="utf-8")


def main(words):
    for name, draw in drawings():
        if words and not any(name.split("/")[1].startswith(w) for w in words):
            continue
        file = ASSETS / f"{name}.svg"
        file.parent.mkdir(exist_ok=True)
        file.write_text(draw().text(), encoding="utf-8")
    write_hot_spots()


if __name__ == "__main__":
    main(sys.argv[1:])
