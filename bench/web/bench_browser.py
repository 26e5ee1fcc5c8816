#!/usr/bin/python3
"""The browser's window: from the key that opens it in the running suite until its first page is painted, and the same
for a second window; beside it Falkon from its start until the same page is painted. Warm, medians, in one run.

    scripts/with-display.sh 1600x1000 bench/web/bench_browser.py build/release/app/quill-office-tools

Needs python3-xlib, xdotool, openbox and falkon.
"""
import http.server
import os
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import threading
import time

from Xlib import X, display

RUNS = 7
PATIENCE = 30.0  # seconds
FRAME = "Tallowick - Quill-Office Tools"
COLORS = ((0x12, 0xB4, 0x56), (0x56, 0x12, 0xB4))  # of the page at the first and the second visit
PAGE = "<!doctype html><title>page</title><style>html {{ background: #{:02x}{:02x}{:02x} }}</style><h1>Page</h1>"


class Pages(http.server.BaseHTTPRequestHandler):
    visits = 0

    def do_GET(self):
        if self.path != "/":
            self.send_error(404)
            return
        body = PAGE.format(*COLORS[min(Pages.visits, 1)]).encode()
        Pages.visits += 1
        self.send_response(200)
        self.send_header("Content-Type", "text/html")
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_):
        pass


class Screen:
    """The pixels of the display."""

    def __init__(self):
        self.connection = display.Display()
        self.root = self.connection.screen().root
        size = self.root.get_geometry()
        self.width, self.height = size.width, size.height

    def has(self, color):
        """Whether some pixels of a grid over the screen have this color."""
        wanted = bytes(reversed(color))
        for y in range(100, self.height, 100):
            data = self.root.get_image(0, y, self.width, 1, X.ZPixmap, 0xFFFFFFFF).data
            if any(data[i:i + 3] == wanted for i in range(0, len(data), 40)):
                return True
        return False

    def wait_for(self, color, process):
        end = time.monotonic() + PATIENCE
        while not self.has(color):
            if time.monotonic() > end or process.poll() is not None:
                raise SystemExit("the page was not painted")
            time.sleep(0.001)


def xdotool(*words):
    return subprocess.run(["xdotool", *words], capture_output=True, text=True, check=False).stdout.strip()


def environment_of(home):
    return dict(os.environ, HOME=home, XDG_CONFIG_HOME=os.path.join(home, ".config"), XDG_RUNTIME_DIR=home,
                XDG_CACHE_HOME=os.path.join(home, ".cache"), LC_ALL="C.UTF-8")


def end(process, home):
    os.killpg(process.pid, signal.SIGKILL)
    process.wait()
    shutil.rmtree(home, ignore_errors=True)


def start(command, environment):
    return subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                            start_new_session=True)


def wait_for_keys(title):
    deadline = time.monotonic() + PATIENCE
    while xdotool("getactivewindow", "getwindowname") != title:
        if time.monotonic() > deadline:
            raise SystemExit(f'no window "{title}"')
        time.sleep(0.05)
    time.sleep(1)


def suite(program, screen):
    """Seconds until the first window's page is painted, and the second one's."""
    home = tempfile.mkdtemp(prefix="bench-browser-")
    os.makedirs(os.path.join(home, ".config"))
    with open(os.path.join(home, ".config", "QuillOfficeToolsv2.ini"), "w") as file:
        file.write("[Options]\nShow%20Splash%20at%20Startup=0\n")
    Pages.visits = 0
    process = start([program], environment_of(home))
    wait_for_keys(FRAME)
    times = []
    for color in COLORS:
        xdotool("key", "alt+b")
        time.sleep(0.3)
        begin = time.monotonic()
        xdotool("key", "b")
        screen.wait_for(color, process)
        times.append(time.monotonic() - begin)
        time.sleep(0.5)
    end(process, home)
    return times


def falkon(address, screen):
    home = tempfile.mkdtemp(prefix="bench-browser-")
    Pages.visits = 0
    environment = environment_of(home)
    if os.geteuid() == 0:
        environment["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
    begin = time.monotonic()
    process = start(["falkon", "--private-browsing", "--no-extensions", address], environment)
    screen.wait_for(COLORS[0], process)
    taken = time.monotonic() - begin
    end(process, home)
    return taken


def copy_of(program, host):
    """The program's folder, with pages from this server."""
    folder = tempfile.mkdtemp(prefix="bench-browser-app-")
    copy = os.path.join(folder, "app")
    shutil.copytree(os.path.dirname(os.path.abspath(program)), copy, symlinks=True)
    with open(os.path.join(copy, "publisher.ini"), "w") as file:
        file.write(f"[hosts]\nweb={host}\n")
    return folder, os.path.join(copy, os.path.basename(program))


def main():
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Pages)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    host = f"127.0.0.1:{server.server_port}"
    manager = subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL)
    while not xdotool("get_desktop").isdigit():  # the window manager answers
        time.sleep(0.05)
    screen = Screen()
    folder, program = copy_of(sys.argv[1], host)
    runs, others = [], []
    for run in range(RUNS + 1):
        pair, other = suite(program, screen), falkon(f"http://{host}/", screen)
        if run > 0:  # the first warms the caches
            runs.append(pair)
            others.append(other)
    first, second = (statistics.median(times) for times in zip(*runs))
    other = statistics.median(others)
    print(f"suite, first window's page painted  {first * 1000:5.0f} ms after the key")
    print(f"suite, second window's              {second * 1000:5.0f} ms")
    print(f"falkon, page painted                {other * 1000:5.0f} ms after its start")
    print(f"the suite takes {first / other:.2f} of falkon's time, {second / other:.2f} with the engine running")
    manager.terminate()
    shutil.rmtree(folder, ignore_errors=True)


main()
