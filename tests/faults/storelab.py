"""What the fault matrices of the store share: runs of fault_store under the preload library, the states that the store may be in
after each of its steps, and the judgement of what a new start makes of it. The last word on a database has the stock library."""
import json
import os
import shutil
import sqlite3
import subprocess
import tempfile

import checker

# So many that the write-ahead log is brought into the database in the middle of a run.
STEPS = 120
RUN_TIMEOUT_S = 120


class Store:
    """A data folder with a store of tasks, and the record of what was done to it."""

    def __init__(self, build, place=None):
        self.build = build
        self.base = tempfile.mkdtemp(prefix="vemo-faults-store-", dir=place)
        self.root = os.path.join(self.base, "disk")
        self.data = os.path.join(self.root, "client")
        self.log = os.path.join(self.base, "log")
        self.trace = os.path.join(self.base, "trace")
        self.call_log = os.path.join(self.base, "calls")
        os.makedirs(self.data)
        with open(os.path.join(self.data, "letter.txt"), "w", encoding="utf-8") as file:
            file.write("theirs")
        self.surroundings = checker.Surroundings(self.root)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.base, ignore_errors=True)

    def work(self, seed, steps=STEPS, trace=False, log=False, environment=None, **variables):
        """`variables` go to the preload library as VEMO_FAULTS_<NAME>; with `environment` another one is at work."""
        environment = {**os.environ, **(environment or {"LD_PRELOAD": os.path.join(self.build, "lib", "libvemo_faults.so"),
                                                        "VEMO_FAULTS_ROOT": self.root})}
        if trace:
            environment["VEMO_FAULTS_TRACE"] = self.trace
        if log:
            environment["VEMO_FAULTS_LOG"] = self.call_log
        environment.update({f"VEMO_FAULTS_{name.upper()}": str(value) for name, value in variables.items()})
        command = [os.path.join(self.build, "bin", "fault_store"), "work", self.data, self.log, str(steps), str(seed)]
        return subprocess.run(command, env=environment, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              timeout=RUN_TIMEOUT_S)

    def lines(self):
        if not os.path.exists(self.log):
            return []
        with open(self.log, encoding="utf-8") as file:
            return [json.loads(line) for line in file if line.endswith("\n")]

    def calls(self):
        with open(self.trace, encoding="utf-8") as file:
            return [line.rstrip("\n").split("\t") for line in file]


def applied(state, line):
    after = {name: value for name, value in state.items() if name not in line["gone"]}
    after.update(line["put"])
    return after


def states(lines):
    """[{task: value}] before the first step and after each one."""
    found = [{}]
    for line in lines:
        if "put" in line:
            found.append(applied(found[-1], line))
    return found


def reopen(build, folders):
    """What the program says of these stores: one answer each, {"tasks", "readable", "notice"}."""
    done = subprocess.run([os.path.join(build, "bin", "fault_store"), "list", *folders], stdin=subprocess.DEVNULL, capture_output=True,
                          text=True, timeout=RUN_TIMEOUT_S)
    answers = [json.loads(line) for line in done.stdout.splitlines()]
    if done.returncode != 0 or len(answers) != len(folders):
        return [{"tasks": {}, "readable": False, "notice": f"exit {done.returncode}: {done.stderr.strip()[-500:]}"}] * len(folders)
    return answers


def file_problems(folder):
    """The database as the stock library sees it after the program has opened it, and what lies beside it."""
    place = os.path.join(folder, "data")
    problems = [f"left behind: {name}" for name in sorted(os.listdir(place)) if name != "vemo.db"]
    with sqlite3.connect(os.path.join(place, "vemo.db")) as store:
        for question in ("PRAGMA integrity_check", "PRAGMA foreign_key_check"):
            rows = [row[0] for row in store.execute(question)]
            if rows not in ([], ["ok"]):
                problems.append(f"{question}: {rows[:3]}")
    store.close()
    return problems


def answer_problems(answer):
    problems = [] if answer["readable"] else ["the store cannot be used"]
    return problems + ([f"told: {answer['notice']}"] if answer["notice"] else [])


def allowed(lines):
    """{task: the values that it may have}: the last one announced, or one that was asked for since; None is "not there"."""
    # One write of a step may fail alone: then the notice stands beside the announcement of the others.
    told = {line["step"] for line in lines if line.get("told") and not line["notices"]}
    values = {}
    for line in lines:
        if "put" not in line:
            continue
        changes = {**line["put"], **dict.fromkeys(line["gone"])}
        for task, value in changes.items():
            values[task] = [value] if line["step"] in told else values.get(task, [None]) + [value]
    return values


def judge_after(build, store, lines):
    """What a start on a well disk makes of it."""
    answer, = reopen(build, [store.data])
    problems = answer_problems(answer) + file_problems(store.data) + store.surroundings.neighbour_problems()
    values = allowed(lines)
    problems += [f"{task} is {answer['tasks'].get(task)} instead of one of {each}" for task, each in values.items()
                 if answer["tasks"].get(task) not in each]
    return problems + [f"{task} comes from nowhere" for task in answer["tasks"] if task not in values]
