#!/usr/bin/env python3
"""Writes the seed corpora beside itself. They are kept in the tree; run it again after a change of the input forms."""
import os
import struct

here = os.path.dirname(os.path.abspath(__file__))


def seed(target, name, data):
    folder = os.path.join(here, "corpus", target)
    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, name), "wb") as file:
        file.write(data)


def cut(piece, data):
    return struct.pack("<H", piece) + data


def item(first, data):
    return bytes([first]) + struct.pack("<H", len(data)) + data


SPS = bytes.fromhex("6742c01ed900a02ff97011000003000100000300320f162e48")
PPS = bytes.fromhex("68cb83cb20")
HEVC = [bytes.fromhex(h) for h in (
    "40010c01ffff01600000030090000003000003005d959809",
    "42010101600000030090000003000003005da00280802d165959a4932bc05a020000030002000003003210", "4401c172b46240")]

answer = (b"RTSP/1.0 200 OK\r\nCSeq: 1\r\nSession: ab;timeout=30\r\nRange: clock=20240131T235959.123Z-20240201T000000Z\r\n"
          b"Transport: RTP/AVP/TCP;unicast;interleaved=0-1\r\nRTP-Info: url=rtsp://h/1;seq=1;rtptime=90000\r\n\r\n")
seed("FuzzRtspReader", "answer", cut(65535, answer))
seed("FuzzRtspReader", "body", cut(3, b"RTSP/1.0 200 OK\r\nContent-Length: 5\r\n\r\nv=0\r\n"))
seed("FuzzRtspReader", "packets", cut(7, b"$\x00\x00\x04abcd$\x01\x00\x00" + answer))
seed("FuzzRtspReader", "folded", cut(0, b"RTSP/1.0 401 No\nWWW-Authenticate: Digest realm=\"a\",\n nonce=\"b\"\n\n"))
seed("FuzzRtspReader", "request", cut(9, b"ANNOUNCE rtsp://h/s RTSP/1.0\r\nCSeq: 7\r\n\r\n"))

seed("FuzzSdp", "h264_aac", b"v=0\r\na=control:*\r\nm=video 0 RTP/AVP 96\r\na=rtpmap:96 H264/90000\r\na=fmtp:96 packetization-mode=1;"
     b"sprop-parameter-sets=Z0LAHtkAoC/5cBEAAAMAAQAAAwAyDxYuSA==,aMuDyyA=\r\na=control:t1\r\nm=audio 0 RTP/AVP 97\r\n"
     b"a=rtpmap:97 MPEG4-GENERIC/48000/2\r\na=fmtp:97 mode=AAC-hbr;config=1190;sizelength=13;indexlength=3;indexdeltalength=3\r\n")
seed("FuzzSdp", "h265_g711", b"v=0\nm=video 0 RTP/AVP 98\na=rtpmap:98 H265/90000\na=fmtp:98 sprop-vps=QAEMAf//AWAAAAMAkAAAAwAAAwBdlZgJ;"
     b"sprop-sps=QgEBAWAAAAMAkAAAAwAAAwBdoAKAgC0WWVmkkyvAWgIAAAMAAgAAAwAyEA==;sprop-pps=RAHBcrRiQA==\nm=audio 0 RTP/AVP 8\n")
seed("FuzzSdp", "jpeg", b"v=0\nm=video 0 RTP/AVP 26\nm=audio 0 RTP/AVP 99\na=rtpmap:99 G726-32/8000\na=sendonly\n")


def rtp(sequence, timestamp, payload, ntp=None, first=0x80, second=0x60, flags=0):
    head = struct.pack(">BBHII", first | (0x10 if ntp else 0), second, sequence, timestamp, 1)
    if ntp:
        head += struct.pack(">HHQBBH", 0xABAC, 3, ntp, flags, 0, 0)
    return head + payload


ntp = (1700000000 + 2208988800) << 32
report = struct.pack(">BBHIQIII", 0x80, 200, 6, 1, ntp, 90000, 0, 0)
seed("FuzzRtp", "plain", item(0, rtp(1, 3600, b"abc")) + item(0, rtp(2, 7200, b"abc")))
seed("FuzzRtp", "extension", item(0, rtp(1, 3600, b"abc", ntp, flags=0xF0)) + item(0, rtp(2, 0x80000000, b"", ntp + (1 << 40))))
seed("FuzzRtp", "padding", item(0x80, rtp(1, 3600, b"abc\0\0\3", first=0xA0)) + item(0, rtp(2, 3600, b"x" * 60, first=0x8F)))
seed("FuzzRtp", "report", item(1, report) + item(0, rtp(1, 3600, b"abc")) + item(3, report + b"\x81\xcb\0\1\0\0\0\1") + item(0x7F, b""))


def fu(indicator, header, body):
    return bytes([indicator, header]) + body


def stap(first, nals):
    return first + b"".join(struct.pack(">H", len(n)) + n for n in nals)


IDR = b"\x65\x88" + bytes(range(64))
SLICE = b"\x41\x9a" + bytes(range(40))
seed("FuzzDepacketizers", "h264", b"\x40" + item(8, stap(b"\x78", [SPS, PPS, b"\x06\x06\x01\xc4\x80"])) + item(0, fu(0x7C, 0x85, IDR)) +
     item(1, fu(0x7C, 0x45, IDR)) + item(5, SLICE) + item(0x14, b"\xd5" * 40) + item(7, SLICE) + item(0xE5, SLICE))
seed("FuzzDepacketizers", "h264_own_time", b"\x00" + item(9, SPS) + item(5, PPS) + item(5, IDR) + item(5, IDR[:30]) + item(1, SLICE))
seed("FuzzDepacketizers", "h265", b"\x01" + item(8, stap(b"\x60\x01", HEVC)) + item(0, b"\x62\x01\x93" + bytes(range(50))) +
     item(1, b"\x62\x01\x53" + bytes(range(50))) + item(5, b"\x02\x01\x80" + bytes(30)))
jpeg = bytes([0, 0, 0, 0, 1, 255, 40, 30])
seed("FuzzDepacketizers", "jpeg", b"\x02" + item(8, jpeg + b"\0\0\0\x80" + bytes(range(1, 129)) + b"scan") +
     item(1, bytes([0, 0, 0, 4, 1, 255, 40, 30]) + b"rest") + item(5, bytes([0, 0, 0, 0, 65, 50, 40, 30, 0, 4, 255, 255]) + b"scan"))
seed("FuzzDepacketizers", "aac", b"\x03" + item(1, struct.pack(">HHH", 32, 3 << 3, 2 << 3) + b"abcde") +
     item(4, struct.pack(">HH", 16, 6 << 3) + b"abcd") + item(1, struct.pack(">HH", 16, 6 << 3) + b"ef"))
seed("FuzzDepacketizers", "aac_short", b"\x04" + item(1, struct.pack(">H", 9) + b"\xff\xff" + b"abcde"))
seed("FuzzDepacketizers", "g711", b"\x05" + item(9, b"\xd5" * 160) + item(6, b"\xd5" * 160))
seed("FuzzDepacketizers", "g726", b"\x06" + item(9, b"\x55" * 60))

seed("FuzzAuthChallenge", "md5", b'Digest realm="a", nonce="b", qop="auth,auth-int", opaque="c"\nDigest realm="a", nonce="d", stale=true')
seed("FuzzAuthChallenge", "many", b'Basic realm="x", Digest realm="a\\"b", nonce=1, algorithm=SHA-256-sess, userhash=true, Negotiate abc==')
seed("FuzzAuthChallenge", "torn", b'Digest realm="a, nonce\n,,=,Digest nonce="" algorithm=MD5-sess qop=auth')
