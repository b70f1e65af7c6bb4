#!/usr/bin/python3
"""Measures how strong the levels of play are, and puts the results into docs/strength.md and its drawings.

    tools/measure_strength.py [--games N] [--sim build/play/tools/zorva-sim] [--keep FILE]

Plays N games, 100,000 unless given, for each point of the tables, and a hundredth of that with the player who
chooses by play-outs, which takes most of the time. The same N gives the same tables on every machine. FILE keeps the results of the matches played, so that a run that was interrupted continues where
it stopped. Needs python3-matplotlib.
"""

import argparse
import json
import math
import os
import re
import subprocess
import sys
import zlib

import report

COLOURS = ("yellow", "blue", "red", "green")
LEVELS = range(0, 101, 10)
PLAY_OUTS = 200
# The default rules, in the order of zorva-sim's option --rules, and the other answer to each.
USUAL_RULES = (2, 1, 1, 1)
OTHER_RULES = ("a six with none in the box counts 7, not 12",
               "with all in the box a five is needed to begin",
               "a five with all in the box brings out one, not two",
               "a five with some in the box may bring one out, not must")


def interval(wins, games):
    """The share of wins and its 95 % confidence interval (Wilson's), in per cent."""
    z = 1.959964
    share = wins / games
    middle = (share + z * z / (2 * games)) / (1 + z * z / games)
    half = z / (1 + z * z / games) * math.sqrt(share * (1 - share) / games + z * z / (4 * games * games))
    return 100 * share, 100 * (middle - half), 100 * (middle + half)


def text_of(wins, games):
    share, low, high = interval(wins, games)
    return f"{share:.2f} ({low:.2f} to {high:.2f})"


class Sim:
    """Runs zorva-sim and remembers the results of its matches."""

    def __init__(self, program, keep):
        self.program, self.keep, self.played = program, keep, {}
        if keep and os.path.exists(keep):
            with open(keep, encoding="utf-8") as file:
                self.played = json.load(file)

    def play(self, words):
        key = " ".join(words)
        if key not in self.played:
            self.played[key] = subprocess.run([self.program, "match"] + words, check=True,
                                              capture_output=True, text=True).stdout
            if self.keep:
                with open(self.keep, "w", encoding="utf-8") as file:
                    json.dump(self.played, file)
        return self.played[key]


class Match:
    """The result of one run of zorva-sim match."""

    def __init__(self, sim, games, levels, players=(1, 1, 1, 1), rules=USUAL_RULES, order=2,
                 thinker=None):
        words = ["--games", games, "--levels", self.listed(levels), "--players", self.listed(players),
                 "--rules", self.listed(rules), "--order", order]
        words += ["--thinker", thinker] if thinker else []
        words = [str(word) for word in words]
        # The seed depends on the match alone: different matches have different games, the same in every run.
        words += ["--seed", str(zlib.crc32(" ".join(words).encode()))]
        out = sim.play(words)
        self.games = games
        self.wins = {}
        for line in out.splitlines():
            row = re.match(r"(\w+), level \d+ +(\d+) ", line)
            if row:
                self.wins[COLOURS.index(row[1])] = int(row[2])
        if sum(self.wins.values()) != games:
            sys.exit("zorva-sim printed something unexpected:\n" + out)
        shares = re.search(r"wins by turn, from the colour that begins:(.*)", out)[1]
        self.by_turn = [float(share) / 100 for share in shares.replace("%", "").split()]
        self.moves = float(re.search(r"mean moves per game ([\d.]+)", out)[1])

    @staticmethod
    def listed(numbers):
        return ",".join(str(number) for number in numbers)


def one_against_others(sim, games, level, others, seats, play_outs=0):
    """Wins and games of `level`, which takes each of the seats for an equal share of the games; the other
    players, of level `others`, take the rest of the seats. With `play_outs` it chooses by that many of each
    move."""
    players = tuple(1 if seat in seats else 2 for seat in range(4))
    wins = 0
    share = games // len(seats)
    for seat in seats:
        levels = [others] * 4
        levels[seat] = level
        thinker = f"{seat + 1},{play_outs}" if play_outs else None
        wins += Match(sim, share, levels, players, thinker=thinker).wins[seat]
    return wins, share * len(seats)


FOUR, TWO = (0, 1, 2, 3), (0, 2)


def measure(sim, games):
    """The results for all tables, by the table's name."""
    found = {}
    for name, others, seats in (("four-50", 50, FOUR), ("four-100", 100, FOUR), ("two-50", 50, TWO),
                                ("two-100", 100, TWO)):
        found[name] = {level: one_against_others(sim, games, level, others, seats) for level in LEVELS}
        print("measured", name, file=sys.stderr)
    found["threshold"] = {level: one_against_others(sim, games, level, 50, FOUR) for level in (70, 71)}
    found["steps"] = {level: one_against_others(sim, games, level, level - 10, TWO)
                      for level in LEVELS if level > 0}
    found["alike"] = {level: (Match(sim, games, [level] * 4), Match(sim, games, [level] * 4, (1, 2, 1, 2)))
                      for level in LEVELS}
    print("measured levels among themselves", file=sys.stderr)
    found["seats"] = {(level, order): Match(sim, games, [level] * 4, order=order)
                      for level in (50, 100) for order in (2, 1)}
    found["rules"] = []
    for changed in (None, 0, 1, 2, 3):
        rules = tuple(3 - rule if place == changed else rule for place, rule in enumerate(USUAL_RULES))
        found["rules"].append([Match(sim, 2 * games, [100] * 4, players, rules)
                               for players in ((1, 1, 1, 1), (1, 2, 1, 2))])
    print("measured seats and rules", file=sys.stderr)
    found["play-outs"] = [one_against_others(sim, games // 100, 100, 100, seats, PLAY_OUTS)
                          for seats in (FOUR, TWO)]
    return found


def table(heads, rows):
    lines = ["| " + " | ".join(heads) + " |", "|" + "---|" * len(heads)]
    lines += ["| " + " | ".join(str(cell) for cell in row) + " |" for row in rows]
    return "\n".join(lines)


def tables(found):
    levels = [[level] + [text_of(*found[name][level]) for name in ("four-50", "four-100", "two-50", "two-100")]
              for level in LEVELS]
    steps = [[f"{level} against {level - 10}", text_of(*result),
              "stronger" if interval(*result)[1] > 50 else
              "weaker" if interval(*result)[2] < 50 else "no difference seen"]
             for level, result in found["steps"].items()]
    threshold = [[level, text_of(*result)] for level, result in found["threshold"].items()]
    lengths = [[level, f"{four.moves:.0f}", f"{two.moves:.0f}"]
               for level, (four, two) in found["alike"].items()]
    seats = [[level, "1, 2, 3, 4" if order == 2 else "4, 3, 2, 1"] +
             [text_of(match.wins[seat], match.games) for seat in FOUR]
             for (level, order), match in found["seats"].items()]
    thinker = [[PLAY_OUTS] + [text_of(*result) for result in found["play-outs"]]]
    rules = []
    for name, (four, two) in zip(("as the game begins with them",) + OTHER_RULES, found["rules"]):
        rules.append([name, text_of(four.by_turn[0] * four.games, four.games),
                      text_of(two.by_turn[0] * two.games, two.games), f"{four.moves:.0f}", f"{two.moves:.0f}"])
    return {
        "levels": table(["level", "four, others 50", "four, others 100", "two, other 50", "two, other 100"],
                        levels),
        "steps": table(["two-handed", "wins, %", ""], steps),
        "threshold": table(["level", "wins against three of 50, %"], threshold),
        "lengths": table(["all of level", "four-handed", "two-handed"], lengths),
        "seats": table(["all of level", "turn goes"] + list(COLOURS), seats),
        "play-outs": table(["play-outs of each move", "against three of level 100", "against one of level 100"],
                           thinker),
        "rules": table(["rules", "first of four wins, %", "first of two wins, %", "moves, four",
                        "moves, two"], rules),
    }


def draw(found):
    for file, fair, sets in (
            ("four", 25, (("four-50", "against three of level 50"), ("four-100", "against three of level 100"))),
            ("two", 50, (("two-50", "against one of level 50"), ("two-100", "against one of level 100")))):
        figure, axes = report.plot((7, 4))
        for name, label in sets:
            points = [interval(*found[name][level]) for level in LEVELS]
            shares = [share for share, _, _ in points]
            errors = [[share - low for share, low, _ in points], [high - share for share, _, high in points]]
            axes.errorbar(list(LEVELS), shares, errors, marker="o", markersize=4, capsize=3, label=label)
        axes.axhline(fair, color="grey", linewidth=0.8, linestyle="--")
        axes.set(xlabel="level", ylabel="games won, %", xticks=list(LEVELS))
        axes.set_title("One against three" if file == "four" else "One against one")
        axes.legend()
        axes.grid(alpha=0.3)
        report.save(figure, f"strength-{file}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--games", type=int, default=100_000)
    parser.add_argument("--sim", default=report.SIM)
    parser.add_argument("--keep")
    options = parser.parse_args()
    found = measure(Sim(options.sim, options.keep), options.games)
    report.renew("strength", tables(found))
    draw(found)


if __name__ == "__main__":
    main()
