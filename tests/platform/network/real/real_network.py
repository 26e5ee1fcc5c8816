"""Two computers of their own network: the suite asks the one, real services answer from the other.

    real_network.py NETWORK_ACTIONS SCENARIO

Exit code 77, with a reason, where a service is not installed or the rights for a network are missing.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time

PATIENCE = 30  # seconds
NAMES = {'A': f'quillA{os.getpid()}', 'B': f'quillB{os.getpid()}'}
ADDRESSES = {'A': '10.78.0.1', 'B': '10.78.0.2'}
PATH = os.environ['PATH'] + ':/usr/sbin:/sbin'


def skip(reason):
    print(f'skipped: {reason}')
    sys.exit(77)


def require(*programs):
    missing = [program for program in programs if not shutil.which(program, path=PATH)]
    if missing:
        skip(f'not installed: {", ".join(missing)}')


def wait_until(what, holds):
    end = time.monotonic() + PATIENCE
    while not holds():
        if time.monotonic() > end:
            sys.exit(f'failed: {what}')
        time.sleep(0.1)


class Network:
    """The computers A and B, joined by a wire."""

    def __init__(self, actions):
        self.actions = actions
        self.children = []
        self.folder = tempfile.mkdtemp(prefix='quill-network-')
        os.chmod(self.folder, 0o755)
        self.environment = dict(os.environ, PATH=PATH, XDG_CONFIG_HOME=f'{self.folder}/config',
                                DBUS_SYSTEM_BUS_ADDRESS=f'unix:path={self.folder}/no-bus')

    def __enter__(self):
        for name in NAMES.values():
            if subprocess.run(['ip', 'netns', 'add', name], env=self.environment, stderr=subprocess.DEVNULL).returncode:
                self.close()
                skip('the rights for network namespaces are missing')
            self.ip(name, 'link', 'set', 'lo', 'up')
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        for child in reversed(self.children):
            child.kill()
            child.wait()
        for name in NAMES.values():
            subprocess.run(['ip', 'netns', 'delete', name], env=self.environment, stderr=subprocess.DEVNULL)
        shutil.rmtree(self.folder, ignore_errors=True)

    def ip(self, name, *words):
        subprocess.run(['ip', '-n', name, *words], env=self.environment, check=True)

    def wire(self):
        ends = {side: f'quill{side}{os.getpid()}'[:15] for side in NAMES}
        subprocess.run(['ip', 'link', 'add', ends['A'], 'netns', NAMES['A'], 'type', 'veth', 'peer', 'name', ends['B'],
                        'netns', NAMES['B']], env=self.environment, check=True)
        for side, name in NAMES.items():
            self.ip(name, 'addr', 'add', f'{ADDRESSES[side]}/24', 'brd', '+', 'dev', ends[side])
            self.ip(name, 'link', 'set', ends[side], 'up')
            self.ip(name, 'route', 'add', '239.0.0.0/8', 'dev', ends[side])

    def start(self, side, *command):
        with open(f'{self.folder}/log', 'ab') as log:
            self.children.append(subprocess.Popen(['ip', 'netns', 'exec', NAMES[side], *command], env=self.environment,
                                                  stdin=subprocess.DEVNULL, stdout=log, stderr=log))

    def bus_path(self, side):
        return f'{self.folder}/bus{side}'

    def start_avahi(self, side):
        """Avahi with a bus and a /run of its own, so that two are no strangers to each other."""
        require('avahi-daemon', 'dbus-daemon')
        path = self.bus_path(side)
        with open(f'{path}.conf', 'w', encoding='utf-8') as config:
            config.write(f'<busconfig><listen>unix:path={path}</listen><auth>EXTERNAL</auth>'
                         '<policy context="default"><allow send_destination="*"/><allow receive_sender="*"/>'
                         '<allow own="*"/></policy></busconfig>')
        with open(f'{path}.avahi', 'w', encoding='utf-8') as config:
            config.write(f'[server]\nhost-name=host{side.lower()}\nuse-ipv6=no\nenable-dbus=yes\n'
                         '[publish]\npublish-workstation=yes\n')
        script = (f'mount -t tmpfs none /run && mkdir -p /run/avahi-daemon && '
                  f'dbus-daemon --config-file={path}.conf --fork --print-pid >{path}.pid && '
                  f'DBUS_SYSTEM_BUS_ADDRESS=unix:path={path} exec avahi-daemon --no-drop-root --no-chroot --no-rlimits '
                  f'-f {path}.avahi')
        self.start(side, 'unshare', '--mount', '--pid', '--fork', '--kill-child', 'sh', '-c', script)
        wait_until('avahi starts', lambda: os.path.exists(path))

    def start_samba(self, side, *services, rules=''):
        require('nmbd', 'smbd', 'nmblookup', 'net')
        folder = f'{self.folder}/samba{side}'
        for name in ('', '/private', '/lock', '/ncalrpc'):
            os.makedirs(folder + name, exist_ok=True)
        config = f'{folder}/smb.conf'
        with open(config, 'w', encoding='utf-8') as file:
            file.write(f'[global]\nnetbios name = HOST{side}\nworkgroup = QUILL\ninterfaces = {ADDRESSES[side]}/24\n'
                       f'bind interfaces only = yes\nprivate dir = {folder}/private\nlock directory = {folder}/lock\n'
                       f'state directory = {folder}/lock\ncache directory = {folder}/lock\npid directory = {folder}\n'
                       f'ncalrpc dir = {folder}/ncalrpc\nnmbd:socket dir = {folder}/nmbd\nlog file = {folder}/log\n{rules}')
        for service in services:
            self.start(side, service, '--foreground', '--no-process-group', '-s', config)
        return config

    def act(self, *words, bus=None):
        """The exit code and the lines."""
        environment = dict(self.environment)
        if bus:
            environment['DBUS_SYSTEM_BUS_ADDRESS'] = f'unix:path={bus}'
        done = subprocess.run(['ip', 'netns', 'exec', NAMES['A'], self.actions, *words], env=environment,
                              stdout=subprocess.PIPE, timeout=PATIENCE, check=False)
        return done.returncode, done.stdout.decode().split('\n')[:-1]

    def expect(self, row, bus=None):
        """Services need a moment until they answer at all."""
        wait_until(f'{row} is listed', lambda: row in self.act('list', bus=bus)[1])


def Mdns(network):
    network.wire()
    for side in NAMES:
        network.start_avahi(side)
    network.expect('HOSTB 10.78.0.2', bus=network.bus_path('A'))


def WsDiscovery(network):
    require('wsdd')
    network.wire()
    network.start('B', 'wsdd', '--ipv4only', '--shortlog', '--hostname', 'HOSTB', '--workgroup', 'QUILL')
    network.expect('HOSTB 10.78.0.2')


def NetBios(network):
    network.wire()
    network.start_samba('B', 'nmbd')
    network.environment['SMB_CONF_PATH'] = network.start_samba('A')
    network.expect('HOSTB 10.78.0.2')


def AllAtOnce(network):
    require('wsdd')
    network.wire()
    for side in NAMES:
        network.start_avahi(side)
    network.start('B', 'wsdd', '--ipv4only', '--shortlog', '--hostname', 'hostb', '--workgroup', 'QUILL')
    network.start_samba('B', 'nmbd')
    network.environment['SMB_CONF_PATH'] = network.start_samba('A')
    bus = network.bus_path('A')
    network.expect('HOSTB 10.78.0.2', bus=bus)
    rows = network.act('list', bus=bus)[1]
    if sum(row.startswith('HOSTB') for row in rows) != 1:
        sys.exit(f'failed: not merged: {rows}')


def EmptyNetwork(network):
    network.wire()
    if network.act('list') != (0, []):
        sys.exit('failed: an empty network is no failure')


def NoNetwork(network):
    if network.act('list')[0] != 1:
        sys.exit('failed: without a network there is no list')


def Shutdown(network):
    """The scripts that Samba runs for the commands write down what they get."""
    require('smbpasswd', 'useradd')
    network.wire()
    got = f'{network.folder}/got'
    script = f'{network.folder}/note'
    with open(script, 'w', encoding='utf-8') as file:
        file.write(f'#!/bin/sh\necho "$@" >>{got}\n')
    os.chmod(script, 0o755)
    config = network.start_samba('B', rules=f'shutdown script = {script} shutdown %r %f\n'
                                            f'abort shutdown script = {script} abort\nserver signing = required\n')
    subprocess.run(['smbpasswd', '-c', config, '-s', '-a', 'root'], input=b'secret\nsecret\n', env=network.environment,
                   stdout=subprocess.DEVNULL, check=True)
    network.start_samba('B', 'smbd', rules=open(config, encoding='utf-8').read().split('/log\n', 1)[1])
    os.makedirs(f'{network.folder}/config/QuillOfficeToolsv2')
    login = f'{network.folder}/config/QuillOfficeToolsv2/network-login'
    with open(os.open(login, os.O_CREAT | os.O_WRONLY, 0o600), 'w', encoding='utf-8') as file:
        file.write('username = root\npassword = secret\n')

    def lines():
        return open(got, encoding='utf-8').read() if os.path.exists(got) else ''

    for action, expected in (('shutdown', 'shutdown -f\n'), ('restart', 'shutdown -r -f\n'), ('abort', 'abort\n')):
        def arrives():
            network.act(action, 'HOSTB', '10.78.0.2')
            time.sleep(1)
            return lines().endswith(expected)
        wait_until(f'{action} arrives ({lines()!r})', arrives)


if __name__ == '__main__':
    if os.geteuid() != 0:
        skip('only root may make networks')
    require('ip', 'unshare')
    with Network(sys.argv[1]) as shared:
        try:
            globals()[sys.argv[2]](shared)
        except SystemExit as end:
            if isinstance(end.code, str):
                print(open(f'{shared.folder}/log', errors='replace').read() if os.path.exists(f'{shared.folder}/log') else '')
            raise
