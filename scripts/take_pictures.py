"""take_pictures.py APP CONTACTS FOLDER [PICTURE...]: pictures of the suite's windows, as a user sees them.

Each row of PICTURES is a picture: its name, what of the screen it shows, and the steps that lead there in a suite that
has just started. What the windows list is made here, with fixed dates and places."""
import json
import os
import shutil
import subprocess
import sys
import tempfile
import time
import zipfile

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "tests", "suite"))
from desktop import Suite, wait_for, xdotool

WIDEST = 540  # pixels; make-help takes no wider ones
FRAME = (1580, 940)
BARS, STATUS = 50, 34  # pixels: menus and toolbar above the child area, status bar below
HOME = "/tmp/tom"
WHEN = 1780000000  # of the files

# The only child window in the frame; the window that has the keys. Another text is the title of a window; numbers are a
# part of the frame: left, top, width and height in pixels.
CHILD, DIALOG = "child", "dialog"

LETTER = [("type", "Dear Anna,"), ("key", "Return", "Return"),
          ("type", "the pictures of the garden are in the archive. Please look at them before we meet on Friday; more "
                   "is on www.example.org."), ("key", "Return", "Return"),
          ("type", "Many greetings"), ("key", "Return"), ("type", "Tom")]
CONTACTS = """First Name,Last Name,Mobile Number,Home Address,Home City,Home State
Anna,Berg,0171 555 0101,4 Mill Lane,Dover,Kent
Carl,Dorn,0171 555 0102,12 High Street,Deal,Kent
Emma,Falk,0171 555 0103,7 Station Road,York,Yorkshire
"""
PAGE = """<!DOCTYPE html><title>The garden</title><body style="font-family: sans-serif; margin: 2em">
<h1>The garden</h1><p>What grows here, month by month, and how the pond is doing.
<ul><li><a href="roses">Roses</a><li><a href="pond">The pond</a><li><a href="apples">Apple trees</a></ul>"""

NO_DOCUMENT = [("menu", "f", "c")]
ADDRESSES = NO_DOCUMENT + [("menu", "a", "o"), ("size", 640, 400)]
FTP = NO_DOCUMENT + [("menu", "c", "o"), ("size", 640, 460)]
IMAGE = NO_DOCUMENT + [("menu", "m", "o")]

PICTURES = [
    ("frmDocument", CHILD, [("size", 520, 270)] + LETTER),
    ("frmMain", (0, 0, 752, 50), []),
    ("frmMain-document", (0, 22, 528, 28), []),
    ("frmMain-tools", (0, 22, 384, 28), NO_DOCUMENT),
    ("frmCalculator", CHILD, NO_DOCUMENT + [("click", 69, 34), ("size", 380, 270), ("type", "12.5")]),
    ("frmdialler-setup", CHILD, NO_DOCUMENT + [("menu", "d", "Return"), ("size", 530, 400)]),
    ("frmdialler", CHILD, NO_DOCUMENT + [("menu", "d", "Down", "Return"), ("size", 420, 320)]),
    ("frmZip", CHILD, NO_DOCUMENT + [("menu", "z", "c"), ("size", 530, 420)] + [
        words for name in ("apple-tree.txt", "pond.txt", "roses.txt")
        for words in (("press", 460, 203), ("file", "Choose File to Add to Zip", f"{HOME}/garden/{name}"))]),
    ("frmUnzip", CHILD, NO_DOCUMENT + [("menu", "z", "e"), ("size", 530, 250), ("press", 50, 43),
                                       ("file", "Choose Zip FIle to Open", f"{HOME}/garden.zip")]),
    ("frmCompsOnNetwork", CHILD, NO_DOCUMENT + [("menu", "i", "Down", "Return")]),
    ("frmRestorePoints", CHILD, NO_DOCUMENT + [("menu", "i", "Down", "Down", "Return")]),
    ("frmSystemMessage", CHILD, NO_DOCUMENT + [("menu", "t", "Down", "Return")]),
    ("frmAddressBook", CHILD, ADDRESSES + [("press", 87, 89)]),
    ("frmFTP", CHILD, FTP),
    ("frmImageMain", CHILD, IMAGE),
    ("frmBrowser", CHILD, NO_DOCUMENT + [("menu", "b", "b"), ("size", 530, 300), ("key", "ctrl+l"),
                                         ("type", HOME + "/garden.html"), ("key", "Return")]),
    ("frmdownload2", CHILD, NO_DOCUMENT + [("menu", "u", "c")]),
    ("frmHelpContents", CHILD, NO_DOCUMENT + [("menu", "h", "c"), ("size", 530, 440)]),
    ("dlgFindReplace", "Replace", LETTER + [("key", "ctrl+f")]),
    ("frmMargins", DIALOG, [("click", 399, 36)]),
    ("frmAddress", DIALOG, ADDRESSES + [("press", 57, 67)]),
    ("frmBirthDays", DIALOG, ADDRESSES + [("press", 125, 39)]),
    ("frmFTPAccounts", DIALOG, FTP + [("press", 508, 83)]),
    ("frmFileOperations", DIALOG, IMAGE + [("press", 63, 38)]),
    ("frmOptions", DIALOG, [("menu", "v", "o")]),
    ("frmAbout", DIALOG, [("menu", "h", "a")]),
]


def run(*command):
    return subprocess.run(command, capture_output=True, check=True).stdout


def settle():
    """Waits until the screen no longer changes; a caret blinks and a clock goes on all the same."""
    still = 800  # pixels
    with tempfile.TemporaryDirectory() as folder:
        old, new = (os.path.join(folder, name) for name in ("old.png", "new.png"))
        run("import", "-window", "root", new)
        for _ in range(100):
            os.rename(new, old)
            time.sleep(1.2)  # longer than a window pauses while it opens
            run("import", "-window", "root", new)
            changed = subprocess.run(["compare", "-metric", "AE", old, new, "null:"], capture_output=True, check=False)
            if float(changed.stderr) < still:
                return
    raise AssertionError("the windows do not stop changing")


def child_area(suite, shot):
    """The frame's child area alone."""
    run("import", "-window", suite.frame_id, shot)
    width, height = FRAME
    run("convert", shot, "-crop", f"{width}x{height - BARS - STATUS}+0+{BARS}", "+repage", shot)


def child_box(suite):
    """Left, top, width and height of the only child window in the frame, once there is one."""
    def look():
        with tempfile.NamedTemporaryFile(suffix=".png") as shot:
            child_area(suite, shot.name)
            size, left, upper = run("convert", shot.name, "-format", "%@", "info:").decode().split("+")
        width, height = (int(number) for number in size.split("x"))
        return (int(left), int(upper) + BARS, width, height) if width > 10 else None
    return wait_for("the child window", look)


def resize(suite, width, height):
    """Drags the lower right corner of the child window."""
    left, upper, old_width, old_height = child_box(suite)
    corner = [str(left + old_width - 2), str(upper + old_height - 2)]
    xdotool("mousemove", "--window", suite.frame_id, *corner, "mousedown", "1")
    for part in (2, 1):
        to = [str(left + width - part), str(upper + height - part)]
        xdotool("mousemove", "--window", suite.frame_id, *to)
        time.sleep(0.1)
    xdotool("mouseup", "1", "mousemove", "1590", "990")


def step(suite, kind, *words):
    if kind == "menu":
        suite.menu(*words)
    elif kind == "key":
        suite.key(*words)
    elif kind == "type":
        suite.type(*words)
    elif kind == "file":
        suite.file_dialog(*words)
    elif kind == "size":
        child_box(suite)
        settle()
        resize(suite, *words)
    elif kind in ("click", "press"):
        left, upper = child_box(suite)[:2] if kind == "press" else (0, 0)
        x, y = left + words[0], upper + words[1]
        xdotool("mousemove", "--window", suite.frame_id, str(x), str(y), "click", "1", "mousemove", "1590", "990")
    else:
        raise AssertionError(kind)
    settle()


def picture(suite, out, area):
    with tempfile.NamedTemporaryFile(suffix=".png") as shot:
        if area == CHILD:
            child_box(suite)
            settle()
            child_area(suite, shot.name)
            edges = ["-trim"]
        elif isinstance(area, str):
            dialog = xdotool("getactivewindow") if area == DIALOG else xdotool("search", "--name", f"^{area}$")
            run("import", "-window", dialog, shot.name)
            edges = []
        else:
            run("import", "-window", suite.frame_id, shot.name)
            left, upper, width, height = area
            edges = ["-crop", f"{width}x{height}+{left}+{upper}"]
        run("convert", shot.name, *edges, "+repage", "-resize", f"{WIDEST}x>", "-strip", "-define",
            "png:exclude-chunks=date,time", out)


def furnish(app, contacts):
    """Gives the home what the windows list. Returns the program in it."""
    os.mkdir(HOME, 0o700)
    program = shutil.copytree(app, os.path.join(HOME, "quill"))
    people = os.path.join(HOME, "people.csv")
    with open(people, "w") as file:
        file.write(CONTACTS)
    run(contacts, "import", people, os.path.join(program, "data97.mdb"))
    os.remove(people)
    garden = os.path.join(HOME, "garden")
    os.mkdir(garden)
    with zipfile.ZipFile(os.path.join(HOME, "garden.zip"), "w", zipfile.ZIP_DEFLATED) as archive:
        for name in ("apple-tree.txt", "pond.txt", "roses.txt"):
            text = f"What grows by the {name.split('.')[0]}.\n" * 40
            path = os.path.join(garden, name)
            with open(path, "w") as file:
                file.write(text)
            os.utime(path, (WHEN, WHEN))
            archive.writestr(zipfile.ZipInfo("garden/" + name, (2026, 5, 20, 20, 26, 40)), text, zipfile.ZIP_DEFLATED)
    with open(os.path.join(HOME, "garden.html"), "w") as file:
        file.write(PAGE)
    config = os.path.join(HOME, ".config")
    os.mkdir(config)
    with open(os.path.join(config, "QuillOfficeToolsv2.lines.json"), "w") as file:
        json.dump({"lines": [{"kind": "sip", "label": "Home", "user": "tom", "server": "sip.example.org"}]}, file)
    return os.path.join(program, "quill-office-tools")


def take(app, contacts, out, area, steps):
    twips = {"MainLeft": 0, "MainTop": 30 * 15, "MainWidth": FRAME[0] * 15, "MainHeight": FRAME[1] * 15}
    settings = "[Options]\nShow%20Splash%20at%20Startup=0\n[Settings]\n" + "".join(
        f"{key}={value}\n" for key, value in twips.items())
    suite = Suite(furnish(app, contacts), home=HOME, settings=settings)
    try:
        suite.frame_id = suite.frame()
        settle()
        for words in steps:
            step(suite, *words)
        picture(suite, out, area)
    finally:
        suite.kill()


def main(app, contacts, folder, *names):
    os.makedirs(folder, exist_ok=True)
    for name, area, steps in PICTURES:
        if names and name not in names:
            continue
        print(name, flush=True)
        try:
            take(app, contacts, os.path.join(folder, name + ".png"), area, steps)
        finally:
            shutil.rmtree(HOME)


if __name__ == "__main__":
    main(*sys.argv[1:])
