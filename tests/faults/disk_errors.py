#!/usr/bin/env python3
"""File calls that fail, once or from then on, under one of two tasks. The task under which they fail ends by itself, in time and
with few further tries; its file plays and is a prefix; its report names file and cause. The other task finishes whole. And the same
with the folder of the journals failing, where both may end but never wrongly."""
import json
import os
import re
import sys

import faultlab
from faultlab import Box, Lab

CAUSES = {
    "ENOSPC": (28, r"(?i)full|no space"),
    "EDQUOT": (122, r"(?i)quota"),
    "EIO": (5, r"(?i)i/o|input/output|fail(ed|ing)|error"),
    "EROFS": (30, r"(?i)read-only|write-protected"),
    "EACCES": (13, r"(?i)permission|denied|not allowed"),
    "ENODEV": (19, r"(?i)no such device"),
}
MOST_TRIES_AFTER = 40
DONE, WRITE_ERROR = 16, 10


def judge(lab, box, done, under_out, error, other):
    problems = []
    if done.returncode != 0:
        return [f"exit {done.returncode}: {done.stderr.strip()[:500]}"]
    reports = {report["task"]: report for report in json.loads(done.stdout)["tasks"]}
    struck = reports["task1"]
    whole = False
    # A file of which no fragment was written may be absent; one that is there must be readable.
    if os.path.exists(box.out) and os.path.getsize(box.out) > 0:
        found, found_problems = lab.judge(box.out)
        problems += found_problems
        whole = not lab.compare(found, whole_file=True)
    if struck.get("event") == DONE:
        if not whole:
            problems.append("told as finished, but samples are missing")
    elif struck.get("event") == WRITE_ERROR or struck.get("start", 0) < 0:
        number, words = CAUSES[error]
        text = struck.get("error", "")
        if under_out:
            if struck.get("errno") != number:
                problems.append(f"errno {struck.get('errno')} instead of {number}")
            if box.out not in text and os.path.basename(box.out) not in text:
                problems.append(f"the error does not name the file: {text!r}")
            if not re.search(words, text):
                problems.append(f"the error does not name the cause: {text!r}")
    else:
        problems.append(f"ended with event {struck.get('event')}: {struck.get('error')!r}")
    if other:
        if under_out and reports["task2"].get("event") != DONE:
            problems.append(f"the other task ended with event {reports['task2'].get('event')}: {reports['task2'].get('error')!r}")
        if reports["task2"].get("event") == DONE:
            found, found_problems = lab.judge(other)
            problems += found_problems + lab.compare(found, whole_file=True)
    problems += box.neighbour_problems()
    return problems


def strike(lab, error, place, k, ever):
    with Box() as box:
        other = os.path.join(box.base, "elsewhere.mp4")
        done = lab.run(box, outputs=[box.out, other], trace=True, under=os.path.join(box.root, place),
                       fail=f"{k}:{error}" + (":ever" if ever else ""))
        problems = judge(lab, box, done, place == "out", error, other)
        tries = len([call for call in box.calls() if call[0] > k]) if ever else 0
        if tries > MOST_TRIES_AFTER:
            problems.append(f"{tries} further calls after the disk had failed for good")
        if not ever or place == "out":
            # The disk is well again: a start repairs or removes what is there, and leaves nothing of its own.
            _, repair_problems = lab.repair(box)
            problems += repair_problems + box.neighbour_problems() + box.leftovers([box.out])
            if os.path.exists(box.out):
                problems += [f"after repair: {problem}" for problem in lab.judge(box.out)[1]]
        return problems


def main():
    arguments = faultlab.parse(__doc__.splitlines()[0])
    labs = {clip: Lab(arguments, clip) for clip in faultlab.CLIPS}
    cases = {"E5": [], "E6": []}
    for lab in labs.values():
        for place in ("out", "temp"):
            with Box() as box:
                last = lab.run_undisturbed(box, under=os.path.join(box.root, place))[-1][0]
            for error in CAUSES:
                cases["E5" if error == "ENOSPC" else "E6"] += [(lab, error, place, k, ever) for k in range(1, last + 1)
                                                               for ever in (False, True)]
    matrix, code = faultlab.Matrix(arguments), 0
    for row, what, most in (("E5", "disk full, media and journals", 12), ("E6", "disk errors, media and journals", 30)):
        picked = cases[row] if arguments.full else faultlab.sample(cases[row], most, arguments.seed)
        matrix.run(what, picked, lambda case: strike(*case))
        code |= matrix.tell(row, what)
    return code


if __name__ == "__main__":
    sys.exit(main())
