#!/usr/bin/env python3
"""The packages as Debian's own tools see them: what is in them, how it is built, that it starts from where it was installed, and
that nothing is left when it is removed. Installing for real needs root and a machine that may be changed; it is part of --full."""
import functools
import glob
import gzip
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

import desktop
import elf
import systemlab
from desktop import Window
from systemlab import OPTIONS, Client, Test

PACKAGES = ("vemo", "vemo-recorder-sim")
EXPECTED = {
    "vemo": ("usr/bin/vemo_client", "usr/lib/vemo/libfilesCenter.so", "usr/lib/vemo/libvaws_codecs.so", "usr/lib/vemo/libvemo_frames.so",
             "usr/share/applications/com.vemo.client.desktop", "usr/share/metainfo/com.vemo.client.metainfo.xml",
             "usr/share/icons/hicolor/scalable/apps/com.vemo.client.svg", "usr/share/icons/hicolor/256x256/apps/com.vemo.client.png",
             "usr/share/man/man1/vemo_client.1.gz", "usr/share/vemo/guide/guide.md", "usr/share/doc/vemo/copyright",
             "usr/share/doc/vemo/changelog.gz"),
    "vemo-recorder-sim": ("usr/lib/vemo/recorder_sim", "usr/share/doc/vemo-recorder-sim/copyright"),
}
# Loaded at their first use, so that no tool finds them.
LOADED = ("libmpv2", "libqt5sql5-sqlite")
PARTS = ("usr/bin", "usr/lib/vemo", "usr/share")


def said(*command, **options):
    done = subprocess.run(command, capture_output=True, text=True, **options)
    return done.returncode, done.stdout + done.stderr


@functools.cache
def packages():
    """The packages made of the build tree, by name. Made once; they go with the test."""
    folder = tempfile.mkdtemp(prefix="vemo-package-")
    unittest.addModuleCleanup(shutil.rmtree, folder)
    code, text = said("cpack", "-G", "DEB", "-B", folder, cwd=OPTIONS.build)
    if code != 0:
        raise RuntimeError("cpack failed: " + text)
    found = {}
    for path in glob.glob(os.path.join(folder, "*.deb")):
        found[said("dpkg-deb", "-f", path, "Package")[1].strip()] = path
    return found


@functools.cache
def unpacked(name):
    folder = tempfile.mkdtemp(prefix="vemo-unpacked-")
    unittest.addModuleCleanup(shutil.rmtree, folder)
    subprocess.run(["dpkg-deb", "-x", packages()[name], folder], check=True)
    return folder


def files_of(folder):
    return [os.path.join(place, name) for place, _, names in os.walk(folder) for name in names]


class Content(Test):
    def test_each_package_holds_what_belongs_to_it_and_nothing_elsewhere(self):
        self.assertEqual(sorted(packages()), sorted(PACKAGES))
        for name in PACKAGES:
            held = [os.path.relpath(path, unpacked(name)) for path in files_of(unpacked(name))]
            self.assertEqual([path for path in EXPECTED[name] if path not in held], [], name)
            self.assertEqual([path for path in held if not path.startswith(tuple(part + "/" for part in PARTS))], [], name)
            self.assertEqual([path for path in held if "test" in os.path.basename(path)], [], name)

    def test_the_guide_finds_its_pictures(self):
        guide = os.path.join(unpacked("vemo"), "usr/share/vemo/guide/guide.md")
        with open(guide, encoding="utf-8") as file:
            pictures = re.findall(r"!\[[^]]*\]\(([^)]+)\)", file.read())
        self.assertTrue(pictures)
        self.assertEqual([name for name in pictures if not os.path.exists(os.path.join(os.path.dirname(guide), name))], [])

    def test_dependencies_name_what_is_loaded_at_run_time_too(self):
        depends = said("dpkg-deb", "-f", packages()["vemo"], "Depends")[1]
        for package in (*LOADED, "libqt5widgets5", "libavformat59", "libexif12"):
            self.assertRegex(depends, rf"\b{package}\b")
        self.assertNotRegex(depends, r"\blib(vemo|vaws|filesCenter)")

    def test_linters_find_no_error(self):
        code, text = said("lintian", "--fail-on", "error", "--tag-display-limit", "0", *packages().values())
        print(text, file=sys.stderr)
        self.assertEqual(code, 0, text)
        metainfo = os.path.join(unpacked("vemo"), "usr/share/metainfo/com.vemo.client.metainfo.xml")
        code, text = said("appstreamcli", "validate", "--no-net", metainfo)
        self.assertEqual(code, 0, text)

    def test_the_manual_is_clean_and_names_every_verb(self):
        page = os.path.join(unpacked("vemo"), "usr/share/man/man1/vemo_client.1.gz")
        done = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", page], capture_output=True, text=True,
                              env=dict(os.environ, LC_ALL="C.UTF-8"))
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        with gzip.open(page, "rt", encoding="utf-8") as file:
            page_text = file.read().replace("\\-", "-")
        client = os.path.join(unpacked("vemo"), "usr/bin/vemo_client")
        with Client() as home:
            environment = dict(os.environ, HOME=home.folder, LANG="C.UTF-8")
            verbs = re.findall(r"^  ([a-z]+)  +\S", said(client, "--help", env=environment)[1].partition("\nOptions:")[0], re.MULTILINE)
            self.assertGreaterEqual(len(verbs), 5)
            for verb in verbs:
                for option in re.findall(r"^  .*?(--[a-z-]+)", said(client, verb, "--help", env=environment)[1], re.MULTILINE):
                    self.assertIn(option, page_text, verb)


class Hardening(Test):
    def check(self, paths, allowed):
        fortified = 0
        for path in paths:
            name = os.path.basename(path)
            self.assertEqual(elf.weaknesses(path), [], name)
            self.assertEqual([folder for folder in elf.search_path(path) if not allowed(folder)], [], name)
            fortified += len(elf.fortified(path))
        self.assertGreater(fortified, 0, "the compiler replaced no call by a checked one")

    def test_the_packages_programs_and_libraries(self):
        for name in PACKAGES:
            paths = [path for path in files_of(unpacked(name)) if elf.is_elf(path)]
            self.assertGreaterEqual(len(paths), 12 if name == "vemo" else 1)
            self.check(paths, lambda folder: folder in ("$ORIGIN", "$ORIGIN/../lib/vemo", "$ORIGIN/../lib"))

    def test_the_build_trees_programs_and_libraries(self):
        libraries = [os.path.join(OPTIONS.build, "lib", os.path.basename(path))
                     for path in glob.glob(os.path.join(unpacked("vemo"), "usr/lib/vemo/*.so"))]
        self.check([*libraries, systemlab.program("vemo_client"), systemlab.program("recorder_sim")],
                   lambda folder: folder.startswith("$ORIGIN"))


class Start(Test):
    """The program in an unpacked package, with the build tree out of its sight."""

    def test_from_an_unpacked_package(self):
        program = os.path.join(unpacked("vemo"), "usr/bin/vemo_client")
        code, text = said("ldd", program)
        self.assertNotIn("not found", text)
        self.assertNotIn(OPTIONS.build, text)
        with Client() as home:
            environment = dict(os.environ, HOME=home.folder, QT_QPA_PLATFORM="offscreen", VEMO_KEYRING="off")
            code, text = said(program, "--version", env=environment)
            self.assertEqual((code, text.strip()), (0, "vemo_client 1.0.0"))
            code, text = said(program, "queue", "list", "--data", os.path.join(home.folder, "data"), env=environment)
            self.assertEqual(code, 0, text)


class Install(Test):
    def setUp(self):
        if not OPTIONS.full or os.geteuid() != 0:
            self.skipTest("changes the machine; with --full as root")
        if said("dpkg-query", "-W", "vemo")[0] == 0:
            self.skipTest("the package is installed already")

    def listing(self):
        return {path for part in ("/usr/bin", "/usr/lib/vemo", "/usr/share/vemo", "/usr/share/doc/vemo", "/usr/share/applications",
                                  "/usr/share/metainfo", "/usr/share/icons/hicolor", "/usr/share/man/man1", "/etc", "/var/lib/dpkg/info")
                for path in files_of(part) if "vemo" in path}

    def test_installs_starts_and_goes_without_a_trace(self):
        before = self.listing()
        package = packages()["vemo"]
        self.addCleanup(said, "dpkg", "--purge", "vemo")
        code, text = said("dpkg", "-i", package)
        self.assertEqual(code, 0, text)
        unittest.addModuleCleanup(desktop.Desktop().end)
        client = Client()
        self.addCleanup(client.__exit__)
        client.changes["VEMO_KEYRING"] = "off"
        client.program = "/usr/bin/vemo_client"
        window = Window(client)
        self.addCleanup(window.kill)
        self.assertEqual(os.path.realpath(f"/proc/{window.process.pid}/exe"), "/usr/bin/vemo_client")
        window.close()
        own = files_of(client.folder)
        self.assertTrue(own)
        code, text = said("dpkg", "--purge", "vemo")
        self.assertEqual(code, 0, text)
        self.assertEqual(self.listing() - before, set())
        self.assertEqual([path for path in own if not os.path.exists(path)], [], "removing took what is the user's own")


if __name__ == "__main__":
    systemlab.main()
