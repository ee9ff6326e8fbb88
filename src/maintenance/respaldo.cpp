#include "maintenance/respaldo.h"

#include "platform/data/archivos.h"
#include "platform/data/candado.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/data/formato.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <optional>

namespace
{
const QString nombreBase = QStringLiteral("DBBrivo.mdb");

/// The lock of running copies lies beside the database.
QString rutaDelCandado(const QString& base)
{
    const QFileInfo archivo(base);
    return archivo.path() + QLatin1Char('/') + archivo.completeBaseName() + QStringLiteral(".ldb");
}

/// The name under which a copy to `destino` is made until it is whole and checked.
QString parteDe(const QString& destino)
{
    return destino + QStringLiteral(".parte");
}

void borrarSiEsta(const QString& ruta)
{
    if (Archivos::existe(ruta))
    {
        Archivos::borrar(ruta);
    }
}

/// Copies under a name of its own, checks that the copy is a sound database, and puts it in place.
void copiarComprobada(const QString& origen, const QString& destino, const Aviso& aviso)
{
    const QString parte = parteDe(destino);
    try
    {
        borrarSiEsta(Conexion::diario(parte));
        Archivos::copiarAParte(origen, parte, aviso);
        if (Archivos::existe(Conexion::diario(origen)))
        {
            // Its last user died at work. What was half done is undone in the copy: the origin is only read.
            Archivos::copiarAParte(Conexion::diario(origen), Conexion::diario(parte));
            Conexion::recuperar(parte);
        }
        Conexion::comprobar(parte, aviso);
        // A journal is left only beside a file that is past saving; it would be played into the new one.
        borrarSiEsta(Conexion::diario(destino));
        Archivos::reemplazar(parte, destino);
    }
    catch (...)
    {
        QFile::remove(parte);
        QFile::remove(Conexion::diario(parte));
        throw;
    }
}

/// Removes what killed backups left in the other folders of Copias.
void borrarRestosDeCopias(const QDir& carpeta)
{
    QDir copias = carpeta;
    if (!copias.cdUp())
    {
        return;
    }
    for (const QString& otra : copias.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
    {
        const QString resto = copias.filePath(otra + QLatin1Char('/') + parteDe(nombreBase));
        if (otra != carpeta.dirName() && Archivos::existe(resto))
        {
            QFile::remove(resto);
            copias.rmdir(otra); // goes when nothing else lies in it
        }
    }
}

/// A database brought from another place may be in use there. Nothing is held where there is no lock file, or where it
/// cannot be written, as on a disc.
std::optional<Candado> candadoDelOrigen(const QString& origen, const QString& destino)
{
    const QString candado = rutaDelCandado(origen);
    if (!Archivos::existe(candado) ||
        QFileInfo(candado).canonicalFilePath() == QFileInfo(rutaDelCandado(destino)).canonicalFilePath())
    {
        return std::nullopt;
    }
    try
    {
        return Candado(candado, Candado::Modo::Exclusivo);
    }
    catch (const ErrorDeEjecucion& error)
    {
        if (error.numero() == ErrorDeEjecucion::SinAcceso)
        {
            return std::nullopt;
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

void resguardar(const QString& origen, const QString& destino, const Aviso& aviso)
{
    const Candado solo(rutaDelCandado(origen), Candado::Modo::Exclusivo);
    Conexion::recuperar(origen);
    borrarRestosDeCopias(QFileInfo(destino).absoluteDir());
    copiarComprobada(origen, destino, aviso);
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

void restaurar(const QString& origen, const QString& destino, const QString& seguridad, const Aviso& aviso)
{
    const Candado solo(rutaDelCandado(destino), Candado::Modo::Exclusivo);
    const std::optional<Candado> tampocoAlli = candadoDelOrigen(origen, destino);
    Conexion::recuperar(destino);
    const qint64 primera = QFileInfo(destino).size();
    const qint64 total = primera + QFileInfo(origen).size();
    if (Archivos::existe(destino))
    {
        const QString parte = parteDe(seguridad);
        Archivos::copiarAParte(destino, parte,
                               [&](qint64 hecho, qint64 /*todo*/) { aviso ? aviso(hecho, total) : void(); });
        Archivos::reemplazar(parte, seguridad);
    }
    copiarComprobada(origen, destino,
                     [&](qint64 hecho, qint64 todo)
                     { aviso ? aviso(todo > 0 ? primera + hecho : 0, todo > 0 ? total : 0) : void(); });
}
