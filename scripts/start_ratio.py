"""Starts the tool and an empty window in turns and compares time and memory by their medians."""

import statistics
import subprocess
import sys
import time

RUNS = 15


def start(program, which):
    """Milliseconds from the start of the process to its first painted window, and its memory."""
    before = time.clock_gettime(time.CLOCK_MONOTONIC) * 1000
    shown, resident = subprocess.run([program, which], check=True, capture_output=True, text=True).stdout.split()
    return float(shown) - before, float(resident)


def main():
    program = sys.argv[1]
    start(program, "tool"), start(program, "empty")  # the first start fills the disk's cache
    runs = [(start(program, "tool"), start(program, "empty")) for _ in range(RUNS)]
    for column, what in enumerate(("start to the first window", "memory at the first window")):
        ratio = statistics.median(tool[column] / empty[column] for tool, empty in runs)
        print(f"| {what + ', over an empty one of as many widgets':58} | {ratio:10.3f} x     | {'at most 1.5':18} |")


main()
