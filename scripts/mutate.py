#!/usr/bin/env python3
"""Mutation analysis of the library: how many small faults the fast tests catch.

Each mutant changes one place of one source under api/, extensions/, model/ or
internal/ (a comparison, a logical operator, a constant, a returned status, or
a removed statement), rebuilds incrementally in build/mutation and runs the
unit and allocation-failure tests. A mutant is caught when a test fails,
survives when all pass, and does not count when it no longer compiles.

    python3 scripts/mutate.py                 # every mutant (long: about 10 s each)
    python3 scripts/mutate.py --sample 150    # a fixed, seeded sample
    python3 scripts/mutate.py --list          # the mutants only, nothing built

The source tree is restored after every mutant, also on Ctrl-C.
"""
import argparse, pathlib, random, re, subprocess, sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "mutation"
DIRS = ("api", "extensions", "model", "internal")
TESTS = ("tests/vantrel_ddk_tests", "tests/vantrel_ddk_oom_tests")

# (name, pattern, replacement). Binary operators are matched with the spaces
# the code's format puts around them, so template brackets and shifts stay.
OPERATORS = [
    ("== to !=", r" == ", " != "), ("!= to ==", r" != ", " == "),
    ("< to <=", r" < ", " <= "), ("<= to <", r" <= ", " < "),
    ("> to >=", r" > ", " >= "), (">= to >", r" >= ", " > "),
    ("&& to ||", r" && ", " || "), ("|| to &&", r" \|\| ", " && "),
    ("+ 1 to - 1", r" \+ 1\b", " - 1"), ("- 1 to + 1", r" - 1\b", " + 1"),
    ("true to false", r"\btrue\b", "false"), ("false to true", r"\bfalse\b", "true"),
    ("kOk to kFailed", r"\bkOk\b", "kFailed"), ("kFailed to kOk", r"\bkFailed\b", "kOk"),
    ("kRejected to kFailed", r"\bkRejected\b", "kFailed"),
    ("0 to 1", r"(?<![\w.])0(?![\w.])", "1"), ("1 to 0", r"(?<![\w.\-])1(?![\w.])", "0"),
]
STATEMENT = re.compile(r"^(\s*)([A-Za-z_][\w:.\->\[\]*]*\s*(\(.*\)|[+\-]?=.*|\+\+|--));\s*$")
SKIP_LINE = re.compile(r"^\s*(//|/\*|\*|#|static_assert|template|using|namespace|case\b)")


def mutants():
    found = []
    for d in DIRS:
        for path in sorted((ROOT / d).rglob("*")):
            if path.suffix not in (".cpp", ".h"):
                continue
            lines = path.read_text().splitlines(keepends=True)
            for n, line in enumerate(lines):
                if SKIP_LINE.match(line) or "VANTREL_DDK_API" in line:
                    continue
                code = line.split("//")[0]
                for name, pattern, repl in OPERATORS:
                    for m in re.finditer(pattern, code):
                        new = line[:m.start()] + re.sub(pattern, repl, m.group(0)) + line[m.end():]
                        found.append((path, n, f"{name} (column {m.start() + 1})", new))
                s = STATEMENT.match(code)
                if s and not code.strip().startswith("return"):
                    found.append((path, n, "statement removed", s.group(1) + ";\n"))
    return found


def run(cmd, timeout):
    try:
        return subprocess.run(cmd, cwd=BUILD, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              timeout=timeout).returncode
    except subprocess.TimeoutExpired:
        return -1


def main():
    ap = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    ap.add_argument("--sample", type=int, help="test this many mutants, chosen with --seed")
    ap.add_argument("--seed", type=int, default=1)
    ap.add_argument("--list", action="store_true")
    args = ap.parse_args()

    todo = mutants()
    if args.sample and args.sample < len(todo):
        todo = sorted(random.Random(args.seed).sample(todo, args.sample), key=lambda m: (str(m[0]), m[1]))
    if args.list:
        for path, n, name, _ in todo:
            print(f"{path.relative_to(ROOT)}:{n + 1}: {name}")
        print(f"{len(todo)} mutants")
        return 0

    subprocess.run(["cmake", "-S", ROOT, "-B", BUILD, "-DCMAKE_BUILD_TYPE=Debug",
                    "-DVANTREL_DDK_BUILD_TOOLS=OFF", "-DVANTREL_DDK_BUILD_EXAMPLES=OFF",
                    "-DVANTREL_DDK_WERROR=OFF"], check=True, stdout=subprocess.DEVNULL)
    build = ["cmake", "--build", ".", "-j2", "--target", "vantrel_ddk_tests", "vantrel_ddk_oom_tests"]
    if run(build, 1800) != 0 or any(run([t, "--gtest_brief=1"], 300) != 0 for t in TESTS):
        sys.exit("mutate: the unmutated suite does not build and pass")

    caught, survived, invalid = 0, [], 0
    for i, (path, n, name, new) in enumerate(todo, 1):
        original = path.read_text()
        lines = original.splitlines(keepends=True)
        lines[n] = new
        try:
            path.write_text("".join(lines))
            if run(build, 600) != 0:
                invalid += 1
                verdict = "does not compile"
            elif any(run([t, "--gtest_brief=1"], 120) != 0 for t in TESTS):
                caught += 1
                verdict = "caught"
            else:
                survived.append(f"{path.relative_to(ROOT)}:{n + 1}: {name}")
                verdict = "SURVIVED"
        finally:
            path.write_text(original)
        print(f"[{i}/{len(todo)}] {path.relative_to(ROOT)}:{n + 1}: {name}: {verdict}", flush=True)
    run(build, 1800)  # leave the build matching the sources

    valid = caught + len(survived)
    print("\nsurvivors:\n  " + "\n  ".join(survived) if survived else "\nno survivors")
    print(f"\nmutants: {len(todo)}; not compiling: {invalid}; caught {caught} of {valid}"
          f" ({100 * caught / max(valid, 1):.1f}%)")
    return 0


if __name__ == "__main__":
    sys.exit(main())
