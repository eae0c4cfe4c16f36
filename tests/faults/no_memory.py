#!/usr/bin/env python3
"""Allocations that fail, one or three in a row, at every number of them: in a task's life and in the repair of a file that a kill left
(muxer, journals, sound's encoder), and in the database of the store. Nothing crashes and nothing leaks; the task finishes whole or
ends with the word that memory ran out; its file is a prefix before the next start and after it; the store tells what it did not keep
and keeps what it announced."""
import json
import os
import sys

import faultlab
import storelab
from faultlab import Box, Lab
from storelab import Store

MEDIA = ("libvaws_download.so", "libvaws_codecs.so")
DATABASE = ("libsqlite3.so.0", "libsqlite3.so.0.8.6")
DONE, WRITE_ERROR, NO_MEMORY = 16, 10, 12
REFUSED = ("the library did not take its folder", "the repair did not end")
IN_A_ROW = (1, 3)
# The wreck for the repair: killed here.
WRECKED_AT = 16
STORE_STEPS, STORE_SEED = 4, 4


class Starved:
    """The environment of a run in which allocations fail, and what it reports."""

    def __init__(self, build, base, libraries, fail=None):
        self.report = os.path.join(base, "allocations")
        self.environment = {"LD_PRELOAD": os.path.join(build, "lib", "libvemo_no_memory.so"),
                            "VEMO_NO_MEMORY_LIBS": ",".join("/" + name for name in libraries), "VEMO_NO_MEMORY_REPORT": self.report}
        if fail:
            self.environment["VEMO_NO_MEMORY_FAIL"] = f"{fail[0]}:{fail[1]}"

    def counted(self):
        """(allocations, blocks that were not given back)."""
        with open(self.report, encoding="utf-8") as file:
            return tuple(map(int, file.read().split()))

    def leak_problems(self, usual):
        live = self.counted()[1]
        return [f"{live} blocks were not given back, without a fault {usual}"] if live > usual else []


def end_problems(lab, box, done):
    """What the task says of itself agrees with its file."""
    if done.returncode != 0:
        said = done.stderr.strip()
        return [] if done.returncode == 2 and said.endswith(REFUSED) or REFUSED[0] in said else [f"exit {done.returncode}: {said[-300:]}"]
    report = json.loads(done.stdout)["tasks"][0] or {"event": (box.events() or [0])[-1], "errno": NO_MEMORY, "error": "memory"}
    problems, found = [], {}
    if os.path.exists(box.out) and os.path.getsize(box.out) > 0:
        found, problems = lab.judge(box.out)
    event = report.get("event")
    if event == DONE:
        problems += [f"told as finished: {problem}" for problem in lab.compare(found, whole_file=True)]
    elif report.get("start", 0) >= 0 and (event != WRITE_ERROR or report.get("errno") != NO_MEMORY or "memory" not in report["error"]):
        problems.append(f"ended with event {event}, errno {report.get('errno')}: {report.get('error')!r}")
    elif report.get("start", 0) >= 0 and WRITE_ERROR not in box.events():
        problems.append("the end was not told")
    return problems


def after_repair(lab, box):
    _, problems = lab.repair(box)
    if os.path.exists(box.out):
        problems += [f"after repair: {problem}" for problem in lab.judge(box.out)[1]]
    return problems + box.neighbour_problems() + box.leftovers([box.out])


def judge_task(lab, usual, fail):
    with Box() as box:
        starved = Starved(lab.build, box.base, MEDIA, fail)
        done = lab.run(box, environment=starved.environment)
        problems = end_problems(lab, box, done)
        if done.returncode == 0:
            problems += starved.leak_problems(usual)
        return problems + after_repair(lab, box)


def wreck(lab, box):
    if not faultlab.killed(lab.run(box, "--speed", "4", trace=True, kill=WRECKED_AT)):
        raise RuntimeError("the run that was to be killed was not")


def judge_repair(lab, usual, fail):
    with Box() as box:
        wreck(lab, box)
        starved = Starved(lab.build, box.base, MEDIA, fail)
        done = lab.run(box, repair=True, environment=starved.environment)
        if done.returncode:
            problems = end_problems(lab, box, done)
        else:
            # The library keeps what it repaired until the next start; a record with a cause has one text more.
            problems = starved.leak_problems(usual + sum(bool(each["error"]) for each in json.loads(done.stdout)["repaired"] or []))
        if os.path.exists(box.out):
            problems += lab.judge(box.out)[1]
        return problems + after_repair(lab, box)


def judge_store(build, usual, fail):
    with Store(build) as store:
        starved = Starved(build, store.base, DATABASE, fail)
        done = store.work(STORE_SEED, STORE_STEPS, environment=starved.environment)
        if done.returncode != 0:
            return [f"exit {done.returncode}: {done.stderr.strip()[-300:]}"]
        answers = [line for line in store.lines() if "told" in line]
        lost = [line["step"] for line in answers if not line["told"]]
        problems = [f"steps {lost} were not stored, and nothing was told"] if lost and not any(line["notices"] for line in answers) else []
        return problems + starved.leak_problems(usual) + storelab.judge_after(build, store, store.lines())


def parts(arguments, build):
    """(what, cases, most of them in the full run, judge)."""
    for clip in faultlab.CLIPS:
        lab = Lab(arguments, clip)
        with Box() as box:
            lab.run_undisturbed(box)
        with Box() as box:
            starved = Starved(build, box.base, MEDIA)
            lab.run(box, environment=starved.environment)
            count, usual = starved.counted()
        yield f"muxer, {clip}", count, 2000, 30, lambda fail, lab=lab, usual=usual: judge_task(lab, usual, fail)
    with Box() as box:
        wreck(lab, box)
        starved = Starved(build, box.base, MEDIA)
        lab.run(box, repair=True, environment=starved.environment)
        count, usual = starved.counted()
    yield f"repair, {lab}", count, 1000, 10, lambda fail: judge_repair(lab, usual, fail)
    with Store(build) as store:
        starved = Starved(build, store.base, DATABASE)
        store.work(STORE_SEED, STORE_STEPS, environment=starved.environment)
        count, unused = starved.counted()
    yield "store", count, 1200, 30, lambda fail: judge_store(build, unused, fail)


def main():
    arguments = faultlab.parse(__doc__.splitlines()[0])
    matrix, code = faultlab.Matrix(arguments), 0
    for what, count, most, few, judge in parts(arguments, os.path.realpath(arguments.build)):
        cases = [(k, row) for k in range(1, count + 1) for row in IN_A_ROW]
        cases = faultlab.sample(cases, arguments.cases or (most if arguments.full else few), arguments.seed)
        print(f"{what}: {count} allocations", flush=True)
        matrix.run(f"no memory, {what}", cases, judge)
        code |= matrix.tell("E12", f"allocations fail, {what}")
    return code


if __name__ == "__main__":
    sys.exit(main())
