#!/usr/bin/python3
"""Every question goes through the prompts of platform/forms: no other file names a dialog class of Qt's. A line of
text is asked for by InputBox, never by Qt's own dialog.

A window of ours is a Form. Two are dialogs of Qt's instead, as the desktop's own dialogs are: the modeless find and
replace, which stays above a document, and the folder dialog, which is shown by showDialog().

    prompts.py SRC
"""

import re
import sys

import sources

PROMPTS = ('platform/forms/Prompts.cpp', 'platform/forms/CommonDialog.cpp', 'platform/forms/FontDialog.cpp',
           'platform/forms/PrinterDialog.cpp', 'platform/forms/ShowDialog.cpp')
DIALOG = re.compile(r'\bQ(?:MessageBox|FileDialog|InputDialog|ColorDialog|FontDialog|PrintDialog|PageSetupDialog|'
                    r'PrintPreviewDialog|ProgressDialog|Wizard)\b')
DERIVED = re.compile(r'\b(?:class|struct)\s+\w+(?:\s+final)?\s*:[^{};]*\bQDialog\b')
MAY_DERIVE = ('word/dlgFindReplace.h', 'archiver/folder/FolderDialog.h')
NOWHERE = re.compile(r'\bQ(?:ErrorMessage|InputDialog)\b')


def refused(path):
    """The patterns that the file may not contain, each with what is wrong."""
    name = path.as_posix()
    yield NOWHERE, 'outside the prompts'
    if not name.endswith(PROMPTS):
        yield DIALOG, 'outside the prompts'
    if 'platform/forms/' not in name and not name.endswith(MAY_DERIVE):
        yield DERIVED, 'is no Form'


def offences(root):
    found = []
    for path in sources.files(root):
        code = sources.code(sources.read(path))
        for pattern, fault in refused(path):
            found += [(path, sources.line_of(code, match.start()), f"{' '.join(match.group().split())} {fault}")
                      for match in pattern.finditer(code)]
    return found


if __name__ == '__main__':
    sys.exit(sources.report(offences(sys.argv[1])))
