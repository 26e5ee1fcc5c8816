#!/usr/bin/python3
"""A handler waits by waitForEvents(), processPendingEvents() or a prompt: no other file runs an event loop of its own.

A bare processEvents() or exec() would let a window be deleted while its handler waits. The owners below have a loop
because it is theirs: the gate has the functions that wait, main() the program's loop, and RowDrag the drag's own
QDrag::exec(), which Qt offers in no other form; it is called inside run(), so no window is deleted before it ends.

    waits.py SRC
"""

import re
import sys

import sources

OWNERS = ('platform/core/EventGate.cpp', 'platform/controls/RowDrag.cpp', 'app/main.cpp')
FOLDER = 'platform/forms/'
WAIT = re.compile(r'\b(?:processEvents|QEventLoop)\b|(?:\.|->|::)\s*exec\s*\(|'
                  r'(?:[^\w\s.>:*&]|&&|\b(?:return|else))\s*\bexec\s*\(')  # a dialog's own, but not its declaration


def offences(root):
    found = []
    for path in sources.files(root):
        name = path.as_posix()
        if name.endswith(OWNERS) or FOLDER in name:
            continue
        code = sources.code(sources.read(path))
        found += [(path, sources.line_of(code, match.end()), 'a wait past processPendingEvents()')
                  for match in WAIT.finditer(code)]
    return found


if __name__ == '__main__':
    sys.exit(sources.report(offences(sys.argv[1])))
