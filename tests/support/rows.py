#!/usr/bin/env python3
"""One line for each row of the quality table that a test measured, and the table that ./test makes of all these lines.

A test ends with tell(); the seconds are counted from when this module was imported. As a program: the table of the files named."""
import re
import sys
import time

_began = time.monotonic()
_LINE = re.compile(r"row ([A-Z]\d+) \| ([^|]+) \| (\d+) \| (\d+) violations? \| seed (\S+) \| (\d+) s\s*$")
_HEAD = ("row", "what", "cases", "violations", "seed", "seconds")


def tell(row, what, cases, violations, seed):
    """`what` is a name without |; `seed` is "-" for a test that draws nothing. Returns the number of violations."""
    line = f"row {row} | {what} | {cases} | {violations} violations | seed {seed} | {time.monotonic() - _began:.0f} s"
    if not _LINE.match(line):
        raise ValueError(f"no line that could be read again: {line!r}")
    print(line, flush=True)
    return violations


def read(text):
    """The rows told in `text`, as tuples in the order of the table's head."""
    return [match.groups() for match in map(_LINE.search, text.splitlines()) if match]


def table(rows):
    """The lines of a table, rows in the order E1, E2, ... E10."""
    rows = sorted(set(rows), key=lambda row: (row[0][0], int(row[0][1:]), row[1:]))
    widths = [max(len(row[column]) for row in (_HEAD, *rows)) for column in range(len(_HEAD))]
    aligned = [[text.ljust(width) if column in (0, 1) else text.rjust(width)
                for column, (text, width) in enumerate(zip(row, widths))] for row in (_HEAD, *rows)]
    return ["  ".join(row).rstrip() for row in aligned]


def main():
    rows = []
    for path in sys.argv[1:]:
        with open(path, encoding="utf-8", errors="replace") as file:
            rows += read(file.read())
    if rows:
        print("\n".join(table(rows)))


if __name__ == "__main__":
    main()
