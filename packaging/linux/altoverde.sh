#!/bin/sh
# Starts the program on a folder of the user's own: the database, made on the first start, beside links to what the
# package brings. A database that is gone later on is not made anew: the program tells that it is missing.
programa=/usr/lib/altoverde
carpeta=${XDG_DATA_HOME:-$HOME/.local/share}/altoverde

if [ ! -d "$carpeta" ]; then
  nueva=$carpeta.nueva.$$
  mkdir -p "$(dirname "$carpeta")" && mkdir -m 700 "$nueva" && cp "$programa/DBBrivo.mdb" "$nueva/" &&
    mv -T "$nueva" "$carpeta" || rm -rf "$nueva"
fi
for pieza in "$programa"/*; do
  case $pieza in
    */Altoverde | */DBBrivo.mdb) ;;
    *) ln -sfn "$pieza" "$carpeta/" ;;
  esac
done
ALTOVERDE_CARPETA=$carpeta exec "$programa/Altoverde" "$@"
