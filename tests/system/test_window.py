#!/usr/bin/env python3
"""The window as a person meets it: a second start, stores that can't be used, files that vanish behind its back, and its rows' buttons
under a real pointer. What the window says is read as a screen reader reads it, what it did is read from the store."""
import glob
import os
import signal
import sqlite3
import unittest

import desktop
import systemlab
from desktop import Window, wait_for
from systemlab import Client, Recorder, Test

ANYBODY = "http://127.0.0.1:9/onvif/device_service"
MANY = 10_000
SECOND_START_S = 3
# From the middle of a row's Oper cell to its buttons.
LEFT_OF_THREE, MIDDLE_OF_THREE = -32, 0
WAITING, PAUSED, SUCCEEDED = 0, 2, 3
OPER = 5


def setUpModule():
    unittest.addModuleCleanup(desktop.Desktop().end)


class WindowTest(Test):
    def setUp(self):
        self.client = Client()
        self.client.changes["VEMO_KEYRING"] = "off"
        self.addCleanup(self.client.__exit__)
        self.data = os.path.join(self.client.folder, "data")
        self.client.let_in()

    def open(self, client=None, **options):
        window = Window(client or self.client, **options)
        self.addCleanup(window.kill)
        return window

    def queue(self, *arguments):
        run = self.client.run("queue", *arguments)
        self.assertEqual(run.code, systemlab.DONE, run)
        return run.lines

    def add(self, channels, device=ANYBODY, seconds=600):
        begin = systemlab.FIRST_DAY.replace(hour=1)
        end = systemlab.datetime.timedelta(seconds=seconds) + begin
        return self.queue("add", "--device", device, "--user", systemlab.USER, "--channel", ",".join(map(str, channels)), "--begin",
                          systemlab.iso(begin), "--end", systemlab.iso(end), "--json")

    def store(self):
        path, = glob.glob(os.path.join(self.data, "**", "*.db"), recursive=True)
        return path


class Starts(WindowTest):
    def start_again(self):
        run = self.client.finish(Window.start(self.client), timeout=20)
        self.assertEqual(run.code, systemlab.DONE, run)
        self.assertLess(run.seconds, SECOND_START_S, run)
        self.assertIn("asked to come to the front", run.out)

    def fill(self, count):
        self.add([1])
        with sqlite3.connect(self.store()) as store:
            names = [row[1] for row in store.execute("PRAGMA table_info(download_tasks)")]
            own = {"seq": "n + 1", "task_id": "lower('{' || hex(randomblob(4)) || '-0000-4000-8000-' || hex(randomblob(6)) || '}')",
                   "state": "2", "request_key": "NULL"}
            store.execute(f"WITH RECURSIVE numbers(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM numbers WHERE n < {count - 1}) "
                          f"INSERT INTO download_tasks ({', '.join(names)}) "
                          f"SELECT {', '.join(own.get(name, name) for name in names)} FROM download_tasks, numbers")
        store.close()

    def test_a_second_start_brings_the_window_to_the_front(self):
        self.fill(MANY)
        window = self.open()
        self.start_again()  # while the tasks are loaded
        wait_for(window.is_active, "not in front while it loads")
        with Client() as elsewhere:
            other = self.open(elsewhere)
            wait_for(other.is_active, "the newest window is not in front")
            self.start_again()
            wait_for(window.is_active, "not in front of the other window")
            other.close()
        desktop.xdotool("windowminimize", "--sync", window.id)
        wait_for(window.is_hidden, "it was not minimised")
        window.process.send_signal(signal.SIGSTOP)  # busy, as a window can be
        self.start_again()
        window.process.send_signal(signal.SIGCONT)
        wait_for(lambda: not window.is_hidden() and window.is_active(), "not in front after it was minimised")
        self.assertEqual(window.close().code, systemlab.DONE)
        self.assertEqual(len(self.queue("list", "--json")), MANY)


class Stores(WindowTest):
    def read(self, path=None):
        with open(path or self.store(), "rb") as file:
            return file.read()

    def write(self, content):
        path = self.store()
        for log in glob.glob(path + "-*"):
            os.remove(log)
        with open(path, "wb") as file:
            file.write(content)

    def check_told(self, part, **options):
        """The window comes up, says it, and works."""
        window = self.open(**options)
        window.text(part)
        window.press("OK")
        wait_for(lambda: not window.find(lambda each: part in each.get_name()), "the box stays")
        window.press("Files Center")
        window.text("Download Success")
        run = window.close()
        self.assertEqual(run.code, systemlab.DONE, run)

    def test_a_store_that_cannot_be_used_is_set_aside_and_told(self):
        self.add([1, 2])
        whole = self.read()
        with sqlite3.connect(self.store()) as store:
            store.execute("PRAGMA user_version = 1000")
        store.close()
        for name, content, words in (("newer", self.read(), "written by a newer version"),
                                     ("corrupt", whole[:4096] + bytes(8192) + whole[12288:], "was damaged")):
            with self.subTest(name):
                self.write(content)
                self.check_told(words)
                kept = [self.read(path) for path in glob.glob(self.store() + ".damaged-*")]
                self.assertEqual(kept.count(content), 1, "the file was not kept as it was")

    def test_a_read_only_folder_is_told_and_left_alone(self):
        self.add([1])
        before = self.read()
        files = self.files()
        self.protect(0o500, 0o400)
        self.addCleanup(self.protect, 0o700, 0o600)
        self.check_told("can't be opened", prefix=desktop.bound_by_permissions())
        self.assertEqual(self.read(), before)
        self.assertEqual(self.files(), files)

    def protect(self, folder_mode, file_mode):
        for folder, _, names in os.walk(self.data):
            os.chmod(folder, folder_mode)
            for name in names:
                os.chmod(os.path.join(folder, name), file_mode)

    def files(self):
        return sorted(os.path.join(folder, name) for folder, _, names in os.walk(self.data) for name in names)


class Rows(WindowTest):
    @classmethod
    def setUpClass(cls):
        cls.recorder = Recorder("--channels", "20")
        cls.addClassCleanup(cls.recorder.stop)

    def fault(self, **values):
        self.recorder.ask("/reset", method="POST")
        for name, value in values.items():
            self.recorder.ask("/fault", method="POST", name=name, value=value)

    def open_downloads(self, sub_page):
        window = self.open()
        window.press("Files Center")
        self.show(window, sub_page)
        return window

    @staticmethod
    def show(window, sub_page):
        """The entry in the navigation has the count behind its name."""
        window.click(window.wait_for(lambda each: each.get_name().startswith(sub_page + "("), sub_page))
        window.wait_for(lambda each: each.get_name() == sub_page, f"page {sub_page}")

    def press_in_row(self, window, channel, dx=0, button=1, column=OPER):
        """Names of channels end with their numbers."""
        name, cell = wait_for(lambda: next((item for item in window.cells(column).items() if item[0].endswith(str(channel))), None),
                              f"no row of channel {channel}")
        window.click(cell, dx, button)
        return name

    def media_files(self):
        return {path for path in glob.glob(os.path.join(self.client.folder, "**", "*.mp4"), recursive=True)}

    def test_files_that_vanish_behind_its_back(self):
        self.fault()
        self.add([1, 2, 3], self.recorder.addresses["onvif"], seconds=2)
        self.queue("run")
        tasks = self.queue("list", "--json")
        path = {task["channel"]: task["path"] for task in tasks}
        window = self.open_downloads("Download Success")
        wait_for(lambda: len(window.cells(OPER)) == 3, "not all files have a row")
        os.remove(path[1])
        os.rename(path[2], path[2] + ".moved.mp4")
        self.press_in_row(window, 1, MIDDLE_OF_THREE)
        window.text("file does not exist")
        self.press_in_row(window, 2, button=3, column=1)
        desktop.xdotool("sleep", 0.5, "key", "Down", "Down", "Down", "Down", "Return")  # "Details"; screen readers are told no menus
        for button, words in (("Verify", "so nothing can be compared"), ("Open folder", "it was deleted, moved or renamed")):
            window.press(button)
            window.text(words)
        self.show(window, "Downloading")
        self.show(window, "Download Success")
        wait_for(lambda: len(window.cells(OPER)) == 1, "rows without a file stay")
        self.assertIn("Camera 3", *window.cells(OPER))
        self.assertEqual(window.close().code, systemlab.DONE)
        self.assertEqual(self.queue("list", "--json"), tasks, "a record went, or changed, with its file")
        self.assertEqual(self.media_files(), {path[3], path[2] + ".moved.mp4"})

    def test_the_buttons_of_its_rows(self):
        self.fault(rate=200_000)
        self.add([1, 2, 3], self.recorder.addresses["onvif"])
        window = self.open_downloads("Downloading")
        window.text("3 running")
        wait_for(lambda: all(map(os.path.getsize, self.media_files())) and len(self.media_files()) == 3, "no downloads came up")
        for channel, figures in ((1, "2 running, 0 waiting, 1 paused"), (2, "1 running, 0 waiting, 2 paused"),
                                 (2, "2 running, 0 waiting, 1 paused")):
            self.press_in_row(window, channel, LEFT_OF_THREE)
            window.text(figures)
        self.press_in_row(window, 3, MIDDLE_OF_THREE)
        window.text("Do you want to delete download task")
        window.press("Yes")
        window.text("1 running, 0 waiting, 1 paused")
        self.assertEqual(window.close().code, systemlab.DONE)
        tasks = self.queue("list", "--json")
        self.assertEqual({task["channel"]: task["state"] for task in tasks if task["state"] != SUCCEEDED}, {1: PAUSED, 2: WAITING})
        self.assertEqual({task["path"] for task in tasks if task["state"] == SUCCEEDED}, self.media_files(), "a file too many, or one lost")


if __name__ == "__main__":
    desktop.need()
    systemlab.main()
