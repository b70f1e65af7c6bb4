#!/usr/bin/python3
"""Measures what the log and the history cost as they grow, and draws it.

    bench/growth.py [--bench build/release/bench/growth-bench]

renews the table of growth in docs/performance.md and docs/growth.svg. All figures are processor time. Needs
python3-matplotlib.
"""

import argparse
import json
import os
import re
import subprocess
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
DOCS = os.path.join(HERE, "..", "docs")


def measure(program):
    """Microseconds by name and size."""
    out = subprocess.run([program, "--benchmark_format=json", "--benchmark_min_time=0.2",
                          "--benchmark_repetitions=3"], check=True, capture_output=True, text=True).stdout
    found = {}
    for run in json.loads(out)["benchmarks"]:
        if run.get("aggregate_name", "median") != "median" or run["run_type"] != "aggregate":
            continue
        name, size = run["run_name"].split("/")[:2]
        time = run["real_time"] if run["run_name"].endswith("manual_time") else run["cpu_time"]
        found.setdefault(name, {})[int(size)] = time / 1000
    return found


def table(found):
    lines = []
    for unit, count in (("moves", 100), ("games", 10)):
        names = [name for name in found if count in found[name]]
        names = [name for name in names if (10 in found[name]) == (unit == "games")]
        lines += ["| " + " | ".join([unit] + [name + ", µs" for name in names]) + " |",
                  "|" + "---:|" * (len(names) + 1)]
        for size in found[names[0]]:
            lines.append("| " + " | ".join([f"{size:,}"] + [f"{found[name][size]:,.3g}" if found[name][size] < 100
                                                          else f"{found[name][size]:,.0f}" for name in names])
                         + " |")
        lines.append("")
    return "\n".join(lines).rstrip()


def draw(found):
    import matplotlib
    matplotlib.use("svg")
    matplotlib.rcParams.update({"svg.hashsalt": "zorva", "svg.fonttype": "none", "font.size": 9})
    import matplotlib.pyplot as plot

    figure, axes = plot.subplots(1, 2, figsize=(8, 3.6), sharey=True)
    for name, times in found.items():
        side = axes[1 if 10 in times else 0]
        side.loglog(list(times), list(times.values()), marker="o", markersize=3, label=name)
    for side, label in zip(axes, ("moves in the log", "games in the history")):
        side.set_xlabel(label)
        side.grid(alpha=0.3)
        side.legend()
    axes[0].set_ylabel("processor time, µs")
    figure.tight_layout()
    figure.savefig(os.path.join(DOCS, "growth.svg"), metadata={"Date": None})


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--bench", default=os.path.join(HERE, "..", "build", "release", "bench", "growth-bench"))
    options = parser.parse_args()
    found = measure(options.bench)
    document = os.path.join(DOCS, "performance.md")
    with open(document, encoding="utf-8") as file:
        page = file.read()
    marks = re.compile(r"(<!-- growth -->\n).*?(\n<!-- end -->)", re.S)
    if not marks.search(page):
        sys.exit("docs/performance.md has no place for the table of growth")
    page = marks.sub(lambda place: place[1] + table(found) + place[2], page)
    with open(document, "w", encoding="utf-8") as file:
        file.write(page)
    draw(found)


if __name__ == "__main__":
    main()
