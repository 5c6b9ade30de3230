#!/bin/bash
# The share of the hand-written code that the tests reach, by folder: lines and branches.
#
#     scripts/coverage.sh [--missed]
#
# Builds with clang's source-based coverage (preset coverage), runs every test and prints the table
# of docs/robustness.md; with --missed also each line and each side of a condition that no test has
# reached. A branch is a side of a condition as it stands in the source: what a compiler makes for
# exceptions behind each call does not come in. What bison and re2c generate does not count, nor do
# the tests themselves. Needs llvm-cov and llvm-profdata (the Debian package llvm).
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/coverage

cmake --preset coverage >/dev/null
cmake --build --preset coverage >&2
rm -rf $build/profiles
mkdir -m 777 $build/profiles
umask 0  # some tests change their user, who writes counts as well
# Where files cannot grow or nothing may be written, the counts cannot be written, either, and say so
# on standard error, which the cases compare: such failures do not matter here. The tests of the
# installation build everything anew and reach nothing more.
LLVM_PROFILE_FILE=$PWD/$build/profiles/%4m.profraw \
    GTEST_FILTER='-*a_file_size_limit*:*AFileSizeLimit*' \
    ctest --preset coverage -j "$(nproc)" --timeout 1800 -E '^(install|editors_and_builds)$' -Q >&2 ||
    echo "Some tests have failed; see $build/Testing/Temporary/LastTestsFailed.log."

llvm-profdata merge -o $build/tests.profdata $build/profiles/*.profraw
objects=()
for program in $build/lumnis $build/liblumnisutil.so $build/tests/* $build/fuzz/replay_*; do
    [[ -f $program && -x $program ]] && objects+=(-object "$program")
done
llvm-cov export "${objects[@]:1}" -instr-profile=$build/tests.profdata -skip-expansions \
    -ignore-filename-regex='^/usr/|/(build|tests|fuzz|bench)/' >$build/coverage.json

exec python3 - $build/coverage.json "$PWD/" "$@" <<'END'
import collections
import json
import sys

with open(sys.argv[1], encoding="utf-8") as file:
    files = json.load(file)["data"][0]["files"]

counts = collections.defaultdict(lambda: [0, 0, 0, 0])
missed = []
for source in files:
    name = source["filename"].removeprefix(sys.argv[2])
    # The instances of a template, and of a function in several programs, count together.
    sides = collections.defaultdict(lambda: [0, 0])
    for begin, column, _, _, is_true, is_false, *_ in source["branches"]:
        sides[begin, column][0] += is_true
        sides[begin, column][1] += is_false
    lines = source["summary"]["lines"]
    taken = sum((is_true > 0) + (is_false > 0) for is_true, is_false in sides.values())
    for count in (counts[name.split("/")[0]], counts["all"]):
        for place, add in enumerate((lines["covered"], lines["count"], taken, 2 * len(sides))):
            count[place] += add
    with open(source["filename"], encoding="utf-8") as text:
        texts = text.read().split("\n")
    for (line, column), (is_true, is_false) in sorted(sides.items()):
        if not (is_true and is_false):
            side = "never true" if is_false else "never false" if is_true else "never"
            missed.append("%s:%d:%d %s: %s" % (name, line, column, side, texts[line - 1].strip()))
    for line, _, count, has_count, is_entry, *_ in source["segments"]:
        if is_entry and has_count and count == 0:
            missed.append("%s:%d never: %s" % (name, line, texts[line - 1].strip()))

if "--missed" in sys.argv:
    print("\n".join(missed) + "\n")
print("folder      lines             branches")
for folder in ["text", "cps", "fw", "cc", "wsc", "xp", "xa", "wml", "entry", "dump", "cli", "all"]:
    lines, all_lines, branches, all_branches = counts[folder]
    print("%-8s %6.1f %% of %5d %6.1f %% of %5d" % (
        folder, 100.0 * lines / max(1, all_lines), all_lines,
        100.0 * branches / max(1, all_branches), all_branches))
END
