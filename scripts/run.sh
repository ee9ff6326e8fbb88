#!/usr/bin/env bash
# One command on a bare Debian 12: installs what is missing, builds, lays out dist/Altoverde/ and starts the program
# there. A database that is already in dist/Altoverde/ is never touched. With no display it plays the guided tour and
# says where its results lie.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/instalar.sh
instalar "${paquetes_de_construccion[@]}"

cmake --preset release >/dev/null
cmake --build --preset release -j "$(nproc)"

mkdir -p dist/Altoverde
for pieza in build/release/Altoverde/*; do
  nombre=$(basename "$pieza")
  if [ "$nombre" = DBBrivo.mdb ] && [ -e dist/Altoverde/DBBrivo.mdb ]; then
    continue
  fi
  cp -R "$pieza" dist/Altoverde/
done

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec dist/Altoverde/Altoverde
fi
echo "No hay pantalla: se reproduce el recorrido guiado de examples/recorrido."
instalar "${paquetes_de_prueba[@]}"
exec examples/recorrido/recorrer.sh build/release dist/recorrido
