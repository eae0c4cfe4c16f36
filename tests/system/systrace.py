"""What a program and its children asked the system for, as strace saw it from behind: the program keeps its process id."""
import codecs
import functools
import glob
import os
import re
import shutil
import stat
import subprocess
import tempfile

import secretscan
import systemlab

CALLS = "execve,open,openat,creat,mkdir,mkdirat,mknod,mknodat,symlink,symlinkat,link,linkat"
LINE = re.compile(r"^(\w+)\((.*)\)\s+= (\d+)(?:<(.*)>)?$")
TEXT = re.compile(r'"((?:[^"\\]|\\.)*)"')


@functools.lru_cache
def is_there():
    """Installed, and allowed: some sandboxes forbid it."""
    strace = shutil.which("strace")
    return strace is not None and subprocess.run([strace, "-o", os.devnull, "true"], capture_output=True).returncode == 0


def plain(text):
    """As it was before strace spelled it."""
    return codecs.escape_decode(text.encode())[0].decode(errors="replace")


class Trace:
    """Of one run, in a folder of its own. `end` is to be left open in what is started, `prefix` is to run it."""

    def __init__(self, folder):
        self.folder = folder
        self.waits, self.end = os.pipe()
        self.prefix = ("strace", "-D", "-ff", "--seccomp-bpf", "-y", "-qq", "-v", "-s", "100000", "-e", "signal=none", "-e", f"trace={CALLS}",
                       "-o", os.path.join(folder, "t"))

    def is_running(self):
        os.close(self.end)

    def wait(self):
        """Until everything is written."""
        os.read(self.waits, 1)

    def remove(self):
        os.close(self.waits)
        shutil.rmtree(self.folder, ignore_errors=True)

    def calls(self):
        """(name, arguments, path that it was about) for each call that did not fail."""
        for name in sorted(glob.glob(os.path.join(self.folder, "t.*")), key=lambda name: int(name.rpartition(".")[2])):
            with open(name, encoding="utf-8", errors="replace") as file:
                for line in file:
                    if match := LINE.match(line.rstrip("\n")):
                        call, arguments, _, path = match.groups()
                        texts = TEXT.findall(arguments)
                        yield call, arguments, plain(path or (texts[0] if texts else ""))

    def made(self):
        """{path: permissions that were asked for} of files and folders; a file that is there already is none that is made."""
        found = {}
        for call, arguments, path in self.calls():
            mode = re.search(r", (0[0-7]*)$", arguments) if call.startswith("mk") or "O_CREAT" in arguments else None
            if mode:
                found.setdefault(path, int(mode.group(1), 8))
        return found

    def written(self):
        return {path for call, arguments, path in self.calls()
                if call in ("open", "openat", "creat") and re.search(r"O_WRONLY|O_RDWR", arguments)}

    def started(self):
        """Arguments and environment of every program that was started, but for the first one, which the test started."""
        return [" ".join(map(plain, TEXT.findall(arguments))) for call, arguments, _ in self.calls() if call == "execve"][1:]


class TalkativeClient(systemlab.Client):
    """A client that tells all that it can, its libraries too, into files beside its own; all that it asks of the system is noted. Others
    may do with what it makes whatever it does not forbid them itself."""

    def __init__(self):
        super().__init__()
        self.traces = []
        os.mkdir(os.path.join(self.folder, "said"))
        self.changes.update(VEMO_KEYRING="off", QT_LOGGING_RULES="*=true;qt.qpa.*=false;qt.accessibility.*=false", QT_DEBUG_PLUGINS="1",
                            MPV_VERBOSE="9", LD_PRELOAD=os.path.join(systemlab.OPTIONS.build, "lib", "libvemo_loud.so"))

    def __exit__(self, *_):
        super().__exit__()
        for trace in self.traces:
            trace.remove()

    def start(self, *arguments, password=systemlab.PASSWORD, prefix=(), **changes):
        trace = Trace(tempfile.mkdtemp(prefix="vemo-trace-"))
        self.traces.append(trace)
        is_verb = arguments and not str(arguments[0]).startswith("-")
        command = [*prefix, *trace.prefix, self.program, "--data", os.path.join(self.folder, "data"), *([] if is_verb else ["--log-level", "debug"]),
                   *map(str, arguments), *(["--verbose"] if is_verb else [])]
        said = [os.path.join(self.folder, "said", f"{len(self.traces)}.{name}") for name in ("out", "err")]
        with open(said[0], "wb") as out, open(said[1], "wb") as err:
            process = subprocess.Popen(command, env=self.environment(password, changes), cwd=self.folder, stdin=subprocess.DEVNULL,
                                       stdout=out, stderr=err, umask=0, pass_fds=[trace.end])
        trace.is_running()
        process.said = said
        return process

    def finish(self, process, *others, **named):
        run = super().finish(process, *others, **named)
        self.traces[-1].wait()
        texts = []
        for path in process.said:
            with open(path, encoding="utf-8", errors="replace") as file:
                texts.append(file.read())
        run.out, run.err = texts
        return run

    def looked_at(self):
        return len(self.traces) + sum(len(names) for _, _, names in os.walk(self.folder))

    def leaks(self, secrets, user=systemlab.USER):
        """Where one of the passwords stands: files, what was printed, what was started and with which environment."""
        found = []
        for secret in secrets:
            known = secretscan.forms(secret, user)
            found += secretscan.files(self.folder, known)
            for trace in self.traces:
                outside = [path for path in trace.written() if os.path.isfile(path) and not path.startswith((self.folder, "/proc/", "/dev/"))]
                for path in outside:
                    with open(path, "rb") as file:
                        found += [(path, form) for form in secretscan.hits(file.read(), known)]
                found += [("a started program", form) for told in trace.started() for form in secretscan.hits(told, known)]
        return found

    def gaps(self):
        """What others could have opened, then or now. Qt makes its locks, and files that are to replace others, with the system's
        mask; they lie in folders that are nobody else's from the beginning, and what is there in the end is looked at here."""
        own = [os.path.join(self.folder, "data"), os.path.join(self.folder, "home", ".cache", "thumbnails")]
        found, made = [], {}
        for trace in self.traces:
            made = {**trace.made(), **made}
        for path, mode in made.items():
            is_qts = os.path.exists(path.rpartition(".")[0])
            if path.startswith(tuple(own)) and mode & 0o077 and not is_qts:
                found.append(f"{path} was made with {mode:o}")
        for folder in own:
            for place, folders, names in os.walk(folder):
                for name in [*folders, *names]:
                    mode = os.lstat(os.path.join(place, name)).st_mode
                    if stat.S_IMODE(mode) & 0o077 and not stat.S_ISLNK(mode):
                        found.append(f"{os.path.join(place, name)} has {stat.S_IMODE(mode):o}")
        return found
