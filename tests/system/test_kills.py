#!/usr/bin/env python3
"""Kills while five downloads and a backup run in one process on a store of 10,000 tasks (row E2), and second faults in the middle of
the recovery from them (row E16). Rounds of faults hit one store each; after every fault store and files are looked at, after a
round everything is fetched to its end and judged.

usage: test_kills.py --build TREE [--row E2|E16] [--full | --cases N] [--minutes N] [--seed N] [--only ROUND] [--keep]
"""
import argparse
import concurrent.futures
import os
import random
import statistics
import sys
import time
import traceback

import rows
import systemlab
from systemlab import Recorder
from worldlab import Driver, Past, World

ROUND = {"E2": 25, "E16": 12}
CASES = {"E2": 12, "E16": 8}
CASES_FULL = {"E2": 1000, "E16": 500}
SHORT_SEED = 7
WORKERS = {"E2": 1, "E16": 2}  # how long a start takes is asked of one client at work
READY_WITHIN_S = 20
ERRORS = ["ENOSPC", "EIO", "EDQUOT", "EROFS", "EACCES"]
MOST_CALLS = 300
ALL_CALLS = {"write", "pwrite", "writev", "ftruncate", "fsync", "fdatasync", "rename", "unlink", "open", "mkdir", "link", "fallocate",
             "copy_file_range", "clone", "futimens"}


def kill_anywhere(world):
    """One in five kills hits the start."""
    (kill_at_start if world.chance.random() < 0.2 else kill_at_work)(world)


def kill_at_work(world):
    """Once the stored tasks are handed out, so that the recovery from what was before is over."""
    delay = world.chance.uniform(0.05, 1.3)
    world.history.append(f"kill at work after {delay:.2f}")
    driver = Driver(world.client, "--backup")
    try:
        world.assertTrue(driver.wait(lambda: driver.ready_s is not None, READY_WITHIN_S), f"it does not start: {driver}")
        world.note_start(driver)
        time.sleep(delay)
    finally:
        driver.end()
    world.look_at_wreck(driver)


def kill_at_start(world):
    world.history.append("kill at start")
    driver = Driver(world.client, "--backup")
    try:
        time.sleep(world.chance.uniform(0.02, 0.6))
    finally:
        driver.end()


def hit_recovery(world):
    """A kill at work, and a second fault while the next start puts that in order."""
    kill_at_work(world)
    world.look()
    kind = world.chance.choice(["kill by the clock", "kill at a call", "fail once", "fail for ever", "disk full"])
    if kind == "kill by the clock":
        kill_at_start(world)
        return
    call = round(MOST_CALLS ** world.chance.random())
    plan = {"kill at a call": ("KILL", f"{call}"),
            "fail once": ("FAIL", f"{call}:{world.chance.choice(ERRORS)}"),
            "fail for ever": ("FAIL", f"{call}:{world.chance.choice(ERRORS)}:ever"),
            "disk full": ("FAIL", f"{call}:ENOSPC:ever")}[kind]
    world.history.append(f"{kind} {plan[1]}")
    # A full disk is that of the recordings, the others may be the store's as well; it keeps nobody from removing files.
    root = world.videos if kind == "disk full" else world.client.folder
    calls = ALL_CALLS if plan[1].split(":")[1:2] not in (["ENOSPC"], ["EDQUOT"]) else ALL_CALLS - {"unlink"}
    driver = Driver(world.client, "--backup", LD_PRELOAD=os.path.join(systemlab.OPTIONS.build, "lib", "libvemo_faults.so"),
                    VEMO_FAULTS_ROOT=root, VEMO_FAULTS_OPS=",".join(sorted(calls)), **{f"VEMO_FAULTS_{plan[0]}": plan[1]})
    try:
        if driver.wait(lambda: driver.ready_s is not None, READY_WITHIN_S):
            driver.wait(lambda: False, world.chance.uniform(0.1, 0.6))
        world.assertTrue(driver.ready_s is not None or driver.process.poll() is not None or driver.told,
                         f"it hangs at {kind} {plan}: {driver}")
    finally:
        driver.end()


class Rounds:
    """All rounds of a row, on a few workers; each has a recorder of its own."""

    def __init__(self, row, options):
        self.row, self.seed = row, options.seed
        cases = options.cases or (CASES_FULL if options.full else CASES)[row]
        self.wanted, size = cases, min(ROUND[row], -(-cases // WORKERS[row]))
        sizes = [min(size, cases - first) for first in range(0, cases, size)]
        self.jobs = [(number, size) for number, size in enumerate(sizes) if options.only in (None, number)]
        self.cases, self.violations, self.starts_s = 0, 0, []
        self.until = time.monotonic() + (options.minutes or 1e6) * 60

    def run(self):
        os.sync()  # what tests before this one left to be written keeps no start
        workers = min(WORKERS[self.row], len(self.jobs))
        with concurrent.futures.ThreadPoolExecutor(workers) as pool:
            futures = [pool.submit(self.work, self.jobs[first::workers]) for first in range(workers)]
            for future in futures:
                future.result()
        rows.tell(self.row, {"E2": "kills while five downloads and a backup run", "E16": "second faults during recovery"}[self.row],
                  self.cases, self.violations, self.seed)
        if WORKERS[self.row] == 1 and self.starts_s:
            own, whole = zip(*self.starts_s)
            print(f"{self.row}: {len(own)} starts on 10,000 tasks, s: median {statistics.median(own):.2f}, max {max(own):.2f}; with what "
                  f"others took of the processors: median {statistics.median(whole):.2f}, max {max(whole):.2f}", flush=True)
        return self.violations

    def work(self, jobs):
        with Recorder("--channels", "16") as recorder, Past(recorder) as past:
            for number, size in jobs:
                if time.monotonic() < self.until:
                    self.round(past, number, size)

    def round(self, past, number, size):
        began = time.monotonic()
        done = 0
        with World(past, random.Random(f"{self.seed} {number}")) as world:
            try:
                for _ in range(size):
                    (kill_anywhere if self.row == "E2" else hit_recovery)(world)
                    done += 1
                    tasks = world.look()
                    if all(task["state"] == 3 for task in tasks):
                        break
                world.finish()
            except Exception:  # whatever a judge says
                self.violations += 1
                print(f"FAILED {self.row}, round {number}, behind {', '.join(world.history)}:\n{traceback.format_exc()[-3000:]}\n"
                      f"again: {sys.argv[0]} --build {systemlab.OPTIONS.build} --row {self.row} --cases {self.wanted} "
                      f"--seed {self.seed} --only {number}", flush=True)
                world.is_kept = systemlab.OPTIONS.keep
            for late in world.late_starts if WORKERS[self.row] == 1 else []:
                self.violations += 1
                print(f"FAILED {self.row}, round {number}: a start took {late}", flush=True)
            self.starts_s += world.starts_s
        self.cases += done
        print(f"{self.row} round {number}: {done} faults, {time.monotonic() - began:.1f} s", flush=True)


def main():
    parser = argparse.ArgumentParser(add_help=False)
    parser.add_argument("--row", choices=ROUND, action="append")
    parser.add_argument("--cases", type=int)
    parser.add_argument("--only", type=int)
    parser.add_argument("--minutes", type=float)
    parser.add_argument("--keep", action="store_true")
    parser.parse_known_args(namespace=systemlab.OPTIONS)
    systemlab.parse()
    if not systemlab.OPTIONS.full and "--seed" not in sys.argv:
        systemlab.OPTIONS.seed = SHORT_SEED
    print(f"seed {systemlab.OPTIONS.seed}", flush=True)
    return 1 if sum(Rounds(row, systemlab.OPTIONS).run() for row in systemlab.OPTIONS.row or ROUND) else 0


if __name__ == "__main__":
    sys.exit(main())
