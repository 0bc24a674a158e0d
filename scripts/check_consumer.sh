#!/usr/bin/env bash
# Installs the release build into a folder of its own, then builds and runs two small projects
# that know nothing but the installed files: one through find_package, one through pkg-config.
set -euo pipefail
cd "$(dirname "$0")/.."

prefix="$PWD/build/consumer/prefix"
work="$PWD/build/consumer/work"
rm -rf build/consumer
cmake --install build/release --prefix "$prefix" >/dev/null

cmake -S tests/consumer -B "$work" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work"
"$work/consumer" "$work/by_package.kov"

export PKG_CONFIG_PATH="$prefix/lib/pkgconfig:$prefix/lib/$(gcc -dumpmachine)/pkgconfig"
# shellcheck disable=SC2046
g++ -std=c++20 tests/consumer/main.cpp -o "$work/consumer_pc" \
  $(pkg-config --cflags --libs qdr) -Wl,-rpath,"$(pkg-config --variable=libdir qdr)"
"$work/consumer_pc" "$work/by_pkg_config.kov"

"$prefix/bin/qdr" check "$work/by_package.kov"
