#!/usr/bin/env python3
"""Writes the seed corpus beside itself; it is kept in the tree."""
import os
import struct

folder = os.path.join(os.path.dirname(os.path.abspath(__file__)), "corpus")
os.makedirs(folder, exist_ok=True)


def packet(kind, payload, track=0, flags=0):
    return struct.pack("<4sBBBBIIqqII", b"VAVF", 1, kind, track, flags, len(payload), 40000, 1700000000 * 10**9, 0, 0, 0) + payload


def track(number, codec, rate, sets):
    return struct.pack("<BBIHHHI", number, codec, rate, 640, 360, 1, 64000) + struct.pack("<I", len(sets)) + sets


def text(value):
    return struct.pack("<H", len(value)) + value


info = struct.pack("<qq", 1700000000 * 10**9, 0) + text(b"channel") + text(b"recorder") + bytes([2])
info += track(0, 1, 90000, b"\0\0\0\2\x67\x42") + track(1, 16, 48000, b"\x11\x90")
for name, data in {
    "info_and_frames": packet(1, info) + packet(2, b"\0\0\0\2\x65\x88", flags=1) + packet(2, b"aac", track=1),
    "unknown_kind": packet(9, b"later") + packet(2, b""),
    "torn": packet(2, b"payload")[:-3],
}.items():
    with open(os.path.join(folder, name), "wb") as file:
        file.write(data)
