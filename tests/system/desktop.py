"""A desktop for tests of the real window: an X server of its own, a window manager, a session bus with the accessibility bus behind it.
The window is driven by xdotool and read as a screen reader reads it. `need()` skips the whole file where something is missing."""
import contextlib
import os
import shutil
import subprocess
import sys
import tempfile
import time

import systemlab

SKIPPED = 77
PROGRAMS = ("Xvfb", "openbox", "xdotool", "xprop", "dbus-daemon", "setpriv")
SYSTEM_PYTHON = "/usr/bin/python3"
SCREEN = (1440, 900)


def need():
    """Goes on in the system's interpreter when only that one has the bindings; ends as skipped when nothing has."""
    missing = [name for name in PROGRAMS if not shutil.which(name)]
    try:
        import gi
        gi.require_version("Atspi", "2.0")
    except (ImportError, ValueError):
        if os.path.realpath(sys.executable) != os.path.realpath(SYSTEM_PYTHON) and os.path.exists(SYSTEM_PYTHON):
            os.execv(SYSTEM_PYTHON, [SYSTEM_PYTHON, *sys.argv])
        missing.append("gir1.2-atspi-2.0 with python3-gi")
    if missing:
        print("skipped, since there is no " + ", ".join(missing))
        sys.exit(SKIPPED)


def wait_for(condition, message, timeout=15):
    """The first true answer."""
    limit = time.monotonic() + timeout
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > limit:
            raise AssertionError(message() if callable(message) else message)
        time.sleep(0.05)


def bound_by_permissions():
    """Runs a program so that read-only means read-only, also for root."""
    return ["setpriv", "--bounding-set", "-dac_override,-dac_read_search"] if os.geteuid() == 0 else []


class Desktop:
    """One a process, since the reading side keeps its connection."""

    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="vemo-desktop-")
        own = {**os.environ, "HOME": self.folder, "XDG_RUNTIME_DIR": self.folder}
        self.processes = []
        reading, writing = os.pipe()
        self.run(["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{SCREEN[0]}x{SCREEN[1]}x24", "-dpi", "96", "-nolisten", "tcp"],
                 pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as pipe:
            own["DISPLAY"] = os.environ["DISPLAY"] = ":" + pipe.readline().strip()
        bus = self.run(["dbus-daemon", "--session", "--nofork", "--print-address"], env=own, stdout=subprocess.PIPE, text=True)
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        self.run(["openbox", "--sm-disable"], env=own)
        wait_for(lambda: "window id" in xprop("-root", "_NET_SUPPORTING_WM_CHECK"), "no window manager came up")

    def run(self, command, **options):
        self.processes.append(subprocess.Popen(command, stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **{"stdout": subprocess.DEVNULL, **options}))
        return self.processes[-1]

    def end(self):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()
            if process.stdout:
                process.stdout.close()
        shutil.rmtree(self.folder, ignore_errors=True)


def xprop(*arguments):
    return subprocess.run(["xprop", *arguments], capture_output=True, text=True, check=False).stdout


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True, check=False).stdout.split()


class Window:
    """One started client on the desktop; its main window is the one named Vemo. Somebody is logged in, unless `login` is to be seen."""

    def __init__(self, client, *arguments, prefix=(), login=False):
        self.client = client
        if not login:
            client.let_in()
        self.process = self.start(client, *arguments, prefix=prefix)
        self.id = wait_for(lambda: self.windows("Vemo"), lambda: f"no window came up: {self.process.poll()}")[0]

    @staticmethod
    def start(client, *arguments, **options):
        return client.start(*arguments, QT_QPA_PLATFORM=None, DISPLAY=os.environ["DISPLAY"], QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                            DBUS_SESSION_BUS_ADDRESS=os.environ["DBUS_SESSION_BUS_ADDRESS"], **options)

    def windows(self, name):
        return xdotool("search", "--all", "--onlyvisible", "--pid", self.process.pid, "--name", f"^{name}$")

    def is_active(self):
        return xdotool("getactivewindow") == [self.id]

    def is_hidden(self):
        return "_NET_WM_STATE_HIDDEN" in xprop("-id", self.id, "_NET_WM_STATE")

    def application(self):
        from gi.repository import Atspi
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(index)
            with contextlib.suppress(Exception):
                if child.get_process_id() == self.process.pid:
                    return child
        return None

    def find(self, wanted):
        """The first thing on the screen for which wanted(accessible) holds; rows of tables are not gone through."""
        from gi.repository import Atspi
        waiting = [self.application()]
        while waiting:
            each = waiting.pop(0)
            # What has gone meanwhile does not answer.
            with contextlib.suppress(Exception):
                role = each.get_role()
                if role != Atspi.Role.APPLICATION and not each.get_state_set().contains(Atspi.StateType.SHOWING):
                    continue
                if wanted(each):
                    return each
                if role != Atspi.Role.TABLE:
                    waiting += [each.get_child_at_index(index) for index in range(each.get_child_count())]
        return None

    def wait_for(self, wanted, what):
        return wait_for(lambda: self.find(wanted), lambda: f"the window shows no {what}; it shows {self.shown()}")

    def shown(self):
        """What a person could read at this moment, for a report."""
        names = []
        self.find(lambda each: names.append(each.get_name()))
        return " | ".join(name for name in names if name)

    def text(self, part):
        """What is shown that has the part in it."""
        return self.wait_for(lambda each: part in (each.get_name() or ""), f"text with {part!r}").get_name()

    def press(self, name):
        """Clicks the middle of what has this name."""
        self.click(self.wait_for(lambda each: each.get_name() == name, name))

    def click(self, accessible, dx=0, button=1):
        """Clicks the middle, or beside it; reckoned from its window's corner, since a toolkit may not know where a window manager put it."""
        from gi.repository import Atspi
        top = accessible
        while top.get_parent().get_role() != Atspi.Role.APPLICATION:
            top = top.get_parent()
        box, frame = (each.get_extents(Atspi.CoordType.SCREEN) for each in (accessible, top))
        x, y = box.x + box.width // 2 + dx, box.y + box.height // 2
        xdotool("mousemove", "--sync", "--window", self.windows(top.get_name())[0], x - frame.x, y - frame.y, "click", button)

    def table(self):
        from gi.repository import Atspi
        return self.find(lambda each: each.get_role() == Atspi.Role.TABLE)

    def cells(self, column):
        """The column's cells, by the texts of the second column, which are names."""
        table = self.table()
        rows = range(table.get_n_rows() if table else 0)
        return {table.get_accessible_at(row, 1).get_name(): table.get_accessible_at(row, column) for row in rows}

    def close(self):
        """As the person's keys do; what the run left."""
        wait_for(lambda: not self.windows("Vemo") or xdotool("windowactivate", "--sync", self.id, "sleep", 0.3, "key", "alt+F4", "sleep", 0.3),
                 "the window does not close")
        return self.client.finish(self.process, timeout=15)

    def kill(self):
        if self.process.returncode is None:
            self.process.kill()
            self.client.finish(self.process)
