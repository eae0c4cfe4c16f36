"""When downloads and backups are right: the list, the files as ffmpeg reads them, and what the recorder says that it sent agree, and
asked spans are covered exactly once."""
import datetime
import json
import os
import subprocess

import media
import systemlab
from systemlab import Test

DAY = systemlab.FIRST_DAY
SECOND = datetime.timedelta(seconds=1)
PICTURE_S = 0.04
BEYOND = 4 * SECOND
# A resumed replay begins at the key frame before, so a file may begin up to a GOP of 2 s before its record.
GOP_FRAMES = 50
WAITING, PAUSED, SUCCEEDED, LOGIN_FAILED, CONNECT_FAILED, ABNORMAL = 0, 2, 3, 4, 5, 6


def at(clock):
    hour, minute = map(int, clock.split(":"))
    return DAY + datetime.timedelta(hours=hour, minutes=minute)


def spans_of(segments):
    return sorted((at(each.split("-")[0]), at(each.split("-")[1]) + 59 * SECOND) for each in segments)


def common(some, others):
    both = [(max(a[0], b[0]), min(a[1], b[1])) for a in some for b in others]
    return sorted(span for span in both if span[0] < span[1])


def seconds(spans):
    return sum((end - begin).total_seconds() for begin, end in spans)


class DownloadJudge(Test):
    """A test of stored downloads; `recorder` is the one that they are fetched from."""

    def check_success(self, task, playable=True):
        self.assertEqual(task["state"], SUCCEEDED, task)
        self.check_file(task["path"], playable)
        self.assertEqual(os.path.getsize(task["path"]), task["bytes"], task)

    def check_download(self, tasks, channel, begin, end):
        """The records of the channel cover the span exactly once, each with a file of its own; their pictures are what was sent,
        without a hole, in order."""
        pieces = sorted((task for task in tasks if task["channel"] == channel), key=lambda task: task["begin"])
        self.assertEqual(systemlab.parse_time(pieces[0]["begin"]), begin, pieces)
        self.assertEqual(systemlab.parse_time(pieces[-1]["end"]), end, pieces)
        for one, next_one in zip(pieces, pieces[1:]):
            self.assertEqual(one["end"], next_one["begin"], f"the span is not covered exactly once: {pieces}")
        self.assertEqual(len({task["path"] for task in pieces}), len(pieces), f"two records share a file: {pieces}")
        sent = [md5 for _, md5 in self.recorder.samples(channel, begin, end)[0]]
        at = 0
        for task in pieces:
            self.check_success(task, playable=False)
            got = media.samples(task["path"])[0]
            earliest = max(0, at - 2 * GOP_FRAMES)
            first = self.position(got, sent[earliest:])
            self.assertIsNotNone(first, f"{task['path']}: no unbroken part of what was sent")
            self.assertLessEqual(earliest + first, at, f"{task['path']}: pictures are missing before it")
            at = earliest + first + len(got)
        self.assertEqual(at, len(sent), f"channel {channel}: pictures are missing at the end")


class BackupJudge(Test):
    """A test of planned backups; `recorder` is the one that they are fetched from."""

    def held(self, channel, segments):
        listed = json.loads(self.recorder.ask("/recordings", channel=channel))
        recordings = [(systemlab.parse_time(each["begin"]), systemlab.parse_time(each["end"])) for each in listed]
        return common(recordings, spans_of(segments))

    def check_backup(self, task, segments, tracks=(0, 1)):
        """The task's files hold what the recorder holds of the segments, every second of it once."""
        self.assertEqual(task["state"], "finished", task)
        wanted = self.held(task["channel"], segments)
        self.assertAlmostEqual(task["held"], seconds(wanted), delta=1, msg=task)
        self.assertEqual(task["safe"], task["held"], task)
        files = sorted((systemlab.parse_time(each["begin"]), systemlab.parse_time(each["end"]), each["path"])
                       for each in task["files"])
        for one, next_one in zip(files, files[1:]):
            self.assertLessEqual(one[1], next_one[0], f"two pieces overlap: {task}")
        self.assertTrue(all(each["finished"] for each in task["files"]), task)
        for begin, end, path in files:
            inside = common(wanted, [(begin, end)])
            if not inside:
                self.assertEqual(path, "", f"a file without a recording: {task}")
                continue
            self.assertTrue(os.path.isfile(path), path)
            video = next(each for each in media.probe(path)["streams"] if each["codec_type"] == "video")
            self.assertAlmostEqual(float(video["duration"]), seconds(inside), delta=2 * PICTURE_S, msg=path)
            # What lies beyond a cut, up to the key frame before it or the last picture that arrived, is in the file and not shown.
            sent = self.recorder.samples(task["channel"], inside[0][0] - BEYOND, inside[-1][1] + BEYOND)
            self.check_samples(path, {track: sent[track] for track in tracks}, inside[0][0],
                               inside[-1][1])
        self.check_manifests([path for _, _, path in files if path])

    def check_manifests(self, paths):
        for folder in {os.path.dirname(path) for path in paths}:
            done = subprocess.run(["sha256sum", "--strict", "-c", "SHA256SUMS"], cwd=folder, capture_output=True, text=True)
            self.assertEqual(done.returncode, 0, f"{folder}: {done.stdout}{done.stderr}")
            with open(os.path.join(folder, "manifest.json"), encoding="utf-8") as file:
                told = {each["file"]: each for each in json.load(file)["files"]}
            for path in paths:
                if os.path.dirname(path) == folder:
                    self.assertEqual(told[os.path.basename(path)]["bytes"], os.path.getsize(path), path)
            strangers = set(os.listdir(folder)) - set(told) - {"SHA256SUMS", "manifest.json"}
            self.assertEqual(strangers, set(), "something was left in the folder")
