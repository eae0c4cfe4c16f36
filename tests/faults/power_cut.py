#!/usr/bin/env python3
"""Power cuts, replayed from the log of a task's calls: what a disk may hold when the current goes away after any call. Everything
synced before is there; of what was written since, some 512-byte pieces are, in any combination; names made, changed or removed
since the folder was last synced survive up to some point of their order. A restart on such an image leaves prefixes, keeps what
was owed, and claims no more than there is. In the first second, before the journal was ever synced, nothing is owed yet, and a
piece that cannot be read may stay."""
import os
import random
import struct
import sys

import faultlab
from faultlab import Box, Lab

RECORD = struct.Struct("<IIQQQIqQHHI")
MAGIC = 0x474C4656
WRITE, PWRITE, WRITEV, FTRUNCATE, FSYNC, FDATASYNC, RENAME, UNLINK, OPEN, MKDIR, LINK, FALLOCATE = 1, 2, 3, 4, 5, 6, 8, 9, 10, 12, 13, 14
SECTOR = 512
SECOND_NS = 1_000_000_000
# N2: a fragment, the last second, and one more second since the last sync.
WINDOW_NS = 2 * SECOND_NS


def read_log(path):
    entries = []
    with open(path, "rb") as file:
        while True:
            head = file.read(RECORD.size)
            if len(head) < RECORD.size:
                return entries
            magic, call, _, time_ns, inode, flags, offset, length, path_size, second_size, data_size = RECORD.unpack(head)
            if magic != MAGIC:
                raise RuntimeError("the call log cannot be read")
            name, second, data = (file.read(size) for size in (path_size, second_size, data_size))
            entries.append(dict(call=call, time=time_ns, inode=inode, folder=bool(flags & 1), created=bool(flags & 2),
                                truncated=bool(flags & 4), offset=offset, length=length, path=name.decode(), second=second.decode(),
                                data=data))


class File:
    """One file's content: what is certain, and what was done since."""

    def __init__(self, inode):
        self.inode = inode
        self.durable = bytearray()
        self.pending = []

    def apply(self, content, entry, pick=None):
        """Does one change to `content`; with `pick`, only those of its sectors for which pick() is true."""
        if entry["call"] == FTRUNCATE:
            if pick is None or pick():
                del content[entry["length"]:]
                content.extend(bytes(entry["length"] - len(content)))
            return
        at, data = entry["offset"], entry["data"]
        end = at + len(data)
        while at < end:
            stop = min(end, (at // SECTOR + 1) * SECTOR)
            if pick is None or pick():
                if len(content) < stop:
                    content.extend(bytes(stop - len(content)))
                content[at:stop] = data[at - entry["offset"]:stop - entry["offset"]]
            at = stop

    def sync(self):
        for entry in self.pending:
            self.apply(self.durable, entry)
        self.pending.clear()

    def image(self, chance):
        """What the disk may hold: nothing, all, or any part of what is pending."""
        content = bytearray(self.durable)
        share = chance.choice((0.0, 0.5, 0.9, 1.0))
        for entry in self.pending:
            self.apply(content, entry, lambda: chance.random() < share)
        return content


class Disk:
    """Replays a log up to a call and makes an image of what a power cut there may leave."""

    def __init__(self, entries):
        self.by_inode = {}
        self.names = {}
        self.durable_names = {}
        self.pending_names = []
        for entry in entries:
            self.replay(entry)

    def replay(self, entry):
        call = entry["call"]
        if call in (WRITE, PWRITE, WRITEV, FTRUNCATE):
            self.by_inode.setdefault(entry["inode"], File(entry["inode"])).pending.append(entry)
        elif call in (FSYNC, FDATASYNC):
            if entry["folder"]:
                self.sync_names()
            elif entry["inode"] in self.by_inode:
                self.by_inode[entry["inode"]].sync()
        elif call == OPEN:
            if entry["created"]:
                self.by_inode[entry["inode"]] = File(entry["inode"])
                self.change_name(entry["path"], self.by_inode[entry["inode"]])
            elif entry["truncated"]:
                self.by_inode.setdefault(entry["inode"], File(entry["inode"])).pending.append(dict(entry, call=FTRUNCATE, length=0))
        elif call == RENAME:
            self.change_name(entry["second"], self.names.get(entry["path"]), entry["path"])
        elif call == LINK:
            self.change_name(entry["second"], self.names.get(entry["path"]))
        elif call == UNLINK:
            self.change_name(None, None, entry["path"])

    def change_name(self, made, file, removed=None):
        self.pending_names.append((made, file, removed))
        self.do_name(self.names, made, file, removed)

    @staticmethod
    def do_name(names, made, file, removed):
        names.pop(removed, None)
        if made is not None and file is not None:
            names[made] = file

    def sync_names(self):
        for change in self.pending_names:
            self.do_name(self.durable_names, *change)
        self.pending_names.clear()

    def image(self, chance):
        """{path: (inode, content)}. File systems keep the order of names; how far it got is chance."""
        names = dict(self.durable_names)
        for change in self.pending_names[:chance.randint(0, len(self.pending_names))]:
            self.do_name(names, *change)
        return {path: (file.inode, bytes(file.image(chance))) for path, file in names.items()}


def keep_files(box):
    """Second links to what the run left, by inode."""
    place = os.path.join(box.base, "kept")
    os.mkdir(place)
    kept = {}
    for folder in (box.folder, box.temp):
        for name in os.listdir(folder):
            inode = os.stat(os.path.join(folder, name)).st_ino
            kept[inode] = os.path.join(place, str(inode))
            os.link(os.path.join(folder, name), kept[inode])
    return kept


def journal_was_synced(box, entries):
    return any(entry["call"] == FSYNC and entry["folder"] and entry["path"] == box.temp for entry in entries)


def judge_image(lab, box, kept, image, cut_ns, was_synced, was_finished):
    for folder in (box.folder, box.temp):
        for name in os.listdir(folder):
            if os.path.join(folder, name) not in box.neighbours:
                os.unlink(os.path.join(folder, name))
    for path, (inode, content) in image.items():
        # A power cut does not make other files of the same name: what the run left keeps its identity.
        if inode in kept:
            os.link(kept[inode], path)
        with open(path, "wb") as file:
            file.write(content)
    report, problems = lab.repair(box)
    found = {}
    if os.path.exists(box.out) and os.path.getsize(box.out) > 0:
        found, found_problems = lab.judge(box.out)
        if was_synced:
            problems += found_problems
        problems += faultlab.honesty_problems(report, box.out, found)
    owed = box.pushed_by(cut_ns - WINDOW_NS) - faultlab.FRAGMENT_FRAMES
    if len(found.get(0, [])) < owed:
        problems.append(f"{len(found.get(0, []))} frames survived where {owed} should have")
    if was_finished:
        problems += [f"told as finished: {problem}" for problem in lab.compare(found, whole_file=True)]
    problems += box.neighbour_problems() + box.leftovers([box.out])
    return problems + [f"repair report: {report}"] if problems else []


def main():
    arguments = faultlab.parse(__doc__.splitlines()[0])
    images = 150 if arguments.full else 10
    # A slow run, so that most of what was pushed is older than the window; and a quick one, mostly finalising.
    failed = 0
    for clip in faultlab.CLIPS:
        lab = Lab(arguments, clip)
        for speed in ("2", "0"):
            with Box() as box:
                lab.run_undisturbed(box, "--speed", speed, log=True)
                entries = read_log(box.call_log)
                kept = keep_files(box)
                finished_ns = next(int(line[0]) for line in box.log_lines() if line[2:4] == ["event", "16"])

                def one(number):
                    chance = random.Random(f"{arguments.seed} {clip} {speed} {number}")
                    count = chance.randint(1, len(entries))
                    cut_ns = entries[count - 1]["time"]
                    problems = judge_image(lab, box, kept, Disk(entries[:count]).image(chance), cut_ns,
                                           journal_was_synced(box, entries[:count]), finished_ns < cut_ns)
                    return [f"after call {count} of {len(entries)}", *problems] if problems else []

                # The paths in the journals are absolute, so the images of one run stand at one place, one after the other.
                cases = range(images) if arguments.only is None else [arguments.only]
                failed += faultlab.run_matrix(f"power cut, {clip}, speed {speed}", cases, one, jobs=1)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
