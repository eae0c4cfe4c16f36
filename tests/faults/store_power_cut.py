#!/usr/bin/env python3
"""Power cuts under the store of tasks, replayed from the log of the calls that its database makes: after any call, with what was not
synced dropped, torn at 512 bytes or reordered. The program opens the store without a complaint and without setting it aside; the stock
library finds it sound; it is in the state behind one of its steps: none that was announced is missing, none is there by half."""
import concurrent.futures
import os
import random
import sys
import tempfile

import faultlab
import power_cut
import storelab
from storelab import Store

IMAGES_A_RUN = 250
# So many stores are opened by one start of the program.
BATCH = 25


def lay_out(image, root, folder):
    for path, (_, content) in image.items():
        target = os.path.join(folder, os.path.relpath(path, root))
        os.makedirs(os.path.dirname(target), exist_ok=True)
        with open(target, "wb") as file:
            file.write(content)
    os.makedirs(os.path.join(folder, "client", "data"), exist_ok=True)


def judge_run(build, seed, index, numbers):
    """{number: problems} for images of one run."""
    with Store(build) as store:
        done = store.work(f"{seed + index}", log=True)
        lines = store.lines()
        if done.returncode != 0 or not all(line.get("told", True) for line in lines):
            raise RuntimeError(f"the undisturbed run failed: {done.stderr} {lines[-1:]}")
        entries, states = power_cut.read_log(store.call_log), storelab.states(lines)
        draws = [(random.Random(f"{seed} {index} {number}"), number) for number in numbers]
        cuts = sorted(((chance.randint(1, len(entries)), number, chance) for chance, number in draws), key=lambda cut: cut[:2])
        disk, replayed, problems, waiting = power_cut.Disk([]), 0, {}, []
        with tempfile.TemporaryDirectory() as place:
            for count, number, chance in cuts:
                for entry in entries[replayed:count]:
                    disk.replay(entry)
                replayed = count
                folder = os.path.join(place, str(number))
                lay_out(disk.image(chance), store.root, folder)
                waiting.append((number, count, folder))
                if len(waiting) == BATCH or number == cuts[-1][1]:
                    folders = [os.path.join(folder, "client") for _, _, folder in waiting]
                    for (number, count, folder), answer in zip(waiting, storelab.reopen(build, folders)):
                        problems[number] = judge(answer, folder, entries[count - 1]["time"], lines, states)
                        if problems[number]:
                            problems[number].insert(0, f"after call {count} of {len(entries)}")
                    waiting = []
        return problems


def judge(answer, folder, cut_ns, lines, states):
    problems = storelab.answer_problems(answer) + storelab.file_problems(os.path.join(folder, "client"))
    least = max((line["step"] for line in lines if line.get("told") and line["ns"] <= cut_ns), default=0)
    most = max((line["step"] for line in lines if "put" in line and line["ns"] <= cut_ns), default=0)
    if answer["tasks"] not in states[least:most + 1]:
        problems.append(f"{len(answer['tasks'])} tasks are in no state from step {least} to step {most}: "
                        f"{[len(state) for state in states[least:most + 1]]}")
    return problems


def main():
    arguments = faultlab.parse(__doc__.splitlines()[0])
    build = os.path.realpath(arguments.build)
    images = arguments.cases or (2000 if arguments.full else 200)
    runs = max(1, images // IMAGES_A_RUN)
    matrix = faultlab.Matrix(arguments)
    asked = [(index, matrix.number(range(-(-images // runs)))) for index in range(runs)]
    with concurrent.futures.ProcessPoolExecutor(os.cpu_count()) as pool:
        answers = [(index, numbered, pool.submit(judge_run, build, arguments.seed, index, [image for _, image in numbered]))
                   for index, numbered in asked if numbered]
        for index, numbered, answer in answers:
            problems = answer.result()
            for number, image in numbered:
                matrix.note(f"power cut of the store, run {index}", number, image, problems[image])
    return matrix.tell("E4", "power-cut images of the store")


if __name__ == "__main__":
    sys.exit(main())
