"""Documents of other programs, made from what Debian's packages bring; nothing of it is kept with the sources."""

import csv
import html
import os
import pathlib
import shutil
import subprocess

TEMPLATES = pathlib.Path("/usr/lib/libreoffice/share/template/common")
WORDS = pathlib.Path("/usr/share/abiword-3.0/templates")
DOCUMENTS = pathlib.Path("/usr/share/doc")
LARGEST = 60_000  # bytes of a source: larger ones are more of the same
HTML = "HTML (StarWriter)"
TEXT = "Text (encoded)"
DOCBOOK = "DocBook File"
SECTIONS = 14
PARAGRAPH = (
    "The garden north of the house has a long bed of radish and tulip, in the shade of the early morning. Water the "
    "seed in autumn, and cut the rose along the stone path before the basket is full of letters and harvest. "
)
MANUALS = ("ls", "tar", "sed", "find", "gzip", "cp", "chmod", "diff", "sort", "dd", "make", "grep")
CODE = {"py": "/usr/lib/python3", "pl": "/usr/share/perl", "sh": "/usr/share", "h": "/usr/include"}


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


def sheet(path):
    """The rows of a spreadsheet as a page with a table."""
    with open(path, encoding="utf-8") as file:
        rows = ["".join(f"<td>{html.escape(cell)}</td>" for cell in row) for row in csv.reader(file)]
    return "<html><body><h1>Sheet</h1><table border=1>" + "".join(f"<tr>{row}</tr>" for row in rows) + "</table></body></html>"


# What a person puts into a letter beside text: it has to survive though it is not shown.
OPEN_DOCUMENT = """<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
 xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0" xmlns:dc="http://purl.org/dc/elements/1.1/"
 xmlns:meta="urn:oasis:names:tc:opendocument:xmlns:meta:1.0" xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
 office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.text">
<office:meta><dc:title>Garden {number}</dc:title><meta:initial-creator>A. Gardener</meta:initial-creator>
<dc:subject>Beds</dc:subject><meta:keyword>seed</meta:keyword></office:meta>
<office:automatic-styles>
<style:style style:name="hid" style:family="text"><style:text-properties text:display="none"/></style:style>
<style:style style:name="black" style:family="text"><style:text-properties fo:color="#000000"/></style:style>
<style:style style:name="box" style:family="paragraph"><style:paragraph-properties fo:border="{width}pt solid #cc0000"
 fo:padding="0.1cm" fo:margin-left="1cm"/></style:style>
<style:style style:name="line" style:family="paragraph"><style:paragraph-properties fo:border-bottom="1pt {line} #0000cc"
 fo:padding-bottom="0.05cm"/></style:style>
<style:style style:name="next" style:family="paragraph" style:master-page-name="Second"/>
<style:page-layout style:name="pl"><style:page-layout-properties fo:page-width="21cm" fo:page-height="29.7cm"
 fo:margin-left="2cm" fo:margin-right="2cm" fo:margin-top="2cm" fo:margin-bottom="2cm"/><style:header-style/>
<style:footer-style/></style:page-layout>
</office:automatic-styles>
<office:master-styles>
<style:master-page style:name="Standard" style:page-layout-name="pl">
<style:header><text:p>First head {number}</text:p></style:header>
<style:footer><text:p>Page <text:page-number/> of <text:page-count/></text:p></style:footer></style:master-page>
<style:master-page style:name="Second" style:page-layout-name="pl">
<style:header><text:p>Second head {number}</text:p></style:header></style:master-page>
</office:master-styles>
<office:body><office:text>
<text:p>Before<text:bookmark text:name="start{number}"/> and <text:span text:style-name="hid">not seen {number}</text:span>
 after, <text:span text:style-name="black">in black</text:span>.</text:p>
<text:p text:style-name="box">{paragraph}</text:p>
<text:p text:style-name="box">{paragraph}</text:p>
<text:p text:style-name="line">A ruled line.</text:p>
<text:p>With a comment<office:annotation><dc:creator>B. Reader</dc:creator><dc:date>2024-05-0{number}T10:00:00</dc:date>
<text:p>Is that so?</text:p></office:annotation> here, and <text:bookmark-start text:name="range"/>a range
<text:bookmark-end text:name="range"/>.</text:p>
<text:p><text:span text:style-name="hid">{paragraph}</text:span></text:p>
<text:p>Written by <text:author-name/>, about <text:subject/>, titled <text:title/>.</text:p>
<table:table><table:table-column table:number-columns-repeated="2"/><table:table-row><table:table-cell>
<text:p text:style-name="line">Cell</text:p></table:table-cell><table:table-cell>
<text:p>Cell <text:span text:style-name="hid">hidden</text:span></text:p></table:table-cell></table:table-row></table:table>
<text:p text:style-name="next">The second part.</text:p><text:p>{paragraph}</text:p>
</office:text></office:body></office:document>
"""


def open_document(number):
    return OPEN_DOCUMENT.format(number=number, width=number, line=("solid", "dotted", "dashed", "double")[number % 4], paragraph=PARAGRAPH)


def spread(paths, count):
    """At most \a count of them, taken in turn from each package, and no two of one name."""
    groups = {}
    names = set()
    for path in sorted(paths):
        if path.is_file() and 500 < path.stat().st_size < LARGEST and path.stem not in names:
            names.add(path.stem)
            groups.setdefault(path.parts[:5], []).append(path)
    taken = []
    while groups and len(taken) < count:
        for key in list(groups):
            taken.append(groups[key].pop(0))
            if not groups[key]:
                del groups[key]
    return taken[:count]


class Office:
    """LibreOffice with settings of its own."""

    def __init__(self, folder):
        self.folder = folder
        self.profile = f"-env:UserInstallation=file://{folder}/profile"

    def convert(self, source, target, filter_name=None):
        written = self.convert_all([source], target.suffix[1:], filter_name)
        shutil.move(written[source], target)

    def convert_all(self, sources, ending, filter_name=None):
        """Files of different names in one go; which file each has become, where it has."""
        out = self.folder / "out"
        command = ["soffice", self.profile, "--headless", "--convert-to", ending, "--outdir", str(out)]
        if filter_name:
            command.insert(3, f"--infilter={filter_name}")
        subprocess.run([*command, *map(str, sources)], capture_output=True, check=True)
        written = {source: out / f"{source.stem}.{ending}" for source in sources}
        return {source: path for source, path in written.items() if path.exists()}


class Corpus:
    """Fills a folder with rich text, once."""

    def __init__(self, folder):
        self.folder = folder
        self.files = folder / "before"
        self.sources = folder / "sources"
        self.made = folder / "made"

    def paths(self):
        if not self.made.exists():
            self.files.mkdir(parents=True, exist_ok=True)
            self.sources.mkdir(exist_ok=True)
            for step in (self.office, self.abiword, self.pandoc, self.latex, self.jade, self.listings):
                step()
            self.made.touch()
        return sorted(self.files.glob("*.rtf"))

    def source(self, name, content):
        path = self.sources / name
        path.write_bytes(content if isinstance(content, bytes) else content.encode())
        return path

    def pages(self, count):
        return spread(DOCUMENTS.glob("**/*.html"), count)

    def office(self):
        office = Office(self.folder)
        sheets = [self.source(f"sheet-{path.stem}.html", sheet(path)) for path in pathlib.Path("/usr/share").glob("*/*.csv")]
        texts = [self.source(f"{page}.txt", manual(page)) for page in MANUALS[:6]]
        templates = [path for name in ("agenda", "fax", "letter", "report") for path in sorted(TEMPLATES.glob(f"wizard/{name}/*.ott"))[:7]]
        templates += [path for name in ("officorr", "offimisc", "personal", "styles") for path in sorted(TEMPLATES.glob(f"{name}/*.ott"))]
        made = [self.source(f"made-{number}.fodt", open_document(number)) for number in range(1, 5)]
        for kind, sources, filter_name in (
            ("html", self.pages(50) + sheets, HTML),
            ("man", texts, TEXT),
            ("docbook", [self.source("article.xml", docbook())], DOCBOOK),
            ("template", templates, None),
            ("made", made, None),
        ):
            for source, written in office.convert_all(sources, "rtf", filter_name).items():
                shutil.move(written, self.files / f"office-{kind}-{source.stem.replace(' ', '_')}.rtf")

    def by_command(self, kind, sources, command):
        """\a command makes one from the other, its last two arguments; or it prints it."""
        if not shutil.which(command[0]):
            print(f"{command[0]} is not installed")
            return
        for source in sources:
            target = self.files / f"{kind}-{source.stem.replace(' ', '_')}.rtf"
            arguments = [part.format(source=source, target=target) for part in command]
            subprocess.run(arguments, capture_output=True, check=False, timeout=120, cwd=self.sources)

    def abiword(self):
        templates = [path for path in sorted(WORDS.glob("*.awt")) if path.stem != "normal"]
        pages = self.pages(60)[40:52]
        command = ["abiword", "--to=rtf", "-o", "{target}", "{source}"]
        self.by_command("abiword", templates + pages, command)

    def pandoc(self):
        command = ["pandoc", "-s", "-t", "rtf", "-o", "{target}", "{source}"]
        manuals = []
        for page in MANUALS:
            where = subprocess.run(["man", "-w", page], capture_output=True, check=True, text=True).stdout.strip()
            raw = subprocess.run(["zcat", "-f", where], capture_output=True, check=True).stdout
            manuals.append(self.source(f"{page}.man", raw))
        self.by_command("pandoc-man", manuals, [*command[:2], "-f", "man", *command[2:]])
        self.by_command("pandoc-md", spread(DOCUMENTS.glob("*/*.md"), 10), command)
        self.by_command("pandoc-rst", spread(DOCUMENTS.glob("**/*.rst"), 6), command)
        self.by_command("pandoc-html", self.pages(40)[25:35], command)
        self.by_command("pandoc-docbook", [self.sources / "article.xml"], [*command[:2], "-f", "docbook", *command[2:]])

    def latex(self):
        if not shutil.which("pandoc"):
            return
        for source in spread(DOCUMENTS.glob("*/*.md"), 8):
            subprocess.run(["pandoc", "-s", "-t", "latex", "-o", str(self.sources / f"{source.stem}.tex"), str(source)], check=False)
        self.by_command("latex2rtf", sorted(self.sources.glob("*.tex")), ["latex2rtf", "-o", "{target}", "{source}"])

    def jade(self):
        article = self.source("jade-article.sgml", docbook().replace('<?xml version="1.0"?>', "").replace(
            "DTD DocBook XML V4.1.2//EN", "DTD DocBook V4.1//EN").replace(' "http://www.oasis-open.org/docbook/xml/4.1.2/docbookx.dtd"', ""))
        self.by_command("jade", [article], ["jw", "-f", "docbook", "-b", "rtf", "-o", str(self.files), "{source}"])

    def listings(self):
        for ending, folder in CODE.items():
            files = [path for path in spread(pathlib.Path(folder).rglob(f"*.{ending}"), 3)]
            self.by_command(f"pygments-{ending}", files, ["pygmentize", "-f", "rtf", "-o", "{target}", "{source}"])
            self.by_command(f"highlight-{ending}", files, ["highlight", "-O", "rtf", "-o", "{target}", "{source}"])
            self.by_command(f"enscript-{ending}", files, ["enscript", "-w", "rtf", "--color", "--highlight", "-o", "{target}", "{source}"])
