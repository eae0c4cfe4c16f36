#!/usr/bin/env python3
"""Times the program from its start to a window that shows its form, with 0, 10,000 and 100,000 stored downloads, and prints one table
(row F10). Needs xvfb.

usage: bench/window_start.py [--build build/release] [--runs 7] [--tasks 0,10000,100000]
"""
import argparse
import os
import random
import signal
import sqlite3
import statistics
import subprocess
import sys
import tempfile
import time
import uuid

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
DISPLAY = ":97"
PASSWORD = "bench-Pass-7"
MARKS = ("the window is shown", "the stored downloads are handed out")


def client(build, data, *arguments, **others):
    return [os.path.join(build, "bin", "vemo_client"), "--data", data, *arguments]


def fill(build, data, count):
    """A data folder with one finished download, multiplied: what a long-used client has."""
    password = os.path.join(data, "password")
    with open(password, "w") as file:
        file.write(PASSWORD)
    subprocess.run(client(build, data, "user", "add", "--name", "admin", "--password-file", password, "--administrator",
                          "--stay-logged-in"), check=True)
    subprocess.run(client(build, data, "queue", "add", "--device", "http://127.0.0.1:9/onvif/device_service", "--user", "admin",
                          "--password-file", password, "--channel", "1", "--begin", "2026-01-10T08:00:00", "--end",
                          "2026-01-10T08:10:00"), check=True, stdout=subprocess.DEVNULL)
    database = next(os.path.join(folder, name) for folder, _, names in os.walk(data) for name in names if name.endswith(".db"))
    store = sqlite3.connect(database)
    names = [row[1] for row in store.execute("PRAGMA table_info(download_tasks)") if row[1] != "seq"]
    first = dict(zip(names, store.execute(f"SELECT {', '.join(names)} FROM download_tasks").fetchone()))
    store.execute("DELETE FROM download_tasks")
    folder = os.path.join(data, "files")
    os.makedirs(folder)
    path = os.path.join(folder, "gate.mp4")
    with open(path, "wb") as file:
        file.write(bytes(4096))
    rows = []
    for number in range(count):
        # Of a hundred tasks ninety succeeded, eight failed, two are paused.
        state = 3 if number % 100 < 90 else 5 if number % 100 < 98 else 2
        row = {**first, "task_id": "{" + str(uuid.uuid4()) + "}", "state": state, "save_path": path, "downloaded_bytes": 4096,
               "begin_utc_ms": first["begin_utc_ms"] + number * 600_000, "end_utc_ms": first["end_utc_ms"] + number * 600_000,
               "request_key": None}
        rows.append(tuple(row[name] for name in names))
    store.executemany(f"INSERT INTO download_tasks ({', '.join(names)}) VALUES ({', '.join('?' * len(names))})", rows)
    store.commit()
    store.close()


def start(build, data):
    """Milliseconds from the process' start until the window is shown, and until the tables hold what is stored."""
    environment = {**os.environ, "DISPLAY": DISPLAY, "VEMO_KEYRING": "off", "QT_LOGGING_RULES": "vemo.start.debug=true"}
    environment.pop("QT_QPA_PLATFORM", None)
    begin = time.monotonic()
    process = subprocess.Popen(client(build, data), env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    seen = {}
    for line in process.stderr:
        for mark in MARKS:
            if mark in line:
                seen[mark] = (time.monotonic() - begin) * 1000
        if len(seen) == len(MARKS):
            break
    process.send_signal(signal.SIGTERM)
    process.stderr.read()
    process.wait(timeout=60)
    return tuple(seen[mark] for mark in MARKS)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default=os.path.join(ROOT, "build", "release"))
    parser.add_argument("--runs", type=int, default=7)
    parser.add_argument("--tasks", default=[0, 10_000, 100_000], type=lambda text: [int(each) for each in text.split(",")])
    options = parser.parse_args()
    server = subprocess.Popen(["Xvfb", DISPLAY, "-screen", "0", "1440x900x24"], stderr=subprocess.DEVNULL)
    time.sleep(1)
    results = {count: [] for count in options.tasks}
    try:
        with tempfile.TemporaryDirectory() as root:
            for count in options.tasks:
                os.makedirs(os.path.join(root, str(count)), mode=0o700)
                fill(options.build, os.path.join(root, str(count)), count)
            order = [count for count in options.tasks for _ in range(options.runs + 1)]
            random.shuffle(order)
            for count in order:
                results[count].append(start(options.build, os.path.join(root, str(count))))
    finally:
        server.terminate()
        server.wait()
    print("| Row | Stored downloads | Window shown, ms | Tables filled, ms |")
    print("|---|---|---|---|")
    for count, times in results.items():
        columns = []
        for figures in zip(*times[1:]):
            columns.append(f"{statistics.median(figures):.0f} ({min(figures):.0f}-{max(figures):.0f})")
        print(f"| F10 | {count:,} | " + " | ".join(columns) + " |")
    return 0


if __name__ == "__main__":
    sys.exit(main())
