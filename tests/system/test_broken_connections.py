#!/usr/bin/env python3
"""The connection to the recorder breaks while a recording is transferred: reset, closed, or silent, after any number of bytes. What
arrived is kept, plays and is a prefix of what was sent; the run says so and never counts as done."""
import concurrent.futures
import datetime
import os
import random
import urllib.parse

import media
import systemlab
from systemlab import Client, CuttingProxy, Recorder, Test

SECOND = datetime.timedelta(seconds=1)
SPAN_S = 40
KINDS = ("fin", "rst", "silence")
SILENCE_FOUND_WITHIN_S = 14
ANSWER_WITHIN_S = 36
RESET_DISCARDS_BYTES = 8 << 20


class BrokenConnections(Test):
    @classmethod
    def setUpClass(cls):
        cls.recorder = Recorder("--channels", "2")
        cls.addClassCleanup(cls.recorder.stop)

    def setUp(self):
        self.replay = {}
        with Client() as client:
            for channel in (1, 2):
                run = client.search(self.recorder.addresses["onvif"], channel, systemlab.FIRST_DAY,
                                    systemlab.FIRST_DAY + datetime.timedelta(days=1), "--json")
                longest = max(run.lines, key=lambda each: systemlab.parse_time(each["end"]) - systemlab.parse_time(each["begin"]))
                begin = systemlab.parse_time(longest["begin"]) + 10 * SECOND
                address = urllib.parse.urlsplit(longest["replayUri"])
                # How much the whole span is on the wire, and which samples it has.
                with CuttingProxy(address.port, 1 << 40, "fin") as proxy:
                    path = os.path.join(client.out, f"{channel}.mp4")
                    done = client.download(self.through(proxy, address), channel, begin, begin + SPAN_S * SECOND, path)
                    self.assertEqual(done.code, systemlab.DONE, done)
                    self.replay[channel] = (address, begin, proxy.forwarded, media.samples(path))

    @staticmethod
    def through(proxy, address):
        return address._replace(netloc=f"127.0.0.1:{proxy.port}").geturl()

    def cut(self, case):
        """Runs one download through a cut; a text that tells what was wrong, or none."""
        kind, share = case
        channel = 1 + int(share * 1000) % 2
        address, begin, size, truth = self.replay[channel]
        limit = int(size * share)
        with CuttingProxy(address.port, limit, kind) as proxy, Client() as client:
            path = os.path.join(client.out, "clip.mp4")
            run = client.download(self.through(proxy, address), channel, begin, begin + SPAN_S * SECOND, path, timeout=60)
            found = {}
            wrong = []
            if os.path.exists(path):
                try:
                    found = media.samples(path)
                    wrong += [f"stream {stream}: {media.first_difference(got, truth[stream])}"
                              for stream, got in found.items() if not media.is_prefix(got, self.comparable(channel, stream, got, truth))]
                except media.NotReadable as error:
                    wrong.append(str(error))
            expected = (systemlab.INCOMPLETE,) if any(found.values()) else (systemlab.FAILED, systemlab.UNREACHABLE)
            if len(truth[0]) - len(found.get(0, [])) <= 1:
                # Nothing but the goodbye, or one picture, was cut off: the span is there to within a picture.
                expected += (systemlab.DONE,)
            if run.code not in expected:
                wrong.append(f"exit {run.code} instead of {expected}")
            # A tenth of the span may be on its way; a reset also throws away what stands in the kernels' buffers.
            on_its_way = 0.1 + (RESET_DISCARDS_BYTES / size if kind == "rst" else 0)
            owed = int(len(truth[0]) * (share - on_its_way)) - 50
            if len(found.get(0, [])) < owed:
                wrong.append(f"{len(found.get(0, []))} frames of at least {owed} were kept")
            if kind == "silence" and run.seconds > (SILENCE_FOUND_WITHIN_S if any(found.values()) else ANSWER_WITHIN_S):
                wrong.append("the silence was found too late")
            if len([line for line in run.err.splitlines() if line.strip()]) != (run.code != systemlab.DONE):
                wrong.append("not one sentence on stderr")
            return f"{kind} after {limit} of {size} bytes, channel {channel}: {wrong}\n{run}" if wrong else ""

    @staticmethod
    def comparable(channel, stream, got, truth):
        """Transcoded audio ends in what the encoder had left; that is not what it would have gone on with."""
        if channel == 2 and stream == 1:
            return got[-3:] if len(got) <= 3 else truth[stream][:len(got) - 3] + got[-3:]
        return truth[stream]

    def test_every_kind_of_cut(self):
        chance = random.Random(systemlab.OPTIONS.seed)
        count = 110 if systemlab.OPTIONS.full else 6
        # Also within the handshake, and in the last packets.
        shares = [0.00002, 0.0005, 0.9999] + [chance.random() for _ in range(count - 3)]
        cases = [(kind, share) for kind in KINDS for share in shares]
        # Silence only waits, so many may do so at once.
        with concurrent.futures.ThreadPoolExecutor(8) as pool:
            wrong = [text for text in pool.map(self.cut, cases) if text]
        self.assertEqual(wrong, [], "\n" + "\n".join(wrong[:10]) + f"\n{len(wrong)} of {len(cases)} cuts")


if __name__ == "__main__":
    systemlab.main()
