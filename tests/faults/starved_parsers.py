#!/usr/bin/env python3
"""The parsers of what devices send, with each of their allocations refused over every file of their corpora: none ends the process.
Blocks that Qt's own classes lose on the way are counted and not judged."""
import os
import re
import subprocess
import sys

import faultlab
import rows

CORPORA = {"vav_frame_FuzzPacketReader": "vav_frame/corpus",
           **{f"rtsp_Fuzz{name}": f"rtsp/fuzz/corpus/Fuzz{name}" for name in ("RtspReader", "Sdp", "Rtp", "Depacketizers", "AuthChallenge")},
           "fuzz_soap_answer": "onvif/corpus/soap", "fuzz_probe_matches": "onvif/corpus/discovery", "fuzz_http_answer": "onvif/corpus/http",
           "local_files_fuzzer": "platform/VCOMMON/corpus/local_files"}


def main():
    arguments = faultlab.parse(__doc__.splitlines()[0])
    tests = os.path.dirname(os.path.dirname(os.path.realpath(__file__)))
    refusals = failed = kept = 0
    for name, corpus in CORPORA.items():
        command = [os.path.join(os.path.realpath(arguments.build), "bin", name), "--starved", os.path.join(tests, corpus)]
        done = subprocess.run(command, capture_output=True, timeout=300)
        told = re.search(rb"(\d+) refusals, (\d+) kept", done.stdout)
        if done.returncode != 0 or not told:
            failed += 1
            print(f"FAILED {name}: exit {done.returncode}:", done.stderr.rstrip(b"\0\n").decode(errors="replace"))
            print("    repeat:", " ".join(command), flush=True)
        elif int(told[1]) == 0:
            return 77  # not in builds under a sanitizer
        else:
            refusals, kept = refusals + int(told[1]), kept + int(told[2])
    print(f"{kept} of {refusals} kept blocks of Qt's")
    return 1 if rows.tell("E12", "allocations fail, parsers", refusals, failed, "-") else 0


if __name__ == "__main__":
    sys.exit(main())
