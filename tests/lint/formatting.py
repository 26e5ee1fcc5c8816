#!/usr/bin/python3
"""Every C++ file is as clang-format leaves it.

    formatting.py FOLDER...     ends with 77 where clang-format is not installed
"""

import shutil
import subprocess
import sys

import sources

SKIPPED = 77


def main(folders):
    if not shutil.which('clang-format'):
        print('clang-format is not installed; ./test installs it')
        return SKIPPED
    names = [str(path) for folder in folders for path in sources.files(folder)]
    if not names:
        return 0
    return 1 if subprocess.run(['clang-format', '--dry-run', '-Werror', *names]).returncode else 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
