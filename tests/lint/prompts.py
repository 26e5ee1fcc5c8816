#!/usr/bin/python3
"""Every question goes through the doors in platform/forms: no other file names a dialog class of Qt's.

    prompts.py SRC
"""

import re
import sys

import sources

DOORS = ('platform/forms/Prompts.cpp', 'platform/forms/CommonDialog.cpp', 'platform/forms/FontDialog.cpp',
         'platform/forms/PrinterDialog.cpp')
DIALOG = re.compile(r'\bQ(?:MessageBox|FileDialog|InputDialog|ColorDialog|FontDialog|PrintDialog|PageSetupDialog)\b')
NOWHERE = re.compile(r'\bQErrorMessage\b')


def offences(root):
    found = []
    for path in sources.files(root):
        code = sources.code(sources.read(path))
        is_door = path.as_posix().endswith(DOORS)
        for pattern in (NOWHERE,) if is_door else (NOWHERE, DIALOG):
            found += [(path, sources.line_of(code, match.start()), f'{match.group()} past the door')
                      for match in pattern.finditer(code)]
    return found


if __name__ == '__main__':
    sys.exit(sources.report(offences(sys.argv[1])))
