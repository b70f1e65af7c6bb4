#!/usr/bin/python3
"""Measures how true the chances and the luck are that zorva-sim tells, and puts the results into
docs/chances.md and its drawing.

    tools/measure_chances.py [--games N] [--luck-games N] [--jobs N] [--sim build/play/tools/zorva-sim]

Plays 20,000 games of all rules, levels and numbers of players, asks at a random moment of each for the
chance of a random colour, and counts how often those colours won. In 1,000 more games it adds up the
luck of each colour. The same numbers give the same tables on every machine. Needs python3-matplotlib.
"""

import argparse
import math
import os
import random
import subprocess
import tempfile
from concurrent.futures import ThreadPoolExecutor

import report

NAMES = ("Amarillo", "Azul", "Rojo", "Verde")
COLOURS = ("yellow", "blue", "red", "green")
PLAYOUTS, LUCK_PLAYOUTS = 500, 50
COMPUTER, PERSON = 1, 2
Z99 = 2.575829  # 99 of 100 normal deviations are smaller


class Game:
    """A game by chance: its settings file, its throws, and where zorva-sim saves it."""

    def __init__(self, sim, folder, kind, number, with_persons):
        self.sim, self.chance = sim, random.Random(f"{kind} {number}")
        self.file = os.path.join(folder, f"{kind}{number}")
        self.taking_part = self.chance.sample(range(4), self.chance.choice((2, 3, 4)))
        kinds = (COMPUTER, PERSON) if with_persons else (COMPUTER,)
        self.types = [self.chance.choice(kinds) for _ in range(4)]
        self.throws = self.chance.choices(range(1, 7), k=6000)
        rules = [self.chance.choice((1, 2)) for _ in range(5)]
        with open(self.file + ".INI", "w", encoding="ascii", newline="\r\n") as file:
            for colour, name in enumerate(NAMES):
                active = 1 if colour in self.taking_part else 2
                file.write(f'4,0,0,0,0,0,"{name}",{self.chance.randint(0, 100)},{self.types[colour]},{active}\n')
            file.write('"' + " 0" * 300 + '"\n')
            file.write("0,0,0,-1,0,2,2,%d,1,1,%d,%d,%d,%d,100\n" % tuple(rules))
        self.first = self.taking_part[0] + 1

    def run(self, *words):
        return subprocess.run([self.sim, *map(str, words)], check=True, capture_output=True, text=True).stdout

    def play(self, throws, *words):
        """Plays that many of the throws and saves the game."""
        with open(self.file + ".dice", "w", encoding="ascii") as file:
            file.write(" ".join(map(str, self.throws[:throws])))
        return self.run("play", "--settings", self.file + ".INI", "--first", self.first, "--dice",
                        self.file + ".dice", "--save", self.file + ".OUT", *words)

    def analyse(self, *words):
        return [line.split() for line in
                self.run("analyse", "--settings", self.file + ".OUT", "--threads", 1, *words).splitlines()]

    def forget(self):
        for end in (".INI", ".OUT", ".dice"):
            os.remove(self.file + end)


def throws_of(records):
    """How many throws the records of a whole game had. Not counted are third sixes without a record: then the
    moment is chosen from a little less than the whole game."""
    rows = [line.split(": ")[1].split(",") for line in records.splitlines() if ": " in line]
    second_exits = sum(row[2] == "5" and row[10] == "0" for row in rows)
    return sum(row[2] != "0" for row in rows) - second_exits


def told_and_won(sim, folder, number):
    """The chance of a colour at a random moment of a game, and whether it won. Half of the moments are after the
    throw."""
    game = Game(sim, folder, "chance", number, with_persons=False)
    whole = game.play(len(game.throws), "--records")
    winner = int(whole[whole.index("winner "):].split()[1])
    moment = game.chance.randrange(4, throws_of(whole))
    game.play(moment)
    colour = game.chance.choice(game.taking_part) + 1
    die = ("--die", game.throws[moment]) if game.chance.random() < 0.5 else ()
    lines = game.analyse("--playouts", PLAYOUTS, "--seed", number, *die)
    game.forget()
    chance = next(float(line[2]) for line in lines if line[:2] == ["win", str(colour)])
    return chance, colour == winner


def lucks(sim, folder, number):
    """The colour, the type and the luck of each player in a whole game, and by how much its sum is wrong."""
    game = Game(sim, folder, "luck", number, with_persons=True)
    game.play(len(game.throws), "--keep-won")
    lines = game.analyse("--game", "--playouts", LUCK_PLAYOUTS, "--seed", number)
    game.forget()
    found = []
    for colour in sorted(game.taking_part):
        value = {line[0]: list(map(float, line[2:])) for line in lines
                 if line[0] in ("luck", "choice", "sum") and line[1] == str(colour + 1)}
        gap = abs(sum(value["sum"][:4]) - value["sum"][4])
        found.append((colour, game.types[colour], *value["luck"], value["choice"][0], gap))
    return found


def table(heads, rows):
    lines = ["| " + " | ".join(heads) + " |", "|" + "---:|" * len(heads)]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows])


def tenths(results):
    """By tenths of the chance told: games, mean chance, share won, and half of the band of 99 in 100."""
    rows = []
    for tenth in range(10):
        here = [(chance, won) for chance, won in results if min(int(chance * 10), 9) == tenth]
        mean = sum(chance for chance, _ in here) / len(here)
        # Games whose chances differ deviate less than games that all have the mean chance.
        spread = math.sqrt(sum(chance * (1 - chance) for chance, _ in here)) / len(here)
        rows.append((tenth, len(here), mean, sum(won for _, won in here) / len(here), Z99 * spread))
    return rows


def calibration_table(rows, results):
    brier = sum((chance - won) ** 2 for chance, won in results) / len(results)
    share = sum(won for _, won in results) / len(results)
    lines = [[f"{tenth / 10:.1f} to {(tenth + 1) / 10:.1f}", f"{games:,}", f"{mean:.4f}",
              f"{mean - band:.4f} to {mean + band:.4f}", f"{won:.4f}", "" if abs(won - mean) <= band else "outside"]
             for tenth, games, mean, won, band in rows]
    return (table(["chance told", "games", "mean of it", "band of 99 in 100", "won", ""], lines) +
            f"\n\n{len(results):,} games, {PLAYOUTS:,} play-outs each. Brier score {brier:.4f}; "
            f"{share * (1 - share):.4f} would come from telling {share:.4f}, the share won, every time.")


def luck_table(found):
    rows = []
    for name, chosen in [(f"{colour}, {kind}", [row for row in found if row[0] == number and row[1] == key])
                         for number, colour in enumerate(COLOURS)
                         for key, kind in ((COMPUTER, "computer"), (PERSON, "person"))] + [("all", found)]:
        values = [row[2] for row in chosen]
        mean = sum(values) / len(values)
        spread = math.sqrt(sum((value - mean) ** 2 for value in values) / (len(values) - 1))
        band = Z99 * spread / math.sqrt(len(values))
        rows.append([name, str(len(values)), f"{mean:+.4f}", f"{-band:+.4f} to {band:+.4f}", f"{spread:.2f}",
                     f"{sum(row[3] for row in chosen) / len(chosen):.3f}",
                     f"{sum(row[4] for row in chosen) / len(chosen):+.4f}", "" if abs(mean) <= band else "outside"])
    gap = max(row[5] for row in found)
    return (table(["player", "games", "mean luck", "band of 99 in 100", "spread", "error told", "mean choice", ""],
                  rows) + f"\n\nThe largest gap between start + luck + choice + shift and the result, of numbers "
            f"rounded to four decimals, is {gap:.4f}.")


def draw(rows):
    figure, axes = report.plot((5, 5))
    axes.plot([0, 1], [0, 1], color="grey", linewidth=0.8, linestyle="--")
    axes.errorbar([mean for _, _, mean, _, _ in rows], [won for _, _, _, won, _ in rows],
                  [band for _, _, _, _, band in rows], fmt="o", markersize=4, capsize=3, color="#1f5f9f")
    axes.set(xlabel="chance told", ylabel="share of games won", xlim=(0, 1), ylim=(0, 1))
    axes.set_title("Chances told, and games won")
    axes.grid(alpha=0.3)
    report.save(figure, "chances")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--games", type=int, default=20_000)
    parser.add_argument("--luck-games", type=int, default=1_000)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--sim", default=report.SIM)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder, ThreadPoolExecutor(options.jobs) as pool:
        results = list(pool.map(lambda number: told_and_won(options.sim, folder, number), range(options.games)))
        found = sum(pool.map(lambda number: lucks(options.sim, folder, number), range(options.luck_games)), [])
    rows = tenths(results)
    report.renew("chances", {"calibration": calibration_table(rows, results), "luck": luck_table(found)})
    draw(rows)


if __name__ == "__main__":
    main()
