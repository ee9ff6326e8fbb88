#!/usr/bin/env bash
# Builds dist/altoverde_VERSION_ARCH.deb from the release build: the program under /usr/lib, a menu entry with its icon, and
# a starter that gives each user a folder of their own with the database.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/instalar.sh
instalar "${paquetes_de_construccion[@]}" dpkg-dev

cmake --preset release >/dev/null
cmake --build --preset release -j "$(nproc)" --target Altoverde base_semilla informes fuente ayuda

readonly construccion=build/release
readonly raiz=$construccion/paquete/raiz
readonly programa=$raiz/usr/lib/altoverde
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' $construccion/CMakeCache.txt)
arquitectura=$(dpkg --print-architecture)

rm -rf $construccion/paquete
install -d $programa/ayuda $raiz/DEBIAN $construccion/paquete/debian
install -s $construccion/Altoverde/Altoverde $programa/
install -m 644 $construccion/resources/seed/DBBrivo.mdb $construccion/Altoverde/*.{rpt,ttf} $programa/
install -m 644 $construccion/Altoverde/ayuda/* $programa/ayuda/
install -D packaging/linux/altoverde.sh $raiz/usr/bin/altoverde
install -D -m 644 packaging/linux/altoverde.desktop $raiz/usr/share/applications/altoverde.desktop
for lado in 16 24 32 48 64 128 256; do
  install -D -m 644 $construccion/generado/dibujos/altoverde_$lado.png \
    $raiz/usr/share/icons/hicolor/${lado}x$lado/apps/altoverde.png
done
install -D -m 644 resources/images/altoverde.svg $raiz/usr/share/icons/hicolor/scalable/apps/altoverde.svg
install -D -m 644 LICENSE $raiz/usr/share/doc/altoverde/copyright

printf 'Source: altoverde\n\nPackage: altoverde\nArchitecture: any\n' > $construccion/paquete/debian/control
bibliotecas=$(cd $construccion/paquete && dpkg-shlibdeps -O raiz/usr/lib/altoverde/Altoverde 2>/dev/null |
  sed -n 's/^shlibs:Depends=//p')
cat > $raiz/DEBIAN/control <<FIN
Package: altoverde
Version: $version
Architecture: $arquitectura
Section: misc
Priority: optional
Maintainer: Altoverde <soporte@example.org>
Installed-Size: $(du -sk --exclude=DEBIAN $raiz | cut -f1)
Depends: $bibliotecas, qt6-qpa-plugins, fonts-dejavu-core
Recommends: xdg-utils
Description: Sistema de Pagos Regulares y Declaraciones Juradas
 Declaraciones juradas mensuales, nóminas y boletas de pago. Los datos de cada
 usuario quedan en la carpeta altoverde de sus propios datos y no se borran al
 desinstalar el programa.
FIN
mkdir -p dist
dpkg-deb --root-owner-group --build $raiz dist/altoverde_${version}_$arquitectura.deb
