#!/usr/bin/env bash
# Installs the Debian packages that the project needs, and only those that are missing.
# usage: scripts/packages.sh [build|test|bench ...]     default: build test
set -euo pipefail

build=(g++ cmake ninja-build ccache pkg-config lld
       libcli11-dev nlohmann-json3-dev libpng-dev libhpdf-dev)
test=(libgtest-dev clang-format python3 git)
bench=(libbenchmark-dev)

wanted=()
for group in "${@:-build test}"; do
  for name in $group; do
    case "$name" in
      build) wanted+=("${build[@]}") ;;
      test) wanted+=("${test[@]}") ;;
      bench) wanted+=("${bench[@]}") ;;
      *) echo "packages.sh: no group named '$name' (build, test, bench)" >&2; exit 2 ;;
    esac
  done
done

is_installed() {
  [ "$(dpkg-query -W -f='${Status}' "$1" 2>/dev/null)" = "install ok installed" ]
}

missing=()
for package in "${wanted[@]}"; do
  is_installed "$package" || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

if ! command -v apt-get >/dev/null; then
  echo "packages.sh: apt-get not found; install by hand: ${missing[*]}" >&2
  exit 1
fi
as_root=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "packages.sh: needs root or sudo to install: ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi

log=$(mktemp)
trap 'rm -f "$log"' EXIT
install() {
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends "${missing[@]}" >"$log" 2>&1
}
echo "installing: ${missing[*]}"
if ! install; then
  "${as_root[@]}" apt-get update >>"$log" 2>&1 || true
  if ! install; then
    echo "packages.sh: cannot install ${missing[*]}: $(grep -m1 '^E:' "$log" || tail -1 "$log")" >&2
    exit 1
  fi
fi
