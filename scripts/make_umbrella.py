#!/usr/bin/env python3
"""Writes qdr.h, which includes every public header of the kernel; with --check only compares.

Public is every header outside folders named internal, raster, vector, pdf or qt.
"""

import pathlib
import subprocess
import sys

FOLDERS = ["platform", "geometry", "database", "entities", "interaction", "controls", "hostcore"]
PRIVATE = {"internal", "raster", "vector", "pdf", "qt"}

HEAD = """#pragma once

// The whole public interface of the kernel. Written by scripts/make_umbrella.py.

"""


def public_headers():
    listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard",
                             *[f"{folder}/*.h" for folder in FOLDERS]],
                            check=True, text=True, capture_output=True).stdout.split()
    headers = [path for path in set(listed)
               if not PRIVATE & set(path.split("/")[1:-1]) and pathlib.Path(path).exists()]
    return sorted(headers, key=lambda path: (FOLDERS.index(path.split("/")[0]), path))


def umbrella():
    groups = []
    for folder in FOLDERS:
        rows = [f'#include "{path}"' for path in public_headers() if path.startswith(folder + "/")]
        if rows:
            groups.append("\n".join(rows) + "\n")
    return HEAD + "\n".join(groups)


def main():
    target = pathlib.Path("qdr.h")
    text = umbrella()
    if "--check" not in sys.argv[1:]:
        target.write_text(text, encoding="utf-8")
        return 0
    if target.exists() and target.read_text(encoding="utf-8") == text:
        return 0
    print("qdr.h does not list the public headers: run scripts/make_umbrella.py", file=sys.stderr)
    return 1


if __name__ == "__main__":
    sys.exit(main())
