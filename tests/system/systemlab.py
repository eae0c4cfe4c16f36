"""What the whole-program tests share: the simulated recorder and the client as processes, and what is demanded of every run of
the client, whatever its outcome: in time, in bounded memory, one sentence on stderr when it failed, the password nowhere."""
import argparse
import contextlib
import datetime
import json
import os
import random
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import time
import unittest
import urllib.parse
import urllib.request

import media
import secretscan

# Awkward on purpose: what has to be encoded in URLs, quoted in headers and escaped in XML and JSON.
PASSWORD = "gehe/im %2B+<&\"'>ä 7"
USER = "admin"
FIRST_DAY = datetime.datetime(2026, 1, 10, tzinfo=datetime.timezone.utc)
MEMORY_LIMIT_MIB = 300
# Long, for the clips that a first start makes.
START_TIMEOUT_S = 600

DONE, FAILED, USAGE, LOGIN_REFUSED, UNREACHABLE, LIMIT, DISK, NO_RECORDING, INCOMPLETE, INTERRUPTED = 0, 1, 2, 3, 4, 5, 6, 7, 8, 130

OPTIONS = argparse.Namespace()


def parse():
    """Reads the build tree and the size of the matrices from the command line; returns what is left of it."""
    parser = argparse.ArgumentParser(add_help=False)
    parser.add_argument("--build", required=True)
    parser.add_argument("--full", action="store_true")
    parser.add_argument("--cases", type=int, help="in place of the full count")
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(1 << 31))
    parser.parse_known_args(namespace=OPTIONS)
    _, rest = parser.parse_known_args()
    OPTIONS.build = os.path.realpath(OPTIONS.build)
    return rest


def main():
    """Stands in for unittest.main() in the test files."""
    rest = parse()
    print(f"seed {OPTIONS.seed}", file=sys.stderr)
    unittest.main(module="__main__", argv=[sys.argv[0], *rest], verbosity=2)


def program(name):
    return os.path.join(OPTIONS.build, "bin", name)


def iso(moment):
    return moment.astimezone(datetime.timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ")


def parse_time(text):
    moment = datetime.datetime.fromisoformat(text.replace("Z", "+00:00"))
    return moment if moment.tzinfo else moment.astimezone()


class Server:
    """A process that prints one JSON line with its addresses when it is ready, and serves until SIGTERM."""

    def __init__(self, command, **options):
        self.errors = tempfile.TemporaryFile(mode="w+")
        self.process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=self.errors, text=True,
                                        **options)
        timer = threading.Timer(START_TIMEOUT_S, self.process.kill)
        timer.start()
        line = self.process.stdout.readline()
        timer.cancel()
        try:
            self.addresses = json.loads(line)
        except ValueError:
            self.process.kill()
            self.process.wait()
            raise RuntimeError(f"{command[0]} did not come up: {line!r} {self.said()}") from None

    def said(self):
        self.errors.seek(0)
        return self.errors.read()[-2000:]

    def stop(self):
        """The exit code after SIGTERM."""
        if self.process.poll() is None:
            self.process.terminate()
            try:
                self.process.wait(timeout=10)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()
        self.process.stdout.close()
        self.errors.close()
        return self.process.returncode

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()


class Recorder(Server):
    """recorder_sim with a user of ours and a day of recordings in UTC; with `tls` under a key of its own."""

    def __init__(self, *options, password=PASSWORD, tls=False):
        self.folder = tempfile.mkdtemp(prefix="vemo-recorder-")
        password_file = os.path.join(self.folder, "password")
        with open(password_file, "w", encoding="utf-8") as file:
            file.write(password)
        os.chmod(password_file, 0o600)
        try:
            if tls:
                options += self.make_certificate()
            super().__init__([program("recorder_sim"), "--port", "0", "--user", USER, "--password-file", password_file,
                              "--first-day", FIRST_DAY.strftime("%Y-%m-%d"), "--days", "1", "--time-zone", "UTC", *options])
        except BaseException:
            shutil.rmtree(self.folder)
            raise

    def make_certificate(self):
        names = [os.path.join(self.folder, name) for name in ("certificate.pem", "key.pem")]
        subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=127.0.0.1",
                        "-addext", "subjectAltName=IP:127.0.0.1", "-out", names[0], "-keyout", names[1]],
                       check=True, capture_output=True)
        return "--tls-cert", names[0], "--tls-key", names[1]

    def ask(self, path, method="GET", **query):
        """A request at the control address; the text of the answer."""
        url = f"{self.addresses['control']}{path}?{urllib.parse.urlencode(query)}"
        with urllib.request.urlopen(urllib.request.Request(url, method=method), timeout=60) as answer:
            return answer.read().decode()

    def samples(self, channel, begin, end):
        """What a replay of that span sends, in sending order: {track: [(UTC seconds, MD5 of the MP4 sample)]}."""
        tracks = {}
        for line in self.ask("/samples", channel=channel, begin=iso(begin), end=iso(end)).splitlines():
            sent = json.loads(line)
            tracks.setdefault(sent["track"], []).append((sent["utc_ns"] / 1e9, sent["md5"]))
        return tracks

    def logins(self):
        """How much was tried with this recorder so far that takes, or refuses, a login."""
        statistics = json.loads(self.ask("/stats"))
        return [statistics[name] for name in ("soapRequests", "rtspSessions", "plays", "loginsRefused")]

    def stop(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        return super().stop()


class Run:
    """What one run of the client left."""

    def __init__(self, command, code, out, err, seconds, memory_mib):
        self.command, self.code, self.out, self.err, self.seconds, self.memory_mib = command, code, out, err, seconds, memory_mib

    @property
    def lines(self):
        return [json.loads(line) for line in self.out.splitlines() if line.startswith("{")]

    @property
    def last(self):
        return self.lines[-1]

    def __str__(self):
        return (f"{' '.join(self.command[1:])}\n  exit {self.code} after {self.seconds:.1f} s, {self.memory_mib} MiB\n"
                f"  stdout: {self.out[-1500:]}\n  stderr: {self.err[-1500:]}")


class Client:
    """vemo_client in a world of its own: data folder, home and output folder below one temporary folder."""

    def __init__(self):
        self.disk_reserve_bytes = 0
        self.changes = {}  # of the environment; None takes a variable away
        self.program = program("vemo_client")
        self.folder = tempfile.mkdtemp(prefix="vemo-client-")
        self.out = os.path.join(self.folder, "out")
        for name in ("home", "out", "tmp"):
            os.mkdir(os.path.join(self.folder, name))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.folder, ignore_errors=True)

    def let_in(self):
        """Makes an administrator who stays logged in, so that the window opens without asking; unless there are users."""
        if not os.path.exists(os.path.join(self.folder, "data", "config", "users")):
            run = self.run("user", "add", "--name", USER, "--administrator", "--stay-logged-in")
            if run.code != DONE:
                raise RuntimeError(f"no administrator could be made: {run}")

    def start(self, *arguments, password=PASSWORD, prefix=(), stdin=subprocess.DEVNULL, **changes):
        """`prefix` is a command that runs the client, `changes` are of the environment."""
        command = [*prefix, self.program, "--data", os.path.join(self.folder, "data"), *map(str, arguments)]
        return subprocess.Popen(command, env=self.environment(password, changes), cwd=self.folder, stdin=stdin,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, errors="replace")

    def environment(self, password, changes):
        home = os.path.join(self.folder, "home")
        environment = {name: value for name, value in os.environ.items() if not name.startswith(("XDG_", "DBUS_")) and name != "DISPLAY"}
        environment.update(HOME=home, TMPDIR=os.path.join(self.folder, "tmp"), QT_QPA_PLATFORM="offscreen", LC_ALL="C.UTF-8",
                           VEMO_DISK_RESERVE_BYTES=str(self.disk_reserve_bytes))
        if password is not None:
            environment["VEMO_PASSWORD"] = password
        environment.update(self.changes, **changes)
        return {name: value for name, value in environment.items() if value is not None}

    def finish(self, process, timeout=60, began=None):
        began = began or time.monotonic()
        outputs = ["", ""]

        def collect(index, pipe):
            with pipe:
                outputs[index] = pipe.read()

        pipes = [pipe for pipe in (process.stdout, process.stderr) if pipe]
        threads = [threading.Thread(target=collect, args=item) for item in enumerate(pipes)]
        for thread in threads:
            thread.start()
        timer = threading.Timer(timeout, process.kill)
        timer.start()
        _, status, usage = os.wait4(process.pid, 0)
        timer.cancel()
        for thread in threads:
            thread.join()
        process.returncode = os.waitstatus_to_exitcode(status)
        return Run(process.args, process.returncode, outputs[0], outputs[1], time.monotonic() - began, usage.ru_maxrss // 1024)

    def run(self, *arguments, timeout=60, password=PASSWORD):
        began = time.monotonic()
        return self.finish(self.start(*arguments, password=password), timeout, began)

    def search(self, device, channel, begin, end, *options, user=USER, **others):
        return self.run("search", "--device", device, "--user", user, "--channel", channel, "--begin", iso(begin), "--end", iso(end),
                        *options, **others)

    @staticmethod
    def download_arguments(device, channel, begin, end, out, *options, user=USER):
        return ("download", "--device", device, "--user", user, "--channel", channel, "--begin", iso(begin), "--end", iso(end),
                "--out", out, "--json", *options)

    def download(self, device, channel, begin, end, out=None, *options, user=USER, **others):
        out = out or os.path.join(self.out, "clip.mp4")
        return self.run(*self.download_arguments(device, channel, begin, end, out, *options, user=user), **others)

    def secret_places(self, run, secret=PASSWORD, user=USER, skip=(".mp4",)):
        """Where the password stands, in whatever spelling: outputs, arguments, files that the run wrote."""
        known = secretscan.forms(secret, user)
        told = (("stdout", run.out), ("stderr", run.err), ("arguments", " ".join(run.command)))
        return [(name, form) for name, text in told for form in secretscan.hits(text, known)] + secretscan.files(self.folder, known, skip)


class Test(unittest.TestCase):
    """A test case whose messages tell the whole run."""

    longMessage = True

    def check_run(self, client, run, code, within_s=None):
        self.assertEqual(run.code, code, run)
        self.assertLess(run.memory_mib, MEMORY_LIMIT_MIB, f"too much memory: {run}")
        if within_s is not None:
            self.assertLess(run.seconds, within_s, f"too late: {run}")
        self.assertEqual(client.secret_places(run), [], f"the password stands where it must not: {run}")
        said = [line for line in run.err.splitlines() if line.strip()]
        if code == DONE:
            self.assertEqual(said, [], run)
        elif code not in (USAGE,):
            self.assertEqual(len(said), 1, f"not one sentence on stderr: {run}")
            self.assertRegex(said[0].strip(), r"^\S.{8,}\.$", f"no sentence on stderr: {run}")

    def check_file(self, path, playable=True):
        """Readable and decodable by stock ffmpeg, an ordinary finished MP4."""
        self.assertTrue(os.path.exists(path), f"{path} is not there")
        if playable:
            self.assertEqual(media.decode_errors(path), "", path)
        self.assertEqual([box for box in media.top_level_boxes(path) if box != "free"], ["ftyp", "mdat", "moov"], path)

    def check_samples(self, path, sent, begin, end, complete=True):
        """Every track of the file is an unbroken part of what the recorder sent; with `complete` nothing of [begin, end) is missing,
        and nothing stands in it from more than a picture beyond. Transcoded audio is judged by its length."""
        found = media.samples(path)
        for stream, track in enumerate(sorted(sent)):
            wanted = [md5 for _, md5 in sent[track]]
            got = found.get(stream, [])
            self.assertGreater(len(got), 0, f"{path} lacks stream {stream}")
            if not set(got) & set(wanted):
                self.assertEqual(stream, 1, f"{path}: not one sample is what was sent")
                seconds = {each["codec_type"]: float(each["duration"]) for each in media.probe(path)["streams"]}
                self.assertAlmostEqual(seconds["audio"], seconds["video"], delta=0.15, msg=f"{path}: audio and video drift apart")
                continue
            first = self.position(got, wanted)
            self.assertIsNotNone(first, f"{path}, stream {stream}: {media.first_difference(got, wanted)}")
            if complete:
                inside = [index for index, (when, _) in enumerate(sent[track]) if begin.timestamp() <= when < end.timestamp() - 0.0005]
                # An access unit of audio may lie across the edge of the span.
                slack = 0 if stream == 0 else 2
                self.assertLessEqual(first, inside[0] + slack, f"{path}, stream {stream}: begins too late")
                self.assertGreaterEqual(first + len(got), inside[-1] + 1 - slack, f"{path}, stream {stream}: ends too early")

    @staticmethod
    def position(got, wanted):
        """Where `got` stands in `wanted` as one piece, or None. Recordings are loops, so the first fit counts from the front."""
        for first in range(len(wanted) - len(got) + 1):
            if wanted[first] == got[0] and wanted[first:first + len(got)] == got:
                return first
        return None


class CuttingProxy:
    """Stands between client and recorder and forwards until `limit` bytes came from the recorder; then it ends both ways as
    `kind` says: "fin", "rst", or "silence" (open, but nothing more)."""

    def __init__(self, target_port, limit, kind):
        self.target_port, self.limit, self.kind = target_port, limit, kind
        self.forwarded = 0
        self.cut = False
        self.sockets = []
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        self.threads = [threading.Thread(target=self.accept, daemon=True)]
        self.threads[0].start()

    def accept(self):
        with contextlib.suppress(OSError):
            while True:
                near, _ = self.listener.accept()
                if self.cut:
                    near.close()
                    continue
                far = socket.create_connection(("127.0.0.1", self.target_port))
                self.sockets += [near, far]
                for source, sink, counts in ((near, far, False), (far, near, True)):
                    thread = threading.Thread(target=self.forward, args=(source, sink, counts), daemon=True)
                    self.threads.append(thread)
                    thread.start()

    def forward(self, source, sink, counts):
        with contextlib.suppress(OSError):
            while data := source.recv(65536):
                if counts:
                    data = data[:self.limit - self.forwarded]
                    self.forwarded += len(data)
                sink.sendall(data)
                if counts and self.forwarded >= self.limit:
                    self.cut = True
                    self.end(sink)
                    return
            sink.shutdown(socket.SHUT_WR)

    def end(self, near):
        if self.kind == "silence":
            return
        if self.kind == "rst":
            near.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, b"\x01\0\0\0\0\0\0\0")
            # The other thread's recv() holds the socket open, so shut down reading first.
            with contextlib.suppress(OSError):
                near.shutdown(socket.SHUT_RD)
            near.close()
        else:
            near.shutdown(socket.SHUT_WR)

    def close(self):
        self.listener.close()
        for each in self.sockets:
            with contextlib.suppress(OSError):
                each.close()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()


def interrupt(process):
    process.send_signal(signal.SIGINT)


class RecorderTest(Test):
    """With a recorder of two channels for all tests of the class, and a client for each."""

    @classmethod
    def setUpClass(cls):
        cls.recorder = Recorder("--channels", "2")
        cls.addClassCleanup(cls.recorder.stop)
        cls.device = cls.recorder.addresses["onvif"]

    def setUp(self):
        self.client = Client()
        self.addCleanup(self.client.__exit__)
