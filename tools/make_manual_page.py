#!/usr/bin/env python3
"""Writes docs/manual.html, the player's manual as a web page, from assets/manual/ZORVA32.HLP.

    tools/make_manual_page.py           # writes the page
    tools/make_manual_page.py --check   # fails if the page is not what this script writes
"""

import re
import struct
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
MANUAL = ROOT / "assets/manual/ZORVA32.HLP"
PAGE = ROOT / "docs/manual.html"
PICTURES = "../assets/manual/"
PIXELS = 2  # pixels of a screenshot for each pixel of the page

STYLE = """<meta name="viewport" content="width=device-width, initial-scale=1"/>
<style>
body { max-width: 44em; margin: 0 auto; padding: 1em; background: #f6edd6; color: #2a1d14;
       font: 17px/1.5 Lato, "DejaVu Sans", sans-serif; }
h1, h2 { color: #7a2318; line-height: 1.2; }
h2 { margin-top: 2em; }
h3 { color: #4f3117; }
a { color: #1d4f8c; }
img { max-width: 100%; height: auto; border-radius: 4px; }
table { border-collapse: collapse; width: 100%; }
th, td { border: 1px solid #c79a45; padding: 0.3em 0.5em; text-align: left; vertical-align: top; }
th { background: #e8d7ad; }
.amarillo { color: #d9a806; }
.azul { color: #1226c8; }
.rojo { color: #c01a12; }
.verde { color: #0a6b28; }
</style>
"""


def picture(match):
    name = match.group(1)
    with open(MANUAL.parent / name, "rb") as file:
        width, height = struct.unpack(">II", file.read(24)[16:])
    return '<img src="%s%s" width="%d" height="%d"' % (PICTURES, name, width // PIXELS, height // PIXELS)


def page():
    text = MANUAL.read_text(encoding="utf-8")
    text = re.sub(r'<img src="([a-z0-9-]+\.png)"', picture, text)
    text = re.sub(r'<a name="([^"]+)"></a>', r'<a id="\1"></a>', text)
    return text.replace("</head>", STYLE + "</head>")


if __name__ == "__main__":
    if sys.argv[1:] == ["--check"]:
        if not PAGE.is_file() or PAGE.read_text(encoding="utf-8") != page():
            sys.exit("docs/manual.html is not what tools/make_manual_page.py writes; run it")
    elif sys.argv[1:]:
        sys.exit(__doc__)
    else:
        PAGE.write_text(page(), encoding="utf-8")
