#!/usr/bin/env python3
"""Recorders behind TLS: an unknown certificate stops the client before any login is sent and its fingerprint is shown; with that
fingerprint as a pin it works, over https and rtsps; another key behind the same pin is refused."""
import datetime
import os
import re

import media
import systemlab
from systemlab import Client, Recorder, Test

SECOND = datetime.timedelta(seconds=1)
BEGIN = systemlab.FIRST_DAY + datetime.timedelta(hours=1)
FINGERPRINT = re.compile(r"(?:[0-9A-Fa-f]{2}:?){32}")


class Tls(Test):
    @classmethod
    def setUpClass(cls):
        cls.recorder = Recorder("--channels", "1", tls=True)
        cls.addClassCleanup(cls.recorder.stop)
        cls.device = cls.recorder.addresses["onvifs"]

    def setUp(self):
        self.client = Client()
        self.addCleanup(self.client.__exit__)
        self.span = (BEGIN, BEGIN + 20 * SECOND)

    def fingerprint(self, device):
        run = self.client.download(device, 1, *self.span)
        self.check_run(self.client, run, systemlab.FAILED, within_s=20)
        self.assertRegex(run.err, FINGERPRINT, "the fingerprint is not shown")
        return FINGERPRINT.search(run.err).group(0)

    def test_an_unknown_certificate_gets_no_login(self):
        before = self.recorder.logins()
        self.fingerprint(self.device)
        self.assertEqual(self.recorder.logins(), before, "a login was sent to a peer that nobody trusts")

    def test_the_pinned_key_is_trusted_for_search_and_replay(self):
        pin = self.fingerprint(self.device)
        run = self.client.download(self.device, 1, *self.span, None, "--pin", pin)
        self.check_run(self.client, run, systemlab.DONE)
        self.check_file(run.last["path"])
        run = self.client.search(self.device, 1, *self.span, "--json", "--pin", pin)
        self.check_run(self.client, run, systemlab.DONE)
        self.assertTrue(all(each["replayUri"].startswith("rtsps://") for each in run.lines), run)

    def test_a_changed_key_is_refused(self):
        pin = self.fingerprint(self.device)
        with Recorder("--channels", "1", tls=True) as other:
            before = other.logins()
            run = self.client.download(other.addresses["onvifs"], 1, *self.span, None, "--pin", pin)
            self.check_run(self.client, run, systemlab.FAILED, within_s=20)
            self.assertEqual(other.logins(), before, "a login was sent to the wrong key")
        self.assertEqual(os.listdir(self.client.out), [])

    def test_direct_replay_over_rtsps(self):
        pin = self.fingerprint(self.device)
        run = self.client.search(self.device, 1, *self.span, "--json", "--pin", pin)
        replay = run.lines[0]["replayUri"]
        before = self.recorder.logins()
        self.fingerprint(replay)
        self.assertEqual(self.recorder.logins(), before)
        run = self.client.download(replay, 1, *self.span, None, "--pin", pin)
        self.check_run(self.client, run, systemlab.DONE)
        self.assertGreater(len(media.samples(run.last["path"])[0]), 400)


if __name__ == "__main__":
    systemlab.main()
