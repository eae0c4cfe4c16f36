"""What the fault matrices share: clips, runs of fault_task under the preload library, and the judgement of what they left."""
import argparse
import concurrent.futures
import hashlib
import json
import os
import random
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.realpath(__file__)), "..", "support"))
import checker  # noqa: E402
import media  # noqa: E402
import rows  # noqa: E402

RUN_TIMEOUT_S = 60
GOP_FRAMES = 25
FRAMES_A_SECOND = 25
# A fragment closes at a key frame; it may also hold the start of the next group of pictures in its buffer.
FRAGMENT_FRAMES = 2 * GOP_FRAMES
# AAC access units that the encoder's last flush may add or change, where the library encodes G.711 itself.
ENCODER_TAIL = 3
LEADING_AUDIO = 3
# What arrived in the last second may be lost to a kill; half a second more is for a processor that others use.
WINDOW_NS = 1_500_000_000

CLIPS = {
    "h264_aac": ["-c:v", "libx264", "-preset", "veryfast", "-bf", "2", "-g", str(GOP_FRAMES), "-x264-params", "scenecut=0",
                 "-b:v", "800k", "-c:a", "aac", "-b:a", "48k", "-ar", "16000"],
    "h265_g711": ["-c:v", "libx265", "-preset", "ultrafast", "-x265-params",
                  f"log-level=error:keyint={GOP_FRAMES}:min-keyint={GOP_FRAMES}:scenecut=0:bframes=2", "-b:v", "800k",
                  "-tag:v", "hvc1", "-c:a", "pcm_alaw", "-ar", "8000"],
}


def parse(description, **extra):
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--build", required=True, help="the build tree with bin/ and lib/")
    parser.add_argument("--full", action="store_true", help="the whole matrix instead of a sample")
    parser.add_argument("--clock", action="store_true", help="files with a clock track")
    parser.add_argument("--seed", type=int, default=None)
    parser.add_argument("--cases", type=int, default=None, help="how many, where chance draws them")
    parser.add_argument("--only", type=int, default=None, help="the case of this number alone")
    for name, options in extra.items():
        parser.add_argument("--" + name, **options)
    arguments = parser.parse_args()
    if arguments.seed is None:
        arguments.seed = random.SystemRandom().randrange(1 << 31)
    print(f"seed {arguments.seed}", flush=True)
    return arguments


def make_clip(folder, name, seconds=12, size="320x240", extra_video=(), suffix=""):
    """Makes a clip once and keeps it; two tests that start at the same time both make it, and one wins."""
    os.makedirs(folder, exist_ok=True)
    path = os.path.join(folder, f"{name}{suffix}-{seconds}.mov")
    if not os.path.exists(path):
        made = f"{path}.{os.getpid()}.mov"
        done = media.run(["ffmpeg", "-v", "error", "-y",
                          "-f", "lavfi", "-i", f"testsrc2=size={size}:rate={FRAMES_A_SECOND}:duration={seconds}",
                          "-f", "lavfi", "-i", f"sine=frequency=440:sample_rate=16000:duration={seconds}",
                          *CLIPS[name], *extra_video, made])
        if done.returncode != 0:
            raise RuntimeError("ffmpeg cannot make the clip: " + done.stderr)
        os.rename(made, path)
    return path


class Lab:
    """One build tree, one clip, and what an undisturbed run makes of it."""

    def __init__(self, arguments, clip_name, **clip_options):
        self.build = os.path.realpath(arguments.build)
        self.task = os.path.join(self.build, "bin", "fault_task")
        self.preload = os.path.join(self.build, "lib", "libvemo_faults.so")
        self.clip = make_clip(os.path.join(self.build, "clips"), clip_name, **clip_options)
        self.name = clip_name
        self.clock = arguments.clock
        # Video, and audio that is not transcoded, is judged against the clip as ffmpeg reads it.
        self.truth = media.samples(self.clip)
        self.transcodes = clip_name.endswith("g711")

    def __repr__(self):
        return self.name

    def run_undisturbed(self, box, *options, **variables):
        """A whole run; learns from it what the transcoded audio looks like. Returns the traced calls."""
        done = self.run(box, *options, trace=True, **variables)
        if done.returncode != 0:
            raise RuntimeError(f"the undisturbed run failed: {done.stdout}{done.stderr}")
        report = json.loads(done.stdout)["tasks"][0]
        if report.get("event") != 16:
            raise RuntimeError(f"the undisturbed run did not finish: {report}")
        whole = media.samples(box.out)
        self.learn(whole)
        problems = self.compare(whole, whole_file=True)
        if problems:
            raise RuntimeError(f"the undisturbed run lost something: {problems}")
        return box.calls()

    def learn(self, whole):
        """Takes over from a whole file what cannot be known from the clip."""
        if self.clock:
            self.truth[2] = whole[2]
        if self.transcodes:
            self.truth[1] = whole[1]
        else:
            # Audio from before the first picture (an encoder's priming) has no place in the file.
            first = whole[1][0] if whole.get(1) else None
            if first in self.truth[1][:LEADING_AUDIO]:
                self.truth[1] = self.truth[1][self.truth[1].index(first):]

    def run(self, box, *options, **variables):
        """fault_task on the files of `box`; as start()."""
        return self.finish(self.start(box, *options, **variables))

    def start(self, box, *options, outputs=None, trace=False, log=False, repair=False, under=None, environment=None, **variables):
        """`variables` go to the preload library as VEMO_FAULTS_<NAME>; `environment` is added as it is."""
        environment = {**os.environ, "VEMO_DISK_RESERVE_BYTES": "0", **(environment or {})}
        command = [self.task, "--temp", box.temp]
        if repair:
            command.append("--repair")
        else:
            command += ["--clip", self.clip, "--log", box.log] + ["--clock"] * self.clock
            for output in outputs or [box.out]:
                command += ["--out", output]
        command += options
        if trace or log or variables:
            environment["LD_PRELOAD"] = self.preload
            environment["VEMO_FAULTS_ROOT"] = under or box.root
            if trace:
                environment["VEMO_FAULTS_TRACE"] = box.trace
            if log:
                environment["VEMO_FAULTS_LOG"] = box.call_log
            for name, value in variables.items():
                environment["VEMO_FAULTS_" + name.upper()] = str(value)
        return subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, text=True)

    @staticmethod
    def finish(process, timeout=RUN_TIMEOUT_S):
        try:
            out, err = process.communicate(timeout=timeout)
        except subprocess.TimeoutExpired:
            process.kill()
            out, err = process.communicate()
            err += f"\nstill running after {timeout} s"
        return subprocess.CompletedProcess(process.args, process.returncode, out, err)

    def compare(self, found, whole_file=False):
        """N1: every track is a prefix of what was pushed. With `whole_file` it is all of it."""
        return checker.prefix_problems(found, self.truth, {1: ENCODER_TAIL} if self.transcodes else None, whole_file)

    def judge(self, path, gstreamer=False):
        """(samples, problems) of a file that must be readable: by ffmpeg, and by GStreamer when asked."""
        found, problems = checker.read(path, gstreamer)
        return found, problems + self.compare(found)

    def repair(self, box):
        """Starts the library again on what a run left. (report, problems)"""
        done = self.run(box, repair=True)
        if done.returncode != 0:
            return [], [f"repair: exit {done.returncode}: {done.stderr.strip()[:500]}"]
        answer = json.loads(done.stdout)
        problems = []
        if answer["ms"] > 5000:
            problems.append(f"repair took {answer['ms']} ms")
        return answer["repaired"], problems

    def judge_wreck(self, box, death_ns, outputs=None, window_ns=WINDOW_NS, gstreamer=True):
        """N1 to N4, N6 and N7 for what a killed run left in `box`; `outputs` maps tasks to their files. A list of problems."""
        outputs = outputs or {"task1": box.out}
        problems, before = [], {}
        for task, path in outputs.items():
            if os.path.exists(path) and os.path.getsize(path) > 0:
                before[task], found_problems = self.judge(path, gstreamer)
                problems += [f"{task} before repair: {problem}" for problem in found_problems]

        report, repair_problems = self.repair(box)
        problems += repair_problems
        for task, path in outputs.items():
            after = {}
            if os.path.exists(path):
                after, found_problems = self.judge(path, gstreamer)
                problems += [f"{task} after repair: {problem}" for problem in found_problems]
                problems += [f"{task}: {problem}" for problem in honesty_problems(report, path, after)]
                if not any(after.values()):
                    problems.append(f"{task}: an empty file was left")
            for stream, samples in before.get(task, {}).items():
                # The first packet of an AAC encoder decodes to what comes before the sound: a finished file's edit list hides it,
                # and when it is all the sound there is, it is not read any more.
                hidden = 1 if stream != min(before[task]) and len(samples) == 1 else 0
                if len(after.get(stream, [])) < len(samples) - hidden:
                    problems.append(f"{task}: repair lost samples of stream {stream}: {len(samples)} before, "
                                    f"{len(after.get(stream, []))} after")
            owed = box.pushed_by(death_ns - window_ns, task) - FRAGMENT_FRAMES
            problems += [f"{task}: {problem}" for problem in checker.window_problems(after, owed)]
            if 16 in box.events(task):
                problems += [f"{task}, told as finished: {problem}" for problem in self.compare(after, whole_file=True)]
        problems += box.neighbour_problems()
        problems += box.leftovers(outputs.values())
        if problems:
            problems.append(f"repair report: {json.dumps(report)}")
        return problems


class Box:
    """A world of its own for one run: folders for outputs and journals with other people's files in them."""

    def __init__(self, place=None):
        self.base = tempfile.mkdtemp(prefix="vemo-faults-", dir=place)
        self.root = os.path.join(self.base, "disk")
        self.folder = os.path.join(self.root, "out")
        self.temp = os.path.join(self.root, "temp")
        self.out = os.path.join(self.folder, "gate.mp4")
        self.trace = os.path.join(self.base, "trace")
        self.call_log = os.path.join(self.base, "calls")
        self.log = os.path.join(self.base, "log")
        os.makedirs(self.folder)
        os.makedirs(self.temp)
        for name in ("out/other.mp4", "out/gate (2).mp4", "out/notes.txt", "temp/photo.jpg", "temp/letter.json"):
            with open(os.path.join(self.root, name), "wb") as file:
                file.write(hashlib.sha256(name.encode()).digest() * 100)
        self.surroundings = checker.Surroundings(self.root)
        self.neighbours = self.surroundings.before

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.base, ignore_errors=True)

    def calls(self):
        """The traced calls as (number, name, monotonic ns, path, offset, length)."""
        if not os.path.exists(self.trace):
            return []
        with open(self.trace, encoding="utf-8") as file:
            rows = [line.rstrip("\n").split("\t") for line in file]
        return [(int(r[0]), r[1], int(r[2]), r[3], int(r[4]), int(r[5])) for r in rows]

    def death_ns(self):
        """When the preload library killed the process."""
        return next((call[2] for call in self.calls() if call[1] == "killed"), None)

    def pushed_by(self, when_ns, task="task1", track=0):
        """How many packets of a track the program had pushed at that time."""
        count = 0
        for fields in self.log_lines():
            if fields[1] == task and fields[2] == "pushed" and int(fields[3]) == track and int(fields[0]) <= when_ns:
                count = int(fields[4])
        return count

    def events(self, task="task1"):
        return [int(fields[3]) for fields in self.log_lines() if fields[1] == task and fields[2] == "event"]

    def log_lines(self):
        if not os.path.exists(self.log):
            return []
        with open(self.log, encoding="utf-8") as file:
            return [line.split() for line in file if line.endswith("\n")]

    def neighbour_problems(self):
        """N6: other people's files are bit for bit what they were."""
        return self.surroundings.neighbour_problems()

    def outputs(self, count):
        """Files for several tasks: {"task1": path...}."""
        return {f"task{number}": os.path.join(self.folder, f"gate-{number}.mp4") for number in range(1, count + 1)}

    def leftovers(self, expected=()):
        """N7: files that are neither other people's nor an output."""
        return self.surroundings.left_behind(expected)


def honesty_problems(report, path, found):
    """N3: what the library claims of a file is not more than it holds."""
    problems = []
    for entry in report:
        if entry.get("path") != path:
            continue
        seconds = (iso_ms(entry["end"]) - iso_ms(entry["begin"])) / 1000 if entry.get("begin") and entry.get("end") else None
        problems += checker.honesty_problems(path, found, entry.get("bytes", 0), seconds if found.get(0) else None,
                                             frames_a_second=FRAMES_A_SECOND)
        if entry.get("outcome") == "failed":
            problems.append(f"repair failed: {entry.get('error')}")
    return problems


def iso_ms(text):
    import datetime
    return datetime.datetime.fromisoformat(text.replace("Z", "+00:00")).timestamp() * 1000


def killed(done):
    return done.returncode == -signal.SIGKILL


def sample(cases, count, seed):
    """An even spread of `count` cases whose phase the seed decides."""
    cases = list(cases)
    if len(cases) <= count:
        return cases
    step = len(cases) / count
    phase = random.Random(seed).random()
    return [cases[place] for place in sorted({int((index + phase) * step) % len(cases) for index in range(count)})]


def repeat_command(arguments, number):
    """What to type so that the case of that number runs again, alone."""
    words, skip = [], False
    for word in sys.argv[1:]:
        if not skip and not word.startswith(("--seed=", "--only=")) and word not in ("--seed", "--only"):
            words.append(word)
        skip = word in ("--seed", "--only")
    environment = "PYTHONPATH=" + os.path.dirname(os.path.realpath(media.__file__))
    return shlex.join([environment, "python3", os.path.realpath(sys.argv[0]), *words, "--seed", str(arguments.seed), "--only", str(number)])


class Matrix:
    """All cases of a script, numbered through over its parts, so that --only finds one again. What failed is printed with the command
    that repeats it."""

    def __init__(self, arguments):
        self.arguments = arguments
        self.numbered = self.ran = self.failed = 0

    def number(self, cases):
        """[(number, case)] of a further part: all of them, or what --only names."""
        begin, self.numbered = self.numbered, self.numbered + len(cases)
        return [(begin + index, case) for index, case in enumerate(cases) if self.arguments.only in (None, begin + index)]

    def note(self, title, number, case, problems):
        self.ran += 1
        if problems:
            self.failed += 1
            print(f"FAILED {title} {case}:", *problems, sep="\n    ")
            print(f"    repeat: {repeat_command(self.arguments, number)}", flush=True)

    def run(self, title, cases, one, jobs=None):
        """Runs one(case), which returns a list of problems, for all cases, some at a time. The number that failed."""
        began, before = time.monotonic(), self.failed
        numbered = self.number(list(cases))
        with concurrent.futures.ThreadPoolExecutor(jobs or os.cpu_count()) as pool:
            for (number, case), problems in zip(numbered, pool.map(lambda each: one(each[1]), numbered)):
                self.note(title, number, case, problems)
        print(f"{title}: {len(numbered)} cases, {self.failed - before} failed, {time.monotonic() - began:.1f} s", flush=True)
        return self.failed - before

    def tell(self, row, what):
        """The line of the row for what ran since the last one. The exit code so far."""
        rows.tell(row, what, self.ran, self.failed, self.arguments.seed)
        failed = self.failed
        self.ran = self.failed = 0
        return 1 if failed else 0
