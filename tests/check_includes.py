#!/usr/bin/env python3
"""Checks that includes point one way: app and dialogs -> store, engine -> core, and tools -> engine, store -> core.

The linker keeps Qt out of the inner folders only as far as code is used; here no header of it may be named.
"""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
WITHOUT_QT = {"core": {"core"}, "engine": {"engine", "core"}, "store": {"store", "core"},
              "tools": {"tools", "engine", "store", "core"}}
WITH_QT = {folder: {"app", "dialogs", "engine", "store", "core"} for folder in ("app", "dialogs")}

wrong = looked_at = 0
for folder, allowed in {**WITHOUT_QT, **WITH_QT}.items():
    for file in sorted(ROOT.glob(folder + "/*.[ch]*")):
        looked_at += 1
        for header in re.findall(r'^\s*#\s*include\s*[<"]([^>"]+)', file.read_text(encoding="utf-8"), re.M):
            is_library = folder in WITHOUT_QT and header.startswith(("Q", "SDL"))
            if is_library or (ROOT / header).is_file() and header.split("/")[0] not in allowed:
                print("%s includes %s" % (file.relative_to(ROOT), header), file=sys.stderr)
                wrong += 1
sys.exit(wrong > 0 or looked_at < 50)
