#!/usr/bin/env bash
# One command on a bare Debian 12: installs what is missing, builds, runs every test. Arguments: the presets to run
# (default: release); "sanitize" runs the same suite under AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/instalar.sh
instalar "${paquetes_de_construccion[@]}" "${paquetes_de_prueba[@]}"

for preset in "${@:-release}"; do
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$(nproc)"
  ctest --preset "$preset"
done
