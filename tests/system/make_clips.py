#!/usr/bin/env python3
"""Starts the simulated recorder once, which makes its clips at first use."""
import sys

import systemlab
from systemlab import Recorder

if __name__ == "__main__":
    systemlab.parse()
    with Recorder("--channels", "4") as recorder:
        print(recorder.addresses)
    sys.exit(0)
