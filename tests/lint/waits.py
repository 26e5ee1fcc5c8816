#!/usr/bin/python3
"""A handler waits by waitForEvents(), processPendingEvents() or a prompt: no other file runs an event loop of its own.

A bare processEvents() or exec() would let a window be deleted while its handler waits.

    waits.py SRC
"""

import re
import sys

import sources

OWNERS = ('platform/core/EventGate.cpp', 'platform/controls/RowDrag.cpp', 'app/main.cpp')
FOLDER = 'platform/forms/'
WAIT = re.compile(r'\b(?:processEvents|QEventLoop)\b|(?:\.|->|::)\s*exec\s*\(')


def offences(root):
    found = []
    for path in sources.files(root):
        name = path.as_posix()
        if name.endswith(OWNERS) or FOLDER in name:
            continue
        code = sources.code(sources.read(path))
        found += [(path, sources.line_of(code, match.start()), 'a wait past processPendingEvents()')
                  for match in WAIT.finditer(code)]
    return found


if __name__ == '__main__':
    sys.exit(sources.report(offences(sys.argv[1])))
