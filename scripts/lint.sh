#!/usr/bin/env bash
# Holds the whole tree against .clang-format, the architecture and .clang-tidy. Uses the build of the release preset,
# made first if need be. Arguments: the sources for clang-tidy, all of them when there are none.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/instalar.sh
instalar "${paquetes_de_construccion[@]}" "${paquetes_de_revision[@]}"

fuentes() { git ls-files -- "$@"; }

fuentes '*.cpp' '*.h' | xargs clang-format --dry-run -Werror
echo "clang-format: $(fuentes '*.cpp' '*.h' | wc -l) files"
python3 tests/arquitectura.py .

cmake --preset release >/dev/null
cmake --build --preset release -j "$(nproc)" >/dev/null # moc and uic write headers that the sources include
mapfile -t compiladas < <(python3 scripts/ordenes_de_lint.py build/release build/lint)
[ $# -gt 0 ] || set -- "${compiladas[@]}"
printf '%s\n' "$@" | xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p build/lint 2>/dev/null
echo "clang-tidy: $# files, no finding"
