#!/usr/bin/python3
"""Files that can be read in one go: at most 600 lines, one class to a header of its name, nothing left for later.

    sizes.py SRC
"""

import re
import sys

import sources

MOST_LINES = 600
LEFT = re.compile(r'\b(?:TODO|FIXME|XXX)\b')
CLASS = re.compile(r'^class\s+(?P<name>\w+)\b[^;{(]*\{', re.MULTILINE)


def class_faults(path, code):
    classes = list(CLASS.finditer(code)) if path.suffix == '.h' else []
    for number, found in enumerate(classes):
        name = found.group('name')
        if number > 0:
            yield sources.line_of(code, found.start()), f'{name} is a second class in one header'
        elif name != path.stem:
            yield sources.line_of(code, found.start()), f'{name} belongs in {name}.h'


def faults(path):
    text = sources.read(path)
    lines = text.count('\n')
    if lines > MOST_LINES:
        yield lines, f'{lines} lines; {MOST_LINES} at most'
    for match in LEFT.finditer(text):
        yield sources.line_of(text, match.start()), f'{match.group()} left'
    yield from class_faults(path, sources.code(text))


def offences(root):
    return [(path, line, fault) for path in sources.files(root) for line, fault in faults(path)]


if __name__ == '__main__':
    sys.exit(sources.report(offences(sys.argv[1])))
