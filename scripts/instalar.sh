#!/usr/bin/env bash
# What a bare Debian 12 needs to build, test and run the program. Sourced by run.sh and test.sh.
# Does nothing, and asks for no rights, when everything is there.

paquetes_de_construccion=(
  g++ cmake ninja-build ccache pkg-config python3 python3-fonttools
  qt6-base-dev libxkbcommon-dev libgl-dev qt6-translations-l10n qt6-qpa-plugins librsvg2-bin
  libsqlite3-dev libkainjow-mustache-dev libcurl4-openssl-dev libboost-dev libxlsxwriter-dev
  libgtest-dev libgmock-dev fonts-dejavu-core
)
paquetes_de_revision=(clang-format clang-tidy)
paquetes_de_prueba=(python3-pyftpdlib zbar-tools poppler-utils imagemagick)

instalar() {
  local faltan=()
  local paquete
  for paquete in "$@"; do
    dpkg-query -W -f='${Status}' "$paquete" 2>/dev/null | grep -q 'ok installed' || faltan+=("$paquete")
  done
  [ ${#faltan[@]} -eq 0 ] && return 0
  local raiz=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Faltan paquetes y no hay permisos para instalarlos: ${faltan[*]}" >&2; exit 1; }
    raiz=(sudo)
  fi
  echo "Instalando: ${faltan[*]}"
  "${raiz[@]}" apt-get update -qq
  "${raiz[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${faltan[@]}" >/dev/null
}
