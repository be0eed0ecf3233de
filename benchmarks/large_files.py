"""Measures `vantry info`, `vantry unwrap` and `vantry wrap` on large files.

    large_files.py VANTRY FOLDER [MEGABYTES]

ffmpeg makes the files in FOLDER: one of MEGABYTES (3000 when not given) with
pictures in long GOPs and four sound tracks, and one of 200,000 small edit
units, fewer by as much as MEGABYTES are below 3000. What was unwrapped of the first
is wrapped again, beside copies of it into one file. FOLDER needs room for three
times MEGABYTES; all is removed at the end.

Times are the shortest of several runs, with the file in the page cache and
nothing left to be written to the disk. Since the speed of a disk comes and
goes, a job is measured in turns with copies of the same file. On a machine that
does other things too, processor time tells more than the time that passes.
"""

import shutil
import subprocess
import sys
import time
from pathlib import Path

from process import measure

FULL_SIZE = 3000
EDIT_UNITS = 200_000
ROUNDS = 7
BLOCK_SIZE = 1 << 20

CODING = "-c:v mpeg2video -g 12 -bf 2"
LARGE_PICTURES = f"-f lavfi -i testsrc2=s=1920x1080:r=25,noise=alls=20:allf=t {CODING} -pix_fmt yuv422p -q:v 4 -t 2.4"
SMALL_PICTURES = f"-f lavfi -i testsrc2=s=64x64:r=25 {CODING} -q:v 31 -t 40"
SOUND_TRACKS = 4


def ffmpeg(arguments, path):
    subprocess.run(["ffmpeg", "-nostdin", "-y", "-loglevel", "fatal", *arguments.split(), path], check=True)


def piece_of(path):
    return path.with_suffix(".ts")


def make(path, pictures, sound_tracks, until):
    """Codes a few seconds of pictures, and repeats them as they are."""
    piece = piece_of(path)
    ffmpeg(f"{pictures} -f mpegts", piece)
    sound = "-f lavfi -i sine=r=48000 " * sound_tracks
    maps = " ".join(f"-map {stream}" for stream in range(sound_tracks + 1))
    ffmpeg(f"-stream_loop -1 -i {piece} {sound} {maps} -c:v copy -c:a pcm_s16le {until} -f mxf", path)
    piece.unlink()


def copy_in_blocks(source, target):
    """Seconds that a plain copy takes."""
    block = memoryview(bytearray(BLOCK_SIZE))
    start = time.monotonic()
    with open(source, "rb", buffering=0) as file, open(target, "wb", buffering=0) as out:
        while size := file.readinto(block):
            out.write(block[:size])
    return time.monotonic() - start


def copy_into_one(sources, target):
    """Seconds that it takes to copy files one behind the other."""
    start = time.monotonic()
    with open(target, "wb") as out:
        subprocess.run(["cat", *sources], stdout=out, check=True)
    return time.monotonic() - start


class Bench:
    def __init__(self, vantry, folder):
        self.vantry = Path(vantry).absolute()
        self.file = Path(folder, "large.mxf")
        self.copy = Path(folder, "copy")
        self.essence = Path(folder, "essence")

    def remove(self):
        for path in (self.copy, self.file, piece_of(self.file)):
            path.unlink(missing_ok=True)
        shutil.rmtree(self.essence, ignore_errors=True)

    def settle(self):
        """Nothing is left of the run before, nor for the disk to do."""
        self.copy.unlink(missing_ok=True)
        shutil.rmtree(self.essence, ignore_errors=True)
        self.essence.mkdir()
        subprocess.run(["sync"], check=True)

    def info(self):
        """Seconds, and those of processor time."""
        runs = [measure([self.vantry, "info", self.file]) for _ in range(3 * ROUNDS)]
        return min(seconds for seconds, _, _ in runs), min(busy for _, _, busy in runs)

    def unwrap(self):
        """Seconds, megabytes, and seconds of a copy."""
        copies, unwraps, megabytes = [], [], []
        for _ in range(ROUNDS):
            self.settle()
            copies.append(measure(["cp", self.file, self.copy])[0])
            self.settle()
            copies.append(copy_in_blocks(self.file, self.copy))
            self.settle()
            seconds, memory, _ = measure([self.vantry, "unwrap", "--quiet", self.file, "-o", self.essence])
            unwraps.append(seconds)
            megabytes.append(memory)
        return min(unwraps), max(megabytes), min(copies)

    def wrap(self, pattern, *options):
        """The same of wrapping the essence that matches."""
        inputs = sorted(self.essence.glob(pattern))
        copies, wraps, megabytes = [], [], []
        for _ in range(ROUNDS):
            self.copy.unlink(missing_ok=True)
            subprocess.run(["sync"], check=True)
            copies.append(copy_into_one(inputs, self.copy))
            self.copy.unlink(missing_ok=True)
            subprocess.run(["sync"], check=True)
            seconds, memory, _ = measure([self.vantry, "wrap", "--quiet", *options, *inputs, "-o", self.copy])
            wraps.append(seconds)
            megabytes.append(memory)
        return min(wraps), max(megabytes), min(copies)


def row(name, measured, form, limit=None):
    line = f"{name:>32}  {form.format(measured):<12}"
    if limit is not None:
        line += f"  at most {form.format(limit):<12}" + ("" if measured <= limit else "  missed")
    print(line.rstrip(), flush=True)


def report_times(job, measured, limit):
    seconds, megabytes, copy = measured
    row(job, seconds / copy, "{:.2f} copies", limit)
    row("memory", megabytes, "{:.1f} MB", 64)


def report(bench, name):
    seconds, busy = bench.info()
    row(f"info, {name}", 1000 * seconds, "{:.1f} ms", 10)
    row("processor time", 1000 * busy, "{:.1f} ms")
    report_times(f"unwrap, {name}", bench.unwrap(), 1.15)


def main(vantry, folder, megabytes=FULL_SIZE):
    share = min(1, int(megabytes) / FULL_SIZE)
    edit_units = int(share * EDIT_UNITS)
    bench = Bench(vantry, folder)
    try:
        make(bench.file, LARGE_PICTURES, SOUND_TRACKS, f"-fs {megabytes}M")
        report(bench, f"{megabytes} MB")
        report_times("wrap, pictures and sound", bench.wrap("*"), 1.3)
        report_times("wrap, a clip of sound", bench.wrap("*_3.wav", "--wrapping", "clip"), 1.1)
        make(bench.file, SMALL_PICTURES, 0, f"-frames:v {edit_units}")
        report(bench, f"{edit_units} edit units")
    finally:
        bench.remove()


main(*sys.argv[1:])
