#!/usr/bin/python3
"""Start-up of the suite beside two word processors: exec to the first mapped window, and for the suite to its frame
painted with "Document 1"; resident memory two seconds later. Warm, medians, in one run.

    scripts/with-display.sh 1600x1000 bench/start/bench_start.py build/release/app/quill-office-tools

Needs python3-xlib; abiword and focuswriter where they are to be compared. No window manager has to run.
"""
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

from Xlib import X, display

RUNS = 10
SETTLE = 2.0  # seconds
TITLE_BAR = (0x2F, 0x7F, 0xB5)  # of the active child, in the light palette
SETTINGS = "[Options]\nShow%20Splash%20at%20Startup=0\n"


def fresh_home():
    home = tempfile.mkdtemp(prefix="bench-start-")
    config = os.path.join(home, ".config")
    os.makedirs(config)
    with open(os.path.join(config, "QuillOfficeToolsv2.ini"), "w") as file:
        file.write(SETTINGS)
    return home


def is_frame(window):
    geometry = window.get_geometry()
    return geometry.width > 300 and geometry.height > 200


def first_mapped(screen, root):
    """The first window of a program's own size that is mapped on the root."""
    while True:
        event = screen.next_event()
        if event.type == X.MapNotify and event.window != root:
            try:
                if is_frame(event.window):
                    return event.window
            except Exception:
                continue  # gone again


def is_painted(window):
    """A column through the first child's title bar shows its colour."""
    try:
        image = window.get_image(120, 0, 1, 160, X.ZPixmap, 0xFFFFFFFF)
    except Exception:
        return False
    data = image.data
    wanted = bytes((TITLE_BAR[2], TITLE_BAR[1], TITLE_BAR[0]))
    return any(data[i : i + 3] == wanted for i in range(0, len(data), 4))


def resident(pid):
    with open(f"/proc/{pid}/smaps_rollup") as file:
        for line in file:
            if line.startswith("Rss:"):
                return int(line.split()[1]) / 1024
    return 0.0


def one_run(command, painted, settle):
    screen = display.Display()
    root = screen.screen().root
    root.change_attributes(event_mask=X.SubstructureNotifyMask)
    screen.sync()
    home = fresh_home()
    environment = dict(os.environ, HOME=home, XDG_CONFIG_HOME=os.path.join(home, ".config"))
    start = time.monotonic()
    process = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    window = first_mapped(screen, root)
    mapped = time.monotonic() - start
    shown = None
    if painted:
        while not is_painted(window):
            time.sleep(0.0005)
        shown = time.monotonic() - start
    memory = None
    if settle:
        time.sleep(SETTLE)
        memory = resident(process.pid)
    process.kill()
    process.wait()
    screen.close()
    shutil.rmtree(home, ignore_errors=True)
    return mapped, shown, memory


def measure(name, command, painted=False):
    one_run(command, painted, False)  # warms the caches
    runs = [one_run(command, painted, i == RUNS - 1) for i in range(RUNS)]
    mapped = statistics.median(run[0] for run in runs)
    shown = statistics.median(run[1] for run in runs) if painted else None
    memory = runs[-1][2]
    text = f"{name:12} first window {mapped * 1000:6.0f} ms"
    text += f", painted {shown * 1000:6.0f} ms" if painted else " " * 19
    print(f"{text}, resident {memory:5.0f} MB", flush=True)
    return shown or mapped


def main():
    keeper = display.Display()  # without a client the virtual display starts over between two runs
    suite = measure("suite", [os.path.abspath(sys.argv[1])], painted=True)
    for program in ("abiword", "focuswriter"):
        if shutil.which(program):
            other = measure(program, [program])
            print(f"{'':12} suite painted takes {suite / other:.2f} of {program}'s first window")
        else:
            print(f"{program}: not installed")
    keeper.close()


main()
