#!/usr/bin/env python3
"""Draws the game's images, cursors and icons and writes them into assets/ as SVG files.

    tools/make_art.py            writes all of them
    tools/make_art.py board die  writes those whose names begin with one of these words
    tools/make_art.py --check    names the files that are not what it would write; status 1 if there are any
"""

import pathlib
import sys
from functools import partial

from art import board, dice, house, icon, keys, laurel, panel, pieces, cursors, recorder, shadow, surface, title, windows

ASSETS = pathlib.Path(__file__).resolve().parent.parent / "assets"


def drawings():
    """Yields the name of each file, without its ending, and the function that draws it."""
    yield "bitmaps/board", board.draw
    yield "bitmaps/board_print", board.draw_print
    yield "bitmaps/board_shadow", shadow.draw
    yield "bitmaps/surface", surface.draw
    for colour in range(1, 5):
        yield f"bitmaps/piece_{colour}", partial(pieces.draw, colour)
        yield f"bitmaps/rest_{colour}", partial(house.draw_rest, colour)
        yield f"bitmaps/well_{colour}", partial(house.draw_well, colour)
        yield f"bitmaps/lid_{colour}", partial(house.draw_lid, colour)
    for colour in range(5):
        yield f"bitmaps/place_{colour}", partial(house.draw_place, colour)
    yield "bitmaps/piece_shadow", pieces.draw_shadow
    yield "bitmaps/laurel", laurel.draw
    yield "bitmaps/medal", laurel.draw_medal
    for face in range(1, 7):
        yield f"bitmaps/die_{face}", partial(dice.draw, face)
    for face in dice.SIDES:
        yield f"bitmaps/die_ready_{face}", partial(dice.draw_ready, face)
    yield "bitmaps/recorder", recorder.draw
    for pressed, ending in ((False, ""), (True, "_pressed")):
        for index in range(6):
            yield f"bitmaps/button_{index}{ending}", partial(keys.draw_button, index, pressed)
        yield f"bitmaps/recorder_0{ending}", partial(panel.draw_switch, pressed)
        for index in keys.RECORDER:
            yield f"bitmaps/recorder_{index}{ending}", partial(keys.draw_recorder, index, pressed)
        yield f"bitmaps/button_chances{ending}", partial(keys.draw_chances, pressed)
        for name in ("yes", "no", "accept"):
            yield f"bitmaps/{name}{ending}", partial(keys.draw_answer, name, pressed)
    for name, draw in (*panel.drawings(), *windows.drawings(), *title.drawings()):
        yield f"bitmaps/{name}", draw
    yield from cursor_drawings()
    yield "icon/zorva", icon.draw
    yield "icon/zorva_small", icon.draw_small


def cursor_drawings():
    for colour, (die, hand) in enumerate((("DadoAmar", "ManoCeAm"), ("DadoAzul", "ManoCeAz"), ("DadoRojo", "ManoCeRo"),
                                          ("DadoVerd", "ManoCeVe")), start=1):
        yield f"cursors/{die}", partial(cursors.draw_die, die, colour)
        yield f"cursors/{hand}", partial(cursors.draw_closed, hand, colour)
    for hand, (skin, cuff) in cursors.OPEN_HANDS.items():
        yield f"cursors/{hand}", partial(cursors.draw_open, hand, skin, cuff)
    yield "cursors/ManoIndice", partial(cursors.draw_index, "ManoIndice")


def hot_spots():
    """The hot spots of the cursors: a line for each with its name, x and y, in units of its drawing."""
    names = sorted(name.split("/")[1] for name, _ in cursor_drawings())
    return "".join("{} {} {}\n".format(name, *cursors.hot_spot(name)) for name in names)


def files(words):
    """Yields the path and the text of each file to be written. The hot spots are always among them."""
    for name, draw in drawings():
        if not words or any(name.split("/")[1].startswith(w) for w in words):
            yield ASSETS / f"{name}.svg", draw().text()
    yield ASSETS / "cursors/hotspots.txt", hot_spots()


def check(words):
    """Whether the files are what this script would write. Prints the names of those that are not."""
    stale = [file for file, text in files(words) if not file.exists() or file.read_text(encoding="utf-8") != text]
    for file in stale:
        print(f"{file.relative_to(ASSETS)} is not what tools/make_art.py draws", file=sys.stderr)
    return not stale


def main(words):
    if words[:1] == ["--check"]:
        return 0 if check(words[1:]) else 1
    for file, text in files(words):
        file.parent.mkdir(exist_ok=True)
        file.write_text(text, encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
