#!/usr/bin/env python3
"""Runs an FTP server of Debian's on 127.0.0.1 and serves a folder, for tests and benchmarks.

    ftp_server.py SERVER ROOT STATE [--tls] [--idle SECONDS] [--quota MEGABYTES]

SERVER is proftpd, pure-ftpd, vsftpd or pyftpdlib. STATE is an empty folder for its configuration; with --tls it
gets ca.pem, the authority that signed the certificate. Prints "PORT USER PASSWORD" when the server can be used, or "missing:"
and the reason. A line "end" on standard input ends all sessions; its end ends the server.

Root's server acts for the user daemon, to whom ROOT is given; an ordinary user's acts for that user.
"""

import argparse
import grp
import os
import pwd
import select
import shutil
import signal
import socket
import subprocess
import sys
from pathlib import Path

UNPACKED = Path(__file__).resolve().parents[3] / "build" / "servers"
DAEMON = 1
USER, PASSWORD = "tester", "secret"


class Missing(Exception):
    """A server that cannot be used here."""


def find(program):
    """A program unpacked by scripts/unpack-servers.sh, or an installed one."""
    folders = [UNPACKED / "usr/sbin", UNPACKED / "usr/bin", "/usr/sbin", "/usr/bin"]
    found = shutil.which(program, path=os.pathsep.join(map(str, folders)))
    if not found:
        raise Missing(f"{program} is neither unpacked (scripts/unpack-servers.sh) nor installed")
    return found


def libraries():
    return [*UNPACKED.glob("usr/lib/*-linux-gnu*"), *UNPACKED.glob("lib/*-linux-gnu*")]


def environment(*folders):
    """Where programs find the unpacked libraries, which may be in other folders too."""
    path = os.pathsep.join(map(str, [*folders, *libraries()]))
    return {**os.environ, "LD_LIBRARY_PATH": path, "TZ": "UTC"}


def run(*command):
    subprocess.run(command, check=True, env=environment(), stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)


def password_hash():
    return subprocess.run(["openssl", "passwd", "-6", PASSWORD], check=True, capture_output=True, text=True).stdout.strip()


def owner():
    return DAEMON if os.geteuid() == 0 else os.geteuid()


def group():
    return DAEMON if os.geteuid() == 0 else os.getegid()


def give_to_daemon(folder):
    if os.geteuid() == 0:
        for path in [folder, *folder.rglob("*")]:
            os.chown(path, DAEMON, DAEMON, follow_symlinks=False)


def make_certificate(state):
    """Makes ca.pem, and in server.pem the key and the certificate of 127.0.0.1."""
    ca, ca_key, server = state / "ca.pem", state / "ca.key", state / "server.pem"
    request, signed, names = state / "server.csr", state / "server.crt", state / "names"
    names.write_text("subjectAltName=IP:127.0.0.1\n")
    run("openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", ca_key, "-out", ca,
        "-subj", "/CN=Test authority", "-days", "2")
    run("openssl", "req", "-newkey", "rsa:2048", "-nodes", "-keyout", server, "-out", request,
        "-subj", "/CN=Test server")
    run("openssl", "x509", "-req", "-in", request, "-CA", ca, "-CAkey", ca_key, "-CAcreateserial", "-out", signed,
        "-days", "2", "-extfile", names)
    server.write_text(server.read_text() + signed.read_text())
    server.chmod(0o600)
    return server


def proftpd(root, state, options):
    users = state / "users"
    users.write_text(f"{USER}:{password_hash()}:{owner()}:{group()}::{root}:/bin/sh\n")
    users.chmod(0o600)
    modules = UNPACKED / "usr/lib/proftpd"
    lines = [
        f"ModulePath {modules if modules.exists() else '/usr/lib/proftpd'}",
        "ServerType inetd",
        "DefaultAddress 127.0.0.1",
        "UseIPv6 off",
        "UseReverseDNS off",
        "WtmpLog off",
        "AuthPAM off",
        "AuthOrder mod_auth_file.c",
        f"AuthUserFile {users}",
        "RequireValidShell off",
        f"ScoreboardFile {state}/scoreboard",
        f"PidFile {state}/pid",
        f"SystemLog {state}/log",
        "TransferLog none",
        "AllowOverwrite on",
        "DelayEngine off",
        f"User {pwd.getpwuid(owner()).pw_name}",
        f"Group {grp.getgrgid(group()).gr_name}",
    ]
    if os.geteuid() == 0:
        lines += ["DefaultRoot ~"]
    if options.idle:
        lines += [f"TimeoutIdle {options.idle}"]
    if options.tls:
        pem = make_certificate(state)
        lines += ["LoadModule mod_tls.c", "TLSEngine on", "TLSRequired on", "TLSProtocol TLSv1.2 TLSv1.3",
                  f"TLSRSACertificateFile {pem}", f"TLSRSACertificateKeyFile {pem}", f"TLSLog {state}/tls.log"]
    configuration = state / "proftpd.conf"
    configuration.write_text("\n".join(lines) + "\n")
    return [find("proftpd"), "-c", configuration]


def pure_ftpd(root, state, options):
    if os.geteuid() != 0:
        raise Missing("pure-ftpd runs as root alone")
    users, database = state / "users", state / "users.pdb"
    users.write_text(f"{USER}:{password_hash()}:{owner()}:{group()}::{root}/./" + 12 * ":" + "\n")
    run(find("pure-pw"), "mkdb", database, "-f", users)
    command = [find("pure-ftpd"), "-l", f"puredb:{database}", "-H", "-u", "1", "-E", "-A", "-L", "1000000:10",
               "-f", "none"]
    if options.quota:
        command += ["-n", f"1000:{options.quota}"]
    if options.tls:
        pem = make_certificate(state)
        command += ["-Y", "3", "-2", pem, "-k", "99"]
    return command


def vsftpd(root, state, options):
    empty = state / "empty"
    empty.mkdir()
    settings = {
        "listen": "NO", "anonymous_enable": "YES", "local_enable": "NO", "no_anon_password": "NO",
        "write_enable": "YES", "anon_upload_enable": "YES", "anon_mkdir_write_enable": "YES",
        "anon_other_write_enable": "YES", "anon_world_readable_only": "NO", "anon_umask": "022",
        "anon_root": root, "secure_chroot_dir": empty, "allow_writeable_chroot": "YES", "xferlog_enable": "NO",
        "seccomp_sandbox": "NO", "isolate": "NO", "isolate_network": "NO", "mdtm_write": "NO",
        "dirmessage_enable": "NO", "connect_from_port_20": "NO",
        "ftp_username": pwd.getpwuid(owner()).pw_name,
        "run_as_launching_user": "YES",  # as root it would refuse to serve a folder that can be written to
    }
    if options.idle:
        settings["idle_session_timeout"] = options.idle
    if options.tls:
        pem = make_certificate(state)
        settings |= {"ssl_enable": "YES", "allow_anon_ssl": "YES", "force_anon_logins_ssl": "YES",
                     "force_anon_data_ssl": "YES", "ssl_tlsv1": "YES", "ssl_ciphers": "HIGH",
                     "require_ssl_reuse": "YES",
                     "rsa_cert_file": pem, "rsa_private_key_file": pem}
    # The user daemon may not look into the folder that the sources are in.
    program = shutil.copy(find("vsftpd"), state / "vsftpd")
    for folder in libraries():
        shutil.copytree(folder, state / "lib", symlinks=True, dirs_exist_ok=True)
    configuration = state / "vsftpd.conf"
    configuration.write_text("".join(f"{name}={value}\n" for name, value in settings.items()))
    give_to_daemon(state)
    return [program, configuration]


class Sessions:
    """Accepts connections and starts the server for each, as inetd does."""

    def __init__(self, command, state, **options):
        self.command = command
        self.environment = environment(state / "lib")
        self.options = options  # of Popen
        self.running = []

    def begin(self, listener):
        connection, _ = listener.accept()
        with connection:
            self.running.append(subprocess.Popen(self.command, stdin=connection, stdout=connection,
                                                 stderr=subprocess.DEVNULL, env=self.environment, start_new_session=True,
                                                 **self.options))
        self.running = [session for session in self.running if session.poll() is None]

    def accepts(self):
        """Whether the server takes connections from the listener by itself now."""
        return False

    def end(self):
        for session in self.running:
            try:
                os.killpg(session.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
            session.wait()
        self.running = []


class PythonServer:
    """The server in Python, which accepts connections itself."""

    def __init__(self, root, options):
        try:
            from pyftpdlib.authorizers import DummyAuthorizer
            from pyftpdlib.handlers import FTPHandler
        except ImportError as error:
            raise Missing("python3-pyftpdlib is not installed") from error
        users = DummyAuthorizer()
        users.add_user(USER, PASSWORD, str(root), perm="elradfmwMT")

        class Handler(FTPHandler):
            authorizer = users
            timeout = options.idle or 300
            use_gmt_times = True

        self.handler = Handler
        self.process = None

    def begin(self, listener):
        self.process = os.fork()
        if self.process == 0:
            self.serve(listener)

    def accepts(self):
        return self.process is not None

    def serve(self, listener):
        import logging
        from pyftpdlib.servers import FTPServer
        logging.disable()
        os.close(0)
        os.chdir("/")  # the user daemon may not go back to where the test was started
        if os.geteuid() == 0:
            os.setgroups([])
            os.setgid(DAEMON)
            os.setuid(DAEMON)
        FTPServer(listener, self.handler).serve_forever(handle_exit=False)

    def end(self):
        if self.process:
            os.kill(self.process, signal.SIGKILL)
            os.waitpid(self.process, 0)
            self.process = None


SERVERS = {"proftpd": proftpd, "pure-ftpd": pure_ftpd, "vsftpd": vsftpd}


def serve(options):
    """Runs the server until standard input ends."""
    root = options.root.resolve()
    if options.server == "pyftpdlib":
        sessions = PythonServer(root, options)
    else:
        as_daemon = {"user": DAEMON, "group": DAEMON, "extra_groups": []}
        dropped = as_daemon if options.server == "vsftpd" and os.geteuid() == 0 else {}
        state = options.state.resolve()
        sessions = Sessions(SERVERS[options.server](root, state, options), state, **dropped)
    give_to_daemon(root)
    listener = socket.create_server(("127.0.0.1", 0), backlog=64)
    user = "anonymous" if options.server == "vsftpd" else USER
    print(listener.getsockname()[1], user, PASSWORD, flush=True)
    try:
        while True:
            ready, _, _ = select.select([sys.stdin] if sessions.accepts() else [listener, sys.stdin], [], [])
            if sys.stdin in ready:
                if not sys.stdin.buffer.raw.read(64):
                    return
                sessions.end()
                print("ended", flush=True)
            elif listener in ready:
                sessions.begin(listener)
    finally:
        sessions.end()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("server", choices=[*SERVERS, "pyftpdlib"])
    parser.add_argument("root", type=Path)
    parser.add_argument("state", type=Path)
    parser.add_argument("--tls", action="store_true")
    parser.add_argument("--idle", type=int)
    parser.add_argument("--quota", type=int)
    try:
        serve(parser.parse_args())
    except Missing as reason:
        print("missing:", reason, flush=True)


if __name__ == "__main__":
    main()
