#!/usr/bin/env python3
"""The stored queue, worked off without a window: bursts, failures table by table, quitting and being killed with five running. What the
list claims, what lies on the disk and what the recorder sent must agree, and asked spans are covered exactly once."""
import datetime
import os
import random
import signal
import socket
import time

import media
import systemlab
from judges import ABNORMAL, CONNECT_FAILED, LOGIN_FAILED, PAUSED, SUCCEEDED, WAITING, DownloadJudge
from systemlab import Client, Recorder

SECOND = datetime.timedelta(seconds=1)
BEGIN = systemlab.FIRST_DAY + datetime.timedelta(hours=1)
AT_ONCE = 5
TABLE_OF = {WAITING: "downloading", PAUSED: "downloading", SUCCEEDED: "success", **{state: "failed" for state in range(4, 9)}}
QUIT_WITHIN_S = 2


class Queue(DownloadJudge):
    @classmethod
    def setUpClass(cls):
        cls.recorder = Recorder("--channels", "20")
        cls.addClassCleanup(cls.recorder.stop)
        cls.device = cls.recorder.addresses["onvif"]

    def setUp(self):
        self.client = Client()
        self.addCleanup(self.client.__exit__)
        self.addCleanup(self.fault)
        self.fault()

    def fault(self, **values):
        """Nothing but these faults from now on."""
        self.control("POST", "/reset")
        for name, value in values.items():
            self.control("POST", "/fault", name=name.replace("_", "-"), value=value)

    def control(self, method, path, **query):
        self.recorder.ask(path, method=method, **query)

    def queue(self, *arguments, code=systemlab.DONE, timeout=60, **others):
        run = self.client.run("queue", *arguments, timeout=timeout, **others)
        if code is not None:
            self.assertEqual(run.code, code, run)
        self.assertEqual(self.client.secret_places(run), [], f"the password stands where it must not: {run}")
        return run

    def add(self, channels, seconds, device=None, begin=BEGIN, **others):
        channels = ",".join(map(str, channels))
        return self.queue("add", "--device", device or self.device, "--user", systemlab.USER, "--channel", channels, "--begin",
                          systemlab.iso(begin), "--end", systemlab.iso(begin + seconds * SECOND), "--json", **others).lines

    def listing(self):
        tasks = self.queue("list", "--json").lines
        self.assertEqual(len({task["id"] for task in tasks}), len(tasks), "a task is listed twice")
        for task in tasks:
            self.assertEqual(task["table"], TABLE_OF.get(task["state"], "none"), task)
            self.assertNotEqual(task["table"], "none", f"no table shows it: {task}")
        return tasks

    def test_twenty_requests_in_one_burst(self):
        added = self.add(range(1, 21), 8)
        self.assertEqual([task["state"] for task in added], [WAITING] * 20)
        self.assertEqual(self.add(range(1, 21), 8), [], "the same requests were queued twice")
        run = self.queue("run", "--json", timeout=120)
        running = [line["running"] for line in run.lines if "running" in line]
        self.assertLessEqual(max(running, default=0), AT_ONCE)
        tasks = self.listing()
        self.assertEqual({task["id"] for task in tasks}, {task["id"] for task in added})
        for task in tasks:
            self.check_success(task, playable=task["channel"] % 4 == 3)
            self.check_download(tasks, task["channel"], BEGIN, BEGIN + 8 * SECOND)
        self.queue("clear", "--all")
        self.assertEqual(self.listing(), [])
        self.assertTrue(all(os.path.exists(task["path"]) for task in tasks), "clearing the list took a file away")

    def test_one_recording_by_its_name(self):
        found = self.client.search(self.device, 3, BEGIN, BEGIN + 60 * SECOND, "--json").lines
        shortest = min(found, key=lambda each: systemlab.parse_time(each["end"]) - systemlab.parse_time(each["begin"]))
        self.queue("add", "--device", self.device, "--user", systemlab.USER, "--channel", 3, "--file", shortest["name"])
        task = self.listing()[0]
        self.assertEqual((task["begin"], task["end"]), (shortest["begin"], shortest["end"]))

    def test_tasks_are_paused_resumed_and_cancelled(self):
        one, two, three = (task["id"] for task in self.add([3, 7, 11], 4))
        self.queue("pause", "--id", one)
        self.queue("pause", "--id", one, code=systemlab.FAILED)
        self.queue("cancel", "--id", two.strip("{}"))
        self.queue("retry", "--id", two, code=systemlab.FAILED)
        self.queue("run")
        self.assertEqual({task["id"]: task["state"] for task in self.listing()}, {one: PAUSED, three: SUCCEEDED})
        self.queue("resume", "--all")
        self.queue("run")
        self.assertEqual([task["state"] for task in self.listing()], [SUCCEEDED] * 2)

    def test_the_folder_has_one_owner(self):
        self.fault(rate=200_000)
        self.add([3], 60)
        process = self.client.start("queue", "run")
        self.wait_for(lambda: self.media_files(), "nothing was written")
        run = self.queue("list", code=systemlab.FAILED)
        self.assertIn("close it first", run.err)
        process.send_signal(signal.SIGINT)
        self.assertEqual(self.client.finish(process).code, systemlab.INTERRUPTED)

    def test_what_fails_at_the_begin_goes_to_the_failed_table(self):
        with socket.create_server(("127.0.0.1", 0)) as reserved:
            nobody = f"http://127.0.0.1:{reserved.getsockname()[1]}/onvif/device_service"
        cases = (("login refused", {}, {"password": "not it"}, None, LOGIN_FAILED),
                 ("unreachable", {}, {}, nobody, CONNECT_FAILED),
                 ("no replay address", {"no_replay": 1}, {}, None, CONNECT_FAILED))
        for name, faults, options, device, state in cases:
            with self.subTest(name), Client() as self.client:
                self.fault(**faults)
                self.add([3], 10, device, **options)
                run = self.queue("run", "--no-retry", code=systemlab.INCOMPLETE)
                self.assertIn("1 tasks failed", run.err)
                tasks = self.listing()
                self.assertEqual([task["state"] for task in tasks], [state], tasks)
                self.assertRegex(tasks[0]["reason"], r"^\S.{8,}", tasks)
                if state == LOGIN_FAILED:
                    # The right password with the next request makes the stored recorder work again.
                    self.add([7], 4)
                self.fault()
                if device is None:
                    self.queue("retry", "--id", tasks[0]["id"])
                    self.queue("run")
                    self.check_download(self.listing(), 3, BEGIN, BEGIN + 10 * SECOND)

    def test_a_full_recorder_is_asked_again(self):
        self.add([3], 4)
        self.control("POST", "/fault", name="session-limit", value=1, count=1)
        began = time.monotonic()
        self.queue("run", timeout=90)
        self.assertGreater(time.monotonic() - began, 5, "it did not wait for its turn")
        self.check_download(self.listing(), 3, BEGIN, BEGIN + 4 * SECOND)

    def test_what_breaks_off_is_kept_and_the_rest_fetched_by_itself(self):
        for name, faults in (("drop", {"drop_after": 1_500_000}), ("stall", {"stall_after": 1_500_000})):
            with self.subTest(name), Client() as self.client:
                self.fault(**faults)
                self.add([3], 60)
                self.queue("run", "--no-retry", code=systemlab.INCOMPLETE, timeout=90)
                tasks = self.listing()
                self.assertEqual(sorted(task["state"] for task in tasks), [SUCCEEDED, ABNORMAL], tasks)
                self.assertNotEqual(tasks[0]["path"], tasks[1]["path"])
                self.fault()
                self.queue("retry", "--all")
                self.queue("run")
                self.check_download(self.listing(), 3, BEGIN, BEGIN + 60 * SECOND)

    def test_changed_parameter_sets_make_two_records_that_join(self):
        self.fault(parameter_set_change=20)
        self.add([3], 40)
        self.queue("run")
        tasks = self.listing()
        self.assertEqual([task["state"] for task in tasks], [SUCCEEDED] * 2, tasks)
        self.check_download(tasks, 3, BEGIN, BEGIN + 40 * SECOND)

    def test_a_disk_that_is_nearly_full_pauses_the_task(self):
        self.add([3], 10)
        self.client.disk_reserve_bytes = 2 ** 60
        run = self.queue("run", code=systemlab.INCOMPLETE)
        self.assertIn("disk free space < 1GB", run.err)
        self.assertEqual([task["state"] for task in self.listing()], [PAUSED])
        self.client.disk_reserve_bytes = 0
        self.queue("resume", "--all")
        self.queue("run")
        self.check_download(self.listing(), 3, BEGIN, BEGIN + 10 * SECOND)

    def test_a_channel_that_is_gone_pauses_its_task(self):
        self.add([30], 10)
        self.queue("run", "--no-retry", code=systemlab.INCOMPLETE)
        self.assertEqual([task["state"] for task in self.listing()], [CONNECT_FAILED])
        # By now it is known which channels there are.
        self.queue("retry", "--all")
        self.queue("run", code=systemlab.INCOMPLETE)
        self.assertEqual([task["state"] for task in self.listing()], [PAUSED])

    def media_files(self):
        return [os.path.join(folder, name) for folder, _, names in os.walk(self.client.folder) for name in names
                if name.endswith(".mp4")]

    def wait_for(self, condition, message, timeout=20):
        limit = time.monotonic() + timeout
        while not condition():
            self.assertLess(time.monotonic(), limit, message)
            time.sleep(0.02)

    def test_quitting_with_five_running_keeps_everything(self):
        channels = range(1, 8)
        self.add(channels, 60)
        self.fault(rate=400_000)
        process = self.client.start("queue", "run")
        self.wait_for(lambda: len(self.media_files()) >= AT_ONCE and all(map(os.path.getsize, self.media_files())),
                      "no five downloads came up")
        time.sleep(2)
        began = time.monotonic()
        process.send_signal(signal.SIGTERM)
        run = self.client.finish(process)
        self.assertLess(time.monotonic() - began, QUIT_WITHIN_S, "quitting took too long")
        self.assertEqual(run.code, systemlab.INTERRUPTED, run)
        tasks = self.listing()
        finished = [task for task in tasks if task["state"] == SUCCEEDED]
        self.assertEqual(len([task for task in tasks if task["state"] == WAITING]), len(channels), tasks)
        self.assertGreaterEqual(len(finished), AT_ONCE, "what had arrived was not kept")
        for task in finished:
            self.check_success(task)
        self.fault()
        self.queue("run", timeout=120)
        for channel in channels:
            self.check_download(self.listing(), channel, BEGIN, BEGIN + 60 * SECOND)

    def test_being_killed_loses_nothing(self):
        chance = random.Random(systemlab.OPTIONS.seed)
        for series in range(40 if systemlab.OPTIONS.full else 2):
            delays = [chance.uniform(0.05, 3) for _ in range(5 if systemlab.OPTIONS.full else 3)]
            with self.subTest(series=series, delays=delays), Client() as self.client:
                self.kill_and_finish(delays)

    def kill_and_finish(self, delays):
        channels = range(1, 6)
        self.add(channels, 60)
        self.fault(rate=300_000)
        for delay in delays:
            process = self.client.start("queue", "run")
            time.sleep(delay)
            process.kill()
            self.client.finish(process)
            self.listing()
        self.fault()
        self.queue("run", timeout=120)
        tasks = self.listing()
        for channel in channels:
            self.check_download(tasks, channel, BEGIN, BEGIN + 60 * SECOND)
        claimed = {task["path"] for task in tasks}
        self.assertEqual(claimed, set(self.media_files()), "files that no record knows, or records without a file")
        for task in tasks:
            self.assertEqual(media.decode_errors(task["path"]), "", task)


if __name__ == "__main__":
    systemlab.main()
