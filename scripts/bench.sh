#!/usr/bin/env bash
# Builds the release preset and runs the benchmarks; each prints the physical limit beside ours.
# usage: scripts/bench.sh [--short] [NAME ...]     NAME as in bench/NAME_bench.cpp; default all
set -euo pipefail
cd "$(dirname "$0")/.."

arguments=()
if [ "${1:-}" = "--short" ]; then
  shift
  arguments=(--benchmark_min_time=0.01 "--benchmark_filter=-(/(50000|100000|1000000)(/|$))")
fi
scripts/packages.sh build bench
scripts/build_release.sh
names=("$@")
if [ ${#names[@]} -eq 0 ]; then
  for source in bench/*_bench.cpp; do
    name=$(basename "$source" _bench.cpp)
    names+=("$name")
  done
fi
for name in "${names[@]}"; do
  echo "-- $name"
  "build/release/bench/bench_$name" "${arguments[@]}"
done
