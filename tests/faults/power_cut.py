#!/usr/bin/env python3
"""Power cuts, replayed from the log of a task's calls: what a disk may hold when the current goes away after any call. Everything
synced before is there; of what was written since, some 512-byte pieces are, in any combination; names made, changed or removed
since the folder was last synced survive up to some point of their order. A restart on such an image leaves prefixes, keeps what
was owed, and claims no more than there is. Before a file was ever synced nothing of it is owed, and pieces that open nowhere may stay;
a file that opens holds a prefix and nothing else.

Paths in the journals are absolute, so the images of one run are judged at its place, one after the other; several runs, each with
a log of its own, are judged at a time."""
import concurrent.futures
import os
import random
import shutil
import struct
import sys

import checker
import faultlab
import media
from faultlab import Box, Lab

RECORD = struct.Struct("<IIQQQQIqQHHI")
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
            magic, call, _, began_ns, time_ns, inode, flags, offset, length, path_size, second_size, data_size = RECORD.unpack(head)
            if magic != MAGIC:
                raise RuntimeError("the call log cannot be read")
            name, second, data = (file.read(size) for size in (path_size, second_size, data_size))
            entries.append(dict(call=call, began=began_ns, time=time_ns, inode=inode, folder=bool(flags & 1), created=bool(flags & 2),
                                truncated=bool(flags & 4), offset=offset, length=length, path=name.decode(), second=second.decode(),
                                data=data))


class File:
    """One file's content: what is certain, and what was done since."""

    def __init__(self, inode):
        self.inode = inode
        self.durable = bytearray()
        self.pending = []

    @staticmethod
    def apply(content, entry, pick=None):
        """Does one change to `content`; with `pick`, only those of its sectors for which pick() is true."""
        if entry["call"] == FTRUNCATE:
            if pick is None or pick():
                del content[entry["length"]:]
                content.extend(bytes(entry["length"] - len(content)))
            return
        at, data = entry["offset"], entry["data"]
        end = at + len(data)
        if pick is None:
            content.extend(bytes(max(0, end - len(content))))
            content[at:end] = data
            return
        while at < end:
            stop = min(end, (at // SECTOR + 1) * SECTOR)
            if pick():
                content.extend(bytes(max(0, stop - len(content))))
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
        for entry in self.pending if share > 0 else ():
            self.apply(content, entry, None if share == 1 else lambda: chance.random() < share)
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


def lay_out(box, kept, image):
    """Makes the folders of the box what the disk holds after the cut."""
    for path in box.surroundings.new_files():
        os.unlink(path)
    journals = b"".join(content for path, (_, content) in image.items() if path.endswith(".vjournal"))
    for path, (inode, content) in image.items():
        # A power cut does not make other files of the same name: what the run left keeps its identity. Where no journal knows that, the
        # file comes to be behind its journal, as it did.
        if inode in kept and str(inode).encode() in journals:
            os.link(kept[inode], path)
        with open(path, "wb") as file:
            file.write(content)


class Share:
    """Some images of one undisturbed run, in a process of its own."""

    # So many files are read by one start of ffmpeg.
    BATCH = 16
    IMAGES_A_RUN = 250

    def __init__(self, arguments, clip, speed, index, images):
        self.arguments, self.clip, self.speed, self.index, self.images = arguments, clip, speed, index, images

    def __str__(self):
        return f"{self.clip}, speed {self.speed}, run {self.index}"

    def judge(self, numbers):
        """{number: problems} for these of its images."""
        self.lab = Lab(self.arguments, self.clip)
        with Box() as self.box:
            self.lab.run_undisturbed(self.box, "--speed", self.speed, log=True)
            self.entries = read_log(self.box.call_log)
            self.kept = keep_files(self.box)
            self.finished_ns = next(int(line[0]) for line in self.box.log_lines() if line[2:4] == ["event", "16"])
            self.judged = os.path.join(self.box.base, "judged")
            os.mkdir(self.judged)
            draws = [(number, random.Random(f"{self.arguments.seed} {self} {number}")) for number in numbers]
            # In the order of the cuts, so that one replay goes through the log once.
            cuts = sorted(((chance.randint(1, len(self.entries)), number, chance) for number, chance in draws), key=lambda cut: cut[:2])
            disk, replayed, answers, waiting = Disk([]), 0, {}, []
            for count, number, chance in cuts:
                for entry in self.entries[replayed:count]:
                    disk.replay(entry)
                replayed = count
                waiting.append(self.cut(number, count, disk.image(chance)))
                if len(waiting) == self.BATCH:
                    answers.update(self.read_back(waiting))
                    waiting = []
            answers.update(self.read_back(waiting))
        return answers

    def cut(self, number, count, image):
        """Restarts on the image; keeps the file aside for read_back()."""
        box = self.box
        lay_out(box, self.kept, image)
        report, problems = self.lab.repair(box)
        problems += box.neighbour_problems() + box.leftovers([box.out])
        path = os.path.join(self.judged, f"{number}.mp4")
        if os.path.exists(box.out):
            # A copy, since the file that the run left is written anew for each image.
            shutil.copyfile(box.out, path)
        return number, count, path, report, problems

    def read_back(self, waiting):
        answers = {}
        there = [path for _, _, path, _, _ in waiting if os.path.exists(path) and os.path.getsize(path) > 0]
        told = media.samples_of_many(there)
        for number, count, path, report, problems in waiting:
            cut_ns = self.entries[count - 1]["time"]
            found = told.get(path, {})
            if isinstance(found, Exception):
                problems += [str(found)] if self.file_was_synced(count) else []
                found = {}
            problems += self.lab.compare(found)
            problems += faultlab.honesty_problems([dict(entry, path=path) for entry in report if entry.get("path") == self.box.out],
                                                  path, found)
            owed = self.box.pushed_by(cut_ns - self.window_ns(count)) - faultlab.FRAGMENT_FRAMES
            problems += checker.window_problems(found, owed)
            if self.finished_ns < cut_ns:
                problems += [f"told as finished: {problem}" for problem in self.lab.compare(found, whole_file=True)]
            if problems:
                problems = [f"after call {count} of {len(self.entries)}", *problems, f"repair report: {report}"]
            answers[number] = problems
            if os.path.exists(path):
                os.unlink(path)
        return answers

    def window_ns(self, count):
        """Before the call: time in which calls were under way comes on top, since a disk that takes a second for each is behind by it."""
        window_ns = WINDOW_NS
        cut_ns = later_ns = self.entries[count - 1]["time"]
        for entry in reversed(self.entries[:count]):
            if entry["time"] < cut_ns - window_ns:
                break
            window_ns += max(0, min(entry["time"], later_ns) - entry["began"])
            later_ns = min(later_ns, entry["began"])
        return window_ns

    def file_was_synced(self, count):
        return any(entry["call"] in (FSYNC, FDATASYNC) and entry["path"] == self.box.out for entry in self.entries[:count])


def main():
    arguments = faultlab.parse(__doc__.splitlines()[0])
    images = arguments.cases or (8000 if arguments.full else 40)
    # A slow run, so that most of what was pushed is older than the window; and a quick one, mostly finalising.
    kinds = [(clip, speed) for clip in faultlab.CLIPS for speed in ("2", "0")]
    runs = max(1, images // (len(kinds) * Share.IMAGES_A_RUN))
    each = -(-images // (len(kinds) * runs))
    shares = [Share(arguments, clip, speed, index, each) for index in range(runs) for clip, speed in kinds]
    matrix = faultlab.Matrix(arguments)
    with concurrent.futures.ProcessPoolExecutor(os.cpu_count()) as pool:
        asked = [(share, matrix.number(range(share.images))) for share in shares]
        answers = [pool.submit(share.judge, [index for _, index in numbered]) for share, numbered in asked if numbered]
        for (share, numbered), answer in zip([each for each in asked if each[1]], answers):
            problems = answer.result()
            for number, index in numbered:
                matrix.note(f"power cut, {share}", number, index, problems[index])
            print(f"power cut, {share}: {len(numbered)} images", flush=True)
    return matrix.tell("E4", "power-cut images of media files" + (", clock track" if arguments.clock else ""))


if __name__ == "__main__":
    sys.exit(main())
