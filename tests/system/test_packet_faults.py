#!/usr/bin/env python3
"""Row E10: packets lost, mixed up and doubled, numbers and times that run over, clocks that step. Broken access units are left
out and counted in what the program tells, no other is touched, and every picture stands at its time."""
import hashlib
import os
import random
import sys

import cutlab
import media
import rows
import systemlab
from cutlab import SECOND
from systemlab import Client, Recorder, Test

SPAN_S = 15  # less than the loop of the clips, in which no two units are alike
STEP_AFTER_S = 10
DRIFT_S = 0.02
FRAME_S = 0.04

# Name, faults, whether units may be missing.
PROFILES = (
    ("one packet in a thousand lost", {"loss": 0.001}, True),
    ("one packet in thirty lost", {"loss": 0.03}, True),
    ("mixed up", {"reorder": 7}, False),
    ("doubled", {"duplicate": 5}, False),
    ("mixed up and doubled", {"reorder": 3, "duplicate": 4}, False),
    ("lost, mixed up and doubled", {"loss": 0.01, "reorder": 4, "duplicate": 3}, True),
    ("sequence numbers over their end", {"seq-start": 65000}, False),
    ("RTP time over its end", {"ts-start": 4294000000}, False),
    ("the clock steps ahead", {"clock-step": 5}, False),
    ("the clock steps back by a second", {"clock-step": -1}, False),
    ("the clock steps back by an hour", {"clock-step": -3600}, False),
    ("all at once", {"loss": 0.005, "reorder": 9, "duplicate": 7, "seq-start": 65400, "ts-start": 4294900000}, True),
)


class PacketFaults(Test):
    def test_broken_units_are_left_out_and_told(self):
        chance = random.Random(systemlab.OPTIONS.seed)
        # Each profile with one clip; the full count takes all four, several times.
        rounds = 4 if systemlab.OPTIONS.full else 1
        self.recorder = Recorder("--channels", "4")
        self.addCleanup(self.recorder.stop)
        wrong, cases = [], 0
        for number in range(rounds):
            for index, (name, faults, _) in enumerate(PROFILES):
                channels = range(1, 5) if number else [3 + index % 2]
                for channel in channels:
                    # A whole number of groups of pictures, so that the steps lie at a key frame.
                    begin = systemlab.FIRST_DAY + (3600 + 2 * chance.randrange(400)) * SECOND
                    seed = chance.randrange(1 << 30)
                    found = self.run_profile(PROFILES[index], channel, begin, seed)
                    cases += 1
                    wrong += [f"{name}, channel {channel}, begin {begin}, packet seed {seed}: {found}"] if found else []
        rows.tell("E10", "packet faults", cases, len(wrong), systemlab.OPTIONS.seed)
        self.assertEqual(wrong, [], "\n" + "\n".join(wrong[:8]) + f"\nagain: {' '.join(sys.argv)} --seed {systemlab.OPTIONS.seed}")

    def run_profile(self, profile, channel, begin, seed):
        _, faults, may_lose = profile
        end = begin + SPAN_S * SECOND
        self.recorder.ask("/reset", method="POST")
        for fault, value in {**faults, "seed": seed}.items():
            self.recorder.ask("/fault", method="POST", name=fault, value=value, channel=channel)
        sent = self.recorder.samples(channel, begin, end)
        with Client() as client:
            run = client.download(self.recorder.addresses["onvif"], channel, begin, end, timeout=120)
            if run.code not in (systemlab.DONE, systemlab.INCOMPLETE) or not run.lines:
                return [f"exit {run.code}: {run.err}"]
            told = run.last
            paths = told.get("files") or [told["path"]]
            shown = [media.shown_samples(path) for path in paths]
            begins = [systemlab.parse_time(media.probe(path)["format"]["tags"]["com.vemo.start"]).timestamp() for path in paths]
            if may_lose:
                self.recorder.ask("/reset", method="POST")
                reference = os.path.join(client.out, "reference.mp4")
                client.download(self.recorder.addresses["onvif"], channel, begin, end, reference, timeout=120)
                rest = with_lost_head(reference)
                for piece in shown:
                    piece[0] = [(when, rest.get(md5, md5)) for when, md5 in piece[0]]
            wrong = [f"{path}: {errors}" for path in paths if not may_lose and (errors := media.decode_errors(path))]
        step = faults.get("clock-step", 0)
        # By the recorder's own clock, which steps so long after the begin of what it sends.
        pictures = [(when + (step if when - sent[0][0][0] >= STEP_AFTER_S - 0.0005 else 0), md5) for when, md5 in sent[0]]
        due = [sample for sample in pictures if begin.timestamp() - 0.0005 <= sample[0] < end.timestamp() - 0.0005 or step < 0]
        if "reorder" in faults:
            # This recorder holds a packet back until the next one; behind its last one there is none.
            there = {md5 for piece in shown for _, md5 in piece[0]}
            due = [sample for sample in due if sample[1] != sent[0][-1][1] or sample[1] in there]
        wrong += self.judge_pictures(due, shown, begins, told, may_lose)
        if not may_lose and told["lost"]:
            wrong.append(f"{told['lost']} units told as lost, none was")
        return wrong

    @staticmethod
    def judge_pictures(due, shown, begins, told, may_lose):
        at = {md5: (index, when) for index, (when, md5) in enumerate(due)}
        got = [(at.get(md5, (None, 0)), base + when) for piece, base in zip(shown, begins) for when, md5 in piece[0]]
        if any(index is None for (index, _), _ in got):
            return [f"pictures that were never sent, or altered, at {[when - begins[0] for (index, _), when in got if index is None][:5]}"]
        order = [index for (index, _), _ in got]
        wrong = [] if order == sorted(set(order)) else ["pictures twice, or not in order"]
        gaps = [(systemlab.parse_time(gap["begin"]).timestamp(), systemlab.parse_time(gap["end"]).timestamp()) for gap in told["gaps"]]
        # What lies in front of the first key frame that came whole is told as a gap.
        missing = sum(index not in order and not any(one - 0.0005 <= when < later - 0.0005 for one, later in gaps)
                      for index, (when, _) in enumerate(due))
        # Sound counts as well, and a loss in it is no loss of a picture.
        if missing > told["lost"] or (missing and not may_lose):
            wrong.append(f"{missing} pictures are missing, {told['lost']} units told as lost")
        # A download leaves gaps out of the file's time.
        drift = max((abs(real - when - sum(later - one for one, later in gaps if later <= real + FRAME_S / 2 and one > begins[0]))
                     for (_, real), when in got), default=0)
        if drift > DRIFT_S:
            wrong.append(f"a picture stands {drift * 1000:.1f} ms off its time")
        return wrong


def with_lost_head(reference):
    """{MD5 of what is left of a picture: MD5 of it as sent} where nothing is missing but what stands in front of its slices: a
    delimiter, or parameter sets that are known. Such a picture is whole, and is told as touched by a loss all the same. `reference` is
    what comes of the same span without a fault."""
    done = media.run(["ffprobe", "-v", "error", "-select_streams", "v", "-show_entries", "stream=codec_name:packet=size,pos", "-of",
                      "csv=p=0", reference])
    rest = {}
    with open(reference, "rb") as file:
        for line in done.stdout.split():
            if not line[0].isdigit():
                continue
            size, position = map(int, line.split(",")[:2])
            file.seek(position)
            payload = file.read(size)
            sent, at = hashlib.md5(payload).hexdigest(), 0
            while at < size and not is_slice(payload[at + 4], "hevc" in done.stdout):
                at += 4 + int.from_bytes(payload[at:at + 4], "big")
                rest[hashlib.md5(payload[at:]).hexdigest()] = sent
    return rest


def is_slice(header, is_hevc):
    return header >> 1 & 0x3F < 32 if is_hevc else 1 <= header & 0x1F <= 5


if __name__ == "__main__":
    systemlab.main()
