#!/usr/bin/env python3
"""The command line as processes: one small file each beside xmllint, and many files in one process
beside a process for each.

    bench/processes.py [--lumnis PATH] [--rounds N] [--decks N]

All contenders of a comparison run in turns. Printed are the least and the median time by the clock
and the least time of the processor, each with its ratio to the first contender. xmllint comes from
Debian's libxml2-utils.
"""

import argparse
import os
import pathlib
import shutil
import statistics
import sys
import tempfile
import time

TREE = pathlib.Path(__file__).resolve().parent.parent

DECK = """<?xml version="1.0"?>
<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml>
  <card id="start" title="News">
    <p>Good morning, $(name).<br/>
    <a href="http://www.example.com/news">The news of the day</a></p>
  </card>
</wml>
"""

SCRIPT = """extern function add(a, b) {
    return a + b;
}
"""


def run(command):
    """Runs a command and gives its times in seconds: what a clock shows, and of the processor."""
    start = time.perf_counter()
    child = os.posix_spawn(command[0], command, os.environ)
    _, status, usage = os.wait4(child, 0)
    duration = time.perf_counter() - start
    if status != 0:
        sys.exit("fails: " + " ".join(command))
    return duration, usage.ru_utime + usage.ru_stime


def compare(title, contenders, rounds):
    """contenders: name to a function that gives the two times of one run."""
    times = {name: [] for name in contenders}
    for _ in range(rounds):
        for name, measure in contenders.items():
            times[name].append(measure())
    print(f"\n{title:<34}{'least ms':>17}{'median ms':>17}{'least cpu ms':>17}")
    first = None
    for name, pairs in times.items():
        walls, cpus = zip(*pairs)
        values = [min(walls), statistics.median(walls), min(cpus)]
        first = first or values
        print(f"  {name:<32}" + "".join(f"{value * 1e3:>10.2f} {value / base:>6.2f}"
                                        for value, base in zip(values, first)))


def compare_single_files(lumnis, folder, rounds):
    xmllint = shutil.which("xmllint") or sys.exit("xmllint is missing")
    shutil.copy(TREE / "wml/dtd/wml13.dtd", folder)
    deck = folder / "deck.wml"
    deck.write_text(DECK)
    script = folder / "script.wmls"
    script.write_text(SCRIPT)
    compare("one small file", {
        "lumnis encode": lambda: run([lumnis, "encode", str(deck)]),
        "lumnis compile": lambda: run([lumnis, "compile", str(script)]),
        "xmllint --valid --noout --nonet":
            lambda: run([xmllint, "--valid", "--noout", "--nonet", str(deck)]),
        "true": lambda: run([shutil.which("true")]),
    }, rounds)


def compare_batches(lumnis, folder, count):
    decks = []
    for i in range(count):
        decks.append(str(folder / f"deck{i}.wml"))
        pathlib.Path(decks[-1]).write_text(DECK.replace("start", f"c{i}"))

    def run_each():
        return tuple(map(sum, zip(*(run([lumnis, "encode", deck]) for deck in decks))))

    compare(f"{count} small decks", {
        "lumnis encode -j 2": lambda: run([lumnis, "encode", "-j", "2", *decks]),
        "lumnis encode": lambda: run([lumnis, "encode", *decks]),
        "a process for each": run_each,
    }, 3)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--lumnis", default=str(TREE / "build/release/lumnis"))
    parser.add_argument("--rounds", type=int, default=200)
    parser.add_argument("--decks", type=int, default=2000)
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        compare_single_files(arguments.lumnis, folder, arguments.rounds)
        compare_batches(arguments.lumnis, folder, arguments.decks)


if __name__ == "__main__":
    main()
