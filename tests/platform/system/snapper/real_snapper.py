"""The suite asks snapper, which has a file system, a configuration and a bus of the test's own.

    real_snapper.py SNAPSHOT_ACTIONS SCENARIO

Exit code 77, with a reason, where a program is not installed or the rights for a file system are missing.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time

PATH = os.environ['PATH'] + ':/usr/sbin:/sbin'
DESCRIPTIONS = ['before the update', '-x --y', 'a "quoted", comma; ü & <b>', '  ', "$(id) `id` 'x' \\"]
HOURS_EAST = 5


def skip(reason):
    print(f'skipped: {reason}')
    sys.exit(77)


def run(*command):
    return subprocess.run(command, check=True)


def make_place(folder):
    """In a mount namespace that ends with this process: the file system, and folders of the system that are empty."""
    run('mount', '--make-rprivate', '/')
    run('truncate', '--size', '200M', f'{folder}/disk')
    run('mkfs.btrfs', '--quiet', f'{folder}/disk')
    os.makedirs(f'{folder}/files')
    if subprocess.run(['mount', '-o', 'loop', f'{folder}/disk', f'{folder}/files'], check=False).returncode:
        skip('the rights for a file system are missing')
    run('btrfs', 'subvolume', 'create', f'{folder}/files/volume')
    for name in ('snapper', 'default'):
        shutil.copytree(f'/etc/{name}', f'{folder}/etc-{name}')
        run('mount', '--bind', f'{folder}/etc-{name}', f'/etc/{name}')
    run('mount', '-t', 'tmpfs', 'none', '/run')
    os.makedirs('/run/dbus')
    os.makedirs(f'{folder}/log')
    run('mount', '--bind', f'{folder}/log', '/var/log')


def start_bus():
    """It starts snapper's service when it is asked for."""
    bus = subprocess.Popen(['dbus-daemon', '--system', '--nofork', '--nopidfile'])
    end = time.monotonic() + 30
    while not os.path.exists('/run/dbus/system_bus_socket'):
        if time.monotonic() > end:
            sys.exit('failed: no bus')
        time.sleep(0.05)
    return bus


def act(*words):
    environment = dict(os.environ, PATH=PATH, TZ=f'TEST-{HOURS_EAST}')
    done = subprocess.run([sys.argv[1], *words], env=environment, stdout=subprocess.PIPE, timeout=60, check=False)
    return done.returncode, done.stdout.decode().split('\n')[:-1]


def expect(got, expected):
    if got != expected:
        sys.exit(f'failed: {got!r}, not {expected!r}')


def MakesAndLists(folder):
    start_bus()
    run('snapper', '-c', 'quill', 'create-config', f'{folder}/files/volume')
    expect(act('list'), (0, []))
    before = int(time.time())
    for description in DESCRIPTIONS:
        expect(act('create', description), (0, []))
    code, rows = act('list')
    after = int(time.time())
    expect(code, 0)
    expect([row.split(' ', 2)[0] for row in rows], [str(number + 1) for number in range(len(DESCRIPTIONS))])
    expect([row.split(' ', 2)[2] for row in rows], DESCRIPTIONS)
    for row in rows:
        if not before <= int(row.split(' ')[1]) <= after:
            sys.exit(f'failed: a time that is not local: {row!r}')


def Refuses(_folder):
    expect(act('create', 'a'), (1, ['-2147217407 Failure (dbus fatal exception).']))
    start_bus()
    code, rows = act('list')
    expect((code, len(rows)), (1, 1))
    if "The config 'root' does not exist" not in rows[0]:
        sys.exit(f'failed: {rows!r}')


if __name__ == '__main__':
    if os.geteuid() != 0:
        skip('only root may make file systems')
    for program in ('snapper', 'mkfs.btrfs', 'dbus-daemon', 'unshare', 'mount'):
        if not shutil.which(program, path=PATH):
            skip(f'not installed: {program}')
    if len(sys.argv) == 3:
        place = tempfile.mkdtemp(prefix='quill-snapper-')
        try:
            done = subprocess.run(['unshare', '--mount', '--pid', '--fork', '--kill-child', '--mount-proc', sys.executable,
                                   '-B', *sys.argv, place], check=False)
        finally:
            shutil.rmtree(place, ignore_errors=True)
        sys.exit(done.returncode)
    make_place(sys.argv[3])
    globals()[sys.argv[2]](sys.argv[3])
