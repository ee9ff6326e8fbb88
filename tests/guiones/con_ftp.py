#!/usr/bin/python3
# con_ftp.py COMO CARPETA [ORDEN...]: runs a command with an FTP server of its own, whose address it adds as
# "--ftp HOST:PORT"; the files that arrive lie in CARPETA. The exit status is the command's. Without a command it prints
# the address, serves until its input ends, and prints each command that a client sends.
#
# The bytes of a file are kept as they came. COMO:
#   si           all is well
#   cerrado      nobody listens there
#   rechaza      the password is another one
#   sin_carpeta  there is no DDJJ to go to
#   no_sube      no file may be stored
#   lleno        the disk is full after 2048 bytes
#   corta        both connections are reset after 1024 bytes of a file
#   traba        a file's bytes are not taken, and nothing is said any more
#   calla-X      nothing comes back any more from the command X on, and nothing is done: calla-CWD; calla-saludo leaves out
#                the greeting, calla-fin only what ends a transfer
#   charla-X     as calla-X, but for lines of a reply that never ends
import logging
import pathlib
import resource
import signal
import socket
import struct
import subprocess
import sys
import threading

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.filesystems import AbstractedFS
from pyftpdlib.handlers import DTPHandler, FTPHandler
from pyftpdlib.servers import FTPServer

COMO, CARPETA, ORDEN = sys.argv[1], pathlib.Path(sys.argv[2]).resolve(), sys.argv[3:]


class Disco(AbstractedFS):
    def open(self, nombre, modo):
        return open(nombre, modo, buffering=0)  # a write that finds no room fails at once, and not again at the close


class Datos(DTPHandler):
    ac_in_buffer_size = 512 if COMO == "corta" else 65536

    def enable_receiving(self, tipo, orden):
        super().enable_receiving("i", orden)  # in ASCII it would take the CRs out
        if COMO == "traba":
            self.cmd_channel.callada = True
            self.ioloop.unregister(self._fileno)

    def handle_read_event(self):
        super().handle_read()
        if COMO == "corta" and self.tot_bytes_received >= 1024:
            self.cmd_channel.callada = True
            for canal in (self.cmd_channel, self):  # a reset and not an orderly end
                canal.socket.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
            self.cmd_channel.close()


class Ordenes(FTPHandler):
    authorizer = DummyAuthorizer()
    dtp_handler = Datos
    abstracted_fs = Disco
    auth_failed_timeout = 0
    callada = COMO == "calla-saludo"

    def pre_process_command(self, linea, orden, argumento):
        if not ORDEN:
            print(f"{orden} {argumento}".rstrip(), flush=True)
        self.interrumpir(orden)
        if not self.callada:
            super().pre_process_command(linea, orden, argumento)

    def push(self, texto):
        if texto.startswith("226"):
            self.interrumpir("fin")
        if not self.callada:
            super().push(texto)

    def interrumpir(self, momento):
        self.callada |= COMO in (f"calla-{momento}", f"charla-{momento}")
        if COMO == f"charla-{momento}":
            self.charlar()

    def charlar(self):
        if not self._closed:
            super().push("230-\r\n")
            self.ioloop.call_later(0.1, self.charlar)


def servir() -> str:
    (CARPETA if COMO == "sin_carpeta" else CARPETA / "DDJJ").mkdir(parents=True, exist_ok=True)
    clave = "otra clave" if COMO == "rechaza" else "KT-marcados"
    permisos = "elr" if COMO == "no_sube" else "elradfmw"
    Ordenes.authorizer.add_user("administrador", clave, str(CARPETA), perm=permisos)
    if COMO == "lleno":
        resource.setrlimit(resource.RLIMIT_FSIZE, (2048, 2048))
    servidor = FTPServer(("127.0.0.1", 0), Ordenes)
    threading.Thread(target=servidor.serve_forever, daemon=True).start()
    return "%s:%d" % servidor.address[:2]


logging.basicConfig(level=logging.ERROR)
signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
nadie = socket.socket()  # bound and not listening: a connection is refused, and nobody else can take the port
nadie.bind(("127.0.0.1", 0))
direccion = "%s:%d" % nadie.getsockname() if COMO == "cerrado" else servir()
if ORDEN:
    sys.exit(subprocess.run([*ORDEN, "--ftp", direccion], check=False).returncode)
print(direccion, flush=True)
sys.stdin.read()
