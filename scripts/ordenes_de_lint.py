#!/usr/bin/env python3
"""Writes the compile commands of a build so that clang can read them: it takes no precompiled header of g++, so each
command includes the header's text instead, and which warnings count is left to .clang-tidy. Prints what there is to
read: a folder's sources in one go, where the build compiles them so. Arguments: the build folder, the folder to write
into, and the sources asked for, all of them when there are none."""
import json
import pathlib
import re
import sys


def main() -> None:
    construccion, destino, *pedidas = (pathlib.Path(argumento).resolve() for argumento in sys.argv[1:])
    destino.mkdir(parents=True, exist_ok=True)

    def texto(hallado: re.Match[str]) -> str:
        cabecera = pathlib.Path(hallado.group(0))
        copia = destino / (cabecera.parent.name + ".hxx")
        copia.write_text(cabecera.read_text(encoding="utf-8"), encoding="utf-8")
        return str(copia)

    def pedido(fuente: pathlib.Path) -> bool:
        return not pedidas or any(
            una == fuente or f'#include "{una}"' in fuente.read_text(encoding="utf-8") for una in pedidas
        )

    ordenes = []
    for orden in json.loads((construccion / "compile_commands.json").read_text(encoding="utf-8")):
        if not re.search("_autogen|cmake_pch", orden["file"]) and pedido(pathlib.Path(orden["file"])):
            linea = re.sub(r"/\S+/cmake_pch\.hxx(?!\.)", texto, orden["command"])
            orden["command"] = re.sub(r" -(fpch-preprocess|Winvalid-pch|Wno-subobject-linkage|Werror)\b", "", linea)
            ordenes.append(orden)
            print(orden["file"])
    (destino / "compile_commands.json").write_text(json.dumps(ordenes, indent=0), encoding="utf-8")


if __name__ == "__main__":
    main()
