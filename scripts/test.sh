#!/usr/bin/env bash
# The whole test suite: native debug, sanitized (address + undefined), thread
# sanitizer, armhf under qemu-user, a short run of every fuzz target, and the
# coverage check (gcovr thresholds, see scripts/coverage.sh).
# Usage: scripts/test.sh [preset...]
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

presets=("$@")
((${#presets[@]})) || presets=(debug sanitize tsan armhf fuzz coverage)
jobs=$(nproc 2>/dev/null || echo 2)

for preset in "${presets[@]}"; do
  echo "=== ${preset}: configure, build, test"
  if [ "$preset" = coverage ]; then
    bash scripts/coverage.sh
    continue
  fi
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$jobs"
  ctest --preset "$preset" -j "$jobs"
done
echo "=== all presets passed: ${presets[*]}"
