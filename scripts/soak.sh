#!/usr/bin/env bash
# Long runs that are no part of the daily tests: random cases with fresh seeds and fuzzing, for
# as many minutes as given (default 30). Prints every seed; a failure names the case.
set -euo pipefail
cd "$(dirname "$0")/.."
minutes=${1:-30}
deadline=$((SECONDS + minutes * 60))

scripts/packages.sh build test
cmake --preset asan >/dev/null
cmake --build --preset asan
round=0
while [ "$SECONDS" -lt "$deadline" ]; do
  export QDR_TEST_SEED=$((RANDOM * 32768 + RANDOM))
  echo "round $((++round)), QDR_TEST_SEED=$QDR_TEST_SEED"
  for program in build/asan/tests/qdr_*_tests; do
    "$program" --gtest_brief=1 --gtest_filter='*Random*:*Fuzz*'
  done
done
