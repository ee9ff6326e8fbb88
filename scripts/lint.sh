#!/usr/bin/env bash
# Holds the whole tree against .clang-format, the architecture and .clang-tidy. Arguments: the sources for clang-tidy, all
# of them when there are none. It reads a folder's sources in one go, as the release build compiles them.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/instalar.sh
instalar "${paquetes_de_construccion[@]}" "${paquetes_de_revision[@]}"

fuentes() { git ls-files -- "$@"; }

fuentes '*.cpp' '*.h' | xargs clang-format --dry-run -Werror
echo "clang-format: $(fuentes '*.cpp' '*.h' | wc -l) files"
python3 tests/arquitectura.py .

cmake --preset release >/dev/null
# What moc, uic and the build itself write, and the sources include.
mapfile -t escritas < <(ninja -C build/release -t targets all | sed -nE 's#^([^ ]+(_autogen|/ui_[a-z_]+\.h|\.moc)): .*#\1#p')
cmake --build --preset release -j "$(nproc)" --target "${escritas[@]}" >/dev/null
mapfile -t unidades < <(python3 scripts/ordenes_de_lint.py build/release build/lint "$@")
printf '%s\n' "${unidades[@]}" | xargs -P "$(nproc)" -n 1 clang-tidy --quiet -p build/lint 2>/dev/null
echo "clang-tidy: ${#unidades[@]} units, no finding"
