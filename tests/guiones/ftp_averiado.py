"""Stands between a client and an FTP server: disguises a user and a folder, and lets the net fail between them, as
con_ftp.py tells."""
import contextlib
import re
import socket
import struct
import threading

AQUI = "127.0.0.1"
ANTES_DEL_CORTE = 1024
sin_soltar = []  # held, so that the silent connections stay open


def en_otro_hilo(tarea, *argumentos):
    threading.Thread(target=tarea, args=argumentos, daemon=True).start()


def cortar(*enchufes: socket.socket):
    """As a broken line: a reset and not an orderly end. The shutdown wakes whoever reads there."""
    for enchufe in enchufes:
        with contextlib.suppress(OSError):
            enchufe.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
            enchufe.shutdown(socket.SHUT_RD)
            enchufe.close()


class Sesion:
    def __init__(self, como: str, disfraz: tuple, cliente: socket.socket, servidor: socket.socket):
        self.como = como
        self.usuario, self.raiz = (texto.encode() for texto in disfraz)
        self.cliente = cliente
        self.servidor = servidor
        self.callada = como == "calla-saludo"
        self.transfirio = False
        sin_soltar.append(self)
        en_otro_hilo(self.ordenes)
        en_otro_hilo(self.respuestas)

    def ordenes(self):
        """The command goes on to the server all the same: only its answer is lost."""
        with contextlib.suppress(OSError):
            for linea in self.cliente.makefile("rb"):
                if self.como == "calla-" + linea[:4].decode("latin-1").strip().upper():
                    self.callada = True
                if self.usuario:
                    linea = re.sub(rb"^USER .*", b"USER " + self.usuario, linea)
                    linea = linea.replace(b" /", b" " + self.raiz + b"/", 1)
                self.servidor.sendall(linea)

    def respuestas(self):
        with contextlib.suppress(OSError):
            for linea in self.servidor.makefile("rb"):
                if self.como == "calla-fin" and linea[:3] in (b"226", b"250") and self.transfirio:
                    self.callada = True
                pasiva = self.como and re.match(rb"227 .*\(\d+,\d+,\d+,\d+,(\d+),(\d+)\)", linea)
                if pasiva:
                    linea = self.puerta(int(pasiva[1]) * 256 + int(pasiva[2]))
                if self.usuario and linea.startswith(b"257"):  # the folder it is in
                    linea = re.sub(rb'"%s/?' % re.escape(self.raiz), b'"/', linea)
                if not self.callada:
                    self.cliente.sendall(linea)
            if not self.callada:
                self.cliente.shutdown(socket.SHUT_WR)

    def puerta(self, puerto: int) -> bytes:
        escucha = socket.create_server((AQUI, 0))
        if self.como == "traba":  # else the system itself would take a file in
            escucha.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 4096)
        sin_soltar.append(escucha)
        en_otro_hilo(self.datos, escucha, puerto)
        alto, bajo = divmod(escucha.getsockname()[1], 256)
        return f"227 Entering Passive Mode (127,0,0,1,{alto},{bajo}).\r\n".encode()

    def datos(self, escucha: socket.socket, puerto: int):
        with contextlib.suppress(OSError):
            cliente, _ = escucha.accept()
            servidor = socket.create_connection((AQUI, puerto))
            self.transfirio = True
            sin_soltar.append((cliente, servidor))
            if self.como == "traba":
                self.callada = True
                return
            pasados = 0
            while trozo := cliente.recv(512):
                servidor.sendall(trozo)
                pasados += len(trozo)
                if self.como == "corta" and pasados >= ANTES_DEL_CORTE:
                    self.callada = True
                    cortar(cliente, self.cliente, servidor, self.servidor)
                    return
            servidor.shutdown(socket.SHUT_WR)


def interponer(como: str, puerto: int, disfraz: tuple) -> int:
    """Gives the port at which the clients of this server are to be let down, if `como` says how. `disfraz` is who any
    user is there, and the folder that is "/" to him; two empty texts for none."""
    escucha = socket.create_server((AQUI, 0))

    def atender():
        while True:
            cliente, _ = escucha.accept()
            Sesion(como, disfraz, cliente, socket.create_connection((AQUI, puerto)))

    en_otro_hilo(atender)
    return escucha.getsockname()[1]
