#!/bin/sh
# The share of the hand-written code that the tests reach, by folder: lines and branches.
#
#     scripts/coverage.sh [--missed]
#
# Builds with gcov (preset coverage), runs every test and prints the table of docs/robustness.md;
# with --missed also each branch and line that no test has reached. Branches that only exceptions
# take, which the compiler makes behind each call, do not count, nor does what bison and re2c
# generate. Needs gcovr (the Debian package of that name).
set -eu
cd "$(dirname "$0")/.."
build=build/coverage

cmake --preset coverage >/dev/null
cmake --build --preset coverage
find $build -name '*.gcda' -delete
ctest --preset coverage -j "$(nproc)" --output-on-failure

gcovr --root . --object-directory $build --json $build/coverage.json -j "$(nproc)" \
    --filter '(cps|fw|cc|wsc|xp|xa|wml|entry|dump|cli)/' \
    --exclude-throw-branches --exclude-unreachable-branches \
    2>$build/gcovr.log || { cat $build/gcovr.log >&2; exit 1; }

exec python3 - $build/coverage.json "$@" <<'END'
import collections
import json
import sys

with open(sys.argv[1], encoding="utf-8") as file:
    files = json.load(file)["files"]

counts = collections.defaultdict(lambda: [0, 0, 0, 0])
missed = []
for source in files:
    folder = source["file"].split("/")[0]
    for line in source["lines"]:
        if line.get("gcovr/noncode") or line.get("gcovr/excluded"):
            continue
        taken = [branch["count"] > 0 for branch in line["branches"]]
        for count in (counts[folder], counts["all"]):
            count[0] += line["count"] > 0
            count[1] += 1
            count[2] += sum(taken)
            count[3] += len(taken)
        if line["count"] == 0 or not all(taken):
            missed.append("%s:%d %s" % (source["file"], line["line_number"],
                          "never" if line["count"] == 0 else "branches %d of %d" % (sum(taken), len(taken))))

if "--missed" in sys.argv:
    print("\n".join(missed) + "\n")
print("folder      lines             branches")
for folder in ["cps", "fw", "cc", "wsc", "xp", "xa", "wml", "entry", "dump", "cli", "all"]:
    lines, all_lines, branches, all_branches = counts[folder]
    print("%-8s %6.1f %% of %5d %6.1f %% of %5d" % (
        folder, 100.0 * lines / max(1, all_lines), all_lines,
        100.0 * branches / max(1, all_branches), all_branches))
END
