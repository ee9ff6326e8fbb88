#include "maintenance/respaldo.h"

#include "platform/data/archivos.h"
#include "platform/data/candado.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/data/formato.h"

#include <QDir>
#include <QFileInfo>

namespace
{
const QString nombreBase = QStringLiteral("DBBrivo.mdb");

/// The lock of running copies lies beside the database.
QString rutaDelCandado(const QString& base)
{
    const QFileInfo archivo(base);
    return archivo.path() + QLatin1Char('/') + archivo.completeBaseName() + QStringLiteral(".ldb");
}

/// Copies under a name of its own, checks that the copy is a sound database, and puts it in place.
void copiarComprobada(const QString& origen, const QString& destino)
{
    const QString parte = destino + QStringLiteral(".parte");
    try
    {
        Archivos::copiar(origen, parte);
        Conexion::comprobar(parte);
        Archivos::reemplazar(parte, destino);
    }
    catch (const ErrorDeEjecucion&)
    {
        if (Archivos::existe(parte))
        {
            Archivos::borrar(parte);
        }
        throw;
    }
}
} // namespace

UltimaCopia leerUltimaCopia(Conexion& conexion)
{
    const Recordset parametros = conexion.consultar("SELECT * FROM Parametros");
    const Fila fila = parametros.primera();
    return {fila.texto("Bak_Carpeta"), fila.fecha("Bak_Fecha"), fila.hora("Bak_Hora")};
}

void anotarCopia(Conexion& conexion, const QString& destino, const QDateTime& cuando)
{
    const QTime hora(cuando.time().hour(), cuando.time().minute());
    conexion.ejecutar("UPDATE Parametros SET Bak_Carpeta = ?, Bak_Fecha = ?, Bak_Hora = ?", destino, cuando.date(),
                      hora);
}

QString carpetaDeCopia(const QString& programa, const QDateTime& cuando)
{
    const QString nombre = Formato(cuando.date(), u"YYYYMMDD") + QLatin1Char('_') + Formato(cuando.time(), u"HHMM");
    return programa + QDir::separator() + QStringLiteral("Copias") + QDir::separator() + nombre;
}

QString prepararCopia(const QString& carpeta)
{
    try
    {
        Archivos::crearCarpeta(carpeta);
    }
    catch (const ErrorDeEjecucion& error)
    {
        // The folder of this minute: its copy is made again.
        if (error.numero() != ErrorDeEjecucion::SinAcceso || !QFileInfo(carpeta).isDir())
        {
            throw;
        }
    }
    return carpeta + QDir::separator() + nombreBase;
}

void resguardar(const QString& origen, const QString& destino)
{
    const Candado solo(rutaDelCandado(origen), Candado::Modo::Exclusivo);
    copiarComprobada(origen, destino);
}

FallaDeRestauracion revisarRestauracion(const QString& origen, const QString& destino)
{
    if (origen.isEmpty())
    {
        return FallaDeRestauracion::SinOrigen;
    }
    if (origen == destino)
    {
        return FallaDeRestauracion::SobreSiMisma;
    }
    if (!origen.endsWith(QDir::separator() + nombreBase))
    {
        return FallaDeRestauracion::NoEsDelSistema;
    }
    return FallaDeRestauracion::Ninguna;
}

void restaurar(const QString& origen, const QString& destino, const QString& seguridad)
{
    const Candado solo(rutaDelCandado(destino), Candado::Modo::Exclusivo);
    Archivos::copiar(destino, seguridad);
    copiarComprobada(origen, destino);
}
