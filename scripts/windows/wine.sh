#!/bin/sh
# Runs a program for Windows under Wine; of its arguments those that are paths from this system's root become Wine's.
fuente=$(cd "$(dirname "$0")/../.." && pwd)
. "$fuente/scripts/windows/entorno.sh"
for argumento in "$@"; do
  shift
  case $argumento in /*) argumento=Z:$argumento ;; esac
  set -- "$@" "$argumento"
done
exec wine "$@"
