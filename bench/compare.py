#!/usr/bin/env python3
"""Compares two runs of scripts/bench.

    bench/compare.py OLD NEW [PART]     two folders of results; only benchmarks whose name holds PART

Prints for each benchmark the old and the new median, new of old, and whether the two stand apart: "*" if the middle
halves of their repetitions do not overlap. Runs of a busy machine differ without any change of the code; what is not
compared with the library (tinyxml, memcpy, compress) shows by how much.
"""
import statistics
import sys

from results import Times, duration


def halves(times, name):
    low, _, high = statistics.quantiles(times.samples[name], n=4)
    return low, high


def main():
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    old, new = Times(sys.argv[1]), Times(sys.argv[2])
    part = sys.argv[3] if len(sys.argv) == 4 else ""
    print(f"{'':44}{'old':>12}{'new':>12}{'new of old':>12}")
    for name in sorted(name for name in old.median if name in new and part in name):
        (old_low, old_high), (new_low, new_high) = halves(old, name), halves(new, name)
        apart = old_high < new_low or new_high < old_low
        print(f"{name:44}{duration(old[name]):>12}{duration(new[name]):>12}{new[name] / old[name]:12.3f}"
              f"{' *' if apart else ''}")


main()
