#include "base.h"

#include "falla.h"
#include "platform/data/conexion.h"

#include <QStringList>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>
#include <string_view>

namespace
{
constexpr int esperaEnMs = 10'000;

int comparar(void*, int largoA, const void* a, int largoB, const void* b)
{
    return compararEspanol({static_cast<const char*>(a), static_cast<std::size_t>(largoA)},
                           {static_cast<const char*>(b), static_cast<std::size_t>(largoB)});
}

/// Text columns are declared with the program's own order of names.
void enEspanol(SQLite::Database& base)
{
    sqlite3_trace_v2(base.getHandle(), 0, nullptr, nullptr); // what the script asks is none of the program's
    sqlite3_create_collation(base.getHandle(), "espanol", SQLITE_UTF8, nullptr, comparar);
}
} // namespace

QString consultarBase(const QString& ruta, const QString& sql)
{
    try
    {
        SQLite::Database base(ruta.toStdString(), SQLite::OPEN_READONLY, esperaEnMs);
        enEspanol(base);
        SQLite::Statement consulta(base, sql.toStdString());
        QStringList filas;
        while (consulta.executeStep())
        {
            QStringList valores;
            for (int columna = 0; columna < consulta.getColumnCount(); ++columna)
            {
                const SQLite::Column valor = consulta.getColumn(columna);
                valores += valor.isNull() ? "Null" : QString::fromStdString(valor.getString());
            }
            filas += valores.join(u'|');
        }
        return filas.join(u';');
    }
    catch (const SQLite::Exception& error)
    {
        throw Falla("la consulta falla: %1", error.what());
    }
}

void ejecutarEnBase(const QString& ruta, const std::string& sql)
{
    try
    {
        SQLite::Database base(ruta.toStdString(), SQLite::OPEN_READWRITE, esperaEnMs);
        enEspanol(base);
        SQLite::Transaction transaccion(base);
        base.exec(sql);
        transaccion.commit();
    }
    catch (const SQLite::Exception& error)
    {
        throw Falla("la base no admite las sentencias: %1", error.what());
    }
}
