"""The C++ files of a folder, and their text without what only looks like code."""

import re
from pathlib import Path

NO_CODE = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])\'(?:\\.|[^\'\\\n])*\'',
    re.DOTALL)


# A module that is loaded links no gate. What Qt calls in it throws nothing, and it leaves all handlers to the suite.
WITHOUT_GATE = 'platform/webview/engine/'


def files(root):
    return sorted(path for path in Path(root).rglob('*') if path.suffix in ('.cpp', '.h'))


def gated_files(root):
    return [path for path in files(root) if WITHOUT_GATE not in path.as_posix()]


def code(text):
    """The text with comments and literals emptied; every line keeps its number."""

    def emptied(match):
        found = match.group()
        quotes = '""' if found[0] in 'R"' else ''
        return quotes + '\n' * found.count('\n')

    return NO_CODE.sub(emptied, text)


def read(path):
    return path.read_text(encoding='utf-8')


def end_of(code, start):
    """The position behind the bracket that closes the one at start."""
    depth = 0
    for position in range(start, len(code)):
        depth += {'(': 1, '{': 1, ')': -1, '}': -1}.get(code[position], 0)
        if depth == 0:
            return position + 1
    return len(code)


def line_of(text, position):
    return text.count('\n', 0, position) + 1


def report(offences):
    """Prints each (path, line, message) and returns the exit code."""
    for path, line, message in offences:
        print(f'{path}:{line}: {message}')
    return 1 if offences else 0
