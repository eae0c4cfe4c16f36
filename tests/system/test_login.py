#!/usr/bin/env python3
"""Who may do what, with real clicks and keys: the first start, logging out and in, wrong passwords, users without powers. No password
stands anywhere afterwards."""
import os
import unittest

import desktop
import systemlab
from desktop import Window, wait_for, xdotool
from systemlab import Client, Test

NAME = "m.keller"
SECRET = "Correct horse 7 battery"  # what a keyboard of any layout can type
WRONG_TRIES = 5


def setUpModule():
    unittest.addModuleCleanup(desktop.Desktop().end)


class Login(Test):
    def setUp(self):
        self.client = Client()
        self.client.changes["VEMO_KEYRING"] = "off"
        self.addCleanup(self.client.__exit__)
        os.makedirs(os.path.join(self.client.folder, "home", "Videos"))

    def open(self):
        window = Window(self.client, login=True)
        self.addCleanup(window.kill)
        return window

    def user(self, *arguments, password=SECRET):
        run = self.client.run("user", *arguments, password=password)
        self.assertEqual(run.code, systemlab.DONE, run)
        return run.lines

    @staticmethod
    def fill(window, field, text):
        from gi.repository import Atspi
        fields = (Atspi.Role.TEXT, Atspi.Role.PASSWORD_TEXT)  # their labels have the same name
        window.click(window.wait_for(lambda each: each.get_name() == field and each.get_role() in fields, field))
        xdotool("key", "ctrl+a", "type", "--delay", 20, text)

    def log_in(self, window, password, name=None):
        window.text("Log in")
        if name:
            self.fill(window, "User name", name)
        self.fill(window, "Password", password)
        xdotool("key", "Return")

    def log_out(self, window):
        window.press(f"Logged in as {NAME}")
        xdotool("sleep", 0.5, "key", "Down", "Down", "Return")  # screen readers are told no menus

    def close(self, window):
        window.id = wait_for(lambda: window.windows("Vemo"), "there is no window")[0]
        run = window.close()
        self.assertEqual(run.code, systemlab.DONE, run)
        self.assertEqual(self.client.secret_places(run, SECRET, NAME), [], "the password stands where it must not")

    def test_from_the_first_start_to_the_next_login(self):
        window = self.open()
        window.text("Create the administrator")
        self.fill(window, "User name", NAME)
        self.fill(window, "Password", SECRET)
        self.fill(window, "Repeat the password", SECRET[:-1])
        xdotool("key", "Tab")
        window.text("The two passwords differ")
        self.fill(window, "Repeat the password", SECRET)
        window.press("Create and continue")
        window.text("Choose where files are kept")
        window.text("free of")
        wait_for(lambda: not window.find(lambda each: each.get_name() == "Continue") or window.press("Continue"), "the folders won't do", 20)
        window.press("Later")
        window.text(f"Logged in as {NAME}")
        self.assertEqual([user["name"] for user in self.user("list", "--json")], [NAME])

        process = window.process.pid
        self.log_out(window)
        window.text("Last login of " + NAME)
        self.assertEqual(window.process.pid, process)
        window.press("Stay logged in on this computer")
        self.log_in(window, SECRET)
        window.text(f"Logged in as {NAME}")
        self.close(window)

        window = self.open()
        window.text(f"Logged in as {NAME}")  # nothing was asked
        self.log_out(window)
        window.text("Last login of " + NAME)
        self.close(window)
        window = self.open()
        window.text("Last login of " + NAME)  # and now it is
        self.close(window)

    def test_wrong_passwords_lock_the_account_past_a_restart(self):
        self.user("add", "--name", NAME, "--administrator")
        window = self.open()
        for number in range(WRONG_TRIES):
            self.log_in(window, f"wrong {number}")
            window.text("The account is locked for" if number == WRONG_TRIES - 1 else "The user name or the password is wrong.")
            wait_for(lambda: not window.find(lambda each: each.get_name() == "Logging in..."), "it does not end")
        self.close(window)
        window = self.open()
        self.log_in(window, SECRET)
        window.text("The account is locked for")
        self.close(window)
        self.user("password", "--name", NAME)
        window = self.open()
        self.log_in(window, SECRET)
        window.text(f"Logged in as {NAME}")
        self.close(window)

    def test_a_user_sees_what_the_powers_allow(self):
        self.user("add", "--name", NAME, "--administrator")
        self.user("add", "--name", "watch", "--powers", "playback,recordings")
        window = self.open()
        self.log_in(window, SECRET, "watch")
        window.text("Logged in as watch")
        window.press("Files Center")
        window.text("Local Recording")
        window.text("Local Files")
        for name in ("Download Mgr", "Local Snapshot", "Recordings Backup", "Live", "Logs"):
            self.assertIsNone(window.find(lambda each, wanted=name: each.get_name() == wanted), f"{name} is offered")
        self.close(window)

    def test_accounts_that_cannot_be_opened_make_nobody_the_administrator(self):
        self.user("add", "--name", NAME, "--administrator")
        for folder in ("config", "data"):
            path = os.path.join(self.client.folder, "data", folder, "users")
            with open(path, "r+b") as file:
                file.seek(40)
                file.write(b"\0\0\0\0")
        window = self.open()
        window.text("The accounts can't be opened")
        self.assertIsNone(window.find(lambda each: each.get_name() == "Create and continue"))
        window.press("Close")
        self.assertEqual(self.client.finish(window.process, timeout=15).code, systemlab.DONE)
        run = self.client.run("user", "add", "--name", NAME, "--administrator", password=SECRET)
        self.assertEqual(run.code, systemlab.DONE, run)
        self.assertIn("begin anew", run.err)


if __name__ == "__main__":
    desktop.need()
    systemlab.main()
