#!/usr/bin/env bash
# From a bare Debian 12 to the program for Windows: dist/windows/altoverde-VERSION.zip and altoverde-VERSION-instalar.exe.
#   windows.sh             builds them
#   windows.sh --probar    and tries, under Wine, what was built
set -euo pipefail
cd "$(dirname "$0")/.."
readonly pedido=${1:-} fuente=$PWD construccion=build/windows
readonly carpeta=$construccion/paquete/Altoverde

falla() {
  echo "FALLA: $*" >&2
  exit 1
}

[[ $pedido = @(|--probar) ]] || falla "no se entiende $pedido"
scripts/windows/dependencias.sh
. scripts/windows/entorno.sh

# Wine's own Windows, made once; the program asks for Windows 10.
preparar_wine() {
  [ -e "$WINEPREFIX/listo" ] && return 0
  xvfb-run -a wineboot -i
  xvfb-run -a wine winecfg -v win10
  wineserver -w
  touch "$WINEPREFIX/listo"
}

construir() {
  cmake --preset windows ${ALTOVERDE_OPCIONES:-} >/dev/null
  cmake --build --preset windows -j "${TAREAS:-$(nproc)}" --target "$@"
}

# The libraries that the programs of the folder need, and those that these need.
copiar_bibliotecas() {
  local lugares lista=("$carpeta"/*.exe "$carpeta"/*/*.dll) archivo nombre lugar
  mapfile -t lugares < <(sed 's|$|/bin|' build/dependencias.txt; echo "$compilador"; echo /usr/x86_64-w64-mingw32/lib)
  while [ ${#lista[@]} -gt 0 ]; do
    archivo=${lista[0]}
    lista=("${lista[@]:1}")
    for nombre in $(x86_64-w64-mingw32-objdump -p "$archivo" | sed -n 's/.*DLL Name: //p'); do
      [ -e "$carpeta/$nombre" ] && continue
      for lugar in "${lugares[@]}"; do
        [ -e "$lugar/$nombre" ] || continue
        cp "$lugar/$nombre" "$carpeta/"
        lista+=("$carpeta/$nombre")
        break
      done
      # What else is named is the system's.
      [ -e "$carpeta/$nombre" ] || [[ $nombre != @(lib|Qt)* ]] || falla "$archivo necesita $nombre, que no está"
    done
  done
}

# The licences of what is handed out with the program: each asks for its text.
copiar_licencias() {
  local lugar nombre
  install -D -m 644 LICENSE "$carpeta/licencias/Altoverde.txt"
  cp /usr/share/doc/g++-mingw-w64-x86-64-posix/copyright "$carpeta/licencias/compilador.txt"
  while read -r lugar; do
    nombre=$(basename "${lugar%-*}")
    [ "$nombre" = googletest ] || cp "$lugar/licencia.txt" "$carpeta/licencias/$nombre.txt"
  done < build/dependencias.txt
}

disponer() {
  local qt complemento
  qt=$(grep /qtbase- build/dependencias.txt)
  rm -rf "$construccion/paquete"
  mkdir -p "$carpeta"
  cp -R "$construccion"/Altoverde/{Altoverde.exe,*.rpt,*.ttf,ayuda} "$construccion/resources/seed/DBBrivo.mdb" "$carpeta/"
  for complemento in platforms/qwindows styles/qwindowsvistastyle imageformats/qjpeg; do
    install -D "$qt/plugins/$complemento.dll" "$carpeta/$complemento.dll"
  done
  copiar_licencias
  copiar_bibliotecas
  x86_64-w64-mingw32-strip "$carpeta"/*.exe "$carpeta"/*.dll
}

# What the uninstaller removes: each file that was installed, by its name, and the folders that are then empty.
borrados() {
  cd "$carpeta"
  find . -type f ! -name DBBrivo.mdb -printf '  Delete "$INSTDIR\\%P"\n' | tr / '\\'
  find . -mindepth 1 -depth -type d -printf '  RMDir "$INSTDIR\\%P"\n' | tr / '\\'
}

# cabe MEGABYTES PATH: what is handed out stays small; a library too many shows here.
cabe() {
  local bytes
  bytes=$(du -sb "$2" | cut -f1)
  printf '%6.1f MB de %s MB: %s\n' "$((bytes / 100000))e-1" "$1" "$2"
  [ "$bytes" -le $(($1 * 1000000)) ] || falla "$2 pasa de $1 MB"
}

empaquetar() {
  local version nombre
  version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$construccion/CMakeCache.txt")
  nombre=$fuente/dist/windows/altoverde-$version
  mkdir -p dist/windows
  rm -f "$nombre.zip"
  # A folder of its own for each version: unpacked beside the old one it replaces no database.
  cp -R "$carpeta" "$carpeta-$version"
  (cd "$construccion/paquete" && zip -q -9 -r "$nombre.zip" "Altoverde-$version" && rm -r "Altoverde-$version")
  (borrados) > "$construccion/paquete/borrados.nsh"
  makensis -V2 -WX -NOCD -INPUTCHARSET UTF8 "-DVERSION=$version" "-DCARPETA=$fuente/$carpeta" "-DSALIDA=$nombre-instalar.exe" \
    "-DICONO=$fuente/$construccion/generado/dibujos/altoverde.ico" "-DBORRADOS=$fuente/$construccion/paquete/borrados.nsh" \
    packaging/windows/instalador.nsi
  cabe 35 "$carpeta"
  cabe 15 "$nombre.zip"
  cabe 12 "$nombre-instalar.exe"
}

preparar_wine
construir Altoverde base_semilla informes fuente ayuda
disponer
empaquetar
if [ -n "$pedido" ]; then
  construir all
  scripts/windows/probar.sh
fi
