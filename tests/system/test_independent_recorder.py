#!/usr/bin/env python3
"""Downloads from a recorder that shares nothing with ours: GStreamer's RTSP server library with its ONVIF replay support."""
import datetime
import os
import tempfile

import media
import systemlab
from systemlab import Client, Server, Test

BEGIN = datetime.datetime(2026, 1, 10, 8, 0, 0, tzinfo=datetime.timezone.utc)
CLIP_S = 30
GOP_FRAMES = 25
SECOND = datetime.timedelta(seconds=1)


def make_clip(path, encoder=("libx264", "-preset", "veryfast", "-bf", "2", "-x264-params", "scenecut=0")):
    done = media.run(["ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i", f"testsrc2=size=640x360:rate=25:duration={CLIP_S}",
                      "-f", "lavfi", "-i", f"sine=frequency=440:sample_rate=16000:duration={CLIP_S}", "-g", str(GOP_FRAMES), "-c:v",
                      *encoder, "-c:a", "aac", "-b:a", "48k", path])
    if done.returncode != 0:
        raise RuntimeError(done.stderr)


class IndependentRecorder(Test):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="vemo-peer-")
        cls.addClassCleanup(folder.cleanup)
        cls.clip = os.path.join(folder.name, "clip.mov")
        make_clip(cls.clip)
        cls.folder = folder.name
        cls.peer = cls.serve(cls.clip)
        cls.addClassCleanup(cls.peer.stop)
        cls.device = cls.peer.addresses["rtsp"]
        cls.truth = cls.pictures(cls.clip)

    @classmethod
    def serve(cls, clip, *options):
        password_file = os.path.join(cls.folder, "password")
        with open(password_file, "w", encoding="utf-8") as file:
            file.write(systemlab.PASSWORD)
        return Server([systemlab.program("gst_replay_peer"), "--clip", clip, "--begin", str(int(BEGIN.timestamp())), "--user",
                       systemlab.USER, "--password-file", password_file, *options])

    def setUp(self):
        self.client = Client()
        self.addCleanup(self.client.__exit__)

    @staticmethod
    def pictures(path):
        """MD5 of every decoded picture: GStreamer's parser repacks access units, so their bytes cannot be compared."""
        done = media.run(["ffmpeg", "-v", "error", "-i", path, "-map", "0:v", "-f", "framemd5", "-"])
        return [line.split(",")[5].strip() for line in done.stdout.splitlines() if not line.startswith("#")]

    def test_the_whole_recording(self):
        path = os.path.join(self.client.out, "whole.mp4")
        run = self.client.download(self.device, 1, BEGIN, BEGIN + CLIP_S * SECOND, path, timeout=90)
        self.check_run(self.client, run, systemlab.DONE)
        self.check_file(path)
        self.assertEqual(self.pictures(path), self.truth)
        probed = media.probe(path)
        self.assertEqual([stream["codec_name"] for stream in probed["streams"]], ["h264", "aac"])
        self.assertAlmostEqual(float(probed["format"]["duration"]), CLIP_S, delta=0.1)
        # GStreamer's own demuxer leaves out the encoder's priming at the begin of the clip.
        sent = media.samples(self.clip)[1]
        got = media.samples(path)[1]
        self.assertTrue(any(got == sent[skip:skip + len(got)] for skip in range(4)) and len(got) >= len(sent) - 4,
                        f"{len(got)} audio samples of {len(sent)}, or others")

    def test_a_span_within_it(self):
        path = os.path.join(self.client.out, "part.mp4")
        run = self.client.download(self.device, 1, BEGIN + 10 * SECOND, BEGIN + 20 * SECOND, path, timeout=90)
        self.check_run(self.client, run, systemlab.DONE)
        self.check_file(path)
        got = self.pictures(path)
        # The peer keeps the last access units of a span that ends before its recording does: one picture, and those around it.
        self.assertAlmostEqual(len(got), 250, delta=2, msg=run)
        first = self.truth.index(got[0])
        self.assertEqual(first, 250, msg=run)
        self.assertEqual(got[:-3], self.truth[first:first + len(got) - 3])

    def test_other_kinds_of_recordings(self):
        hevc = os.path.join(self.folder, "hevc.mov")
        make_clip(hevc, ("libx265", "-preset", "ultrafast", "-bf", "2", "-tag:v", "hvc1", "-x265-params", "scenecut=0:log-level=error"))
        for clip, options, codecs in ((hevc, (), ["hevc", "aac"]), (hevc, ("--silent",), ["hevc"]), (self.clip, ("--silent",), ["h264"])):
            with self.subTest(codecs=codecs), self.serve(clip, *options) as peer, Client() as client:
                path = os.path.join(client.out, "whole.mp4")
                run = client.download(peer.addresses["rtsp"], 1, BEGIN, BEGIN + CLIP_S * SECOND, path, timeout=90)
                self.check_run(client, run, systemlab.DONE)
                self.check_file(path)
                self.assertEqual(self.pictures(path), self.pictures(clip))
                self.assertEqual([stream["codec_name"] for stream in media.probe(path)["streams"]], codecs)

    def test_a_wrong_password_is_refused(self):
        run = self.client.download(self.device, 1, BEGIN, BEGIN + 10 * SECOND, password="not it")
        self.check_run(self.client, run, systemlab.LOGIN_REFUSED, within_s=20)


if __name__ == "__main__":
    systemlab.main()
