#include "base/files/archivos.h"

#include "base/error_de_ejecucion.h"
#include "base/files/errores_de_archivo.h"
#include "base/files/sistema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <vector>

namespace
{
using detalle::Operacion;

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
/// end would be a long silence. What fails there is told of the file `nombrado`.
void copiarBytes(const QString& origen, const QString& destino, const QString& nombrado, const Aviso& aviso)
{
    constexpr qint64 entreVolcados = 8LL * 1024 * 1024;
    const qint64 total = QFileInfo(origen).size();
    qint64 hecho = 0;
    qint64 volcado = 0;
    const sistema::Archivo lee = sistema::abrir(origen, "rb");
    exigir(lee ? 0 : errno, origen);
    sistema::Archivo escribe = sistema::abrir(destino, "wbx");
    exigir(escribe ? 0 : errno, nombrado);
    std::vector<char> bloque(256UL * 1024);
    while (const std::size_t leidos = std::fread(bloque.data(), 1, bloque.size(), lee.get()))
    {
        exigir(std::fwrite(bloque.data(), 1, leidos, escribe.get()) == leidos ? 0 : errno, nombrado);
        hecho += static_cast<qint64>(leidos);
        if (hecho - volcado >= entreVolcados)
        {
            exigir(sistema::asegurarArchivo(destino), nombrado);
            volcado = hecho;
        }
        if (aviso)
        {
            aviso(hecho, total);
        }
    }
    exigir(std::ferror(lee.get()) == 0 ? 0 : errno, origen);
    exigir(std::fclose(escribe.release()) == 0 ? 0 : errno, nombrado);
    exigir(sistema::asegurarArchivo(destino), nombrado);
}

void exigirArchivo(const QString& ruta)
{
    if (!QFileInfo(ruta).isFile())
    {
        exigir(QFileInfo(ruta).isDir() ? EISDIR : ENOENT, ruta);
    }
}

/// Removes a file or a link, not a folder.
void borrarSiEsta(const QString& ruta)
{
    const QFileInfo archivo(ruta);
    if (archivo.isSymbolicLink() || !archivo.isDir())
    {
        static_cast<void>(sistema::borrar(ruta));
    }
}

const QString finDeParte = QStringLiteral(".parte");

/// Removes a file in the making, and what the database engine keeps beside one that is a database.
void borrarTodo(const QString& parte)
{
    for (const char* fin : {"", "-journal", "-wal", "-shm"})
    {
        borrarSiEsta(parte + QLatin1String(fin));
    }
}

/// The new file is as open to others as the one whose place it takes.
void heredarPermisos(const QString& de, const QString& a)
{
    if (QFileInfo::exists(de))
    {
        QFile::setPermissions(a, QFileInfo(de).permissions());
    }
}
} // namespace

bool Archivos::existe(const QString& ruta)
{
    return QFileInfo::exists(ruta);
}

QString Archivos::detrasDeEnlaces(const QString& ruta)
{
    QFileInfo archivo(ruta);
    for (int pasos = 0; pasos < 40 && !archivo.exists() && archivo.isSymbolicLink(); ++pasos)
    {
        archivo.setFile(archivo.symLinkTarget()); // the file behind it is not there, or not yet
    }
    if (archivo.exists())
    {
        return archivo.canonicalFilePath();
    }
    const QString carpeta = QFileInfo(archivo.absolutePath()).canonicalFilePath();
    return carpeta.isEmpty() ? archivo.absoluteFilePath() : QDir(carpeta).filePath(archivo.fileName());
}

QString Archivos::impedimento(const QString& ruta)
{
    const QFileInfo archivo(ruta);
    if (archivo.isDir())
    {
        return QStringLiteral("es una carpeta");
    }
    if (archivo.exists() && !archivo.isFile())
    {
        return QStringLiteral("no es un archivo");
    }
    const bool alguienEscribe = archivo.permissions() & (QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther);
    return archivo.exists() && !(alguienEscribe && archivo.isWritable())
               ? QStringLiteral("está protegido contra escritura")
               : QString();
}

Archivos::Parte::Parte(const QString& destino, const QString& nombre)
    : m_destino(destino)
    , m_real(detrasDeEnlaces(destino))
    , m_ruta(nombre.isEmpty() ? m_real + finDeParte : QDir(carpetaDe(m_real)).filePath(nombre))
{
    exigir(QFileInfo(carpetaDe(m_real)).isDir() ? 0 : ENOENT, m_destino);
    if (const QString motivo = impedimento(m_real); !motivo.isEmpty())
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::SinAcceso,
                                           QDir::toNativeSeparators(m_destino) + QLatin1Char(' ') + motivo);
    }
    borrarTodo(m_ruta);
}

Archivos::Parte::~Parte()
{
    borrarTodo(m_ruta);
}

bool Archivos::Parte::quitarResto(const QString& destino)
{
    const QString ruta = detrasDeEnlaces(destino) + finDeParte;
    const bool habia = QFileInfo(ruta).isFile();
    borrarTodo(ruta);
    return habia;
}

void Archivos::Parte::copiar(const QString& origen, const Aviso& aviso, const QString& fin)
{
    exigirArchivo(origen);
    borrarSiEsta(m_ruta + fin);
    copiarBytes(origen, m_ruta + fin, m_destino, aviso);
}

void Archivos::Parte::colocar()
{
    exigir(sistema::asegurarArchivo(m_ruta), m_destino);
    heredarPermisos(m_real, m_ruta);
    exigir(sistema::mover(m_ruta, m_real), m_destino);
    // The file is in its place; that the folder could not be flushed as well undoes nothing.
    static_cast<void>(sistema::asegurarCarpeta(carpetaDe(m_real)));
}

void Archivos::copiar(const QString& origen, const QString& destino)
{
    exigirArchivo(origen);
    if (sistema::mismoArchivo(origen, destino))
    {
        exigir(EBUSY, destino);
    }
    Parte parte(destino);
    parte.copiar(origen);
    parte.colocar();
}

void Archivos::borrar(const QString& ruta)
{
    exigir(QFileInfo(ruta).isDir() ? ENOENT : 0, ruta);
    exigir(sistema::borrar(ruta), ruta);
}

void Archivos::crearCarpeta(const QString& ruta)
{
    exigir(QFileInfo::exists(ruta) ? EEXIST : 0, ruta, Operacion::Canal);
    exigir(sistema::crearCarpeta(ruta), ruta, Operacion::Canal);
}

void Archivos::asegurarEnDisco(const QString& ruta)
{
    exigir(sistema::asegurarArchivo(ruta), ruta);
    exigir(sistema::asegurarCarpeta(carpetaDe(ruta)), carpetaDe(ruta));
}
