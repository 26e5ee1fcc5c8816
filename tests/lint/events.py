#!/usr/bin/python3
"""An overridden function that Qt calls, an event or one such as accept(), does its own work inside run() or
runPainting(): elsewhere an exception would pass through Qt's own code, and a window closed meanwhile would be deleted
while its handler runs.

Outside run() the override may call the same function of its base and functions of the event itself, and declare
variables of simple types.

    events.py SRC
"""

import re
import sys

import sources

OVERRIDE = re.compile(
    r'\b(?:\w+::)?(?:'
    r'(?P<event>event|eventFilter|viewportEvent|[a-z]\w*Event)\s*'
    r'\((?P<parameters>[^(){};]*\bQ\w*Event\s*\*[^(){};]*)\)|'
    r'(?P<plain>accept|reject|showPopup|hidePopup)\s*\(\s*\)|'
    r'(?P<done>done)\s*\(\s*int\b[^(){};]*\)|'
    r'(?P<drag>startDrag)\s*\(\s*Qt::DropActions\b[^(){};]*\)|'
    r'(?P<model>setData)\s*\(\s*const\s+QModelIndex\b[^(){};]*\)|'
    r'(?P<native>nativeEvent(?:Filter)?)\s*\(\s*const\s+QByteArray\b[^(){};]*\)'
    r')\s*(?:override|final)?\s*\{')
GATED = re.compile(r'(?<![\w:.>])run(?:Painting)?\s*\(')
CALL = re.compile(r'(?P<target>[\w:]+(?:\s*(?:->|\.)\s*\w+)*)\s*(?:<[^<>;]*>)?\s*\(')
HARMLESS = {'if', 'switch', 'while', 'for', 'return', 'Q_UNUSED', 'static_cast', 'dynamic_cast', 'qobject_cast'}
STATEMENT = r'(?:^|[;{})]|\belse\b)\s*'
WORK = (
    ('makes or deletes an object', re.compile(r'\b(?:new|delete)\b')),
    ('throws', re.compile(r'\bthrow\b')),
    ('streams', re.compile(r'<<')),
    ('assigns', re.compile(STATEMENT + r'(?:\*\s*)?[\w.:\[\]]+(?:->[\w.:\[\]]+)*\s*(?:[-+*/%&|^]|>>)?=(?!=)')),
    ('counts', re.compile(r'\+\+|--')),
    ('makes an object', re.compile(r'\b(?!(?:else|do|try)\b)\w+\s*\{|' + STATEMENT + r'[A-Z][\w:]*\s+\w+\s*;')),
)


def ungated(body):
    """The body without the arguments of run()."""
    while gated := GATED.search(body):
        body = body[:gated.start()] + body[sources.end_of(body, gated.end() - 1):]
    return body


def is_allowed(target, name, event):
    target = re.sub(r'\s+', '', target)
    own_event = event and re.match(event + r'(->|\.)', target)
    return target in HARMLESS or own_event or re.fullmatch(r'(?:\w+::)+' + name, target)


def fault_of(body, name, event):
    for call in CALL.finditer(re.sub(r'static_cast<[^<>]*>\((\w+)\)', r'\1', body)):
        if not is_allowed(call.group('target'), name, event):
            return f"calls {call.group('target')}()"
    return next((work for work, pattern in WORK if pattern.search(body)), None)


def faults(code):
    for override in OVERRIDE.finditer(code):
        body = ungated(code[override.end():sources.end_of(code, override.end() - 1) - 1])
        name = next(override.group(kind) for kind in ('event', 'plain', 'done', 'drag', 'model', 'native')
                    if override.group(kind))
        event = re.search(r'Event\s*\*\s*(\w+)', override.group('parameters') or '')
        fault = fault_of(body, name, event and event.group(1))
        if fault:
            yield override.start(), f'{name}() {fault} outside run()'


def offences(root):
    found = []
    for path in sources.gated_files(root):
        code = sources.code(sources.read(path))
        found += [(path, sources.line_of(code, position), fault) for position, fault in faults(code)]
    return found


if __name__ == '__main__':
    sys.exit(sources.report(offences(sys.argv[1])))
