#!/usr/bin/python3
"""Throws the die many times and draws what came.

    tools/measure_dice.py [--throws N] [--sim build/play/tools/zorva-sim]

throws it N times (60,000,000 unless told otherwise) with seed 1, puts the tables into docs/fair-dice.md and
draws docs/fair-dice.svg. Needs python3-matplotlib.
"""

import argparse
import os
import re
import subprocess
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
DOCS = os.path.join(HERE, "..", "docs")


def read(text):
    """The tables that zorva-sim prints: their names, and of each count its name, number and band."""
    tables = {}
    for block in text.strip().split("\n\n")[:-1]:
        lines = block.splitlines()
        counts = [re.match(r"  (.+?) +(\d+)  expected +([\d.]+)  band +([\d.]+) \.\. +([\d.]+)", line)
                  for line in lines[1:-1]]
        tables[lines[0]] = [(row[1].strip(),) + tuple(float(number) for number in row.groups()[1:])
                            for row in counts]
    return tables


def draw(tables, throws):
    import matplotlib
    matplotlib.use("svg")
    matplotlib.rcParams.update({"svg.hashsalt": "zorva", "svg.fonttype": "none", "font.size": 9})
    import matplotlib.pyplot as plot

    figure, axes = plot.subplots(figsize=(8, 4))
    place, ticks = 0, []
    for name, counts in tables.items():
        begin = place
        for _, counted, expected, _, high in counts:
            # In half widths of the band: 1 is where one of a hundred counts of a fair die lies outside.
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
    figure.tight_layout()
    figure.savefig(os.path.join(DOCS, "fair-dice.svg"), metadata={"Date": None})


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--throws", type=int, default=60_000_000)
    parser.add_argument("--sim", default=os.path.join(HERE, "..", "build", "play", "tools", "zorva-sim"))
    options = parser.parse_args()
    text = subprocess.run([options.sim, "dice", "--throws", str(options.throws), "--seed", "1"], check=True,
                          capture_output=True, text=True).stdout
    document = os.path.join(DOCS, "fair-dice.md")
    with open(document, encoding="utf-8") as file:
        page = file.read()
    marks = re.compile(r"(<!-- tables -->\n).*?(\n<!-- end -->)", re.S)
    if not marks.search(page):
        sys.exit("docs/fair-dice.md has no place for the tables")
    page = marks.sub(lambda found: found[1] + "```\n" + text.rstrip() + "\n```" + found[2], page)
    with open(document, "w", encoding="utf-8") as file:
        file.write(page)
    draw(read(text), options.throws)


if __name__ == "__main__":
    main()
