#!/usr/bin/python3
"""Every question goes through the prompts of platform/forms: no other file names a dialog class of Qt's. A line of
text is asked for by InputBox, never by Qt's own dialog.

    prompts.py SRC
"""

import re
import sys

import sources

PROMPTS = ('platform/forms/Prompts.cpp', 'platform/forms/CommonDialog.cpp', 'platform/forms/FontDialog.cpp',
           'platform/forms/PrinterDialog.cpp')
DIALOG = re.compile(r'\bQ(?:MessageBox|FileDialog|InputDialog|ColorDialog|FontDialog|PrintDialog|PageSetupDialog)\b')
NOWHERE = re.compile(r'\bQ(?:ErrorMessage|InputDialog)\b')


def offences(root):
    found = []
    for path in sources.files(root):
        code = sources.code(sources.read(path))
        is_prompt = path.as_posix().endswith(PROMPTS)
        for pattern in (NOWHERE,) if is_prompt else (NOWHERE, DIALOG):
            found += [(path, sources.line_of(code, match.start()), f'{match.group()} outside the prompts')
                      for match in pattern.finditer(code)]
    return found


if __name__ == '__main__':
    sys.exit(sources.report(offences(sys.argv[1])))
