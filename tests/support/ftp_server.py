#!/usr/bin/env python3
"""Runs one file server on loopback until its standard input ends.

    ftp_server.py KIND ROOT [--log FILE] [--fault NAME[=VALUE] ...]

KIND is vsftpd, vsftpd-tls, pyftpdlib, pyftpdlib-tls, sftp or scripted. ROOT is the folder that the server shows. Prints one line of JSON: port, user, password,
the directory that can be written to and, for sftp, the home of the user whose key is taken. The scripted server writes each command that it gets into the log, and
misbehaves as its faults say:

    no-features       knows neither FEAT nor MLSD nor SIZE nor MLST
    no-rename         refuses RNFR             no-part         refuses to store a name that ends in ".mrd-part"
    dos, unix         form of its listings     latin           names in Windows-1252
    login=TEXT        answers the password with this text (%P is the password)
    full=N            after N bytes of a file the disk is full
    hang=COMMAND      never answers it         drop=COMMAND    closes the connection in place of an answer, the first time
    drop-data=N       closes both connections after N bytes of a file, the first time
    drop-idle=COMMAND says 421 and closes after having answered it, the first time
    refuse=COMMAND    answers it with 550      short           keeps only half of what it gets, and says so by SIZE
    answer=COMMAND:TEXT   answers it with this text (%P is the password)
    no-size           knows MLST, but not SIZE
    die=COMMAND:N     is gone for good behind the Nth of these commands
    refuse-name=NAME  refuses to store a file of this name
    forgives          refuses by name twice, with and without the part's ending, and then no more
    endless           a listing never ends
    listing=FILE      answers a listing with this file's bytes
    home=DIR          the directory of the login
    tls               can encrypt
    bare-data         of the first data connection that is to be encrypted the handshake fails
"""
import argparse
import ctypes
import json
import os
import pathlib
import pwd
import shutil
import signal
import socket
import ssl
import subprocess
import sys
import tempfile
import threading
import time

USER, PASSWORD = "anna", "ge:h@im/ß %41"


def free_port():
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


def wait_for(port, process):
    for _ in range(200):
        try:
            socket.create_connection(("127.0.0.1", port), 1).close()
            return
        except OSError:
            if process.poll() is not None:
                break
            time.sleep(0.05)
    sys.exit("the server did not start")


def announce(port, user, password, directory, home=""):
    print(json.dumps({"port": port, "user": user, "password": password, "directory": directory, "home": home}), flush=True)


def start(command, **how):
    """A process that ends with this one, whatever ends it."""
    death_signal = 1
    libc = ctypes.CDLL(None)
    return subprocess.Popen(command, stdin=subprocess.DEVNULL, preexec_fn=lambda: libc.prctl(death_signal, signal.SIGTERM), **how)


def until_stdin_ends(process):
    try:
        sys.stdin.read()
    finally:
        process.terminate()
        process.wait()


def vsftpd(arguments, work, tls=False):
    """Anonymous users write below /upload only, and the root must not be theirs."""
    root = pathlib.Path(arguments.root)
    owner = pwd.getpwuid(os.getuid()).pw_name if os.getuid() else "ftp"
    (work / "empty").mkdir()
    upload = root / "upload"
    upload.mkdir(exist_ok=True)
    root.chmod(0o555)
    if os.getuid() == 0:
        shutil.chown(upload, "ftp")
        for folder in root.parents:
            if folder != pathlib.Path("/") and folder.stat().st_uid == 0 and str(folder) != tempfile.gettempdir():
                folder.chmod(folder.stat().st_mode | 0o055)
    work.chmod(0o755)
    port = free_port()
    settings = {
        "listen": "YES", "listen_address": "127.0.0.1", "listen_port": port, "background": "NO", "anonymous_enable": "YES",
        "no_anon_password": "YES", "local_enable": "NO", "anon_root": root, "ftp_username": owner, "write_enable": "YES",
        "anon_upload_enable": "YES", "anon_mkdir_write_enable": "YES", "anon_other_write_enable": "YES",
        "anon_world_readable_only": "NO", "anon_umask": "022", "secure_chroot_dir": work / "empty", "connect_from_port_20": "NO",
        "pasv_address": "127.0.0.1", "seccomp_sandbox": "NO", "isolate_network": "NO", "xferlog_enable": "NO",
    }
    if tls:
        settings |= {"ssl_enable": "YES", "allow_anon_ssl": "YES", "force_anon_logins_ssl": "YES", "force_anon_data_ssl": "YES",
                     "rsa_cert_file": certificate(work), "rsa_private_key_file": work / "server.pem"}
    if os.getuid():
        settings["run_as_launching_user"] = "YES"
    configuration = work / "vsftpd.conf"
    configuration.write_text("".join(f"{key}={value}\n" for key, value in settings.items()))
    process = start(["/usr/sbin/vsftpd", configuration], stdout=sys.stderr)
    wait_for(port, process)
    announce(port, "anonymous", "x", "/upload")
    until_stdin_ends(process)


def certificate(work):
    path = work / "server.pem"
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=example.org",
                    "-keyout", path, "-out", work / "cert.pem"], check=True, capture_output=True)
    path.write_text(path.read_text() + (work / "cert.pem").read_text())
    return path


def pyftpdlib(arguments, work, tls=False):
    import logging
    from pyftpdlib.authorizers import DummyAuthorizer
    from pyftpdlib.handlers import FTPHandler
    from pyftpdlib.servers import FTPServer
    logging.basicConfig(level=logging.ERROR)
    base = FTPHandler
    if tls:
        from pyftpdlib.handlers import TLS_DTPHandler, TLS_FTPHandler
        base = TLS_FTPHandler

        class DataHandler(TLS_DTPHandler):
            def readable(self):
                # Bytes that come before the transfer's command begin the handshake; this version of the server takes them for
                # a mistake and hangs up.
                return self._ssl_accepting or super().readable()

    class Handler(base):
        authorizer = DummyAuthorizer()
        use_sendfile = False
        auth_failed_timeout = 0
    if tls:
        Handler.certfile = str(certificate(work))
        Handler.dtp_handler = DataHandler
        Handler.tls_control_required = Handler.tls_data_required = True
    Handler.authorizer.add_user(USER, PASSWORD, arguments.root, perm="elradfmwMT")
    server = FTPServer(("127.0.0.1", 0), Handler)
    announce(server.address[1], USER, PASSWORD, "")
    threading.Thread(target=lambda: (sys.stdin.read(), os._exit(0)), daemon=True).start()
    server.serve_forever()


def sftp(arguments, work):
    """Takes the key in the folder that is announced as home: passwords are of the machine's own users only."""
    keys = work / "home" / ".ssh"
    keys.mkdir(parents=True)
    for path in (work / "host_key", keys / "id_ed25519"):
        subprocess.run(["ssh-keygen", "-q", "-t", "ed25519", "-N", "", "-f", path], check=True)
    port = free_port()
    if os.getuid() == 0:
        pathlib.Path("/run/sshd").mkdir(exist_ok=True)
    configuration = work / "sshd_config"
    configuration.write_text(f"""Port {port}
ListenAddress 127.0.0.1
HostKey {work}/host_key
PidFile none
AuthorizedKeysFile {keys}/id_ed25519.pub
StrictModes no
PermitRootLogin yes
PasswordAuthentication no
KbdInteractiveAuthentication no
UsePAM no
Subsystem sftp internal-sftp -d {arguments.root}
""")
    process = start(["/usr/sbin/sshd", "-D", "-e", "-f", configuration], stderr=open(work / "log", "w"))
    wait_for(port, process)
    announce(port, pwd.getpwuid(os.getuid()).pw_name, "x", "", home=str(work / "home"))
    until_stdin_ends(process)


class Scripted:
    """A server of few words for one client at a time or several."""

    def __init__(self, arguments, work):
        self.root = pathlib.Path(arguments.root)
        self.log = open(arguments.log or os.devnull, "a", buffering=1, encoding="utf-8", errors="surrogateescape")
        self.faults = {}
        for fault in arguments.fault:
            name, _, value = fault.partition("=")
            self.faults[name] = value
        self.once = set()
        self.seen = {}
        self.refused = 0
        if self.has("tls"):
            self.tls = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
            self.tls.load_cert_chain(certificate(work))

    def has(self, fault, value=None, once=False):
        if fault not in self.faults or (value is not None and self.faults[fault] != value) or (once and fault in self.once):
            return False
        if once:
            self.once.add(fault)
        return True

    def encrypted(self, connection):
        return self.tls.wrap_socket(connection, server_side=True)

    def is_last(self, word):
        self.seen[word] = self.seen.get(word, 0) + 1
        return self.has("die", f"{word}:{self.seen[word]}")

    def serve(self):
        listener = self.listener = socket.create_server(("127.0.0.1", 0))
        announce(listener.getsockname()[1], USER, PASSWORD, "")
        threading.Thread(target=lambda: (sys.stdin.read(), os._exit(0)), daemon=True).start()
        while True:
            try:
                connection, _ = listener.accept()
            except OSError:
                return threading.Event().wait()
            connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            threading.Thread(target=Talk(self, connection).run, daemon=True).start()


class Gone(Exception):
    pass


class Talk:
    def __init__(self, server, connection):
        self.server, self.connection = server, connection
        self.encoding = "cp1252" if server.has("latin") else "utf-8"
        self.reader = connection.makefile("rb")
        self.directory = server.faults.get("home", "/")
        self.user = self.rename = self.passive = None
        self.protects = False

    def say(self, text):
        self.connection.sendall((text + "\r\n").encode(self.encoding, "surrogateescape"))

    def local(self, name):
        path = os.path.normpath(os.path.join(self.directory, name))
        return path, self.server.root / path.lstrip("/")

    def run(self):
        try:
            self.server.log.write("(connection)\n")
            if self.server.has("hang", "greeting"):
                time.sleep(3600)
            self.say("220 ready")
            while line := self.reader.readline():
                # A password has no encoding of its own: it comes as it was typed.
                encoding = "utf-8" if line.startswith(b"PASS") else self.encoding
                line = line.decode(encoding, "surrogateescape").rstrip("\r\n")
                word, _, rest = line.partition(" ")
                self.server.log.write(("PASS ***" if word == "PASS" else line) + "\n")
                self.obey(word.upper(), rest)
        except (Gone, OSError):
            pass
        finally:
            try:
                self.connection.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass
            self.connection.close()

    def obey(self, word, rest):
        has = self.server.has
        if has("hang", word):
            time.sleep(3600)
        if has("drop", word, once=True):
            raise Gone
        if has("refuse", word):
            return self.say("550 refused")
        if has("answer") and self.server.faults["answer"].startswith(word + ":"):
            return self.say(self.server.faults["answer"].partition(":")[2].replace("%P", PASSWORD))
        handler = getattr(self, "do_" + word, None)
        if handler is None or (has("no-features") and word in ("FEAT", "MLSD", "SIZE", "MLST", "EPSV")) or \
                (has("no-size") and word == "SIZE"):
            return self.say("500 what?")
        handler(rest)
        if self.server.is_last(word):
            self.server.listener.shutdown(socket.SHUT_RDWR)
            self.server.listener.close()
            raise Gone
        if has("drop-idle", word, once=True):
            self.say("421 timeout")
            raise Gone

    def do_AUTH(self, _):
        if not self.server.has("tls"):
            return self.say("502 not here")
        self.say("234 go on")
        self.connection = self.server.encrypted(self.connection)
        self.reader = self.connection.makefile("rb")

    def do_PBSZ(self, _):
        self.say("200 ok")

    def do_PROT(self, rest):
        self.protects = rest == "P"
        self.say("200 ok")

    def do_USER(self, rest):
        self.user = rest
        self.say("331 password?")

    def do_PASS(self, rest):
        if self.server.has("login"):
            return self.say(self.server.faults["login"].replace("%P", rest))
        self.say("230 welcome" if (self.user, rest) == (USER, PASSWORD) else "530 Login incorrect.")

    def do_PWD(self, _):
        self.say(f'257 "{self.directory}"')

    def do_FEAT(self, _):
        self.say("211-Features:\r\n SIZE\r\n MLST type*;size*;\r\n UTF8\r\n211 End" if not self.server.has("unix") and
                 not self.server.has("dos") and not self.server.has("latin") else "211 none")

    def do_OPTS(self, _):
        self.say("200 ok")

    def do_TYPE(self, _):
        self.say("200 ok")

    def do_QUIT(self, _):
        self.say("221 bye")
        raise Gone

    def do_CWD(self, rest):
        path, local = self.local(rest)
        if rest and local.is_dir():
            self.directory = path
            self.say("250 ok")
        else:
            self.say("550 no such directory")

    def do_MKD(self, rest):
        path, local = self.local(rest)
        try:
            if not rest:
                raise OSError
            local.mkdir()
            self.say(f'257 "{path}"')
        except OSError:
            self.say("550 cannot be made")

    def do_EPSV(self, _):
        self.passive = socket.create_server(("127.0.0.1", 0))
        self.say(f"229 Entering ({'|' * 3}{self.passive.getsockname()[1]}|)")

    def do_PASV(self, _):
        self.passive = socket.create_server(("127.0.0.1", 0))
        port = self.passive.getsockname()[1]
        self.say(f"227 Entering (127,0,0,1,{port >> 8},{port & 255})")

    def data(self):
        connection, _ = self.passive.accept()
        self.passive.close()
        if not self.protects:
            return connection
        if self.server.has("bare-data", once=True):
            connection.sendall(b"this is no handshake\r\n" * 10)
            connection.close()
            raise Gone
        return self.server.encrypted(connection)

    def entries(self, form):
        if self.server.has("listing"):
            return pathlib.Path(self.server.faults["listing"]).read_bytes()
        lines = []
        for path in sorted(self.local(".")[1].iterdir()):
            size, folder = path.stat().st_size, path.is_dir()
            if form == "facts":
                lines.append(f"type={'dir' if folder else 'file'};size={size}; {path.name}")
            elif form == "dos":
                lines.append(f"01-31-03  12:30PM       {'<DIR>          ' if folder else f'{size:>14} '}{path.name}")
            else:
                lines.append(f"{'d' if folder else '-'}rwxr-xr-x   1 anna     users    {size:>8} Jan 31 12:30 {path.name}")
        return "".join(line + "\r\n" for line in lines).encode(self.encoding, "replace")

    def send_list(self, form):
        text = self.entries(form)
        self.say("150 here it comes")
        with self.data() as data:
            data.sendall(text)
            while self.server.has("endless"):
                data.sendall(b"type=file;size=1; " + b"a" * 60000 + b"\r\n")
        self.say("226 done")

    def do_LIST(self, _):
        self.send_list("dos" if self.server.has("dos") else "unix")

    def do_MLSD(self, _):
        self.send_list("facts")

    def do_STOR(self, rest):
        has, faults = self.server.has, self.server.faults
        if has("no-part") and rest.endswith(".mrd-part"):
            return self.say("553 this name is not allowed")
        if "refuse-name" in faults and rest.startswith(faults["refuse-name"]):
            self.server.refused += 1
            if not has("forgives") or self.server.refused <= 2:
                return self.say("553 this file is not allowed")
        self.say("150 go on")
        taken = b""
        with self.data() as data:
            while piece := data.recv(65536):
                taken += piece
                if has("full") and len(taken) > int(faults["full"]):
                    self.local(rest)[1].write_bytes(taken[:int(faults["full"])])
                    data.close()
                    return self.say("552 disk quota exceeded")
                if "drop-data" in faults and len(taken) > int(faults["drop-data"]) and has("drop-data", once=True):
                    raise Gone
        if has("short"):
            taken = taken[:len(taken) // 2]
        self.local(rest)[1].write_bytes(taken)
        self.say("226 done")

    def do_SIZE(self, rest):
        local = self.local(rest)[1]
        self.say(f"213 {local.stat().st_size}" if local.is_file() else "550 no such file")

    def do_MLST(self, rest):
        local = self.local(rest)[1]
        self.say(f"250-Facts\r\n type=file;size={local.stat().st_size}; {rest}\r\n250 End" if local.is_file() else
                 "550 no such file")

    def do_DELE(self, rest):
        local = self.local(rest)[1]
        if local.is_file():
            local.unlink()
            self.say("250 gone")
        else:
            self.say("550 no such file")

    def do_RNFR(self, rest):
        if self.server.has("no-rename"):
            return self.say("502 not here")
        self.rename = self.local(rest)[1]
        self.say("350 to what?" if self.rename.is_file() else "550 no such file")

    def do_RNTO(self, rest):
        if self.server.has("no-rename") or self.rename is None:
            return self.say("503 what?")
        self.rename.replace(self.local(rest)[1])
        self.say("250 ok")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("kind")
    parser.add_argument("root")
    parser.add_argument("--log")
    parser.add_argument("--fault", action="append", default=[])
    arguments = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(0))
    with tempfile.TemporaryDirectory(prefix="mrd-server-") as folder:
        work = pathlib.Path(folder)
        if arguments.kind == "vsftpd":
            vsftpd(arguments, work)
        elif arguments.kind == "vsftpd-tls":
            vsftpd(arguments, work, tls=True)
        elif arguments.kind == "pyftpdlib":
            pyftpdlib(arguments, work)
        elif arguments.kind == "pyftpdlib-tls":
            pyftpdlib(arguments, work, tls=True)
        elif arguments.kind == "sftp":
            sftp(arguments, work)
        else:
            Scripted(arguments, work).serve()


if __name__ == "__main__":
    main()
