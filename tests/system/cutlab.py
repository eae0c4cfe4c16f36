"""What the tests of broken connections share: a proxy in front of a recorder that cuts at a named boundary of what goes over the wire,
a queue that is worked off through it, and the demand that cut and resumed files together show each sample once."""
import contextlib
import dataclasses
import datetime
import os
import re
import socket
import threading
import time

import media
import systemlab
from systemlab import Client

SECOND = datetime.timedelta(seconds=1)
SUCCEEDED = 3
PACKET_HEADER, RTP_HEADER, EXTENSION = 4, 16, 16  # where each ends; an extension's length
CLEAN_POINT = 0x80
AUDIO_UNITS_AT_A_SEAM = 2
RESET = b"\x01\0\0\0\0\0\0\0"


@dataclasses.dataclass
class Cut:
    """Where a connection is cut, and how. `boundary` names a kind of place, `at` (0 to 1) which of these places, `within` (0 to 1) where
    in it; a boundary "answer to X" is of RTSP when X is in capitals, and of SOAP otherwise."""
    boundary: str
    kind: str
    at: float = 0.0
    within: float = 0.5
    done: bool = False
    cut_at: float = 0.0
    noticed_after: float = -1.0

    def __str__(self):
        return f"{self.kind}, {self.boundary}, place {self.at:.4f}, {self.within:.3f} into it"


@dataclasses.dataclass
class Tally:
    """How many places of each kind a connection had."""
    packets: int = 0
    reports: int = 0
    fragments: int = 0
    key_frames: int = 0


class Wire:
    """Takes what a recorder sends on an RTSP connection apart: finds the byte at which a cut falls."""

    def __init__(self, cut, expected):
        self.cut, self.expected = cut, expected
        self.buffer = b""
        self.tally = Tally()
        self.methods = {}
        self.left_at = 0.0  # when the client closed its side

    def asked(self, request):
        """Notes which method a sequence number belongs to."""
        for method, sequence in re.findall(rb"^([A-Z_]+) rtsp[^\r]*\r\nCSeq: (\d+)", request, re.M):
            self.methods[sequence] = method.decode()

    def feed(self, data):
        """(bytes to pass on, whether the cut falls behind them)."""
        self.buffer += data
        out = b""
        while (length := self.unit_length()) is not None:
            unit, self.buffer = self.buffer[:length], self.buffer[length:]
            limit = self.limit_in(unit)
            if limit is not None:
                return out + unit[:limit], True
            out += unit
        return out, False

    def unit_length(self):
        if self.buffer[:1] == b"$":
            if len(self.buffer) < PACKET_HEADER:
                return None
            length = PACKET_HEADER + int.from_bytes(self.buffer[2:4], "big")
        else:
            end = self.buffer.find(b"\r\n\r\n")
            if end < 0:
                return None
            body = re.search(rb"\r\nContent-Length: *(\d+)", self.buffer[:end + 2])
            length = end + 4 + (int(body.group(1)) if body else 0)
        return length if len(self.buffer) >= length else None

    def limit_in(self, unit):
        return self.limit_in_packet(unit) if unit[:1] == b"$" else self.limit_in_answer(unit)

    def limit_in_answer(self, unit):
        if not self.cut:
            return None
        sequence = re.search(rb"\r\nCSeq: *(\d+)", unit)
        method = self.methods.get(sequence.group(1), "") if sequence else ""
        head = unit.find(b"\r\n\r\n") + 4
        part, _, wanted = self.cut.boundary.rpartition(" to ")
        if wanted != method or b" 401 " in unit[:20]:
            return None  # that one asks for the login; the cut is in the one that counts
        return {"head of answer": 1 + int(self.cut.within * (head - 2)), "behind answer": len(unit),
                "body of answer": head + int(self.cut.within * (len(unit) - head))}.get(part)

    def limit_in_packet(self, unit):
        tally, video = self.tally, unit[1] == 0
        if 200 <= unit[5] <= 204:
            tally.reports += 1
            return self.inside("control packet", tally.reports, self.expected.reports, unit)
        tally.packets += 1
        payload = RTP_HEADER + (EXTENSION if unit[PACKET_HEADER] & 0x10 else 0)
        found = []
        if video and payload > RTP_HEADER and unit[RTP_HEADER:RTP_HEADER + 2] == b"\xab\xac" and unit[RTP_HEADER + 12] & CLEAN_POINT:
            tally.key_frames += 1
            found.append(self.inside("in front of a key frame", tally.key_frames, self.expected.key_frames, b""))
        if video and self.is_middle_of_unit(unit[payload:payload + 3]):
            tally.fragments += 1
            found.append(self.inside("inside a fragmented unit", tally.fragments, self.expected.fragments, unit))
        spans = {"between packets": (0, 0), "interleaved header": (1, PACKET_HEADER), "RTP header": (PACKET_HEADER, RTP_HEADER),
                 "header extension": (RTP_HEADER, payload), "payload": (payload, len(unit))}
        for boundary, (first, last) in spans.items():
            limit = self.inside(boundary, tally.packets, self.expected.packets, unit[first:max(first, last - 1)])
            found.append(limit if limit is None else first + limit)
        return next((limit for limit in found if limit is not None), None)

    @staticmethod
    def is_middle_of_unit(payload):
        """A fragment of H.264 (RFC 6184 clause 5.8) or H.265 (RFC 7798 clause 4.4.3) that is neither the first nor the last."""
        return len(payload) == 3 and (payload[0] & 0x1F == 28 and not payload[1] & 0xC0 or
                                      payload[0] >> 1 & 0x3F == 49 and not payload[2] & 0xC0)

    def place(self, count):
        return 1 + int(self.cut.at * max(0, count - 1))

    def inside(self, boundary, number, count, span):
        """Where in the span the cut falls, when it falls there: at the place `number` of `count` of its kind."""
        if not self.cut or self.cut.boundary != boundary or number != self.place(count):
            return None
        return int(self.cut.within * len(span))


class BoundaryProxy:
    """Stands in front of a recorder's ONVIF and RTSP; the recorder's own answers lead RTSP here. `cuts` tells the next cut of each
    channel's RTSP connection; each happens once. `tallies` counts what the last connection of a channel that was not cut had."""

    def __init__(self, recorder):
        self.ports = {name: int(re.search(r":(\d+)", recorder.addresses[name].split("//")[1]).group(1)) for name in ("onvif", "rtsp")}
        self.cuts, self.tallies, self.expected = {}, {}, {}
        self.soap_cut = None
        self.open = set()
        self.listeners = {name: socket.create_server(("127.0.0.1", 0), backlog=128) for name in self.ports}
        for name in self.listeners:
            threading.Thread(target=self.accept, args=(name,), daemon=True).start()

    def port(self, name):
        return self.listeners[name].getsockname()[1]

    @property
    def device(self):
        return f"http://127.0.0.1:{self.port('onvif')}/onvif/device_service"

    def accept(self, name):
        serve = self.serve_rtsp if name == "rtsp" else self.serve_soap
        with contextlib.suppress(OSError):
            while True:
                near, _ = self.listeners[name].accept()
                threading.Thread(target=self.serve, args=(serve, near, self.ports[name]), daemon=True).start()

    def serve(self, serve, near, port):
        far = None
        try:
            far = socket.create_connection(("127.0.0.1", port))
            self.open |= {near, far}
            serve(near, far)
        except OSError:
            pass
        finally:
            for each in filter(None, (near, far)):
                self.open.discard(each)
                each.close()

    def serve_rtsp(self, near, far):
        request = near.recv(65536)
        found = re.search(rb"/(?:replay|live)/(\d+)", request)
        channel = int(found.group(1)) if found else 0
        cut = self.cuts.get(channel)
        wire = Wire(None if not cut or cut.done else cut, self.expected.get(channel, Tally()))
        if not wire.cut:
            self.tallies[channel] = wire.tally
        wire.asked(request)
        far.sendall(request)
        backward = threading.Thread(target=self.pass_requests, args=(near, far, wire), daemon=True)
        backward.start()
        while data := far.recv(262144):
            out, is_cut = wire.feed(data)
            near.sendall(out)
            if is_cut:
                self.end(near, far, wire.cut)
                break
        else:
            with contextlib.suppress(OSError):
                near.shutdown(socket.SHUT_WR)
        backward.join()
        if wire.cut and wire.cut.done:
            # A client that had all it asked for may have left just before.
            wire.cut.noticed_after = max(0.0, wire.left_at - wire.cut.cut_at)

    @staticmethod
    def pass_requests(near, far, wire):
        with contextlib.suppress(OSError):
            while data := near.recv(65536):
                wire.asked(data)
                if wire.cut and wire.cut.done:
                    continue
                far.sendall(data)
        wire.left_at = time.monotonic()
        with contextlib.suppress(OSError):
            far.shutdown(socket.SHUT_RDWR)

    @staticmethod
    def end(near, far, cut):
        cut.done = True
        cut.cut_at = time.monotonic()
        with contextlib.suppress(OSError):
            far.shutdown(socket.SHUT_RDWR)
            if cut.kind == "rst":
                near.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, RESET)
                near.shutdown(socket.SHUT_RD)
                near.close()
            elif cut.kind == "fin":
                near.shutdown(socket.SHUT_WR)

    def serve_soap(self, near, far):
        """Requests one by one; answers with the RTSP port of this proxy in place of the recorder's."""
        own = [f"127.0.0.1:{port}".encode() for port in (self.ports["rtsp"], self.port("rtsp"))]
        own += [f"127.0.0.1:{port}".encode() for port in (self.ports["onvif"], self.port("onvif"))]
        while request := self.message(near):
            far.sendall(request)
            answer = self.message(far)
            head, _, body = answer.partition(b"\r\n\r\n")
            body = body.replace(own[0], own[1]).replace(own[2], own[3])
            head = re.sub(rb"(?i)(content-length: *)\d+", lambda found: found.group(1) + str(len(body)).encode(), head)
            answer = head + b"\r\n\r\n" + body
            cut = self.soap_cut
            if cut and not cut.done and cut.boundary.rpartition(" to ")[2].encode() in request:
                near.sendall(answer[:int(cut.within * (len(answer) - 1))])
                self.end(near, far, cut)
                near.recv(1)
                cut.noticed_after = time.monotonic() - cut.cut_at
                return
            near.sendall(answer)

    @staticmethod
    def message(peer):
        data = b""
        while (end := data.find(b"\r\n\r\n")) < 0 and (more := peer.recv(65536)):
            data += more
        length = re.search(rb"(?i)\r\ncontent-length: *(\d+)", data[:end + 2])
        whole = end + 4 + (int(length.group(1)) if length else 0)
        while end >= 0 and len(data) < whole and (more := peer.recv(65536)):
            data += more
        return data if end >= 0 else b""

    def close(self):
        for listener in self.listeners.values():
            with contextlib.suppress(OSError):
                listener.shutdown(socket.SHUT_RDWR)
            listener.close()
        for each in list(self.open):
            with contextlib.suppress(OSError):
                each.shutdown(socket.SHUT_RDWR)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()


class Downloads:
    """One span of several channels in a queue of its own, worked off through a proxy."""

    def __init__(self, recorder):
        self.recorder = recorder
        self.proxy = BoundaryProxy(recorder)
        self.client = Client()
        self.runs = []

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.proxy.close()
        self.client.__exit__()

    def queue(self, *arguments, timeout=300):
        run = self.client.run("queue", *arguments, timeout=timeout)
        self.runs.append(run)
        return run

    def add(self, channels, begin, end):
        self.queue("add", "--device", self.proxy.device, "--user", systemlab.USER, "--channel", ",".join(map(str, channels)), "--begin",
                   systemlab.iso(begin), "--end", systemlab.iso(end))

    def pieces(self, channel):
        tasks = self.queue("list", "--json").lines if self.runs[-1].command[-2:] != ["list", "--json"] else self.runs[-1].lines
        return sorted((task for task in tasks if task["channel"] == channel), key=lambda task: task["begin"])


def check_pieces(pieces, sent, begin, end, optional=frozenset()):
    """What is wrong with the records of a span and their files, as a list of texts; `sent` is what an uninterrupted replay sends. Sound
    that was encoded anew is judged by its length; units of sound in `optional` may be there or not."""
    if any(task["state"] != SUCCEEDED for task in pieces) or not pieces:
        return [f"not finished: {pieces}"]
    joints = [begin, *(systemlab.parse_time(task["end"]) for task in pieces)]
    wrong = [f"the records do not join: {pieces}" for task, joint in zip(pieces, joints) if systemlab.parse_time(task["begin"]) != joint]
    if joints[-1] != end:
        wrong.append(f"the records end at {joints[-1]}: {pieces}")
    if len({task["path"] for task in pieces}) != len(pieces):
        wrong.append(f"two records share a file: {pieces}")
    try:
        shown = [media.shown_samples(task["path"]) for task in pieces]
    except media.NotReadable as error:
        return [*wrong, str(error)]
    for stream, track in enumerate(sorted(sent)):
        ordered = sorted(sample for sample in sent[track] if sample[1] not in optional)
        first, last = (sum(when < edge.timestamp() - 0.0005 for when, _ in ordered) for edge in (begin, end))
        inside = [md5 for _, md5 in ordered[first:last]]
        got = [[md5 for _, md5 in sorted(piece.get(stream, [])) if md5 not in optional] for piece in shown]
        if stream == 0:
            whole = sum(got, [])
            if whole != inside:
                wrong.append(f"pictures: {media.first_difference(whole, inside)}, pieces of {[len(part) for part in got]}")
        elif not set(sum(got, [])) & set(inside):
            wrong += [f"sound of {task['path']}: {seconds}" for task, piece in zip(pieces, shown)
                      if (seconds := media.shown_seconds(piece, stream)) and abs(seconds - media.shown_seconds(piece, 0)) > 0.2]
        else:
            wrong += check_sound(got, [md5 for _, md5 in ordered], first, last)
    return wrong


def check_sound(parts, sent, first, last):
    """An access unit of sound may lie across the edge of a span, and then in both files."""
    at = first
    for part in parts:
        found = next((at + step for step in range(-AUDIO_UNITS_AT_A_SEAM, AUDIO_UNITS_AT_A_SEAM + 1)
                      if at + step >= 0 and sent[at + step:at + step + len(part)] == part), None)
        if found is None:
            return [f"sound: {len(part)} units that do not go on at {at} of {len(sent)}"]
        at = found + len(part)
    return [] if abs(last - at) <= AUDIO_UNITS_AT_A_SEAM else [f"sound: ends at {at} instead of {last}"]


def media_files(folder):
    return [os.path.join(place, name) for place, _, names in os.walk(folder) for name in names if name.endswith(".mp4")]
