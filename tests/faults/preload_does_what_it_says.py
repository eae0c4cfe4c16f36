#!/usr/bin/env python3
"""The preload library itself: the matrices prove nothing when the faults they ask for do not strike."""
import os
import signal
import subprocess
import sys
import tempfile

import faultlab
import power_cut

VICTIM = """
import os
f = os.open("disk/a", os.O_CREAT | os.O_RDWR)
os.write(f, b"x" * 1000)
os.pwrite(f, b"y" * 600, 700)
os.fsync(f)
os.writev(f, [b"z" * 10, b"z" * 20])
os.rename("disk/a", "disk/b")
os.fsync(os.open("disk", os.O_RDONLY))
open("elsewhere", "wb").write(b"not counted")
"""
CALLS = ["open", "write", "pwrite", "fsync", "writev", "rename", "fsync"]


def run(arguments, folder, **variables):
    environment = dict(os.environ, LD_PRELOAD=os.path.join(os.path.realpath(arguments.build), "lib", "libvemo_faults.so"),
                       VEMO_FAULTS_ROOT=os.path.join(folder, "disk"))
    environment.update({f"VEMO_FAULTS_{name.upper()}": value for name, value in variables.items()})
    os.makedirs(os.path.join(folder, "disk"))
    return subprocess.run([sys.executable, "-c", VICTIM], cwd=folder, env=environment, capture_output=True, text=True)


def content(folder, name="a"):
    with open(os.path.join(folder, "disk", name), "rb") as file:
        return file.read()


def main():
    arguments = faultlab.parse(__doc__.splitlines()[0])
    problems = []

    def expect(what, condition):
        if not condition:
            problems.append(what)

    with tempfile.TemporaryDirectory() as folder:
        done = run(arguments, folder, trace=os.path.join(folder, "trace"), log=os.path.join(folder, "log"))
        with open(os.path.join(folder, "trace"), encoding="utf-8") as file:
            names = [line.split("\t")[1] for line in file]
        expect(f"the calls are {names}, exit {done.returncode} {done.stderr}", names == CALLS and done.returncode == 0)
        entries = power_cut.read_log(os.path.join(folder, "log"))
        whole = power_cut.Disk(entries)
        expect("the replayed disk is not the real one",
               {path: bytes(file.durable) for path, file in whole.durable_names.items()} ==
               {os.path.join(folder, "disk", "b"): b"x" * 700 + b"y" * 600})
        whole.names[os.path.join(folder, "disk", "b")].sync()
        expect("the writes since the sync are not pending",
               bytes(whole.names[os.path.join(folder, "disk", "b")].durable) == content(folder, "b"))
    for number in range(1, len(CALLS) + 1):
        with tempfile.TemporaryDirectory() as folder:
            done = run(arguments, folder, kill=str(number), trace=os.path.join(folder, "trace"))
            expect(f"no kill at call {number}", done.returncode == -signal.SIGKILL)
            with open(os.path.join(folder, "trace"), encoding="utf-8") as file:
                expect(f"calls went on after the kill at {number}", len(file.readlines()) == number + 1)
    with tempfile.TemporaryDirectory() as folder:
        done = run(arguments, folder, short="2:300:kill")
        expect("no torn write of 300 bytes", done.returncode == -signal.SIGKILL and content(folder) == b"x" * 300)
    for short, left in (("2:300", b"x" * 300 + b"z" * 30 + bytes(370) + b"y" * 600),
                        ("3:100", b"x" * 700 + b"y" * 100 + b"x" * 200 + b"z" * 30),
                        ("5:7", b"x" * 700 + b"y" * 300 + b"z" * 7 + b"y" * 293)):
        with tempfile.TemporaryDirectory() as folder:
            done = run(arguments, folder, short=short)
            expect(f"a write that carries less, {short}: {done.stderr}", done.returncode == 0 and content(folder, "b") == left)
    with tempfile.TemporaryDirectory() as folder:
        done = run(arguments, folder, fail="3:ENOSPC")
        expect("no failing call", "No space left" in done.stderr and content(folder) == b"x" * 1000)
    with tempfile.TemporaryDirectory() as folder:
        done = run(arguments, folder, fail="1:EROFS:ever", ops="rename")
        expect("no failing rename", "Read-only" in done.stderr and os.path.exists(os.path.join(folder, "disk", "a")))
    for problem in problems:
        print(f"FAILED: {problem}")
    print(f"{len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
