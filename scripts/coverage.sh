#!/usr/bin/env bash
# Line and branch coverage of the library from the test suite, with gcovr.
# Writes build/coverage/coverage.html and fails below 95% lines / 90% branches.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake --preset coverage >/dev/null
find build/coverage -name '*.gcda' -delete 2>/dev/null || true
cmake --build --preset coverage -j "$(nproc 2>/dev/null || echo 2)"
ctest --preset coverage -j "$(nproc 2>/dev/null || echo 2)" >/dev/null
# Exception edges the compiler adds for every call are not decisions of ours.
gcovr --root . --filter 'api/' --filter 'extensions/' --filter 'internal/' --filter 'model/' \
  --exclude-throw-branches --exclude-unreachable-branches \
  --html-details build/coverage/coverage.html --print-summary \
  --fail-under-line "${MIN_LINES:-95}" --fail-under-branch "${MIN_BRANCHES:-90}" build/coverage
