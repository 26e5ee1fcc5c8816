#!/usr/bin/env python3
"""Measures the rtf tool beside other programs: bench_rtf.py BUILD/tools/rtf [--runs N]

Mixed rich text of 1, 10 and 50 MB, the same bytes each time, is turned into plain text by the tool, abiword and
unrtf, and at 10 MB into rich text by the tool and abiword. Printed are the median times, the others' time as a
multiple of ours, and the peak memory as multiples of the file's size: all that is resident, and what of it is the
process's own, without the pages of libraries, which programs share. A program that does nothing but link Qt Gui has
14 MB resident before its main().
"""

import argparse
import os
import re
import shutil
import statistics
import subprocess
import tempfile
import threading
import time

MEGABYTE = 1_000_000
SIZES = (1, 10, 50)
LISTS_PER_MEGABYTE = 25
HEADER = (
    r"{\rtf1\ansi\ansicpg1252\deff0\uc1{\fonttbl{\f0\froman Times New Roman;}{\f1\fswiss Arial;}"
    r"{\f2\fmodern Courier New;}{\f3\fswiss\fcharset238 Arial CE;}}"
    r"{\colortbl;\red192\green0\blue0;\red0\green0\blue192;\red255\green255\blue0;}" "\n"
)
WORDS = (
    "garden spade water seed the of and in shade radish tulip long harvest basket rose letter early morning "
    "north south bed path stone autumn"
).split()


class Noise:
    """Small numbers, the same in each run whatever the interpreter's version."""

    def __init__(self):
        self.state = 12345

    def below(self, limit):
        self.state = (self.state * 1103515245 + 12345) & 0x7FFFFFFF
        return (self.state >> 8) % limit


def words(noise, count):
    return " ".join(WORDS[noise.below(len(WORDS))] for _ in range(count))


def runs(noise):
    kinds = (
        lambda text: text,
        lambda text: r"{\b " + text + "}",
        lambda text: r"\i " + text + r"\i0 ",
        lambda text: r"{\f1\fs20 " + text + "}",
        lambda text: r"{\cf1\ul " + text + "}",
        lambda text: r"{\f2\highlight3 " + text + "}",
        lambda text: text + r" caf\'e9 \'93quoted\'94",
        lambda text: text + r" \u1046?\u1091?\u1082? \u26085?\u26412? \u-10179?\u-8704?",
        lambda text: r"{\f3 \'9elu\'9dou\'e8k\'fd " + text + "}",
        lambda text: r'{\field{\*\fldinst HYPERLINK "https://garden.example/' + str(noise.below(999))
        + r'"}{\fldrslt\ul\cf2 ' + text + "}}",
    )
    return " ".join(kinds[noise.below(len(kinds))](words(noise, 3 + noise.below(12))) for _ in range(2 + noise.below(5)))


def paragraph(noise):
    look = (r"\pard\ql", r"\pard\qj\fi360\sa120", r"\pard\qc\sb240", r"\pard\li720\ri360\sl360\slmult1",
            r"\pard\tx1440\tx2880\tab")[noise.below(5)]
    return look + " " + runs(noise) + "\\par\n"


def list_tables(count):
    lists = "".join(r"{\list\listtemplateid%d\listsimple1{\listlevel\levelnfc0\levelstartat1{\leveltext\'02\'00.;}"
                    r"{\levelnumbers\'01;}\fi-360\li720}\listid%d}" % (i, i) for i in range(1, count + 1))
    overrides = "".join(r"{\listoverride\listid%d\listoverridecount0\ls%d}" % (i, i) for i in range(1, count + 1))
    return r"{\*\listtable" + lists + r"}{\*\listoverridetable" + overrides + "}\n"


def items(noise, number):
    return "".join(rf"\pard\ls{number}\fi-360\li720{{\listtext " + f"{i + 1}." + r"\tab}" + runs(noise) + "\\par\n"
                   for i in range(4))


def table(noise):
    row = r"\trowd\trgaph108\cellx2880\cellx5760\cellx8640" + "\n"
    return "".join(row + "".join(r"\pard\intbl " + words(noise, 6) + "\\cell\n" for _ in range(3)) + "\\row\n"
                   for _ in range(5)) + "\\pard\n"


def make(path, megabytes):
    noise = Noise()
    lists = megabytes * LISTS_PER_MEGABYTE
    with open(path, "w", encoding="ascii") as file:
        size = file.write(HEADER + list_tables(lists))
        while size < megabytes * MEGABYTE:
            kind = noise.below(20)
            if kind == 0:
                size += file.write(table(noise))
            elif kind < 3:
                size += file.write(items(noise, 1 + size * lists // ((megabytes + 1) * MEGABYTE)))
            else:
                size += file.write(paragraph(noise))
        file.write("}\n")


class OwnMemory(threading.Thread):
    """Watches what a process has for itself, in bytes; the peak is the largest that was seen, each millisecond."""

    def __init__(self, pid):
        super().__init__(daemon=True)
        self.path = f"/proc/{pid}/status"
        self.peak = 0
        self.start()

    def run(self):
        while True:
            try:
                with open(self.path, encoding="ascii", errors="replace") as status:
                    found = re.search(r"RssAnon:\s+(\d+) kB", status.read())
            except OSError:
                return
            if not found:
                return
            self.peak = max(self.peak, int(found[1]) * 1024)
            time.sleep(0.001)


def run(command, out, patience):
    """Seconds, peak memory and peak of its own memory in bytes of one run, which is ended after the patience. It runs
    in the folder of its output, where it may leave the file's pictures too."""
    with open(out, "wb") as file:
        start = time.monotonic()
        process = subprocess.Popen(command, stdout=file, stderr=subprocess.DEVNULL,
                                   cwd=os.path.dirname(out))
        own = OwnMemory(process.pid)
        end = threading.Timer(patience, process.kill)
        end.start()
        _, status, usage = os.wait4(process.pid, 0)
        end.cancel()
        own.join()
        process.returncode = os.waitstatus_to_exitcode(status)
        seconds = time.monotonic() - start
    if process.returncode != 0 and seconds < patience:
        raise SystemExit(f"failed: {' '.join(command)}")
    return seconds, usage.ru_maxrss * 1024, own.peak


def measure(name, command, out, times, file, patience):
    results = [run(command, out, patience) for _ in range(times)]
    seconds = statistics.median(r[0] for r in results)
    size = os.path.getsize(file)
    return {"name": name, "seconds": seconds, "unfinished": seconds >= patience,
            "memory": max(r[1] for r in results) / size, "own": max(r[2] for r in results) / size}


def report(title, rows):
    print(title, flush=True)
    for row in rows:
        ratio = row["seconds"] / rows[0]["seconds"]
        more = ">" if row["unfinished"] else " "
        print(f"  {row['name']:18} {more}{row['seconds'] * 1000:9.0f} ms  {more}{ratio:8.2f} x ours   "
              f"peak {row['memory']:6.1f} x the file, own {row['own']:5.1f}", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tool", help="the rtf program of a release build")
    parser.add_argument("--runs", type=int, default=5, help="runs of our own program; the slow ones run less often")
    parser.add_argument("--sizes", type=int, nargs="*", default=SIZES, help="in MB")
    parser.add_argument("--patience", type=int, default=300, help="seconds after which a run is ended, marked >")
    arguments = parser.parse_args()
    tool = os.path.abspath(arguments.tool)
    patience = arguments.patience
    abiword, unrtf = shutil.which("abiword"), shutil.which("unrtf")

    with tempfile.TemporaryDirectory() as folder:
        out = os.path.join(folder, "out")
        for size in arguments.sizes:
            file = os.path.join(folder, f"{size}.rtf")
            make(file, size)
            rows = [measure("rtf text", [tool, "text", file], out, arguments.runs, file, patience)]
            few = arguments.runs if size == 1 else 1
            if unrtf:
                rows.append(measure("unrtf --text", [unrtf, "--text", file], out, max(few, 3), file, patience))
            if abiword:
                command = [abiword, "--to=txt", "-o", os.path.join(folder, "out.txt"), file]
                rows.append(measure("abiword --to=txt", command, out, few, file, patience))
            report(f"text of {size} MB", rows)
            if size != 10:
                continue
            again = os.path.join(folder, "again.rtf")
            rows = [measure("rtf save", [tool, "save", file, again], out, arguments.runs, file, patience)]
            if abiword:
                rows.append(measure("abiword --to=rtf", [abiword, "--to=rtf", "-o", again, file], out, 1, file, patience))
            report(f"saving {size} MB", rows)


if __name__ == "__main__":
    main()
