#!/usr/bin/env python3
"""SIGKILL at random times while five tasks run in one process, then a restart: each of the five files is judged alone."""
import random
import sys
import time

import faultlab
from faultlab import Box, Lab

TASKS = 5
SPEED = 4.0
CLIP_SECONDS = 12


def main():
    arguments = faultlab.parse(__doc__.splitlines()[0])
    labs = [Lab(arguments, name) for name in faultlab.CLIPS]
    for lab in labs:
        with Box() as box:
            lab.run_undisturbed(box)
    rounds = arguments.cases or (200 if arguments.full else 10)

    def one(number):
        moment = random.Random(arguments.seed + number)
        lab = labs[number % len(labs)]
        with Box() as box:
            outputs = box.outputs(TASKS)
            process = lab.start(box, "--speed", str(SPEED), outputs=list(outputs.values()))
            # Also a little beyond the end, so that some kills strike while tasks finalise.
            time.sleep(moment.uniform(0.05, CLIP_SECONDS / SPEED + 0.3))
            process.kill()
            death_ns = time.monotonic_ns()
            lab.finish(process)
            return lab.judge_wreck(box, death_ns, outputs, gstreamer=False)

    matrix = faultlab.Matrix(arguments)
    matrix.run("random kills", range(rounds), one)
    return matrix.tell("E2", "download library: kill at random, five tasks in one process")


if __name__ == "__main__":
    sys.exit(main())
