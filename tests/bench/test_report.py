#!/usr/bin/env python3
"""How the measuring program judges: against the bar, beside the best peer, and one run against another."""
import argparse
import contextlib
import io
import json
import os
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.realpath(__file__)), "..", "..", "bench"))
import rows_download  # noqa: E402
from bars import BY_NAME, MEASURES  # noqa: E402
from bench import PARTS  # noqa: E402
from report import Report, compare  # noqa: E402

CASES = (
    # measure, ours, peers, verdict
    ("F1/rate", [500, 510, 520], {"P1": [90], "P2": [100, 102, 104]}, "pass"),  # 5.0 of the better peer
    ("F1/rate", [420], {"P1": [90], "P2": [100]}, "near"),
    ("F1/rate", [390], {"P1": [90], "P2": [100]}, "short"),
    ("F1/rate", [390], {"P1": [90], "P2": []}, "near"),                         # a peer that failed is not the best one
    ("F5/fragment", [40], {"P1 fragmented": [200], "P2 fragmented": [100]}, "short"),  # beside the quicker one
    ("F3/memory", [80, 90, 151], {}, "short"),                                  # its worst run counts
    ("F9/p99", [10, 15, 40], {}, "pass"),                                       # its median counts
    ("F4/other", [7], {}, "-"),
    ("F6/1", [], {"faststart": [900]}, "failed"),
    ("F6/1", [9], {"faststart": []}, "failed"),                                 # nothing to hold it against
)


class Judgement(unittest.TestCase):
    def test_verdicts(self):
        for name, ours, peers, verdict in CASES:
            with self.subTest(name=name, ours=ours, peers=peers):
                report = Report({})
                report.add(name, ours, peers)
                self.assertEqual(report.results[name].verdict, verdict)
                self.assertEqual(report.ok, verdict in ("pass", "near", "-"))
                self.assertEqual(len(report.results[name].cells()), 7)

    def test_two_runs(self):
        for name, before, after, word in (("F1/rate", [100, 101], [120, 121], "better"), ("F1/rate", [100, 101], [80, 81], "worse"),
                                          ("F2/cpu", [1.0, 1.1], [0.8, 0.9], "better"), ("F2/cpu", [1.0, 1.4], [1.3, 1.5], "same"),
                                          ("F2/cpu", [1.0], [1.03], "same")):
            with self.subTest(name=name, before=before, after=after), tempfile.TemporaryDirectory() as folder:
                paths = [os.path.join(folder, each) for each in ("before.json", "after.json")]
                for path, ours in zip(paths, (before, after)):
                    report = Report({"seed": 1})
                    report.add(name, ours, {"P1": [10], "P2": [10], "P0": [10]})
                    report.keep(path)
                told = io.StringIO()
                with contextlib.redirect_stdout(told):
                    self.assertEqual(compare(*paths), word != "worse")
                self.assertIn(f"| {word} |", told.getvalue())
                with open(paths[0], encoding="utf-8") as file:
                    self.assertEqual(json.load(file)["results"][name]["ours"], before)

    def test_every_measure_is_taken_by_one_part(self):
        for name in BY_NAME:
            self.assertEqual(sum(name.startswith(names) for _, _, names in PARTS), 1, name)
        self.assertEqual({measure.row for measure in MEASURES}, {f"F{number}" for number in range(1, 15)})

    def test_fragments_count_when_they_are_whole(self):
        def box(kind, payload):
            return (8 + payload).to_bytes(4, "big") + kind + bytes(payload)

        begin = box(b"ftyp", 8) + box(b"moov", 40)
        fragment = box(b"moof", 16) + box(b"mdat", 100)
        for content, count in ((begin, 0), (begin + fragment, 1), (begin + fragment[:-1], 0), (begin + 2 * fragment, 2),
                               (begin + fragment + box(b"moof", 16), 1), (begin + bytes(8), 0)):
            with self.subTest(bytes=len(content)), tempfile.NamedTemporaryFile() as file:
                file.write(content)
                file.flush()
                self.assertEqual(rows_download.fragments(file.name), count)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--build")
    unittest.main(argv=[sys.argv[0], *parser.parse_known_args()[1]])
