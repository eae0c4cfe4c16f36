#!/usr/bin/env python3
"""The disk with the backups, or the one that they are exported to, goes before a certain call, and another one takes its place (row
E7): the other one gets nothing, what is listed as good is there and whole, sources are what they were, and once the disk is back
the rest is made up for.

usage: test_pulled_disk.py --build TREE [--full] [--seed N] [--only WORK:CALL]
"""
import argparse
import concurrent.futures
import hashlib
import os
import re
import shutil
import sys
import traceback

import rows
import systemlab
from judges import DAY, BackupJudge
from systemlab import Client, Recorder

SEGMENTS = ["08:15-08:15", "08:46-08:46"]
CHANNELS = "3,4"
POINTS, POINTS_FULL = 6, 100
WORKERS = 2
OUTCOMES = (systemlab.DONE, systemlab.FAILED, systemlab.DISK, systemlab.INCOMPLETE)


def contents(folder):
    """{path below the folder: sum}"""
    sums = {}
    for place, _, names in os.walk(folder):
        for name in names:
            with open(os.path.join(place, name), "rb") as file:
                sums[os.path.relpath(os.path.join(place, name), folder)] = hashlib.sha256(file.read()).hexdigest()
    return sums


class Disk(BackupJudge):
    """A client with planned, or with finished, backups and a second disk. Its checks raise."""

    def __init__(self, recorder, like=None):
        super().__init__()
        self.recorder = recorder
        self.client = Client()
        self.client.changes["TZ"] = "UTC"
        home = os.path.join(self.client.folder, "home")
        self.backups = os.path.join(home, "Videos", "Vemo", "Backup")
        self.target, self.other = (os.path.join(self.client.folder, name) for name in ("target", "other"))
        if like:
            for name in ("data", "home"):
                shutil.copytree(os.path.join(like.client.folder, name), os.path.join(self.client.folder, name), dirs_exist_ok=True)
        else:
            # A disk that is used for the first time can't be told from another one, so it was used before.
            self.plan(2, ["09:00-09:00"])
            self.verb("run")
            self.plan(CHANNELS, SEGMENTS)
        for folder in (self.backups, self.target, self.other):
            os.makedirs(folder, exist_ok=True)
        for folder in (self.other, self.target):
            with open(os.path.join(folder, "theirs.txt"), "w", encoding="utf-8") as file:
                file.write(folder)

    def runTest(self):
        """unittest wants one."""

    def plan(self, channels, segments):
        self.verb("add", "--device", self.recorder.addresses["onvif"], "--user", systemlab.USER, "--channels", channels, "--date",
                  f"{DAY:%Y-%m-%d}", "--segments", ",".join(segments))

    def verb(self, *arguments, codes=(systemlab.DONE,), **faults):
        self.client.changes.update(faults)
        try:
            run = self.client.run("backup", *arguments, timeout=120)
        finally:
            for name in faults:
                del self.client.changes[name]
        self.assertIn(run.code, codes, run)
        return run

    def faulty(self, disk, *arguments, **faults):
        return self.verb(*arguments, codes=OUTCOMES, VEMO_FAULTS_ROOT=disk,
                         LD_PRELOAD=os.path.join(systemlab.OPTIONS.build, "lib", "libvemo_faults.so"), **faults)

    def calls(self, disk, *arguments):
        """The first and the last call of the copying: what comes before is no disk pulled in the middle of it."""
        trace = os.path.join(self.client.folder, "trace")
        self.faulty(disk, *arguments, VEMO_FAULTS_TRACE=trace)
        with open(trace, encoding="utf-8") as file:
            paths = [line.split("\t")[3] for line in file]
        return next((number for number, path in enumerate(paths, 1) if path.endswith(".mp4")), 1), len(paths)

    def pull(self, disk, call, *arguments):
        """The run, and whether the disks changed places; if so they have changed back by now."""
        theirs = contents(self.other)
        run = self.faulty(disk, *arguments, VEMO_FAULTS_SWAP=f"{call}:{disk}:{self.other}")
        is_pulled = contents(disk).get("theirs.txt") == theirs["theirs.txt"]
        if is_pulled:
            # A file that was about to be opened may have come to lie there; it is told as failed.
            self.assertLessEqual(theirs.items(), contents(disk).items(), f"files of the other disk were changed: {run}")
            self.assertNotIn(".vemo-backup", contents(disk), f"the other disk was taken for the own one: {run}")
            os.rename(disk, disk + ".gone")
            os.rename(self.other, disk)
            os.rename(disk + ".gone", self.other)
        return run, is_pulled

    def listing(self):
        return self.verb("list", "--json", "--channels", CHANNELS).lines

    def judge_listing(self, run):
        """What is listed as good is on the disk."""
        for task in self.listing():
            for each in task["files"]:
                if each["finished"] and each["path"]:
                    self.assertTrue(os.path.isfile(each["path"]), f"listed as good, but not there: {each} {run}")


def pull_backup(planned, call):
    disk = Disk(planned.recorder, planned)
    with disk.client:
        arguments = ("run", "--tries", 1, "--json")
        if call is None:
            return disk.calls(disk.backups, *arguments)
        run, _ = disk.pull(disk.backups, call, *arguments)
        disk.judge_listing(run)
        disk.verb(*arguments)
        for task in disk.listing():
            disk.check_backup(task, SEGMENTS, tracks=(0,))
        return None


def pull_target(finished, call):
    disk = Disk(finished.recorder, finished)
    with disk.client:
        arguments = ("export", "--date", f"{DAY:%Y-%m-%d}", "--channels", CHANNELS, "--to", disk.target)
        # The records name the files of the world that was copied; sources must stay as they are there.
        if call is None:
            return disk.calls(disk.target, *arguments)
        sources = {path: found for path, found in contents(finished.backups).items() if "_2/" not in path}
        run, _ = disk.pull(disk.target, call, *arguments)
        disk.assertLessEqual(sources.items(), contents(finished.backups).items(), "a source was changed")
        told = int(re.search(r"success count:(\d+)", run.err).group(1)) if "success count" in run.err else 0
        good = set(sources.values())
        # Tasks are exported one by one: one that begins after the change goes to the disk that stands there by then.
        copies = [found for place in (disk.target, disk.other) for path, found in contents(place).items() if path.endswith(".mp4")]
        disk.assertLessEqual(set(copies), good, f"a copy that is not whole has its final name: {run}")
        disk.assertLessEqual(told, len(copies), f"more copies are told as good than there are: {run}")
        if run.code == systemlab.DONE:
            disk.assertEqual(len(copies), told, f"told as done, but not all is there: {run}")
        disk.verb(*arguments)
        disk.assertEqual({found for path, found in contents(disk.target).items() if path.endswith(".mp4")},
                         {found for path, found in sources.items() if path.endswith(".mp4")}, "not everything was copied")
        return None


def main():
    parser = argparse.ArgumentParser(add_help=False)
    parser.add_argument("--only")
    parser.parse_known_args(namespace=systemlab.OPTIONS)
    systemlab.parse()
    options = systemlab.OPTIONS
    print(f"seed {options.seed}", flush=True)
    count = POINTS_FULL if options.full else POINTS
    done = violations = 0
    with Recorder("--channels", "4") as recorder:
        planned, finished = Disk(recorder), Disk(recorder)
        with planned.client, finished.client:
            finished.verb("run")
            for work, like, one in (("backup", planned, pull_backup), ("export", finished, pull_target)):
                first, last = one(like, None)
                # Evenly over the copying, the seed decides where it begins.
                step = max(1.0, (last - first + 1) / count)
                points = sorted({first + int(index * step + options.seed % 1000 / 1000 * step) for index in range(count)})
                points = [point for point in points if point <= last]
                if options.only:
                    points = [int(options.only.split(":")[1])] if options.only.startswith(work) else []
                with concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
                    for call, future in [(call, pool.submit(one, like, call)) for call in points]:
                        done += 1
                        try:
                            future.result()
                        except Exception:  # whatever a judge says
                            violations += 1
                            print(f"FAILED E7, {work}, call {call} of {last}:\n{traceback.format_exc()[-2500:]}\nagain: {sys.argv[0]} "
                                  f"--build {options.build} --seed {options.seed} --only {work}:{call}", flush=True)
                print(f"{work}: {len(points)} of the calls {first} to {last}", flush=True)
    return 1 if rows.tell("E7", "disk pulled in a backup, an export", done, violations, options.seed) else 0


if __name__ == "__main__":
    sys.exit(main())
