#!/usr/bin/env python3
"""Measures the archive libraries beside zip, unzip, 7z and bsdtar: bench_archive.py BUILD/bench/archive/bench_Archive
[--folder FOLDER] [--runs N] [--parts mixed adding sparse many encrypted]

Archived and extracted is a folder of 22,434 mixed files, 498 MB: copies of the system's own, or FOLDER. One file is
added to an archive of 500 MB, a sparse file of 5 GB is archived, a directory of a million entries is listed, and 3,000
small files are extracted that are encrypted by AES. The programs take turns in an order drawn anew for each run.
Printed are the median times of whole processes in seconds and ours as a multiple of the others', then the same of the
processor times, the sizes of the archives, our peak memory and the longest time in which no window would be painted,
with and without what other programs took. All files are on the disk of the temporary folder.
"""

import argparse
import os
import random
import shutil
import statistics
import struct
import subprocess
import sys
import tempfile
import time
from pathlib import Path

FILES = 22_434
BYTES = 498_000_000
SOURCES = ("/usr/include", "/usr/share", "/usr/lib", "/usr/bin")
MANY = 1_000_000
ENCRYPTED = 3000


def collect(folder):
    """Copies of the system's files, from several places in turn, until there are as many as wanted."""
    count = size = 0
    walks = [iter(Path(source).rglob("*")) for source in SOURCES]
    while count < FILES and walks:
        for walk in list(walks):
            path = next(walk, None)
            if path is None:
                walks.remove(walk)
                continue
            if path.is_symlink() or not path.is_file():
                continue
            length = path.stat().st_size
            room = (BYTES - size) / max(1, FILES - count)
            if length > 60 * room or count >= FILES:
                continue
            target = folder / str(path)[1:]
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(path, target)
            count += 1
            size += length
    return count, size


def many_entries(path):
    """An archive whose directory names one empty file a million times."""
    local = struct.pack("<4s5H3L2H", b"PK\x03\x04", 20, 0, 0, 0, 33, 0, 0, 0, 8, 0) + b"00000000"
    size = 0
    with path.open("wb") as file:
        file.write(local)
        for i in range(MANY):
            record = struct.pack("<4s6H3L5H2L", b"PK\x01\x02", 0x314, 20, 0, 0, 0, 33, 0, 0, 0, 8, 0, 0, 0, 0,
                                 0o100644 << 16, 0) + b"%08d" % i
            size += len(record)
            file.write(record)
        end = len(local) + size
        file.write(struct.pack("<4sQ2H2L4Q", b"PK\x06\x06", 44, 45, 45, 0, 0, MANY, MANY, size, len(local)))
        file.write(struct.pack("<4sLQL", b"PK\x06\x07", 0, end, 1))
        file.write(struct.pack("<4s4H2LH", b"PK\x05\x06", 0, 0, 0xffff, 0xffff, 0xffffffff, 0xffffffff, 0))


def timed(command, folder):
    """Seconds, those of the processors, what was printed, and the peak memory in MiB."""
    begin = time.perf_counter()
    process = subprocess.Popen(list(map(str, command)), cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    output = process.stdout.read()
    _, status, usage = os.wait4(process.pid, 0)
    seconds = time.perf_counter() - begin
    if status != 0:
        sys.exit(f"{command}: {status}")
    return seconds, usage.ru_utime + usage.ru_stime, output, usage.ru_maxrss / 1024


def print_medians(title, times):
    medians = {name: statistics.median(values) for name, values in times.items()}
    ours = medians["ours"]
    print(f"{title:<18}" + "".join(f"  {name} {seconds:.2f}" + (f" ({ours / seconds:.2f})" if name != "ours" else "")
                                   for name, seconds in medians.items()))


def measure(title, ways, folder, runs, prepare):
    """ways: the command of each program, ours first."""
    walls = {name: [] for name in ways}
    processors = {name: [] for name in ways}
    details = []
    for _ in range(runs):
        for name in random.sample(list(ways), len(ways)):
            prepare(name)
            seconds, processor, output, memory = timed(ways[name], folder)
            walls[name].append(seconds)
            processors[name].append(processor)
            if name == "ours":
                details.append((*map(int, output.split()), memory))
    print_medians(title, walls)
    print_medians("  processors", processors)
    pause, own, memory = (max(column) for column in zip(*details))
    print(f"{'':<18}  pause {pause} ms, {own} ms of it ours, memory {memory:.0f} MiB", flush=True)


def remove(path):
    if path.is_dir():
        shutil.rmtree(path, ignore_errors=True)
    else:
        path.unlink(missing_ok=True)


def bench_mixed(options, folder):
    source = folder / "source"
    source.mkdir()
    if options.folder:
        shutil.copytree(options.folder, source, dirs_exist_ok=True)
    else:
        print("%d files, %d bytes" % collect(source))
    archives = {name: folder / f"{name}.zip" for name in ("ours", "zip", "7z", "bsdtar")}
    makers = {
        "ours": [options.program, "make", archives["ours"], "."],
        "zip": ["zip", "-qr", archives["zip"], "."],
        "7z": ["7z", "a", "-bd", "-mx=5", archives["7z"], "."],
        "bsdtar": ["bsdtar", "--format=zip", "-cf", archives["bsdtar"], "."],
    }
    measure("making", makers, source, options.runs, lambda name: remove(archives[name]))
    print(f"{'sizes, MB':<18}" + "".join(f"  {name} {path.stat().st_size / 1e6:.1f}" for name, path in archives.items()))
    remove(source)

    out = folder / "out"
    extractors = {
        "ours": [options.program, "extract", archives["zip"], out],
        "unzip": ["unzip", "-qq", archives["zip"], "-d", out],
        "7z": ["7z", "x", "-bd", archives["zip"], f"-o{out}"],
        "bsdtar": ["bsdtar", "-xf", archives["zip"], "-C", out],
    }

    used = []

    def empty(_):
        # Not removed yet: ext4 searches long for places where nothing was removed a moment ago.
        used.append(out.rename(folder / f"used{len(used)}") if out.exists() else out)
        out.mkdir()

    measure("extracting", extractors, folder, options.runs, empty)
    replacers = {"ours": extractors["ours"], "unzip": ["unzip", "-qqo", archives["zip"], "-d", out]}
    measure("  replacing", replacers, folder, options.runs, lambda _: None)
    listers = {"ours": [options.program, "list", archives["zip"]], "unzip": ["unzip", "-lv", archives["zip"]]}
    measure("listing", listers, folder, options.runs, lambda _: None)


def bench_adding(options, folder):
    large, noise, small, target, copy = (folder / name for name in ("large.zip", "noise", "small", "target.zip", "copy"))
    with noise.open("wb") as file:
        for _ in range(500):
            file.write(os.urandom(1_000_000))
    timed([options.program, "add", large, noise], folder)
    remove(noise)
    small.write_text("a small file\n")
    adders = {
        "ours": [options.program, "add", target, small],
        "cp": ["cp", large, copy],
        "cp and sync": ["sh", "-c", f"cp {large} {copy} && sync {copy}"],
        # The same in place of the archive, which frees the old one as adding does.
        "replacing": ["sh", "-c", f"cp {large} {copy} && sync {copy} && mv {copy} {target} && sync {folder}"],
        "zip": ["zip", "-q", target, small],
    }

    def fresh(_):
        shutil.copyfile(large, target)
        remove(copy)
        os.sync()

    measure("adding to 500 MB", adders, folder, options.runs, fresh)


def bench_sparse(options, folder):
    sparse = folder / "sparse"
    with sparse.open("wb") as file:
        file.truncate(5 << 30)
    makers = {"ours": [options.program, "add", folder / "ours.zip", sparse],
              "zip": ["zip", "-q", folder / "zip.zip", sparse]}
    measure("5 GB sparse", makers, folder, 1, lambda name: remove(folder / f"{name}.zip"))


def bench_many(options, folder):
    many = folder / "many.zip"
    many_entries(many)
    listers = {"ours": [options.program, "list", many], "unzip": ["unzip", "-lv", many]}
    measure("a million listed", listers, folder, options.runs, lambda _: None)


def bench_encrypted(options, folder):
    source, archive, out = (folder / name for name in ("source", "aes.zip", "out"))
    source.mkdir()
    for i in range(ENCRYPTED):
        (source / f"{i}.txt").write_text(f"the small file {i}\n" * 20)
    timed(["7z", "a", "-bd", "-psecret", "-mem=AES256", archive, "."], source)
    extractors = {
        "ours": [options.program, "extract", archive, out],
        "7z": ["7z", "x", "-bd", "-psecret", archive, f"-o{out}"],
        "bsdtar": ["bsdtar", "-xf", archive, "--passphrase", "secret", "-C", out],
    }

    def empty(_):
        remove(out)
        out.mkdir()

    measure("3,000 encrypted", extractors, folder, options.runs, empty)


PARTS = {"mixed": bench_mixed, "adding": bench_adding, "sparse": bench_sparse, "many": bench_many,
         "encrypted": bench_encrypted}


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program", type=lambda name: Path(name).resolve())
    parser.add_argument("--folder")
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--parts", nargs="+", choices=list(PARTS), default=list(PARTS))
    options = parser.parse_args()
    for tool in ("zip", "unzip", "7z", "bsdtar"):
        if not shutil.which(tool):
            sys.exit(f"{tool} is not installed")
    print(f"load {os.getloadavg()[0]:.1f}; seconds, in brackets ours as a multiple")
    for part in options.parts:
        with tempfile.TemporaryDirectory() as folder:
            PARTS[part](options, Path(folder))
    print(f"load {os.getloadavg()[0]:.1f}")


if __name__ == "__main__":
    main()
