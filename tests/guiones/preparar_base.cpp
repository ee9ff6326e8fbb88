#include "apoyo/version_anterior.h"
#include "base.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <cstdio>
#include <exception>
#include <stdexcept>

namespace
{
void correr(const QString& base, const QString& ruta)
{
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
    {
        throw std::runtime_error(ruta.toStdString() + ": " + archivo.errorString().toStdString());
    }
    ejecutarEnBase(base, archivo.readAll().toStdString());
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
