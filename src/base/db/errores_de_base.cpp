#include "base/db/preparada.h"

#include <QRegularExpression>

namespace
{
/// Nothing for the codes that say little by themselves.
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

QString descripcionDeRestriccion(int codigo, const QString& mensaje)
{
    const QString lugar = mensaje.section(QStringLiteral("failed: "), 1); // "Tabla.columna, ..."
    const auto con = [](const char* texto, const QString& detalle)
    {
        const QString conocido = QString::fromUtf8(texto);
        return detalle.isEmpty() ? conocido : conocido + QStringLiteral(" (") + detalle + QLatin1Char(')');
    };
    switch (codigo)
    {
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_ROWID:
        return con("Ya existe un registro con la misma clave", lugar);
    case SQLITE_CONSTRAINT_NOTNULL:
        return con("Falta un valor obligatorio", lugar);
    case SQLITE_CONSTRAINT_TRIGGER:
        return con("Los datos no cumplen una restricción de la tabla", mensaje); // the rule's own words
    default:
        return con("Los datos no cumplen una restricción de la tabla", lugar);
    }
}

/// What to tell of a statement that names what the database has not; empty when something else failed.
QString descripcionDeFalta(const QString& mensaje)
{
    static const QRegularExpression tabla(QStringLiteral("^no such table: (?:\\w+\\.)*(\\w+)$"));
    static const QRegularExpression columna(
        QStringLiteral("^(?:no such column: |table .+ has no column named )(?:\\w+\\.)*(\\w+)$"));
    if (const auto m = tabla.match(mensaje); m.hasMatch())
    {
        return QStringLiteral(
                   "A la base de datos le falta la tabla '%1'. Restaure una copia de seguridad o avise a quien "
                   "da soporte.")
            .arg(m.captured(1));
    }
    if (const auto m = columna.match(mensaje); m.hasMatch())
    {
        return detalle::textoDeColumnaQueFalta(m.captured(1));
    }
    return {};
}
} // namespace

QString detalle::textoDeColumnaQueFalta(const QString& columna)
{
    return QStringLiteral("A la base de datos le falta la columna '%1': es de una versión anterior. Cierre y vuelva a "
                          "abrir el programa para actualizarla.")
        .arg(columna);
}

void detalle::fallarBase(int codigo, const QString& mensaje)
{
    const QString falta = codigo == SQLITE_ERROR ? descripcionDeFalta(mensaje) : QString();
    if (!falta.isEmpty())
    {
        throw ErrorParaAvisar(codigo, falta);
    }
    switch (codigo & 0xFF)
    {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw ErrorParaAvisar(codigo, descripcionDe(codigo));
    case SQLITE_CONSTRAINT:
        throw ErrorDeEjecucion(codigo, descripcionDeRestriccion(codigo, mensaje));
    default:
        break;
    }
    const QString conocida =
        mensaje == QLatin1String("integer overflow") ? QStringLiteral("Desbordamiento") : descripcionDe(codigo);
    throw ErrorDeEjecucion(codigo, conocida.isEmpty() ? QStringLiteral("Error de la base de datos") : conocida);
}

void detalle::fallarBase(sqlite3* base)
{
    fallarBase(sqlite3_extended_errcode(base), QString::fromUtf8(sqlite3_errmsg(base)));
}

QString detalle::razonDeRevision(const QString& hallado)
{
    static const QRegularExpression indice(QStringLiteral("\\bindex (\\w+)"));
    static const QRegularExpression pagina(QStringLiteral("\\b[Pp]age (\\d+)"));
    static const QRegularExpression columna(QStringLiteral(" (?:in|constraint failed in) (\\w+(?:\\.\\w+)?)$"));
    if (const auto m = indice.match(hallado); m.hasMatch())
    {
        return QStringLiteral("el índice %1 no sigue a su tabla").arg(m.captured(1));
    }
    if (const auto m = pagina.match(hallado); m.hasMatch())
    {
        return QStringLiteral("página %1 del archivo").arg(m.captured(1));
    }
    if (const auto m = columna.match(hallado); m.hasMatch())
    {
        return QStringLiteral("un valor de %1").arg(m.captured(1));
    }
    return QStringLiteral("estructura del archivo");
}
