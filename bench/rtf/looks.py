"""What LibreOffice's scripting interface says about a document: its text and all looks that can be lost."""

import contextlib
import json
import os
import pathlib
import re
import subprocess

JOB = "QUILL_BENCH_LOOKS"
CHARACTERS = (
    "CharBackColor CharColor CharEscapement CharFontName CharFontNameAsian CharFontNameComplex CharHeight CharHeightAsian "
    "CharHeightComplex CharHidden CharPosture CharStrikeout CharUnderline CharWeight HyperLinkURL"
).split()
PARAGRAPHS = (
    "BottomBorder LeftBorder ListLabelString NumberingLevel NumberingStyleName ParaAdjust ParaBackColor ParaBottomMargin "
    "ParaFirstLineIndent ParaLeftMargin ParaLineSpacing ParaRightMargin ParaStyleName ParaTabStops ParaTopMargin RightBorder "
    "TopBorder"
).split()
BULLETS = {"\uf0b7": "•", "●": "•", "·": "•", "o": "◦", "○": "◦", "\uf0a7": "▪", "■": "▪"}
SCRIPTS = (("Complex", re.compile("[\u0590-\u10a0\ufb1d-\ufe00\ufe70-\ufefe]")),
           ("Asian", re.compile("[\u1100-\u11ff\u2e80-\ud7ff\uf900-\ufaff\uff00-\uffef\U00010000-\U0010ffff]")))
BULLET, UNMARKED = 6, 5  # kinds of numbering


def struct(value):
    """A setting of the program as plain data."""
    kind = type(value).__name__
    if kind == "Enum":
        return value.value
    if hasattr(value, "LineWidth"):
        return (value.LineStyle, value.LineWidth, value.Color) if value.LineWidth or value.OuterLineWidth else None
    if hasattr(value, "Mode"):
        return (value.Mode, value.Height)
    if isinstance(value, tuple):
        return [(tab.Position, tab.Alignment.value) for tab in value]
    return value


def script_of(text):
    for name, letters in SCRIPTS:
        if letters.search(text):
            return name
    return ""


class Looks:
    """One document, walked through."""

    def __init__(self, document):
        self.document = document
        self.rules = {}
        self.known = {"paragraphs": [], "cells": []}
        self.styles = document.StyleFamilies

    def read(self):
        self.walk(self.document.Text, 0)
        for place in range(self.document.Footnotes.Count):
            note = self.document.Footnotes.getByIndex(place)
            self.walk(note, 0)
        for place in range(self.document.TextFrames.Count):
            self.walk(self.document.TextFrames.getByIndex(place), 0)
        self.known["pictures"] = self.shapes()
        self.known["notes"] = [self.document.Footnotes.getByIndex(i).String for i in range(self.document.Footnotes.Count)]
        self.known["bookmarks"] = [name for name in self.document.Bookmarks.ElementNames if not name.startswith("_")]
        self.known["comments"] = self.comments()
        self.known["pages"] = self.pages()
        properties = self.document.DocumentProperties
        self.known["information"] = [text for text in (properties.Title, properties.Author, properties.Subject,
                                                       " ".join(properties.Keywords)) if text]
        return self.known

    def walk(self, text, depth):
        parts = text.createEnumeration()
        while parts.hasMoreElements():
            part = parts.nextElement()
            if part.supportsService("com.sun.star.text.TextTable"):
                self.table(part, depth)
            elif part.supportsService("com.sun.star.text.Paragraph"):
                self.paragraph(part)

    def table(self, table, depth):
        for name in table.CellNames:
            cell = table.getCellByName(name)
            if cell is not None:
                self.known["cells"].append([depth, name, cell.String])
                self.walk(cell, depth + 1)

    def paragraph(self, paragraph):
        look = {name: struct(value) for name, value in zip(PARAGRAPHS, paragraph.getPropertyValues(tuple(PARAGRAPHS)))}
        self.mark(look, paragraph)
        text, runs = "", []
        portions = paragraph.createEnumeration()
        while portions.hasMoreElements():
            portion = portions.nextElement()
            string = portion.String
            if string and portion.TextPortionType in ("Text", "TextField", "Footnote"):
                text += string
                runs.append([len(text), self.characters(portion, string)])
        self.known["paragraphs"].append({"text": text, "runs": runs, "look": look})

    def characters(self, portion, string):
        look = dict(zip(CHARACTERS, map(struct, portion.getPropertyValues(tuple(CHARACTERS)))))
        script = script_of(string)
        kept = {name: value for name, value in look.items() if not name.endswith(("Asian", "Complex"))}
        for name in ("CharFontName", "CharHeight"):
            kept[name] = look[name + script]
        return kept

    def mark(self, look, paragraph):
        """The label of a list's item, and the indents that the list gives where the paragraph has none."""
        style, level = look.pop("NumberingStyleName"), look.pop("NumberingLevel")
        label = look.pop("ListLabelString")
        look["label"] = None
        if not style:
            return
        if (style, level) not in self.rules:
            rules = self.styles.getByName("NumberingStyles").getByName(style).NumberingRules
            self.rules[style, level] = {value.Name: value.Value for value in rules.getByIndex(level)}
        rule = self.rules[style, level]
        kind = rule.get("NumberingType")
        if kind == BULLET:
            look["label"] = BULLETS.get(rule.get("BulletChar"), rule.get("BulletChar"))
        elif kind != UNMARKED:
            look["label"] = label
        direct, default = "DIRECT_VALUE", {"ParaLeftMargin": "IndentAt", "ParaFirstLineIndent": "FirstLineIndent"}
        for name, source in default.items():
            if paragraph.getPropertyState(name).value != direct and source in rule:
                look[name] = rule[source]

    def shapes(self):
        """Sizes of pictures in millimetres; the text of drawings goes to the paragraphs."""
        pictures = self.document.GraphicObjects
        sizes = [self.size(pictures.getByIndex(place)) for place in range(pictures.Count)]
        page = self.document.DrawPage
        for place in range(page.Count):
            shape = page.getByIndex(place)
            with contextlib.suppress(Exception):
                if shape.supportsService("com.sun.star.text.BaseFrame"):
                    continue
                if "GraphicObject" in shape.ShapeType:
                    sizes.append(self.size(shape))
                elif shape.String:
                    self.walk(shape, 0)
        return sizes

    @staticmethod
    def size(shape):
        return [round(shape.Size.Width / 200), round(shape.Size.Height / 200)]  # what is rounded may differ a little

    def comments(self):
        texts = []
        fields = self.document.TextFields.createEnumeration()
        while fields.hasMoreElements():
            field = fields.nextElement()
            if field.supportsService("com.sun.star.text.textfield.Annotation"):
                texts.append(f"{field.Author}: {field.Content}")
        return texts

    def pages(self):
        """Headers and footers of the kinds of page that are used."""
        texts = []
        family = self.styles.getByName("PageStyles")
        for name in family.ElementNames:
            style = family.getByName(name)
            if not style.isInUse():
                continue
            for kind in ("Header", "Footer"):
                if not getattr(style, f"{kind}IsOn"):
                    continue
                kinds = [kind + "Text"]
                kinds += [] if style.FirstIsShared else [kind + "TextFirst"]
                kinds += [] if getattr(style, f"{kind}IsShared") else [kind + "TextLeft"]
                texts += [f"{kind}: {getattr(style, part).String}" for part in kinds if getattr(style, part).String.strip()]
        return texts


def read_all(*_):
    """Runs inside the program, as a macro: reads the files of the job, and then ends it."""
    import uno
    from com.sun.star.beans import PropertyValue

    desktop = XSCRIPTCONTEXT.getDesktop()  # noqa: F821, the program gives it to macros
    settings = (PropertyValue(Name="Hidden", Value=True), PropertyValue(Name="FilterName", Value="Rich Text Format"))
    for path, target in json.loads(pathlib.Path(os.environ[JOB]).read_text()):
        pathlib.Path(target).touch()  # a file that ends the program is not read again
        with contextlib.suppress(Exception):
            document = desktop.loadComponentFromURL(uno.systemPathToFileUrl(path), "_blank", 0, settings)
            known = Looks(document).read()
            pathlib.Path(target).write_text(json.dumps(known))
            document.close(True)
    desktop.terminate()


class Program:
    """LibreOffice, with settings of its own. The macro runs inside it: from outside each question takes too long."""

    def __init__(self, folder):
        self.folder = folder
        scripts = folder / "profile-reading" / "user" / "Scripts" / "python"
        scripts.mkdir(parents=True, exist_ok=True)
        (scripts / "looks.py").write_bytes(pathlib.Path(__file__).read_bytes())

    def read(self, files):
        """\a files are pairs of a document and where its looks go; an empty file where it cannot be read."""
        job = self.folder / "job.json"
        command = ["soffice", "--headless", "--norestore", f"-env:UserInstallation=file://{self.folder}/profile-reading",
                   "vnd.sun.star.script:looks.py$read_all?language=Python&location=user"]
        while files:
            job.write_text(json.dumps([(str(path), str(target)) for path, target in files]))
            subprocess.run(command, env=dict(os.environ, **{JOB: str(job)}), capture_output=True, check=False)
            left = [pair for pair in files if not pair[1].exists()]
            if len(left) == len(files):
                raise SystemExit("LibreOffice runs no macros: libreoffice-script-provider-python is needed")
            files = left
