#!/usr/bin/env bash
# Prints the table of ratios: the program's own code beside the bare database interface. Arguments go to the program
# (a part of a measure's name runs only those).
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/instalar.sh
instalar "${paquetes_de_construccion[@]}"
cmake --preset release >/dev/null
cmake --build --preset release -j "$(nproc)" --target medidas >/dev/null
exec build/release/bin/medidas "$@"
