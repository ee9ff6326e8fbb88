#!/usr/bin/env bash
# Plays the guided tour on a fresh installation: recorrer.sh BUILD FOLDER [STARTER]. The folder is made anew; the
# declaration is uploaded to a server that the tour starts on this machine. STARTER is what the robot is run with, where
# it does not run by itself.
set -euo pipefail
aqui=$(cd "$(dirname "$0")" && pwd)
construccion=$(cd "$1" && pwd)
carpeta=$2
robot=$construccion/bin/robot
[ -e "$robot" ] || robot=$robot.exe
rm -rf "$carpeta"
mkdir -p "$(dirname "$carpeta")"
cp -R "$construccion/Altoverde" "$carpeta"
cp "$aqui"/nomina_*.txt "$carpeta"/
mkdir -p "$carpeta/capturas" "$carpeta/informes" "$carpeta/servidor"
/usr/bin/python3 "$aqui/../../tests/guiones/con_ftp.py" si "$carpeta/servidor" \
  ${3:-} "$robot" "$aqui/recorrido.guion" --en "$carpeta" ${ROBOT_OPCIONES:-}
echo
echo "Recorrido completo. Resultados en $carpeta:"
echo "  capturas/        una imagen de cada paso"
echo "  retratos/        cada ventana sola, como la muestra la ayuda"
echo "  informes/        boletas y reportes en PDF"
echo "  declaracion.txt  la declaración como la lee el sindicato"
echo "  servidor/DDJJ/   lo que llegó al servidor"
