#!/usr/bin/env bash
# Configures and builds the release preset; every warning is an error.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset release -DQDR_WARNINGS_AS_ERRORS=ON >/dev/null
cmake --build --preset release
