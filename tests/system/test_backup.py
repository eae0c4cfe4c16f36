#!/usr/bin/env python3
"""Planned backups, worked off without a window. What has to be in the files is computed here from the recorder's own list; the files
are judged by ffmpeg, the manifests by sha256sum."""
import ctypes
import datetime
import json
import os
import random
import signal
import struct
import subprocess
import sys
import time
import unittest

import media
import rows
import systemlab
from judges import DAY, PICTURE_S, BackupJudge, common, seconds
from systemlab import Client, Recorder

SECOND = datetime.timedelta(seconds=1)
# Ends take their minute in. Whole; around an alarm; across two gaps; a gap of its own; a gap in the middle.
SEGMENTS = ["02:00-02:00", "08:15-08:15", "08:29-08:30", "04:01-04:02", "20:00-20:02"]
CHANNELS = [1, 2, 3, 4]


class Backup(BackupJudge):
    @classmethod
    def setUpClass(cls):
        cls.recorder = Recorder("--channels", "8")
        cls.addClassCleanup(cls.recorder.stop)
        cls.device = cls.recorder.addresses["onvif"]

    def setUp(self):
        self.client = Client()
        self.addCleanup(self.client.__exit__)
        self.recorder.ask("/reset", method="POST")

    def fault(self, name, value, **query):
        self.recorder.ask("/fault", method="POST", name=name, value=value, **query)

    def backup(self, *arguments, code=systemlab.DONE, timeout=120, **others):
        run = self.client.run("backup", *arguments, timeout=timeout, **others)
        if code is not None:
            self.assertEqual(run.code, code, run)
        self.assertEqual(self.client.secret_places(run), [], f"the password stands where it must not: {run}")
        return run

    def add(self, channels, segments, date=DAY, *options):
        return self.backup("add", "--device", self.device, "--user", systemlab.USER, "--channels", ",".join(map(str, channels)),
                           "--date", date.strftime("%Y-%m-%d"), "--segments", ",".join(segments), "--json", *options).lines

    def listing(self, *options):
        return self.backup("list", "--json", *options).lines

    def test_a_day_of_four_channels(self):
        self.add(CHANNELS, SEGMENTS)
        self.assertEqual(self.add(CHANNELS, SEGMENTS), [], "the same plan was added twice")
        self.assertEqual({task["state"] for task in self.listing()}, {"open"})
        over = self.backup("run", "--json").lines
        self.assertEqual([task["outcome"] for task in over], ["finished"] * len(CHANNELS))
        tasks = self.listing()
        self.assertEqual([task["channel"] for task in tasks], CHANNELS)
        for task in tasks:
            self.check_backup(task, SEGMENTS)
        plays = json.loads(self.recorder.ask("/stats"))["plays"]
        self.backup("run")
        self.assertEqual(json.loads(self.recorder.ask("/stats"))["plays"], plays, "something was fetched again")
        self.check_export(tasks)

    def check_export(self, tasks):
        target = os.path.join(self.client.folder, "target")
        os.mkdir(target)
        run = self.backup("export", "--date", "2026-01-10", "--channels", "3,4", "--to", target)
        paths = [each["path"] for task in tasks if task["channel"] in (3, 4) for each in task["files"] if each["path"]]
        self.assertIn(f"files total count:{len(paths)}, success count:{len(paths)}, failure count:0", run.err)
        exported = [os.path.join(folder, name) for folder, _, names in os.walk(target) for name in names if name.endswith(".mp4")]
        self.assertEqual(sorted(map(os.path.basename, exported)), sorted(map(os.path.basename, paths)))
        self.check_manifests(exported)

    def test_missed_days_come_first_and_days_to_come_wait(self):
        today = datetime.datetime.now(datetime.timezone.utc)
        self.add([3], ["02:00-02:00"])
        self.add([3], ["02:00-02:00"], today + datetime.timedelta(days=1))
        self.add([3], ["03:00-03:00"], DAY - datetime.timedelta(days=1))
        over = self.backup("run", "--json").lines
        self.assertEqual([(task["date"], task["outcome"]) for task in over], [("2026-01-09", "empty"), ("2026-01-10", "finished")])
        tomorrow = self.backup("run", "--json", "--date", (today + datetime.timedelta(days=1)).strftime("%Y-%m-%d")).lines
        self.assertIn(tomorrow[0]["outcome"], ("empty", "ahead"), tomorrow)

    def test_stopped_in_the_middle(self):
        for how in ("stop", "interrupt"):
            segments = ["02:00-02:02"] if how == "stop" else ["03:00-03:02"]
            task = self.add([1], segments)[0]
            self.fault("rate", 6_000_000)
            run = self.client.start("backup", "run")
            self.wait_for_bytes()
            if how == "stop":
                self.backup("stop")
            else:
                systemlab.interrupt(run)
            ended = self.client.finish(run)
            self.assertEqual(ended.code, systemlab.INCOMPLETE if how == "stop" else systemlab.INTERRUPTED, ended)
            self.recorder.ask("/reset", method="POST")
            left = next(each for each in self.listing() if each["id"] == task["id"])
            self.assertEqual(left["state"], "partial", left)
            self.assertTrue(0 < left["safe"] < left["held"], left)
            self.backup("run")
            self.check_backup(next(each for each in self.listing() if each["id"] == task["id"]), segments)
        self.backup("stop", code=systemlab.FAILED)

    def wait_for_bytes(self, count=3_000_000, timeout_s=30):
        until = time.monotonic() + timeout_s
        first = json.loads(self.recorder.ask("/stats"))["streamBytes"]
        while json.loads(self.recorder.ask("/stats"))["streamBytes"] < first + count:
            self.assertLess(time.monotonic(), until, "nothing is fetched")
            time.sleep(0.02)

    def test_killed_at_random_moments(self):
        """However often it is killed: in the end the same cover, and nothing that was whole is fetched again."""
        chance = random.Random(systemlab.OPTIONS.seed)
        self.kill(100 if systemlab.OPTIONS.full else 6, lambda _: chance.uniform(0.05, 2.5))

    def test_killed_while_it_recovers(self):
        """Pairs of kills: in the middle of the work, and while the next run puts that in order."""
        chance = random.Random(systemlab.OPTIONS.seed)
        self.kill(100 if systemlab.OPTIONS.full else 6, lambda kill: chance.uniform(0.02, 0.5) if kill % 2 else chance.uniform(0.5, 2))

    def kill(self, kills, after_s):
        segments = ["02:00-02:00", "08:15-08:15", "08:30-08:30"]
        done, rounds = 0, 0
        while done < kills:
            rounds += 1
            with Client() as self.client:
                self.add([1, 3, 4], segments)
                self.fault("rate", 40_000_000)
                for _ in range(8):
                    run = self.client.start("backup", "run")
                    time.sleep(after_s(done))
                    os.kill(run.pid, signal.SIGKILL)  # it may have ended, but nobody waited for it yet
                    ended_by_itself = self.client.finish(run).code == systemlab.DONE
                    whole = {each["path"]: os.stat(each["path"]).st_ino for task in self.listing() for each in task["files"]
                             if each["finished"] and each["path"]}
                    if ended_by_itself:
                        break
                    done += 1
                self.recorder.ask("/reset", method="POST")
                self.backup("run")
                for task in self.listing():
                    # Sound that waited for its encoder goes with the process.
                    self.check_backup(task, segments, tracks=(0,))
                    names = {each["path"] for each in task["files"]}
                    for path in names & set(whole):
                        self.assertEqual(os.stat(path).st_ino, whole[path], f"{path} was fetched again")
                lost = [path for path in whole if not os.path.exists(path)]
                self.assertEqual(lost, [], "a finished file is gone")
        self.client = Client()
        print(f"{done} kills in {rounds} rounds", end=" ", flush=True)

    def test_failures_are_told(self):
        self.add([5], ["02:00-02:00"])
        for name, value, words in (("session-limit", 1, "The backup limit of he device has been reached"),
                                   ("drop-after", 200_000, "Backup is abnormal,the backup will be attempted again later")):
            self.fault(name, value)
            over = self.backup("run", "--tries", 1, "--json", code=systemlab.INCOMPLETE).lines
            self.assertEqual(over[0]["outcome"], "failed", over)
            self.assertIn(words, over[0]["message"])
            self.recorder.ask("/reset", method="POST")
        self.backup("run")
        self.check_backup(self.listing()[0], ["02:00-02:00"])

    def test_a_disk_that_takes_nothing(self):
        folder = os.path.join(self.client.folder, "home", "Videos", "Vemo", "Backup")
        os.makedirs(os.path.dirname(folder))
        with open(folder, "w", encoding="utf-8") as file:
            file.write("in the way")
        self.add([1], ["02:00-02:00"])
        self.assertIn(f"The folder for backups, {folder}, is not there or can't be written.", self.backup("run", code=systemlab.DISK).err)
        os.unlink(folder)
        self.client.disk_reserve_bytes = 1 << 60
        over = self.backup("run", "--tries", 1, "--json", code=systemlab.INCOMPLETE).lines
        self.assertIn("The disk free space < 1GB,please switch the disk to continue the backup", over[0]["message"])
        self.assertEqual([name for _, _, names in os.walk(folder) for name in names], [".vemo-backup"])
        self.client.disk_reserve_bytes = 0
        self.backup("run")
        self.check_backup(self.listing()[0], ["02:00-02:00"])

    def test_nights_in_which_the_clocks_change(self):
        """A segment across the hour that is skipped, and one in the hour that passes twice: an hour and a minute of footage."""
        self.client.changes["TZ"] = "Europe/Berlin"
        for day, segment, begin, end in (("2026-03-29", "01:59-03:00", "2026-03-29T00:59:00Z", "2026-03-29T01:00:59Z"),
                                         ("2026-10-25", "02:00-02:00", "2026-10-25T00:00:00Z", "2026-10-25T01:00:59Z")):
            with self.subTest(day=day), Recorder("--channels", "2", "--first-day", day, "--time-zone", "Europe/Berlin") as recorder:
                self.backup("add", "--device", recorder.addresses["onvif"], "--user", systemlab.USER, "--channels", "2",
                            "--date", day, "--segments", segment)
                self.backup("run", "--date", day)
                task = next(each for each in self.listing() if each["date"] == day)
                listed = json.loads(recorder.ask("/recordings", channel=2))
                wanted = common([(systemlab.parse_time(each["begin"]), systemlab.parse_time(each["end"])) for each in listed],
                                [(systemlab.parse_time(begin), systemlab.parse_time(end))])
                self.assertGreater(seconds(wanted), 0)
                self.assertEqual((task["state"], task["safe"]), ("finished", task["held"]), task)
                self.assertAlmostEqual(task["held"], seconds(wanted), delta=1, msg=task)
                shown = sum(float(stream["duration"]) for each in task["files"] for stream in media.probe(each["path"])["streams"]
                            if stream["codec_type"] == "video")
                self.assertAlmostEqual(shown, seconds(wanted), delta=2 * PICTURE_S, msg=task)

    def set_clock(self, hours):
        path = os.path.join(self.client.folder, "clock")
        # In place, because the program has it mapped.
        with open(path, "r+b" if os.path.exists(path) else "wb") as file:
            file.write(struct.pack("q", hours * 3600))
        self.client.changes.update(VEMO_CLOCK_FILE=path, LD_PRELOAD=os.path.join(systemlab.OPTIONS.build, "lib", "libvemo_clock.so"))

    def test_clocks_that_are_set_and_sleep(self):
        """The wall clock goes forth, back, across midnight and by days while a day is fetched; then the computer sleeps, alone and
        together with the recorder."""
        segments = ["02:00-02:02", "08:15-08:15", "08:30-08:30"]
        self.set_clock(0)
        self.add([1, 3], segments)
        self.fault("rate", 4_000_000)
        run = self.client.start("backup", "run", "--json")
        for hours in (6, -9, 26, -49, 0):
            self.wait_for_bytes(1_500_000)
            self.set_clock(hours)
        # A piece that broke off is tried again minutes later; this test lets the next run do it.
        asleep_s = 20 if systemlab.OPTIONS.full else 12
        for processes in ([run.pid], [run.pid, self.recorder.process.pid]):
            if self.is_over(run):
                break
            for pid in processes:
                os.kill(pid, signal.SIGSTOP)
            time.sleep(asleep_s)
            for pid in processes:
                os.kill(pid, signal.SIGCONT)
            time.sleep(2)
        self.recorder.ask("/reset", method="POST")
        self.settle(run)
        for task in self.listing():
            self.check_backup(task, segments)

    @staticmethod
    def is_over(run):
        """Without taking its exit code, which is read later."""
        return os.waitid(os.P_PID, run.pid, os.WEXITED | os.WNOHANG | os.WNOWAIT) is not None

    def settle(self, run):
        """Lets a run end that may wait for a retry, then another one do the rest."""
        until = time.monotonic() + 15
        while not self.is_over(run) and time.monotonic() < until:
            time.sleep(0.1)
        if not self.is_over(run):
            self.backup("stop", code=None)
        self.client.finish(run)
        self.backup("run")

    def test_a_clock_that_is_a_day_fast(self):
        """A day that is not over where it is recorded is not given up as empty, whatever day the computer takes it for."""
        today = datetime.datetime.now(datetime.timezone.utc)
        self.set_clock(26)
        self.add([2], ["23:00-23:01"], today)
        for _ in range(4):
            self.assertEqual([task["outcome"] for task in self.backup("run", "--json").lines], ["empty"])

    def test_a_disk_that_is_pulled(self):
        """The disk with the backups goes while one is written, another one takes its place, then none, then it is back."""
        folder = os.path.join(self.client.folder, "home", "Videos", "Vemo", "Backup")
        disks = {name: os.path.join(self.client.folder, name) for name in ("own", "foreign")}
        for path in (folder, *disks.values()):
            os.makedirs(path)
        self.mounts_of_its_own()
        for path in disks.values():
            self.mount("-t", "tmpfs", "-o", "size=512m", "tmpfs", path)
        with open(os.path.join(disks["foreign"], "theirs.txt"), "w", encoding="utf-8") as file:
            file.write("theirs")
        self.mount("--bind", disks["own"], folder)
        segments = ["02:00-02:02", "08:15-08:15"]
        self.add([1], segments)
        self.fault("rate", 6_000_000)
        run = self.client.start("backup", "run", "--tries", 1, "--json")
        self.wait_for_bytes()
        self.unmount(folder)
        self.mount("--bind", disks["foreign"], folder)
        self.recorder.ask("/reset", method="POST")
        told = self.client.finish(run)
        self.check_refused(told, folder)
        self.assertEqual(os.listdir(disks["foreign"]), ["theirs.txt"], "the other disk was written to")
        self.unmount(folder)
        self.check_refused(self.backup("run", "--tries", 1, "--json", code=systemlab.INCOMPLETE), folder)
        self.assertEqual(os.listdir(folder), [], "something was written to where the disk is missing")
        self.mount("--bind", disks["own"], folder)
        self.backup("run")
        self.check_backup(self.listing()[0], segments)

    def check_refused(self, told, folder):
        self.assertEqual(told.code, systemlab.INCOMPLETE, told)
        self.assertIn(f"The folder for backups, {folder}, is not there or lies on another disk", told.last["message"])
        for each in self.listing()[0]["files"]:
            self.assertFalse(each["finished"] and each["path"] and not os.path.exists(each["path"]), f"listed, but not there: {each}")

    def mounts_of_its_own(self):
        if ctypes.CDLL(None).unshare(0x00020000) != 0:  # CLONE_NEWNS
            self.skipTest("nothing can be mounted here")
        self.mount("--make-rprivate", "/")

    def mount(self, *arguments):
        done = subprocess.run(["mount", *arguments], capture_output=True, text=True)
        if done.returncode != 0:
            self.skipTest(f"nothing can be mounted here: {done.stderr}")
        if not arguments[0].startswith("--make"):
            self.addCleanup(subprocess.run, ["umount", "-l", arguments[-1]], capture_output=True)

    @staticmethod
    def unmount(folder):
        subprocess.run(["umount", "-l", folder], check=True)

    def test_a_day_without_recordings_is_not_asked_for_again_and_again(self):
        self.add([2], ["02:00-02:00"], DAY - datetime.timedelta(days=1))
        for _ in range(3):
            self.assertEqual([task["outcome"] for task in self.backup("run", "--json").lines], ["empty"])
        self.assertEqual(self.backup("run", "--json").lines, [])
        self.assertIn("nothing recorded", self.backup("list").out)
        asked = self.backup("run", "--json", "--date", "2026-01-09").lines
        self.assertEqual([task["outcome"] for task in asked], ["empty"], "a day that is named is asked for")

    def test_a_login_that_is_refused(self):
        self.backup("add", "--device", self.device, "--user", systemlab.USER, "--channels", "3", "--date", "2026-01-10",
                    "--segments", "02:00-02:00", password="wrong")
        over = self.client.run("backup", "run", "--json", password="wrong")
        self.assertEqual(over.code, systemlab.INCOMPLETE, over)
        self.assertIn("wrong user name or password for connecting device", over.last["message"])


# What the tests of clocks try: two nights; five times set, and suspended twice; a day ahead.
CLOCK_CASES = {"test_nights_in_which_the_clocks_change": 2, "test_clocks_that_are_set_and_sleep": 7, "test_a_clock_that_is_a_day_fast": 1}

if __name__ == "__main__":
    rest = systemlab.parse()
    print(f"seed {systemlab.OPTIONS.seed}", file=sys.stderr)
    outcome = unittest.main(module="__main__", argv=[sys.argv[0], *rest], verbosity=2, exit=False).result
    violated = [test.id() for test, _ in outcome.failures + outcome.errors]
    if not rest:
        rows.tell("E15", "backups while clocks change", sum(CLOCK_CASES.values()),
                  sum(any(name in test for test in violated) for name in CLOCK_CASES), systemlab.OPTIONS.seed)
    sys.exit(1 if violated else 0)
