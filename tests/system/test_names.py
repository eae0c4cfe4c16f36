#!/usr/bin/env python3
"""Names that devices and people give, on their whole way to the disk: whatever they hold, files lie below the chosen folder under names
that every desktop takes, each its own. And what stands in a file's place, a link, a pipe, a socket, a folder, is neither followed nor
waited for."""
import contextlib
import datetime
import json
import os
import shutil
import socket
import sqlite3
import tempfile
import unicodedata

import media
import rows
import systemlab
from systemlab import Client, Recorder, RecorderTest, Test

SECOND = datetime.timedelta(seconds=1)
BEGIN = systemlab.FIRST_DAY + datetime.timedelta(hours=2)
SPAN = (BEGIN, BEGIN + SECOND)
NAMES = ["../../../../escaped", "/absolute/name", "C:\\Windows\\system32\\x", "two\nlines\tand\rmore", "gate\u202egpj.exe",
         "\u2066isolated\u2069\u200f\ufeff",
         "con", "NUL.txt", "lpt9 .x", "COM\u00b2", "dots and spaces. . .", " . .", "..", "x" * 4096, "\u00e4\u6f22" * 2000, "\U0001f4f7" * 300,
         "e\u0301" * 200, "Gate", "GATE", "gate", "caf\u00e9", "cafe\u0301", "<b>bold</b><img src=file:///etc/hostname>", "%s%n%08x", "-rf *",
         "$(touch escaped)`id`", "~/name", "a" * 254 + "\u00e9", "?*:\"<>|", "&amp;&lt;", "\u0645\u06cc\u200c\u062e", "@~_()"]
DEVICE = "../../../evil\u202e\n" + "\u00fc" * 2000 + "/NUL"
RESERVED = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$",
            *(f"{name}{digit}" for name in ("COM", "LPT") for digit in "123456789\u00b9\u00b2\u00b3")}
COUNTS = {"names": 0, "bad names": 0, "traps": 0, "sprung": 0}


def wrong_with(name):
    """What a desktop has against a file name; empty when nothing."""
    kinds = {unicodedata.category(letter) for letter in name if letter not in "\u200c\u200d"}
    return "".join(text for text, holds in (
        ("too long", len(name.encode()) > 255), ("control or format characters", kinds & {"Cc", "Cf", "Cs", "Zl", "Zp"}),
        ("a separator", set(name) & set('/\\:*?"<>|')), ("reserved", name.split(".")[0].rstrip().upper() in RESERVED),
        ("ends like no name", name != name.strip(". ") if not name.startswith(".vemo") else False),
        ("cut within a character", unicodedata.category(name[0])[0] == "M")) if holds)


class Names(Test):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.mkdtemp(prefix="vemo-names-")
        cls.addClassCleanup(shutil.rmtree, folder)
        path = os.path.join(folder, "names.json")
        with open(path, "w", encoding="utf-8") as file:
            json.dump([DEVICE, *NAMES], file)
        cls.recorder = Recorder("--channels", str(len(NAMES)), "--names", path)
        cls.addClassCleanup(cls.recorder.stop)
        cls.device = cls.recorder.addresses["onvif"]

    def setUp(self):
        self.client = Client()
        self.addCleanup(self.client.__exit__)
        self.client.changes["VEMO_KEYRING"] = "off"

    def check(self, root, wanted, suffix=".mp4"):
        """Below `root`, and nowhere else, `wanted` new files of that kind, each path of it good and unlike all others."""
        paths = [os.path.join(folder, name) for folder, _, names in os.walk(self.client.folder) for name in names if name.endswith(suffix)]
        self.assertEqual([path for path in paths if not path.startswith(root + "/")], [], "outside of the chosen folder")
        self.assertEqual(len(paths), wanted, paths)
        below = [os.path.relpath(path, root) for path in paths]
        bad = [(part, wrong_with(part)) for path in below for part in path.split("/") if wrong_with(part)]
        folded = {unicodedata.normalize("NFC", path) for path in below}
        COUNTS["names"] += len(paths)
        COUNTS["bad names"] += len(bad) + len(below) - len(folded)
        self.assertEqual(bad, [])
        self.assertEqual(len(folded), len(below), f"two files of one name: {sorted(below)}")
        self.assertFalse(os.path.lexists(os.path.join(os.path.dirname(self.client.folder), "escaped")))
        return paths

    def work(self, *arguments, code=systemlab.DONE):
        run = self.client.run(*arguments, timeout=200)
        self.assertEqual(run.code, code, run)
        return run

    def add(self, *options):
        channels = ",".join(map(str, range(1, len(NAMES) + 1)))
        return self.work("queue", "add", "--device", self.device, "--user", systemlab.USER, "--channels", channels, "--begin",
                         systemlab.iso(SPAN[0]), "--end", systemlab.iso(SPAN[1]), "--json", *options)

    def test_downloads_into_a_chosen_folder(self):
        channels = ",".join(map(str, range(1, len(NAMES) + 1)))
        self.work(*self.client.download_arguments(self.device, channels, *SPAN, self.client.out))
        self.check(self.client.out, len(NAMES))

    def test_the_queue_with_names_of_devices_and_of_people(self):
        videos = os.path.join(self.client.folder, "home", "Videos")
        for names in ("not known yet", "of the device", "of people"):
            if names == "of people":
                self.rename()
            self.add()
            self.work("queue", "run")
            paths = self.check(videos, len(NAMES))
            if names != "not known yet":
                self.assertGreater(len({os.path.basename(path).split("@")[0] for path in paths}), len(NAMES) - 6, f"names {names} are not used")
            self.work("queue", "clear", "--all")
            for path in paths:
                os.unlink(path)

    def rename(self):
        """As people do it in the window, but with letters that no keyboard has."""
        database = os.path.join(self.client.folder, "data", "data", "vemo.db")
        with contextlib.closing(sqlite3.connect(database)) as connection, connection:
            dev_id, = connection.execute("SELECT dev_id FROM devices").fetchone()
            connection.executemany("INSERT INTO device_channel_names VALUES (?, ?, ?)",
                                   [(dev_id, number, f"{name}\0/..{name[:9]}") for number, name in enumerate(NAMES, 1)])
            connection.execute("UPDATE devices SET name = ?", ("..\0/" + DEVICE,))

    def test_backups_and_their_export(self):
        channels = ",".join(map(str, range(1, len(NAMES) + 1)))
        day = systemlab.FIRST_DAY.strftime("%Y-%m-%d")
        self.work("backup", "add", "--device", self.device, "--user", systemlab.USER, "--channels", channels, "--date", day,
                  "--segments", "02:00-02:00")
        self.work("backup", "run")
        videos = os.path.join(self.client.folder, "home", "Videos")
        self.check(videos, len(NAMES))
        for folder, _, names in os.walk(videos):
            if "SHA256SUMS" in names:
                done = media.run(["sha256sum", "--strict", "-c", "SHA256SUMS"], cwd=folder)
                self.assertEqual(done.returncode, 0, f"{folder}: {done.stdout}{done.stderr}")
        self.work("backup", "export", "--date", day, "--to", self.client.out)
        exported = [os.path.join(folder, name) for folder, _, names in os.walk(self.client.out) for name in names if name.endswith(".mp4")]
        self.assertEqual(len(exported), len(NAMES))


class Traps(RecorderTest):
    """In place of what is to be written."""

    def setUp(self):
        super().setUp()
        self.client.changes["VEMO_KEYRING"] = "off"
        self.outside = os.path.join(self.client.folder, "outside")
        os.mkdir(self.outside)
        self.precious = os.path.join(self.outside, "precious")
        with open(self.precious, "w", encoding="utf-8") as file:
            file.write("not the client's")

    def tearDown(self):
        """Nothing outside is touched; what was is put right for the next trap."""
        with open(self.precious, encoding="utf-8") as file:
            is_whole = file.read() == "not the client's"
        COUNTS["sprung"] += not is_whole
        with open(self.precious, "w", encoding="utf-8") as file:
            file.write("not the client's")
        for name in set(os.listdir(self.outside)) - {"precious"}:
            COUNTS["sprung"] += 1
            left = os.path.join(self.outside, name)
            shutil.rmtree(left) if os.path.isdir(left) else os.unlink(left)
            self.fail(f"a link was followed: {name}")
        self.assertTrue(is_whole, "what the link leads to was overwritten")

    def set_trap(self, kind, path):
        COUNTS["traps"] += 1
        os.makedirs(os.path.dirname(path), exist_ok=True)
        if kind == "link":
            os.symlink(self.precious, path)
        elif kind == "dangling":
            os.symlink(os.path.join(self.outside, "new"), path)
        elif kind == "pipe":
            os.mkfifo(path)
        elif kind == "folder":
            os.mkdir(path)
        elif kind == "socket":
            here = os.getcwd()
            os.chdir(os.path.dirname(path))  # names of sockets are short
            with socket.socket(socket.AF_UNIX) as listener:
                listener.bind(os.path.basename(path))
            os.chdir(here)
        else:
            os.symlink({"device": "/dev/full", "folder link": self.outside}[kind], path)

    def test_where_a_download_is_to_go(self):
        path = os.path.join(self.client.out, "clip.mp4")
        for kind in ("link", "dangling", "pipe", "socket", "device"):
            with self.subTest(kind):
                self.set_trap(kind, path)
                before = os.lstat(path)
                run = self.client.download(self.device, 1, *SPAN, path)
                self.check_run(self.client, run, run.code, within_s=20)
                self.assertIn(run.code, (systemlab.DONE, systemlab.DISK), run)
                after = os.lstat(path)
                self.assertEqual((before.st_mode, before.st_ino, before.st_mtime), (after.st_mode, after.st_ino, after.st_mtime))
                for name in os.listdir(self.client.out):
                    os.unlink(os.path.join(self.client.out, name))

    def test_where_a_task_of_the_queue_is_to_go(self):
        for kind in ("link", "dangling", "pipe", "socket", "device", "folder"):
            with self.subTest(kind), Client() as self.client:
                self.client.changes["VEMO_KEYRING"] = "off"
                task, = self.client.run("queue", "add", "--device", self.device, "--user", systemlab.USER, "--channel", 1, "--begin",
                                        systemlab.iso(SPAN[0]), "--end", systemlab.iso(SPAN[1]), "--json").lines
                self.set_trap(kind, task["path"])
                run = self.client.run("queue", "run", timeout=30)
                self.assertEqual(run.code, systemlab.DONE, run)
                done, = self.client.run("queue", "list", "--json").lines
                self.assertNotEqual(done["path"], task["path"])
                self.check_file(done["path"])

    def test_in_the_folders_of_a_backup(self):
        day = systemlab.FIRST_DAY.strftime("%Y-%m-%d")
        for name, kind in ((None, None), ("SHA256SUMS", "link"), ("manifest.json", "link"), ("manifest.json", "pipe"), ("SHA256SUMS", "pipe"),
                           ("manifest.json", "dangling"), ("SHA256SUMS", "folder"), ("020000-020059.mp4", "link"), ("020000-020059.mp4", "pipe"),
                           ("", "folder link"), ("..", "folder link")):
            with self.subTest(name=name, kind=kind), Client() as client:
                self.client = client
                client.changes["VEMO_KEYRING"] = "off"
                client.run("backup", "add", "--device", self.device, "--user", systemlab.USER, "--channels", 1, "--date", day,
                           "--segments", "02:00-02:00")
                root = os.path.join(client.folder, "home", "Videos", "Vemo", "Backup")
                with contextlib.closing(sqlite3.connect(os.path.join(client.folder, "data", "data", "vemo.db"))) as connection:
                    dev_id, = connection.execute("SELECT dev_id FROM devices").fetchone()
                if kind:
                    self.set_trap(kind, os.path.normpath(os.path.join(root, self.folder.replace("DEVICE", dev_id), name)))
                run = client.run("backup", "run", "--tries", 1, timeout=60)
                found = [os.path.join(folder, each) for folder, _, names in os.walk(root) for each in names if each.endswith(".mp4")]
                found = [path for path in found if os.path.isfile(path) and not os.path.islink(path)]
                if kind == "folder link":
                    self.assertEqual((run.code, found), (systemlab.INCOMPLETE, []), run)
                else:
                    self.assertEqual((run.code, len(found)), (systemlab.DONE, 1), run)
                if not kind:
                    type(self).folder = os.path.dirname(os.path.relpath(found[0], root)).replace(dev_id, "DEVICE")
                    self.assertIn("DEVICE", self.folder)
                self.tearDown()


def tearDownModule():
    rows.tell("G4", "names of devices and people", COUNTS["names"], COUNTS["bad names"], "-")
    rows.tell("G5", "links, pipes and devices in the way", COUNTS["traps"], COUNTS["sprung"], "-")


if __name__ == "__main__":
    systemlab.main()
