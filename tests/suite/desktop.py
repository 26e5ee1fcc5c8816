"""A user at the display: starts the suite, looks for windows, presses keys. Waits for what it expects, never for
time alone."""
import os
import subprocess
import tempfile
import time

PATIENCE = 30.0  # seconds, for a build under the sanitizers on a busy machine
FRAME = "Tallowick - Quill-Office Tools"


def xdotool(*words):
    return subprocess.run(["xdotool", *words], capture_output=True, text=True, check=False).stdout.strip()


def wait_for(what, condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        found = condition()
        if found:
            return found
        time.sleep(0.02)
    raise AssertionError(f"waited in vain for {what}")


def read(path):
    with open(path, "rb") as file:
        return file.read()


def without_rights(program):
    """The command that starts the program so that permissions hold for it, also for root."""
    if os.geteuid() != 0:
        return [program]
    return ["setpriv", "--bounding-set=-dac_override,-dac_read_search", program]


class Suite:
    """The running program with a home of its own."""

    def __init__(self, program, home=None, settings="[Options]\nShow%20Splash%20at%20Startup=0\n"):
        self.home = home or tempfile.mkdtemp(prefix="quill-suite-")
        self.settings_file = os.path.join(self.home, ".config", "QuillOfficeToolsv2.ini")
        os.makedirs(os.path.dirname(self.settings_file), exist_ok=True)
        if settings is not None:
            with open(self.settings_file, "w") as file:
                file.write(settings)
        environment = dict(os.environ, HOME=self.home, XDG_CONFIG_HOME=os.path.join(self.home, ".config"),
                           XDG_STATE_HOME=os.path.join(self.home, ".local", "state"),
                           XDG_RUNTIME_DIR=self.home, LC_ALL="C.UTF-8")
        os.chmod(self.home, 0o700)
        # Python ignores the signal of a file that grows too large, and so does the program.
        self.process = subprocess.Popen(without_rights(program), env=environment, stderr=subprocess.PIPE, text=True,
                                        restore_signals=False)

    def path(self, name):
        return os.path.join(self.home, name)

    def window(self, title):
        """The window with exactly this title, once it is on the screen and gets the keys. The window manager calls
        it the active one a moment earlier; keys of that moment would be lost."""
        def look():
            active = xdotool("getactivewindow")
            gets_keys = active and active == xdotool("getwindowfocus")
            return active if gets_keys and xdotool("getwindowname", active) == title else None
        return wait_for(f'the window "{title}"', look)

    def frame(self):
        """The frame, once it gets the keys and the program waits for them. A dialog that goes away gives them to the
        frame before its answer is handled; what is typed then goes into the document of before."""
        frame = self.window(FRAME)
        wait_for("the program to wait", self.waits)
        return frame

    def waits(self):
        """Whether the program sleeps and uses no time from one look to the next."""
        looks = set()
        for _ in range(3):
            state, *numbers = read(f"/proc/{self.process.pid}/stat").rsplit(b") ", 1)[1].split()
            user_time, system_time = numbers[10:12]
            looks.add((state, user_time, system_time))
            time.sleep(0.02)
        return len(looks) == 1 and looks.pop()[0] == b"S"

    def key(self, *keys):
        xdotool("key", "--delay", "60", *keys)

    def type(self, text):
        xdotool("type", "--delay", "20", text)

    def menu(self, mnemonic, *keys):
        """Opens a menu of the bar and walks in it."""
        before = xdotool("search", "--onlyvisible", "--class", "QuillOfficeTools")
        self.key(f"alt+{mnemonic}")
        wait_for("the menu", lambda: xdotool("search", "--onlyvisible", "--class", "QuillOfficeTools") != before)
        self.key(*keys)

    def answer(self, title, key):
        box = self.window(title)
        self.key(key)
        wait_for(f'"{title}" to go',
                 lambda: self.process.poll() is not None or xdotool("getactivewindow") != box)

    def file_dialog(self, title, path):
        dialog = self.window(title)
        self.type(path)
        self.key("Return")
        return dialog

    def overwrite_question(self, title, path):
        """Names an existing file; the question has the dialog's own title."""
        dialog = self.file_dialog(title, path)
        wait_for("the question", lambda: dialog != self.window(title))

    def limit_files(self, size):
        """Lets no file of the program grow beyond so many bytes, as a full disk does; "unlimited" takes that back."""
        subprocess.run(["prlimit", f"--pid={self.process.pid}", f"--fsize={size}:unlimited"], check=True)

    def ended(self, code=0):
        wait_for("the program to end", lambda: self.process.poll() is not None)
        assert self.process.returncode == code, self.process.stderr.read()
        complaints = self.process.stderr.read()
        assert not complaints, complaints

    def recovery_copies(self):
        """What the recovery copies hold."""
        folder = os.path.join(self.home, ".local", "state", "QuillOfficeToolsv2", "recovery")
        if not os.path.isdir(folder):
            return []
        names = [name for name in os.listdir(folder) if name.startswith("copy-") and "." not in name]
        return [read(os.path.join(folder, name)) for name in names]

    def setting(self, key):
        with open(self.settings_file) as file:
            for line in file:
                if line.startswith(key + "="):
                    return line.strip().split("=", 1)[1]
        return None

    def kill(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
