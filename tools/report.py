"""What the scripts that measure have in common: the tables in the documents and the drawings beside them."""

import os
import re
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
DOCS = os.path.join(HERE, "..", "docs")
SIM = os.path.join(HERE, "..", "build", "play", "tools", "zorva-sim")


def renew(name, tables):
    """Replaces the tables of docs/NAME.md: each is the text between <!-- its name --> and <!-- end -->."""
    document = os.path.join(DOCS, name + ".md")
    with open(document, encoding="utf-8") as file:
        page = file.read()
    for title, table in tables.items():
        marks = re.compile(f"(<!-- {title} -->\n).*?(\n<!-- end -->)", re.S)
        if not marks.search(page):
            sys.exit(f"docs/{name}.md has no place for the table {title}")
        page = marks.sub(lambda found, table=table: found[1] + table + found[2], page)
    with open(document, "w", encoding="utf-8") as file:
        file.write(page)


def plot(size, font=10):
    """A new figure of that size in inches, and its axes. Equal figures give equal bytes of SVG."""
    import matplotlib
    matplotlib.use("svg")
    matplotlib.rcParams.update({"svg.hashsalt": "zorva", "svg.fonttype": "none", "font.size": font})
    import matplotlib.pyplot
    return matplotlib.pyplot.subplots(figsize=size)


def save(figure, name):
    """Writes the figure to docs/NAME.svg, without the date."""
    figure.tight_layout()
    figure.savefig(os.path.join(DOCS, name + ".svg"), metadata={"Date": None})
