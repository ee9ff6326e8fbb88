#!/usr/bin/python3
"""con_ftp.py [SERVIDOR:]COMO CARPETA [ORDEN...]: runs a command with an FTP server of its own, whose address it adds as
"--ftp HOST:PORT"; the files that arrive lie in CARPETA. The exit status is the command's. Without a command it prints
the address, serves until its input ends, and prints each command that a client sends.

Both servers, "pyftpdlib" and "vsftpd", keep the bytes as they came. COMO:
  si           all is well
  cerrado      nobody listens there
  rechaza      the password is another one
  sin_carpeta  there is no DDJJ to go to
  no_sube      no file may be stored
  lleno        the disk is full after 2048 bytes
  corta        both connections are reset after 1024 bytes of a file
  traba        a file's bytes are not taken, and nothing is said any more
  calla-X      nothing comes back any more from the command X on: calla-CWD; calla-saludo leaves out the greeting,
               calla-fin only what ends a transfer"""
import contextlib
import errno
import logging
import os
import pathlib
import resource
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import threading

from ftp_averiado import interponer

USUARIO, CLAVE, OTRA_CLAVE = "administrador", "KT-marcados", "otra clave"
CUPO = 2048
AQUI = "127.0.0.1"
ORDEN = sys.argv[3:]
SANOS = {"si", "rechaza", "sin_carpeta", "no_sube", "lleno"}


def con_pyftpdlib(como: str, carpeta: pathlib.Path, recursos: contextlib.ExitStack) -> int:
    from pyftpdlib.authorizers import DummyAuthorizer
    from pyftpdlib.filesystems import AbstractedFS
    from pyftpdlib.handlers import DTPHandler, FTPHandler
    from pyftpdlib.servers import FTPServer

    class DiscoLleno(AbstractedFS):
        def open(self, filename, mode):
            archivo = super().open(filename, mode)

            class Acotado:
                name, close = archivo.name, archivo.close
                closed = property(lambda _: archivo.closed)

                def write(self, trozo):
                    archivo.write(trozo[: max(0, CUPO - archivo.tell())])
                    if archivo.tell() >= CUPO:
                        raise OSError(errno.ENOSPC, os.strerror(errno.ENOSPC))

            return Acotado() if "w" in mode else archivo

    class Datos(DTPHandler):
        def enable_receiving(self, tipo, orden):
            super().enable_receiving("i", orden)  # in ASCII it would take the CRs out

    class Manejador(FTPHandler):
        authorizer = DummyAuthorizer()
        dtp_handler = Datos
        auth_failed_timeout = 0
        abstracted_fs = DiscoLleno if como == "lleno" else AbstractedFS

        def pre_process_command(self, linea, orden, argumento):
            if not ORDEN:
                print(f"{orden} {argumento}".rstrip(), flush=True)
            super().pre_process_command(linea, orden, argumento)

    permisos = "elr" if como == "no_sube" else "elradfmw"
    Manejador.authorizer.add_user(USUARIO, OTRA_CLAVE if como == "rechaza" else CLAVE, str(carpeta), perm=permisos)
    servidor = FTPServer((AQUI, 0), Manejador)
    threading.Thread(target=servidor.serve_forever, daemon=True).start()
    return servidor.address[1]


def con_vsftpd(como: str, carpeta: pathlib.Path, recursos: contextlib.ExitStack) -> int:
    """Each connection gets a vsftpd of its own, so that the system chooses the port and nobody waits for a start. It
    signs on its anonymous user alone and locks nobody in, for which it needs no rights: ftp_averiado.py disguises ours."""
    programa = shutil.which("vsftpd") or shutil.which("vsftpd", path="/usr/sbin")
    if programa is None:
        sys.exit("con_ftp.py: vsftpd is not installed (scripts/instalar.sh names the packages)")
    propia = pathlib.Path(recursos.enter_context(tempfile.TemporaryDirectory(prefix="vsftpd-")))
    (propia / "vacia").mkdir()
    (propia / "rechazadas").write_text(f"{OTRA_CLAVE if como != 'rechaza' else CLAVE}\n")
    opciones = {
        "listen": "NO", "run_as_launching_user": "YES", "one_process_model": "YES", "local_enable": "NO",
        "anonymous_enable": "YES", "anon_root": carpeta, "anon_umask": "022", "anon_world_readable_only": "NO",
        "write_enable": "YES", "anon_upload_enable": "YES", "anon_other_write_enable": "YES", "deny_email_enable": "YES",
        "banned_email_file": propia / "rechazadas", "secure_chroot_dir": propia / "vacia", "seccomp_sandbox": "NO",
        "isolate": "NO", "isolate_network": "NO", "delay_failed_login": 0, "xferlog_enable": "NO",
    }  # fmt: skip
    if como == "no_sube":
        opciones["cmds_denied"] = "STOR"
    configuracion = propia / "vsftpd.conf"
    configuracion.write_text("".join(f"{clave}={valor}\n" for clave, valor in opciones.items()))

    def acotar():
        os.setpgid(0, 0)
        if como == "lleno":  # the signal stays ignored, as in this program: writing fails
            resource.setrlimit(resource.RLIMIT_FSIZE, (CUPO, CUPO))

    def atender():
        with contextlib.suppress(OSError):
            while True:
                conexion, _ = escucha.accept()
                hijo = subprocess.Popen(
                    [programa, str(configuracion)], stdin=conexion, stdout=conexion, stderr=conexion,
                    restore_signals=False, preexec_fn=acotar)  # fmt: skip
                conexion.close()
                recursos.callback(terminar, hijo)

    escucha = recursos.enter_context(socket.create_server((AQUI, 0)))
    threading.Thread(target=atender, daemon=True).start()
    return escucha.getsockname()[1]


def terminar(hijo: subprocess.Popen):
    with contextlib.suppress(ProcessLookupError):
        os.killpg(hijo.pid, signal.SIGKILL)
    hijo.wait()


def abrir(servidor: str, como: str, carpeta: pathlib.Path, recursos: contextlib.ExitStack) -> int:
    if como == "cerrado":
        # Bound and not listening: a connection is refused, and nobody else can take the port.
        enchufe = recursos.enter_context(socket.socket())
        enchufe.bind((AQUI, 0))
        return enchufe.getsockname()[1]
    (carpeta if como == "sin_carpeta" else carpeta / "DDJJ").mkdir(parents=True, exist_ok=True)
    poner = {"pyftpdlib": con_pyftpdlib, "vsftpd": con_vsftpd}[servidor]
    puerto = poner(como, carpeta, recursos)
    disfraz = ("ftp", str(carpeta)) if servidor == "vsftpd" else ("", "")
    falla = "" if como in SANOS else como
    return interponer(falla, puerto, disfraz) if falla or disfraz[0] else puerto


def main() -> int:
    servidor, _, como = sys.argv[1].rpartition(":")
    carpeta = pathlib.Path(sys.argv[2]).resolve()
    conocido = como in SANOS | {"cerrado", "corta", "traba"} or como.startswith("calla-")
    if servidor not in {"", "pyftpdlib", "vsftpd"} or not conocido:
        sys.exit(f"con_ftp.py: {sys.argv[1]}?")
    logging.basicConfig(level=logging.ERROR)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    with contextlib.ExitStack() as recursos:
        direccion = f"{AQUI}:{abrir(servidor or 'pyftpdlib', como, carpeta, recursos)}"
        if ORDEN:
            return subprocess.run([*ORDEN, "--ftp", direccion], check=False).returncode
        print(direccion, flush=True)
        sys.stdin.read()
    return 0


if __name__ == "__main__":
    sys.exit(main())
