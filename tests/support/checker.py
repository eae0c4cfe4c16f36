"""One judge of what holds after every fault, N1 to N7, for the download library alone and for whole programs alike. What was sent is
a record of the sender's: the clip that was pushed, or what the simulated recorder says that it sent. What a file holds is what stock
ffmpeg reads from it. Every function returns a list of problems in plain words, empty when all is well.

`found` and `sent` are {stream: [MD5 of a sample, in decode order]}."""
import hashlib
import os
import subprocess

import media


def read(path, gstreamer=False):
    """(samples, problems) of a file that must open: by ffmpeg, and by GStreamer when asked."""
    try:
        found = media.samples(path)
    except (media.NotReadable, subprocess.TimeoutExpired, OSError) as error:
        return {}, [str(error)]
    problems = []
    if gstreamer and any(found.values()):
        tracks = [name for stream, name in ((0, "video"), (1, "audio")) if found.get(stream)]
        said = media.gstreamer_error(path, tracks)
        if said:
            problems.append(f"GStreamer on {path}: {said}")
    return found, problems


def position(got, sent, begin=0):
    """Where `got` stands in `sent` as one piece, at `begin` or later, or None. Recordings may be loops: the first fit counts."""
    if not got:
        return begin
    for first in range(begin, len(sent) - len(got) + 1):
        if sent[first] == got[0] and sent[first:first + len(got)] == got:
            return first
    return None


def prefix_problems(found, sent, encoder_tails=None, whole=False):
    """N1: every track is a prefix of what was sent, with `whole` all of it. `encoder_tails` is {stream: samples at its end that our
    own encoder may have added or changed when it was closed}."""
    problems = []
    for stream, got in found.items():
        expected = sent.get(stream, [])
        tail = (encoder_tails or {}).get(stream, 0)
        if not media.is_prefix(got[:len(got) - tail], expected):
            problems.append(f"stream {stream}: {media.first_difference(got, expected)}")
        if whole and abs(len(got) - len(expected)) > tail:
            problems.append(f"stream {stream}: {len(got)} samples of {len(expected)}")
    if whole and set(found) != set(sent):
        problems.append(f"streams {sorted(found)} instead of {sorted(sent)}")
    return problems


def window_problems(found, owed, stream=0):
    """N2: at least `owed` samples of the leading track survived: what was there, less a fragment and the window of the fault."""
    kept = len(found.get(stream, []))
    return [f"{kept} frames survived where {owed} should have"] if kept < owed else []


def honesty_problems(path, found, claimed_bytes=0, claimed_seconds=None, finished=None, frames_a_second=25, slack_s=0.2):
    """N3: store and window claim no more than the file holds. `finished`, when given, is what `prefix_problems(whole=True)` must be
    empty for: (sent, encoder_tails)."""
    problems = []
    size = os.path.getsize(path) if os.path.exists(path) else 0
    if claimed_bytes > size:
        problems.append(f"{path}: claims {claimed_bytes} bytes of {size}")
    held = len(found.get(0, [])) / frames_a_second
    if claimed_seconds is not None and claimed_seconds > held + slack_s:
        problems.append(f"{path}: claims {claimed_seconds:.3f} s where the file holds {held:.3f} s")
    if finished is not None:
        problems += [f"{path}, told as finished: {problem}" for problem in prefix_problems(found, *finished, whole=True)]
    return problems


def healed_problems(tasks, resting, failed):
    """N4: `tasks` are (name, state, reason); every one is in a state of `resting`, or in one of `failed` with a reason in words."""
    problems = [f"{name} is in state {state}, which nobody works on" for name, state, _ in tasks if state not in resting | failed]
    return problems + [f"{name} failed without a reason" for name, state, reason in tasks
                       if state in failed and len((reason or "").strip()) < 8]


def cover_problems(pieces, sent, lead=0):
    """N5: the pieces, (path, samples of one track) in the order of time, carry every sample of `sent` once and in order. A piece may
    begin up to `lead` samples early: from the key frame that its first picture needs on."""
    at = 0
    for path, got in pieces:
        first = position(got, sent, max(0, at - lead))
        if first is None:
            return [f"{path}: no unbroken part of what was sent ({media.first_difference(got, sent[at:])})"]
        if first > at:
            return [f"{path}: {first - at} samples are missing before it"]
        at = max(at, first + len(got))
    return [f"{len(sent) - at} samples are missing at the end"] if at < len(sent) else []


class Surroundings:
    """N6 and N7 on folders: what is there when this is made belongs to others."""

    def __init__(self, *roots):
        self.roots = roots
        self.before = {path: self.mark(path) for path in self.files()}

    def files(self):
        return {os.path.join(folder, name) for root in self.roots for folder, _, names in os.walk(root) for name in names}

    @staticmethod
    def mark(path):
        if os.path.islink(path) or not os.path.isfile(path):
            return os.readlink(path) if os.path.islink(path) else "special"
        with open(path, "rb") as file:
            return hashlib.file_digest(file, "sha256").hexdigest()

    def neighbour_problems(self):
        """N6: every file that was there is bit for bit what it was."""
        now = self.files()
        return [f"{path} is gone" for path in sorted(set(self.before) - now)] + \
            [f"{path} was changed" for path in sorted(set(self.before) & now) if self.mark(path) != self.before[path]]

    def left_behind(self, expected=()):
        """N7: files that are neither other people's nor expected."""
        return [f"left behind: {path}" for path in self.new_files(expected)]

    def new_files(self, expected=()):
        return sorted(self.files() - set(self.before) - set(expected))


def footprint(pid):
    """N7 within a process: (open descriptors, threads, sockets) of a running one."""
    folder = f"/proc/{pid}/fd"
    targets = []
    for name in os.listdir(folder):
        try:
            targets.append(os.readlink(os.path.join(folder, name)))
        except OSError:
            continue
    return len(targets), len(os.listdir(f"/proc/{pid}/task")), sum(target.startswith("socket:") for target in targets)
