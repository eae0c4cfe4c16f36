#!/usr/bin/env python3
"""Thousands of operations on one process (row E17): add, pause, resume, cancel, redownload, clear, backups started and stopped, five at
a time, while the recorder drops and refuses now and then. At rests in between, with nothing running, memory, descriptors and
threads are what they were.

usage: test_soak.py --build TREE [--full | --cases N] [--seed N]
"""
import argparse
import contextlib
import os
import random
import sqlite3
import statistics
import sys
import time

import media
import rows
import systemlab
from judges import DAY, PAUSED, SECOND, SUCCEEDED, WAITING, DownloadJudge
from systemlab import Client, Recorder
from worldlab import Driver

OPERATIONS, OPERATIONS_FULL = 300, 10_000
RESTS = 12
WARM_UP_RESTS = 4  # caches fill: the download library alone keeps the reports of 256 ended tasks
GROWTH_LIMIT_MIB = 12
COUNT_LIMIT = 2
PACE_S = 0.04
QUIET_TURNS = 5
RATE = 1_500_000
CHANNELS = [3, 4, 7, 8, 11, 12, 15, 16]
MOST_OPEN, MOST_ENDED = 30, 40
SEGMENTS = ",".join(f"09:{minute:02}-09:{minute:02}" for minute in range(0, 60, 2))
FAULTS = [("session-limit", 1), ("drop-after", 200_000), ("busy", 1), ("not-found", 1)]


class Soak(DownloadJudge):
    """One run; its checks raise."""

    def __init__(self, recorder, client, chance, operations):
        super().__init__()
        self.recorder, self.client, self.chance, self.operations = recorder, client, chance, operations
        self.counts, self.samples, self.next_second, self.backup_runs = {}, [], 0, False

    def runTest(self):
        """unittest wants one."""

    def run_all(self):
        login = ("--device", self.recorder.addresses["onvif"], "--user", systemlab.USER)
        for arguments in (("backup", "add", *login, "--channels", ",".join(map(str, CHANNELS)), "--date", f"{DAY:%Y-%m-%d}", "--segments",
                           SEGMENTS),
                          ("queue", "add", *login, "--channel", CHANNELS[0], "--begin", systemlab.iso(DAY), "--end",
                           systemlab.iso(DAY + 5 * SECOND))):
            run = self.client.run(*arguments)
            self.assertEqual(run.code, systemlab.DONE, run)
        self.recorder.ask("/fault", method="POST", name="rate", value=RATE)
        driver = Driver(self.client)
        try:
            self.assertTrue(driver.wait(lambda: driver.ready_s is not None, 20), f"it does not start: {driver}")
            a_rest = max(1, self.operations // RESTS)
            for number in range(1, self.operations + 1):
                self.operate(driver, self.list(driver))
                if number % a_rest == 0:
                    self.rest(driver)
        finally:
            code = driver.end(kill=False)
        self.assertEqual(code, 0, driver)
        self.judge_samples()
        self.judge_files()

    def list(self, driver):
        """{state: [task]}"""
        driver.tasks = None
        driver.say("list")
        self.assertTrue(driver.wait(lambda: driver.tasks is not None, 30), f"no answer: {driver}")
        tasks = {}
        for task, state, _ in driver.tasks:
            tasks.setdefault(min(state, 4), []).append(task)
        return tasks

    def operate(self, driver, tasks):
        still_open = tasks.get(WAITING, []) + tasks.get(PAUSED, [])
        wishes = {"pause": tasks.get(WAITING), "resume": tasks.get(PAUSED), "cancel": still_open if len(still_open) > 8 else [],
                  "redownload": tasks.get(4), "clear": tasks.get(SUCCEEDED), "add": len(still_open) < MOST_OPEN, "backup": True, "fault": True}
        if len(tasks.get(SUCCEEDED, [])) > MOST_ENDED:
            deed = "clear"
        else:
            weights = {"add": 5, "backup": 0.4, "fault": 0.4}
            possible = [name for name, on in wishes.items() if on]
            deed = self.chance.choices(possible, [weights.get(name, 2) for name in possible])[0]
        self.counts[deed] = self.counts.get(deed, 0) + 1
        if deed == "add":
            begin = DAY + (8 * 3600 + self.next_second) * SECOND
            self.next_second = (self.next_second + 7) % 1700
            driver.say("add", self.chance.choice(CHANNELS), systemlab.iso(begin), systemlab.iso(begin + self.chance.randint(2, 20) * SECOND))
        elif deed == "backup":
            self.backup_runs = not self.backup_runs
            driver.say("backup", "start" if self.backup_runs else "stop")
        elif deed == "fault":
            name, value = self.chance.choice(FAULTS)
            self.recorder.ask("/fault", method="POST", name=name, value=value, count=1)
        else:
            driver.say(deed, self.chance.choice(wishes[deed]))
        time.sleep(PACE_S)

    def rest(self, driver):
        """Everything is paused or stopped, and what had begun is cancelled; then the process is looked at, and the rest goes on."""
        driver.say("backup", "stop")
        self.backup_runs = False
        until = time.monotonic() + 30
        quiet = 0
        while quiet < QUIET_TURNS:  # what was added comes into the queue a little later
            self.assertLess(time.monotonic(), until, f"it can't be paused: {driver}")
            waiting = self.list(driver).get(WAITING, [])
            for task in waiting:
                driver.say("pause", task)
            quiet = 0 if waiting else quiet + 1
            time.sleep(0.2)
        for task in [task for task, _, has_begun in driver.tasks if has_begun]:
            driver.say("cancel", task)
        time.sleep(1)
        process = f"/proc/{driver.process.pid}"
        with open(f"{process}/status", encoding="ascii") as file:
            status = dict(line.split(":", 1) for line in file)
        sample = (int(status["RssAnon"].split()[0]) / 1024, len(os.listdir(f"{process}/fd")), len(os.listdir(f"{process}/task")))
        self.samples.append(sample)
        print(f"rest {len(self.samples)}: {sample[0]:.1f} MiB, {sample[1]} descriptors, {sample[2]} threads", flush=True)
        for task in self.list(driver).get(PAUSED, []):
            driver.say("resume", task)

    def judge_samples(self):
        warm = self.samples[WARM_UP_RESTS:]
        half = len(warm) // 2
        for name, limit, index in (("MiB", GROWTH_LIMIT_MIB, 0), ("descriptors", COUNT_LIMIT, 1), ("threads", COUNT_LIMIT, 2)):
            before, after = (statistics.median(sample[index] for sample in part) for part in (warm[:half], warm[half:]))
            self.assertLessEqual(after - before, limit, f"{name} grow: {[sample[index] for sample in self.samples]}")

    def judge_files(self):
        with contextlib.closing(sqlite3.connect(os.path.join(self.client.folder, "data", "data", "vemo.db"))) as store:
            self.assertEqual(store.execute("PRAGMA integrity_check").fetchall(), [("ok",)])
            done = store.execute("SELECT channel_no, begin_utc_ms, end_utc_ms, save_path, downloaded_bytes FROM download_tasks "
                                 "WHERE state = ?", (SUCCEEDED,)).fetchall()
        epoch = DAY - DAY.timestamp() * SECOND
        for channel, begin, end, path, size in done:
            self.assertEqual(os.path.getsize(path), size, path)
            span = (epoch + begin / 1000 * SECOND - 4 * SECOND, epoch + end / 1000 * SECOND + 4 * SECOND)
            sent = [md5 for _, md5 in self.recorder.samples(channel, *span)[0]]
            self.assertIsNotNone(self.position(media.samples(path)[0], sent), f"{path}: no unbroken part of what was sent")


def main():
    parser = argparse.ArgumentParser(add_help=False)
    parser.add_argument("--cases", type=int)
    parser.parse_known_args(namespace=systemlab.OPTIONS)
    systemlab.parse()
    options = systemlab.OPTIONS
    operations = options.cases or (OPERATIONS_FULL if options.full else OPERATIONS)
    print(f"seed {options.seed}", flush=True)
    violations = 0
    with Recorder("--channels", "16") as recorder, Client() as client:
        soak = Soak(recorder, client, random.Random(options.seed), operations)
        try:
            soak.run_all()
        except AssertionError as error:
            violations = 1
            print(f"FAILED E17: {error}\nagain: {sys.argv[0]} --build {options.build} --cases {operations} --seed {options.seed}", flush=True)
    print(f"operations: {soak.counts}", flush=True)
    return 1 if rows.tell("E17", "operations on one process", sum(soak.counts.values()), violations, options.seed) else 0


if __name__ == "__main__":
    sys.exit(main())
