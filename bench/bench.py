#!/usr/bin/env python3
"""Measures the download path beside its peers, in one run on one recorder, and prints one table.

usage: bench/bench.py [--build build/release] [--rows F1,F3,F5,F6,F7,F9,F13,F14] [--runs 7] [--gib 1.0] [--dir FOLDER]

Peers: P0 the bytes from the socket into a file and nothing else, P1 ffmpeg -c copy, P2 gst-launch-1.0. Runs come in shuffled
order, outputs are unlinked first, figures are medians with the spread. CPU is user plus system time of the whole process.
"""
import argparse
import json
import os
import random
import re
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import threading
import time
import urllib.parse
from datetime import datetime, timedelta, timezone

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
PASSWORD = "bench-Pass-7"
BEGIN = datetime(2026, 1, 10, 8, 45).astimezone()
GIB = 1024 ** 3


def clock(time_):
    return time_.astimezone(timezone.utc).strftime("%Y%m%dT%H%M%SZ")


def iso(time_):
    return time_.isoformat(timespec="seconds")


class Run:
    """One finished process: wall and CPU seconds, peak memory, what it printed."""

    def __init__(self, command, env=None, timeout=900):
        begin = time.monotonic()
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=env, text=True)
        reader = threading.Thread(target=self._read)
        reader.start()
        timer = threading.Timer(timeout, self.process.kill)
        timer.start()
        _, status, usage = os.wait4(self.process.pid, 0)
        self.wall = time.monotonic() - begin
        timer.cancel()
        reader.join()
        self.process.returncode = os.waitstatus_to_exitcode(status)
        self.code = self.process.returncode
        self.cpu = usage.ru_utime + usage.ru_stime
        self.peak_mb = usage.ru_maxrss / 1024

    def _read(self):
        self.err = ""
        other = threading.Thread(target=self._read_err)
        other.start()
        self.out = self.process.stdout.read()
        other.join()

    def _read_err(self):
        self.err = self.process.stderr.read()


class Recorder:
    def __init__(self, binary, *options):
        self.folder = tempfile.mkdtemp(prefix="vemo-bench-")
        self.password_file = os.path.join(self.folder, "password")
        with open(self.password_file, "w") as f:
            f.write(PASSWORD)
        command = [binary, "--port", "0", "--channels", "6", "--user", "admin", "--password-file", self.password_file,
                   "--first-day", "2026-01-10", "--days", "2", "--speed", "full", *options]
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
        self.addresses = json.loads(self.process.stdout.readline())
        self.rtsp = urllib.parse.urlparse(self.addresses["rtsp"])

    def path(self, channel, begin=None, end=None):
        """A path that a plain player can ask for: the span stands in the address, as it can send no Range of clock times."""
        text = f"/replay/{channel}"
        if begin:
            text += f"?clock={clock(begin)}-{clock(end)}"
        return text

    def url(self, channel, begin, end):
        return f"rtsp://admin:{PASSWORD}@{self.rtsp.hostname}:{self.rtsp.port}{self.path(channel, begin, end)}"

    def stop(self):
        self.process.send_signal(signal.SIGTERM)
        self.process.wait(20)
        shutil.rmtree(self.folder, ignore_errors=True)


def size(path):
    return os.path.getsize(path) if os.path.exists(path) else 0


def spread(values, form="{:.0f}"):
    return f"{form.format(statistics.median(values))} ({form.format(min(values))}-{form.format(max(values))})"


class Bench:
    def __init__(self, options):
        self.options = options
        self.bin = os.path.join(options.build, "bin")
        self.dir = os.path.abspath(options.dir)
        os.makedirs(self.dir, exist_ok=True)
        self.recorder = Recorder(os.path.join(self.bin, "recorder_sim"))
        self.rows = []
        self.random = random.Random(20260110)

    def row(self, name, measure, ours, peers, verdict):
        self.rows.append((name, measure, ours, peers, verdict))
        print(f"# {name}: {measure}: {ours} | {peers} | {verdict}", file=sys.stderr, flush=True)

    def out(self, name):
        path = os.path.join(self.dir, name)
        if os.path.isdir(path):
            shutil.rmtree(path)
        elif os.path.exists(path):
            os.unlink(path)
        return path

    # Commands ---------------------------------------------------------------------------------------------------------

    def ours(self, channels, begin, end, out):
        return [os.path.join(self.bin, "vemo_client"), "--data", os.path.join(self.recorder.folder, "data"), "download",
                "--device", self.recorder.addresses["onvif"], "--user", "admin", "--password-file", self.recorder.password_file,
                "--channel", ",".join(map(str, channels)), "--begin", iso(begin), "--end", iso(end), "--out", out, "--json"]

    def ffmpeg(self, channel, begin, end, out, *options):
        return ["ffmpeg", "-nostdin", "-v", "error", "-y", "-rtsp_transport", "tcp", "-i",
                self.recorder.url(channel, begin, end), "-c", "copy", *options, out]

    def gstreamer(self, channel, begin, end, out):
        location = f"rtsp://{self.recorder.rtsp.hostname}:{self.recorder.rtsp.port}{self.recorder.path(channel, begin, end)}"
        return ["gst-launch-1.0", "-q", "-e", "rtspsrc", f"location={location}", "protocols=tcp", "latency=0", "buffer-mode=none",
                "user-id=admin", f"user-pw={PASSWORD}", "!", "rtph264depay", "!", "h264parse", "!", "h264timestamper", "!",
                "mp4mux", "!", "filesink", f"location={out}"]

    def floor(self, channel, begin, end, out, limit):
        return [os.path.join(self.bin, "p0_sink"), self.recorder.rtsp.hostname, str(self.recorder.rtsp.port),
                self.recorder.path(channel), "admin", self.recorder.password_file, f"clock={clock(begin)}-{clock(end)}", out,
                str(limit)]

    # Rows -------------------------------------------------------------------------------------------------------------

    def span_for(self, channel, gib):
        """How many seconds of the channel make so many GiB, by a short download."""
        probe = self.out("probe.mp4")
        Run(self.ours([channel], BEGIN, BEGIN + timedelta(seconds=120), probe))
        bytes_ = size(probe)
        os.unlink(probe)
        return timedelta(seconds=int(gib * GIB / bytes_ * 120))

    def f1(self):
        span = self.span_for(1, self.options.gib)
        end = BEGIN + span
        figures = {}
        names = ["ours", "P0", "P1", "P2"]
        payload = 0
        for turn in range(self.options.runs + 1):
            order = names[:]
            self.random.shuffle(order)
            for name in order:
                out = self.out(f"f1-{name}.mp4")
                if name == "P0":
                    run = Run(self.floor(1, BEGIN, end, out, int(payload * 1.004) if payload else 0))
                    moved = json.loads(run.out)["bytes"] if run.code == 0 else 0
                else:
                    command = {"ours": lambda: self.ours([1], BEGIN, end, out), "P1": lambda: self.ffmpeg(1, BEGIN, end, out),
                               "P2": lambda: self.gstreamer(1, BEGIN, end, out)}[name]()
                    run = Run(command)
                    moved = size(out)
                if run.code != 0 or moved == 0:
                    print(f"# {name} failed ({run.code}): {run.err.strip()[-300:]}", file=sys.stderr)
                if name == "ours":
                    payload = moved
                if os.path.exists(out):
                    os.unlink(out)
                if turn > 0 and moved:  # the first turn warms caches
                    figures.setdefault(name, []).append((moved / 1e6 / run.wall, run.cpu / (moved / GIB), run.peak_mb))
        rate = {n: statistics.median(f[0] for f in v) for n, v in figures.items()}
        cpu = {n: statistics.median(f[1] for f in v) for n, v in figures.items()}
        best = max(rate[n] for n in ("P1", "P2") if n in rate)
        text = ", ".join(f"{n} {spread([f[0] for f in figures[n]])}" for n in ("P0", "P1", "P2") if n in figures)
        self.row("F1", f"one download, {payload / GIB:.2f} GiB, MB/s", spread([f[0] for f in figures["ours"]]), text,
                 f"{rate['ours'] / best:.2f} x the best of P1, P2; {rate['ours'] / rate['P0']:.2f} of P0")
        text = ", ".join(f"{n} {cpu[n]:.2f}" for n in ("P0", "P1", "P2") if n in cpu)
        self.row("F2", "CPU s a GiB", spread([f[1] for f in figures["ours"]], "{:.2f}"), text,
                 f"1/{cpu['P1'] / cpu['ours']:.1f} of P1; {max(f[2] for f in figures['ours']):.0f} MB")

    def f3(self):
        span = self.span_for(1, self.options.gib / 2)
        end = BEGIN + span
        # Channel 1 five times over would be one file name; the recorder has as many H.264 channels of that size as it offers.
        ours, peers, memory = [], [], []
        for turn in range(self.options.runs + 1):
            for name in self.random.sample(["ours", "P1"], 2):
                folder = self.out(f"f3-{name}")
                os.makedirs(folder)
                begin = time.monotonic()
                if name == "ours":
                    run = Run(self.ours([1] * 5, BEGIN, end, folder))
                    peak = run.peak_mb
                else:
                    processes = [subprocess.Popen(self.ffmpeg(1, BEGIN, end, os.path.join(folder, f"{i}.mp4"))) for i in range(5)]
                    for process in processes:
                        process.wait()
                wall = time.monotonic() - begin
                moved = sum(size(os.path.join(folder, f)) for f in os.listdir(folder))
                shutil.rmtree(folder)
                if turn > 0:
                    (ours if name == "ours" else peers).append(moved / 1e6 / wall)
                    if name == "ours":
                        memory.append(peak)
        self.row("F3", "five downloads in one process, MB/s", spread(ours), f"five P1 {spread(peers)}",
                 f"{statistics.median(ours) / statistics.median(peers):.2f} x five P1; {max(memory):.0f} MB")

    def first_fragment(self, command, out):
        """Seconds from the start of the process until the file holds media: more than its header."""
        begin = time.monotonic()
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        while size(out) < 64 * 1024 and process.poll() is None:
            time.sleep(0.0005)
        seconds = time.monotonic() - begin
        reached = size(out) >= 64 * 1024
        process.kill()
        process.wait()
        return 1000 * seconds if reached else None

    def f5(self):
        end = BEGIN + timedelta(minutes=20)
        figures = {"ours": [], "P1": [], "P2": []}
        for _ in range(self.options.runs):
            for name in self.random.sample(list(figures), 3):
                out = self.out(f"f5-{name}.mp4")
                command = {"ours": self.ours([1], BEGIN, end, out), "P1": self.ffmpeg(1, BEGIN, end, out),
                           "P2": self.gstreamer(1, BEGIN, end, out)}[name]
                milliseconds = self.first_fragment(command, out)
                if milliseconds is not None:
                    figures[name].append(milliseconds)
                for leftover in os.listdir(self.dir):
                    if leftover.startswith("f5-"):
                        os.unlink(os.path.join(self.dir, leftover))
        peers = [n for n in ("P1", "P2") if figures[n]]
        best = min(statistics.median(figures[n]) for n in peers)
        self.row("F5", "process start to first media on disk, ms", spread(figures["ours"]),
                 ", ".join(f"{n} {spread(figures[n])}" for n in peers), f"{statistics.median(figures['ours']) / best:.2f} of the best")

    def f6(self):
        cells, peers, ratios = [], [], []
        for gib in self.options.f6_gib:
            source = self.out("f6-source.mp4")
            run = Run([os.path.join(self.bin, "vaws_push_bench"), source, str(int(gib * 1024)), "--stop"])
            shutil.rmtree(source + ".journals", ignore_errors=True)
            found = re.search(r"end ([0-9.]+) ms", run.out)
            if run.code != 0 or not found:
                print("# F6: " + run.err[-300:], file=sys.stderr)
                return
            finalise_ms = float(found.group(1))
            moved = self.out("f6-faststart.mp4")
            peer = Run(["ffmpeg", "-nostdin", "-v", "error", "-y", "-i", source, "-map", "0", "-c", "copy", "-movflags", "+faststart",
                        moved])
            os.unlink(source)
            os.unlink(moved)
            cells.append(f"{gib:g} GiB {finalise_ms:.0f}")
            peers.append(f"{peer.wall * 1000:.0f}")
            ratios.append(finalise_ms / 1000 / peer.wall)
        self.row("F6", "stop at full rate until the file is final, ms", ", ".join(cells), "ffmpeg +faststart " + ", ".join(peers),
                 f"at most {max(ratios):.4f} of ffmpeg")

    def f7(self):
        span = self.span_for(1, 2.0)
        source = self.out("f7-source.mp4")
        Run(self.ours([1], BEGIN, BEGIN + span, source))
        inset = timedelta(seconds=7)
        first, last = BEGIN + inset, BEGIN + span - inset
        ours, peers = [], []
        for _ in range(self.options.runs):
            for name in self.random.sample(["ours", "P1"], 2):
                out = self.out(f"f7-{name}.mp4")
                if name == "ours":
                    run = Run([os.path.join(self.bin, "vaws_cut_bench"), source, iso(BEGIN), iso(BEGIN + span), iso(first), iso(last), out])
                    ours.append(run.wall)
                else:
                    run = Run(["ffmpeg", "-nostdin", "-v", "error", "-y", "-ss", str(inset.seconds), "-to",
                               str((span - inset).total_seconds()), "-i", source, "-c", "copy", out])
                    peers.append(run.wall)
                if run.code != 0 or size(out) == 0:
                    print(f"# F7 {name}: {run.err[-300:]}", file=sys.stderr)
        gib = size(source) / GIB
        for name in ("f7-source.mp4", "f7-ours.mp4", "f7-P1.mp4"):
            self.out(name)
        self.row("F7", f"cut a span out of {gib:.1f} GiB, s", spread(ours, "{:.2f}"), f"P1 {spread(peers, '{:.2f}')}",
                 f"{statistics.median(ours) / statistics.median(peers):.2f} of P1")

    def f9(self):
        for name, more in (("five downloads", []), ("five downloads, 10,000 rows being scrolled", ["10000"])):
            folder = self.out("f9")
            os.makedirs(folder)
            run = Run([os.path.join(self.bin, "gui_tick_bench"), self.recorder.addresses["onvif"], "admin",
                       self.recorder.password_file, "1", iso(BEGIN), iso(BEGIN + timedelta(hours=12)), folder, "5", "12", *more],
                      env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})
            shutil.rmtree(folder)
            if run.code != 0:
                print("# F9: " + run.err[-300:], file=sys.stderr)
                continue
            answer = json.loads(run.out.strip().splitlines()[-1])
            self.row("F9", f"lateness of a 16 ms tick, {name}, ms", f"p99 {answer['p99_ms']:.1f}, max {answer['max_ms']:.1f}",
                     "-", f"{answer['ticks']} ticks at {answer['rate_mb_s']:.0f} MB/s")

    def f13(self):
        out = self.out("f13.mp4")
        day = datetime(2026, 1, 10, 0, 0).astimezone()
        peak = 0
        process = subprocess.Popen(self.ours([3], day, day + timedelta(hours=24), out), stdout=subprocess.PIPE, text=True,
                                   stderr=subprocess.DEVNULL)
        trace = []
        reader = threading.Thread(target=lambda: trace.extend(process.stdout.readlines()))
        reader.start()
        resident = []
        while process.poll() is None:
            try:
                with open(f"/proc/{process.pid}/status") as status:
                    found = re.search(r"VmRSS:\s+(\d+)", status.read())
                    if found:
                        resident.append(int(found.group(1)) / 1024)
            except OSError:
                break
            time.sleep(0.1)
        reader.join()
        peak = max(resident) if resident else 0
        half = resident[len(resident) // 2] if resident else 0
        answer = json.loads(trace[-1]) if trace else {}
        moved = size(out)
        self.out("f13.mp4")
        self.row("F13", "memory while 24 h are written, MB", f"peak {peak:.0f}, at half time {half:.0f}", "-",
                 f"{moved / GIB:.1f} GiB, gaps {len(answer.get('gaps', []))}")

    def f14(self):
        for name, environment in (("full rate", {}),
                                  ("20 MB/s disk", {"LD_PRELOAD": os.path.join(self.options.build, "lib", "libslow_disk.so"),
                                                    "SLOW_DISK_UNDER": os.path.join(self.dir, "f14")})):
            folder = self.out("f14")
            os.makedirs(folder)
            run = Run([os.path.join(self.bin, "stop_latency_bench"), self.recorder.addresses["onvif"], "admin",
                       self.recorder.password_file, "1", iso(BEGIN), iso(BEGIN + timedelta(hours=12)), folder, "10"],
                      env={**os.environ, **environment, "QT_QPA_PLATFORM": "offscreen"})
            shutil.rmtree(folder)
            if run.code != 0:
                print("# F14: " + run.err[-300:], file=sys.stderr)
                continue
            answer = json.loads(run.out.strip().splitlines()[-1])
            figures = ", ".join(f"{k} {answer[k]['median_ms']} (max {answer[k]['max_ms']})" for k in ("pause", "resume", "cancel", "stop"))
            self.row("F14", f"on the GUI thread, {name}, ms", figures, "-", f"{answer['rate_mb_s']:.0f} MB/s")

    def run(self):
        try:
            for name in self.options.rows:
                getattr(self, name.lower())()
        finally:
            self.recorder.stop()
        print("| Row | Measure | Ours | Peers | Result |")
        print("|---|---|---|---|---|")
        for row in self.rows:
            print("| " + " | ".join(row) + " |")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default=os.path.join(ROOT, "build", "release"))
    parser.add_argument("--rows", default="F1,F3,F5,F6,F7,F9,F13,F14", type=lambda text: text.split(","))
    parser.add_argument("--runs", type=int, default=7)
    parser.add_argument("--gib", type=float, default=1.0)
    parser.add_argument("--f6-gib", default=[1.0, 4.0], type=lambda text: [float(x) for x in text.split(",")])
    parser.add_argument("--dir", default=os.path.join(ROOT, "build", "bench"))
    Bench(parser.parse_args()).run()


if __name__ == "__main__":
    main()
