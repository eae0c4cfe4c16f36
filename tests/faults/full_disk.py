#!/usr/bin/env python3
"""A real file system of 64 MiB runs full under one task while another writes elsewhere: what is on it plays and is a prefix, the
report says why, the other task finishes, and neither more room nor a restart makes anything worse. Needs the right to mount;
without it the test is skipped."""
import json
import os
import shutil
import subprocess
import sys
import tempfile

import faultlab
import media
from faultlab import Box, Lab

SKIPPED = 77
MIB = 1 << 20


def main():
    arguments = faultlab.parse(__doc__.splitlines()[0])
    place = tempfile.mkdtemp(prefix="vemo-full-disk-")
    mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64m,mode=0700", "vemo-test", place], capture_output=True, text=True)
    if mounted.returncode != 0:
        shutil.rmtree(place)
        print(f"skipped: a file system of 64 MiB cannot be mounted here ({mounted.stderr.strip()})")
        return SKIPPED
    try:
        return judge(Lab(arguments, "h264_aac", seconds=16, size="1280x720", suffix="-large",
                         extra_video=["-vf", "noise=alls=60:allf=t", "-b:v", "48M"]), place)
    finally:
        subprocess.run(["umount", "-l", place], check=True)
        os.rmdir(place)


def judge(lab, place):
    clip_bytes = os.path.getsize(lab.clip)
    if clip_bytes < 80 * MIB:
        print(f"FAILED: the clip of {clip_bytes} bytes would fit on the disk")
        return 1
    problems = []
    with Box(place) as box, Box() as elsewhere:
        # The journals stand on the well disk, as the program's own folder does.
        box.temp = elsewhere.temp
        done = lab.run(box, outputs=[box.out, elsewhere.out])
        if done.returncode != 0:
            problems.append(f"exit {done.returncode}: {done.stderr.strip()[:500]}")
        else:
            struck, other = json.loads(done.stdout)["tasks"]
            print(f"full disk: event {struck.get('event')}, errno {struck.get('errno')}, {struck.get('bytes')} bytes: "
                  f"{struck.get('error')}")
            if struck.get("event") != 10 or struck.get("errno") != 28:
                problems.append(f"ended with event {struck.get('event')}, errno {struck.get('errno')}")
            if box.out not in struck.get("error", ""):
                problems.append(f"the error does not name the file: {struck.get('error')!r}")
            if other.get("event") != 16:
                problems.append(f"the task on the other disk ended with event {other.get('event')}: {other.get('error')!r}")
            lab.learn(media.samples(elsewhere.out))
            found, found_problems = lab.judge(elsewhere.out)
            problems += found_problems + lab.compare(found, whole_file=True)
            found, found_problems = lab.judge(box.out, gstreamer=True)
            problems += found_problems
            # 64 MiB less two buffers, a fragment and the neighbours must have been put to use.
            held = len(found.get(0, [])) / len(lab.truth[0]) * clip_bytes
            print(f"{len(found.get(0, []))} of {len(lab.truth[0])} frames are on the full disk, about {held / MIB:.0f} MiB")
            if held < 40 * MIB:
                problems.append(f"only about {held / MIB:.0f} MiB of the 64 were used")
            before = found
            report, repair_problems = lab.repair(box)
            problems += repair_problems
            found, found_problems = lab.judge(box.out, gstreamer=True)
            problems += [f"after repair: {problem}" for problem in found_problems]
            if len(found.get(0, [])) < len(before.get(0, [])):
                problems.append(f"repair lost frames: {len(before.get(0, []))} before, {len(found.get(0, []))} after: {report}")
        problems += box.neighbour_problems() + elsewhere.neighbour_problems()
        problems += box.leftovers([box.out]) + elsewhere.leftovers([elsewhere.out])
    for problem in problems:
        print(f"FAILED: {problem}")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
