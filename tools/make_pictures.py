#!/usr/bin/env python3
"""Takes the screenshots of the manual and of the README, of the real program on a virtual screen.

    tools/make_pictures.py PROGRAM            # PROGRAM is the built zorva32; takes all screenshots
    tools/make_pictures.py PROGRAM tablero    # takes those whose names begin with this word

For the manual the screen has two pixels for each pixel of the layout, and so have the pictures; they are
written to assets/manual/. The README and the software catalogue show docs/board.png. All have few colours,
which keeps them small. Needs imagemagick, pngquant and what the tests with a window need, and beside the
program zorva-sim and what those tests build. The dice fall the same way each time. The drawing of the sum
needs python3-matplotlib.
"""

import os
import random
import subprocess
import sys
import tempfile
import unittest
from dataclasses import replace
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests/window"))

import driver  # noqa: E402
from inifile import COMPUTER, ON, PERSON, Settings, game_at, to_bytes  # noqa: E402

FOLDER = ROOT / "assets/manual"
WIDEST = 440  # layout pixels; wider screenshots are scaled down to fit on a page
COLOURS = 256

POSITIONS = {1: [76, 68, 20, 0], 2: [84, 22, 41, 0], 3: [92, 39, 8, 47], 4: [100, 56, 33, 0]}
PEOPLE = Settings(names=("Ana", "Azul", "Luis", "Verde"), types=(PERSON, COMPUTER, PERSON, COMPUTER),
                  levels=(50, 40, 50, 80), pause=ON, tutor=ON, speed=70, five_some_in_box=2)
HISTORY = (
    ("202611011830", "Ana", ("Azul", "Luis", "Verde"), 412), ("202611032105", "Verde", ("Ana", "Luis"), 287),
    ("202611081940", "Luis", ("Ana", "Azul", "Verde"), 356), ("202611151715", "Ana", ("Luis",), 651),
    ("202611202200", "Azul", ("Ana", "Luis", "Verde"), 198),
)
wanted = ()


def history_bytes():
    lines = []
    for when, winner, losers, points in HISTORY:
        names = [winner, *losers, "", "", ""][:4]
        lines.append(when + "".join(name.ljust(9) for name in names) + "%3d\r\n" % points)
    return "".join(lines).encode("latin-1")


def write_small(source, target, colours=COLOURS, *options):
    """Writes the PNG file with few colours."""
    subprocess.run(["pngquant", *options, "--speed", "1", "--strip", "--force", "--output", target, str(colours),
                    source], check=True)
    print(target.stem, target.stat().st_size)


class Pictures(driver.WindowTest):
    screen = (2048, 1536)

    def setUp(self):
        super().setUp()
        self.assertEqual(self.layout.unit, 2)

    def keep(self, name, x=0, y=0, width=None, height=None):
        """Writes a part of the screen (in pixels of the layout) as the manual's picture of that name. The cursor
        is in the picture where it lies in that part."""
        if wanted and not name.startswith(wanted):
            return
        part = [round(2 * v) for v in (x, y, width or self.layout.width, height or self.layout.height)]
        with tempfile.TemporaryDirectory() as folder:
            whole, cut = Path(folder) / "whole.ppm", Path(folder) / "cut.png"
            self.display.picture().save(whole)
            subprocess.run(["convert", whole, "-crop", "%dx%d+%d+%d" % (part[2], part[3], part[0], part[1]),
                            "+repage", "-filter", "Lanczos", "-resize", "%dx>" % (2 * WIDEST), "-strip", cut],
                           check=True)
            write_small(cut, FOLDER / (name + ".png"))

    def keep_window(self, name, window):
        self.keep(name, *(value / 2 for value in window[2:]))

    def begin(self, turn=1, settings=PEOPLE):
        self.start(settings, game_at(POSITIONS, turn=turn))
        self.settle()

    # ---------------------------------------------------------------------------------- the board

    def test_the_board_awaits_a_throw(self):
        self.start(replace(PEOPLE, speed=100))
        self.display.key("F2")
        self.answer(driver.START_TITLE, key="space")
        self.answer(driver.DRAW_TITLE, key="space")
        self.play_moves(60)
        self.rest_pointer()
        self.settle()
        self.keep("tablero")
        edge = self.layout.board_extent
        self.keep("botones", edge, 0, self.layout.width - edge, 205)
        self.keep("grabadora", edge, 205, self.layout.width - edge, 300)

    def test_a_person_chooses(self):
        self.begin()
        self.click_board()
        self.settle()
        game = self.game()
        self.point_at(self.point_of_piece(game, 1, 3))
        self.settle()
        x, y = self.point_of_piece(game, 1, 3)
        self.keep("elegir", max(0, x - 270), max(0, y - 110), 360, 300)
        self.keep("casa", *self.layout.houses[0])

    def test_moving_by_hand(self):
        self.begin()
        self.click_board(button=3)
        self.settle()
        start = self.layout.device(self.point_of_piece(self.game(), 1, 3))
        end = self.layout.device(self.layout.square(26))
        self.display.act("mousemove %d %d" % start, "mousedown 1", "mousemove %d %d" % end)
        self.settle()
        self.keep("manual", 300, 0, 400, 330)
        self.display.act("mouseup 1")

    # -------------------------------------------------------------------------------- the windows

    def open_and_keep(self, name, key, title):
        self.display.key(key)
        window = self.wait_for_message(title)
        self.display.move(2, 2)
        self.settle()
        self.keep_window(name, window)
        return window

    def test_the_windows_behind_the_menu(self):
        self.program.history.write_bytes(history_bytes())
        self.begin()
        self.open_and_keep("historico", "F4", "Histórico de partidas")
        self.display.key("Escape")
        self.wait_for_board()
        window = self.open_and_keep("personalizar", "F3", "Personalizar la aplicación")
        # The control before the last opens the page of the rules.
        self.display.key("shift+Tab", "shift+Tab", "space")
        self.settle()
        self.keep_window("normas", window)

    def test_the_chances(self):
        self.begin()
        self.click_board()
        self.settle()
        self.display.key("F7")
        window = self.wait_for_message("Probabilidades")
        self.display.move(2, 2)
        self.settle(rest=2)
        self.display.key("Down")
        self.settle()
        self.keep_window("probabilidades", window)
        self.display.key("Escape")
        self.wait_for_board()
        self.play_moves(80)
        self.display.key("F7")
        window = self.wait_for_message("Probabilidades")
        self.display.key("2")
        self.settle(rest=2)
        self.keep_window("partida", window)

    def test_a_question(self):
        self.begin()
        self.play_moves(2)
        self.open_and_keep("pregunta", "F6", driver.POSTPONE_TITLE)


def draw_sum():
    """suma.png: how luck and choices lead from the chance at the start to the one at the end."""
    import matplotlib
    matplotlib.use("Agg")
    from matplotlib import pyplot

    bars = (("Al empezar", 0, 25, "25"), ("La suerte\nde todos", 25, 83, "+83"),
            ("Las elecciones\nde todos", 108, -8, "−8"), ("Al final", 0, 100, "100"))
    colours = ("#e8b006", "#c79a45", "#8a4a2c", "#e8b006")
    pyplot.rcParams.update({"font.family": ["Lato", "DejaVu Sans"], "font.size": 10})
    figure, axes = pyplot.subplots(figsize=(4.4, 2.3), dpi=200, facecolor="#f6eed9")
    axes.set_facecolor("#f6eed9")
    for place, ((_, start, height, text), colour) in enumerate(zip(bars, colours)):
        axes.bar(place, height, bottom=start, width=0.6, color=colour, edgecolor="#3e3127", linewidth=0.8,
                 hatch="///" if height < 0 else None)
        axes.text(place, max(start, start + height) + 2, text, ha="center", va="bottom", weight="bold")
    for place, level in enumerate((25, 108, 100)):
        axes.plot((place + 0.3, place + 0.7), (level, level), color="#3e3127", linewidth=0.8, linestyle=":")
    axes.set_xticks(range(len(bars)), [name for name, *_ in bars])
    axes.set_yticks((0, 50, 100))
    axes.set_ylim(0, 122)
    axes.spines[["top", "right"]].set_visible(False)
    with tempfile.TemporaryDirectory() as folder:
        figure.savefig(Path(folder) / "suma.png", bbox_inches="tight")
        write_small(Path(folder) / "suma.png", FOLDER / "suma.png")


class GameInItsMiddle(driver.WindowTest):
    """docs/board.png: a person takes over a game that computers have played so far."""

    screen = (1366, 768)
    throws = random.Random(1236).choices("123456", k=180)  # after which pieces of all colours are on all parts
    settings = Settings(names=("Ana", "Luis", "Marta", "Pablo"), types=(PERSON, COMPUTER, COMPUTER, COMPUTER),
                        levels=(80, 80, 80, 80), pause=ON, tutor=ON, speed=70)

    def play_so_far(self):
        start, dice = self.program.folder / "start.INI", self.program.folder / "dice.txt"
        start.write_bytes(to_bytes(self.settings))
        dice.write_text(" ".join(self.throws))
        simulator = Path(os.environ["ZORVA32"]).parents[1] / "tools/zorva-sim"
        subprocess.run([simulator, "play", "--settings", start, "--first", "1", "--dice", dice,
                        "--save", self.program.ini], check=True, stdout=subprocess.DEVNULL)

    def test_a_game_in_its_middle(self):
        if wanted and not "board".startswith(wanted):
            return
        self.play_so_far()
        self.start_again(continues=True)
        self.click_board()
        self.settle(rest=1)
        with tempfile.TemporaryDirectory() as folder:
            whole = Path(folder) / "whole.png"
            # Leaves the cursor out, which Picture would show.
            subprocess.run(["import", "-window", "root", whole], env=self.display.environment, check=True)
            # With half the usual dithering: a quarter smaller, and smooth enough.
            write_small(whole, ROOT / "docs/board.png", COLOURS, "--floyd=0.5")


if __name__ == "__main__":
    if len(sys.argv) < 2 or not Path(sys.argv[1]).is_file():
        sys.exit(__doc__)
    os.environ["ZORVA32"] = str(Path(sys.argv[1]).resolve())
    wanted = tuple(sys.argv[2:])
    if not wanted or "suma".startswith(wanted):
        draw_sum()
    unittest.main(argv=sys.argv[:1], verbosity=1)
