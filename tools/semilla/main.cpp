#include "platform/data/error_de_ejecucion.h"
#include "sembrar.h"

#include <QCoreApplication>
#include <QStringList>
#include <cstdio>
#include <exception>

/// semilla CARPETA DESTINO: makes the database of a fresh installation. Exit status 0, 1 when a text or the file fails,
/// 2 for wrong arguments.
int main(int cantidad, char** argumentos)
{
    const QCoreApplication aplicacion(cantidad, argumentos);
    const QStringList lista = QCoreApplication::arguments();
    if (lista.size() != 3)
    {
        std::fputs("uso: semilla CARPETA DESTINO\n", stderr);
        return 2;
    }
    try
    {
        sembrar(lista[1], lista[2]);
        return 0;
    }
    catch (const ErrorDeEjecucion& error)
    {
        std::fprintf(stderr, "semilla: %s (%d)\n", qPrintable(error.descripcion()), error.numero());
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "semilla: %s\n", error.what());
    }
    return 1;
}
