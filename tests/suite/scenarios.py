"""scenarios.py PROGRAM SCENARIO: one run through the suite, as a user works with it."""
import os
import random
import sys
import tempfile
import time

from desktop import Suite, read, wait_for, xdotool


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


def recovery_after_a_kill(program):
    suite = Suite(program)
    yield suite
    suite.frame()
    suite.type("words that are not saved")
    wait_for("the recovery copy", lambda: any(b"words that are not saved" in copy for copy in suite.recovery_copies()))
    suite.kill()
    again = Suite(program, home=suite.home, settings=None)
    yield again
    again.frame()
    again.type("Still: ")
    again.menu("f", "c")
    again.answer("Save Changes?...", "alt+y")
    again.answer("Save as RTF?...", "alt+y")
    again.file_dialog("Save As RTF", again.path("letter"))
    wait_for("the file", lambda: os.path.exists(again.path("letter.rtf")))
    saved = read(again.path("letter.rtf"))
    assert b"Still: words that are not saved" in saved, saved
    again.frame()
    again.menu("f", "x")  # what is left is the untouched first document
    again.ended()
    assert not again.recovery_copies()


def recovery_after_an_error(program):
    suite = Suite(program)
    yield suite
    folder = suite.path("stick")
    name = os.path.join(folder, "notes.txt")
    os.mkdir(folder)
    with open(name, "wb") as file:
        file.write(b"one\r\n")
    suite.frame()
    suite.key("ctrl+o")
    suite.file_dialog("Open", name)
    suite.frame()
    suite.type("zero ")
    os.remove(name)
    os.rmdir(folder)
    suite.menu("f", "s")
    suite.answer("QuillOfficeToolsv2", "Return")
    suite.ended(code=1)
    again = Suite(program, home=suite.home, settings=None)
    yield again
    again.frame()
    os.mkdir(folder)
    again.menu("f", "s")  # under the name that it had
    wait_for("the file", lambda: os.path.exists(name))
    assert read(name) == b"zero one\r\n", read(name)
    again.menu("f", "x")
    again.ended()
    assert not again.recovery_copies()


def two_suites(program):
    suite = Suite(program)
    yield suite
    first = suite.frame()
    suite.type("of the first suite")
    wait_for("the recovery copy", lambda: any(b"of the first suite" in copy for copy in suite.recovery_copies()))
    second = Suite(program, home=suite.home, settings=None)
    yield second
    wait_for("the second frame", lambda: second.frame() != first)
    second.menu("f", "x")
    second.ended()  # nothing has been asked: it has no document of the first one
    assert len(suite.recovery_copies()) == 1
    wait_for("the first frame", lambda: suite.frame() == first)
    suite.menu("f", "x")
    suite.answer("Save Changes?...", "alt+n")
    suite.ended()
    assert not suite.recovery_copies()


def killed_while_saving(program):
    lines, kills = 20000, 5
    folder = tempfile.mkdtemp(prefix="quill-saves-")
    name = os.path.join(folder, "long.rtf")
    with open(name, "wb") as file:
        file.write(b"{\\rtf1\\ansi " + b"a line\\par\n" * lines + b"}")
    for _ in range(kills):
        suite = Suite(program)
        yield suite
        suite.frame()
        suite.key("ctrl+o")
        suite.file_dialog("Open", name)
        suite.frame()
        suite.type("zero ")
        before = read(name)
        suite.menu("f", "s")
        wait_for("the save", lambda: len(os.listdir(folder)) > 1 or read(name) != before)
        time.sleep(random.random() / 20)
        suite.kill()
        after = read(name)
        assert after == before or after.count(b"zero ") == before.count(b"zero ") + 1, after[:200]
        assert after.count(b"a line") == lines and after.rstrip().endswith(b"}"), after[-200:]
        for left in os.listdir(folder):
            if left != "long.rtf":
                os.remove(os.path.join(folder, left))


def killed_while_asked(program):
    """With a question on the screen nothing is saved and nothing is lost yet."""
    suite = Suite(program)
    yield suite
    name = suite.path("letter.rtf")
    with open(name, "wb") as file:
        file.write(b"{\\rtf1\\ansi old}")
    old = read(name)
    suite.frame()
    suite.key("ctrl+o")
    suite.file_dialog("Open", name)
    suite.frame()
    suite.type("new ")
    wait_for("the recovery copy", lambda: any(b"new " in copy for copy in suite.recovery_copies()))

    def closing():
        suite.menu("f", "c")
        suite.window("Save Changes?...")

    def choosing_the_format():
        closing()
        suite.answer("Save Changes?...", "alt+y")
        suite.window("Save as RTF?...")

    def overwriting():
        suite.menu("f", "r")
        suite.overwrite_question("Save As RTF", name)

    for question in closing, choosing_the_format, overwriting:
        question()
        suite.kill()
        assert read(name) == old, (question, read(name))
        assert any(b"new " in copy for copy in suite.recovery_copies()), question
        suite = Suite(program, home=suite.home, settings=None)
        yield suite
        suite.frame()
    overwriting()
    suite.key("alt+y")
    time.sleep(random.random() / 20)
    suite.kill()
    saved = read(name)
    assert saved == old or (b"new " in saved and b"old" in saved and saved.rstrip().endswith(b"}")), saved
    assert any(b"new " in kept for kept in [saved, *suite.recovery_copies()]), saved


def saves_that_fail(program):
    suite = Suite(program)
    yield suite
    locked, full, good = suite.path("locked"), suite.path("full.rtf"), suite.path("good.rtf")
    os.mkdir(locked, 0o555)
    suite.frame()
    suite.type("words that are not saved")
    suite.menu("f", "r")
    suite.file_dialog("Save As RTF", os.path.join(locked, "letter"))
    suite.answer("System Error!", "Return")
    suite.frame()
    suite.limit_files(100)
    suite.menu("f", "r")
    suite.file_dialog("Save As RTF", full)
    suite.answer("System Error!", "Return")
    suite.limit_files("unlimited")
    suite.frame()
    assert not os.listdir(locked) and not os.path.exists(full)
    suite.menu("f", "c")
    suite.answer("Save Changes?...", "alt+y")
    suite.answer("Save as RTF?...", "alt+y")
    suite.file_dialog("Save As RTF", good)
    wait_for("the file", lambda: os.path.exists(good))
    assert b"words that are not saved" in read(good), read(good)
    suite.frame()
    suite.menu("f", "x")
    suite.ended()


SCENARIOS = {
    "FirstStart": first_start,
    "WritingADocument": writing_a_document,
    "ChangingAFile": changing_a_file,
    "PositionSurvives": position_survives,
    "BrokenSettings": broken_settings,
    "ManyWindows": many_windows,
    "RecoveryAfterAKill": recovery_after_a_kill,
    "RecoveryAfterAnError": recovery_after_an_error,
    "TwoSuites": two_suites,
    "KilledWhileSaving": killed_while_saving,
    "KilledWhileAsked": killed_while_asked,
    "SavesThatFail": saves_that_fail,
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
