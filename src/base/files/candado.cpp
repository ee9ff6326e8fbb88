#include "base/files/candado.h"

#include "base/error_de_ejecucion.h"
#include "base/files/archivos.h"
#include "base/files/sistema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <boost/interprocess/exceptions.hpp>
#include <boost/interprocess/sync/file_lock.hpp>
#include <map>

/// The one system lock that this process holds on a file. On POSIX closing any descriptor of the file drops the
/// process's lock, so the file is opened once and all Candados of the process share it.
struct Candado::Cerradura
{
    boost::interprocess::file_lock traba;
    Modo modo;
};

namespace
{
[[noreturn]] void enUso()
{
    throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::EnUso,
                                       QStringLiteral("otra copia del programa está usando la base de datos"));
}

/// Whoever may not write the lock file may not write the database either: the folder is what there is to mend.
[[noreturn]] void sinPermiso(const QString& ruta)
{
    throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::SinAcceso,
                                       QStringLiteral("no se puede escribir en la carpeta ") +
                                           QDir::toNativeSeparators(QFileInfo(ruta).absolutePath()));
}

boost::interprocess::file_lock tomar(const QString& ruta, Candado::Modo modo)
{
    if (!QFile::exists(ruta))
    {
        QFile nuevo(ruta);
        if (!nuevo.open(QIODevice::WriteOnly | QIODevice::Append))
        {
            sinPermiso(ruta);
        }
    }
    try
    {
        boost::interprocess::file_lock traba(sistema::nativa(ruta).c_str());
        if (!(modo == Candado::Modo::Exclusivo ? traba.try_lock() : traba.try_lock_sharable()))
        {
            enUso();
        }
        return traba;
    }
    catch (const boost::interprocess::interprocess_exception&)
    {
        sinPermiso(ruta);
    }
}
} // namespace

Candado::Candado(const QString& ruta, Modo modo)
{
    static std::map<QString, std::weak_ptr<Cerradura>> cerraduras;
    const QString archivo = Archivos::detrasDeEnlaces(ruta);
    const QString carpeta = QFileInfo(archivo).absolutePath();
    if (!QFileInfo(carpeta).isDir())
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::RutaNoEncontrada, QDir::toNativeSeparators(carpeta));
    }
    std::weak_ptr<Cerradura>& tomada = cerraduras[archivo];
    m_cerradura = tomada.lock();
    if (!m_cerradura)
    {
        m_cerradura = std::make_shared<Cerradura>(Cerradura{tomar(archivo, modo), modo});
        tomada = m_cerradura;
    }
    else if (modo == Modo::Exclusivo || m_cerradura->modo == Modo::Exclusivo)
    {
        enUso();
    }
}
