#!/usr/bin/env bash
# Installs what is missing, builds the release, plays the sample script through the command
# dialogue, saves the drawing and renders it. The results lie in out/.
# usage: scripts/run.sh [SCRIPT]      default data/scripts/flange.txt
set -euo pipefail
cd "$(dirname "$0")/.."

script=${1:-data/scripts/flange.txt}
name=$(basename "$script" .txt)
scripts/packages.sh build
cmake --preset release -DQDR_WARNINGS_AS_ERRORS=ON -DQDR_BUILD_BENCH=OFF >/dev/null
cmake --build --preset release --target qdr

qdr=build/release/tools/qdr
mkdir -p out
"$qdr" run "$script" -o "out/$name.kov"
"$qdr" check "out/$name.kov"
for kind in png pdf svg; do
  "$qdr" render "out/$name.kov" -o "out/$name.$kind"
done
"$qdr" thumb "out/$name.kov" -o "out/$name.thumb.png"
echo "drawing: $PWD/out/$name.kov"
echo "picture: $PWD/out/$name.png"
echo "page:    $PWD/out/$name.pdf"
