#!/usr/bin/env python3
"""Copies of files with a fault at every call: the process is killed, the call fails, carries fewer bytes, or the target's folder is
taken away and another put in its place. Whatever happens, a file under a final name is whole, a copy that was told as good is where it
was told to be, a failure names its cause and leaves nothing, sources and other people's files are what they were, and the next copy
into the folder clears what a kill left."""
import json
import os
import re
import subprocess
import sys
import tempfile

import faultlab
from disk_errors import CAUSES
from faultlab import Box

READING = "openread,read"
KERNEL, PROGRAM = (), ("--verify",)
SIZES = {"small.mp4": 700_001, "large.mp4": 3 * 1024 * 1024}
ROWS = {"kill": "E3", "failing call": "E6", "short call": "E5", "pulled disk": "E7"}
MANY_CALLS = {**SIZES, "large.mp4": 48 * 1024 * 1024}


class CopyBox(Box):
    """Two sources beside the disk, a target's folder on it with other people's files, and a second disk to take its place."""

    def __init__(self, sizes=None):
        super().__init__()
        self.pairs = {}
        self.sizes = sizes or SIZES
        for name, size in self.sizes.items():
            source = os.path.join(self.base, name)
            with open(source, "wb") as file:
                file.write(bytes(range(251)) * (size // 251) + bytes(size % 251))
            os.utime(source, ns=(10**18, 10**18 + 123_000_000))
            self.pairs[source] = os.path.join(self.folder, "day", name)
        self.other = os.path.join(self.base, "other")
        os.makedirs(self.other)

    def command(self, build, options):
        words = [os.path.join(build, "bin", "fault_copy"), *options, "--root", self.folder]
        for source, target in self.pairs.items():
            words += [source, target]
        return words

    def run(self, build, options, under=None, trace=False, **variables):
        environment = dict(os.environ)
        if trace or variables:
            environment.update(LD_PRELOAD=os.path.join(build, "lib", "libvemo_faults.so"), VEMO_FAULTS_ROOT=under or self.root)
            if trace:
                environment["VEMO_FAULTS_TRACE"] = self.trace
            environment.update({f"VEMO_FAULTS_{name.upper()}": str(value) for name, value in variables.items()})
        process = subprocess.Popen(self.command(build, options), env=environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        return faultlab.Lab.finish(process)

    def whole_problems(self, folder=None):
        """Each file under a final name is whole; sources and neighbours are untouched."""
        problems = self.neighbour_problems()
        for source, target in self.pairs.items():
            if os.path.getsize(source) != self.sizes[os.path.basename(source)]:
                problems.append(f"the source {source} was changed")
            path = os.path.join(folder, "day", os.path.basename(target)) if folder else target
            if os.path.lexists(path):
                problems += difference(source, path)
        return problems

    def rest_problems(self):
        return self.leftovers(self.pairs.values())


def difference(source, path):
    with open(source, "rb") as one, open(path, "rb") as two:
        if one.read() != two.read():
            return [f"{path} is not whole"]
    if os.stat(source).st_mtime_ns != os.stat(path).st_mtime_ns:
        return [f"{path} has another time"]
    return []


def report_of(done):
    if done.returncode != 0:
        return None, [f"exit {done.returncode}: {done.stderr.strip()[:500]}"]
    return json.loads(done.stdout), []


def judge_kill(build, options, variables):
    with CopyBox() as box:
        done = box.run(build, options, **variables)
        if not faultlab.killed(done):
            return [] if done.returncode == 0 else [f"exit {done.returncode}: {done.stderr.strip()[:500]}"]
        problems = box.whole_problems()
        torn = [entry for entry in box.rest_problems() if not re.search(r"/\.vemo-[0-9a-f]{16}\.part$", entry)]
        problems += torn
        again, said = report_of(box.run(build, options))
        problems += said + box.whole_problems() + box.rest_problems()
        if again is not None and len(again["copied"]) != len(box.pairs):
            problems.append(f"the next copy failed: {again['failed']}")
        return problems


def judge_failure(build, options, error, place, variables):
    ever = variables["fail"].endswith(":ever")
    with CopyBox() as box:
        report, problems = report_of(box.run(build, options, under=box.base if place == "source" else box.root, **variables))
        if report is None:
            return problems
        problems += box.whole_problems()
        for source, target in box.pairs.items():
            reason = report["failed"].get(source)
            if report["copied"].get(source) == target and os.path.exists(target):
                continue
            if reason is None:
                problems.append(f"{source} was told as good, but is not there")
            elif not re.search(CAUSES[error][1], reason):
                problems.append(f"the reason names no cause: {reason!r}")
            elif os.path.basename(source) not in reason and os.path.dirname(target) not in reason:
                problems.append(f"the reason names no path: {reason!r}")
            elif os.path.lexists(target) and not ever:
                problems.append(f"{target} was told as failed, but is there")
        # What cannot be removed while the disk refuses everything is whole, or goes with the next copy.
        if not ever:
            problems += box.rest_problems()
        again, said = report_of(box.run(build, options))
        return problems + said + box.whole_problems() + box.rest_problems() + \
            ([] if again is None or len(again["copied"]) == len(box.pairs) else [f"the next copy failed: {again['failed']}"])


def judge_short(build, options, variables):
    with CopyBox() as box:
        report, problems = report_of(box.run(build, options, **variables))
        if report is not None and len(report["copied"]) != len(box.pairs):
            problems.append(f"failed: {report['failed']}")
        return problems + box.whole_problems() + box.rest_problems()


def judge_swap(build, options, sizes, k, last_of_first):
    """The folder and another one change places before call k: the file in work, and those behind it, are not good."""
    with CopyBox(sizes) as box:
        foreign = os.path.join(box.other, "other.mp4")
        with open(foreign, "wb") as file:
            file.write(b"theirs")
        report, problems = report_of(box.run(build, options, swap=f"{k}:{box.folder}:{box.other}"))
        if report is None:
            return problems
        if os.path.exists(foreign) and os.path.getsize(foreign) == len(b"theirs"):
            # How many pieces the kernel copies a file in depends on its speed: this run was over before call k.
            return problems + box.whole_problems()
        first, second = box.pairs
        good = set(report["copied"])
        if second in good or (first in good and k <= last_of_first):
            problems.append(f"told as good: {sorted(report['copied'].values())}")
        # Where the folder is now; only a copy that was good before may stand there.
        for source in box.pairs:
            path = os.path.join(box.other, "day", os.path.basename(source))
            if os.path.lexists(path):
                problems += difference(source, path) if source in good else [f"{path} was left"]
        if sorted(os.listdir(box.folder)) != ["other.mp4"]:
            problems.append(f"the other disk now holds {os.listdir(box.folder)}")
        stray = [name for _, _, names in os.walk(box.other) for name in names if name.endswith(".part")]
        return problems + [f"left on the first disk: {name}" for name in stray]


def judge_full_disk(build):
    """Two programs that together want more than a disk of 8 MiB has: whoever fails says so and leaves nothing."""
    place = tempfile.mkdtemp(prefix="vemo-full-disk-")
    if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=8m,mode=0700", "vemo-test", place], capture_output=True).returncode != 0:
        os.rmdir(place)
        print("no file system of 8 MiB can be mounted here: left out")
        return []
    problems = []
    try:
        with tempfile.TemporaryDirectory() as base:
            source = os.path.join(base, "film.mp4")
            with open(source, "wb") as file:
                file.write(os.urandom(6 * 1024 * 1024))
            fault_copy = os.path.join(build, "bin", "fault_copy")
            runs = [subprocess.Popen([fault_copy, source, os.path.join(place, f"{number}.mp4")], stdout=subprocess.PIPE, text=True)
                    for number in range(2)]
            reports = [json.loads(run.communicate(timeout=60)[0]) for run in runs]
            told = [path for report in reports for path in report["copied"].values()]
            failed = [reason for report in reports for reason in report["failed"].values()]
            problems += [problem for path in told for problem in difference(source, path)]
            if not failed or not all(re.search(r"(?i)no space|not enough room", reason) for reason in failed):
                problems.append(f"failures on a full disk: {failed}")
            if sorted(os.listdir(place)) != sorted(os.path.basename(path) for path in told):
                problems.append(f"on the full disk are {os.listdir(place)}, told as good were {told}")
            print(f"full disk: {len(told)} copied, failed: {failed}")
    finally:
        subprocess.run(["umount", "-l", place], check=True)
        os.rmdir(place)
    return problems


def calls_of(build, options, sizes):
    """The calls of an undisturbed run, and the last one of the first file: the sync of its folder behind its rename."""
    with CopyBox(sizes) as box:
        _, said = report_of(box.run(build, options, trace=True))
        calls = box.calls()
    if said:
        raise RuntimeError(said)
    renamed = next(call[0] for call in calls if call[1] == "rename")
    return calls, next(call[0] for call in calls if call[0] > renamed and call[1] == "fsync")


def cases_of(build, arguments):
    """{title: (cases, judge)}: every call of both ways of copying, or a sample."""
    kills, failures, shorts, swaps = [], [], [], []
    for options in (KERNEL, PROGRAM):
        calls, _ = calls_of(build, options, SIZES)
        count = calls[-1][0]
        kills += [(options, {"kill": k}) for k in range(1, count + 1)]
        kills += [(options, {"short": f"{call[0]}:{call[5] // 2}:kill"}) for call in calls if call[1] in ("write", "copy_file_range")]
        shorts += [(options, {"short": f"{call[0]}:{size}"}) for call in calls if call[1] in ("write", "copy_file_range")
                   for size in (1, call[5] // 3)]
        sizes = MANY_CALLS if arguments.full else SIZES
        calls, last_of_first = calls_of(build, options, sizes)
        swaps += [(options, sizes, k, last_of_first) for k in range(1, calls[-1][0] + 1)]
        for error in CAUSES:
            for place, wanted in (("target", ""), ("source", READING)):
                if place == "source" and error not in ("EIO", "EACCES", "ENODEV"):
                    continue
                variables = {"ops": wanted} if wanted else {}
                with CopyBox() as box:
                    box.run(build, options, trace=True, under=box.base if place == "source" else box.root, **variables)
                    last = len(box.calls())
                failures += [(options, error, place, {**variables, "fail": f"{k}:{error}{tail}"})
                             for k in range(1, last + 1) for tail in ("", ":ever")]
    if not arguments.full:
        kills, failures, shorts, swaps = (
            [cases[index] for index in faultlab.sample(range(len(cases)), most, arguments.seed)]
            for cases, most in ((kills, 20), (failures, 40), (shorts, 6), (swaps, 20)))
    return {
        "kill": (kills, lambda case: judge_kill(build, *case)),
        "failing call": (failures, lambda case: judge_failure(build, *case)),
        "short call": (shorts, lambda case: judge_short(build, *case)),
        "pulled disk": (swaps, lambda case: judge_swap(build, *case)),
    }


def main():
    arguments = faultlab.parse(__doc__.splitlines()[0])
    build = os.path.realpath(arguments.build)
    matrix = faultlab.Matrix(arguments)
    code = 0
    for title, (cases, judge) in cases_of(build, arguments).items():
        matrix.run(title, cases, judge)
        code |= matrix.tell(ROWS[title], f"copies: {title}")
    matrix.run("full disk", [build], judge_full_disk)
    return code | matrix.tell("E5", "copies: two programs on a disk of 8 MiB")


if __name__ == "__main__":
    sys.exit(main())
