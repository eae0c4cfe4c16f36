"""What a program or library says of its hardening, as readelf reads it."""
import re
import subprocess


def is_elf(path):
    with open(path, "rb") as file:
        return file.read(4) == b"\x7fELF"


def readelf(path, *options):
    return subprocess.run(["readelf", "-W", *options, path], capture_output=True, text=True, check=True).stdout


def search_path(path):
    """RPATH and RUNPATH, one folder an entry."""
    found = re.findall(r"\((RPATH|RUNPATH)\).*\[(.*)\]", readelf(path, "-d"))
    return [folder for _, folders in found for folder in folders.split(":")]


def weaknesses(path):
    """What is missing of position independence, full RELRO, immediate binding, stack protection and a stack without code."""
    header, segments, dynamic = readelf(path, "-h"), readelf(path, "-l"), readelf(path, "-d")
    symbols = readelf(path, "--dyn-syms")
    is_program = "INTERP" in segments
    stack = re.search(r"GNU_STACK.*", segments)
    found = {
        "position independence": re.search(r"Type:\s+DYN", header) and (not is_program or re.search(r"FLAGS_1.*PIE", dynamic)),
        "RELRO": "GNU_RELRO" in segments,
        "immediate binding": "BIND_NOW" in dynamic or re.search(r"FLAGS_1.*NOW", dynamic),
        "stack protector": "__stack_chk_fail" in symbols,
        "stack without code": stack and " RWE " not in stack.group(),
    }
    return [name for name, holds in found.items() if not holds]


def fortified(path):
    """Calls of the C library that check the length of their target."""
    return re.findall(r"UND (\w+_chk)@", readelf(path, "--dyn-syms"))
