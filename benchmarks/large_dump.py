"""Measures `vantry dump` on files of 3 GB that differ in their packets.

    large_dump.py VANTRY FOLDER

The files are made in FOLDER, mostly holes, and removed again. Memory is to
stay below 32 MB; time follows the number of packets, not the bytes.
"""

import os
import sys
from pathlib import Path

from process import measure

FILE_SIZE = 3 * 10**9
PICTURE_KEY = bytes.fromhex("060E2B34010201010D01030115010501")


def make(path, packets):
    value_size = FILE_SIZE // packets - 25
    head = PICTURE_KEY + b"\x88" + value_size.to_bytes(8, "big")
    with open(path, "wb") as out:
        for _ in range(packets):
            out.write(head)
            out.seek(value_size, os.SEEK_CUR)
        out.truncate()


def main(vantry, folder):
    print(f"{'vantry dump of 3 GB':>20} {'seconds':>9} {'us a packet':>12} {'MB':>6}  wanted")
    for packets in (75, 7_500, 75_000):
        path = Path(folder) / "large.mxf"
        make(path, packets)
        measure([vantry, "dump", path])
        seconds, megabytes, _ = measure([vantry, "dump", path])
        path.unlink()
        print(f"{packets:>12} packets {seconds:>9.3f} {1e6 * seconds / packets:>12.2f} {megabytes:>6.1f}  below 32 MB")


main(*sys.argv[1:])
