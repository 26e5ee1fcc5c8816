#!/usr/bin/python3
"""An overridden event of Qt's does its own work inside run(), or
runPainting(): elsewhere an exception would pass through Qt's own code,
and a window closed meanwhile would be deleted while its handler runs.

Outside run() the override may call the same function of its base and functions of the event itself.

    events.py SRC
"""

import re
import sys

import sources

OVERRIDE = re.compile(
    r'\b(?:\w+::)?(?P<name>event|eventFilter|viewportEvent|[a-z]\w*Event)\s*'
    r'\((?P<parameters>[^(){};]*\bQ\w*Event\s*\*[^(){};]*)\)\s*(?:override|final)?\s*\{')
GATED = re.compile(r'(?<![\w:.>])run(?:Painting)?\s*\(')
CALL = re.compile(r'(?P<target>[\w:]+(?:\s*(?:->|\.)\s*\w+)*)\s*(?:<[^<>;]*>)?\s*\(')
HARMLESS = {'if', 'switch', 'while', 'for', 'return', 'Q_UNUSED', 'static_cast', 'dynamic_cast', 'qobject_cast'}


def end_of(code, start):
    """The position behind the bracket that closes the one at start."""
    depth = 0
    for position in range(start, len(code)):
        depth += {'(': 1, '{': 1, ')': -1, '}': -1}.get(code[position], 0)
        if depth == 0:
            return position + 1
    return len(code)


def ungated(body):
    """The body without the arguments of run()."""
    while gated := GATED.search(body):
        body = body[:gated.start()] + body[end_of(body, gated.end() - 1):]
    return body


def is_allowed(target, name, event):
    target = re.sub(r'\s+', '', target)
    own_event = event and re.match(event + r'(->|\.)', target)
    return target in HARMLESS or own_event or re.fullmatch(r'(?:\w+::)+' + name, target)


def faults(code):
    for override in OVERRIDE.finditer(code):
        body = ungated(code[override.end():end_of(code, override.end() - 1) - 1])
        event = re.search(r'Event\s*\*\s*(\w+)', override.group('parameters'))
        body = re.sub(r'static_cast<[^<>]*>\((\w+)\)', r'\1', body)
        for call in CALL.finditer(body):
            if not is_allowed(call.group('target'), override.group('name'), event and event.group(1)):
                yield override.start(), f"{override.group('name')}() calls {call.group('target')}() outside run()"
                break


def offences(root):
    found = []
    for path in sources.files(root):
        code = sources.code(sources.read(path))
        found += [(path, sources.line_of(code, position), fault) for position, fault in faults(code)]
    return found


if __name__ == '__main__':
    sys.exit(sources.report(offences(sys.argv[1])))
