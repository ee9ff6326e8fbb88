#!/usr/bin/env bash
# What a Debian 12 needs beyond scripts/instalar.sh to build for Windows and to try what was built. Sourced.
. scripts/instalar.sh

paquetes_de_windows=(
  g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64 mingw-w64-tools
  dpkg-dev make tcl nsis zip wine wine64 xvfb xauth
)
