#!/usr/bin/env python3
"""Row E9: a download breaks off, and when it goes on the recorder answers otherwise than before. The overlap is cut by time, what the
recorder does not have any more is told as a gap, and what does not fit into one file begins a new one: the files together show
what was sent, each picture once."""
import json
import random
import statistics
import sys

import cutlab
import media
import rows
import systemlab
from cutlab import SECOND, Cut, Downloads
from systemlab import Recorder, Test

# The rest is longer than the longest gap.
SPAN_S = 28
FRAME_S = 0.04

# What the recorder does when it is asked for the rest: name, faults. Seconds count from the begin of what is asked for.
SCRIPTS = (
    ("a key frame earlier", {"earlier-key": 1}),
    ("three key frames earlier", {"earlier-key": 3}),
    ("a minute earlier", {"earlier-key": 30}),
    ("other parameter sets at once", {"parameter-set-change": 0}),
    ("other parameter sets soon", {"parameter-set-change": 2}),
    ("other parameter sets, and earlier", {"parameter-set-change": 3, "earlier-key": 2}),
    ("a gap at once", {"extra-gap": 0}),
    ("a gap soon", {"extra-gap": 2}),
    ("a gap, and earlier", {"extra-gap": 2, "earlier-key": 2}),
    ("ends 2 s early", {"early-end": 2}),
    ("ends 5 s early, and begins earlier", {"early-end": 5, "earlier-key": 1}),
    ("ends early and closes", {"early-end": 3, "end": "close"}),
    ("no times in the packets", {"ext": "none"}),
    ("one time only", {"ext": "first"}),
    ("one time only, and earlier", {"ext": "first", "earlier-key": 1}),
    ("no times but a wall clock's", {"ext": "none", "sr": "wall"}),
    ("numbers and RTP time that run over", {"seq-start": 65530, "ts-start": 4294960000}),
    ("packets twice, and earlier", {"duplicate": 5, "earlier-key": 1}),
    ("silence behind the end", {"end": "silence"}),
    ("closed at the end, and earlier", {"end": "close", "earlier-key": 2}),
)


class ChangedAnswers(Test):
    def fault(self, channel, **values):
        for name, value in values.items():
            self.recorder.ask("/fault", method="POST", name=name.replace("_", "-"), value=value, channel=channel)

    def test_goes_on_whatever_the_recorder_answers(self):
        chance = random.Random(systemlab.OPTIONS.seed)
        # Of each script the small clips with either codec; the full count takes all clips, several times.
        rounds = 5 if systemlab.OPTIONS.full else 1
        self.recorder = Recorder("--channels", "64", "--max-sessions", "1000")
        self.addCleanup(self.recorder.stop)
        wrong = []
        for number in range(rounds):
            begin = systemlab.FIRST_DAY + (3600 + chance.randrange(600)) * SECOND
            # Twenty channels of the kinds 3, 4, 3, 4 ...; in later rounds of any kind.
            channels = [4 * (index // 2) + 3 + index % 2 if number < 2 else 3 * index + 1 for index in range(len(SCRIPTS))]
            chance.shuffle(channels)
            wrong += self.run_scripts(channels, begin, begin + SPAN_S * SECOND, chance)
        rows.tell("E9", "answers changed on resume", rounds * len(SCRIPTS), len(wrong), systemlab.OPTIONS.seed)
        self.assertEqual(wrong, [], "\n" + "\n".join(wrong[:8]) + f"\nagain: {' '.join(sys.argv)} --seed {systemlab.OPTIONS.seed}")

    def bytes_of(self, channel, begin, end):
        lines = self.recorder.ask("/samples", channel=channel, begin=systemlab.iso(begin), end=systemlab.iso(end)).splitlines()
        return sum(json.loads(line)["size"] for line in lines)

    def run_scripts(self, channels, begin, end, chance):
        with Downloads(self.recorder) as downloads:
            truth = {channel: self.recorder.samples(channel, begin, end) for channel in channels}
            for channel in channels:
                self.fault(channel, drop_after=int(chance.uniform(0.2, 0.6) * self.bytes_of(channel, begin, end)), drop_kind="fin")
            downloads.add(channels, begin, end)
            downloads.queue("run", "--no-retry")
            self.recorder.ask("/reset", method="POST")
            for channel, (_, faults) in zip(channels, SCRIPTS):
                self.fault(channel, **faults)
            rests = {task["channel"]: task for task in downloads.queue("list", "--json").lines if task["state"] != cutlab.SUCCEEDED}
            sent, wrong = {}, []
            for channel in channels:
                if channel not in rests:
                    wrong.append(f"channel {channel} was not cut: {downloads.pieces(channel)}\n{downloads.runs[1]}")
                joint = systemlab.parse_time(rests[channel]["begin"]) if channel in rests else end
                sent[channel] = (joint, self.recorder.samples(channel, joint, end))
            downloads.queue("retry", "--all")
            downloads.queue("run", "--no-retry")
            for channel, (name, faults) in zip(channels, SCRIPTS):
                found = self.judge(downloads.pieces(channel), truth[channel], sent[channel], begin, end, faults)
                if found:
                    wrong.append(f"{name}, channel {channel}: {found}\n{downloads.runs[-1]}")
            self.recorder.ask("/reset", method="POST")
            return wrong

    @staticmethod
    def judge(pieces, whole, rest, begin, end, faults):
        joint, after = rest
        sent = {track: [sample for sample in whole[track] if sample[0] < joint.timestamp() - 0.0005] +
                       [sample for sample in after.get(track, []) if sample[0] >= joint.timestamp() - 0.0005] for track in whole}
        optional = overlapping(after[1], joint.timestamp()) if "parameter-set-change" in faults else frozenset()
        wrong = cutlab.check_pieces(pieces, sent, begin, end, optional)
        missing = gaps_of([when for when, _ in sent[0]], begin.timestamp(), end.timestamp())
        told = sorted(tuple(systemlab.parse_time(gap[edge]).timestamp() for edge in ("begin", "end")) for task in pieces
                      for gap in task["gaps"])
        if len(told) != len(missing) or any(abs(one - other) > 2 * FRAME_S for gaps in zip(told, missing) for one, other in zip(*gaps)):
            wrong.append(f"gaps told {told}, sent {missing}")
        files = 2 + (faults.get("parameter-set-change", 0) > 0)
        if len(pieces) != files:
            wrong.append(f"{len(pieces)} files instead of {files}")
        return wrong + [errors for task in pieces if (errors := media.decode_errors(task["path"]))]


def overlapping(sound, joint):
    """Where this recorder goes over to other parameter sets, its sound goes over to another loop, and the last unit of the old one lasts
    beyond the begin of the new one: files that join there have room for one of the two. The unit across the begin of the rest is
    another one than it was at the first request."""
    ordered = sorted(sound)
    typical = statistics.median(later[0] - one[0] for one, later in zip(ordered, ordered[1:]))
    twice = [pair for pair in zip(ordered, ordered[1:]) if pair[1][0] - pair[0][0] < 0.98 * typical]
    across = [one for one in ordered if joint - typical < one[0] < joint]
    return frozenset(md5 for units in [*twice, across] for _, md5 in units)


def gaps_of(times, begin, end):
    """Where pictures are missing, as (begin, end) in seconds."""
    edges = [begin - FRAME_S, *sorted(when for when in times if begin - 0.0005 <= when < end - 0.0005), end]
    return [(one + FRAME_S, other) for one, other in zip(edges, edges[1:]) if other - one > 2 * FRAME_S]


if __name__ == "__main__":
    systemlab.main()
