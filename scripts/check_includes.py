#!/usr/bin/env python3
"""Checks the direction of includes, the size of files, and that includes are qualified.

A folder includes only what stands before it in FOLDERS. The exceptions are the composition
header, which looks up for the members it holds by value, and the files behind the few seams
where the public interface points upward.
"""

import pathlib
import re
import subprocess
import sys

FOLDERS = ["platform", "geometry", "database", "entities", "interaction", "controls", "hostcore"]
# A header that may look up, with the folders it may take headers from.
COMPOSITION = {"database/database.h": {"interaction"}}
# Sources of lower folders may use the composition header, which brings what it holds.
MAX_HEADER_LINES = 250
MAX_SOURCE_LINES = 800
GEOMETRY_FROM_PLATFORM = {"points.h", "file.h", "export.h"}

include = re.compile(r'^\s*#\s*include\s+"([^"]+)"')


def faults_of(path, text):
    top = path.split("/")[0]
    lines = text.count("\n")
    limit = MAX_HEADER_LINES if path.endswith(".h") else MAX_SOURCE_LINES
    if lines > limit:
        yield f"{path}: {lines} lines, at most {limit}"
    for number, line in enumerate(text.splitlines(), 1):
        match = include.match(line)
        if not match:
            continue
        target = match.group(1)
        where = f"{path}:{number}"
        if "/" not in target and target != "qdr.h":
            yield f"{where}: include \"{target}\" is not qualified from the root"
            continue
        other = target.split("/")[0]
        if top not in FOLDERS or other not in FOLDERS:
            continue
        if other in COMPOSITION.get(path, set()):
            continue
        if FOLDERS.index(other) > FOLDERS.index(top):
            yield f"{where}: {top} includes upward: {target}"
        if top == "geometry" and other == "platform":
            if target.split("/", 1)[1] not in GEOMETRY_FROM_PLATFORM:
                yield f"{where}: geometry takes from platform only {sorted(GEOMETRY_FROM_PLATFORM)}"
        if "/internal/" in target and "/".join(target.split("/")[:-2]) not in path:
            yield f"{where}: {target} is internal to its folder"


def main():
    files = subprocess.run(["git", "ls-files", "*.h", "*.cpp"], check=True, text=True,
                           capture_output=True).stdout.split()
    faults = []
    for path in files:
        faults += faults_of(path, pathlib.Path(path).read_text(encoding="utf-8"))
    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
