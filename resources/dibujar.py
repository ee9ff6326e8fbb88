#!/usr/bin/env python3
"""dibujar.py SOURCES OUTPUT: turns the drawings of SOURCES (SVG) into what the program reads, in the folder OUTPUT.

Line drawings become masks, red where a line is and blue where an accent is, so that the program colours them; they are
large enough to be scaled down to any icon. The resource list goes to dibujos.qrc and the Windows icon to altoverde.ico.
"""

import pathlib
import struct
import subprocess
import sys

LADO_MAESTRO = 240  # whole multiple of the usual icon sides
LADOS_DEL_PROGRAMA = (16, 20, 24, 32, 40, 48, 64, 128, 256)
ANCHO_DEL_FONDO = 3200


def pintar(svg: str, ancho: int, destino: pathlib.Path) -> bytes:
    orden = ["rsvg-convert", "--width", str(ancho), "--keep-aspect-ratio"]
    imagen = subprocess.run(orden, input=svg.encode(), stdout=subprocess.PIPE, check=True).stdout
    destino.write_bytes(imagen)
    return imagen


def mascara(svg: str) -> str:
    return svg.replace("currentColor", "#ff0000").replace("#1f5f8b", "#0000ff")


def icono_de_windows(imagenes: dict[int, bytes]) -> bytes:
    cabecera = struct.pack("<HHH", 0, 1, len(imagenes))
    desde = len(cabecera) + 16 * len(imagenes)
    for lado, imagen in imagenes.items():
        cabecera += struct.pack("<BBBBHHII", lado % 256, lado % 256, 0, 0, 1, 32, len(imagen), desde)
        desde += len(imagen)
    return cabecera + b"".join(imagenes.values())


def main() -> None:
    fuentes, salida = map(pathlib.Path, sys.argv[1:])
    salida.mkdir(parents=True, exist_ok=True)
    hechos = {"/iconos": [], "/imagenes": []}

    def poner(prefijo: str, svg: str, ancho: int, nombre: str) -> bytes:
        hechos[prefijo].append(nombre)
        return pintar(svg, ancho, salida / nombre)

    for archivo in sorted((fuentes / "icons").glob("*.svg")):
        poner("/iconos", mascara(archivo.read_text()), LADO_MAESTRO, f"{archivo.stem}.png")
    for archivo in sorted((fuentes / "icons/controles").glob("*.svg")):
        for escala, sufijo in ((1, ""), (2, "@2x"), (3, "@3x")):
            poner("/iconos", archivo.read_text(), 12 * escala, f"{archivo.stem}{sufijo}.png")
    poner("/imagenes", (fuentes / "images/fondo.svg").read_text(), ANCHO_DEL_FONDO, "fondo.png")
    programa = (fuentes / "images/altoverde.svg").read_text()
    imagenes = {lado: poner("/imagenes", programa, lado, f"altoverde_{lado}.png") for lado in LADOS_DEL_PROGRAMA}
    (salida / "altoverde.ico").write_bytes(icono_de_windows(imagenes))

    lineas = []
    for prefijo, nombres in hechos.items():
        lineas += [f'<qresource prefix="{prefijo}">', *(f"<file>{nombre}</file>" for nombre in nombres), "</qresource>"]
    (salida / "dibujos.qrc").write_text("\n".join(["<RCC>", *lineas, "</RCC>", ""]))


main()
