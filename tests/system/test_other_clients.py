#!/usr/bin/env python3
"""Programs that know nothing of us play from the simulated recorder: ffprobe, ffmpeg, mpv and GStreamer's rtspsrc; live and replay, with
login, in the open and over TLS."""
import datetime
import os
import tempfile
import urllib.parse

import media
import systemlab
from systemlab import Client, Recorder, Test

PASSWORD = "gehe/im%2B+7"
BEGIN = systemlab.FIRST_DAY + datetime.timedelta(hours=1)


class OtherClients(Test):
    @classmethod
    def setUpClass(cls):
        # gst-launch cannot take every character in a property.
        cls.recorder = Recorder("--channels", "2", password=PASSWORD, tls=True)
        cls.addClassCleanup(cls.recorder.stop)
        cls.addresses = {}
        with Client() as client:
            for channel in (1, 2):
                run = client.search(cls.recorder.addresses["onvif"], channel, systemlab.FIRST_DAY,
                                    systemlab.FIRST_DAY + datetime.timedelta(days=1), "--json", password=PASSWORD)
                cls.addresses[channel] = run.lines[0]["replayUri"]

    def with_login(self, channel):
        user, password = (urllib.parse.quote(text, safe="") for text in (systemlab.USER, PASSWORD))
        return self.addresses[channel].replace("rtsp://", f"rtsp://{user}:{password}@", 1)

    def test_ffprobe_tells_the_codecs(self):
        seen = set()
        for channel in (1, 2):
            probed = media.probe(self.with_login(channel), "-rtsp_transport", "tcp")
            codecs = {stream["codec_type"]: stream["codec_name"] for stream in probed["streams"]}
            self.assertIn(codecs["audio"], ("aac", "pcm_alaw", "pcm_mulaw"), codecs)
            seen.add(codecs["video"])
        self.assertEqual(seen, {"h264", "hevc"})

    def test_ffmpeg_decodes_without_complaint(self):
        for channel in (1, 2):
            with self.subTest(channel=channel):
                done = media.run(["ffmpeg", "-v", "error", "-rtsp_transport", "tcp", "-i", self.with_login(channel), "-t", "5",
                                  "-f", "null", "-"])
                self.assertEqual((done.returncode, done.stderr.strip()), (0, ""))

    def span_of(self, scheme, channel, begin, end):
        """A player cannot ask for a span; it stands in the address."""
        user, password = (urllib.parse.quote(text, safe="") for text in (systemlab.USER, PASSWORD))
        span = "-".join(each.strftime("%Y%m%dT%H%M%SZ") for each in (begin, end))
        return self.recorder.addresses[scheme].replace("://", f"://{user}:{password}@") + f"/replay/{channel}?clock={span}"

    @staticmethod
    def units_by_ffmpeg(url, *options):
        """How many access units ffmpeg receives of each stream."""
        done = media.run(["ffmpeg", "-v", "error", "-rtsp_transport", "tcp", "-i", url, *options, "-map", "0:v", "-map", "0:a",
                          "-c", "copy", "-f", "framemd5", "-"])
        streams = [int(line.split(",")[0]) for line in done.stdout.splitlines() if not line.startswith("#")]
        return done.stderr.strip(), {stream: streams.count(stream) for stream in set(streams)}

    def test_ffmpeg_gets_every_unit_of_a_replay(self):
        begin, end = BEGIN, BEGIN + datetime.timedelta(seconds=10)
        for channel in (1, 2):
            sent = {track: len(samples) for track, samples in self.recorder.samples(channel, begin, end).items()}
            for scheme in ("rtsp", "rtsps"):
                with self.subTest(channel=channel, scheme=scheme):
                    self.assertEqual(self.units_by_ffmpeg(self.span_of(scheme, channel, begin, end)), ("", sent))

    def test_ffmpeg_watches_live(self):
        for channel in (1, 2):
            with self.subTest(channel=channel):
                address = self.span_of("rtsp", channel, BEGIN, BEGIN).replace("/replay/", "/live/").split("?")[0]
                said, units = self.units_by_ffmpeg(address, "-t", "3")
                self.assertEqual(said, "")
                self.assertAlmostEqual(units[0], 75, delta=3)

    def test_mpv_plays_to_the_end(self):
        address = self.span_of("rtsp", 1, BEGIN, BEGIN + datetime.timedelta(seconds=4))
        done = media.run(["mpv", "--no-config", "--vo=null", "--ao=null", "--untimed", "--rtsp-transport=tcp", "--msg-level=all=error",
                          address])
        self.assertEqual((done.returncode, done.stderr.strip()), (0, ""))

    def test_rtspsrc_plays_video_and_audio(self):
        depacketizers = {1: ("rtph264depay ! h264parse", "rtpmp4gdepay ! aacparse"), 2: ("rtph265depay ! h265parse", "rtppcmadepay")}
        for channel, (video, audio) in depacketizers.items():
            with self.subTest(channel=channel), tempfile.TemporaryDirectory(prefix="vemo-rtspsrc-") as folder:
                outputs = [os.path.join(folder, name) for name in ("video", "audio")]
                chains = [f"s. ! {chain} ! identity eos-after=100 ! filesink location={output}"
                          for chain, output in zip((video, audio), outputs)]
                done = media.run(["gst-launch-1.0", "-q", "rtspsrc", "name=s", f"location={self.addresses[channel]}", "protocols=tcp",
                                  "latency=0", f"user-id={systemlab.USER}", f"user-pw={PASSWORD}",
                                  *" ".join(chains).split()], timeout=60)
                for output in outputs:
                    self.assertTrue(os.path.exists(output) and os.path.getsize(output) > 5000,
                                    f"{output} is empty: {done.returncode} {done.stderr[-600:]}")


if __name__ == "__main__":
    systemlab.main()
