#!/usr/bin/env python3
# Holds the sources against the arrows that the CMake files draw (biblioteca(... USES ...)) and against the doors to the
# outside. Prints each breach; exit status 1 when there is one.
import graphlib
import pathlib
import re
import sys

RAIZ = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[1])
FUENTES = RAIZ / "src"
LINEAS = 450  # past them a file holds two things

# Each road to the outside has one file or folder; everybody else goes through its functions.
PUERTAS = {
    r"\bQMessageBox\b": {"ui/doors/mensajes.cpp"},
    r"\bQ(File|Print|PageSetup|Input)Dialog\b": {"ui/doors/dialogos.cpp", "ui/doors/impresion.cpp"},
    r"\bQDesktopServices\b": {"ui/doors/dialogos.cpp", "ui/doors/correo.cpp"},
    r"\bcurrent(DateTime|Date|Time)\b": {"base/reloj.cpp"},
    r"\bapplicationDirPath\b": {"base/directorio_programa.cpp"},
    r"\bsqlite3_": {"base/db/"},
    r"#include <(unistd|fcntl|sys/[a-z]+|windows)\.h>": {"base/files/", "base/net/", "ui/doors/"},
    r"\bcurl_[a-z]+_": {"base/net/"},
    r"\b(lxw|workbook|worksheet)_[a-z]+": {"base/files/planilla_xlsx.cpp"},
}


class Biblioteca:
    """A folder with its CMakeLists.txt: the sources that it lists, the folders that it uses, whether it knows widgets."""

    def __init__(self, cmake: pathlib.Path):
        self.nombre = cmake.parent.relative_to(FUENTES).as_posix()
        pedido = re.search(r"biblioteca\(([^)]*)\)", cmake.read_text(encoding="utf-8"))
        palabras = pedido.group(1).split() if pedido else []
        self.existe = bool(pedido)
        self.ventanas = "WIDGETS" in palabras
        self.fuentes = {palabra for palabra in palabras if "." in palabra}
        usa = palabras[palabras.index("USES") + 1 :] if "USES" in palabras else []
        self.usa = set(usa[: usa.index("LINKS")] if "LINKS" in usa else usa)

    @property
    def destino(self) -> str:
        return self.nombre.replace("/", "_")


def revisar_dibujo(bibliotecas: dict[str, Biblioteca]) -> list[str]:
    """No arrow leads to what is not there, from a rule to a screen, or round in a circle."""
    flechas = [(destino, otro) for destino in bibliotecas for otro in bibliotecas[destino].usa]
    fallas = [f"{destino} uses {otro}, which no folder makes" for destino, otro in flechas if otro not in bibliotecas]
    con_ventanas = {destino for destino in bibliotecas if bibliotecas[destino].ventanas}
    fallas += [f"{destino} has no windows and uses {otro}" for destino, otro in flechas
               if otro in con_ventanas and destino not in con_ventanas]
    try:
        graphlib.TopologicalSorter({destino: bibliotecas[destino].usa for destino in bibliotecas}).prepare()
    except graphlib.CycleError as circulo:
        fallas.append(" -> ".join(reversed(circulo.args[1])) + ": a circle")
    return fallas


def revisar_archivo(ruta: pathlib.Path, carpetas: dict[str, Biblioteca]) -> list[str]:
    nombre = ruta.relative_to(FUENTES).as_posix()
    texto = ruta.read_text(encoding="utf-8")
    fallas = []
    if propia := carpetas.get(ruta.parent.relative_to(FUENTES).as_posix()):
        if ruta.name not in propia.fuentes:
            fallas.append(f"{nombre}: not among the sources of its folder")
        for incluido in re.findall(r'#include "([^"]+)/[^/"]+"', texto):
            if incluido != propia.nombre and incluido.replace("/", "_") not in propia.usa:
                fallas.append(f"{nombre}: {propia.nombre} has no arrow to {incluido}")
        if not propia.ventanas and re.search(r"#include <Q(Widget|Application|Dialog|MainWindow|LineEdit)", texto):
            fallas.append(f"{nombre}: a rule includes a widget")
    sin_comentarios = re.sub(r"//[^\n]*", "", texto)
    for patron, permitidos in PUERTAS.items():
        if re.search(patron, sin_comentarios) and not any(nombre.startswith(p) for p in permitidos):
            fallas.append(f"{nombre}: goes round a door: {patron}")
    lineas = texto.splitlines()
    if len(lineas) > LINEAS:
        fallas.append(f"{nombre}: {len(lineas)} lines; past {LINEAS} a file holds two things")
    fallas += [f"{nombre}:{n}: past 120 columns" for n, linea in enumerate(lineas, 1) if len(linea) > 120]
    return fallas


def main() -> int:
    todas = [Biblioteca(cmake) for cmake in sorted(FUENTES.rglob("CMakeLists.txt"))]
    bibliotecas = [biblioteca for biblioteca in todas if biblioteca.existe]
    fallas = revisar_dibujo({biblioteca.destino: biblioteca for biblioteca in bibliotecas})
    carpetas = {biblioteca.nombre: biblioteca for biblioteca in bibliotecas}
    archivos = sorted(p for p in FUENTES.rglob("*") if p.suffix in {".cpp", ".h"})
    fallas += [falla for archivo in archivos for falla in revisar_archivo(archivo, carpetas)]
    print(f"{len(bibliotecas)} folders, {len(archivos)} files, {len(fallas)} breaches")
    for falla in fallas:
        print(falla)
    return 1 if fallas or not archivos or not bibliotecas else 0


if __name__ == "__main__":
    sys.exit(main())
