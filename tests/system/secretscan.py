"""Finds a password wherever a program left it, in every spelling in which it may stand there."""
import base64
import hashlib
import html
import json
import os
import re
import urllib.parse

REALM = "recorder"  # of the simulated recorder
SHORTEST = 6  # a core of base64 that is shorter stands in any large file


def base64_cores(data):
    """What base64 makes of the bytes inside a longer text, for each of the three places at which they may begin."""
    for before in range(3):
        encoded = base64.b64encode(bytes(before) + data).rstrip(b"=")
        yield encoded[before + 1 if before else 0:len(encoded) - (1 if (before + len(data)) % 3 else 0)]


def lower_digits(percent):
    return re.sub(r"%[0-9A-F]{2}", lambda match: match.group().lower(), percent)


def forms(secret, user):
    """{name: [bytes]}: the spellings. What stands for the password in a login by digest counts as the password."""
    plain = secret.encode()
    wide = {name: secret.encode(name) for name in ("utf-16-le", "utf-16-be")}
    percent = {urllib.parse.quote(secret, safe=safe) for safe in ("", "/", "~()*!.'", "/?:@!$&'()*+,;=")} | {urllib.parse.quote_plus(secret)}
    percent |= {"".join(f"%{byte:02X}" for byte in plain)}
    cores = [core for data in (plain, *wide.values()) for core in base64_cores(data)]
    logins = [hashlib.new(name, f"{user}:{REALM}:{secret}".encode()) for name in ("md5", "sha256")]
    found = {
        "plain": [plain, secret.encode("latin-1", "ignore"), *wide.values()],
        "percent": [form.encode() for text in percent for form in (text, lower_digits(text), text.replace("%", "%25"))],
        "base64": [form for core in cores for form in (core, core.replace(b"+", b"-").replace(b"/", b"_"))],
        "hex": [form.encode() for data in (plain, *wide.values()) for form in (data.hex(), data.hex().upper(), data.hex(" "), data.hex(" ").upper())],
        "escaped": [text.encode() for text in (json.dumps(secret)[1:-1], json.dumps(secret, ensure_ascii=False)[1:-1], html.escape(secret),
                                               html.escape(secret, quote=False), secret.replace("'", "''"),
                                               secret.encode("unicode_escape").decode().replace('"', '\\"'))],
        "login": [form for login in logins for form in (login.hexdigest().encode(), base64.b64encode(login.digest()), login.digest())],
    }
    return {name: sorted({form for form in each if len(form) >= SHORTEST}) for name, each in found.items()}


def hits(data, known):
    """The names of the spellings that stand in the bytes, or in the text."""
    if isinstance(data, str):
        data = data.encode(errors="replace")
    return [name for name, each in known.items() if any(form in data for form in each)]


def files(folder, known, skip=()):
    """(path, spelling) for every hit in the plain files of a folder, and in their names."""
    found = []
    for place, _, names in os.walk(folder):
        for name in names:
            path = os.path.join(place, name)
            if not name.endswith(skip or "/") and os.path.isfile(path):
                with open(path, "rb") as file:
                    found += [(path, form) for form in hits(os.fsencode(name) + b"\n" + file.read(), known)]
    return found
