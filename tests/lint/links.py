#!/usr/bin/python3
"""Folders of the sources link only by quill_module() and the functions like it, which check the allowed dependencies.

    links.py SRC
"""

import re
import sys
from pathlib import Path

import sources

PAST = re.compile(r'^[ \t]*(target_link_libraries|target_include_directories|include_directories|link_libraries)\b',
                  re.MULTILINE)


def offences(root):
    found = []
    for path in sorted(Path(root).rglob('CMakeLists.txt')):
        text = sources.read(path)
        found += [(path, sources.line_of(text, match.start(1)), f'{match[1]} past the table of allowed dependencies')
                  for match in PAST.finditer(text)]
    return found


if __name__ == '__main__':
    sys.exit(sources.report(offences(sys.argv[1])))
