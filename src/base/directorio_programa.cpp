#include "base/directorio_programa.h"

#include <QCoreApplication>
#include <QDir>

namespace
{
QString& otroDirectorio()
{
    static QString ruta;
    return ruta;
}
} // namespace

QString DirectorioPrograma()
{
    const QString ruta = otroDirectorio().isEmpty() ? QCoreApplication::applicationDirPath() : otroDirectorio();
    return QDir::toNativeSeparators(QDir::cleanPath(QDir(ruta).absolutePath()));
}

void reemplazarDirectorioPrograma(const QString& ruta)
{
    otroDirectorio() = ruta;
}
