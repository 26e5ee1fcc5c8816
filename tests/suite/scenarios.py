"""scenarios.py PROGRAM SCENARIO: one run through the suite, as a user works with it."""
import os
import sys

from desktop import Suite, wait_for, xdotool


def read(path):
    with open(path, "rb") as file:
        return file.read()


def first_start(program):
    suite = Suite(program, settings=None)
    yield suite
    splash = wait_for("the splash", lambda: xdotool("search", "--onlyvisible", "--class", "QuillOfficeTools"))
    wait_for("the splash to take keys", lambda: xdotool("getactivewindow") in splash.split())
    suite.key("space")
    suite.frame()
    suite.menu("f", "x")
    suite.ended()
    assert suite.setting("MainWidth") == "13200", suite.setting("MainWidth")


def writing_a_document(program):
    suite = Suite(program)
    yield suite
    suite.frame()
    suite.type("A letter, with www.example.org in it")
    suite.menu("f", "r")
    suite.file_dialog("Save As RTF", suite.path("letter"))
    saved = suite.path("letter.rtf")
    wait_for("the file", lambda: os.path.exists(saved))
    assert b"www.example.org" in read(saved)
    suite.frame()
    suite.type("x")
    suite.menu("f", "x")
    suite.answer("Save Changes?...", "alt+n")
    suite.ended()
    assert b"itx" not in read(saved)


def changing_a_file(program):
    suite = Suite(program)
    yield suite
    name = suite.path("notes.txt")
    with open(name, "wb") as file:
        file.write(b"one\r\ntwo\r\n")
    suite.frame()
    suite.key("ctrl+o")
    suite.file_dialog("Open", name)
    suite.frame()
    suite.type("zero ")
    suite.menu("f", "s")
    wait_for("the file to change", lambda: read(name) == b"zero one\r\ntwo\r\n")
    suite.key("ctrl+o")
    suite.file_dialog("Open", name)
    suite.answer("File already open...", "Return")
    suite.menu("f", "x")
    suite.ended()


def position_survives(program):
    suite = Suite(program)
    yield suite
    frame = suite.frame()
    xdotool("windowsize", "--sync", frame, "900", "600")
    xdotool("windowmove", "--sync", frame, "220", "140")
    geometry = xdotool("getwindowgeometry", frame).split("\n")[1:]
    suite.menu("f", "x")
    suite.ended()
    again = Suite(program, home=suite.home, settings=None)
    yield again
    frame = again.frame()
    wait_for("the same place", lambda: xdotool("getwindowgeometry", frame).split("\n")[1:] == geometry)
    again.menu("f", "x")
    again.ended()


def broken_settings(program):
    suite = Suite(program, settings="[Options]\nShow%20Splash%20at%20Startup=0\n[Settings]\nMainLeft=left\n")
    yield suite
    suite.answer("Quill-Office Tools - Error Message", "Return")
    suite.ended(code=1)


def many_windows(program):
    suite = Suite(program)
    yield suite
    suite.frame()
    suite.key("ctrl+n", "ctrl+n")
    for arrangement in "chva":
        suite.menu("w", arrangement)
    suite.menu("i", "Up", "Return")  # the tips are the last item
    suite.menu("v", "t")
    suite.menu("v", "b")
    suite.menu("t", "Return")
    suite.answer("Options", "Escape")
    for _ in range(4):
        suite.menu("f", "c")
    suite.menu("f", "x")
    suite.ended()


SCENARIOS = {
    "FirstStart": first_start,
    "WritingADocument": writing_a_document,
    "ChangingAFile": changing_a_file,
    "PositionSurvives": position_survives,
    "BrokenSettings": broken_settings,
    "ManyWindows": many_windows,
}


def main():
    program, scenario = sys.argv[1:]
    running = []
    try:
        for suite in SCENARIOS[scenario](program):
            running.append(suite)
    finally:
        for suite in running:
            suite.kill()


main()
