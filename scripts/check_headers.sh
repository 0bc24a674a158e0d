#!/usr/bin/env bash
# Compiles each header of the kernel by itself, so that no header leans on what a source
# happened to include before it.
set -euo pipefail
cd "$(dirname "$0")/.."

launcher=$(command -v ccache || true)
compile() {
  local header=$1 unit
  unit="build/headers/${header//\//_}.cpp"
  echo "#include \"$header\"" >"$unit.new"
  cmp -s "$unit.new" "$unit" || mv "$unit.new" "$unit"
  rm -f "$unit.new"
  $launcher g++ -std=c++20 -I. -c "$unit" -o "$unit.o" || { echo "not self-contained: $header" >&2; return 1; }
}
export -f compile
export launcher
mkdir -p build/headers
git ls-files 'platform/*.h' 'geometry/*.h' 'database/*.h' 'entities/*.h' 'interaction/*.h' \
    'controls/*.h' 'hostcore/*.h' qdr.h |
  grep -vE '^platform/(qt|pdf)/' |
  xargs -P 2 -I{} bash -c 'compile {}'
