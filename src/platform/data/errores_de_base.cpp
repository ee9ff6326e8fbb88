#include "platform/data/preparada.h"

namespace
{
/// Nothing for the codes that say little without SQLite's own message.
QString descripcionDe(int codigo)
{
    switch (codigo & 0xFF)
    {
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return QStringLiteral("No hay permiso para usar la base de datos");
    case SQLITE_BUSY:
        return QStringLiteral("La base de datos está ocupada por otra copia del programa.  Espere unos "
                              "segundos e inténtelo nuevamente.");
    case SQLITE_LOCKED:
        return QStringLiteral("La tabla está en uso.  Espere unos segundos e inténtelo nuevamente.");
    case SQLITE_NOMEM:
        return QStringLiteral("No hay memoria suficiente");
    case SQLITE_READONLY:
        return QStringLiteral("La base de datos es de solo lectura");
    case SQLITE_INTERRUPT:
    case SQLITE_ABORT:
        return QStringLiteral("La operación fue interrumpida");
    case SQLITE_IOERR:
        return QStringLiteral("Error al leer o escribir la base de datos en el disco");
    case SQLITE_CORRUPT:
        return QStringLiteral("La base de datos está dañada");
    case SQLITE_FULL:
        return QStringLiteral("El disco está lleno");
    case SQLITE_CANTOPEN:
        return QStringLiteral("No se puede abrir la base de datos");
    case SQLITE_NOTADB:
        return QStringLiteral("El archivo no es una base de datos");
    case SQLITE_TOOBIG:
        return QStringLiteral("El texto o la fila es demasiado grande");
    default:
        return {};
    }
}

QString descripcionDeRestriccion(int codigo)
{
    switch (codigo)
    {
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_ROWID:
        return QStringLiteral("Ya existe un registro con la misma clave");
    case SQLITE_CONSTRAINT_NOTNULL:
        return QStringLiteral("Falta un valor obligatorio");
    default:
        return QStringLiteral("Los datos no cumplen una restricción de la tabla");
    }
}
} // namespace

ErrorDeEjecucion detalle::errorDeBase(int codigo, const QString& mensaje)
{
    const QString conocida =
        (codigo & 0xFF) == SQLITE_CONSTRAINT ? descripcionDeRestriccion(codigo) : descripcionDe(codigo);
    if (!conocida.isEmpty() && (codigo & 0xFF) != SQLITE_CONSTRAINT)
    {
        return {codigo, conocida};
    }
    const QString descripcion = conocida.isEmpty() ? QStringLiteral("Error de la base de datos") : conocida;
    return {codigo, descripcion + QStringLiteral(" (") + mensaje + QStringLiteral(")")};
}

ErrorDeEjecucion detalle::errorDeBase(sqlite3* base)
{
    return errorDeBase(sqlite3_extended_errcode(base), QString::fromUtf8(sqlite3_errmsg(base)));
}

void detalle::fallar(const ErrorDeEjecucion& error)
{
    const int codigo = error.numero() & 0xFF;
    if (codigo == SQLITE_BUSY || codigo == SQLITE_LOCKED)
    {
        throw ErrorParaAvisar(error.numero(), error.descripcion());
    }
    throw error;
}
