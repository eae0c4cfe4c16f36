#!/usr/bin/env python3
"""File calls of the store of tasks that are killed or fail, once or from then on, at every call of its life. A killed store opens again
by itself, sound, with everything that was announced. A failing one tells the person the file and the cause, announces nothing that
it did not keep, does not try without end, keeps what it had announced, and works again when the disk does."""
import os
import re
import sys

import faultlab
import storelab
from storelab import Store

CAUSE = re.compile(r"(?i)i/o error|is full|read-?only|unable to open|can't be (opened|written)|not authori[sz]ed|permission|refused it")
ERRORS = ("ENOSPC", "EIO", "EROFS", "EDQUOT", "EACCES", "ENODEV")
# Calls after the disk failed for good, for each step that is still to be stored.
MOST_TRIES_A_STEP = 40
STEPS = 10
SEED = 4


def judge_kill(build, k):
    with Store(build) as store:
        done = store.work(SEED, STEPS, kill=k)
        if not faultlab.killed(done) and done.returncode != 0:
            return [f"exit {done.returncode}: {done.stderr[-300:]}"]
        return storelab.judge_after(build, store, store.lines())


def judge_failure(build, error, k, ever):
    with Store(build) as store:
        done = store.work(SEED, STEPS, trace=True, fail=f"{k}:{error}" + (":ever" if ever else ""))
        if done.returncode != 0:
            return [f"exit {done.returncode}: {done.stderr.strip()[-300:]}"]
        lines, problems = store.lines(), []
        answers = [line for line in lines if "told" in line]
        notices = [notice for line in answers for notice in line["notices"]]
        lost = [line["step"] for line in answers if not line["told"]]
        if lost and not notices:
            problems.append(f"steps {lost} were not stored, and nothing was told")
        for notice in notices:
            if not CAUSE.search(notice):
                problems.append(f"no cause: {notice!r}")
            if store.data not in notice:
                problems.append(f"no file: {notice!r}")
        tries = sum(int(call[0]) > k for call in store.calls())
        if ever and tries > MOST_TRIES_A_STEP * (len(lost) + 1):
            problems.append(f"{tries} further calls for {len(lost)} steps after the disk had failed for good")
        # A store that could not be opened is tried again half a minute later.
        if not ever and len(lost) > 2 and not any("can't be opened" in notice for notice in notices):
            problems.append(f"one failing call cost the steps {lost}")
        return problems + storelab.judge_after(build, store, lines)


def main():
    arguments = faultlab.parse(__doc__.splitlines()[0])
    build = os.path.realpath(arguments.build)
    with Store(build) as store:
        done = store.work(SEED, STEPS, trace=True)
        if done.returncode != 0 or not all(line.get("told", True) for line in store.lines()):
            raise RuntimeError(f"the undisturbed run failed: {done.stderr}")
        count = int(store.calls()[-1][0])
    kills = [(k,) for k in range(1, count + 1)]
    failures = {"E5": [], "E6": []}
    for error in ERRORS:
        failures["E5" if error == "ENOSPC" else "E6"] += [(error, k, ever) for k in range(1, count + 1) for ever in (False, True)]
    matrix, code = faultlab.Matrix(arguments), 0
    for row, what, cases, most, judge in (("E1", "store: kill at a call", kills, 15, judge_kill),
                                          ("E5", "store: disk full", failures["E5"], 20, judge_failure),
                                          ("E6", "store: disk errors", failures["E6"], 40, judge_failure)):
        picked = cases if arguments.full else faultlab.sample(cases, most, arguments.seed)
        matrix.run(what, picked, lambda case: judge(build, *case))
        code |= matrix.tell(row, what)
    return code


if __name__ == "__main__":
    sys.exit(main())
