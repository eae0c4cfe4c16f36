#!/usr/bin/env python3
"""A recording on the simulated recorder becomes an MP4 on disk: every sample that the recorder sent, and what is said of it."""
import datetime
import os
import time

import media
import systemlab
from systemlab import Client, Recorder, RecorderTest

FRAME_S = 0.04
CODECS = {"h264": {"aac"}, "hevc": {"aac"}}
MINUTE = datetime.timedelta(minutes=1)
SECOND = datetime.timedelta(seconds=1)


def day_of(test, client, recorder, channel):
    """All recordings of the channel's first day, as search tells them."""
    run = client.search(recorder.addresses["onvif"], channel, systemlab.FIRST_DAY, systemlab.FIRST_DAY + datetime.timedelta(days=1),
                        "--json")
    test.check_run(client, run, systemlab.DONE, within_s=20)
    recordings = run.lines
    test.assertGreater(len(recordings), 1, run)
    return recordings


class Download(RecorderTest):
    def longest(self, channel):
        recordings = day_of(self, self.client, self.recorder, channel)
        return max(recordings, key=lambda each: systemlab.parse_time(each["end"]) - systemlab.parse_time(each["begin"]))

    def check_download(self, channel, begin, end, run):
        """What must hold of every complete download, gaps or not."""
        self.check_run(self.client, run, systemlab.DONE)
        last = run.last
        path = last["path"]
        self.check_file(path)
        self.assertEqual(os.path.getsize(path), last["bytes"], run)
        gaps_s = sum((systemlab.parse_time(gap["end"]) - systemlab.parse_time(gap["begin"])).total_seconds() for gap in last["gaps"])
        probed = media.probe(path)
        wanted = (end - begin).total_seconds() - gaps_s
        self.assertAlmostEqual(float(probed["format"]["duration"]), wanted, delta=FRAME_S + 0.001, msg=f"{run}\n{probed['format']}")
        created = systemlab.parse_time(probed["format"]["tags"]["creation_time"])
        self.assertLess(abs((created - begin).total_seconds()), 1.0 + FRAME_S, probed["format"])
        self.check_samples(path, self.recorder.samples(channel, begin, end), begin, end)
        return probed

    def test_every_sample_of_each_channel_arrives(self):
        seen = set()
        for channel in (1, 2):
            with self.subTest(channel=channel):
                begin = systemlab.parse_time(self.longest(channel)["begin"]) + 10 * SECOND
                end = begin + MINUTE
                run = self.client.download(self.device, channel, begin, end, os.path.join(self.client.out, f"{channel}.mp4"))
                probed = self.check_download(channel, begin, end, run)
                self.assertEqual(run.last["gaps"], [], run)
                codecs = {stream["codec_type"]: stream["codec_name"] for stream in probed["streams"]}
                self.assertIn(codecs["audio"], CODECS[codecs["video"]], codecs)
                if codecs["video"] == "hevc":
                    self.assertEqual(probed["streams"][0]["codec_tag_string"], "hvc1")
                seen.add(codecs["video"])
        self.assertEqual(seen, set(CODECS), "not both codecs were downloaded")

    def test_a_gap_becomes_a_chapter_and_is_told(self):
        recordings = day_of(self, self.client, self.recorder, 1)
        ends = [systemlab.parse_time(each["end"]) for each in recordings]
        begins = [systemlab.parse_time(each["begin"]) for each in recordings]
        gap = next((end, begin) for end, begin in zip(ends, begins[1:]) if begin - end > 2 * SECOND)
        begin, end = gap[0] - 20 * SECOND, gap[1] + 20 * SECOND
        run = self.client.download(self.device, 1, begin, end)
        probed = self.check_download(1, begin, end, run)
        self.assertEqual(len(run.last["gaps"]), 1, run)
        told = run.last["gaps"][0]
        self.assertAlmostEqual((systemlab.parse_time(told["begin"]) - gap[0]).total_seconds(), 0, delta=1.0, msg=run)
        self.assertAlmostEqual((systemlab.parse_time(told["end"]) - gap[1]).total_seconds(), 0, delta=1.0, msg=run)
        self.assertEqual(told["cause"], "not recorded", run)
        titles = [chapter["tags"]["title"] for chapter in probed["chapters"]]
        self.assertTrue(any("not recorded" in title for title in titles), titles)

    def test_search_shows_a_table_and_as_many_objects(self):
        begin, end = systemlab.FIRST_DAY, systemlab.FIRST_DAY + datetime.timedelta(days=1)
        objects = day_of(self, self.client, self.recorder, 1)
        for each in objects:
            self.assertLessEqual({"name", "begin", "end", "type", "replayUri"}, set(each))
        self.assertEqual(len({each["name"] for each in objects}), len(objects), "names repeat")
        self.assertEqual({each["type"] for each in objects}, {0, 1}, "alarm segments are not told apart")
        run = self.client.search(self.device, 1, begin, end)
        self.check_run(self.client, run, systemlab.DONE, within_s=20)
        for each in objects:
            self.assertIn(each["name"], run.out)

    def test_into_a_folder_under_a_name_of_its_own(self):
        begin = systemlab.parse_time(self.longest(1)["begin"]) + 10 * SECOND
        first = self.client.download(self.device, 1, begin, begin + 10 * SECOND, self.client.out)
        second = self.client.download(self.device, 1, begin, begin + 10 * SECOND, self.client.out)
        for run in (first, second):
            self.check_run(self.client, run, systemlab.DONE)
            self.check_file(run.last["path"])
            self.assertEqual(os.path.dirname(run.last["path"]), os.path.realpath(self.client.out))
        self.assertNotEqual(first.last["path"], second.last["path"], "the second download took the first one's file")
        self.assertEqual(media.samples(first.last["path"]), media.samples(second.last["path"]))

    def test_a_file_that_stands_there_is_not_touched(self):
        begin = systemlab.parse_time(self.longest(1)["begin"]) + 10 * SECOND
        path = os.path.join(self.client.out, "clip.mp4")
        with open(path, "wb") as file:
            file.write(b"somebody else's")
        run = self.client.download(self.device, 1, begin, begin + 10 * SECOND, path)
        with open(path, "rb") as file:
            self.assertEqual(file.read(), b"somebody else's", run)
        if run.code == systemlab.DONE:
            self.assertNotEqual(run.last["path"], path)
        else:
            self.check_run(self.client, run, systemlab.DISK)

    def test_nothing_is_left_behind(self):
        begin = systemlab.parse_time(self.longest(1)["begin"]) + 10 * SECOND
        run = self.client.download(self.device, 1, begin, begin + 10 * SECOND)
        self.check_run(self.client, run, systemlab.DONE)
        self.assertEqual(os.listdir(self.client.out), ["clip.mp4"])
        self.assertEqual(os.listdir(os.path.join(self.client.folder, "tmp")), [])
        for folder, _, names in os.walk(os.path.join(self.client.folder, "data")):
            self.assertEqual(os.stat(folder).st_mode & 0o077, 0, f"others may look into {folder}")
            for name in names:
                self.assertEqual(os.stat(os.path.join(folder, name)).st_mode & 0o077, 0, f"others may read {name}")
                self.assertNotIn("journal", name.rsplit(".", 1)[-1])

    def test_changed_parameter_sets_begin_another_file(self):
        with Recorder("--channels", "2", "--fault", "parameter-set-change=20") as recorder:
            for channel in (1, 2):
                with self.subTest(channel=channel):
                    begin = systemlab.parse_time(self.longest(channel)["begin"]) + 10 * SECOND
                    end = begin + 40 * SECOND
                    run = self.client.download(recorder.addresses["onvif"], channel, begin, end,
                                               os.path.join(self.client.out, f"{channel}.mp4"))
                    self.check_run(self.client, run, systemlab.DONE)
                    self.assertEqual(len(run.last["files"]), 2, run)
                    pictures = []
                    for path in run.last["files"]:
                        self.check_file(path)
                        pictures.append(media.samples(path)[0])
                    sent = [md5 for _, md5 in recorder.samples(channel, begin, end)[0]]
                    self.assertEqual(pictures[0] + pictures[1], sent[sent.index(pictures[0][0]):][:len(pictures[0]) + len(pictures[1])])
                    self.assertAlmostEqual(len(pictures[0]) + len(pictures[1]), 1000, delta=1)

    def test_interrupting_keeps_a_playable_part(self):
        with Recorder("--channels", "1", "--speed", "8") as recorder:
            begin = systemlab.parse_time(self.longest(1)["begin"]) + 10 * SECOND
            path = os.path.join(self.client.out, "part.mp4")
            began = time.monotonic()
            process = self.client.start(*Client.download_arguments(recorder.addresses["onvif"], 1, begin, begin + 10 * MINUTE, path))
            while not (os.path.exists(path) and os.path.getsize(path) > 1 << 20) and time.monotonic() - began < 30:
                time.sleep(0.05)
            systemlab.interrupt(process)
            asked = time.monotonic()
            run = self.client.finish(process, began=began)
            self.check_run(self.client, run, systemlab.INTERRUPTED)
            self.assertLess(time.monotonic() - asked, 3, "it took too long to stop")
            self.check_file(path)
            self.check_samples(path, recorder.samples(1, begin, begin + 10 * MINUTE), begin, begin, complete=False)


if __name__ == "__main__":
    systemlab.main()
