#!/usr/bin/env bash
# Runs the benchmarks on a native release build and prints the comparison
# table (each call against its baseline) used in docs/performance.md.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake --preset release -DVANTREL_DDK_BUILD_BENCHMARKS=ON -DVANTREL_DDK_BUILD_TESTS=OFF >/dev/null
cmake --build --preset release -j "$(nproc 2>/dev/null || echo 2)" --target vantrel_ddk_bench
out=build/release/bench/results.json
build/release/bench/vantrel_ddk_bench --benchmark_repetitions="${REPETITIONS:-5}" \
  --benchmark_report_aggregates_only=true --benchmark_out="$out" --benchmark_out_format=json "$@"
python3 scripts/bench_table.py "$out"
