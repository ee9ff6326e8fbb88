#include "platform/data/archivos.h"

#include "platform/data/error_de_ejecucion.h"
#include "platform/data/sistema.h"

#include <QDir>
#include <QFileInfo>
#include <cerrno>

namespace
{
[[noreturn]] void fallar(int error, const QString& ruta)
{
    const QString nativa = QDir::toNativeSeparators(ruta);
    switch (error)
    {
    case ENOENT:
        throw ErrorDeEjecucion(QFileInfo(QFileInfo(ruta).absolutePath()).isDir() ? ErrorDeEjecucion::ArchivoNoEncontrado
                                                                                 : ErrorDeEjecucion::RutaNoEncontrada,
                               nativa);
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
        throw ErrorDeEjecucion(ErrorDeEjecucion::DiscoLleno, nativa);
    case EBUSY:
    case ETXTBSY:
        throw ErrorDeEjecucion(ErrorDeEjecucion::EnUso, nativa);
    case ENOTDIR:
        throw ErrorDeEjecucion(ErrorDeEjecucion::RutaNoEncontrada, nativa);
    default:
        throw ErrorDeEjecucion(ErrorDeEjecucion::SinAcceso, nativa);
    }
}
} // namespace

void Archivos::asegurarEnDisco(const QString& ruta)
{
    if (const int error = sistema::asegurarEnDisco(ruta))
    {
        fallar(error, ruta);
    }
}
