#!/usr/bin/env python3
"""What does not work is said: one sentence, the right exit code, in time, in bounded memory, without the password."""
import datetime
import os
import socket
import subprocess
import tempfile
import threading

import systemlab
from systemlab import Recorder, RecorderTest

SECOND = datetime.timedelta(seconds=1)
BEGIN = systemlab.FIRST_DAY + datetime.timedelta(hours=1)
END = BEGIN + 60 * SECOND
IN_TIME_S = 20


class RubbishServer:
    """Answers every request with one fixed text, again and again when it is to be endless."""

    def __init__(self, answer, endless=False):
        self.answer, self.endless = answer, endless
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        threading.Thread(target=self.accept, daemon=True).start()

    def accept(self):
        while True:
            try:
                peer, _ = self.listener.accept()
            except OSError:
                return
            threading.Thread(target=self.serve, args=(peer,), daemon=True).start()

    def serve(self, peer):
        try:
            peer.recv(65536)
            peer.sendall(self.answer)
            while self.endless:
                peer.sendall(self.answer)
            peer.close()
        except OSError:
            pass

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.listener.close()


def http(body, headers=()):
    lines = ["HTTP/1.1 200 OK", "Content-Type: application/soap+xml", f"Content-Length: {len(body)}", "Connection: close", *headers]
    return "\r\n".join(lines).encode() + b"\r\n\r\n" + body


class Refusals(RecorderTest):
    def check_refused(self, run, code, within_s=IN_TIME_S, words=None):
        self.check_run(self.client, run, code, within_s)
        if words:
            self.assertRegex(run.err, words)
        self.assertEqual([name for name in os.listdir(self.client.out) if name.endswith(".mp4")], [], f"a file was left: {run}")

    def test_wrong_password_and_unknown_user(self):
        for user, password in ((systemlab.USER, "not it"), ("nobody", systemlab.PASSWORD)):
            with self.subTest(user=user):
                self.check_refused(self.client.download(self.device, 1, BEGIN, END, password=password, user=user),
                                   systemlab.LOGIN_REFUSED)
                run = self.client.search(self.device, 1, BEGIN, END, password=password, user=user)
                self.check_refused(run, systemlab.LOGIN_REFUSED)

    def test_nobody_listens(self):
        with socket.create_server(("127.0.0.1", 0)) as reserved:
            port = reserved.getsockname()[1]
        for scheme in ("http", "rtsp"):
            with self.subTest(scheme=scheme):
                self.check_refused(self.client.download(f"{scheme}://127.0.0.1:{port}/", 1, BEGIN, END), systemlab.UNREACHABLE,
                                   words=rf"127\.0\.0\.1")
        self.check_refused(self.client.search("http://recorder.invalid/", 1, BEGIN, END), systemlab.UNREACHABLE)

    def test_the_recorders_limit_is_reached(self):
        with Recorder("--channels", "1", "--fault", "session-limit") as recorder:
            self.check_refused(self.client.download(recorder.addresses["onvif"], 1, BEGIN, END), systemlab.LIMIT)

    def test_a_disk_that_cannot_be_written(self):
        places = {"no such disk": "/proc/nowhere/clip.mp4", "a device": "/dev/null"}
        if os.geteuid() != 0:
            sealed = os.path.join(self.client.folder, "sealed")
            os.mkdir(sealed, 0o500)
            places["no right to write"] = os.path.join(sealed, "clip.mp4")
        for name, path in places.items():
            with self.subTest(name):
                self.check_refused(self.client.download(self.device, 1, BEGIN, END, path), systemlab.DISK)

    def test_a_full_disk(self):
        place = tempfile.mkdtemp(prefix="vemo-small-disk-")
        if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=8m", "vemo-test", place], capture_output=True).returncode != 0:
            os.rmdir(place)
            self.skipTest("a small file system cannot be mounted here")
        try:
            path = os.path.join(place, "clip.mp4")
            run = self.client.download(self.device, 1, BEGIN, BEGIN + datetime.timedelta(minutes=10), path)
            self.check_run(self.client, run, systemlab.DISK)
            self.check_file(path)
        finally:
            subprocess.run(["umount", "-l", place], check=True)
            os.rmdir(place)

    def test_nothing_was_recorded_in_the_span(self):
        begin = systemlab.FIRST_DAY - datetime.timedelta(days=300)
        self.check_refused(self.client.download(self.device, 1, begin, begin + 60 * SECOND), systemlab.NO_RECORDING)

    def test_a_channel_that_is_not_there(self):
        self.check_refused(self.client.download(self.device, 77, BEGIN, END), systemlab.FAILED, words="77")
        self.check_refused(self.client.search(self.device, 77, BEGIN, END), systemlab.FAILED, words="77")

    def test_a_recorder_without_replay(self):
        with Recorder("--channels", "1", "--fault", "no-replay") as recorder:
            self.check_refused(self.client.download(recorder.addresses["onvif"], 1, BEGIN, END), systemlab.FAILED)

    def test_usage(self):
        device, out = ("--device", self.device, "--user", systemlab.USER), ("--out", os.path.join(self.client.out, "clip.mp4"))
        channel, span = ("--channel", "1"), ("--begin", systemlab.iso(BEGIN), "--end", systemlab.iso(END))
        cases = {
            "end before begin": ("download", *device, *channel, "--begin", systemlab.iso(END), "--end", systemlab.iso(BEGIN), *out),
            "empty span": ("download", *device, *channel, "--begin", systemlab.iso(BEGIN), "--end", systemlab.iso(BEGIN), *out),
            "no device": ("download", "--user", systemlab.USER, *channel, *span, *out),
            "no output": ("download", *device, *channel, *span),
            "a time that is none": ("search", *device, *channel, "--begin", "yesterday", "--end", systemlab.iso(END)),
            "a channel that is no number": ("search", *device, "--channel", "x", *span),
            "channel zero": ("search", *device, "--channel", "0", *span),
            "an address of another kind": ("search", "--device", "ftp://127.0.0.1/", "--user", systemlab.USER, *channel, *span),
            "an unknown verb": ("upload",),
            "an unknown option": ("search", *device, *channel, *span, "--frobnicate"),
        }
        for name, arguments in cases.items():
            with self.subTest(name):
                run = self.client.run(*arguments)
                self.check_refused(run, systemlab.USAGE, within_s=5)
                self.assertNotEqual(run.err.strip(), "", run)

    def test_no_password_is_asked_for_plainly(self):
        run = self.client.run("search", "--device", self.device, "--user", systemlab.USER, "--channel", "1", "--begin",
                              systemlab.iso(BEGIN), "--end", systemlab.iso(END), password=None)
        self.assertIn(run.code, (systemlab.USAGE, systemlab.LOGIN_REFUSED), run)
        self.assertIn("VEMO_PASSWORD", run.err)

    def test_help_and_version(self):
        for option, words in (("--help", "download"), ("--version", r"\d+\.\d+\.\d+")):
            run = self.client.run(option)
            self.check_run(self.client, run, systemlab.DONE, within_s=5)
            self.assertRegex(run.out, words)

    def test_rubbish_answers(self):
        deep = b"<a>" * 20000
        entities = (b'<?xml version="1.0"?><!DOCTYPE e [<!ENTITY a "aaaaaaaaaa"><!ENTITY b "&a;&a;&a;&a;&a;&a;&a;&a;">]>'
                    b"<e>&b;&b;&b;</e>")
        servers = {
            "no HTTP": RubbishServer(b"\x00\xff" * 5000),
            "not XML": RubbishServer(http(b"hello, world")),
            "nothing": RubbishServer(b""),
            "deep nesting": RubbishServer(http(deep)),
            "entities": RubbishServer(http(entities)),
            "a line without end": RubbishServer(b"HTTP/1.1 200 OK\r\nX: " + b"x" * 65536, endless=True),
            "headers without end": RubbishServer(b"HTTP/1.1 200 OK\r\n" + b"X-Header: x\r\n" * 5000, endless=True),
            "a body without end": RubbishServer(b"HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + b"<a>x</a>" * 8192, endless=True),
            "a lying length": RubbishServer(b"HTTP/1.1 200 OK\r\nContent-Length: 99999999999\r\n\r\n<a/>"),
            "another service": RubbishServer(http(b"<html><body>It works!</body></html>")),
        }
        for name, server in servers.items():
            with self.subTest(name), server:
                run = self.client.download(f"http://127.0.0.1:{server.port}/onvif/device_service", 1, BEGIN, END, timeout=90)
                self.assertIn(run.code, (systemlab.FAILED, systemlab.UNREACHABLE), run)
                self.check_refused(run, run.code, within_s=70)

    def test_rubbish_where_the_replay_should_be(self):
        servers = {
            "no RTSP": RubbishServer(b"\x00\xff" * 5000),
            "nothing": RubbishServer(b""),
            "a line without end": RubbishServer(b"RTSP/1.0 " + b"x" * 65536, endless=True),
            "headers without end": RubbishServer(b"RTSP/1.0 200 OK\r\n" + b"X-Header: x\r\n" * 5000, endless=True),
            "a lying length": RubbishServer(b"RTSP/1.0 200 OK\r\nCSeq: 1\r\nContent-Length: 99999999999\r\n\r\nv=0"),
            "interleaved data without end": RubbishServer(b"$\x00\xff\xff" + b"x" * 65535, endless=True),
        }
        for name, server in servers.items():
            with self.subTest(name), server:
                run = self.client.download(f"rtsp://127.0.0.1:{server.port}/replay", 1, BEGIN, END, timeout=90)
                self.assertIn(run.code, (systemlab.FAILED, systemlab.UNREACHABLE), run)
                self.check_refused(run, run.code, within_s=70)


if __name__ == "__main__":
    systemlab.main()
