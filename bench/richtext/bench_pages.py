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
import tempfile

TEMPLATES = pathlib.Path("/usr/lib/libreoffice/share/template/common")
HTML = "HTML (StarWriter)"
TEXT = "Text (encoded)"
DOCBOOK = "DocBook File"
SECTIONS = 14
PARAGRAPH = (
    "The garden north of the house has a long bed of radish and tulip, in the shade of the early morning. Water the "
    "seed in autumn, and cut the rose along the stone path before the basket is full of letters and harvest. "
)


def docbook():
    """An article of sections with paragraphs, lists and a table."""
    sections = []
    for number in range(1, SECTIONS + 1):
        items = "".join(f"<listitem><para>Item {i} of section {number}.</para></listitem>" for i in range(1, 6))
        cells = "".join(f"<row><entry>Bed {i}</entry><entry>{i * number} seeds</entry></row>" for i in range(1, 5))
        sections.append(
            f"<sect1><title>Section {number}</title><para>{PARAGRAPH * 3}</para><itemizedlist>{items}</itemizedlist>"
            f"<para>{PARAGRAPH * 2}<emphasis>See below.</emphasis></para><table><title>Seeds</title>"
            f'<tgroup cols="2"><tbody>{cells}</tbody></tgroup></table></sect1>'
        )
    return (
        '<?xml version="1.0"?><!DOCTYPE article PUBLIC "-//OASIS//DTD DocBook XML V4.1.2//EN" '
        '"http://www.oasis-open.org/docbook/xml/4.1.2/docbookx.dtd"><article><articleinfo><title>The garden</title>'
        f"</articleinfo>{''.join(sections)}</article>"
    )


def manual(page):
    environment = dict(os.environ, MANWIDTH="75", LC_ALL="C.UTF-8")
    return subprocess.run(["man", "-P", "cat", page], env=environment, capture_output=True, check=True).stdout


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


class Office:
    """LibreOffice with settings of its own."""

    def __init__(self, folder):
        self.folder = folder
        self.profile = f"-env:UserInstallation=file://{folder}/profile"

    def convert(self, source, target, filter_name=None):
        command = ["soffice", self.profile, "--headless", "--convert-to", target.suffix[1:], "--outdir", str(self.folder / "out")]
        if filter_name:
            command.insert(3, f"--infilter={filter_name}")
        subprocess.run([*command, str(source)], capture_output=True, check=True)
        shutil.move(self.folder / "out" / (source.stem + target.suffix), target)


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
