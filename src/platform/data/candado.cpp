#include "platform/data/candado.h"

#include "platform/data/error_de_ejecucion.h"
#include "platform/data/sistema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <boost/interprocess/exceptions.hpp>
#include <boost/interprocess/sync/file_lock.hpp>
#include <map>

namespace
{
/// The one system lock that this process holds on a file. On POSIX closing any descriptor of the file drops the
/// process's lock, so the file is opened once and all Candados of the process share it.
struct Cerradura
{
    boost::interprocess::file_lock traba;
    Candado::Modo modo;

    Cerradura(boost::interprocess::file_lock otra, Candado::Modo cual)
        : traba(std::move(otra))
        , modo(cual)
    {
    }
};

std::map<QString, std::weak_ptr<Cerradura>>& cerraduras()
{
    static std::map<QString, std::weak_ptr<Cerradura>> registro;
    return registro;
}

QString canonica(const QString& ruta)
{
    const QFileInfo archivo(ruta);
    if (archivo.exists())
    {
        return archivo.canonicalFilePath();
    }
    const QString carpeta = QFileInfo(archivo.absolutePath()).canonicalFilePath();
    if (carpeta.isEmpty())
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::RutaNoEncontrada, QDir::toNativeSeparators(archivo.absolutePath()));
    }
    return QDir(carpeta).filePath(archivo.fileName());
}

[[noreturn]] void enUso()
{
    throw ErrorDeEjecucion(ErrorDeEjecucion::EnUso,
                           QStringLiteral("otra copia del programa está usando la base de datos"));
}

std::shared_ptr<Cerradura> tomar(const QString& ruta, Candado::Modo modo)
{
    if (!QFile::exists(ruta))
    {
        QFile nuevo(ruta);
        if (!nuevo.open(QIODevice::WriteOnly | QIODevice::Append))
        {
            throw ErrorDeEjecucion(ErrorDeEjecucion::SinAcceso, QDir::toNativeSeparators(ruta));
        }
    }
    try
    {
        boost::interprocess::file_lock traba(sistema::nativa(ruta).c_str());
        if (!(modo == Candado::Modo::Exclusivo ? traba.try_lock() : traba.try_lock_sharable()))
        {
            enUso();
        }
        return std::make_shared<Cerradura>(std::move(traba), modo);
    }
    catch (const boost::interprocess::interprocess_exception&)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::SinAcceso, QDir::toNativeSeparators(ruta));
    }
}
} // namespace

struct Candado::Interno
{
    std::shared_ptr<Cerradura> cerradura;
};

Candado::Candado(const QString& ruta, Modo modo)
    : m_interno(std::make_unique<Interno>())
{
    const QString clave = canonica(ruta);
    m_interno->cerradura = cerraduras()[clave].lock();
    if (!m_interno->cerradura)
    {
        m_interno->cerradura = tomar(clave, modo);
        cerraduras()[clave] = m_interno->cerradura;
    }
    else if (modo == Modo::Exclusivo || m_interno->cerradura->modo == Modo::Exclusivo)
    {
        enUso();
    }
}

Candado::~Candado() = default;
Candado::Candado(Candado&&) noexcept = default;
Candado& Candado::operator=(Candado&&) noexcept = default;
