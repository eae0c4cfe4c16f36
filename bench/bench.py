#!/usr/bin/env python3
"""Measures the program beside its peers, in one run on one machine, and prints one table with a line a measure.

Peers: P0 the bytes from the socket into a file and nothing else, P1 ffmpeg -c copy, P2 gst-launch-1.0, cp, the sqlite3 shell. Ways
of doing the same take turns in shuffled order, outputs are unlinked first, figures are medians with the spread. CPU time is that of
whole processes. The bars stand in bars.py; "near" is a miss that the bar allows for. Exits with 1 when a measure is short or failed.
"""
import argparse
import os
import platform
import subprocess
import sys
import time
import traceback

import rows_download
import rows_files
import rows_window
from bars import MEASURES, ROWS
from lab import Failed, Lab
from report import Report, compare

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))

# What measures which rows; each brings all of its measures or none.
PARTS = (
    (("F1", "F2"), rows_download.one_download, ("F1/", "F2/")),
    (("F3",), rows_download.five_downloads, ("F3/",)),
    (("F4",), rows_download.real_time, ("F4/",)),
    (("F5",), rows_download.first_fragment, ("F5/",)),
    (("F6",), rows_download.end_of_file, ("F6/",)),
    (("F7",), rows_files.cut, ("F7/cut",)),
    (("F7",), rows_files.copies, ("F7/copy", "F7/verified")),
    (("F8",), rows_window.store, ("F8/insert", "F8/load", "F8/sort", "F8/filter", "F8/update", "F8/delete")),
    (("F8",), rows_window.index, ("F8/page", "F8/whole")),
    (("F9",), rows_window.ticks, ("F9/",)),
    (("F10",), rows_window.starts, ("F10/",)),
    (("F11",), rows_files.thumbnails, ("F11/",)),
    (("F12",), rows_window.time_line, ("F12/",)),
    (("F13",), rows_download.whole_day, ("F13/",)),
    (("F14",), rows_window.stops, ("F14/pause", "F14/cancel", "F14/stop", "F14/slow")),
    (("F14",), rows_window.quits, ("F14/quit",)),
)


def parse():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default=os.path.join(ROOT, "build", "release"), help="a release build")
    parser.add_argument("--rows", default=ROWS, type=lambda text: tuple(text.split(",")), help="such as F1,F5; default all")
    parser.add_argument("--runs", type=int, default=7, help="of each way")
    parser.add_argument("--quick", action="store_true", help="one run of everything, with little data: tries the measures themselves")
    parser.add_argument("--gib", type=float, default=1.0, help="size of the file of F1; each of five in F3 is half of it")
    parser.add_argument("--largest-gib", type=float, default=16, help="F6's largest file; twice as much has to be free")
    parser.add_argument("--scale", type=float, default=1.0, help="share of the sizes that F7 and F11 ask for")
    parser.add_argument("--real-time-s", type=float, default=30, help="length of a run of F4")
    parser.add_argument("--day-h", type=int, default=24, help="hours of footage in F13")
    parser.add_argument("--tick-s", type=int, default=12, help="length of a run of F9")
    parser.add_argument("--seed", type=int, default=int(time.time()), help="of the order of turns")
    parser.add_argument("--dir", default=os.path.join(ROOT, "build", "bench"), help="on the disk to measure")
    parser.add_argument("--json", metavar="FILE", help="keeps all figures for --compare")
    parser.add_argument("--compare", nargs=2, metavar=("BEFORE", "AFTER"), help="holds two kept runs against each other and ends")
    options = parser.parse_args()
    unknown = set(options.rows) - set(ROWS)
    if unknown:
        parser.error("no such rows: " + ", ".join(sorted(unknown)))
    if options.quick:
        options.runs, options.gib, options.largest_gib, options.scale = 1, 0.1, 1, 0.05
        options.real_time_s, options.day_h, options.tick_s = 4, 1, 2
    return options


def revision():
    found = subprocess.run(["git", "-C", ROOT, "describe", "--always", "--dirty"], capture_output=True, text=True, check=False)
    return found.stdout.strip() or "unknown"


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        return next((line.split(":", 1)[1].strip() for line in file if line.startswith("model name")), platform.machine())


def load():
    return ", ".join(f"{value:.2f}" for value in os.getloadavg())


def main():
    options = parse()
    if options.compare:
        return 0 if compare(*options.compare) else 1
    begin = time.monotonic()
    report = Report({"command": " ".join(sys.argv), "revision": revision(), "machine": f"{os.cpu_count()} x {processor()}",
                     "seed": options.seed, "runs": options.runs, "load at the begin": load()})
    lab = Lab(options)
    try:
        for rows, measure, names in PARTS:
            if not set(rows) & set(options.rows):
                continue
            lab.say(f"{', '.join(rows)}: {' '.join(measure.__name__.split('_'))}")
            reason = "not measured"
            try:
                measure(lab, report)
            except Failed as failure:
                reason = str(failure)
            except Exception as error:  # one measure that breaks must not cost the others
                traceback.print_exc()
                reason = f"{type(error).__name__}: {error}"
            for each in MEASURES:
                if each.name.startswith(names) and each.name not in report.results and each.name not in report.left_out:
                    report.add(each.name, failed=reason)
            if options.json:
                report.keep(options.json)
    finally:
        lab.close()
        report.facts["load at the end"] = load()
        report.facts["took"] = f"{time.monotonic() - begin:.0f} s"
        if options.json:
            report.keep(options.json)
        report.print()
    return 0 if report.ok else 1


if __name__ == "__main__":
    sys.exit(main())
