#include "apoyo/version_anterior.h"
#include "platform/data/conexion.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <SQLiteCpp/SQLiteCpp.h>
#include <cstdio>
#include <exception>
#include <sqlite3.h>
#include <stdexcept>

namespace
{
int comparar(void*, int largoA, const void* a, int largoB, const void* b)
{
    return compararEspanol({static_cast<const char*>(a), static_cast<std::size_t>(largoA)},
                           {static_cast<const char*>(b), static_cast<std::size_t>(largoB)});
}

/// One transaction: thousands of rows cost what one does.
void correr(const QString& base, const QString& ruta)
{
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
    {
        throw std::runtime_error(ruta.toStdString() + ": " + archivo.errorString().toStdString());
    }
    SQLite::Database conexion(base.toStdString(), SQLite::OPEN_READWRITE);
    sqlite3_create_collation(conexion.getHandle(), "espanol", SQLITE_UTF8, nullptr, comparar);
    SQLite::Transaction transaccion(conexion);
    conexion.exec(archivo.readAll().toStdString());
    transaccion.commit();
}
} // namespace

/// preparar_base BASE --version V | --sql ARCHIVO: makes the closed database what an acceptance script needs.
int main(int cantidad, char** valores)
{
    const QCoreApplication aplicacion(cantidad, valores);
    const QStringList argumentos = QCoreApplication::arguments();
    try
    {
        if (argumentos.size() == 4 && argumentos[2] == QStringLiteral("--version"))
        {
            volverAVersion(argumentos[1], argumentos[3]);
            return 0;
        }
        if (argumentos.size() == 4 && argumentos[2] == QStringLiteral("--sql"))
        {
            correr(argumentos[1], argumentos[3]);
            return 0;
        }
        std::fputs("uso: preparar_base BASE --version V | --sql ARCHIVO\n", stderr);
        return 2;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "preparar_base: %s\n", error.what());
        return 1;
    }
}
