#!/usr/bin/env python3
"""A store of downloads that was damaged: cut, overwritten, from a newer version, without its log. The client starts all the same, says
what it found, keeps the damaged file under another name, and works on."""
import glob
import os
import random
import shutil
import sqlite3

import systemlab
from systemlab import Client, Test

NOBODY = "http://127.0.0.1:9/onvif/device_service"
CASES, CASES_FULL = 16, 500


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


class StoreDamage(Test):
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

    def test_a_newer_version_is_left_as_it_is(self):
        with sqlite3.connect(self.store) as store:
            store.execute("PRAGMA user_version = 1000")
        store.close()
        with open(self.store, "rb") as file:
            newer = file.read()
        self.judge(newer)


if __name__ == "__main__":
    systemlab.main()
