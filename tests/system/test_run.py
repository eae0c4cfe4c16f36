#!/usr/bin/env python3
"""The command of the README that shows the product: `./run --headless` on a tree that is built leaves two files that play."""
import os
import subprocess
import tempfile

import media
import systemlab
from systemlab import Test

ROOT = os.path.realpath(os.path.join(os.path.dirname(os.path.realpath(__file__)), "..", ".."))


class RunHeadless(Test):
    def test_two_channels_are_downloaded(self):
        with tempfile.TemporaryDirectory(prefix="vemo-run-") as folder:
            environment = dict(os.environ, VEMO_BUILD_DIR=systemlab.OPTIONS.build, VEMO_DOWNLOADS=os.path.join(folder, "downloads"),
                               HOME=folder, XDG_CACHE_HOME=os.environ.get("XDG_CACHE_HOME", os.path.expanduser("~/.cache")))
            environment.pop("DISPLAY", None)
            done = subprocess.run([os.path.join(ROOT, "run"), "--headless"], cwd=ROOT, env=environment, stdin=subprocess.DEVNULL,
                                  capture_output=True, text=True, timeout=280)
            self.assertEqual(done.returncode, 0, done.stdout[-3000:] + done.stderr[-3000:])
            files = [os.path.join(folder, "downloads", name) for name in os.listdir(os.path.join(folder, "downloads"))]
            self.assertEqual(len([path for path in files if path.endswith(".mp4")]), 2, files)
            for path in files:
                self.check_file(path)
                self.assertAlmostEqual(float(media.probe(path)["format"]["duration"]), 120, delta=0.05)


if __name__ == "__main__":
    systemlab.main()
