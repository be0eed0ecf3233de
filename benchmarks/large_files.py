"""Measures `vantry info`, `vantry unwrap` and `vantry wrap` on large files.

    large_files.py VANTRY FOLDER [MEGABYTES]

ffmpeg makes the files in FOLDER: one of MEGABYTES (3000 when not given) with
pictures in long GOPs and four sound tracks, and one of 200,000 small edit
units, fewer by as much as MEGABYTES are below 3000. What was unwrapped of the first
is wrapped again, and so are a wave file of MEGABYTES, a wave file of a second,
and a folder of JPEG 2000 codestreams of a third of MEGABYTES. FOLDER needs room
for three times MEGABYTES; all is removed at the end.

Times are the shortest of several runs, with the files in the page cache and
nothing left to be written to the disk. A job is measured against the faster of
two copies of its inputs into one file, that of cp or cat and a plain one in
blocks. Since the speed of a disk comes and goes, and what ran before leaves its
traces, all three take turns in going first. On a machine that does other
things too, processor time tells more than the time that passes.
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
CODESTREAMS = "-f lavfi -i testsrc2=s=1920x1080:r=25,noise=alls=20:allf=t -c:v jpeg2000 -format j2k -q:v 10 -t 0.4"
SOUND = "-f lavfi -i anoisesrc=r=48000:d=10:c=pink -ac 8 -c:a pcm_s24le"
SOUND_TRACKS = 4


def ffmpeg(arguments, path):
    subprocess.run(["ffmpeg", "-nostdin", "-y", "-loglevel", "fatal", *arguments.split(), path], check=True)


def piece_of(path, suffix):
    return path.with_name("piece" + suffix)


def make(path, pictures, sound_tracks, until):
    """Codes a few seconds of pictures, and repeats them as they are."""
    piece = piece_of(path, ".ts")
    ffmpeg(f"{pictures} -f mpegts", piece)
    sound = "-f lavfi -i sine=r=48000 " * sound_tracks
    maps = " ".join(f"-map {stream}" for stream in range(sound_tracks + 1))
    ffmpeg(f"-stream_loop -1 -i {piece} {sound} {maps} -c:v copy -c:a pcm_s16le {until} -f mxf", path)
    piece.unlink()


def make_wave(path, until):
    """Repeats a few seconds of sound."""
    piece = piece_of(path, ".wav")
    ffmpeg(SOUND, piece)
    ffmpeg(f"-stream_loop -1 -i {piece} -c copy {until}", path)
    piece.unlink()


def make_codestreams(folder, megabytes):
    """Codes a few pictures, and repeats them as they are."""
    folder.mkdir()
    ffmpeg(f"{CODESTREAMS} -start_number 0", folder / "%08d.j2c")
    pictures = sorted(folder.iterdir())
    size = sum(picture.stat().st_size for picture in pictures)
    for number in range(len(pictures), len(pictures) * megabytes * 1_000_000 // size):
        shutil.copy(pictures[number % len(pictures)], folder / f"{number:08}.j2c")


def copy_by_program(sources, target):
    """What it takes to copy files one behind the other."""
    if len(sources) == 1:
        return measure(["cp", *sources, target])
    with open(target, "wb") as out:
        return measure(["cat", *sources], out)


def copy_in_blocks(sources, target):
    """The same of a plain loop."""
    block = memoryview(bytearray(BLOCK_SIZE))
    start, busy = time.monotonic(), time.process_time()
    with open(target, "wb", buffering=0) as out:
        for source in sources:
            with open(source, "rb", buffering=0) as file:
                while size := file.readinto(block):
                    out.write(block[:size])
    return time.monotonic() - start, 0, time.process_time() - busy


class Bench:
    def __init__(self, vantry, folder):
        self.vantry = Path(vantry).absolute()
        self.file = Path(folder, "large.mxf")
        self.wave = Path(folder, "large.wav")
        self.codestreams = Path(folder, "codestreams")
        self.essence = Path(folder, "essence")
        self.results = Path(folder, "results")

    def remove(self):
        for path in (self.file, piece_of(self.file, ".ts"), self.wave, piece_of(self.wave, ".wav")):
            path.unlink(missing_ok=True)
        for folder in (self.codestreams, self.essence, self.results):
            shutil.rmtree(folder, ignore_errors=True)

    def settle(self):
        """Nothing is left of the run before, nor for the disk to do."""
        shutil.rmtree(self.results, ignore_errors=True)
        self.results.mkdir()
        subprocess.run(["sync"], check=True)

    def info(self):
        """Seconds, and those of processor time."""
        runs = [measure([self.vantry, "info", self.file]) for _ in range(3 * ROUNDS)]
        return min(seconds for seconds, _, _ in runs), min(busy for _, _, busy in runs)

    def against_copies(self, job, inputs):
        """Time that passes and processor time of a job, both in those of a
        copy, and its megabytes."""
        copy = self.results / "copy"
        turns = [lambda: copy_by_program(inputs, copy), lambda: measure(job), lambda: copy_in_blocks(inputs, copy)]
        taken = [[] for _ in turns]
        for first in range(ROUNDS):
            for turn in range(first, first + len(turns)):
                self.settle()
                taken[turn % len(turns)].append(turns[turn % len(turns)]())
        by_program, runs, in_blocks = taken
        seconds, _, busy = (min(column) for column in zip(*runs))
        copy_seconds, _, copy_busy = (min(column) for column in zip(*by_program, *in_blocks))
        return seconds / copy_seconds, busy / copy_busy, max(megabytes for _, megabytes, _ in runs)

    def unwrap(self):
        job = [self.vantry, "unwrap", "--quiet", self.file, "-o", self.results]
        return self.against_copies(job, [self.file])

    def wrap_command(self, *inputs):
        return [self.vantry, "wrap", "--quiet", *inputs, "-o", self.results / "wrapped.mxf"]

    def wrap_essence(self):
        """Wraps the tracks of the file."""
        measure([self.vantry, "unwrap", "--quiet", self.file, "-o", self.essence])
        inputs = sorted(self.essence.iterdir())
        return self.against_copies(self.wrap_command(*inputs), inputs)

    def wrap_clip(self):
        return self.against_copies(self.wrap_command("--wrapping", "clip", self.wave), [self.wave])

    def wrap_codestreams(self):
        return self.against_copies(self.wrap_command(self.codestreams), sorted(self.codestreams.iterdir()))

    def wrap_second(self):
        """Seconds that it takes to wrap hardly anything."""
        runs = []
        for _ in range(3 * ROUNDS):
            self.settle()
            runs.append(measure(self.wrap_command("--wrapping", "clip", self.wave))[0])
        return min(runs)


def row(name, measured, form, limit=None):
    line = f"{name:>32}  {form.format(measured):<12}"
    if limit is not None:
        line += f"  at most {form.format(limit):<12}" + ("" if measured <= limit else "  missed")
    print(line.rstrip(), flush=True)


def report_times(job, measured, limit):
    copies, busy, megabytes = measured
    row(job, copies, "{:.2f} copies", limit)
    row("processor time", busy, "{:.2f} copies")
    row("memory", megabytes, "{:.1f} MB", 64)


def report(bench, name):
    seconds, busy = bench.info()
    row(f"info, {name}", 1000 * seconds, "{:.1f} ms", 10)
    row("processor time", 1000 * busy, "{:.1f} ms")
    report_times(f"unwrap, {name}", bench.unwrap(), 1.15)


def main(vantry, folder, megabytes=FULL_SIZE):
    megabytes = int(megabytes)
    edit_units = int(min(1, megabytes / FULL_SIZE) * EDIT_UNITS)
    bench = Bench(vantry, folder)
    try:
        make(bench.file, LARGE_PICTURES, SOUND_TRACKS, f"-fs {megabytes}M")
        report(bench, f"{megabytes} MB")
        report_times("wrap, pictures and sound", bench.wrap_essence(), 1.3)
        bench.remove()
        make_wave(bench.wave, f"-fs {megabytes}M")
        report_times("wrap, a clip of sound", bench.wrap_clip(), 1.1)
        make_wave(bench.wave, "-t 1")
        row("wrap, a second of sound", 1000 * bench.wrap_second(), "{:.1f} ms")
        make_codestreams(bench.codestreams, max(1, megabytes // 3))
        report_times("wrap, JPEG 2000 pictures", bench.wrap_codestreams(), 1.2)
        make(bench.file, SMALL_PICTURES, 0, f"-frames:v {edit_units}")
        report(bench, f"{edit_units} edit units")
    finally:
        bench.remove()


main(*sys.argv[1:])
