"""What the rows share: processes that are measured, the recorder, folders, and ways of doing the same thing in shuffled turns."""
import json
import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
import urllib.parse
from datetime import datetime, timedelta, timezone

PASSWORD = "bench-Pass-7"
DAY = datetime(2026, 1, 10).astimezone()
BEGIN = DAY + timedelta(hours=8, minutes=45)
GIB = 1024 ** 3
ERROR_TAIL = 300


class Failed(Exception):
    """A measure that could not be taken; its text stands in the table."""


def iso(time_):
    return time_.isoformat(timespec="seconds")


def clock(time_):
    return time_.astimezone(timezone.utc).strftime("%Y%m%dT%H%M%SZ")


def size(path):
    return os.path.getsize(path) if os.path.exists(path) else 0


def resident_mb(pid):
    """None when the process is gone."""
    try:
        with open(f"/proc/{pid}/status", encoding="ascii") as status:
            for line in status:
                if line.startswith("VmRSS:"):
                    return int(line.split()[1]) / 1024
    except OSError:
        pass
    return None


class Run:
    """One finished process: wall and CPU seconds of it and its children, peak memory, what it printed."""

    def __init__(self, command, env=None, timeout=900):
        begin = time.monotonic()
        with tempfile.TemporaryFile("w+") as out, tempfile.TemporaryFile("w+") as err:
            self.process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=out, stderr=err, env=env)
            timer = threading.Timer(timeout, self.process.kill)
            timer.start()
            _, status, usage = os.wait4(self.process.pid, 0)
            self.wall = time.monotonic() - begin
            timer.cancel()
            self.code = self.process.returncode = os.waitstatus_to_exitcode(status)
            out.seek(0)
            err.seek(0)
            self.out, self.err = out.read(), err.read()
        self.name = os.path.basename(command[0])
        self.cpu = usage.ru_utime + usage.ru_stime
        self.peak_mb = usage.ru_maxrss / 1024

    def good(self):
        """Itself, when it ended well."""
        if self.code != 0:
            raise Failed(f"{self.name} ended with {self.code}: " + " ".join((self.err or self.out)[-ERROR_TAIL:].split()))
        return self

    def answer(self):
        """The JSON object of its last line."""
        self.good()
        try:
            return json.loads(self.out.strip().splitlines()[-1])
        except (IndexError, ValueError) as error:
            raise Failed(f"{self.name} printed no figures") from error


class Recorder:
    """A simulated recorder of its own; one at a time is enough for most rows."""

    def __init__(self, binary, *options):
        self.folder = tempfile.mkdtemp(prefix="vemo-bench-")
        self.password_file = os.path.join(self.folder, "password")
        with open(self.password_file, "w", encoding="ascii") as file:
            file.write(PASSWORD)
        command = [binary, "--port", "0", "--channels", "20", "--user", "admin", "--password-file", self.password_file,
                   "--first-day", "2026-01-10", "--days", "2", *options]
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
        self.addresses = json.loads(self.process.stdout.readline())
        self.onvif = self.addresses["onvif"]
        self.rtsp = urllib.parse.urlparse(self.addresses["rtsp"])

    def path(self, channel, begin=None, end=None):
        """A path that a plain player can ask for: the span stands in the address, as it can send no Range of clock times."""
        return f"/replay/{channel}" + (f"?clock={clock(begin)}-{clock(end)}" if begin else "")

    def url(self, channel, begin, end, login=""):
        return f"rtsp://{login}{self.rtsp.hostname}:{self.rtsp.port}{self.path(channel, begin, end)}"

    @property
    def replay(self):
        """Its address for a client that needs no ONVIF."""
        return f"rtsp://{self.rtsp.hostname}:{self.rtsp.port}/replay/{{channel}}"

    def stop(self):
        self.process.send_signal(signal.SIGTERM)
        self.process.wait(20)
        shutil.rmtree(self.folder, ignore_errors=True)


class Lab:
    """The build tree, a folder on the disk that is measured, and the commands of ours and of the peers."""

    def __init__(self, options):
        self.options = options
        self.runs = options.runs
        self.build = os.path.abspath(options.build)
        os.makedirs(options.dir, exist_ok=True)
        self.dir = tempfile.mkdtemp(prefix="run-", dir=os.path.abspath(options.dir))
        self.random = random.Random(options.seed)
        self._recorder = None

    def close(self):
        if self._recorder:
            self._recorder.stop()
        shutil.rmtree(self.dir, ignore_errors=True)

    @property
    def recorder(self):
        """Plays as fast as it is read; made at first use."""
        if not self._recorder:
            self._recorder = Recorder(self.program("recorder_sim"), "--speed", "full")
        return self._recorder

    def program(self, name):
        return os.path.join(self.build, "bin", name)

    def library(self, name):
        return os.path.join(self.build, "lib", name)

    def out(self, name):
        """A path of which nothing is left from before."""
        path = os.path.join(self.dir, name)
        if os.path.isdir(path):
            shutil.rmtree(path)
        elif os.path.exists(path):
            os.unlink(path)
        return path

    def folder(self, name):
        path = self.out(name)
        os.makedirs(path, mode=0o700)
        return path

    @staticmethod
    def say(text):
        print(f"# {time.strftime('%H:%M:%S')} {text}", file=sys.stderr, flush=True)

    def turns(self, ways, runs=None, warm=0):
        """Calls each way once a turn, in shuffled order. Returns its figures by name, without those of the first `warm` turns, which
        fill caches. Ours must succeed; a peer that fails twice is left out from then on, and told."""
        figures = {name: [] for name in ways}
        failures = {}
        for turn in range((runs or self.runs) + warm):
            for name in self.random.sample(list(ways), len(ways)):
                if failures.get(name, 0) > 1:
                    continue
                try:
                    figure = ways[name]()
                except Failed as failure:
                    self.say(f"{name}: {failure}")
                    if name.startswith("ours"):
                        raise
                    failures[name] = failures.get(name, 0) + 1
                    continue
                if turn >= warm:
                    figures[name].append(figure)
        return figures

    # Commands ---------------------------------------------------------------------------------------------------------

    @staticmethod
    def login(recorder, device=None):
        return ["--device", device or recorder.onvif, "--user", "admin", "--password-file", recorder.password_file]

    def ours(self, channels, begin, end, out, recorder=None, device=None):
        """`device`: its address, when not that of its ONVIF service."""
        recorder = recorder or self.recorder
        return [self.program("vemo_client"), "--data", os.path.join(recorder.folder, "data"), "download", *self.login(recorder, device),
                "--channel", ",".join(map(str, channels)), "--begin", iso(begin), "--end", iso(end), "--out", out, "--json"]

    def ffmpeg(self, channel, begin, end, out, *options, recorder=None):
        return ["ffmpeg", "-nostdin", "-v", "error", "-y", "-rtsp_transport", "tcp", "-i",
                (recorder or self.recorder).url(channel, begin, end, f"admin:{PASSWORD}@"), "-c", "copy", *options, out]

    def gstreamer(self, channel, begin, end, out, *muxer):
        return ["gst-launch-1.0", "-q", "-e", "rtspsrc", f"location={self.recorder.url(channel, begin, end)}", "protocols=tcp",
                "latency=0", "buffer-mode=none", "user-id=admin", f"user-pw={PASSWORD}", "!", "rtph264depay", "!", "h264parse", "!",
                "h264timestamper", "!", "mp4mux", *muxer, "!", "filesink", f"location={out}"]

    def floor(self, channel, begin, end, out, limit, *options):
        return [self.program("p0_sink"), self.recorder.rtsp.hostname, str(self.recorder.rtsp.port), self.recorder.path(channel), "admin",
                self.recorder.password_file, f"clock={clock(begin)}-{clock(end)}", out, str(limit), *options]

    def bytes_a_second(self, channel):
        """Of the channel's footage, by a short download."""
        probe, seconds = self.out("probe.mp4"), 120
        Run(self.ours([channel], BEGIN, BEGIN + timedelta(seconds=seconds), probe)).good()
        moved = size(probe)
        os.unlink(probe)
        return moved / seconds

    def span_for(self, channel, gib):
        """How much of the channel's footage makes so many GiB."""
        return timedelta(seconds=int(gib * GIB / self.bytes_a_second(channel)))
