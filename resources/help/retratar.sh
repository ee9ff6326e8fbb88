#!/usr/bin/env bash
# Makes the pictures of the help anew from the screens as they are: retratar.sh BUILD. Plays the guided tour.
set -euo pipefail
aqui=$(cd "$(dirname "$0")" && pwd)
construccion=$(cd "$1" && pwd)
. "$aqui/../../scripts/instalar.sh"
instalar "${paquetes_de_prueba[@]}"
carpeta=/opt/Altoverde # an installation: it can be read in the pictures
"$aqui/../../examples/recorrido/recorrer.sh" "$construccion" "$carpeta" >/dev/null
for retrato in "$carpeta"/retratos/*.png; do
  convert "$retrato" -strip -define png:compression-level=9 "PNG24:$aqui/$(basename "$retrato")" # white stays white
done
rm -rf "$carpeta"
