"""F8, F9, F10, F12 and F14: the store, the window, and how soon things stop."""
import contextlib
import os
import shutil
import signal
import sqlite3
import subprocess
import time
import uuid
from datetime import timedelta

from lab import BEGIN, DAY, PASSWORD, Failed, Run, iso, size

OFFSCREEN = {"QT_QPA_PLATFORM": "offscreen"}
TASKS = (0, 10_000, 100_000)
SHOWN = "the window is shown"
NOBODY = "http://127.0.0.1:9/onvif/device_service"


def offscreen(command, **others):
    return Run(command, env={**os.environ, **OFFSCREEN, **others}).answer()


def store(lab, report):
    """F8. The store takes its turns with the shell by itself; the table sorts in a program of its own."""
    figures = Run([lab.program("store_bench"), str(lab.runs), "rows"]).answer()
    sorted_rows = offscreen([lab.program("queue_rows_bench"), "sort", str(lab.runs)])["sort"]
    for key in ("insert", "load", "filter", "update", "delete"):
        report.add(f"F8/{key}", figures[key]["ours"], {"sqlite3": figures[key]["shell"]})
    report.add("F8/sort", sorted_rows, {"sqlite3": figures["sort"]["shell"]})


def index(lab, report):
    figures = Run([lab.program("local_index_bench"), "100000", str(lab.runs)]).answer()
    report.add("F8/page", figures["month"]["ours"], {"sqlite3": figures["month"]["shell"]}, note=f"{figures['month']['records']:,} records")
    report.add("F8/whole", figures["all"]["ours"], {"sqlite3": figures["all"]["shell"]})


def ticks(lab, report):
    """F9."""
    recorder = lab.recorder

    def run(*rows):
        folder = lab.folder("ticks")
        answer = offscreen([lab.program("gui_tick_bench"), recorder.onvif, "admin", recorder.password_file, "1", iso(BEGIN),
                            iso(BEGIN + timedelta(hours=12)), folder, "5", str(lab.options.tick_s), *rows])
        lab.out("ticks")
        return answer

    figures = lab.turns({"ours": run, "ours, rows": lambda: run("10000")})
    for name, prefix in (("ours", ""), ("ours, rows", "rows ")):
        answers = figures[name]
        rates = sorted(answer["rate_mb_s"] for answer in answers)
        report.add(f"F9/{prefix}p99", [answer["p99_ms"] for answer in answers], note=f"{rates[0]:,.0f} to {rates[-1]:,.0f} MB/s")
        report.add(f"F9/{prefix}max", [answer["max_ms"] for answer in answers])


@contextlib.contextmanager
def display():
    """The environment of a desktop that nobody sees."""
    reading, writing = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1440x900x24", "-nolisten", "tcp"], pass_fds=[writing],
                              stderr=subprocess.DEVNULL)
    os.close(writing)
    try:
        with os.fdopen(reading) as pipe:
            name = pipe.readline().strip()
        if not name:
            raise Failed("Xvfb does not start")
        environment = {**os.environ, "DISPLAY": ":" + name, "VEMO_KEYRING": "off", "QT_LOGGING_RULES": "vemo.start.debug=true"}
        environment.pop("QT_QPA_PLATFORM", None)
        yield environment
    finally:
        server.terminate()
        server.wait()


def client(lab, data, *arguments):
    return [lab.program("vemo_client"), "--data", data, *arguments]


def world(lab, name, device, channels, begin, end):
    """A data folder in which somebody stays logged in and downloads wait. Returns it."""
    data = lab.folder(name)
    environment = {**os.environ, "VEMO_KEYRING": "off"}
    password = os.path.join(data, "password")
    with open(password, "w", encoding="ascii") as file:
        file.write(PASSWORD)
    Run(client(lab, data, "user", "add", "--name", "admin", "--password-file", password, "--administrator", "--stay-logged-in"),
        env=environment).good()
    Run(client(lab, data, "queue", "add", "--device", device, "--user", "admin", "--password-file", password, "--channel",
               ",".join(map(str, channels)), "--begin", iso(begin), "--end", iso(end)), env=environment).good()
    return data


def multiply(data, count):
    """Makes one stored download into as many, as a long-used client has them: of a hundred ninety succeeded, eight failed, two are
    paused."""
    database = next(os.path.join(folder, name) for folder, _, names in os.walk(data) for name in names if name.endswith(".db"))
    files = sqlite3.connect(database)
    names = [row[1] for row in files.execute("PRAGMA table_info(download_tasks)") if row[1] != "seq"]
    first = dict(zip(names, files.execute(f"SELECT {', '.join(names)} FROM download_tasks").fetchone()))
    path = os.path.join(data, "gate.mp4")
    with open(path, "wb") as file:
        file.write(bytes(4096))
    rows = []
    for number in range(count):
        shift = number * 600_000
        row = {**first, "task_id": "{" + str(uuid.uuid4()) + "}", "state": 3 if number % 100 < 90 else 5 if number % 100 < 98 else 2,
               "save_path": path, "downloaded_bytes": 4096, "begin_utc_ms": first["begin_utc_ms"] + shift,
               "end_utc_ms": first["end_utc_ms"] + shift, "request_key": None}
        rows.append(tuple(row[name] for name in names))
    files.execute("DELETE FROM download_tasks")
    files.executemany(f"INSERT INTO download_tasks ({', '.join(names)}) VALUES ({', '.join('?' * len(names))})", rows)
    files.commit()
    files.close()


def started(lab, data, environment):
    """Milliseconds from the process' start until the window is shown with its form."""
    begin = time.monotonic()
    process = subprocess.Popen(client(lab, data), env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    try:
        for line in process.stderr:
            if SHOWN in line:
                return 1000 * (time.monotonic() - begin)
        raise Failed("the window was not shown")
    finally:
        process.send_signal(signal.SIGTERM)
        process.stderr.read()
        process.wait(60)


def starts(lab, report):
    """F10."""
    folders = {}
    for count in TASKS:
        folders[count] = world(lab, f"start-{count}", NOBODY, [1], BEGIN, BEGIN + timedelta(minutes=10))
        multiply(folders[count], count)
    with display() as environment:
        figures = lab.turns({f"ours {count}": lambda data=data: started(lab, data, environment) for count, data in folders.items()}, warm=1)
    for count in TASKS:
        lab.out(f"start-{count}")
    report.add("F10/10000", figures["ours 10000"])
    report.add("F10/100000", figures["ours 100000"], {"empty store": figures["ours 0"]})


def time_line(lab, report):
    """F12: every run draws 400 frames of each kind."""
    answers = lab.turns({"ours": lambda: offscreen([lab.program("axis_bench"), "time-line"])})["ours"]
    for key in ("zoom", "pan"):
        report.add(f"F12/{key}", [answer[key + "_p99_ms"] for answer in answers])


def stops(lab, report):
    """F14 while one download runs."""
    recorder = lab.recorder
    slow = {"LD_PRELOAD": lab.library("libslow_disk.so"), "SLOW_DISK_UNDER": os.path.join(lab.dir, "stops")}
    for prefix, others in (("", {}), ("slow ", slow)):
        folder = lab.folder("stops")
        answer = offscreen([lab.program("stop_latency_bench"), recorder.onvif, "admin", recorder.password_file, "1", iso(BEGIN),
                            iso(BEGIN + timedelta(hours=12)), folder, str(2 * lab.runs)], **others)
        lab.out("stops")
        for key in ("pause", "cancel", "stop"):
            report.add(f"F14/{prefix}{key}", answer[key], note=f"{answer['rate_mb_s']:,.0f} MB/s")


def growing_files(folder):
    return sum(name.endswith(".mp4") and size(os.path.join(parent, name)) > 1 << 20 for parent, _, names in os.walk(folder) for name in names)


def quits(lab, report):
    """F14: the whole program ends while five downloads run at full speed."""
    def quit_of(name, *arguments):
        def run():
            data = world(lab, name, lab.recorder.onvif, range(1, 6), DAY, DAY + timedelta(hours=24))
            # Downloads go where the person's videos are.
            own = {**environment, "HOME": data}
            process = subprocess.Popen(client(lab, data, *arguments), env=own, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            try:
                limit = time.monotonic() + 20
                while growing_files(data) < 5:
                    if process.poll() is not None or time.monotonic() > limit:
                        raise Failed(f"only {growing_files(data)} of five downloads ran")
                    time.sleep(0.02)
                begin = time.monotonic()
                process.send_signal(signal.SIGTERM)
                process.wait(60)
                return 1000 * (time.monotonic() - begin)
            finally:
                process.kill()
                process.wait()
                shutil.rmtree(data, ignore_errors=True)
        return run

    with display() as environment:
        figures = lab.turns({"ours": quit_of("quit"), "ours, queue": quit_of("quit-queue", "queue", "run")})
    report.add("F14/quit", figures["ours"])
    report.add("F14/quit headless", figures["ours, queue"])
