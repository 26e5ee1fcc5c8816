#!/usr/bin/python3
"""Measures replace-all beside LibreOffice Writer: bench_replace_all.py BUILD/bench/word/bench_ReplaceAll [--runs N]

100,000 hits in 10 MB of text with runs of several looks, the same file for both. Printed are the median times from
the command to the painted page, our undo, and our memory while replacing as a multiple of that before; then the
reference program's times as multiples of ours: of its command Replace All, and of the bare call of its scripting
interface, which shows nothing on a page. It keeps no undo of so many hits. Needs libreoffice-writer and python3-uno.
"""

import argparse
import os
import signal
import statistics
import subprocess
import tempfile
import time

PARAGRAPHS = 100_000
LOOKS = ("{text}", r"{{\b {text}}}", r"{{\cf1\i {text}}}", r"{{\f1\fs24 {text}}}")
WORDS = "garden spade water seed shade radish tulip long basket rose letter early morning north south bed".split()
WHOLE_TEXT, MATCH_CASE = 0x10000, 0x400  # as the reference program records them in a macro
PIPE = "quill_bench_replace_all"


def make(path):
    with open(path, "w", encoding="ascii") as file:
        file.write(r"{\rtf1\ansi\deff0{\fonttbl{\f0 Liberation Sans;}{\f1 Liberation Serif;}}"
                   r"{\colortbl;\red128\green0\blue0;}\fs20" "\n")
        for number in range(PARAGRAPHS):
            words = [WORDS[(number * 7 + i * 5) % len(WORDS)] for i in range(16)]
            words[number % 16] = "harvest"
            runs = (LOOKS[i].format(text=" ".join(words[i * 4:i * 4 + 4]) + " ") for i in range(4))
            file.write(r"\pard " + "".join(runs) + "\\par\n")
        file.write("}\n")


def ours(program, file):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    out = subprocess.run([program, file], env=environment, check=True, capture_output=True, text=True).stdout
    hits, left, replacing, undoing, before, peak = map(float, out.split())
    if hits != PARAGRAPHS or left != 0:
        raise SystemExit(f"replaced {hits:.0f}, {left:.0f} after the undo")
    return {"replacing": replacing, "undoing": undoing, "memory": peak / before}


def connect(patience):
    import uno
    resolver = uno.getComponentContext().ServiceManager.createInstance("com.sun.star.bridge.UnoUrlResolver")
    end = time.monotonic() + patience
    while True:
        try:
            return resolver.resolve(f"uno:pipe,name={PIPE};urp;StarOffice.ComponentContext")
        except Exception:
            if time.monotonic() > end:
                raise
            time.sleep(0.2)


def timed(step):
    start = time.monotonic()
    step()
    return (time.monotonic() - start) * 1000


def values(**named):
    from com.sun.star.beans import PropertyValue
    return tuple(PropertyValue(Name=name.replace("_", "."), Value=value) for name, value in named.items())


def replace_by_command(context, document):
    import uno
    helper = context.ServiceManager.createInstanceWithContext("com.sun.star.frame.DispatchHelper", context)
    every, paragraphs = uno.Any("short", 3), uno.Any("short", 2)
    search = values(SearchItem_SearchString="harvest", SearchItem_ReplaceString="gathering", SearchItem_Command=every,
                    SearchItem_StyleFamily=paragraphs, SearchItem_SearchFlags=WHOLE_TEXT,
                    SearchItem_TransliterateFlags=MATCH_CASE, Quiet=True)
    frame = document.CurrentController.Frame
    return timed(lambda: helper.executeDispatch(frame, ".uno:ExecuteSearch", "", 0, search))


def replace_by_call(_, document):
    search = document.createReplaceDescriptor()
    search.SearchString, search.ReplaceString = "harvest", "gathering"
    search.SearchCaseSensitive = True
    return timed(lambda: document.replaceAll(search))


def reference(file, folder, replace):
    """Milliseconds that the reference program takes for it."""
    import uno
    office = subprocess.Popen(["soffice", "--headless", "--norestore", f"-env:UserInstallation=file://{folder}/profile",
                               f"--accept=pipe,name={PIPE};urp;"], stderr=subprocess.DEVNULL, start_new_session=True)
    try:
        context = connect(60)
        desktop = context.ServiceManager.createInstanceWithContext("com.sun.star.frame.Desktop", context)
        document = desktop.loadComponentFromURL(uno.systemPathToFileUrl(file), "_blank", 0, ())
        time_taken = replace(context, document)
        if document.Text.String.count("gathering") != PARAGRAPHS:
            raise SystemExit("the reference program has not replaced everything")
    finally:
        os.killpg(office.pid, signal.SIGKILL)
        office.wait()
    return time_taken


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program", help="bench_ReplaceAll of a release build")
    parser.add_argument("--runs", type=int, default=5, help="of our own program; the reference program runs once")
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        file = os.path.join(folder, "document.rtf")
        make(file)
        runs = [ours(arguments.program, file) for _ in range(arguments.runs)]
        median = {key: statistics.median(run[key] for run in runs) for key in runs[0]}
        print(f"{PARAGRAPHS} hits, {os.path.getsize(file) / 1e6:.1f} MB of rich text", flush=True)
        print(f"  replace all         {median['replacing']:8.0f} ms")
        print(f"  undo of it          {median['undoing']:8.0f} ms")
        print(f"  memory while at it  {median['memory']:8.2f} x that before", flush=True)
        for name, replace in (("reference command", replace_by_command), ("reference call", replace_by_call)):
            taken = reference(file, folder, replace)
            print(f"  {name:19} {taken:8.0f} ms   {taken / median['replacing']:8.1f} x ours", flush=True)


if __name__ == "__main__":
    main()
