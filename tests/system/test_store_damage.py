#!/usr/bin/env python3
"""A store of downloads that was damaged: cut, overwritten, from a newer version, without its log. The client starts all the same, says
what it found, keeps the damaged file under another name, and works on."""
import contextlib
import glob
import os
import random
import shutil
import sqlite3
import sys
import unittest

import rows
import systemlab
from systemlab import Client, Test

NOBODY = "http://127.0.0.1:9/onvif/device_service"
CASES, CASES_FULL = 16, 400
LOG_CASES, LOG_CASES_FULL = 8, 98
READ_ONLY = ("unshare", "--mount", "sh", "-c", 'mount --bind "$0" "$0" && mount -o remount,bind,ro "$0" && exec "$@"')


def flip(content, chance):
    content = bytearray(content)
    for _ in range(chance.randint(1, 40)):
        content[chance.randrange(len(content))] ^= 1 << chance.randrange(8)
    return bytes(content)


def zero(content, chance):
    begin = chance.randrange(len(content))
    length = min(chance.choice((1, 16, 512, 4096, 65536)), len(content) - begin)
    return content[:begin] + bytes(length) + content[begin + length:]


DAMAGES = {
    "flipped bits": flip,
    "zeros": zero,
    "cut": lambda content, chance: content[:chance.randrange(len(content))],
    "random bytes": lambda content, chance: chance.randbytes(chance.randrange(1, len(content))),
    "garbage behind": lambda content, chance: content + chance.randbytes(chance.randrange(1, 10000)),
    "another file's page": lambda content, chance: content[:4096] + chance.randbytes(4096) + content[8192:],
    "empty": lambda content, chance: b"",
}
# Of the log that a killed process leaves beside the store; None: there is none.
LOG_DAMAGES = {"whole": lambda content, chance: content, "missing": lambda content, chance: None,
               **{name: DAMAGES[name] for name in ("flipped bits", "zeros", "cut", "random bytes", "garbage behind", "empty")}}


class StoreDamage(Test):
    cases = 0

    def list(self, client):
        run = client.run("queue", "list", "--json", timeout=30)
        self.assertIn(run.code, (systemlab.DONE, systemlab.DISK), run)
        self.assertEqual(client.secret_places(run), [])
        return run

    def setUp(self):
        self.client = Client()
        self.addCleanup(self.client.__exit__)
        run = self.client.run("queue", "add", "--device", NOBODY, "--user", systemlab.USER, "--channel", "1,2,3,4,5", "--begin",
                              "2026-01-10T08:00:00Z", "--end", "2026-01-10T09:00:00Z", "--json")
        self.assertEqual(run.code, systemlab.DONE, run)
        self.tasks = {task["id"] for task in run.lines}
        self.folder = os.path.join(self.client.folder, "data")
        self.store, = glob.glob(os.path.join(self.folder, "**", "*.db"), recursive=True)
        shutil.copytree(self.folder, self.client.folder + "/whole")
        self.addCleanup(shutil.rmtree, self.client.folder + "/whole", ignore_errors=True)

    def restore(self):
        shutil.rmtree(self.folder)
        shutil.copytree(self.client.folder + "/whole", self.folder)

    def is_kept(self, damaged):
        """Beside the store lies a file with what the damaged one held."""
        for path in glob.glob(self.store + ".*"):
            with open(path, "rb") as file:
                if file.read() == damaged:
                    return True
        return False

    def judge(self, damaged):
        run = self.list(self.client)
        lost = {task["id"] for task in run.lines} != self.tasks
        if lost:
            self.assertTrue(self.is_kept(damaged) or not damaged, f"the damaged file was not kept: {run}")
            self.assertTrue(run.err.strip() or not damaged, f"nothing was said: {run}")
        again = self.list(self.client)
        self.assertEqual(again.code, systemlab.DONE, again)
        added = self.client.run("queue", "add", "--device", NOBODY, "--user", systemlab.USER, "--channel", "9", "--begin",
                                "2026-01-10T10:00:00Z", "--end", "2026-01-10T11:00:00Z", "--json")
        self.assertEqual((added.code, len(added.lines)), (systemlab.DONE, 1), added)
        self.assertIn(added.lines[0]["id"], {task["id"] for task in self.list(self.client).lines})

    def test_whatever_the_file_holds_the_client_starts(self):
        chance = random.Random(systemlab.OPTIONS.seed)
        for number in range(CASES_FULL if systemlab.OPTIONS.full else CASES):
            name = list(DAMAGES)[number % len(DAMAGES)]
            StoreDamage.cases += 1
            with self.subTest(name, number=number):
                self.restore()
                with open(self.store, "rb") as file:
                    content = file.read()
                damaged = DAMAGES[name](content, chance)
                with open(self.store, "wb") as file:
                    file.write(damaged)
                for log in glob.glob(self.store + "-*"):
                    os.remove(log)
                self.judge(damaged)

    def leave_log(self):
        """As a kill leaves it: a change of another task stands in the log alone."""
        with contextlib.closing(sqlite3.connect(self.store)) as store:
            store.execute("PRAGMA journal_mode = WAL")
            store.execute("PRAGMA wal_autocheckpoint = 0")
            store.execute("UPDATE download_tasks SET state = 2, progress = 50")
            store.commit()
            for ending in ("", "-wal"):
                shutil.copy(self.store + ending, self.client.folder + "/left" + ending)
        for log in glob.glob(self.store + "-*"):
            os.remove(log)
        for ending in ("", "-wal"):
            shutil.move(self.client.folder + "/left" + ending, self.store + ending)

    def test_whatever_the_log_holds_no_task_is_lost(self):
        chance = random.Random(systemlab.OPTIONS.seed + 1)
        for number in range(LOG_CASES_FULL if systemlab.OPTIONS.full else LOG_CASES):
            name = list(LOG_DAMAGES)[number % len(LOG_DAMAGES)]
            StoreDamage.cases += 1
            with self.subTest(name, number=number):
                self.restore()
                self.leave_log()
                with open(self.store + "-wal", "rb") as file:
                    content = LOG_DAMAGES[name](file.read(), chance)
                os.remove(self.store + "-wal")
                if content is not None:
                    with open(self.store + "-wal", "wb") as file:
                        file.write(content)
                run = self.list(self.client)
                self.assertEqual({task["id"] for task in run.lines}, self.tasks, run)
                if name == "whole":
                    self.assertEqual({task["state"] for task in run.lines}, {2}, run)
                self.judge(b"")

    def test_a_store_that_can_only_be_read(self):
        StoreDamage.cases += 1
        self.restore()
        process = self.client.start("queue", "list", "--json", prefix=(*READ_ONLY, self.folder))
        run = self.client.finish(process, timeout=30)
        if "mount" in run.err:
            self.skipTest("nothing can be mounted here")
        self.assertIn(run.code, (systemlab.DONE, systemlab.DISK), run)
        if run.code == systemlab.DISK:
            self.assertRegex(run.err.strip(), r"^\S.{8,}\.$", "no sentence")
        self.assertEqual(glob.glob(self.store + ".*"), [], "it was set aside as damaged")
        self.judge(b"")
        self.assertEqual(glob.glob(self.store + ".*"), [], "it was set aside as damaged")

    def test_a_store_that_another_program_holds(self):
        """Somebody looks at it by a tool that locks it: it is waited for or refused with a sentence, and not taken for damaged."""
        StoreDamage.cases += 1
        self.restore()
        with contextlib.closing(sqlite3.connect(self.store)) as holder:
            holder.execute("PRAGMA locking_mode = EXCLUSIVE")
            holder.execute("BEGIN EXCLUSIVE")
            run = self.client.run("queue", "list", "--json", timeout=60)
            self.assertIn(run.code, (systemlab.DONE, systemlab.DISK), run)
            if run.code == systemlab.DISK:
                self.assertRegex(run.err.strip(), r"^\S.{8,}\.$", "no sentence")
            holder.rollback()
        self.assertEqual(glob.glob(self.store + ".*"), [], "it was set aside as damaged")
        self.judge(b"")

    def test_a_newer_version_is_left_as_it_is(self):
        StoreDamage.cases += 1
        with sqlite3.connect(self.store) as store:
            store.execute("PRAGMA user_version = 1000")
        store.close()
        with open(self.store, "rb") as file:
            newer = file.read()
        self.judge(newer)


if __name__ == "__main__":
    rest = systemlab.parse()
    print(f"seed {systemlab.OPTIONS.seed}", file=sys.stderr)
    outcome = unittest.main(module="__main__", argv=[sys.argv[0], *rest], verbosity=2, exit=False).result
    violations = len(outcome.failures) + len(outcome.errors)
    if violations:
        print(f"again: {sys.argv[0]} --build {systemlab.OPTIONS.build} --seed {systemlab.OPTIONS.seed}" +
              (" --full" if systemlab.OPTIONS.full else ""))
    rows.tell("E13", "stores and logs damaged", StoreDamage.cases, violations, systemlab.OPTIONS.seed)
    sys.exit(1 if violations else 0)
