#include "apoyo/rutas.h"

namespace rutas
{
QString enInstalacion(const QString& nombre)
{
    return QStringLiteral(CARPETA_INSTALACION "/") + nombre;
}

QString enFuentes(const QString& nombre)
{
    return QStringLiteral(CARPETA_FUENTES "/") + nombre;
}

QString baseSembrada()
{
    return QStringLiteral(BASE_SEMBRADA);
}

QString programaPython()
{
    return QStringLiteral(PROGRAMA_PYTHON);
}
} // namespace rutas
