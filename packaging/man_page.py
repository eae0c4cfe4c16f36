#!/usr/bin/env python3
"""Makes the manual page out of what the program says of itself, so that the two can't differ.

    packaging/man_page.py PROGRAM OUTPUT
"""
import os
import re
import subprocess
import sys
import tempfile

VERB_LINE = re.compile(r"^  ([a-z-]+)  +(\S.*)$")
OPTION_LINE = re.compile(r"^  (-\S.*?)(?:  +(\S.*))?$")
FILES = (
    ("~/.config/vemo", "Settings, unless \\-\\-data names another folder."),
    ("~/.local/share/vemo", "Store, users and journals, likewise."),
    ("~/Videos/Vemo", "Downloads, recordings, snapshots and backups, unless the settings name other folders."),
)
ENVIRONMENT = (
    ("VEMO_DATA_DIR", "Folder for settings and data, as \\-\\-data."),
    ("VEMO_PASSWORD", "The recorder's password, where \\-\\-password\\-file is not given. It stands in no command line."),
    ("VEMO_KEYRING", "\\[lq]off\\[rq] leaves the desktop's keyring alone; passwords are kept in an encrypted file."),
    ("VEMO_SECRETS_PASSWORD", "The password of that file."),
)


def said(program, *arguments):
    """What the program prints, in English and with a home of its own."""
    with tempfile.TemporaryDirectory() as home:
        environment = {name: value for name, value in os.environ.items() if name not in ("LANGUAGE", "LC_ALL", "LC_MESSAGES")}
        environment.update(LANG="C.UTF-8", HOME=home, XDG_DATA_HOME=home, XDG_CONFIG_HOME=home, QT_QPA_PLATFORM="offscreen")
        return subprocess.run([program, *arguments], env=environment, capture_output=True, text=True, check=True, timeout=60).stdout


def roff(text):
    text = text.replace("\\", "\\e").replace("-", "\\-").replace("'", "\\(aq")
    return "\\&" + text if text.startswith(".") else text


def parts_of(help_text):
    """(description lines, [(option, text)])"""
    head, _, tail = help_text.partition("\nOptions:\n")
    description = head.splitlines()[1:]
    options = []
    for line in tail.partition("\nArguments:\n")[0].splitlines():
        match = OPTION_LINE.match(line)
        if match:
            options.append([match.group(1), match.group(2) or ""])
        elif options and line.strip():
            options[-1][1] = f"{options[-1][1]} {line.strip()}".strip()
    return description, options


def write_description(lines, out):
    """Paragraphs as they are; two columns become a list."""
    open_paragraph = False
    for line in lines:
        match = VERB_LINE.match(line)
        if match:
            out += [".TP", f".B {roff(match.group(1))}", roff(match.group(2))]
            open_paragraph = False
        elif line.startswith("  ") and line.strip():
            out.append(roff(line.strip()))
        elif not line.strip():
            open_paragraph = False
        else:
            if not open_paragraph:
                out.append(".PP")
            out.append(roff(line.strip()))
            open_paragraph = True


def write_options(options, out):
    for option, text in options:
        out += [".TP", f".B {roff(option)}", roff(text)]


def main():
    program, output = sys.argv[1:]
    version = said(program, "--version").split()[-1]
    description, options = parts_of(said(program, "--help"))
    verbs = [match.group(1) for match in map(VERB_LINE.match, description) if match]
    exit_codes = next(i for i, line in enumerate(description) if line.startswith("Exit codes:"))
    out = [f'.TH VEMO_CLIENT 1 "" "Vemo {version}" "User Commands"', ".SH NAME",
           "vemo_client \\- watch, download and back up recordings of network video recorders", ".SH SYNOPSIS",
           ".B vemo_client", "[\\fIoptions\\fR]"]
    for verb in verbs:
        out += [".br", f".B vemo_client {verb}", "[\\fIaction\\fR] [\\fIoptions\\fR]"]
    out.append(".SH DESCRIPTION")
    write_description(description[:exit_codes], out)
    out.append(".SH OPTIONS")
    write_options(options, out)
    for verb in verbs:
        verb_description, verb_options = parts_of(said(program, verb, "--help"))
        verb_exit = next((i for i, line in enumerate(verb_description) if line.startswith("Exit codes:")), len(verb_description))
        out.append(f".SH THE VERB {verb.upper()}")
        write_description(verb_description[:verb_exit], out)
        write_options(verb_options, out)
    out += [".SH EXIT STATUS", *(roff(line.strip()) for line in description[exit_codes:] if line.strip()), ".SH ENVIRONMENT"]
    for name, text in ENVIRONMENT:
        out += [".TP", f".B {name}", text]
    out.append(".SH FILES")
    for name, text in FILES:
        out += [".TP", f".I {name}", text]
    with open(output, "w", encoding="utf-8") as file:
        file.write("\n".join(out) + "\n")
    return 0


if __name__ == "__main__":
    sys.exit(main())
