#include "jugada.h"

#include "falla.h"

#include <QDir>

QString Contexto::ruta(const QString& delGuion) const
{
    return QDir::toNativeSeparators(QDir::cleanPath(QDir(carpeta).absoluteFilePath(delGuion)));
}

void Jugada::siNoInterrumpida(const QString& motivo) const
{
    if (!interrumpida())
    {
        throw Falla(motivo);
    }
}
