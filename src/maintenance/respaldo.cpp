#include "maintenance/respaldo.h"

#include "base/error_de_ejecucion.h"
#include "base/files/archivos.h"
#include "base/files/archivos_de_base.h"
#include "base/files/candado.h"
#include "base/files/sistema.h"
#include "maintenance/esquema.h"

#include <QDir>
#include <QFileInfo>
#include <optional>

namespace
{
const QString nombreBase = QStringLiteral("DBBrivo.mdb");

/// Copies a database with the changes that its last user left beside it, who died at work. The copy takes them in: the
/// origin is only read.
void copiarEntera(const QString& origen, Archivos::Parte& parte, const Aviso& aviso)
{
    parte.copiar(origen, aviso);
    for (const char* fin : {"-journal", "-wal"})
    {
        const QString cambios = Archivos::detrasDeEnlaces(origen) + QLatin1String(fin);
        if (Archivos::existe(cambios))
        {
            parte.copiar(cambios, {}, QLatin1String(fin));
        }
    }
    Conexion::recuperar(parte.ruta());
}

/// Puts the copy in place. What still lies beside the old file belongs to one past saving, and would be played into the
/// new one.
void colocarBase(Archivos::Parte& parte, const QString& destino)
{
    for (const QString& cambios : acompanantes(destino))
    {
        if (Archivos::existe(cambios))
        {
            Archivos::borrar(cambios);
        }
    }
    parte.colocar();
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
        if (otra != carpeta.dirName() &&
            Archivos::Parte::quitarResto(copias.filePath(otra + QLatin1Char('/') + nombreBase)))
        {
            copias.rmdir(otra); // goes when nothing else lies in it
        }
    }
}

/// A database brought from another place may be in use there. Nothing is held where there is no lock file, or where it
/// cannot be written, as on a disc.
std::optional<Candado> candadoDelOrigen(const QString& origen, const QString& destino)
{
    const QString candado = archivoDeCandado(origen);
    if (!Archivos::existe(candado) || candado == archivoDeCandado(destino))
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

void anotarCopia(Conexion& conexion, const QString& destino, const QDateTime& cuando)
{
    const QTime hora(cuando.time().hour(), cuando.time().minute());
    conexion.ejecutar("UPDATE Parametros SET Bak_Carpeta = ?, Bak_Fecha = ?, Bak_Hora = ?", destino, cuando.date(),
                      hora);
}

QString carpetaDeCopia(const QString& programa, const QDateTime& cuando)
{
    const QString nombre = cuando.date().toString(u"yyyyMMdd") + QLatin1Char('_') + cuando.time().toString(u"HHmm");
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

QString resguardar(const QString& origen, const QString& destino, const Aviso& aviso)
{
    const Candado solo(archivoDeCandado(origen), Candado::Modo::Exclusivo);
    borrarRestosDeCopias(QFileInfo(destino).absoluteDir());
    Archivos::Parte copia(destino);
    copiarEntera(origen, copia, aviso);
    QString dano;
    try
    {
        Conexion::comprobar(copia.ruta(), aviso);
    }
    catch (const ErrorParaAvisar&) // given up by who is told how far it is
    {
        throw;
    }
    catch (const ErrorDeEjecucion& error)
    {
        dano = error.descripcion();
    }
    colocarBase(copia, destino);
    return dano;
}

FallaDeRestauracion revisarRestauracion(const QString& origen, const QString& destino)
{
    if (origen.isEmpty())
    {
        return FallaDeRestauracion::SinOrigen;
    }
    if (origen == destino || sistema::mismoArchivo(origen, destino))
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
    const Candado solo(archivoDeCandado(destino), Candado::Modo::Exclusivo);
    const std::optional<Candado> tampocoAlli = candadoDelOrigen(origen, destino);
    const qint64 primera = QFileInfo(origen).size();
    const qint64 total = primera + QFileInfo(destino).size();
    const auto avisar = [&](qint64 hecho, qint64 todo) { aviso ? aviso(todo > 0 ? hecho : 0, todo) : void(); };

    Archivos::Parte nueva(destino);
    copiarEntera(origen, nueva, [&](qint64 hecho, qint64 /*todo*/) { avisar(hecho, total); });
    Conexion::comprobar(nueva.ruta(), [&](qint64, qint64) { avisar(0, 0); });
    exigirEsquema(nueva.ruta());

    Conexion::recuperar(destino);
    if (Archivos::existe(destino))
    {
        Archivos::Parte anterior(seguridad);
        anterior.copiar(destino, [&](qint64 hecho, qint64 /*todo*/) { avisar(primera + hecho, total); });
        anterior.colocar();
    }
    colocarBase(nueva, destino);
}
