#!/usr/bin/python3
"""con_ftp.py COMO CARPETA ORDEN...: runs a command with an FTP server of its own, whose address it adds as
"--ftp HOST:PORT"; the files that arrive lie in CARPETA. COMO is "si", "cerrado" (nobody listens there), "rechaza" (no
user is let in) or "sin_carpeta" (there is no DDJJ to go to). The exit status is the command's."""
import logging
import pathlib
import socket
import subprocess
import sys
import threading

USUARIO, CLAVE = "administrador", "KT-marcados"


def atender(como: str, carpeta: pathlib.Path):
    from pyftpdlib.authorizers import DummyAuthorizer
    from pyftpdlib.handlers import FTPHandler
    from pyftpdlib.servers import FTPServer

    class Manejador(FTPHandler):
        authorizer = DummyAuthorizer()
        auth_failed_timeout = 0

    if como != "rechaza":
        Manejador.authorizer.add_user(USUARIO, CLAVE, str(carpeta), perm="elradfmw")
    servidor = FTPServer(("127.0.0.1", 0), Manejador)
    threading.Thread(target=servidor.serve_forever, daemon=True).start()
    return servidor, servidor.address[1]


def puerto_cerrado() -> tuple[socket.socket, int]:
    # Bound and not listening: a connection is refused, and nobody else can take the port.
    enchufe = socket.socket()
    enchufe.bind(("127.0.0.1", 0))
    return enchufe, enchufe.getsockname()[1]


def main() -> int:
    como, carpeta, orden = sys.argv[1], pathlib.Path(sys.argv[2]), sys.argv[3:]
    if como not in {"si", "cerrado", "rechaza", "sin_carpeta"}:
        sys.exit(f"con_ftp.py: {como}?")
    logging.basicConfig(level=logging.WARNING)
    (carpeta if como == "sin_carpeta" else carpeta / "DDJJ").mkdir(parents=True, exist_ok=True)
    guardado, puerto = puerto_cerrado() if como == "cerrado" else atender(como, carpeta)
    estado = subprocess.run([*orden, "--ftp", f"127.0.0.1:{puerto}"], check=False).returncode
    del guardado
    return estado


if __name__ == "__main__":
    sys.exit(main())
