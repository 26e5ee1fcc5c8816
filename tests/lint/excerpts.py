#!/usr/bin/python3
"""The examples of CONTRIBUTING.md are excerpts of the sources that they name, line by line.

    excerpts.py SRC

A ```cpp block names its file in an HTML comment on the line above, <!-- src/tool/frmTool.cpp -->. A line "..." or
"// ..." skips any lines of the file; the lines between two of them follow each other there as well.
"""

import re
import sys
from pathlib import Path

import sources

BLOCK = re.compile(r'(?:^<!-- (?P<file>\S+) -->\n)?^```cpp\n(?P<code>.*?)^```$', re.MULTILINE | re.DOTALL)
SKIP = re.compile(r'\s*(// )?\.\.\.\s*')


def passages(code):
    """The runs of lines between skips, each with the index of its first line."""
    runs = [(0, [])]
    for index, line in enumerate(code.splitlines()):
        if SKIP.fullmatch(line):
            runs.append((index + 1, []))
        else:
            runs[-1][1].append(line)
    return [(index, lines) for index, lines in runs if any(lines)]


def find(lines, wanted, start):
    return next((i for i in range(start, len(lines) - len(wanted) + 1) if lines[i:i + len(wanted)] == wanted), None)


def missing(code, text):
    """The index of the first passage that `text` does not have after the one before, or None."""
    lines, start = text.splitlines(), 0
    for index, wanted in passages(code):
        place = find(lines, wanted, start)
        if place is None:
            return index
        start = place + len(wanted)
    return None


def offences(root):
    guide = Path(root).resolve().parent / 'CONTRIBUTING.md'
    if not guide.exists():
        return [(guide, 1, 'is missing')]
    text = sources.read(guide)
    found = []
    for match in BLOCK.finditer(text):
        line = sources.line_of(text, match.start('code'))
        if not match['file']:
            found.append((guide, line, 'a block of code that names no file above it'))
            continue
        file = guide.parent / match['file']
        if not file.exists():
            found.append((guide, line, f'{match["file"]} does not exist'))
            continue
        index = missing(match['code'], sources.read(file))
        if index is not None:
            found.append((guide, line + index, f'the lines from here on are not in {match["file"]}'))
    return found


if __name__ == '__main__':
    sys.exit(sources.report(offences(sys.argv[1])))
