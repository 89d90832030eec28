#!/usr/bin/env bash
# Longer fuzzing run of every target: FUZZ_SECONDS per target (default 600).
# New inputs collect under build/fuzz/tests/fuzz/corpus/; crashes are written
# to the current directory as crash-* files: turn each into a regression test.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake --preset fuzz -DVANTREL_DDK_FUZZ_SECONDS="${FUZZ_SECONDS:-600}" >/dev/null
cmake --build --preset fuzz -j "$(nproc 2>/dev/null || echo 2)"
ctest --preset fuzz -j "$(nproc 2>/dev/null || echo 2)"
