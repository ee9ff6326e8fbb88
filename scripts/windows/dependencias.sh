#!/usr/bin/env bash
# Builds what the program for Windows is linked with, from Debian's source packages in the versions of this machine's own
# libraries. Each lies outside the source tree, in a folder named by a hash of what it is made from, and is built once.
# The list of the folders is left in build/dependencias.txt. TAREAS: how many compile at once.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/windows/paquetes.sh
instalar "${paquetes_de_construccion[@]}" "${paquetes_de_windows[@]}"

readonly fuente=$PWD
readonly almacen=${ALTOVERDE_DEPENDENCIAS:-${XDG_CACHE_HOME:-$HOME/.cache}/altoverde-windows}
readonly tareas=${TAREAS:-$(nproc)}
readonly cadena=$fuente/cmake/windows.cmake
mkdir -p "$almacen" build
rm -f "$almacen/listas/listo" # a version of since the last time is not in the lists of then

# Qt of the program and of its tests. Direct2D must be on: this version compiles DirectWrite only with it, and
# Qt6PrintSupport does not link without; the screen that is drawn with it is not wanted. Debian's tarball has no wintab.h,
# so graphics tablets are off.
receta_qtbase() {
  sed -i '/add_subdirectory(\(direct2d\|minimal\))/d' fuente/src/plugins/platforms/CMakeLists.txt
  construir -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DQT_BUILD_TOOLS_WHEN_CROSSCOMPILING=OFF \
    -DQT_BUILD_TOOLS_BY_DEFAULT=OFF -DINPUT_opengl=no -DFEATURE_direct2d=ON -DFEATURE_testlib=ON \
    $(apagadas pkg_config sql network dbus xml concurrent vulkan icu zstd glib tabletevent gif \
      system_{zlib,png,jpeg,freetype,harfbuzz,pcre2,doubleconversion} \
      graphicsview wizard undocommand textodfwriter textmarkdown{reader,writer} syntaxhighlighter errormessage toolbox dial \
      lcdnumber fontdialog colordialog fontcombobox columnview datawidgetmapper keysequenceedit splashscreen)
}

apagadas() {
  local rasgo
  for rasgo in "$@"; do echo "-DFEATURE_$rasgo=OFF"; done
}

receta_sqlite3() {
  mkdir -p generado
  (cd generado && ../fuente/configure --disable-tcl --disable-readline && make sqlite3.c sqlite3.h)
  cat > generado/CMakeLists.txt <<'FIN'
cmake_minimum_required(VERSION 3.25)
project(sqlite3 C)
add_library(sqlite3 SHARED sqlite3.c)
target_compile_definitions(sqlite3 PRIVATE SQLITE_ENABLE_COLUMN_METADATA SQLITE_THREADSAFE=1 SQLITE_SECURE_DELETE
  SQLITE_SOUNDEX SQLITE_MAX_VARIABLE_NUMBER=250000)
set_target_properties(sqlite3 PROPERTIES WINDOWS_EXPORT_ALL_SYMBOLS ON)
install(TARGETS sqlite3)
install(FILES sqlite3.h TYPE INCLUDE)
FIN
  origen=generado construir
}

# Static, and without what reads: it only packs the sheets of the next one.
receta_zlib() {
  mkdir -p generado
  cat > generado/CMakeLists.txt <<'FIN'
cmake_minimum_required(VERSION 3.25)
project(zlib C)
set(fuentes adler32 compress crc32 deflate trees zutil)
list(TRANSFORM fuentes PREPEND ${CMAKE_SOURCE_DIR}/../fuente/)
list(TRANSFORM fuentes APPEND .c)
add_library(z STATIC ${fuentes})
install(TARGETS z)
install(FILES ../fuente/zlib.h ../fuente/zconf.h TYPE INCLUDE)
FIN
  origen=generado construir
}

receta_libxlsxwriter() { construir -DBUILD_SHARED_LIBS=OFF -DUSE_NO_MD5=ON; }

# FTP, and HTTP because this version does not link without it.
receta_curl() {
  construir -DBUILD_CURL_EXE=OFF -DBUILD_TESTING=OFF -DCURL_ENABLE_SSL=OFF -DCURL_ZLIB=OFF -DUSE_LIBIDN2=OFF \
    -DCURL_USE_LIBPSL=OFF -DCURL_USE_LIBSSH2=OFF -DUSE_WIN32_LDAP=OFF -DENABLE_UNICODE=ON \
    -DCURL_DISABLE_{LDAP,LDAPS,TELNET,DICT,TFTP,IMAP,POP3,SMTP,SMB,RTSP,GOPHER,MQTT,ALTSVC,HSTS}=ON
}

receta_googletest() { construir; }

# Libraries of headers alone. Boost 1.74, which the program uses here, has no file_lock for wide paths; 1.81 has.
receta_cabeceras() {
  (cd fuente && apt-get download "libboost1.81-dev=$(version_de libboost1.81-dev)" && dpkg -x libboost1.81-dev_*.deb .)
  mkdir -p "$destino/include"
  cp -a fuente/usr/include/boost /usr/include/kainjow "$destino/include/"
  cat fuente/usr/share/doc/libboost1.81-dev/copyright /usr/share/doc/libkainjow-mustache-dev/copyright > "$destino/licencia.txt"
}

# construir OPTION...: configure, build and install the unpacked source (or $origen) into $destino, its licence as well
construir() {
  cmake -S "${origen:-fuente}" -B obra -G Ninja -DCMAKE_TOOLCHAIN_FILE="$cadena" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$destino" "$@"
  cmake --build obra -j "$tareas"
  cmake --install obra --strip
  cp fuente/debian/copyright "$destino/licencia.txt"
}

version_de() {
  local version
  version=$(dpkg-query -W -f='${Version}' "$1" 2>/dev/null) || version=
  echo "${version:-$(apt-cache policy "$1" | sed -n 's/.*Candidate: //p')}"
}

# apt-get with a list of source packages of this script's own: the machine's lists need not name them.
apt_fuentes() {
  local listas=$almacen/listas opciones
  opciones=(-o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$listas/partes"
    -o Dir::State::lists="$listas/estado" -o Dir::Cache="$listas/archivos")
  if [ ! -e "$listas/listo" ]; then
    mkdir -p "$listas"/{partes,estado/partial,archivos/archives/partial}
    find /etc/apt/sources.list.d -name '*.sources' -exec cp {} "$listas/partes/" \;
    find "$listas/partes" -name '*.sources' -exec sed -i 's/^Types:.*/Types: deb-src/' {} +
    { cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list 2>/dev/null || true; } | sed -n 's/^deb /deb-src /p' \
      > "$listas/partes/otras.list"
    apt-get "${opciones[@]}" update -qq
    touch "$listas/listo"
  fi
  apt-get "${opciones[@]}" "$@"
}

# dependencia NAME [SOURCE-PACKAGE HOST-PACKAGE]: the version is the host's package's; without one, the headers'
dependencia() {
  local nombre=$1 paquete=${2:-} version una huella
  version=$(for una in ${3:-libboost1.81-dev libkainjow-mustache-dev}; do version_de "$una"; done | xargs)
  huella=$({ declare -f "receta_$nombre" construir apagadas && echo "$version" && grep COMPILER "$cadena" &&
    x86_64-w64-mingw32-g++-posix -dumpfullversion; } | sha256sum | cut -c1-12)
  local destino=$almacen/$nombre-$huella
  if [ ! -e "$destino/completo" ]; then
    echo "Se construye $nombre $version en $destino"
    local obra=$almacen/obra-$nombre-$huella # one that was cut off goes on
    mkdir -p "$destino" "$obra"
    ( # not part of a condition: a failure must end it
      cd -P "$obra"
      if [ -n "$paquete" ] && [ ! -e fuente ]; then
        apt_fuentes source --download-only "$paquete=${version%+b[0-9]*}" # one rebuilt alone has no source of its own
        rm -rf desempacada
        dpkg-source --no-check -x "$paquete"_*.dsc desempacada
        mv desempacada fuente
      fi
      mkdir -p fuente
      "receta_$nombre"
    ) > "$almacen/$nombre.log" 2>&1 &
    wait $! || { tail -n 30 "$almacen/$nombre.log" >&2; exit 1; }
    touch "$destino/completo"
    rm -rf "$obra"
  fi
  echo "$destino" >> build/dependencias.txt
}

: > build/dependencias.txt
dependencia qtbase qt6-base qt6-base-dev
dependencia sqlite3 sqlite3 libsqlite3-dev
dependencia zlib zlib zlib1g-dev
dependencia libxlsxwriter libxlsxwriter libxlsxwriter-dev
dependencia curl curl libcurl4-openssl-dev
dependencia googletest googletest libgtest-dev
dependencia cabeceras
