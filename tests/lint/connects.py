#!/usr/bin/python3
"""Every event reaches its handler through the gate: on() for signals, run() inside what Qt calls later.

Outside the gate itself
- connect() may only join a signal to a function of Qt's own (&Q...::name) or forward it to a signal that a header of
  ours declares (this, &Class::name); never to a lambda, a handler or a name in text. The session bus knows names
  only: there the SLOT of this is allowed, if its body is one run(...);
- QTimer::singleShot() and QMetaObject::invokeMethod() may call a function of Qt's own, or a lambda whose body is one
  run(...);
- QTimer::callOnTimeout() is not used.

    connects.py SRC
"""

import re
import sys

import sources

CALL = re.compile(r'(?<![\w~])(?P<name>connect|QTimer\s*::\s*singleShot|QMetaObject\s*::\s*invokeMethod|callOnTimeout)\s*\(')
QT_FUNCTION = re.compile(r'&Q\w+::~?\w+$|q(?:Const|NonConst)?Overload<.*>\(&Q\w+::\w+\)$')
OWN_FUNCTION = re.compile(r'&(?P<owner>(?!Q[A-Z])\w+)::(?P<name>\w+)$')
CONNECTION_TYPE = re.compile(r'Qt::\w+Connection$')
GATED_LAMBDA = re.compile(r'\[[^\]]*\](?:\([^()]*\))?(?:mutable)?\{(?:return)?(?:::)?run\(')
GATED_SLOT = r'::%s\([^{};]*\)\s*\{\s*run\('
SIGNALS = re.compile(r'Q_SIGNALS\s*:(?P<body>.*?)(?=\b(?:public|protected|private)\b[^:;{}]*:|\};)', re.DOTALL)
DECLARED = re.compile(r'\bvoid\s+(\w+)\s*\(')


def arguments(code, start):
    """The arguments of the call whose bracket opens at start, without blanks."""
    depth, found, current = 0, [], ''
    for char in code[start:]:
        if char in '([{':
            depth += 1
        elif char in ')]}':
            depth -= 1
        if depth == 0:
            break
        if depth == 1 and char == ',':
            found.append(current)
            current = ''
        elif not (depth == 1 and char == '(' and not found and not current):
            current += char
    return [re.sub(r'\s+', '', argument) for argument in found + [current]]


def own_signals(texts):
    """The (class, name) of every signal that a header declares."""
    signals = set()
    for path, code in texts.items():
        if path.suffix == '.h':
            for section in SIGNALS.finditer(code):
                signals |= {(path.stem, name) for name in DECLARED.findall(section.group('body'))}
    return signals


def is_one_run(gated, code):
    """Whether the body ends behind the run() with which it begins; gated ends behind the bracket of that run()."""
    return gated is not None and re.match(r'\s*;?\s*\}', code[sources.end_of(code, gated.end() - 1):]) is not None


def fault_of_text_connect(args, code):
    slot = re.match(r'SLOT\((\w+)\(', args[-1])
    is_of_the_bus = slot and len(args) == 6 and args[4] == 'this'
    if is_of_the_bus and is_one_run(re.search(GATED_SLOT % slot.group(1), code), code):
        return None
    return 'a connect by text'


def fault_of_connect(args, code, signals):
    if any(re.match(r'(SIGNAL|SLOT)\(', arg) for arg in args):
        return fault_of_text_connect(args, code)
    if len(args) > 1 and CONNECTION_TYPE.search(args[-1]):
        args = args[:-1]
    target = args[-1]
    if not any(arg.startswith('&') or 'Overload<' in arg for arg in args) and not target.startswith('['):
        return None  # not a connect of signals: a socket, a session
    if QT_FUNCTION.match(target):
        return None
    own = OWN_FUNCTION.match(target)
    if own and len(args) == 4 and args[2] == 'this' and own.groups() in signals:
        return None
    return 'a bare connect: handlers are bound by on()'


def fault_of_later_call(args):
    if any(QT_FUNCTION.match(arg) for arg in args):
        return None
    if any(is_one_run(GATED_LAMBDA.match(arg), arg) for arg in args):
        return None
    return 'a step that runs later has to be a lambda around run()'


def faults(code, signals):
    for call in CALL.finditer(code):
        args = arguments(code, call.end() - 1)
        name = call.group('name')
        if name == 'callOnTimeout':
            yield call.start(), 'callOnTimeout() passes the gate by'
            continue
        fault = fault_of_connect(args, code, signals) if name == 'connect' else fault_of_later_call(args)
        if fault:
            yield call.start(), fault


def offences(root):
    texts = {path: sources.code(sources.read(path)) for path in sources.files(root)}
    signals = own_signals(texts)
    return [(path, sources.line_of(code, position), fault)
            for path, code in texts.items()
            if path.stem not in ('EventGate', 'RunningHandler') and sources.WITHOUT_GATE not in path.as_posix()
            for position, fault in faults(code, signals)]


if __name__ == '__main__':
    sys.exit(sources.report(offences(sys.argv[1])))
