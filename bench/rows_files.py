"""F7 and F11: cutting, copying and the thumbnails of files on this computer."""
import os
import statistics
from datetime import timedelta

from lab import BEGIN, GIB, Failed, Run, iso, size

CUT_GIB = 2.0
CUT_INSET = timedelta(seconds=7)


def cut(lab, report):
    span = lab.span_for(1, CUT_GIB * lab.options.scale)
    source = lab.out("cut-source.mp4")
    Run(lab.ours([1], BEGIN, BEGIN + span, source)).good()
    first, last = BEGIN + CUT_INSET, BEGIN + span - CUT_INSET

    def of(command, name):
        def run():
            out = lab.out(name)
            seconds = Run(command(out)).good().wall
            if not size(out):
                raise Failed("the cut brought nothing")
            lab.out(name)
            return seconds
        return run

    figures = lab.turns({
        "ours": of(lambda out: [lab.program("vaws_cut_bench"), source, iso(BEGIN), iso(BEGIN + span), iso(first), iso(last), out], "cut-ours.mp4"),
        "P1": of(lambda out: ["ffmpeg", "-nostdin", "-v", "error", "-y", "-ss", str(CUT_INSET.seconds), "-to",
                              str((span - CUT_INSET).total_seconds()), "-i", source, "-c", "copy", out], "cut-P1.mp4")}, warm=1)
    report.add("F7/cut", figures.pop("ours"), figures, note=f"{size(source) / GIB:.1f} GiB")
    lab.out("cut-source.mp4")


def copies(lab, report):
    """F7's copies; the program takes its turns with `cp` by itself."""
    mib = int(4096 * lab.options.scale)
    rates = Run([lab.program("copy_bench"), "--folder", lab.dir, "--mib", str(mib), "--runs", str(lab.runs), "--stops", "0"]).answer()
    note = f"{mib:,} MiB"
    report.add("F7/copy", rates["ours"], {name: rates[name] for name in ("cp", "cp, sync -d")}, note=note)
    report.add("F7/verified", rates["ours, verified"], {"cp, sha256sum": rates["cp, sha256sum"]}, note=note)


def thumbnails(lab, report):
    """F11. Each cold run finds an empty cache, and the cached one behind it the cache that it left."""
    pictures = max(50, int(1000 * lab.options.scale))
    bench, folder = lab.program("thumbnail_bench"), os.path.join(lab.dir, "pictures")
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "XDG_CACHE_HOME": os.path.join(lab.dir, "cache")}
    Run([bench, "make", folder, str(pictures)], env=environment).good()
    cached, ahead = [], []

    def run(verb):
        return Run([bench, verb, folder], env=environment).answer()

    def ours():
        lab.folder("cache")
        seconds = run("decode")["seconds"]
        cached.append(run("decode")["seconds"])
        lab.folder("cache")
        ahead.append(run("visible")["ahead_a_thread"])
        return seconds

    figures = lab.turns({"ours": ours, "ffmpeg": lambda: run("ffmpeg")["seconds"]})
    for name in ("cache", "pictures"):
        lab.out(name)
    note = "" if pictures == 1000 else f"{pictures} of them"
    report.add("F11/cold", figures["ours"], {"ffmpeg": figures["ffmpeg"]}, note=note)
    report.add("F11/cached", cached, {"ffmpeg": figures["ffmpeg"], "ours, cold": figures["ours"]}, note=f"{statistics.median(cached) / pictures * 1000:.1f} ms a picture")
    report.add("F11/visible", ahead)
