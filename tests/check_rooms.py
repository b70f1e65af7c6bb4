#!/usr/bin/env python3
"""Checks that the includes of the folders point one way: core/ to nothing, store/ and engine/ to core/, tools/ to
those three, app/ and dialogs/ to core/ and store/; and that only the last two know Qt and SDL."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
WINDOWS = {"core", "store", "app", "dialogs"}
MAY_USE = {
    "core": {"core"},
    "engine": {"core", "engine"},
    "store": {"core", "store"},
    "tools": {"core", "engine", "store", "tools"},
    "app": WINDOWS,
    "dialogs": WINDOWS,
}

wrong = looked_at = 0
for room, allowed in MAY_USE.items():
    for file in sorted(ROOT.glob(room + "/*.[ch]*")):
        looked_at += 1
        for header in re.findall(r'^\s*#\s*include\s*[<"]([^>"]+)', file.read_text(encoding="utf-8"), re.M):
            folder = header.split("/")[0] if "/" in header else ""
            is_of_windows = header.startswith(("Q", "SDL")) and allowed is not WINDOWS
            if is_of_windows or (ROOT / header).exists() and folder not in allowed:
                print("%s includes %s" % (file.relative_to(ROOT), header), file=sys.stderr)
                wrong += 1
sys.exit(wrong > 0 or looked_at < 100)
