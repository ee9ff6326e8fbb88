#!/usr/bin/env python3
"""Holds the sources against the picture in docs/architecture.md: which folder may include which, where the doors to the
outside are, and what may stand only in platform/. Prints each breach; exit status 1 when there is one."""
import pathlib
import re
import sys

RAIZ = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[1])
FUENTES = RAIZ / "src"

# A folder's rules may include these folders; its screens may include the same ones' screens as well.
DEBAJO = {
    "platform": set(),
    "core": {"platform"},
    "companies": {"platform", "core"},
    "roster": {"platform", "core", "companies"},
    "exchange": {"platform", "core", "companies", "roster"},
    "declarations": {"platform", "core", "companies", "roster", "exchange"},
    "slips": {"platform", "core", "companies"},
    "maintenance": {"platform", "core"},
}

# Each road to the outside has one file; everybody else goes through its function.
PUERTAS = {
    r"\bQMessageBox\b": {"platform/screens/mensajes.cpp"},
    r"\bQ(File|Print|PageSetup|Input)Dialog\b": {"platform/screens/dialogos.cpp", "platform/screens/impresion.cpp"},
    r"\bQDesktopServices\b": {"platform/screens/dialogos.cpp", "platform/screens/correo.cpp"},
    r"\bcurrent(DateTime|Date|Time)\b": {"platform/data/reloj.cpp"},
    r"\bapplicationDirPath\b": {"platform/data/directorio_programa.cpp"},
    r"\b(sqlite3_|SQLite::)": {"platform/data/"},
    r"#include <(unistd|fcntl|sys/[a-z]+|windows)\.h>": {"platform/"},
    r"\bcurl_[a-z]+_": {"platform/data/"},
}


def carpeta(ruta: pathlib.PurePath) -> tuple[str, bool]:
    partes = ruta.parts
    return partes[0], "screens" in partes[:-1]


def revisar(ruta: pathlib.Path) -> list[str]:
    relativa = ruta.relative_to(FUENTES)
    nombre = relativa.as_posix()
    texto = ruta.read_text(encoding="utf-8")
    fallas = []
    if len(relativa.parts) > 1:
        quien, es_pantalla = carpeta(relativa)
        for incluido in re.findall(r'#include "([^"]+)"', texto):
            destino = pathlib.PurePosixPath(incluido)
            if len(destino.parts) < 2 or destino.parts[0] not in DEBAJO:
                continue
            otro, otra_pantalla = carpeta(destino)
            if otro != quien and otro not in DEBAJO[quien]:
                fallas.append(f"{nombre}: {quien} may not include {incluido}")
            if otra_pantalla and not es_pantalla:
                fallas.append(f"{nombre}: a rule includes a screen, {incluido}")
        if not es_pantalla and re.search(r"#include <Q(Widget|Application|Dialog|MainWindow|LineEdit)", texto):
            fallas.append(f"{nombre}: a rule includes a widget")
    sin_comentarios = re.sub(r"//[^\n]*", "", texto)
    for patron, permitidos in PUERTAS.items():
        if re.search(patron, sin_comentarios) and not any(nombre.startswith(p) for p in permitidos):
            fallas.append(f"{nombre}: goes round a door: {patron}")
    if texto.count("\n") > 600:
        fallas.append(f"{nombre}: {texto.count(chr(10))} lines; past 600 a file holds two things")
    return fallas


def main() -> int:
    archivos = sorted(p for p in FUENTES.rglob("*") if p.suffix in {".cpp", ".h"})
    fallas = [falla for archivo in archivos for falla in revisar(archivo)]
    print(f"{len(archivos)} files, {len(fallas)} breaches")
    for falla in fallas:
        print(falla)
    return 1 if fallas or not archivos else 0


if __name__ == "__main__":
    sys.exit(main())
