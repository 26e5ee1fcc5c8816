#!/usr/bin/env python3
"""The archiver's windows with large archives: listing, extracting and making them, and how often the window is
painted meanwhile.

    bench_archiver.py PROGRAM [--folder FOLDER]

PROGRAM is bench_ArchiverWindows. Beside each listing is the time that unzip -l takes.
"""

import argparse
import os
import pathlib
import statistics
import subprocess
import tempfile
import time
import zipfile

SUFFIXES = ["txt", "c", "h", "png", "html", "pdf", "o", "json", "xml", "jpg", "md", "py"]


def make_archive(path, count):
    with zipfile.ZipFile(path, "w") as archive:
        for i in range(count):
            name = f"folder{i // 200}/sub{i // 50}/file{i:07}.{SUFFIXES[i % len(SUFFIXES)]}"
            moment = (2000 + i % 20, 1 + i % 12, 1 + i % 28, i % 24, i % 60, 0)
            archive.writestr(zipfile.ZipInfo(name, moment), b"content")


def make_files(folder, count, size):
    folder.mkdir()
    for i in range(count):
        (folder / f"file{i:04}.bin").write_bytes(os.urandom(size // 2) + bytes(size // 2))


def run(program, *arguments):
    environment = dict(os.environ, QT_QPA_PLATFORM=os.environ.get("QT_QPA_PLATFORM", "offscreen"))
    output = subprocess.run([program, *map(str, arguments)], env=environment, check=True, capture_output=True,
                            text=True).stdout
    return [int(number) for number in output.split()]


def report(what, program, *arguments, rounds=1, beside=None):
    results = [run(program, *arguments) for _ in range(rounds)]
    ms, paints, gap, rows = results[sorted(range(rounds), key=lambda i: results[i][0])[rounds // 2]]
    text = f"{what}: {ms} ms, {rows} rows, {paints * 1000 / max(ms, 1):.0f} paints a second, longest gap {gap} ms"
    if beside:
        times = []
        for _ in range(rounds):
            begin = time.monotonic()
            subprocess.run(beside, check=True, stdout=subprocess.DEVNULL)
            times.append((time.monotonic() - begin) * 1000)
        text += f"; {beside[0]} {statistics.median(times):.0f} ms"
    print(text, flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--folder", help="where archives are made; a temporary folder unless it is given")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory(dir=options.folder) as name:
        folder = pathlib.Path(name)
        for count, rounds in ((22434, 5), (1000000, 1)):
            archive = folder / f"{count}.zip"
            make_archive(archive, count)
            report(f"listing {count}", options.program, "list", archive, rounds=rounds,
                   beside=["unzip", "-l", str(archive)])
        (folder / "out").mkdir()
        report("extracting 22434", options.program, "extract", folder / "22434.zip", folder / "out")
        make_files(folder / "files", 1000, 500000)
        report("making an archive of 1000 files, 500 MB", options.program, "zip", folder / "files",
               folder / "made.zip")


if __name__ == "__main__":
    main()
