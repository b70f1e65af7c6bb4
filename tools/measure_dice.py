#!/usr/bin/python3
"""Throws the die many times, and puts the counts into docs/fair-dice.md and its drawing.

    tools/measure_dice.py [--throws N] [--sim build/play/tools/zorva-sim]

N is 60,000,000 unless given; the seed is 1. Needs python3-matplotlib and python3-scipy.
"""

import argparse
import re
import subprocess

import report


def with_probabilities(text):
    """Appends to each chi-square how likely a fair die is to reach it or more."""
    from scipy.stats import chi2
    return re.sub(r"chi-square ([\d.]+) with (\d+) degrees of freedom",
                  lambda found: f"{found[0]}, p = {chi2.sf(float(found[1]), int(found[2])):.4f}", text)


def read(text):
    """The tables that zorva-sim prints. By table: the name, number, expected number and band of each count."""
    tables = {}
    for block in text.strip().split("\n\n")[:-1]:
        lines = block.splitlines()
        counts = [re.match(r"  (.+?) +(\d+)  expected +([\d.]+)  band +([\d.]+) \.\. +([\d.]+)", line)
                  for line in lines[1:-1]]
        tables[lines[0]] = [(row[1].strip(),) + tuple(float(number) for number in row.groups()[1:])
                            for row in counts]
    return tables


def draw(tables, throws):
    figure, axes = report.plot((8, 4), font=9)
    place, ticks = 0, []
    for name, counts in tables.items():
        begin = place
        for _, counted, expected, _, high in counts:
            # Deviations in half widths of the band: one count in a hundred of a fair die lies beyond 1.
            axes.plot(place, (counted - expected) / (high - expected), "o", markersize=4, color="#1f5f9f")
            place += 1
        ticks.append(((begin + place - 1) / 2, name.replace("faces of ", "faces,\n").replace(
            " of ", "\nof ").replace(" in ", "\nin ")))
        axes.axvline(place - 0.0, color="lightgrey", linewidth=0.8)
        place += 1
    axes.axhspan(-1, 1, color="#e0eee0")
    axes.axhline(0, color="grey", linewidth=0.8)
    axes.set_xticks([middle for middle, _ in ticks], [name for _, name in ticks])
    axes.set_ylabel("deviation, in half bands")
    axes.set_ylim(-1.6, 1.6)
    axes.set_title(f"{throws:,} throws: each count, and the band of 99 in 100")
    report.save(figure, "fair-dice")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--throws", type=int, default=60_000_000)
    parser.add_argument("--sim", default=report.SIM)
    options = parser.parse_args()
    text = subprocess.run([options.sim, "dice", "--throws", str(options.throws), "--seed", "1"], check=True,
                          capture_output=True, text=True).stdout
    report.renew("fair-dice", {"tables": "```\n" + with_probabilities(text).rstrip() + "\n```"})
    draw(read(text), options.throws)


if __name__ == "__main__":
    main()
