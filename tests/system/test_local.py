#!/usr/bin/env python3
"""Recordings and snapshots on this computer, whoever wrote them: found, told as stock programs tell them, saved under legal names,
deleted with all that belongs to them."""
import datetime
import os
import subprocess

import media
import systemlab
from systemlab import Client, Recorder, Test

CREATED = datetime.datetime(2026, 1, 10, 8, 0, tzinfo=datetime.timezone.utc)
WRITTEN = datetime.datetime(2026, 1, 11, 12, 0, tzinfo=datetime.timezone.utc)
NASTY = ["a/../b", "c:d*e?", "dots...", "bell\x07", "x" * 300, "\u05e9\u05dc\u05d5\u05dd \u202e\u05e2\u05d5\u05dc\u05dd", "NUL", "\U0001f600" * 90]


def ffmpeg(path, *options, seconds=5):
    subprocess.run(["ffmpeg", "-y", "-v", "error", "-f", "lavfi", "-i", f"testsrc=size=64x48:rate=10:duration={seconds}", *options, path],
                   check=True, timeout=60)


def gstreamer(source, path):
    """The same pictures, written by another muxer."""
    subprocess.run(["gst-launch-1.0", "-q", "filesrc", f"location={source}", "!", "qtdemux", "!", "h264parse", "!", "mp4mux", "!", "filesink",
                    f"location={path}"], check=True, timeout=60)


def content(path):
    with open(path, "rb") as file:
        return file.read()


def seconds_between(first, second):
    return abs((first - second).total_seconds())


class LocalTest(Test):
    def setUp(self):
        self.client = self.enterContext(Client())
        self.folder = os.path.join(self.client.folder, "videos")
        os.mkdir(self.folder)

    def path(self, name):
        return os.path.join(self.folder, name)

    def local(self, *arguments, code=systemlab.DONE):
        run = self.client.run("local", *arguments, password=None)
        self.assertEqual(run.code, code, run)
        return run

    def rescan(self):
        return self.local("recordings", "rescan", "--dir", self.folder, "--json").last

    def listed(self, kind="recordings", *options):
        return {os.path.relpath(each["path"], self.folder): each for each in self.local(kind, "list", "--json", *options).lines}

    def check_span(self, record, begin, end, within_s, what):
        self.assertLessEqual(seconds_between(systemlab.parse_time(record["begin"]), begin), within_s, f"{what}: {record}")
        self.assertLessEqual(seconds_between(systemlab.parse_time(record["end"]), end), within_s, f"{what}: {record}")

    def test_files_of_every_writer_are_told_as_ffprobe_tells_them(self):
        with Recorder("--channels", "1") as recorder:
            begin, end = CREATED, CREATED + datetime.timedelta(seconds=20)
            run = self.client.download(recorder.addresses["onvif"], 1, begin, end, self.path("ours.mp4"))
            self.check_run(self.client, run, systemlab.DONE)
        ffmpeg(self.path("created.mp4"), "-c:v", "libx264", "-metadata", f"creation_time={systemlab.iso(CREATED)}")
        ffmpeg(self.path("silent.mp4"), "-c:v", "libx264")
        ffmpeg(self.path("fragments.mp4"), "-c:v", "libx264", "-g", "10", "-movflags", "frag_keyframe+empty_moov")
        os.mkdir(self.path("sub"))
        gstreamer(self.path("silent.mp4"), self.path("sub/gst.mp4"))
        whole = content(self.path("silent.mp4"))
        for name, data in {"cut.mp4": whole[:-300], "garbage.mp4": b"garbage" * 100, "empty.mp4": b""}.items():
            with open(self.path(name), "wb") as file:
                file.write(data)
        os.symlink("/etc/hostname", self.path("link.mp4"))
        os.symlink("/etc", self.path("etc"))
        os.mkfifo(self.path("pipe.mp4"))
        for name in ("silent.mp4", "fragments.mp4"):
            os.utime(self.path(name), (WRITTEN.timestamp(), WRITTEN.timestamp()))

        self.assertEqual(self.rescan(), {"recordings": 8, "snapshots": 0, "read": 8, "broken": 3, "gone": 0})
        records = self.listed()
        self.assertEqual(set(records), {"ours.mp4", "created.mp4", "silent.mp4", "fragments.mp4", "sub/gst.mp4", "cut.mp4", "garbage.mp4",
                                        "empty.mp4"})
        for name, record in records.items():
            self.assertEqual(record["bytes"], os.path.getsize(self.path(name)), name)
            self.assertEqual(record["ok"], name not in ("cut.mp4", "garbage.mp4", "empty.mp4"), record)
            self.assertEqual(bool(record.get("problem")), not record["ok"], record)
        for name in ("ours.mp4", "created.mp4", "sub/gst.mp4"):
            told = media.probe(self.path(name))["format"]
            start = systemlab.parse_time(told["tags"]["creation_time"])
            # The time in a header has whole seconds.
            self.check_span(records[name], start, start + datetime.timedelta(seconds=float(told["duration"])), 1.0, name)
            self.assertFalse(records[name]["guessed"], name)
        for name in ("silent.mp4", "fragments.mp4"):
            length = datetime.timedelta(seconds=float(media.probe(self.path(name))["format"]["duration"]))
            self.check_span(records[name], WRITTEN - length, WRITTEN, 0.05, name)
            self.assertTrue(records[name]["guessed"], name)
        self.check_span(records["ours.mp4"], begin, end, 0.05, "ours.mp4")

        inside = ("--begin", systemlab.iso(CREATED), "--end", systemlab.iso(CREATED + datetime.timedelta(seconds=3)))
        self.assertEqual(set(self.listed("recordings", *inside)), {"ours.mp4", "created.mp4"})

        self.assertEqual(self.rescan()["read"], 0)
        os.remove(self.path("created.mp4"))
        self.assertEqual(self.rescan()["gone"], 1)
        self.assertNotIn("created.mp4", self.listed())
        os.rename(self.folder, self.folder + ".pulled")
        self.local("recordings", "rescan", "--dir", self.folder, code=systemlab.INCOMPLETE)
        self.assertEqual(len(self.listed()), 7)

    def test_snapshots_are_found_by_what_their_files_tell(self):
        ffmpeg(self.path("Gate@2026-01-10 08_00_00_500.jpg"), "-frames:v", "1")
        ffmpeg(self.path("Gate@2026-01-10 09_00_00.bmp"), "-frames:v", "1")
        with open(self.path("torn.jpg"), "wb") as file:
            file.write(content(self.path("Gate@2026-01-10 08_00_00_500.jpg"))[:-50])
        self.assertEqual(self.rescan()["snapshots"], 3)
        records = self.listed("snapshots")
        first = records["Gate@2026-01-10 08_00_00_500.jpg"]
        self.assertEqual((first["channel"], first["captured"][:23], first["ok"]), ("Gate", "2026-01-10T08:00:00.500", True))
        self.assertFalse(records["torn.jpg"]["ok"])
        run = self.local("snapshots", "save-as", "--channel", "Gate", "--to", self.client.out)
        self.assertEqual(sorted(os.listdir(self.client.out)), ["Gate(2026-01-10 08_00_00).jpg", "Gate(2026-01-10 09_00_00).bmp"], run)
        self.local("snapshots", "delete", "--channel", "Gate", "--yes")
        self.assertEqual(set(self.listed("snapshots")), {"torn.jpg"})
        self.assertEqual(os.listdir(self.folder), ["torn.jpg"])

    def test_copies_have_legal_names_in_the_folder_and_equal_ones_both_survive(self):
        ffmpeg(self.path("one.mp4"), "-c:v", "libx264", "-metadata", f"creation_time={systemlab.iso(CREATED)}")
        clip = content(self.path("one.mp4"))
        os.remove(self.path("one.mp4"))
        names = ["Gate", "Gate", *NASTY]
        for index, name in enumerate(names):  # a channel's name is in the tags, which the file's own name need not follow
            with open(self.path(f"{index}.mp4"), "wb") as file:
                file.write(self.named(clip, name))
        self.assertEqual(self.rescan()["broken"], 0)
        run = self.local("recordings", "save-as", "--all", "--to", self.client.out, "--json")
        saved = [line["saved"] for line in run.lines]
        self.assertEqual(len(saved), len(names), run)
        self.assertEqual(sorted(os.listdir(self.client.out)), sorted(os.path.basename(path) for path in saved))
        for path in saved:
            name = os.path.basename(path)
            self.assertEqual(os.path.dirname(path), self.client.out)
            self.assertLessEqual(len(os.fsencode(name)), 255, name)
            self.assertTrue(name.endswith(").mp4") or name.endswith(") (2).mp4"), name)
            self.assertNotRegex(name, r'[\x00-\x1f\x7f/\\:*?"<>|\u202a-\u202e\u2066-\u2069]')
        self.assertEqual(sum(os.path.basename(path).startswith("Gate(") for path in saved), 2)

    @staticmethod
    def named(clip, channel):
        """The clip with a tag com.vemo.channel and one for the begin, in a `udta` at the end of its `moov`, which is the last box."""
        def box(kind, payload):
            return (len(payload) + 8).to_bytes(4, "big") + kind + payload

        def tag(name, text):
            return box(b"----", box(b"mean", b"\0\0\0\0com.vemo") + box(b"name", b"\0\0\0\0" + name) +
                       box(b"data", b"\0\0\0\1\0\0\0\0" + text))

        at = clip.rindex(b"moov") - 4
        tags = tag(b"com.vemo.start", b"2026-01-10T08:00:00Z") + tag(b"com.vemo.end", b"2026-01-10T08:00:05Z")
        tags += tag(b"com.vemo.channel", channel.encode())
        return clip[:at] + box(b"moov", clip[at + 8:] + box(b"udta", box(b"meta", b"\0\0\0\0" + box(b"ilst", tags))))

    def test_file_record_and_log_go_together(self):
        for name in ("a.mp4", "b.mp4"):
            ffmpeg(self.path(name), "-c:v", "libx264", "-metadata", f"creation_time={systemlab.iso(CREATED)}")
        with open(self.path("a.vdx"), "w", encoding="utf-8") as file:
            file.write("index")
        self.rescan()
        self.local("recordings", "delete", "--channel", "a", code=systemlab.USAGE)
        self.local("recordings", "delete", "--yes", code=systemlab.USAGE)
        self.local("recordings", "delete", "--channel", "a", "--yes")
        self.assertEqual(set(self.listed()), {"b.mp4"})
        self.assertEqual(os.listdir(self.folder), ["b.mp4"])
        logged = subprocess.run(["sqlite3", os.path.join(self.client.folder, "data", "data", "vemo.db"),
                                 "SELECT channel_name, text FROM files_center_logs"], capture_output=True, text=True, check=True).stdout
        self.assertRegex(logged, r"^a\|Record begin time:2026-01-10 .*,file size:\d+ B \(00:00:05\)\n$")

    def test_a_file_that_will_not_go_keeps_its_record(self):
        ffmpeg(self.path("a.mp4"), "-c:v", "libx264")
        self.rescan()
        os.rename(self.path("a.mp4"), self.path("kept"))
        os.mkdir(self.path("a.mp4"))  # what is no file is never removed
        run = self.local("recordings", "delete", "--all", "--yes", code=systemlab.INCOMPLETE)
        self.assertIn("a.mp4", run.err)
        self.assertEqual(set(self.listed()), {"a.mp4"})


if __name__ == "__main__":
    systemlab.main()
