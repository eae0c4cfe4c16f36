#!/usr/bin/env python3
"""Downloads while clocks change (row E15): spans across both nights in which summer time begins and ends and across midnight, and a
wall clock that is set while they run. Those of backups are in test_backup.py."""
import datetime
import json
import os
import struct
import sys
import time
import unittest

import rows
import systemlab
from judges import SECOND, DownloadJudge
from systemlab import Client, Recorder

SPANS = {"summer time begins": ("2026-03-29", "2026-03-29T00:59:50Z"), "summer time ends": ("2026-10-25", "2026-10-25T00:59:50Z"),
         "midnight": ("2026-01-10", "2026-01-10T22:59:50Z")}
CHANNEL = 3


class Clocks(DownloadJudge):
    cases = 0

    def fetch(self, day, begin, seconds, hours=()):
        """Downloads the span; meanwhile the wall clock is set to be so many hours off, one after the other."""
        Clocks.cases += 1
        clock = os.path.join(self.client.folder, "clock")
        with open(clock, "wb") as file:
            file.write(struct.pack("q", 0))
        self.client.changes.update(TZ="Europe/Berlin", VEMO_CLOCK_FILE=clock,
                                   LD_PRELOAD=os.path.join(systemlab.OPTIONS.build, "lib", "libvemo_clock.so"))
        with Recorder("--channels", "4", "--first-day", day, "--days", "2", "--time-zone", "Europe/Berlin") as self.recorder:
            end = begin + seconds * SECOND
            run = self.client.run("queue", "add", "--device", self.recorder.addresses["onvif"], "--user", systemlab.USER, "--channel",
                                  CHANNEL, "--begin", systemlab.iso(begin), "--end", systemlab.iso(end))
            self.assertEqual(run.code, systemlab.DONE, run)
            if hours:
                self.recorder.ask("/fault", method="POST", name="rate", value=1_000_000)
            process = self.client.start("queue", "run")
            for off in hours:
                self.wait_for_bytes(500_000)
                with open(clock, "r+b") as file:  # in place, because the program has it mapped
                    file.write(struct.pack("q", off * 3600))
            run = self.client.finish(process, timeout=60)
            self.assertEqual(run.code, systemlab.DONE, run)
            self.check_download(self.client.run("queue", "list", "--json").lines, CHANNEL, begin, end)

    def wait_for_bytes(self, count):
        until = time.monotonic() + 30
        first = json.loads(self.recorder.ask("/stats"))["streamBytes"]
        while json.loads(self.recorder.ask("/stats"))["streamBytes"] < first + count:
            self.assertLess(time.monotonic(), until, "nothing is fetched")
            time.sleep(0.02)

    def test_spans_across_changes(self):
        for name, (day, begin) in SPANS.items():
            with self.subTest(name), Client() as self.client:
                self.fetch(day, systemlab.parse_time(begin), 20)

    def test_a_clock_that_is_set_while_it_runs(self):
        for name, hours in {"forth": (26, 49), "back": (-9, -49, 0)}.items():
            with self.subTest(name), Client() as self.client:
                self.fetch("2026-01-10", datetime.datetime(2026, 1, 10, 7, 2, tzinfo=datetime.timezone.utc), 40, hours)


if __name__ == "__main__":
    rest = systemlab.parse()
    outcome = unittest.main(module="__main__", argv=[sys.argv[0], *rest], verbosity=2, exit=False).result
    violations = len(outcome.failures) + len(outcome.errors)
    rows.tell("E15", "downloads while clocks change", Clocks.cases, violations, "-")
    sys.exit(1 if violations else 0)
