#!/usr/bin/env python3
"""The first day with the program, from its package to a planned backup, as a new user goes through it: by clicks and keys in the real
window, at its most talkative: no password may stand anywhere afterwards. With VEMO_PICTURES naming a folder, each step leaves a picture there."""
import contextlib
import datetime
import glob
import os
import subprocess
import unittest
import unittest.mock

import desktop
import media
import rows
import systemlab
import systrace
import test_package
from desktop import Window, wait_for, xdotool
from systemlab import Client, Recorder, Test
from systrace import TalkativeClient

NAME, SECRET = "m.keller", "correct horse battery 9"
# What can be typed by a pointer's and a keyboard's means alone.
RECORDER_SECRET = "open sesame 9"
RECORD_S = 4
AFTERNOON_HOUR = 14
SPAN_LIMITS_S = (20, 400)


def duration(path):
    return float(media.probe(path, "-show_entries", "format=duration")["format"]["duration"])


def setUpModule():
    unittest.addModuleCleanup(desktop.Desktop().end)


class FirstDay(Test):
    def setUp(self):
        # In a zone where it is early afternoon now, so that the span in the middle of the time line has come.
        now = datetime.datetime.now(datetime.timezone.utc)
        offset = AFTERNOON_HOUR - now.hour
        zone = f"Etc/GMT{-offset:+d}"
        with unittest.mock.patch.object(systemlab, "FIRST_DAY", now + datetime.timedelta(hours=offset)):
            self.recorder = Recorder("--channels", "4", "--discovery", "--time-zone", zone, password=RECORDER_SECRET)
        self.addCleanup(self.recorder.stop)
        self.client = TalkativeClient() if systrace.is_there() else Client()
        self.addCleanup(self.client.__exit__)
        self.client.program = os.path.join(test_package.unpacked("vemo"), "usr/bin/vemo_client")
        self.client.changes.update(VEMO_KEYRING="off", TZ=zone)
        os.makedirs(os.path.join(self.client.folder, "home", "Videos"))
        self.window = Window(self.client, "--theme", "dark", login=True)
        self.addCleanup(self.window.kill)
        xdotool("windowmove", self.window.id, 0, 0, "windowsize", "--sync", self.window.id, 1440, 870)
        self.steps = 0

    def picture(self, name):
        """Of what the step before has led to; whoever can't see it gets a name for each button that keys can reach."""
        from gi.repository import Atspi
        pressed = (Atspi.Role.PUSH_BUTTON, Atspi.Role.CHECK_BOX, Atspi.Role.RADIO_BUTTON, Atspi.Role.TOGGLE_BUTTON)
        nameless = self.window.find(lambda each: each.get_role() in pressed and not each.get_name() and
                                    each.get_state_set().contains(Atspi.StateType.FOCUSABLE))
        self.assertIsNone(nameless, f"step {name}: a button without a name in {nameless and nameless.get_parent().get_name()!r}")
        self.steps += 1
        if folder := os.environ.get("VEMO_PICTURES"):
            xdotool("sleep", 0.5)
            subprocess.run(["import", "-window", "root", "-crop", "1440x890+0+0", os.path.join(folder, f"first-day-{self.steps:02d}-{name}.png")],
                           check=True)

    def fill(self, field, text):
        from gi.repository import Atspi
        fields = (Atspi.Role.TEXT, Atspi.Role.PASSWORD_TEXT)  # their labels have the same name
        self.window.click(self.window.wait_for(lambda each: each.get_name() == field and each.get_role() in fields, field))
        xdotool("key", "ctrl+a", "type", "--delay", 20, text)

    def starting_with(self, part, role=None):
        return self.window.wait_for(lambda each: (each.get_name() or "").startswith(part) and (not role or each.get_role_name() == role), part)

    def cell_of(self, text, column):
        """The cell of the first row that shows the text."""
        def look():
            table = self.window.table()
            for row in range(table.get_n_rows() if table else 0):
                if any(text in (table.get_accessible_at(row, each).get_name() or "") for each in range(table.get_n_columns())):
                    return table.get_accessible_at(row, column)
            return None
        return wait_for(look, lambda: f"no row with {text}; the window shows {self.window.shown()}", 30)

    def box_of(self, accessible):
        from gi.repository import Atspi
        box = accessible.get_extents(Atspi.CoordType.WINDOW)
        return box.x, box.y, box.width, box.height

    def files(self, pattern):
        return sorted(glob.glob(os.path.join(self.client.folder, "home", "Videos", "**", pattern), recursive=True))

    def check(self, name):
        """By the box in a tree, which stands before the name."""
        from gi.repository import Atspi
        cell = self.starting_with(name, "table cell")
        box = cell.get_extents(Atspi.CoordType.SCREEN)
        self.window.click(cell, dx=10 - box.width // 2)

    def test_from_the_package_to_a_planned_backup(self):
        self.become_administrator()
        self.find_the_recorder()
        self.play()
        self.mark_and_download()
        self.watch_the_download()
        self.record_live()
        self.find_the_recording()
        self.plan_a_backup()
        run = self.window.close()
        self.assertEqual(run.code, systemlab.DONE, run)
        if systrace.is_there():
            leaks, gaps = self.client.leaks([SECRET], NAME) + self.client.leaks([RECORDER_SECRET]), self.client.gaps()
            rows.tell("G6", "first day, made for the owner alone", self.client.looked_at(), len(gaps), "-")
            rows.tell("G7", "first day, places of a password", self.client.looked_at(), len(leaks), "-")
            self.assertEqual(leaks + gaps, [])

    def become_administrator(self):
        self.window.text("Create the administrator")
        self.fill("User name", NAME)
        self.fill("Password", SECRET)
        self.fill("Repeat the password", SECRET)
        self.picture("administrator")
        self.window.press("Create and continue")
        self.window.text("free of")
        self.picture("folders")
        wait_for(lambda: not self.window.find(lambda each: each.get_name() == "Continue") or self.window.press("Continue"), "the folders won't do", 20)

    def find_the_recorder(self):
        self.window.press("Look for recorders")
        address = self.recorder.addresses["onvif"].split("/")[2]
        self.window.click(self.cell_of(address, 0))  # others may be in the network
        self.fill("User name", systemlab.USER)
        self.fill("Password", RECORDER_SECRET)
        self.picture("discovery")
        self.window.press("Add 1 recorder")
        self.cell_of("Online", 0)
        self.picture("devices")

    def play(self):
        self.window.press("Playback")
        for number in (1, 3):
            self.check(f"Camera {number}")
        self.window.press("Search")
        self.window.text("recordings,")
        left, top, width, height = self.box_of(self.window.wait_for(lambda each: each.get_name() == "Recordings of the day", "time line"))
        self.line = (left + width // 2, top + height // 2)
        xdotool("mousemove", "--window", self.window.id, *self.line, "click", 1)
        self.window.press("Play (Space)")
        self.window.wait_for(lambda each: each.get_name() == "Pause (Space)", "video that plays")
        xdotool("sleep", 2)
        self.picture("playback")
        self.window.press("Pause (Space)")

    def mark_and_download(self):
        for _ in range(5):
            self.window.press("Zoom in (plus)")
        x, y = self.line
        moves = [argument for step in range(1, 9) for argument in ("mousemove", "--window", self.window.id, x + 5 * step, y, "sleep", 0.05)]
        xdotool("mousemove", "--window", self.window.id, x, y, "mousedown", 1, *moves, "mouseup", 1)
        self.picture("span")
        self.window.press("Download")
        self.window.press("Files Center")
        self.window.click(self.starting_with("Download Success("))
        for number in (1, 3):
            self.cell_of(f"Camera {number}", 1)
        self.picture("success")
        downloads = self.files("*.mp4")
        self.assertEqual(len(downloads), 2)
        for path in downloads:
            self.assertTrue(SPAN_LIMITS_S[0] < duration(path) < SPAN_LIMITS_S[1], f"{path}: {duration(path)} s")

    def watch_the_download(self):
        self.window.click(self.cell_of("Camera 3", 1))
        xdotool("key", "Return")
        self.window.wait_for(lambda each: (each.get_name() or "").startswith("Camera 3@") and each.get_role_name() == "dialog", "player")
        xdotool("sleep", 3)
        self.picture("player")
        self.window.press("Close (Esc)")
        self.window.wait_for(lambda each: each.get_name() == "Live", "end of the player")

    def record_live(self):
        self.window.press("Live")
        self.window.click(self.starting_with("Camera 2", "table cell"))
        xdotool("key", "Return")
        wait_for(lambda: self.window.find(lambda each: "Mbit/s" in (each.get_name() or "") and not (each.get_name() or "").endswith("0.0 Mbit/s")), "no live video", 20)
        self.window.press("Record")
        self.window.wait_for(lambda each: each.get_name() == "Stop recording", "recording")
        xdotool("sleep", RECORD_S)
        self.picture("live")
        self.window.press("Snapshot")
        self.window.press("Stop recording")
        self.window.wait_for(lambda each: each.get_name() == "Record", "end of the recording")
        recording, = wait_for(lambda: self.files("Recordings/**/*.mp4"), "nothing was recorded")
        self.assertGreater(duration(recording), RECORD_S - 1)
        wait_for(lambda: self.files("Snapshots/**/*.jpg"), "there is no snapshot")

    def find_the_recording(self):
        self.window.press("Files Center")
        self.window.press("Local Recording")
        with contextlib.suppress(AssertionError):
            self.window.press("Search")
        self.cell_of("Camera 2", 1)
        self.picture("local-recording")

    def plan_a_backup(self):
        self.window.press("Recordings Backup")
        self.window.press("Add")
        self.check("Simulated")
        self.window.text("4 channels selected")
        self.picture("add-backup")
        # Its namesake is above the side tool.
        self.window.click(self.window.wait_for(lambda each: each.get_name() == "Add" and self.box_of(each)[1] > desktop.SCREEN[1] // 2, "button"))
        self.window.text("4 tasks")
        self.window.press("Start")
        self.window.text("Finished")
        wait_for(lambda: len(self.files("Backup/**/*.mp4")) == 4, "not every channel is backed up")
        self.picture("backup")


if __name__ == "__main__":
    desktop.need()
    systemlab.main()
