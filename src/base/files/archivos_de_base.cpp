#include "base/files/archivos_de_base.h"

#include "base/files/archivos.h"

#include <QDir>
#include <QFileInfo>

QString archivoDeCandado(const QString& base)
{
    const QFileInfo archivo(Archivos::detrasDeEnlaces(base));
    return archivo.dir().filePath(archivo.completeBaseName() + QStringLiteral(".ldb"));
}

QStringList acompanantes(const QString& base)
{
    const QString archivo = Archivos::detrasDeEnlaces(base);
    return {archivo + QStringLiteral("-journal"), archivo + QStringLiteral("-wal"), archivo + QStringLiteral("-shm")};
}
