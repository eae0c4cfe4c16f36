#!/usr/bin/env python3
"""People change files behind the client's back (row E14): what a record names is renamed, deleted, replaced, a link, a folder. Nothing
of it is overwritten or followed, what is missing is told, everything else goes on, and what can be done about it works."""
import hashlib
import os
import shutil
import subprocess
import sys
import unittest

import rows
import systemlab
from judges import DAY, SECOND, SUCCEEDED, BackupJudge, DownloadJudge
from systemlab import Client, Recorder
from worldlab import Driver

CHANNELS = [3, 4, 7, 8, 11, 12, 15, 16, 19, 20]
BEGIN = DAY + 8 * 3600 * SECOND
SEGMENT = "08:15-08:15"
OTHER = b"somebody else's bytes" * 500


def write(path, content):
    with open(path, "wb") as file:
        file.write(content)


def move(path):
    os.rename(path, path + ".moved")


def put(path, make):
    if os.path.lexists(path):
        os.unlink(path)
    make(path)


# What people do to a file; each is one case a place.
DEEDS = {
    "deleted": os.unlink,
    "renamed": move,
    "other content": lambda path: put(path, lambda it: write(it, OTHER)),
    "cut off": lambda path: os.truncate(path, os.path.getsize(path) // 2),
    "emptied": lambda path: os.truncate(path, 0),
    "a folder": lambda path: put(path, os.mkdir),
    "a link": lambda path: put(path, lambda it: os.symlink(Place.foreign, it)),
    "a link to nothing": lambda path: put(path, lambda it: os.symlink(it + ".nothing", it)),
    "a pipe": lambda path: put(path, os.mkfifo),
    "read-only": lambda path: os.chmod(path, 0o400),
}
NEEDS_NO_FILE = ("other content", "a folder", "a link", "a link to nothing", "a pipe")
MISSING = ("deleted", "renamed", "a link to nothing")


def look(path):
    """What stands at the path; equal when nobody touched it."""
    if os.path.islink(path):
        return "link", os.readlink(path)
    if not os.path.lexists(path):
        return ("nothing",)
    if os.path.isfile(path):
        with open(path, "rb") as file:
            return "file", hashlib.sha256(file.read()).hexdigest(), os.stat(path).st_mode
    return "other", os.stat(path).st_mode, os.listdir(path) if os.path.isdir(path) else None


class Place(DownloadJudge, BackupJudge):
    cases = 0
    foreign = ""

    @classmethod
    def setUpClass(cls):
        cls.recorder = Recorder("--channels", "20")
        cls.addClassCleanup(cls.recorder.stop)
        cls.login = ("--device", cls.recorder.addresses["onvif"], "--user", systemlab.USER)

    def setUp(self):
        self.client = self.enterContext(Client())
        self.client.changes["TZ"] = "UTC"
        Place.foreign = os.path.join(self.client.folder, "foreign.mp4")
        write(Place.foreign, OTHER)

    def verb(self, *arguments, codes=(systemlab.DONE,)):
        run = self.client.run(*arguments, timeout=90)
        self.assertIn(run.code, codes, run)
        return run

    @staticmethod
    def each(deeds):
        """The deeds, each a case."""
        for name in deeds:
            Place.cases += 1
            yield name

    def do(self, paths):
        """Does one deed to each file; what stands there then, by the deed."""
        self.assertEqual(len(set(paths.values())), len(paths), paths)
        for name, path in paths.items():
            os.makedirs(os.path.dirname(path), exist_ok=True)
            DEEDS[name](path)
        return {name: look(path) for name, path in paths.items()}

    def untouched(self, name, path, before):
        self.assertEqual(look(path), before[name], f"{name}: {path} was touched")
        with open(Place.foreign, "rb") as file:
            self.assertEqual(file.read(), OTHER, "what a link names was touched")

    def queue(self, seconds):
        self.verb("queue", "add", *self.login, "--channel", ",".join(map(str, CHANNELS)), "--begin", systemlab.iso(BEGIN), "--end",
                  systemlab.iso(BEGIN + seconds * SECOND))

    def tasks(self):
        return self.verb("queue", "list", "--json").lines

    def test_files_of_finished_downloads(self):
        self.queue(4)
        self.verb("queue", "run")
        tasks = dict(zip(DEEDS, self.tasks()))
        before = self.do({name: task["path"] for name, task in tasks.items()})
        self.assertEqual([task["id"] for task in self.tasks()], [task["id"] for task in tasks.values()])
        tips = self.open_all(tasks)
        self.queue(4)
        self.verb("queue", "run")
        fresh = {task["channel"]: task for task in self.tasks()[len(tasks):]}
        for name in self.each(DEEDS):
            task = tasks[name]
            if name not in MISSING or name == "a link to nothing":
                self.untouched(name, task["path"], before)
            if name in MISSING:
                self.assertRegex(tips[task["id"]], "not exist", f"{name}: the row says nothing")
            self.check_download([fresh[task["channel"]]], task["channel"], BEGIN, BEGIN + 4 * SECOND)

    def open_all(self, tasks):
        """What the rows of missing files say when they are opened."""
        driver = Driver(self.client)
        try:
            driver.wait(lambda: driver.ready_s is not None, 20)
            for name in MISSING:
                driver.say("open", tasks[name]["id"])
            driver.wait(lambda: len(driver.tips) == len(MISSING), 20)
        finally:
            driver.end(kill=False)
        return driver.tips

    def test_names_that_are_taken_before_a_download(self):
        self.queue(4)
        tasks = dict(zip(NEEDS_NO_FILE, self.tasks()))
        before = self.do({name: task["path"] for name, task in tasks.items()})
        self.verb("queue", "run")
        after = {task["id"]: task for task in self.tasks()}
        for name in self.each(NEEDS_NO_FILE):
            self.untouched(name, tasks[name]["path"], before)
            self.check_download([after[tasks[name]["id"]]], tasks[name]["channel"], BEGIN, BEGIN + 4 * SECOND)

    def test_the_folder_of_the_downloads_is_gone(self):
        self.queue(4)
        self.verb("queue", "run")
        shutil.rmtree(os.path.dirname(self.tasks()[0]["path"]))
        for _ in self.each(["folder gone"]):
            self.queue(5)
            self.verb("queue", "run")
            for task in self.tasks()[len(CHANNELS):]:
                self.check_success(task, playable=False)

    def test_files_of_backups(self):
        self.verb("backup", "add", *self.login, "--channels", ",".join(map(str, CHANNELS)), "--date", f"{DAY:%Y-%m-%d}", "--segments", SEGMENT)
        self.verb("backup", "run")
        paths = dict(zip(DEEDS, (task["files"][0]["path"] for task in self.verb("backup", "list", "--json").lines)))
        whole = {name: look(path)[1] for name, path in paths.items()}
        before = self.do(paths)
        self.verb("backup", "run", codes=(systemlab.DONE, systemlab.INCOMPLETE))
        target = os.path.join(self.client.folder, "target")
        os.mkdir(target)
        run = self.verb("backup", "export", "--date", f"{DAY:%Y-%m-%d}", "--to", target, codes=(systemlab.DONE, systemlab.INCOMPLETE))
        copies = {look(os.path.join(folder, name))[1] for folder, _, names in os.walk(target) for name in names if name.endswith(".mp4")}
        for name in self.each(DEEDS):
            self.untouched(name, paths[name], before)
            if name == "read-only":
                self.assertIn(whole[name], copies)
            elif name in ("other content", "cut off", "a link"):  # what is no file or an empty one is not counted
                self.assertIn(f"Failed to export file:{paths[name]}", run.err, name)
        self.assertIn("success count:1,", run.err, "something was exported as good that is not what was backed up")

    def local(self, kind, suffix, *options):
        folder = os.path.join(self.client.folder, "local")
        os.mkdir(folder)
        paths = {name: os.path.join(folder, f"{index}{suffix}") for index, name in enumerate(DEEDS)}
        first = os.path.join(self.client.folder, "one" + suffix)
        subprocess.run(["ffmpeg", "-y", "-v", "error", "-f", "lavfi", "-i", "testsrc=size=64x48:rate=10:duration=3", *options, first],
                       check=True, timeout=60)
        for path in paths.values():
            shutil.copy(first, path)
        rescan = ("local", kind, "rescan", "--dir", folder)
        self.verb(*rescan)
        before = self.do(paths)
        self.verb(*rescan)
        listed = {each["path"]: each for each in self.verb("local", kind, "list", "--json").lines}
        saved = os.path.join(self.client.folder, "saved")
        os.mkdir(saved)
        self.verb("local", kind, "save-as", "--all", "--to", saved, codes=(systemlab.DONE, systemlab.INCOMPLETE))
        self.verb("local", kind, "delete", "--all", "--yes", codes=(systemlab.DONE, systemlab.INCOMPLETE))
        for name in self.each(DEEDS):
            path = paths[name]
            if name in ("a folder", "a link", "a link to nothing", "a pipe"):
                self.untouched(name, path, before)
            if name == "renamed":
                self.assertNotIn(path, listed)
            elif name == "read-only":
                self.assertTrue(listed[path]["ok"], listed[path])
            elif name in ("other content", "emptied"):
                self.assertFalse(listed[path]["ok"], f"{name}: {listed[path]}")
                self.assertRegex(listed[path]["problem"], r"^\S.{8,}", name)
            elif name != "cut off":
                self.assertNotIn(path, listed, name)

    def test_local_recordings(self):
        self.local("recordings", ".mp4", "-c:v", "libx264", "-movflags", "+faststart")

    def test_snapshots(self):
        self.local("snapshots", ".jpg", "-frames:v", "1")


if __name__ == "__main__":
    rest = systemlab.parse()
    print(f"seed {systemlab.OPTIONS.seed}", file=sys.stderr)
    outcome = unittest.main(module="__main__", argv=[sys.argv[0], *rest], verbosity=2, exit=False).result
    violations = len(outcome.failures) + len(outcome.errors)
    rows.tell("E14", "files changed by people", Place.cases, violations, "-")
    sys.exit(1 if violations else 0)
