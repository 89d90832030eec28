#!/usr/bin/env python3
"""Instructions per call under callgrind: a noise-free check of a timing.

Usage: scripts/bench_instructions.py BENCH_BINARY REGEX FUNCTION...
Runs the benchmarks matching REGEX briefly under callgrind and prints, for
each FUNCTION (a substring of a symbol name: a ddk_* function or a baseline),
its inclusive instruction count per call.
"""
import re
import subprocess
import sys
import tempfile

binary, pattern, functions = sys.argv[1], sys.argv[2], sys.argv[3:]
with tempfile.NamedTemporaryFile(suffix=".callgrind") as out:
    subprocess.run(["valgrind", "--tool=callgrind", f"--callgrind-out-file={out.name}", binary,
                    f"--benchmark_filter={pattern}", "--benchmark_min_time=0.01"],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    report = subprocess.run(["callgrind_annotate", "--inclusive=yes", "--tree=caller", out.name],
                            check=True, capture_output=True, text=True).stdout

count = lambda text: int(text.replace(",", ""))
for function in functions:
    for block in report.split("\n\n"):
        lines = block.strip().splitlines()
        own = [l for l in lines if re.match(r"\s*[\d,]+ \([^)]*\)\s+\*", l) and function in l]
        if not own:
            continue
        total = count(own[0].split()[0])
        calls = sum(int(m.group(1).replace(",", ""))
                    for l in lines if re.match(r"\s*[\d,]+ \([^)]*\)\s+<", l)
                    for m in [re.search(r"\(([\d,]+)x\)", l)] if m)
        if calls:
            print(f"{function}: {total / calls:.1f} instructions per call ({calls} calls)")
            break
