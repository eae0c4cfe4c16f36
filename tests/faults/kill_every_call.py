#!/usr/bin/env python3
"""SIGKILL in place of every file call of a task's life, then a restart. Before repair and after it the file is a prefix of what
was pushed and lacks at most a fragment and the last second; ffmpeg and GStreamer open it; nobody else's file changed; nothing is
left behind. Calls of finalising, and every torn length of the switch of the header, are always among the cases."""
import sys

import faultlab
from faultlab import Box, Lab

FULL_SPEED = ()
PACED = ("--speed", "4")


def judge_kill(lab, options, variables):
    """Kills a run as the variables say and returns (problems, whether the process was killed)."""
    with Box() as box:
        done = lab.run(box, *options, trace=True, **variables)
        if not faultlab.killed(done):
            return ([] if done.returncode == 0 else [f"exit {done.returncode}: {done.stderr.strip()[:500]}"]), False
        # A run at full speed is over before the window is, unless the processor was away: then the clock proves nothing.
        window_ns = faultlab.WINDOW_NS if options == PACED else sys.maxsize
        return lab.judge_wreck(box, box.death_ns(), window_ns=window_ns), True


def torn_switch_cases(lab):
    """(variables, title) for each torn length of every small write into the finished file: the header switch is one of them."""
    with Box() as box:
        calls = lab.run_undisturbed(box, upto=64, ops="write,pwrite,writev", under=box.folder)
    return [dict(short=f"{number}:{length}:kill", upto=64, ops="write,pwrite,writev", folder_only=True)
            for number, _, _, _, _, size in calls for length in range(size + 1)]


def main():
    arguments = faultlab.parse(__doc__.splitlines()[0], clip={"choices": list(faultlab.CLIPS), "required": True})
    lab = Lab(arguments, arguments.clip)
    with Box() as box:
        calls = lab.run_undisturbed(box)
    count = calls[-1][0]
    # Finalising begins with the last large write: index, syncs, header switch, read-back, journal.
    media_writes = [call[0] for call in calls if call[1] in ("write", "pwrite", "writev") and call[5] >= 64 * 1024]
    finalising = range(media_writes[-1] if media_writes else 1, count + 2)
    with Box() as box:
        paced_count = lab.run_undisturbed(box, *PACED)[-1][0]
    torn = torn_switch_cases(lab)

    cases = [(FULL_SPEED, {"kill": k}) for k in range(1, count + 2)] + [(PACED, {"kill": k}) for k in range(1, paced_count + 1)]
    if not arguments.full:
        cases = [(FULL_SPEED, {"kill": k}) for k in faultlab.sample(range(1, finalising[0]), 5, arguments.seed)]
        cases += [(FULL_SPEED, {"kill": k}) for k in faultlab.sample(finalising, 8, arguments.seed)]
        cases += [(PACED, {"kill": k}) for k in faultlab.sample(range(1, paced_count + 1), 5, arguments.seed)]
        torn = [torn[index] for index in faultlab.sample(range(len(torn)), 5, arguments.seed)]
    cases += [(FULL_SPEED, case) for case in torn]
    print(f"{arguments.clip}: {count} calls at full speed, {paced_count} paced, finalising from {finalising[0]} on")
    matrix = faultlab.Matrix(arguments)
    kills = []

    def one(case):
        options, variables = case
        variables = dict(variables)
        if variables.pop("folder_only", False):
            with Box() as box:
                done = lab.run(box, *options, trace=True, under=box.folder, **variables)
                if not faultlab.killed(done):
                    return [f"exit {done.returncode}: {done.stderr.strip()[:500]}"] if done.returncode else []
                kills.append(case)
                return lab.judge_wreck(box, box.death_ns(), window_ns=sys.maxsize)
        problems, was_killed = judge_kill(lab, options, variables)
        if was_killed:
            kills.append(case)
        return problems

    # E3 is the part that strikes within finalising; E1 all of them.
    ending = [case for case in cases if case in [(FULL_SPEED, each) for each in torn] or
              (case[0] == FULL_SPEED and case[1].get("kill", 0) >= finalising[0])]
    living = [case for case in cases if case not in ending]
    matrix.run(f"kill {arguments.clip}", living, one)
    clip = arguments.clip + (", clock track" if arguments.clock else "")
    code = matrix.tell("E1", f"kill at a call, {clip}")
    matrix.run(f"kill while finalising {arguments.clip}", ending, one)
    code |= matrix.tell("E3", f"kill or torn write in finalising, {clip}")
    print(f"{len(kills)} of {len(cases)} runs were killed")
    # Threads may order a few calls differently from run to run, but most kills must have struck.
    if arguments.only is None and len(kills) < 0.8 * len(cases):
        print("FAILED: too few runs reached the call at which they should have died")
        code = 1
    return code


if __name__ == "__main__":
    sys.exit(main())
