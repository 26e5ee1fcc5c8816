#!/usr/bin/python3
"""What saving other programs' documents loses: bench_losses.py BUILD/tools/rtf [--folder FOLDER] [--worst COLUMN]

Rich text by eight programs (see corpus.py; what is not installed is left out) is saved by the rtf tool and by AbiWord.
LibreOffice reads each file before and after, and what it says of them is compared: "kept" is the share of characters,
of paragraphs or of things that are as they were; bold, links and the like count where a character has them before or
after. The folder keeps the corpus and what was read of it, so that a second run is quick. --worst names a column and
lists the documents that lose most of it, with an example. Needs libreoffice-writer, abiword, libreoffice-script-provider-python; better with
pandoc, latex2rtf, docbook-utils, python3-pygments, highlight, enscript.
"""

import argparse
import collections
import difflib
import hashlib
import json
import pathlib
import re
import subprocess
import tempfile

import corpus
import looks

USES_OF_STYLES = re.compile(rb"(?<=\\plain )\\s\d+|(?<=\\loch)\\cs\d+")
SAME_LENGTH = 3  # hundredths of a millimetre: files have twips
SAME_POINTS = 0.3
CHARACTERS = {  # and whether only characters count that have it
    "font": ("CharFontName", False),
    "size": ("CharHeight", False),
    "colour": ("CharColor", False),
    "behind": ("CharBackColor", -1),
    "bold": ("CharWeight", 100.0),
    "italic": ("CharPosture", "NONE"),
    "underline": ("CharUnderline", 0),
    "strike": ("CharStrikeout", 0),
    "raised": ("CharEscapement", 0),
    "links": ("HyperLinkURL", ""),
    "hidden": ("CharHidden", False),
}
PARAGRAPHS = {
    "alignment": (("ParaAdjust",), None),
    "left": (("ParaLeftMargin",), None),
    "first": (("ParaFirstLineIndent",), None),
    "right": (("ParaRightMargin",), None),
    "spacing": (("ParaTopMargin", "ParaBottomMargin"), None),
    "lines": (("ParaLineSpacing",), None),
    "tabs": (("ParaTabStops",), [[]]),
    "labels": (("label",), [None]),
    "borders": (("TopBorder", "LeftBorder", "BottomBorder", "RightBorder"), [None] * 4),
    "shading": (("ParaBackColor",), [-1]),
    "styles": (("ParaStyleName",), ["Standard"]),
}
THINGS = ("cells", "pictures", "notes", "bookmarks", "comments", "pages", "information")


class Count:
    def __init__(self):
        self.kept = 0
        self.of = 0
        self.example = ""

    def add(self, is_kept, weight, example):
        self.of += weight
        self.kept += weight if is_kept else 0
        if not is_kept and not self.example:
            self.example = example

    def lost(self):
        return self.of - self.kept

    def share(self):
        return 100 * self.kept / self.of if self.of else 100.0


def plain(value):
    return json.loads(json.dumps(value))


def same(one, other, tolerance=SAME_LENGTH):
    if isinstance(one, (int, float)) and isinstance(other, (int, float)) and not isinstance(one, bool):
        return abs(one - other) <= tolerance
    if isinstance(one, list) and isinstance(other, list):
        return len(one) == len(other) and all(same(a, b, tolerance) for a, b in zip(one, other))
    return one == other


def alignment(value):
    """The last line of a justified paragraph and the side where text begins are left."""
    return {"STRETCH": "BLOCK"}.get(value, value)


class Comparison:
    """Two documents as LibreOffice sees them."""

    def __init__(self, before, after):
        self.before = before
        self.after = after
        self.counts = collections.defaultdict(Count)

    def run(self):
        ours, theirs = self.before["paragraphs"], self.after["paragraphs"]
        pairs, left, right = self.pair([p["text"] for p in ours], [p["text"] for p in theirs])
        for i, j in pairs:
            self.paragraph(ours[i], theirs[j])
            self.characters(ours[i], 0, theirs[j], 0, len(ours[i]["text"]))
        self.rest([ours[i] for i in left], [theirs[j] for j in right])
        for thing in THINGS:
            self.things(thing)
        return self.counts

    @staticmethod
    def pair(one, other):
        """Equal texts in order, then those that have moved."""
        pairs = []
        for block in difflib.SequenceMatcher(None, one, other, autojunk=False).get_matching_blocks():
            pairs += [(block.a + i, block.b + i) for i in range(block.size)]
        left = sorted(set(range(len(one))) - {i for i, _ in pairs})
        right = sorted(set(range(len(other))) - {j for _, j in pairs})
        moved = collections.defaultdict(list)
        for j in right:
            moved[other[j]].append(j)
        for i in list(left):
            if moved.get(one[i]):
                j = moved[one[i]].pop(0)
                pairs.append((i, j))
                left.remove(i)
                right.remove(j)
        return pairs, left, right

    def rest(self, ours, theirs):
        """Paragraphs that have changed: the words that are left of them."""
        def words(paragraphs):
            found = []
            for paragraph in paragraphs:
                found += [(match[0], paragraph, match.start()) for match in re.finditer(r"\S+", paragraph["text"])]
            return found

        one, other = words(ours), words(theirs)
        matcher = difflib.SequenceMatcher(None, [w[0] for w in one], [w[0] for w in other])
        kept = set()
        for block in matcher.get_matching_blocks():
            for i in range(block.size):
                a, b = one[block.a + i], other[block.b + i]
                self.characters(a[1], a[2], b[1], b[2], len(a[0]))
                kept.add(block.a + i)
        for i, (word, paragraph, _) in enumerate(one):
            if i not in kept:
                self.counts["text"].add(False, len(word), paragraph["text"][:80])
        if len(ours) == len(theirs):
            for a, b in zip(ours, theirs):
                self.paragraph(a, b)

    def paragraph(self, one, other):
        for column, (names, default) in PARAGRAPHS.items():
            a, b = ([p["look"][name] for name in names] for p in (one, other))
            if column == "alignment":
                a, b = [alignment(a[0])], [alignment(b[0])]
            if column == "tabs":  # a stop that is added is no loss
                a, b = ([stop for stop in stops[0] if stop[1] != "DEFAULT"] for stops in (a, b))
                b = a if all(any(same(stop, other) for other in b) for stop in a) else b
                a, b = [a], [b]
            if default is None or a != default or b != default:
                self.counts[column].add(same(a, b), 1, f"{one['text'][:40]!r}: {a} {b}")

    def characters(self, one, start, other, place, length):
        at = start
        while at < start + length:
            a, end_a = self.run_at(one, at)
            b, end_b = self.run_at(other, place + at - start)
            end = min(end_a, end_b - place + start, start + length)
            text = one["text"][at:end]
            weight = sum(not c.isspace() for c in text)
            if weight:
                self.counts["text"].add(True, weight, "")
                self.look(a, b, weight, text)
            at = end

    @staticmethod
    def run_at(paragraph, place):
        for end, look in paragraph["runs"]:
            if place < end:
                return look, end
        return paragraph["runs"][-1][1], len(paragraph["text"])

    def look(self, a, b, weight, text):
        for column, (name, default) in CHARACTERS.items():
            one, other = a[name], b[name]
            if column == "font" and one.isdigit():
                continue  # an entry of the table without a name
            if column == "links":  # of relative ones LibreOffice makes whole ones
                one, other = (re.sub(r"^file://.*/(before|ours|abiword)/", "", link) for link in (one, other))
            if column == "bold":
                one, other = one >= 110, other >= 110
                default = False
            counts = default is False and column not in ("bold", "hidden") or one != default or other != default
            if counts:
                self.counts[column].add(same(one, other, SAME_POINTS), weight, f"{text[:40]!r}: {one} {other}")

    def things(self, thing):
        before = collections.Counter(json.dumps(item) for item in self.before[thing])
        after = collections.Counter(json.dumps(item) for item in self.after[thing])
        for item, number in before.items():
            kept = min(number, after[item])
            if kept:
                self.counts[thing].add(True, kept, "")
            if number > kept:
                self.counts[thing].add(False, number - kept, item[:120])


class Bench:
    def __init__(self, folder, tool):
        self.folder = folder
        self.tool = tool
        self.program = looks.Program(folder)

    def readings(self, path):
        """LibreOffice repeats what a style says wherever it uses it, and when it reads it leaves out what repeats a
        style, also what it then does not take from there. So it reads its own files a second time, without uses of
        styles: a look counts as kept where a whole document has the one or the other."""
        if path.parent.name != "before" or not path.name.startswith("office-"):
            return [path]
        copy = self.folder / "unstyled" / path.name
        copy.parent.mkdir(exist_ok=True)
        copy.write_bytes(USES_OF_STYLES.sub(b"", path.read_bytes()))
        return [path, copy]

    def kept(self, path):
        """Beside the corpus, as long as the file's bytes are the same."""
        return self.folder / "looks" / (hashlib.sha1(path.read_bytes()).hexdigest() + ".json")

    def read(self, paths):
        (self.folder / "looks").mkdir(exist_ok=True)
        readings = [reading for path in paths if path.exists() for reading in self.readings(path)]
        targets = {self.kept(path): path for path in readings}
        self.program.read([(path, target) for target, path in targets.items() if not target.exists()])

    def looks(self, path):
        text = self.kept(path).read_text() if path.exists() else ""
        return json.loads(text) if text else None

    def saved(self, path, by):
        target = self.folder / by / path.name
        target.parent.mkdir(exist_ok=True)
        if by == "ours":
            subprocess.run([self.tool, "save", str(path), str(target)], check=True)
        elif not target.exists():
            command = ["abiword", "--to=rtf", "-o", str(target), str(path)]
            subprocess.run(command, capture_output=True, check=False, timeout=300)
        return target

    def compare(self, path, by):
        after = self.looks(self.folder / by / path.name)
        empty = {"paragraphs": [], **{thing: [] for thing in THINGS}}
        befores = [before for before in map(self.looks, self.readings(path)) if before is not None]
        results = [Comparison(before, after or empty).run() for before in befores]
        if not results:
            return None
        least = collections.defaultdict(Count)
        for column in set().union(*results):
            least[column] = min((result[column] for result in results), key=Count.lost)
        return least


def table(results, names):
    columns = ["text", *CHARACTERS, *PARAGRAPHS, *THINGS]
    print(f"{'':12}" + "".join(f"{name:>10} {'of':>9}" for name in names))
    for column in columns:
        line = f"{column:12}"
        for name in names:
            total = Count()
            for counts in results[name].values():
                total.kept += counts[column].kept
                total.of += counts[column].of
            line += f"{total.share():10.2f} {total.of:9}"
        print(line)


def worst(results, column):
    rows = sorted(results.items(), key=lambda row: -row[1][column].lost())
    for name, counts in rows[:25]:
        count = counts[column]
        if count.lost():
            print(f"{name:50} {count.lost():7} of {count.of:7}  {count.example}")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tool", help="the rtf program")
    parser.add_argument("--folder", type=pathlib.Path)
    parser.add_argument("--worst", nargs="*", default=[])
    parser.add_argument("--only", default="*", help="pattern of names")
    parser.add_argument("--alone", action="store_true", help="without AbiWord")
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as scratch:
        folder = (arguments.folder or pathlib.Path(scratch)).resolve()
        folder.mkdir(exist_ok=True)
        bench = Bench(folder, str(pathlib.Path(arguments.tool).resolve()))
        names = ("ours",) if arguments.alone else ("ours", "abiword")
        results = {name: {} for name in names}
        paths = [path for path in corpus.Corpus(folder).paths() if path.match(arguments.only)]
        bench.read(paths + [bench.saved(path, name) for name in names for path in paths])
        for path in paths:
            for name in names:
                counts = bench.compare(path, name)
                if counts is not None:
                    results[name][path.stem] = counts
        kinds = collections.Counter(path.stem.split("-")[0] for path in paths)
        print(f"{len(paths)} documents: " + ", ".join(f"{number} by {kind}" for kind, number in kinds.items()))
        table(results, names)
        for column in arguments.worst:
            print(f"\n{column}")
            worst(results["ours"], column)


if __name__ == "__main__":
    main()
