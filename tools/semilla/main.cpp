#include "base.h"
#include "base/db/conexion.h"
#include "base/error_de_ejecucion.h"
#include "base/files/archivos.h"
#include "configuracion.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <cstdio>
#include <exception>
#include <filesystem>

namespace
{
void sembrar(const QString& ruta, const QStringList& textos)
{
    Conexion::crear(ruta);
    for (const QString& texto : textos)
    {
        QFile archivo(texto);
        if (!archivo.open(QIODevice::ReadOnly))
        {
            throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::ArchivoNoEncontrado, texto);
        }
        ejecutarEnBase(ruta, archivo.readAll().toStdString());
    }
    Conexion conexion;
    conexion.abrir(ruta);
    conexion.ejecutar("UPDATE Parametros SET EMail = ?", configuracion::buzonDdjj);
    conexion.cerrar();
    Conexion::comprobar(ruta);
    Archivos::asegurarEnDisco(ruta);
}
} // namespace

/// semilla DESTINO TEXTO.sql...: makes the database of a fresh installation out of the statements in the texts. It is a
/// program of its own because the tables order names as the program does. The file is complete before it stands under
/// its name. Exit status 0, 1 when a text or the file fails, 2 for wrong arguments.
int main(int cantidad, char** argumentos)
{
    const QCoreApplication aplicacion(cantidad, argumentos);
    QStringList textos = QCoreApplication::arguments().mid(1);
    if (textos.size() < 2)
    {
        std::fputs("uso: semilla DESTINO TEXTO.sql...\n", stderr);
        return 2;
    }
    const QString destino = textos.takeFirst();
    const QString base = destino + QStringLiteral(".nueva");
    const QString temporal = base + QStringLiteral(".mdb");
    int estado = 0;
    try
    {
        QFile::remove(temporal);
        sembrar(temporal, textos);
        std::filesystem::rename(temporal.toStdU16String(), destino.toStdU16String());
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "semilla: %s\n", error.what());
        QFile::remove(temporal);
        estado = 1;
    }
    QFile::remove(base + QStringLiteral(".ldb")); // the lock that opening leaves beside the file
    return estado;
}
