#!/usr/bin/env python3
"""Row E8: the connection to the recorder is cut at every kind of boundary, by a reset, by a close or by silence. The rest is fetched from
the second on at which what came ends, and the files together show every sample of an uninterrupted run, each once."""
import concurrent.futures
import random
import sys

import cutlab
import media
import rows
import systemlab
from cutlab import SECOND, Cut, Downloads
from systemlab import Recorder, Test

KINDS = ("rst", "fin", "silence")
STREAM = ("between packets", "interleaved header", "RTP header", "header extension", "payload", "inside a fragmented unit",
          "in front of a key frame", "control packet")
HANDSHAKE = tuple(f"{part} to {method}" for method in ("OPTIONS", "DESCRIBE", "SETUP", "PLAY")
                  for part in ("head of answer", "behind answer")) + ("body of answer to DESCRIBE",)
SOAP = tuple(f"answer to {operation}" for operation in ("GetSystemDateAndTime", "GetServices", "GetDeviceInformation", "GetRecordings",
                                                       "GetReplayUri"))
SPAN_S = 6
CASES_A_BATCH = 40
BATCHES_AT_ONCE = 4
# A tick of the watchdog and the proxy's own lateness on a busy machine.
LATE_S = 1.5
SILENCE_S, ANSWER_S = 10, 30


class ResumedDownloads(Test):
    @classmethod
    def setUpClass(cls):
        cls.recorder = Recorder("--channels", "64", "--max-sessions", "1000")
        cls.addClassCleanup(cls.recorder.stop)
        cls.chance = random.Random(systemlab.OPTIONS.seed)
        cls.begin = systemlab.FIRST_DAY + (3600 + cls.chance.randrange(600)) * SECOND
        cls.end = cls.begin + SPAN_S * SECOND
        cls.sent, cls.expected = {}, {}
        with Downloads(cls.recorder) as whole:
            whole.add(range(1, 5), cls.begin, cls.end)
            whole.queue("run", "--no-retry")
            for channel in range(1, 5):
                cls.sent[channel] = cls.recorder.samples(channel, cls.begin, cls.end)
                wrong = cutlab.check_pieces(whole.pieces(channel), cls.sent[channel], cls.begin, cls.end)
                if wrong:
                    raise AssertionError(f"even without a cut: {wrong}\n{whole.runs[-1]}")
            cls.expected = dict(whole.proxy.tallies)

    @staticmethod
    def profile(channel):
        """Channels with the same clip."""
        return (channel - 1) % 4 + 1

    def draw(self, boundaries, count):
        """Every kind of boundary by every kind of cut, places drawn."""
        pairs = [(boundary, kind) for boundary in boundaries for kind in KINDS]
        return [Cut(*pairs[number % len(pairs)], at=self.chance.random(), within=self.chance.random()) for number in range(count)]

    def run_batch(self, batch):
        """Texts that tell what was wrong. Mostly the small clips: each cut costs the download of a span."""
        number, cuts = batch
        small = [channel for channel in range(1, 65) if self.profile(channel) >= 3]
        large = [channel for channel in range(1, 65) if self.profile(channel) < 3]
        channels = (small + large)[:len(cuts)]
        if len(cuts) < 8:
            channels = [*range(1, 5), *range(5, 65)][:len(cuts)]
        wrong = []
        with Downloads(self.recorder) as downloads:
            downloads.proxy.expected = {channel: self.expected[self.profile(channel)] for channel in channels}
            downloads.proxy.cuts = dict(zip(channels, cuts))
            downloads.add(channels, self.begin, self.end)
            downloads.queue("run", "--no-retry", timeout=600)
            for _ in range(3):
                downloads.queue("retry", "--all")
                if downloads.queue("run", "--no-retry").code == systemlab.DONE:
                    break
            run = downloads.runs[-1]
            for index, (channel, cut) in enumerate(zip(channels, cuts)):
                found = self.judge_cut(cut)
                pieces = downloads.pieces(channel)
                found += cutlab.check_pieces(pieces, self.sent[self.profile(channel)], self.begin, self.end)
                if index % 20 == 0:
                    found += [errors for task in pieces if (errors := media.decode_errors(task["path"]))]
                if found:
                    wrong.append(f"channel {channel}, {cut}: {found}\n{run}")
            known = {task["path"] for channel in channels for task in downloads.pieces(channel)}
            if known != set(cutlab.media_files(downloads.client.folder)):
                wrong.append(f"batch {number}: files that no record knows, or records without a file")
        return wrong

    @staticmethod
    def judge_cut(cut):
        if not cut.done:
            return ["it was never cut"]
        if cut.kind != "silence":
            return []
        limit = (ANSWER_S if " to " in cut.boundary else SILENCE_S) + LATE_S
        return [] if 0 <= cut.noticed_after <= limit else [f"the silence was found after {cut.noticed_after:.1f} s"]

    def run_soap(self, cut):
        with Downloads(self.recorder) as downloads:
            downloads.proxy.soap_cut = cut
            downloads.add([3], self.begin, self.end)
            first = downloads.queue("run", "--no-retry")
            for _ in range(2):
                downloads.queue("retry", "--all")
                downloads.queue("run", "--no-retry")
            wrong = self.judge_cut(cut) + cutlab.check_pieces(downloads.pieces(3), self.sent[3], self.begin, self.end)
            return [f"{cut}: {wrong}\n{first}\n{downloads.runs[-1]}"] if wrong else []

    def test_cut_at_every_kind_of_boundary(self):
        full = systemlab.OPTIONS.full
        soap = self.draw(SOAP, 60 if full else 2)
        handshake = self.draw(HANDSHAKE, 100 if full else 6)
        if not full:
            # An answer may take its time; only the full count waits for it.
            for cut in soap + handshake:
                cut.kind = KINDS[:2][cut.at > 0.5]
        stream = self.draw(STREAM, (systemlab.OPTIONS.cases or 2000) - 160 if full else 24)
        if not full:
            # Five wait for silence at a time.
            for cut in [cut for cut in stream if cut.kind == "silence"][5:]:
                cut.kind = "fin"
        cuts = handshake + stream
        self.chance.shuffle(cuts)
        batches = list(enumerate(cuts[at:at + CASES_A_BATCH] for at in range(0, len(cuts), CASES_A_BATCH)))
        with concurrent.futures.ThreadPoolExecutor(BATCHES_AT_ONCE) as pool:
            runs = [*(pool.submit(self.run_soap, cut) for cut in soap), *(pool.submit(self.run_batch, batch) for batch in batches)]
            wrong = sum((run.result() for run in runs), [])
        late = max((cut.noticed_after for cut in cuts if cut.kind == "silence" and " to " not in cut.boundary), default=0)
        print(f"the latest silence was found after {late:.2f} s")
        rows.tell("E8", "connections cut", len(cuts) + len(soap), len(wrong), systemlab.OPTIONS.seed)
        self.assertEqual(wrong, [], "\n" + "\n".join(wrong[:8]) + f"\nagain: {' '.join(sys.argv)} --seed {systemlab.OPTIONS.seed}")


if __name__ == "__main__":
    systemlab.main()
