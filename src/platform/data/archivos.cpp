#include "platform/data/archivos.h"

#include "platform/data/error_de_ejecucion.h"
#include "platform/data/errores_de_archivo.h"
#include "platform/data/sistema.h"

#include <QDir>
#include <QFileInfo>
#include <QUuid>
#include <cerrno>
#include <vector>

namespace
{
using detalle::Operacion;

/// The errno value of a failure of the standard library's file functions, 0 for none.
int comoErrno(const std::error_code& error)
{
    return error ? error.default_error_condition().value() : 0;
}

void exigir(int error, const QString& ruta, Operacion operacion = Operacion::Completa)
{
    if (error != 0)
    {
        detalle::fallarArchivo(error, ruta, operacion);
    }
}

QString carpetaDe(const QString& ruta)
{
    return QFileInfo(ruta).absolutePath();
}

/// Copies the bytes into the new file `destino` and flushes it, now and then as well: on a slow disk the whole at the
/// end would be a long silence.
void copiarBytes(const QString& origen, const QString& destino, const Aviso& aviso)
{
    constexpr qint64 entreVolcados = 8LL * 1024 * 1024;
    const qint64 total = QFileInfo(origen).size();
    qint64 hecho = 0;
    qint64 volcado = 0;
    const sistema::Archivo lee = sistema::abrir(origen, "rb");
    exigir(lee ? 0 : errno, origen);
    sistema::Archivo escribe = sistema::abrir(destino, "wbx");
    exigir(escribe ? 0 : errno, destino);
    std::vector<char> bloque(256UL * 1024);
    while (const std::size_t leidos = std::fread(bloque.data(), 1, bloque.size(), lee.get()))
    {
        exigir(std::fwrite(bloque.data(), 1, leidos, escribe.get()) == leidos ? 0 : errno, destino);
        hecho += static_cast<qint64>(leidos);
        if (hecho - volcado >= entreVolcados)
        {
            exigir(sistema::asegurarArchivo(destino), destino);
            volcado = hecho;
        }
        if (aviso)
        {
            aviso(hecho, total);
        }
    }
    exigir(std::ferror(lee.get()) == 0 ? 0 : errno, origen);
    exigir(std::fclose(escribe.release()) == 0 ? 0 : errno, destino);
    exigir(sistema::asegurarArchivo(destino), destino);
}

void exigirArchivo(const QString& ruta)
{
    if (!QFileInfo(ruta).isFile())
    {
        exigir(QFileInfo(ruta).isDir() ? EISDIR : ENOENT, ruta);
    }
}

void borrarSiEsta(const QString& ruta)
{
    std::error_code ignorado;
    std::filesystem::remove(sistema::nativa(ruta), ignorado);
}

const QString finDeTemporal = QStringLiteral(".tmp");

QString temporalDe(const QString& destino)
{
    return destino + u'.' + QUuid::createUuid().toString(QUuid::Id128) + finDeTemporal;
}

/// Removes the temporary files of copies to `destino` that were killed.
void borrarTemporales(const QString& destino)
{
    const QFileInfo archivo(destino);
    const qsizetype largo = temporalDe(archivo.fileName()).size();
    const QDir carpeta = archivo.absoluteDir();
    for (const QString& nombre : carpeta.entryList(QDir::Files | QDir::Hidden))
    {
        if (nombre.size() == largo && nombre.startsWith(archivo.fileName() + u'.') && nombre.endsWith(finDeTemporal))
        {
            borrarSiEsta(carpeta.filePath(nombre));
        }
    }
}

/// The new file is as open to others as the one whose place it takes.
void heredarPermisos(const QString& de, const QString& a)
{
    std::error_code error;
    const std::filesystem::file_status estado = std::filesystem::status(sistema::nativa(de), error);
    if (!error && std::filesystem::exists(estado))
    {
        std::filesystem::permissions(sistema::nativa(a), estado.permissions(), error);
    }
}
} // namespace

bool Archivos::existe(const QString& ruta)
{
    return QFileInfo::exists(ruta);
}

void Archivos::copiar(const QString& origen, const QString& destino)
{
    exigirArchivo(origen);
    std::error_code distintos;
    if (std::filesystem::equivalent(sistema::nativa(origen), sistema::nativa(destino), distintos) && !distintos)
    {
        exigir(EBUSY, destino);
    }
    exigir(QFileInfo(destino).isDir() ? EISDIR : 0, destino);
    borrarTemporales(destino);
    const QString temporal = temporalDe(destino);
    copiarAParte(origen, temporal);
    try
    {
        reemplazar(temporal, destino);
    }
    catch (...)
    {
        borrarSiEsta(temporal);
        throw;
    }
}

void Archivos::copiarAParte(const QString& origen, const QString& parte, const Aviso& aviso)
{
    exigirArchivo(origen);
    borrarSiEsta(parte);
    try
    {
        copiarBytes(origen, parte, aviso);
    }
    catch (...)
    {
        borrarSiEsta(parte);
        throw;
    }
}

void Archivos::reemplazar(const QString& origen, const QString& destino)
{
    exigir(QFileInfo::exists(origen) ? 0 : ENOENT, origen);
    heredarPermisos(destino, origen);
    std::error_code error;
    std::filesystem::rename(sistema::nativa(origen), sistema::nativa(destino), error);
    exigir(comoErrno(error), destino);
    // The file is in its place; that the folder could not be flushed as well undoes nothing.
    static_cast<void>(sistema::asegurarCarpeta(carpetaDe(destino)));
}

void Archivos::renombrar(const QString& origen, const QString& destino)
{
    exigir(QFileInfo::exists(origen) ? 0 : ENOENT, origen);
    exigir(QFileInfo::exists(destino) ? EEXIST : 0, destino);
    std::error_code error;
    std::filesystem::rename(sistema::nativa(origen), sistema::nativa(destino), error);
    exigir(comoErrno(error), destino);
}

void Archivos::borrar(const QString& ruta)
{
    exigir(QFileInfo(ruta).isDir() ? ENOENT : 0, ruta);
    std::error_code error;
    const bool estaba = std::filesystem::remove(sistema::nativa(ruta), error);
    exigir(comoErrno(error), ruta);
    exigir(estaba ? 0 : ENOENT, ruta);
}

void Archivos::crearCarpeta(const QString& ruta)
{
    exigir(QFileInfo::exists(ruta) ? EEXIST : 0, ruta, Operacion::Canal);
    std::error_code error;
    std::filesystem::create_directory(sistema::nativa(ruta), error);
    exigir(comoErrno(error), ruta, Operacion::Canal);
}

void Archivos::asegurarEnDisco(const QString& ruta)
{
    exigir(sistema::asegurarArchivo(ruta), ruta);
    exigir(sistema::asegurarCarpeta(carpetaDe(ruta)), carpetaDe(ruta));
}
