"""Runs programs and measures them."""

import os
import subprocess
import sys
import time


def measure(arguments, output=subprocess.DEVNULL):
    """What a program takes, which must succeed: seconds, megabytes of memory,
    and seconds of processor time."""
    start = time.monotonic()
    process = subprocess.Popen(arguments, stdout=output)
    _, status, usage = os.wait4(process.pid, 0)
    seconds = time.monotonic() - start
    if status != 0:
        sys.exit(f"{' '.join(map(str, arguments))} ended with status {os.waitstatus_to_exitcode(status)}")
    return seconds, usage.ru_maxrss / 1024, usage.ru_utime + usage.ru_stime
