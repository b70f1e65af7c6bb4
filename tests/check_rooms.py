#!/usr/bin/env python3
"""Checks that the includes of the inner folders point one way: core/ to nothing, store/ to core/, tools/ to both."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
MAY_USE = {"core": {"core"}, "store": {"core", "store"}, "tools": {"core", "store", "tools"}}

wrong = looked_at = 0
for room, allowed in MAY_USE.items():
    for file in sorted(ROOT.glob(room + "/*.[ch]*")):
        looked_at += 1
        for header in re.findall(r'^\s*#\s*include\s*[<"]([^>"]+)', file.read_text(encoding="utf-8"), re.M):
            folder = header.split("/")[0] if "/" in header else ""
            if header.startswith(("Q", "SDL")) or (ROOT / header).exists() and folder not in allowed:
                print("%s includes %s" % (file.relative_to(ROOT), header), file=sys.stderr)
                wrong += 1
sys.exit(wrong > 0 or looked_at < 50)
