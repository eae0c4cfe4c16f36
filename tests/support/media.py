"""What stock programs say of a media file: ffmpeg, ffprobe and GStreamer are the judges of what we write, never our own reader."""
import json
import os
import subprocess
import tempfile

TIMEOUT_S = 120


class NotReadable(Exception):
    """A judge could not read the file; the text is what it said."""


def run(command, timeout=TIMEOUT_S, **options):
    return subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True, errors="replace", timeout=timeout,
                          **options)


def samples(path):
    """The samples of a file as stock ffmpeg reads them: a list of MD5 sums a stream, in decode order."""
    return _without_times(timed_samples(path))


def timed_samples(path):
    """As samples(), with the presentation time in seconds from the file's begin before each sum."""
    done = run(["ffmpeg", "-v", "error", "-i", path, *_every_stream(0), "-"])
    if done.returncode != 0 or done.stderr.strip():
        raise NotReadable(f"ffmpeg on {path}: exit {done.returncode}: {done.stderr.strip()[:600]}")
    return _read_framemd5(done.stdout)


def samples_of_many(paths):
    """{path: samples(), or the NotReadable that it raises}, by one start of ffmpeg where it has nothing against any of the files."""
    with tempfile.TemporaryDirectory() as folder:
        outputs = [os.path.join(folder, f"{number}.txt") for number in range(len(paths))]
        command = ["ffmpeg", "-v", "error"]
        for path in paths:
            command += ["-i", path]
        for number, output in enumerate(outputs):
            command += [*_every_stream(number), output]
        done = run(command) if len(paths) > 1 else None
        if done and done.returncode == 0 and not done.stderr.strip():
            return {path: _without_times(_read_framemd5(_text_of(output))) for path, output in zip(paths, outputs)}
    answers = {}
    for path in paths:
        try:
            answers[path] = samples(path)
        except NotReadable as error:
            answers[path] = error
    return answers


def _every_stream(number):
    return [word for kind in "vas" for word in ("-map", f"{number}:{kind}?")] + ["-c", "copy", "-f", "framemd5"]


def _text_of(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def _without_times(streams):
    return {stream: [md5 for _, md5 in rows] for stream, rows in streams.items()}


def _read_framemd5(text):
    streams, bases = {}, {}
    texts = set()
    for line in text.splitlines():
        if line.startswith("#tb "):
            number, base = line[4:].split(":")
            numerator, denominator = base.split("/")
            bases[int(number)] = int(numerator) / int(denominator)
            streams[int(number)] = []
        elif line.startswith("#media_type ") and line.endswith(": subtitle"):
            texts.add(int(line.split()[1].rstrip(":")))
        elif line and not line.startswith("#"):
            fields = [field.strip() for field in line.split(",")]
            stream = int(fields[0])
            streams.setdefault(stream, []).append((int(fields[2]) * bases.get(stream, 1), fields[5]))
    # A text track keeps its number behind picture and sound where the sound is missing.
    return {max(stream, 2) if stream in texts else stream: found for stream, found in streams.items()}


def shown_samples(path):
    """The samples of a file that players show, a list of (presentation time in seconds, MD5) a stream, in decode order: what an edit
    list hides is left out."""
    done = run(["ffprobe", "-v", "error", "-show_entries", "packet=stream_index,pts_time,flags,data_hash", "-show_data_hash", "md5",
                "-of", "compact=p=0:nk=0", path])
    if done.returncode != 0 or done.stderr.strip():
        raise NotReadable(f"ffprobe on {path}: exit {done.returncode}: {done.stderr.strip()[:600]}")
    streams = {}
    for line in done.stdout.splitlines():
        fields = dict(field.split("=", 1) for field in line.split("|") if "=" in field)
        if "D" not in fields.get("flags", "D"):
            streams.setdefault(int(fields["stream_index"]), []).append((float(fields["pts_time"]), fields["data_hash"][4:]))
    return streams


def shown_seconds(shown, stream):
    """From the first to the last of shown_samples(), in seconds; 0 without any."""
    times = [when for when, _ in shown.get(stream, [])]
    return max(times) - min(times) if times else 0


def decode_errors(path):
    """What `ffmpeg -v error -i F -f null -` complains about; empty when the file decodes from end to end."""
    done = run(["ffmpeg", "-v", "error", "-i", path, "-f", "null", "-"])
    return done.stderr.strip() or ("" if done.returncode == 0 else f"exit {done.returncode}")


def probe(path, *options):
    done = run(["ffprobe", "-v", "error", "-show_format", "-show_streams", "-show_chapters", *options, "-of", "json", path])
    if done.returncode != 0:
        raise NotReadable(f"ffprobe on {path}: {done.stderr.strip()[:600]}")
    return json.loads(done.stdout)


def gstreamer_error(path, tracks):
    """What GStreamer's qtdemux says against the file, read to its end with `tracks` tracks ("video", "audio"); empty when it
    plays. No branch waits for another one: the sound of an unfinished file may end long before its pictures."""
    command = ["gst-launch-1.0", "-q", "filesrc", f"location={path}", "!", "qtdemux", "name=d"]
    for track in tracks:
        command += [f"d.{track}_0", "!", "queue", "max-size-buffers=0", "max-size-time=0", "max-size-bytes=0", "!", "fakesink",
                    "sync=false", "async=false"]
    try:
        done = run(command, timeout=20)
    except subprocess.TimeoutExpired:
        # Once in some hundred runs gst-launch stays behind an end of stream that all sinks have seen; a file that holds it up
        # does so every time.
        try:
            done = run(command, timeout=60)
        except subprocess.TimeoutExpired:
            return "it hangs"
    return "" if done.returncode == 0 else (done.stderr.strip() or f"exit {done.returncode}")[:600]


def top_level_boxes(path):
    """The types of an MP4 file's top-level boxes (ISO/IEC 14496-12 clause 4.2), without trailing `free`."""
    boxes = []
    size = os.path.getsize(path)
    with open(path, "rb") as file:
        at = 0
        while at + 8 <= size:
            file.seek(at)
            head = file.read(16)
            length = int.from_bytes(head[:4], "big")
            header = 8
            if length == 1:
                length = int.from_bytes(head[8:16], "big")
                header = 16
            elif length == 0:
                length = size - at
            if length < header or at + length > size:
                raise NotReadable(f"{path}: box {head[4:8]!r} at {at} has the length {length} in a file of {size}")
            boxes.append(head[4:8].decode("latin-1"))
            at += length
    if at != size:
        raise NotReadable(f"{path}: {size - at} bytes behind the last box")
    return boxes


def is_prefix(part, whole):
    return part == whole[:len(part)]


def first_difference(part, whole):
    for index, (left, right) in enumerate(zip(part, whole)):
        if left != right:
            return f"sample {index} differs"
    return f"{len(part)} samples where there are {len(whole)}"
