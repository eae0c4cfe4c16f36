"""F1 to F6 and F13: downloads at full speed and in real time, and the end of a file."""
import json
import os
import re
import shutil
import statistics
import subprocess
import threading
import time
from datetime import timedelta

from lab import BEGIN, DAY, GIB, Failed, Recorder, Run, resident_mb, size

ALIKE = (1, 5, 9, 13, 17)  # channels with the same footage; one that is asked for twice is downloaded once
STREAMS = len(ALIKE)
GOP_S = 2  # of the recorder's footage
FIRST_BYTES = 64 * 1024
SYNCS = {"fsync", "fdatasync", "sync_file_range"}
WRITES = {"write", "pwrite", "writev"}


def one_download(lab, report):
    """F1 and F2."""
    end = BEGIN + lab.span_for(1, lab.options.gib)
    moved = {"ours": 0}

    def of(name, command):
        def run():
            out = lab.out(f"one-{name}.mp4")
            done = Run(command(out)).good()
            moved[name] = size(out)
            lab.out(f"one-{name}.mp4")
            if not moved[name]:
                raise Failed(f"{name} wrote nothing")
            return moved[name] / 1e6 / done.wall, done.cpu / (moved[name] / GIB)
        return run

    # P0 reads as many bytes as a download brings: with the framing of RTP they are a little more.
    whole = lab.out("one-first.mp4")
    Run(lab.ours([1], BEGIN, end, whole)).good()
    limit = int(size(whole) * 1.004)
    lab.out("one-first.mp4")
    figures = lab.turns({"ours": of("ours", lambda out: lab.ours([1], BEGIN, end, out)),
                         "P0": of("P0", lambda out: lab.floor(1, BEGIN, end, out, limit)),
                         "P0 on the disk": of("P0-disk", lambda out: lab.floor(1, BEGIN, end, out, limit, "sync")),
                         "P1": of("P1", lambda out: lab.ffmpeg(1, BEGIN, end, out)),
                         "P2": of("P2", lambda out: lab.gstreamer(1, BEGIN, end, out))}, warm=1)
    rates, cpu = ({name: [each[at] for each in values] for name, values in figures.items()} for at in (0, 1))
    note = f"{moved['ours'] / GIB:.2f} GiB"
    report.add("F1/rate", rates.pop("ours"), rates, note=note)
    report.add("F1/floor", [each[0] for each in figures["ours"]], {"P0": rates["P0"]})
    report.add("F1/synced", [each[0] for each in figures["ours"]], {"P0 on the disk": rates["P0 on the disk"]})
    report.add("F2/cpu", cpu.pop("ours"), cpu)


def five_ffmpegs(lab, folder, begin, end, recorder=None):
    """CPU seconds of five at once."""
    before = os.times()
    processes = [subprocess.Popen(lab.ffmpeg(channel, begin, end, os.path.join(folder, f"{channel}.mp4"), recorder=recorder))
                 for channel in ALIKE]
    if any([process.wait() for process in processes]):
        raise Failed("one of five ffmpeg failed")
    after = os.times()
    return after.children_user + after.children_system - before.children_user - before.children_system


def five_downloads(lab, report):
    """F3."""
    end = BEGIN + lab.span_for(1, lab.options.gib / 2)
    memory = []

    def rate(work, name):
        folder = lab.folder(name)
        begin = time.monotonic()
        work(folder)
        seconds = time.monotonic() - begin
        files = os.listdir(folder)
        moved = sum(size(os.path.join(folder, file)) for file in files)
        lab.out(name)
        if len(files) != STREAMS:
            raise Failed(f"{name}: {len(files)} files of {STREAMS}")
        return moved / 1e6 / seconds

    def ours(folder):
        memory.append(Run(lab.ours(ALIKE, BEGIN, end, folder)).good().peak_mb)

    figures = lab.turns({"ours": lambda: rate(ours, "five-ours"),
                         "five P1": lambda: rate(lambda folder: five_ffmpegs(lab, folder, BEGIN, end), "five-P1")}, warm=1)
    report.add("F3/rate", figures.pop("ours"), figures)
    report.add("F3/memory", memory)


def real_time(lab, report):
    """F4. The recorder plays so much faster than its footage that a stream has 8 Mbit/s."""
    speed = 1e6 / lab.bytes_a_second(1)
    seconds = lab.options.real_time_s
    end = BEGIN + timedelta(seconds=round(seconds * speed))
    gops = (end - BEGIN).total_seconds() / GOP_S
    recorder = Recorder(lab.program("recorder_sim"), "--speed", f"{speed:.4f}")

    def ours():
        folder = lab.folder("real-ours")
        run = Run(lab.ours(ALIKE, BEGIN, end, folder, recorder)).good()
        if len(os.listdir(folder)) != STREAMS:
            raise Failed(f"{len(os.listdir(folder))} files of {STREAMS}")
        return run.cpu

    def peer():
        return five_ffmpegs(lab, lab.folder("real-P1"), BEGIN, end, recorder)

    def calls():
        folder, trace = lab.folder("real-calls"), lab.out("trace")
        environment = {**os.environ, "LD_PRELOAD": lab.library("libvemo_faults.so"), "VEMO_FAULTS_ROOT": folder,
                       "VEMO_FAULTS_TRACE": trace}
        Run(lab.ours(ALIKE, BEGIN, end, folder, recorder), env=environment).good()
        with open(trace, encoding="utf-8") as file:
            names = [line.split()[1] for line in file if len(line.split()) > 3]
        writes = sum(name in WRITES for name in names)
        return writes / STREAMS / gops, (len(names) - writes) / STREAMS / gops, sum(name in SYNCS for name in names) / STREAMS / gops

    try:
        figures = lab.turns({"ours": ours, "five P1": peer})
        counted = lab.turns({"ours": calls}, runs=1)["ours"]
    finally:
        recorder.stop()
        for name in ("real-ours", "real-P1", "real-calls", "trace"):
            lab.out(name)
    report.add("F4/cpu", figures.pop("ours"), figures, note=f"{seconds:.0f} s")
    report.add("F4/writes", [each[0] for each in counted])
    report.add("F4/other", [each[1] for each in counted], note=f"of them {counted[0][2]:.2f} syncs")


def fragments(path):
    """How many whole `moof` and `mdat` pairs the growing file holds (ISO/IEC 14496-12, 4.2)."""
    count, at, total = 0, 0, size(path)
    with open(path, "rb") as file:
        while at + 8 <= total:
            file.seek(at)
            head = file.read(16)
            length = int.from_bytes(head[:4], "big")
            length = int.from_bytes(head[8:16], "big") if length == 1 else length
            if length < 8:
                break
            at += length
            count += head[4:8] == b"moof" and at + 8 <= total
            if head[4:8] == b"mdat" and at > total:
                count -= 1
                break
    return max(0, count)


def until(command, out, reached):
    """Milliseconds from the start of the process until the file is as far."""
    begin = time.monotonic()
    process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        while time.monotonic() - begin < 20:
            if size(out) >= 1024 and reached(out):
                return 1000 * (time.monotonic() - begin)
            if process.poll() is not None:
                break
            time.sleep(0.0005)
    finally:
        process.kill()
        process.wait()
    raise Failed(f"{os.path.basename(command[0])} never came as far")


def first_fragment(lab, report):
    """F5. The peers are given the address of the replay, so ours is too; with ONVIF it also logs in and searches before. A peer that writes
    a plain file has media on disk early which nobody can play: that is told, and not judged."""
    replay = lab.recorder.replay
    end = BEGIN + timedelta(minutes=20)

    def of(name, command, reached):
        def run():
            lab.folder("first")
            out = os.path.join(lab.dir, "first", name + ".mp4")
            return until(command(out), out, reached)
        return run

    def is_begun(path):
        return size(path) >= FIRST_BYTES

    ways = {"ours": of("ours", lambda out: lab.ours([1], BEGIN, end, out, device=replay), fragments),
            "ours, ONVIF": of("ours", lambda out: lab.ours([1], BEGIN, end, out), fragments),
            "P1 fragmented": of("P1", lambda out: lab.ffmpeg(1, BEGIN, end, out, "-movflags", "frag_keyframe+empty_moov"), fragments),
            "P2 fragmented": of("P2", lambda out: lab.gstreamer(1, BEGIN, end, out, "fragment-duration=1000"), fragments),
            "ours, bytes": of("ours", lambda out: lab.ours([1], BEGIN, end, out, device=replay), is_begun),
            "P1": of("P1", lambda out: lab.ffmpeg(1, BEGIN, end, out), is_begun),
            "P2": of("P2", lambda out: lab.gstreamer(1, BEGIN, end, out), is_begun)}
    figures = lab.turns(ways, warm=1)
    lab.out("first")
    fragmented = {name: figures[name] for name in ("P1 fragmented", "P2 fragmented")}
    report.add("F5/fragment", figures["ours"], fragmented)
    report.add("F5/onvif", figures["ours, ONVIF"], fragmented)
    report.add("F5/bytes", figures["ours, bytes"], {name: figures[name] for name in ("P1", "P2")})


def finalised(lab, name, mib, kbit=6000):
    """Milliseconds of stopping a task that was pushed so much at full rate; the file stays."""
    path = lab.out(name)
    try:
        run = Run([lab.program("vaws_push_bench"), path, str(mib), "--kbit", str(kbit), "--stop"]).good()
    finally:
        shutil.rmtree(path + ".journals", ignore_errors=True)
    found = re.search(r"end ([0-9.]+) ms", run.out)
    if not found:
        raise Failed("vaws_push_bench told no end")
    return float(found.group(1))


def end_of_file(lab, report):
    """F6. The large ones are measured fewer times: writing them is what takes the time."""
    sizes = {1: lab.runs, 4: max(1, lab.runs // 2), 16: max(1, lab.runs // 3)}
    source, moved = "end-source.mp4", "end-faststart.mp4"
    large = None
    for gib, runs in sizes.items():
        if gib > lab.options.largest_gib:
            report.leave_out(f"F6/{gib}")
            continue
        figures = {"ours": [], "faststart": []}
        try:
            for _ in range(runs):
                figures["ours"].append(finalised(lab, source, gib * 1024))
                if gib < 16 or not figures["faststart"]:
                    peer = Run(["ffmpeg", "-nostdin", "-v", "error", "-y", "-i", os.path.join(lab.dir, source), "-map", "0", "-c", "copy",
                                "-movflags", "+faststart", lab.out(moved)]).good()
                    figures["faststart"].append(1000 * peer.wall)
                    lab.out(moved)
                lab.out(source)
        finally:
            lab.out(source)
            lab.out(moved)
        large = gib, figures["ours"]
        report.add(f"F6/{gib}", figures.pop("ours"), figures, note=f"{runs} runs")
    if not large or large[0] == 1:
        report.leave_out("F6/flat")
        return
    gib, ours = large
    small = [finalised(lab, source, 1024, 6000 // gib) for _ in ours]
    lab.out(source)
    report.add("F6/flat", ours, {"1 GiB": small}, note=f"{gib} GiB")


def whole_day(lab, report):
    """F13, with the channel whose sound has to be encoded."""
    out = lab.out("day.mp4")
    process = subprocess.Popen(lab.ours([3], DAY, DAY + timedelta(hours=lab.options.day_h), out), stdout=subprocess.PIPE, text=True,
                               stderr=subprocess.DEVNULL)
    lines = []
    reader = threading.Thread(target=lambda: lines.extend(process.stdout))
    reader.start()
    memory = []
    while process.poll() is None:
        now = resident_mb(process.pid)
        if now:
            memory.append(now)
        time.sleep(0.05)
    reader.join()
    moved = size(out)
    lab.out("day.mp4")
    if process.returncode != 0 or len(memory) < 8 or not lines:
        raise Failed(f"the download of a day ended with {process.returncode}, memory seen {len(memory)} times")
    quarter = len(memory) // 4
    gaps = len(json.loads(lines[-1]).get("gaps", []))
    report.add("F13/memory", [max(memory)], note=f"{lab.options.day_h} h, {moved / GIB:.1f} GiB, {gaps} gaps")
    report.add("F13/flat", [statistics.median(memory[-quarter:])], {"second quarter": [statistics.median(memory[quarter:2 * quarter])]})
