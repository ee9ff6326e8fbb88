#!/bin/sh
# How programs for Windows are run here: under Wine, in a Windows of the build's own, with the libraries found where they
# were built. Sourced, with $fuente the source tree.
export WINEPREFIX="${WINEPREFIX:-$fuente/build/wine}" WINEARCH=win64 WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES='mscoree,mshtml='
compilador=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
WINEPATH=$(sed 's|^|Z:|; s|$|/bin;|' "$fuente/build/dependencias.txt" | tr -d '\n')
export WINEPATH="${WINEPATH}Z:$compilador;Z:/usr/x86_64-w64-mingw32/lib"
# Wine keeps Qt's variables of this system to itself, unless their names say that they are meant for its programs.
export WINEQT_QPA_FONTDIR=Z:/usr/share/fonts/truetype/dejavu
[ -z "${QT_QPA_PLATFORM:-}" ] || export WINEQT_QPA_PLATFORM="$QT_QPA_PLATFORM"
[ -z "${QT_SCALE_FACTOR:-}" ] || export WINEQT_SCALE_FACTOR="$QT_SCALE_FACTOR"
