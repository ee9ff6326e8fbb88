#!/usr/bin/env bash
# Tries under Wine what scripts/windows.sh has built. On the screen in memory: every test program, every acceptance script,
# the guided tour. On the real one, under Xvfb: the scripts and the tour again. Then what the tour leaves is compared with
# what it leaves here, and the installer is run: install, start, upgrade, uninstall. Test programs that start this system's
# tools skip those tests in a line of their own. Each part can be named alone: probar.sh [PART...]
set -euo pipefail
cd "$(dirname "$0")/../.."
readonly fuente=$PWD construccion=build/windows
. scripts/windows/paquetes.sh
instalar "${paquetes_de_construccion[@]}" "${paquetes_de_windows[@]}" "${paquetes_de_prueba[@]}" xdotool sqlite3
. scripts/windows/entorno.sh
readonly salidas=$construccion/probado
mkdir -p "$salidas"
printf '%s\n' 'menu "Utilidades" "Mantenimiento" dice "LA BASE HA SIDO COMPACTADA Y REPARADA CON EXITO."' \
  salir > "$salidas/compactar.guion"

export ALTOVERDE_MUERTES=${ALTOVERDE_MUERTES:-30}
export TZ=UTC # the recipe of a failure is the same wherever it is repeated

falla() {
  echo "FALLA: $*" >&2
  exit 1
}

# esperar WHAT COMMAND...: until the command succeeds; a minute and more without it is a failure of that name.
esperar() {
  local que=$1
  shift
  for _ in $(seq 300); do
    "$@" && return 0
    sleep 0.2
  done
  falla "$que"
}

# arrancar FOLDER: as a user does, without the build's libraries on the path; whatever hangs, it ends.
arrancar() { WINEPATH='' exec timeout -k 10 600 wine "$1/Altoverde.exe"; }

pantalla() {
  rm -f "$salidas/pantalla.$$"
  Xvfb -displayfd 7 -noreset -screen 0 1280x1000x24 7>"$salidas/pantalla.$$" >/dev/null 2>&1 &
  trap 'kill %Xvfb; wineserver -k' EXIT
  esperar 'no arranca Xvfb' test -s "$salidas/pantalla.$$"
  DISPLAY=:$(cat "$salidas/pantalla.$$")
  export DISPLAY
  wineserver -p # one for all programs: each start would take a second
  local nombre
  for nombre in sDecimal sThousand sMonDecimalSep sMonThousandSep sDate sTime; do # signs that nobody uses
    wine reg add 'HKCU\Control Panel\International' /v $nombre /d '#' /f >/dev/null
  done
}

# ctest's own account is the transcript.
programas() { ctest --test-dir "$construccion" -j1 --output-on-failure -E '^(guion_|recorrido|arquitectura)'; }
memoria() { ctest --test-dir "$construccion" -j2 --output-on-failure -R '^(guion_|recorrido)'; }
visible() { ROBOT_OPCIONES=--pantalla ctest --test-dir "$construccion" -j1 --output-on-failure -R '^(guion_|recorrido)'; }

# The same tour here and there leaves the same declaration, slips and reports, and databases that open on either side.
iguales() {
  local aqui=$salidas/aqui alla=$construccion/tests/guiones/recorrido pdf
  cmake --preset release >/dev/null
  cmake --build --preset release -j "$(nproc)" --target all
  QT_QPA_PLATFORM=offscreen examples/recorrido/recorrer.sh build/release "$aqui" >/dev/null
  cmp "$aqui/declaracion.txt" "$alla/declaracion.txt" || falla "la declaración es otra"
  for pdf in "$aqui"/informes/*.pdf; do
    cmp <(palabras "$pdf") <(palabras "$alla/informes/$(basename "$pdf")") || falla "$(basename "$pdf") dice otra cosa"
  done
  cmp <(sqlite3 "$aqui/DBBrivo.mdb" .dump) <(sqlite3 "$alla/DBBrivo.mdb" .dump) || falla "la base de datos es otra"
  cp "$aqui/DBBrivo.mdb" "$salidas/de_aqui.mdb"
  cp "$alla/DBBrivo.mdb" "$salidas/de_alla.mdb"
  abrir_y_compactar build/release/bin/robot "$salidas/de_alla.mdb"
  abrir_y_compactar "scripts/windows/wine.sh $construccion/bin/robot.exe" "$salidas/de_aqui.mdb"
}

palabras() { pdftotext -layout "$1" - | tr -s ' '; } # the blanks between are drawn, not said

abrir_y_compactar() {
  local carpeta=$salidas/cruzada
  rm -rf "$carpeta"
  cp -R "$construccion/paquete/Altoverde" "$carpeta"
  cp "$2" "$carpeta/DBBrivo.mdb"
  QT_QPA_PLATFORM=offscreen $1 "$PWD/$salidas/compactar.guion" --en "$PWD/$carpeta" || falla "no se abre $2"
}

# Starts the program of a folder, takes a picture of its main window and closes it.
arrancar_y_ver() {
  local quien programa
  arrancar "$1" &
  programa=$!
  for _ in $(seq 300); do
    quien=$(xdotool search --onlyvisible --name 'Menu Principal' 2>/dev/null | tail -n 1) || true
    [ -n "$quien" ] && break
    sleep 0.2
  done
  sleep 2 # until it is painted
  import -window root "$salidas/$2.png"
  [ -n "$quien" ] || falla "$2: no se ve la ventana del programa"
  cerrar "$programa" "$2"
}

# cerrar PROCESS PART: as the cross of its window does.
cerrar() {
  wine taskkill /im Altoverde.exe >/dev/null
  wait "$1" || falla "$2: el programa terminó con un error, o no terminó ($?)"
}

no() { ! "$@"; }
registrado() { wine reg query "$1" >/dev/null 2>&1; }

datos_de() { (cd "$1" && find . -name '*.mdb' -exec sha256sum {} + | sort); }

# Install, start, upgrade, start, uninstall: the data stay byte for byte, and nothing else stays.
instalado() {
  local version instalador destino antes
  local -r clave='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Altoverde'
  version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$construccion/CMakeCache.txt")
  instalador=dist/windows/altoverde-$version-instalar.exe
  destino="$WINEPREFIX/drive_c/Ñandú y Compañía/Altoverde"
  rm -rf "$destino"
  wine reg add "$clave" /v InstallLocation /d "$(winepath -w "$destino")" /f >/dev/null # where it installs by itself
  wine "$instalador" /S
  [ -e "$destino/Altoverde.exe" ] || falla "no se instaló en $destino"
  arrancar_y_ver "$destino" instalado
  sqlite3 "$destino/DBBrivo.mdb" "UPDATE Parametros SET Bak_Hora = '10:07:00'"
  mkdir -p "$destino/Copias/20090603_1007"
  cp "$destino/DBBrivo.mdb" "$destino/Copias/20090603_1007/"
  antes=$(datos_de "$destino")
  echo vieja > "$destino/ayuda/inicio.html"
  wine "$instalador" /S
  cmp "$destino/ayuda/inicio.html" resources/help/inicio.html || falla "la versión de antes no se reemplazó"
  [ "$antes" = "$(datos_de "$destino")" ] || falla "instalar otra vez tocó los datos"
  arrancar_y_ver "$destino" actualizado
  wine "$destino/desinstalar.exe" /S
  esperar 'no se desinstala' no test -e "$destino/desinstalar.exe" # it goes on by itself, from a copy
  esperar "queda $clave" no registrado "$clave"
  [ "$antes" = "$(datos_de "$destino")" ] || falla "desinstalar tocó los datos"
  [ "$(find "$destino" -type f | wc -l)" = "$(echo "$antes" | wc -l)" ] || falla "quedaron archivos: $(find "$destino" -type f)"
}

# The folder of the zip under a path with accents, blanks and more than 260 characters.
ruta_larga() {
  local carpeta
  carpeta="$WINEPREFIX/drive_c/Ñandú y Compañía/$(printf 'carpeta larga %.0s' {1..9})x/$(printf 'y otra %.0s' {1..22})x"
  rm -rf "$carpeta"
  mkdir -p "$carpeta"
  cp -R "$construccion/paquete/Altoverde/." "$carpeta"
  arrancar_y_ver "$carpeta" ruta_larga
  scripts/windows/wine.sh "$construccion/bin/robot.exe" "$PWD/$salidas/compactar.guion" --en "$carpeta" ||
    falla "no se compacta bajo una ruta larga"
}

# A folder where nothing may be written is named in a box, and the program ends with an error. Wine's server opens the
# files, so that it must see the folder as the program does.
sin_permiso() {
  local carpeta=$PWD/$salidas/sin_permiso dicho=$salidas/sin_permiso.txt estado=0
  rm -rf "$carpeta"
  cp -R "$construccion/paquete/Altoverde" "$carpeta"
  echo salir > "$salidas/sin_permiso.guion"
  wineserver -k -w || true
  unshare -m bash -c 'mount --bind "$1" "$1" && mount -o remount,ro,bind "$1" && "${@:2}"; estado=$?; wineserver -k -w; exit $estado' \
    - "$carpeta" scripts/windows/wine.sh "$PWD/$construccion/bin/robot.exe" "$PWD/$salidas/sin_permiso.guion" --en "$carpeta" \
    > "$dicho" 2>&1 || estado=$?
  [ $estado -eq 3 ] && grep -q 'no se puede escribir en la carpeta Z:' "$dicho" || falla "sin permiso: $estado, $(cat "$dicho")"
}

# While a copy is open the maintenance of another one tells that the database is in use.
dos_copias() {
  local carpeta=$salidas/dos_copias programa
  rm -rf "$carpeta"
  cp -R "$construccion/paquete/Altoverde" "$carpeta"
  printf 'menu "Utilidades" "Mantenimiento" dice "%s"\nsalir\n' \
    '70 - Permiso denegado o archivo en uso: otra copia del programa está usando la base de datos' > "$salidas/dos_copias.guion"
  arrancar "$carpeta" &
  programa=$!
  esperar 'dos copias a la vez: el programa no abre la base' test -e "$carpeta/DBBrivo.ldb"
  scripts/windows/wine.sh "$construccion/bin/robot.exe" "$PWD/$salidas/dos_copias.guion" --en "$PWD/$carpeta" ||
    falla "dos copias a la vez"
  cerrar "$programa" "dos copias a la vez"
}

pantalla
for parte in "${@:-programas memoria visible iguales instalado ruta_larga dos_copias sin_permiso}"; do
  for una in $parte; do
    SECONDS=0
    "$una"
    echo "$una: bien, $SECONDS s"
  done
done
