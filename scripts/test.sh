#!/usr/bin/env bash
# Installs what is missing, then builds and runs every test: the checks of the source, all test
# programs under the address and undefined-behaviour sanitizers, and a project that uses the
# installed library.
set -euo pipefail
cd "$(dirname "$0")/.."

step() {
  local name=$1 began=$SECONDS
  shift
  echo "== $name"
  "$@"
  echo "== $name: $((SECONDS - began)) s"
}

tests_under_sanitizers() {
  cmake --preset asan >/dev/null
  cmake --build --preset asan
  ctest --preset asan --output-on-failure -j 2
}

step packages scripts/packages.sh build test bench
step "source checks" scripts/check_source.sh
step "tests under sanitizers" tests_under_sanitizers
step "release build" scripts/build_release.sh
step "consumer of the installed library" scripts/check_consumer.sh
