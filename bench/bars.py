"""What is measured and what has to be reached: one entry is one line of the table."""
from dataclasses import dataclass

FASTEST_CLIENTS = ("P1", "P2")


@dataclass(frozen=True)
class Measure:
    """`ratio_to` names the peers whose best ours is divided by; without it the figure itself is held against the bar. `near` is how
    far a miss of the bar is no shortfall yet. A measure without a bar is told and not judged."""
    row: str
    key: str
    text: str
    unit: str
    bar: float = None
    ratio_to: tuple = ()
    more_is_better: bool = False
    near: float = None
    of: str = "median"
    digits: int = 0

    @property
    def name(self):
        return f"{self.row}/{self.key}"

    def passes(self, figure, limit):
        return figure >= limit if self.more_is_better else figure <= limit


MEASURES = (
    Measure("F1", "rate", "one download to a final MP4", "MB/s", 5, FASTEST_CLIENTS, more_is_better=True, near=4),
    Measure("F1", "floor", "the same beside reading and writing alone", "MB/s", 0.6, ("P0",), more_is_better=True),
    # Ours is on the disk when it is finished; P0's bytes may still be in memory. Told, not judged.
    Measure("F1", "synced", "the same beside P0 with its bytes on the disk", "MB/s", None, ("P0 on the disk",), more_is_better=True),
    Measure("F2", "cpu", "CPU time of the same run", "s/GiB", 1 / 6, ("P1",), digits=2),
    Measure("F3", "rate", "five downloads in one process", "MB/s", 4, ("five P1",), more_is_better=True, near=3.5),
    Measure("F3", "memory", "the same, peak memory", "MB", 150, of="max"),
    Measure("F4", "cpu", "five streams in real time at 8 Mbit/s, CPU time", "s", 0.5, ("five P1",), digits=2),
    Measure("F4", "writes", "the same, writes a GOP and stream", "writes", 2, of="max", digits=2),
    Measure("F4", "other", "the same, other calls on files a GOP and stream", "calls", digits=2),
    Measure("F5", "fragment", "process start to the first whole fragment on disk", "ms", 0.35, ("P1 fragmented", "P2 fragmented")),
    Measure("F5", "onvif", "the same, the recorder found out by ONVIF", "ms", 0.35, ("P1 fragmented", "P2 fragmented")),
    Measure("F5", "bytes", "process start to 64 KiB of media on disk, playable or not", "ms"),
    Measure("F6", "1", "stop at full rate until final, 1 GiB", "ms", 0.05, ("faststart",), digits=1),
    Measure("F6", "4", "the same, 4 GiB", "ms", 0.05, ("faststart",), digits=1),
    Measure("F6", "16", "the same, 16 GiB", "ms", 0.05, ("faststart",), digits=1),
    Measure("F6", "flat", "16 GiB beside 1 GiB of as many samples", "ms", 2, ("1 GiB",), digits=1),
    Measure("F7", "cut", "a span cut out of a local file", "s", 1, ("P1",), digits=2),
    Measure("F7", "copy", "copy, synced", "MiB/s", 0.9, ("cp",), more_is_better=True),
    Measure("F7", "verified", "copy with verification", "MiB/s", 1, ("cp, sha256sum",), more_is_better=True),
    Measure("F8", "insert", "10,000 tasks inserted", "ms", 1.3, ("sqlite3",), digits=1),
    Measure("F8", "load", "10,000 tasks loaded", "ms", 1.3, ("sqlite3",), digits=1),
    Measure("F8", "sort", "10,000 rows of the table sorted", "ms", 1.3, ("sqlite3",), digits=1),
    Measure("F8", "filter", "the tasks under way, a tenth of 10,000", "ms", 1.3, ("sqlite3",), digits=1),
    Measure("F8", "update", "10,000 tasks updated", "ms", 1.3, ("sqlite3",), digits=1),
    Measure("F8", "delete", "10,000 tasks deleted", "ms", 1.3, ("sqlite3",), digits=1),
    Measure("F8", "page", "first page of a month in 100,000 index records", "ms", 100, digits=1),
    Measure("F8", "whole", "first page of all 100,000 index records", "ms", 100, digits=1),
    Measure("F9", "p99", "lateness of a 16 ms tick, five downloads, 99th percentile", "ms", 16, digits=1),
    Measure("F9", "max", "the same, longest", "ms", 50, of="max", digits=1),
    Measure("F9", "rows p99", "with 10,000 rows being scrolled, 99th percentile", "ms", 16, digits=1),
    Measure("F9", "rows max", "the same, longest", "ms", 50, of="max", digits=1),
    Measure("F10", "10000", "start to window, 10,000 tasks", "ms", 500),
    Measure("F10", "100000", "start to window, 100,000 tasks", "ms", 1.5, ("empty store",)),
    Measure("F11", "cold", "1,000 pictures of 12 megapixels, thumbnails made", "s", 0.5, ("ffmpeg",), digits=2),
    # A tenth of what the cold ones may take.
    Measure("F11", "cached", "thumbnails out of the cache", "s", 0.05, ("ffmpeg",), digits=2),
    # One is being made when the view moves, and one is on its way to the window.
    Measure("F11", "visible", "pictures made ahead of those in view, a thread", "pictures", 2, of="max", digits=1),
    Measure("F12", "zoom", "time line, 16 channels, 10,000 segments, zooming, 99th percentile", "ms", 4, digits=2),
    Measure("F12", "pan", "the same, panning", "ms", 4, digits=2),
    Measure("F13", "memory", "24 h being written, peak memory", "MB", 200, of="max"),
    Measure("F13", "flat", "the same, last quarter beside second quarter", "MB", 1.15, ("second quarter",)),
    Measure("F14", "pause", "pause at full rate", "ms", 50, of="max", digits=1),
    Measure("F14", "cancel", "cancel at full rate", "ms", 50, of="max", digits=1),
    Measure("F14", "stop", "stop at full rate", "ms", 50, of="max", digits=1),
    Measure("F14", "slow pause", "pause on a disk of 20 MB/s", "ms", 200, of="max", digits=1),
    Measure("F14", "slow cancel", "cancel on a disk of 20 MB/s", "ms", 200, of="max", digits=1),
    Measure("F14", "slow stop", "stop on a disk of 20 MB/s", "ms", 200, of="max", digits=1),
    Measure("F14", "quit", "quit with five running, the window", "ms", 2000, of="max"),
    Measure("F14", "quit headless", "quit with five running, the queue without a window", "ms", 2000, of="max"),
)

ROWS = tuple(dict.fromkeys(measure.row for measure in MEASURES))
BY_NAME = {measure.name: measure for measure in MEASURES}
