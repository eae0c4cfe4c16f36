#!/usr/bin/env python3
"""No password stands anywhere afterwards, whatever happened: the program runs at its most talkative and every file that it wrote, what
it printed, and the arguments and environment of what it started are looked through. All that it keeps for itself is made for its
owner alone."""
import base64
import datetime
import hashlib
import html
import json
import os
import re
import shutil
import signal
import tempfile
import time
import unittest
import urllib.parse

import rows
import secretscan
import systemlab
import systrace
from desktop import wait_for
from systemlab import Recorder, Test

SECOND = datetime.timedelta(seconds=1)
BEGIN = systemlab.FIRST_DAY + datetime.timedelta(hours=1)
SECRET, USER = systemlab.PASSWORD, systemlab.USER
WRONG = "Not the 1 that it is!"
MASTER = "Seals all the others, 9"
LOOKED_AT = {"places": 0, "hits": 0, "open": 0}


class Scan(unittest.TestCase):
    """The judge himself."""

    def test_finds_every_spelling(self):
        login = f"{USER}:{secretscan.REALM}:{SECRET}".encode()
        spelled = {
            "as it is": SECRET.encode(),
            "UTF-16": SECRET.encode("utf-16-le"),
            "in a URL": f"rtsp://admin:{urllib.parse.quote(SECRET, safe='')}@host/".encode(),
            "in a form": urllib.parse.urlencode({"p": SECRET}).encode(),
            "in a URL of lower case": secretscan.lower_digits(urllib.parse.quote(SECRET, safe="")).encode(),
            "in a header": b"Authorization: Basic " + base64.b64encode(f"{USER}:{SECRET}".encode()),
            "in another user's header": b"Basic " + base64.b64encode(f"x:{SECRET}".encode()) + b"\r\n",
            "in a long text of base64": base64.b64encode(b"\0\1" + SECRET.encode() + b"\2" * 50),
            "in base64 for URLs": base64.urlsafe_b64encode(SECRET.encode()),
            "in JSON": json.dumps({"password": SECRET}).encode(),
            "in XML": f"<Password>{html.escape(SECRET)}</Password>".encode(),
            "in SQL": SECRET.replace("'", "''").encode(),
            "hexadecimal": SECRET.encode().hex().upper().encode(),
            "as the login that it makes": hashlib.md5(login).hexdigest().encode(),
        }
        known = secretscan.forms(SECRET, USER)
        folder = tempfile.mkdtemp(prefix="vemo-scan-")
        self.addCleanup(shutil.rmtree, folder)
        for name, data in spelled.items():
            path = os.path.join(folder, "file")
            with open(path, "wb") as file:
                file.write(os.urandom(5000) + data + os.urandom(5000))
            self.assertTrue(secretscan.files(folder, known), f"not found: {name}")
        with open(path, "wb") as file:
            file.write(os.urandom(3_000_000))
        self.assertEqual(secretscan.files(folder, known), [])


class Secrets(Test):
    def setUp(self):
        if not systrace.is_there():
            self.skipTest("there is no strace")
        self.client = systrace.TalkativeClient()
        self.addCleanup(self.client.__exit__)

    def recorder(self, *options, **others):
        recorder = Recorder("--channels", "2", *options, **others)
        self.addCleanup(recorder.stop)
        return recorder, recorder.addresses["onvif"]

    def check(self, *secrets):
        files, leaks, gaps = self.client.looked_at(), self.client.leaks(secrets), self.client.gaps()
        for name, number in (("places", files), ("hits", len(leaks)), ("open", len(gaps))):
            LOOKED_AT[name] += number
        self.assertEqual(leaks + gaps, [], f"repeat: python3 {__file__} --build {systemlab.OPTIONS.build} {self.id().partition('.')[2]}")

    def add(self, device, *options, seconds=4, **others):
        return self.client.run("queue", "add", "--device", device, "--user", USER, "--channel", 1, "--begin", systemlab.iso(BEGIN),
                               "--end", systemlab.iso(BEGIN + seconds * SECOND), *options, **others)

    def test_search_and_download_with_every_kind_of_login_and_failure(self):
        span = (BEGIN, BEGIN + 2 * SECOND)
        for kind in ("all", "digest-sha256-sess"):
            _, device = self.recorder("--auth", kind)
            self.assertEqual(self.client.search(device, 1, *span).code, systemlab.DONE)
            self.assertEqual(self.client.download(device, 1, *span).code, systemlab.DONE)
            self.assertEqual(self.client.download(device, 1, *span, password=WRONG).code, systemlab.LOGIN_REFUSED)
        for fault in ("auth-loop", "redirect-loop", "rubbish", "many-headers=300", "xml-bomb=entities", "drop-after=20000"):
            _, device = self.recorder("--fault", fault)
            self.assertNotEqual(self.client.download(device, 1, *span).code, systemlab.DONE, fault)
        self.client.download(f"rtsp://{USER}:{urllib.parse.quote(WRONG, safe='')}@127.0.0.1:9/replay", 1, *span)
        for trace in self.client.traces[-1:]:  # what a person writes into the command line stands there
            trace.started = lambda: []
        self.check(SECRET, WRONG)

    def test_tls(self):
        recorder, _ = self.recorder("--auth", "basic", tls=True)
        device, span = recorder.addresses["onvifs"], (BEGIN, BEGIN + 2 * SECOND)
        refused = self.client.download(device, 1, *span)
        self.assertEqual(refused.code, systemlab.FAILED)
        pin = re.search(r"(?:[0-9A-Fa-f]{2}:?){32}", refused.err).group()
        self.assertEqual(self.client.download(device, 1, *span, None, "--pin", pin).code, systemlab.DONE)
        self.assertEqual(self.client.download(device, 1, *span, None, "--pin", "00" * 32).code, systemlab.FAILED)
        self.check(SECRET)

    def test_queue_and_backup_killed_at_work(self):
        recorder, device = self.recorder("--fault", "rate=400000")
        self.assertEqual(self.add(device, seconds=60).code, systemlab.DONE)
        for number in (signal.SIGSEGV, signal.SIGKILL, signal.SIGTERM):
            process = self.client.start("queue", "run")
            wait_for(lambda: any(name.endswith(".mp4") for _, _, names in os.walk(self.client.folder) for name in names),
                     "nothing is written")
            time.sleep(1)
            process.send_signal(number)
            self.client.finish(process)
        recorder.ask("/reset", method="POST")
        self.assertEqual(self.client.run("queue", "run").code, systemlab.DONE)
        self.client.run("backup", "add", "--device", device, "--user", USER, "--channels", 1, "--date",
                        systemlab.FIRST_DAY.strftime("%Y-%m-%d"), "--segments", "02:00-02:00")
        self.assertEqual(self.client.run("backup", "run").code, systemlab.DONE)
        self.client.run("local", "recordings", "rescan")
        self.check(SECRET)

    def test_a_sealed_store_and_accounts(self):
        _, device = self.recorder()
        self.client.changes["VEMO_SECRETS_PASSWORD"] = MASTER
        added = self.client.run("user", "add", "--name", "keller", "--administrator", "--stay-logged-in", password=WRONG)
        self.assertEqual(added.code, systemlab.DONE)
        self.assertEqual(self.add(device).code, systemlab.DONE)
        self.assertEqual(self.client.run("queue", "run", password=None).code, systemlab.DONE)
        self.client.changes["VEMO_SECRETS_PASSWORD"] = "another"
        self.client.run("queue", "run", password=None)
        self.check(SECRET, MASTER, WRONG)


def tearDownModule():
    for row, what, bad in (("G6", "made for the owner alone", "open"), ("G7", "places of a password", "hits")):
        rows.tell(row, what, LOOKED_AT["places"], LOOKED_AT[bad], "-")


if __name__ == "__main__":
    systemlab.main()
