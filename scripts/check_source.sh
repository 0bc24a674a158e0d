#!/usr/bin/env bash
# Checks that need no build: formatting, direction of includes, sizes of files, and that each
# header compiles by itself.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t sources < <(git ls-files '*.h' '*.cpp')
clang-format --dry-run --Werror "${sources[@]}"
python3 scripts/check_includes.py
python3 scripts/make_umbrella.py --check
scripts/check_headers.sh
