#!/usr/bin/env python3
"""Compares printed pages: bench_pages.py BUILD/bench/richtext/print_document [--keep FOLDER]

Ten documents that other programs have written (LibreOffice from HTML, DocBook, manual pages and its own templates,
AbiWord from its own) are printed to PDF by the word processor's control and by LibreOffice from the same file. Printed
are the numbers of pages and of words, and how many of a page's words differ: those that only one of the two has there,
as a share of the words that LibreOffice has. "worst" is the page that differs most, "all" the whole document with its
pages taken away. Needs libreoffice-writer, abiword, man-db, poppler-utils.
"""

import argparse
import collections
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "rtf"))
from corpus import DOCBOOK, HTML, TEMPLATES, TEXT, Office, docbook, manual  # noqa: E402


def sources(folder):
    """(name, file, import filter or None) of what LibreOffice is to write as rich text."""
    for name, content in (("article.xml", docbook().encode()), ("man-bash.txt", manual("bash")), ("man-tar.txt", manual("tar"))):
        (folder / name).write_bytes(content)
    return [
        ("policy", pathlib.Path("/usr/share/doc/python3/python-policy.html"), HTML),
        ("zlib", pathlib.Path("/usr/share/doc/zlib1g-dev/examples/zlib_how.html"), HTML),
        ("groups", pathlib.Path("/usr/share/doc/base-passwd/users-and-groups.html"), HTML),
        ("article", folder / "article.xml", DOCBOOK),
        ("man-bash", folder / "man-bash.txt", TEXT),
        ("man-tar", folder / "man-tar.txt", TEXT),
        ("letter", TEMPLATES / "officorr/Modern_business_letter_serif.ott", None),
        ("cv", TEMPLATES / "personal/CV.ott", None),
        ("agenda", TEMPLATES / "wizard/agenda/4classic.ott", None),
    ]


def documents(folder, office):
    for name, source, filter_name in sources(folder):
        if not source.exists():
            print(f"{name}: {source} is not installed")
            continue
        target = folder / f"{name}.rtf"
        office.convert(source, target, filter_name)
        yield target
    target = folder / "directory.rtf"
    template = "/usr/share/abiword-3.0/templates/Employee-Directory.awt"
    subprocess.run(["abiword", "--to=rtf", "-o", str(target), template], capture_output=True, check=True)
    yield target


def pages(pdf):
    """The words of each page and how often each is there."""
    text = subprocess.run(["pdftotext", str(pdf), "-"], capture_output=True, check=True, text=True).stdout
    return [collections.Counter(page.split()) for page in text.split("\f")[:-1]]


def difference(ours, theirs):
    """Percent."""
    differing = sum(((ours - theirs) + (theirs - ours)).values())
    return 100 * differing / max(1, 2 * sum(theirs.values()))


def row(name, ours, theirs):
    count = max(len(ours), len(theirs))
    empty = collections.Counter()
    shares = [
        difference(ours[i] if i < len(ours) else empty, theirs[i] if i < len(theirs) else empty) for i in range(count)
    ]
    whole = difference(sum(ours, collections.Counter()), sum(theirs, collections.Counter()))
    worst = max(range(count), key=shares.__getitem__)
    words = sum(sum(page.values()) for page in theirs)
    return (
        f"{name:10} {len(ours):5} {len(theirs):7} {words:7} {whole:6.1f} {statistics.median(shares):7.1f} "
        f"{shares[worst]:6.1f} (page {worst + 1})"
    )


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("program")
    arguments.add_argument("--keep", type=pathlib.Path)
    chosen = arguments.parse_args()
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    with tempfile.TemporaryDirectory() as scratch:
        folder = chosen.keep or pathlib.Path(scratch)
        folder.mkdir(exist_ok=True)
        office = Office(folder.resolve())
        print(f"{'document':10} {'pages':>5} {'theirs':>7} {'words':>7} {'all %':>6} {'page %':>7} {'worst':>6}")
        for document in documents(folder, office):
            ours, theirs = document.with_suffix(".ours.pdf"), document.with_suffix(".theirs.pdf")
            subprocess.run([chosen.program, str(document), str(ours)], env=environment, check=True)
            office.convert(document, document.with_suffix(".pdf"))
            shutil.move(document.with_suffix(".pdf"), theirs)
            print(row(document.stem, pages(ours), pages(theirs)), flush=True)


main()
