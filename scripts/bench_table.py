#!/usr/bin/env python3
"""Markdown tables of benchmark medians (CPU time: on a shared machine it is
less disturbed by preemption than wall time).

Calls: each Name beside Name_Baseline with the ratio, and beside
Name_BaselineIndirect (the baseline called through a function pointer, the
cost of a call into another module) where there is one. Failure paths
(Name_NullHandle, Name_Refused, Name_OutOfRange, ...) are listed beside their
call. Growth: BM_Growth_* benchmarks run at several container sizes, one
column per size.
"""
import json
import sys
from collections import OrderedDict

runs = json.load(open(sys.argv[1]))["benchmarks"]
median = OrderedDict()
for r in runs:
    if r.get("aggregate_name", "median") == "median":
        median[r["run_name"]] = r["cpu_time"]

growth = OrderedDict()
calls = OrderedDict()  # call name -> {suffix: ns}
for name, t in median.items():
    if name.startswith("BM_Growth_"):
        op, _, size = name.partition("/")
        growth.setdefault(op[len("BM_Growth_"):], OrderedDict())[int(size)] = t
        continue
    base, sep, suffix = name[3:].partition("_")
    calls.setdefault(base, OrderedDict())[suffix] = t

print("| Operation | ns | Baseline ns | Ratio | Indirect baseline ns | Ratio to indirect | Failure paths (ns) |")
print("|---|---:|---:|---:|---:|---:|---|")
worst, worst_name = 0.0, ""
for base, variants in calls.items():
    t = variants.get("")
    direct = variants.get("Baseline")
    indirect = variants.get("BaselineIndirect")
    failures = ", ".join(f"{k} {v:.1f}" for k, v in variants.items()
                         if k not in ("", "Baseline", "BaselineIndirect"))
    cells = [base, f"{t:.1f}" if t is not None else ""]
    if t is not None and direct:
        ratio = t / direct
        if ratio > worst:
            worst, worst_name = ratio, base
        cells += [f"{direct:.1f}", f"{ratio:.2f}"]
    else:
        cells += ["", ""]
    if t is not None and indirect:
        cells += [f"{indirect:.1f}", f"{t / indirect:.2f}"]
    else:
        cells += ["", ""]
    cells.append(failures)
    print("| " + " | ".join(cells) + " |")
print(f"\nWorst ratio to the direct baseline: {worst:.2f} ({worst_name})")

if growth:
    sizes = sorted({n for per in growth.values() for n in per})
    print("\nGrowth: ns per operation by number of entries\n")
    print("| Operation | " + " | ".join(f"{n:,}" for n in sizes) + " |")
    print("|---|" + "---:|" * len(sizes))
    for op, per in growth.items():
        print(f"| {op} | " + " | ".join(f"{per[n]:.1f}" if n in per else "" for n in sizes) + " |")
