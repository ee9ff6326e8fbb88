#include "base/directorio_programa.h"

#include <QCoreApplication>
#include <QDir>

namespace
{
QString& reemplazo()
{
    static QString ruta;
    return ruta;
}
} // namespace

QString DirectorioPrograma()
{
    const QString ruta = reemplazo().isEmpty() ? QCoreApplication::applicationDirPath() : reemplazo();
    return QDir::toNativeSeparators(QDir::cleanPath(QDir(ruta).absolutePath()));
}

void reemplazarDirectorioPrograma(const QString& ruta)
{
    reemplazo() = ruta;
}
