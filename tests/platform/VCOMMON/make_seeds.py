#!/usr/bin/env python3
"""Writes the seed corpus of local files beside itself with ffmpeg; it is kept in the tree."""
import os
import subprocess

folder = os.path.join(os.path.dirname(os.path.abspath(__file__)), "corpus", "local_files")
os.makedirs(folder, exist_ok=True)
VIDEO = ["-f", "lavfi", "-i", "testsrc=size=64x48:rate=5:duration=1"]
for name, options in {
    "plain.mp4": ["-c:v", "libx264", "-metadata", "creation_time=2026-01-10T08:00:00Z"],
    "fragmented.mp4": ["-c:v", "libx264", "-g", "2", "-movflags", "frag_keyframe+empty_moov"],
    "faststart.mp4": ["-c:v", "libx264", "-movflags", "faststart"],
    "picture.jpg": ["-frames:v", "1"],
    "picture.png": ["-frames:v", "1"],
    "picture.bmp": ["-frames:v", "1"],
}.items():
    subprocess.run(["ffmpeg", "-y", "-v", "error", *VIDEO, *options, os.path.join(folder, name)], check=True)
with open(os.path.join(folder, "plain.mp4"), "rb") as whole, open(os.path.join(folder, "cut.mp4"), "wb") as cut:
    cut.write(whole.read()[:-100])
