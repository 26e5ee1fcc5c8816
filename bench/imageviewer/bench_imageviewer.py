#!/usr/bin/python3
"""The image window with large pictures, beside feh and qimgv: how long a picture takes until it is on the screen, and how
long panning and zooming take to paint.

    scripts/with-display.sh 1600x1000 bench/imageviewer/bench_imageviewer.py PROGRAM [--folder FOLDER]

PROGRAM is bench_frmImageMain, which is measured from the picture's name to its paint. The others are measured from their
start until the middle of the screen has the picture's colour, less what they take for a small picture. Needs
python3-xlib, imagemagick; feh and qimgv where they are to be compared. No window manager has to run.
"""
import argparse
import os
import pathlib
import shutil
import statistics
import struct
import subprocess
import tempfile
import time

from Xlib import X, display

RUNS = 5
PATIENCE = 20.0  # seconds
COLOR = (255, 0, 255)
PICTURES = [("2 MP JPEG", "a.jpg", 1632, 1224), ("24 MP JPEG", "b.jpg", 6000, 4000), ("100 MP BMP", "c.bmp", 12000, 8400)]
PEERS = {"feh": ["feh", "--fullscreen", "--zoom", "max"], "qimgv": ["qimgv"]}


def make_bitmap(path, width, height):
    """Noise with one colour in the middle; convert refuses pictures that are so large."""
    left, right, upper, lower = width * 9 // 20, width * 11 // 20, height * 9 // 20, height * 11 // 20
    noise = os.urandom(2 * width * 3)
    size = width * 3 * height
    with open(path, "wb") as file:
        file.write(struct.pack("<2sIHHIIiiHHIIiiII", b"BM", 54 + size, 0, 0, 54, 40, width, height, 1, 24, 0, size, 0, 0, 0, 0))
        for y in range(height):
            row = bytearray(noise[y % width * 3 : (y % width + width) * 3])
            if upper <= y < lower:
                row[left * 3 : right * 3] = bytes(reversed(COLOR)) * (right - left)
            file.write(row)


def make_picture(path, width, height):
    """Noise like a photograph's, with one colour in the middle."""
    left, right, upper, lower = width * 0.45, width * 0.55, height * 0.45, height * 0.55
    subprocess.run(["convert", "-size", "600x400", "plasma:", "-resize", f"{width}x{height}!", "-attenuate", "0.2",
                    "+noise", "Gaussian", "-fill", "rgb(%d,%d,%d)" % COLOR, "-draw",
                    f"rectangle {left},{upper} {right},{lower}", "-type", "TrueColor", "-quality", "90", str(path)], check=True)


def is_shown(root):
    geometry = root.get_geometry()
    data = root.get_image(geometry.width // 2, geometry.height // 2, 1, 1, X.ZPixmap, 0xFFFFFFFF).data
    return all(abs(data[2 - i] - COLOR[i]) < 12 for i in range(3))


def shown_after(command):
    screen = display.Display()
    root = screen.screen().root
    home = tempfile.mkdtemp(prefix="bench-images-")
    start = time.monotonic()
    process = subprocess.Popen(command, env=dict(os.environ, HOME=home, XDG_CONFIG_HOME=home), stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    taken = None
    while taken is None and time.monotonic() - start < PATIENCE:
        if is_shown(root):
            taken = time.monotonic() - start
        time.sleep(0.001)
    process.kill()
    process.wait()
    while is_shown(root):
        time.sleep(0.01)
    screen.close()
    shutil.rmtree(home, ignore_errors=True)
    return taken


def peer(command, path, dot):
    """Milliseconds; None where it shows nothing on this display."""
    runs = []
    for _ in range(RUNS):
        times = shown_after([*command, str(dot)]), shown_after([*command, str(path)])
        if None in times:
            return None
        runs.append(times[1] - times[0])
    return statistics.median(runs) * 1000


def own(program, path):
    runs = []
    for _ in range(RUNS):
        output = subprocess.run([program, str(path)], check=True, capture_output=True, text=True).stdout
        runs.append([float(number) for number in output.split()])
    return [statistics.median(values) for values in zip(*runs)]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--folder")
    arguments = parser.parse_args()
    keeper = display.Display()  # without a client the virtual display starts over between two runs
    folder = pathlib.Path(arguments.folder or tempfile.mkdtemp(prefix="bench-images-"))
    dot = folder / "dot.bmp"
    subprocess.run(["convert", "-size", "400x300", "xc:rgb(%d,%d,%d)" % COLOR, str(dot)], check=True)
    for what, name, width, height in PICTURES:
        path = folder / name
        if not path.exists():
            (make_bitmap if name.endswith(".bmp") else make_picture)(path, width, height)
        opened, memory, peak, panned, zoomed = own(arguments.program, path)
        share = memory * 1024 / (width * height * 4)
        print(f"{what}: shown after {opened:.0f} ms; memory {share:.2f} of the picture's, at its peak "
              f"{peak * 1024 / (width * height * 4):.2f}; longest paint while panned {panned:.1f} ms, zoomed {zoomed:.1f} ms",
              flush=True)
        for name_of_peer, command in PEERS.items():
            if not shutil.which(command[0]):
                print(f"    {name_of_peer}: not installed")
                continue
            taken = peer(command, path, dot)
            text = f"{taken:.0f} ms; this takes {opened / max(taken, 1):.2f} of it" if taken else "shows nothing here"
            print(f"    {name_of_peer}: {text}", flush=True)
    keeper.close()


main()
