"""A client with a long past, at work on downloads and backups in one process, for faults to hit it again and again: what is looked at
after each of them, and what is demanded when all is done."""
import collections
import contextlib
import datetime
import glob
import hashlib
import json
import os
import re
import shutil
import sqlite3
import subprocess
import tempfile
import threading
import time

import media
import systemlab
from judges import DAY, PAUSED, SECOND, SUCCEEDED, WAITING, BackupJudge, DownloadJudge
from systemlab import Client

PAST_TASKS = 10_000
PAST_CHANNEL = 1
CHANNELS = [3, 4, 7, 8, 11, 12, 15, 16]
SPAN_S = 30
SPANS = 3
FIRST_SPAN = DAY + datetime.timedelta(hours=8, minutes=2)
BACKUP_CHANNELS = [3, 8]
SEGMENTS = ["08:15-08:15", "08:20-08:20", "08:46-08:46"]
RATE = 1_000_000
START_LIMIT_S = 2
SETTLED_LIMIT_S = 5
OVER_LIMIT_S = 120
GOP_FRAMES = 50
# What arrived in the last second may be lost; half a second more is for a processor that others use, and the claim's own age.
WINDOW_S = 1.5
OPEN = (WAITING, PAUSED)


class Driver:
    """module_driver at work in a world, and all it has told so far."""

    def __init__(self, world, *arguments, **changes):
        self.began = time.monotonic()
        world.program = systemlab.program("module_driver")
        self.process = world.start(*arguments, stdin=subprocess.PIPE, TZ="UTC", **changes)
        world.program = systemlab.program("vemo_client")
        self.changed = threading.Condition()
        self.ready_s = None      # since its start, and the same without the time in which others had the processors
        self.own_ready_s = None
        self.queue = None  # running, waiting, paused, retrying
        self.backups_over = False
        self.tasks = None  # the latest answer to "list": (task, state, whether it was paused after it had begun)
        self.tips = {}     # what rows said when they were opened
        self.told = []     # notices and alerts
        self.claims = []   # (monotonic seconds, {task: report})
        self.errors = ""
        self.disk_waits = collections.Counter()  # in what its threads were found waiting for the disk before it was ready
        self.threads = [threading.Thread(target=each) for each in (self.listen, self.collect, self.watch)]
        for thread in self.threads:
            thread.start()

    def listen(self):
        for line in self.process.stdout:
            with self.changed:
                if line.endswith("}\n"):
                    self.take(json.loads(line))
                self.changed.notify_all()

    def collect(self):
        self.errors = self.process.stderr.read()

    def watch(self):
        """Looks twenty times a second at what keeps the start."""
        while self.ready_s is None and self.process.poll() is None:
            for folder in glob.glob(f"/proc/{self.process.pid}/task/*"):
                name, stat, place, call = (self.told_by_system(folder, each) for each in ("comm", "stat", "wchan", "syscall"))
                if stat.rpartition(") ")[2].startswith("D"):
                    self.disk_waits[f"{name.strip()} in {place}, call {call.partition(' ')[0]}"] += 1
            time.sleep(0.05)

    @staticmethod
    def told_by_system(folder, name):
        with contextlib.suppress(OSError), open(os.path.join(folder, name), encoding="utf-8") as file:
            return file.read()
        return ""

    def take(self, told):
        if "ready" in told:
            self.ready_s = time.monotonic() - self.began
            self.own_ready_s = max(0, self.ready_s - self.kept_waiting_s())
        self.queue = told.get("queue", self.queue)
        self.tasks = told.get("tasks", self.tasks)
        if "tip" in told:
            self.tips[told["task"]] = told["tip"]
        self.backups_over = self.backups_over or told.get("backup") == "over"
        if "claims" in told:
            self.claims.append((time.monotonic(), {each["task"]: each for each in told["claims"]}))
        self.told += [told] if {"notice", "alert", "outcome"} & set(told) else []

    def kept_waiting_s(self):
        """How long others kept the processors from its threads, of which one waits for the other."""
        told = [self.told_by_system(folder, "schedstat").split() for folder in glob.glob(f"/proc/{self.process.pid}/task/*")]
        return sum(int(each[1]) for each in told if each) / 1e9

    def wait(self, condition, timeout_s):
        """Whether it came true before the process' end and in time."""
        until = time.monotonic() + timeout_s
        with self.changed:
            while not condition():
                self.changed.wait(0.1)
                if time.monotonic() > until or self.process.poll() is not None:
                    return condition()
        return True

    def say(self, *words):
        self.process.stdin.write(" ".join(map(str, words)) + "\n")
        self.process.stdin.flush()

    def end(self, kill=True, timeout_s=10):
        """Ends it; the exit code."""
        with contextlib.suppress(OSError):
            if kill:
                self.process.kill()
            else:
                self.say("quit")
        try:
            self.process.wait(timeout_s)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()
            self.told.append({"notice": f"still there {timeout_s} s after it was told to quit"})
        for thread in self.threads:
            thread.join()
        for pipe in (self.process.stdin, self.process.stdout, self.process.stderr):
            with contextlib.suppress(OSError):
                pipe.close()
        return self.process.returncode

    def __str__(self):
        return f"told {self.told[-5:]}, queue {self.queue}, stderr {self.errors[-600:]!r}"


class Past:
    """A data folder that knows the recorder and 10,000 downloads of other days, to be copied into worlds."""

    def __init__(self, recorder):
        self.recorder = recorder
        self.client = Client()
        run = self.client.run("queue", "add", "--device", recorder.addresses["onvif"], "--user", systemlab.USER, "--channel", PAST_CHANNEL,
                              "--begin", systemlab.iso(DAY), "--end", systemlab.iso(DAY + SECOND))
        if run.code != systemlab.DONE:
            raise RuntimeError(f"the recorder could not be stored: {run}")
        self.folder = os.path.join(self.client.folder, "data")
        self.fill()
        # A start after a kill finds the program in memory.
        driver = Driver(self.client)
        driver.wait(lambda: driver.ready_s is not None, OVER_LIMIT_S)
        driver.end(kill=False)

    def fill(self):
        with contextlib.closing(sqlite3.connect(os.path.join(self.folder, "data", "vemo.db"))) as store:
            names = [row[1] for row in store.execute("PRAGMA table_info(download_tasks)") if row[1] != "seq"]
            first = dict(zip(names, store.execute(f"SELECT {', '.join(names)} FROM download_tasks").fetchone()))
            store.execute("DELETE FROM download_tasks")
            path = os.path.join(self.client.folder, "old.mp4")
            with open(path, "wb") as file:
                file.write(bytes(4096))
            rows = []
            for number in range(PAST_TASKS):
                # Of a hundred tasks ninety succeeded, eight failed, two are paused.
                state = SUCCEEDED if number % 100 < 90 else 4 + number % 5 if number % 100 < 98 else PAUSED
                row = {**first, "task_id": f"{{old-{number}}}", "state": state, "save_path": path if state != PAUSED else f"old-{number}.mp4",
                       "downloaded_bytes": 4096, "begin_utc_ms": first["begin_utc_ms"] - (number + 1) * 600_000,
                       "end_utc_ms": first["begin_utc_ms"] - number * 600_000, "request_key": None}
                rows.append(tuple(row[name] for name in names))
            store.executemany(f"INSERT INTO download_tasks ({', '.join(names)}) VALUES ({', '.join('?' * len(names))})", rows)
            store.commit()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.client.__exit__()


class World(DownloadJudge, BackupJudge):
    """One data folder with that past, downloads and backups to be fetched, and neighbours' files. Not a test of its own: its
    checks raise."""

    def __init__(self, past, chance):
        super().__init__()
        self.recorder, self.chance = past.recorder, chance
        self.client = Client()
        shutil.copytree(past.folder, os.path.join(self.client.folder, "data"), dirs_exist_ok=True)
        self.videos = os.path.join(self.client.folder, "home", "Videos", "Vemo")
        self.store_path = os.path.join(self.client.folder, "data", "data", "vemo.db")
        self.neighbours, self.whole, self.starts_s, self.history, self.late_starts, self.is_kept = {}, {}, [], [], [], False
        for name in ("Downloads/theirs.mp4", "Downloads/notes.txt", "Backup/theirs.bin"):
            content = hashlib.sha256(name.encode()).digest() * 100
            path = os.path.join(self.videos, name)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "wb") as file:
                file.write(content)
            self.neighbours[path] = content
        self.requests = [(channel, FIRST_SPAN + number * 60 * SECOND, FIRST_SPAN + (number * 60 + SPAN_S) * SECOND)
                         for number in range(SPANS) for channel in CHANNELS]
        self.plan()
        self.past = self.look_at_store()[1]
        self.recorder.ask("/fault", method="POST", name="rate", value=RATE)

    def runTest(self):
        """unittest wants one."""

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.recorder.ask("/reset", method="POST")
        if self.is_kept:
            print(f"kept: {self.client.folder}", flush=True)
        else:
            self.client.__exit__()

    def plan(self):
        login = ("--device", self.recorder.addresses["onvif"], "--user", systemlab.USER)
        for _, begin, end in self.requests[::len(CHANNELS)]:
            self.verb("queue", "add", *login, "--channel", ",".join(map(str, CHANNELS)), "--begin", systemlab.iso(begin), "--end",
                      systemlab.iso(end))
        self.verb("backup", "add", *login, "--channels", ",".join(map(str, BACKUP_CHANNELS)), "--date", f"{DAY:%Y-%m-%d}", "--segments",
                  ",".join(SEGMENTS))

    def verb(self, *arguments):
        run = self.client.run(*arguments)
        self.assertEqual(run.code, systemlab.DONE, run)
        return run

    def note_start(self, driver):
        self.starts_s.append((driver.own_ready_s, driver.ready_s))
        if driver.own_ready_s > START_LIMIT_S:
            self.late_starts.append(f"{driver.own_ready_s:.2f} s ({driver.ready_s:.2f} with others), found waiting for the disk: "
                                    f"{dict(driver.disk_waits.most_common(6))}")

    # What is looked at after each fault.

    def look_at_store(self):
        """(this world's tasks, a sum of the past's rows) out of a copy of the store, which is whole."""
        with tempfile.TemporaryDirectory() as folder:
            for ending in ("", "-wal"):
                with contextlib.suppress(FileNotFoundError):
                    shutil.copy(self.store_path + ending, folder)
            with contextlib.closing(sqlite3.connect(os.path.join(folder, "vemo.db"))) as store:
                self.assertEqual(store.execute("PRAGMA integrity_check").fetchall(), [("ok",)], "the store is damaged")
                names = "task_id, state, channel_no, begin_utc_ms, end_utc_ms, save_path, downloaded_bytes"
                query = f"SELECT {names} FROM download_tasks WHERE channel_no {{}} ? ORDER BY seq"
                rows = store.execute(query.format("!="), (PAST_CHANNEL,)).fetchall()
                past = hashlib.sha256(repr(store.execute(query.format("="), (PAST_CHANNEL,)).fetchall()).encode()).hexdigest()
                backups = store.execute("SELECT file_path FROM backup_files WHERE finished = 1 AND file_path != ''").fetchall()
        self.backup_paths = [path for path, in backups]
        return [self.task(row) for row in rows], past

    @staticmethod
    def task(row):
        def moment(ms):
            return (datetime.datetime.fromtimestamp(0, datetime.timezone.utc) + datetime.timedelta(milliseconds=ms)).isoformat()

        return {"id": row[0], "state": row[1], "channel": row[2], "begin": moment(row[3]), "end": moment(row[4]), "path": row[5],
                "bytes": row[6]}

    def pieces(self, tasks, request):
        channel, begin, end = request
        return [task for task in tasks if task["channel"] == channel and begin <= systemlab.parse_time(task["begin"]) < end]

    def look(self):
        """Cheap, and after every fault: the store is whole, what was asked for is still covered exactly once, nothing is claimed
        that is not on the disk, and what was whole is still the same file."""
        tasks, past = self.look_at_store()
        self.assertEqual(past, self.past, "rows of other tasks were changed")
        for request in self.requests:
            at = request[1]
            for task in sorted(self.pieces(tasks, request), key=lambda task: task["begin"]):
                self.assertEqual(systemlab.parse_time(task["begin"]), at, f"{request} is not covered exactly once: {tasks}")
                at = systemlab.parse_time(task["end"])
            self.assertEqual(at, request[2], f"{request} is not covered to its end: {tasks}")
        for task in tasks:
            # Each failed state has words of its own, so that none is without a reason.
            self.assertIn(task["state"], (*OPEN, SUCCEEDED, 4, 5, 6, 8), f"nobody runs it: {task}")
            if task["state"] == SUCCEEDED:
                self.assertTrue(os.path.isfile(task["path"]), f"finished, but not there: {task}")
                self.assertEqual(os.path.getsize(task["path"]), task["bytes"], task)
        done = [task["path"] for task in tasks if task["state"] == SUCCEEDED] + self.backup_paths
        self.assertEqual(len(set(done)), len(done), "two records share a file")
        for path in done:
            self.assertTrue(os.path.isfile(path), f"{path} is listed as finished, but not there")
            status = os.stat(path)
            self.assertEqual(self.whole.setdefault(path, (status.st_ino, status.st_size)), (status.st_ino, status.st_size),
                             f"{path} was whole and was touched")
        lost = [path for path in self.whole if not os.path.exists(path)]
        self.assertEqual(lost, [], "a finished file is gone")
        return tasks

    def look_at_wreck(self, driver):
        """N1 to N3 for one file that was being written when the process died, as it lies there."""
        died = time.monotonic()
        if not driver.claims:
            return
        latest = driver.claims[-1][1]
        running = [each for each in latest.values() if each["event"] == 0 and each["frames"] > 0 and os.path.exists(each["path"])]
        for claim in running:
            self.assertLessEqual(claim["bytes"], os.path.getsize(claim["path"]), f"more is claimed than is there: {claim}")
        if not running:
            return
        claim = self.chance.choice(sorted(running, key=lambda each: each["path"]))
        request = next((each for each in self.spans() if self.is_within(claim, each)), None)
        self.assertIsNotNone(request, f"nobody asked for that: {claim}")
        sent = [md5 for _, md5 in self.recorder.samples(request[0], request[1] - 4 * SECOND, request[2] + 4 * SECOND)[0]]
        got = media.samples(claim["path"]).get(0, [])
        if got:
            self.assertIsNotNone(self.position(got, sent), f"{claim['path']}: no unbroken part of what was sent")
        owed = max((reports[claim["task"]]["frames"] for when, reports in driver.claims
                    if when < died - WINDOW_S and claim["task"] in reports and reports[claim["task"]]["path"] == claim["path"]), default=0)
        self.assertGreaterEqual(len(got), owed - GOP_FRAMES, f"{claim['path']} lost more than the last second and a fragment: {claim}")

    def spans(self):
        """(channel, begin, end) of all downloads and backups."""
        day = [tuple(DAY + datetime.timedelta(hours=int(clock[:2]), minutes=int(clock[3:])) for clock in each.split("-"))
               for each in SEGMENTS]
        return self.requests + [(channel, begin, end + 60 * SECOND) for channel in BACKUP_CHANNELS for begin, end in day]

    def is_within(self, claim, request):
        """A claim names no channel, but the files' names tell it."""
        begin = systemlab.parse_time(claim["asked_begin"])
        return request[1] <= begin < request[2] and re.search(rf"_{request[0]}[@/]", claim["path"]) is not None

    # The end: everything is fetched, and all is judged.

    def finish(self):
        self.recorder.ask("/reset", method="POST")
        driver = Driver(self.client, "--backup")
        try:
            self.assertTrue(driver.wait(lambda: driver.ready_s is not None, OVER_LIMIT_S), f"it does not start: {driver}")
            self.note_start(driver)
            self.settle(driver)
        finally:
            code = driver.end(kill=False)
        self.assertEqual(code, 0, driver)
        self.judge()

    def settle(self, driver):
        """To the end of all downloads and backups; whatever failed or was paused is started again, as a person would."""
        until = time.monotonic() + OVER_LIMIT_S
        was_idle = False
        while True:
            driver.tasks = None
            driver.say("list")
            self.assertTrue(driver.wait(lambda: driver.tasks is not None, 30), f"no answer: {driver}")
            own = [(task, state) for task, state, _ in driver.tasks if not task.startswith("{old-")]
            still_open = [task for task, state in own if state != SUCCEEDED]
            # Twice in a row, because the queue may have become empty since the answer.
            is_idle = any(state == WAITING for _, state in own) and not driver.queue[0] + driver.queue[3]
            if time.monotonic() - driver.began > SETTLED_LIMIT_S:
                self.assertFalse(is_idle and was_idle, f"tasks wait, and nobody runs them: {own} {driver}")
                was_idle = is_idle
            if not still_open and driver.backups_over:
                return
            self.assertLess(time.monotonic(), until, f"not over: {still_open} {driver}")
            for task, state in own:
                if state not in (WAITING, SUCCEEDED):
                    driver.say("resume" if state == PAUSED else "redownload", task)
            if driver.backups_over and any(told.get("outcome") not in (None, 1) for told in driver.told):
                driver.told, driver.backups_over = [], False
                driver.say("backup", "start")
            driver.wait(lambda: not any(driver.queue[:2]) and driver.backups_over, 1)

    def judge(self):
        tasks = self.look()
        for request in self.requests:
            self.check_download(self.pieces(tasks, request), *request)
        backups = [json.loads(line) for line in self.verb("backup", "list", "--json").out.splitlines()]
        self.assertEqual(len(backups), len(BACKUP_CHANNELS), backups)
        for task in backups:
            # Sound that waited for its encoder goes with the process.
            self.check_backup(task, SEGMENTS, tracks=(0,))
        for path, content in self.neighbours.items():
            with open(path, "rb") as file:
                self.assertEqual(file.read(), content, f"{path} was changed")
        known = {task["path"] for task in tasks} | set(self.neighbours) | {each["path"] for task in backups for each in task["files"]}
        left = [os.path.join(folder, name) for folder, _, names in os.walk(self.videos) for name in names
                if os.path.join(folder, name) not in known and name not in ("SHA256SUMS", "manifest.json", ".vemo-backup")]
        self.assertEqual(left, [], "files that nobody knows")
        temp = os.path.join(self.client.folder, "data", "data", "temp")
        self.assertEqual(os.listdir(temp) if os.path.isdir(temp) else [], [], "journals were left")
