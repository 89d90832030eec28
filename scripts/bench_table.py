#!/usr/bin/env python3
"""Markdown table of benchmark medians: each call beside its _Baseline, with the ratio."""
import json
import sys

runs = json.load(open(sys.argv[1]))["benchmarks"]
median = {}
for r in runs:
    if r.get("aggregate_name", "median") == "median":
        median[r["run_name"]] = r["real_time"]

print("| Operation | ns | Baseline ns | Ratio |")
print("|---|---:|---:|---:|")
worst = 0.0
for name, t in median.items():
    if name.endswith("_Baseline"):
        continue
    base = median.get(name + "_Baseline")
    if base:
        ratio = t / base
        worst = max(worst, ratio)
        print(f"| {name} | {t:.1f} | {base:.1f} | {ratio:.2f} |")
    else:
        print(f"| {name} | {t:.1f} | | |")
print(f"\nWorst ratio: {worst:.2f}")
