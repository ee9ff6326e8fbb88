#include "base/files/errores_de_archivo.h"

#include "base/error_de_ejecucion.h"

#include <QDir>
#include <QFileInfo>
#include <cerrno>

namespace
{
ErrorDeEjecucion::Numero numeroDe(int error, const QString& ruta, detalle::Operacion operacion)
{
    switch (error)
    {
    case ENOENT:
        return QFileInfo(QFileInfo(ruta).absolutePath()).isDir() ? ErrorDeEjecucion::ArchivoNoEncontrado
                                                                 : ErrorDeEjecucion::RutaNoEncontrada;
    case ENOTDIR:
        return ErrorDeEjecucion::RutaNoEncontrada;
    case ENOSPC:
    case EFBIG:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return ErrorDeEjecucion::DiscoLleno;
    case EBUSY:
    case ETXTBSY:
        return ErrorDeEjecucion::EnUso;
    case EACCES:
    case EPERM:
    case EROFS:
        return operacion == detalle::Operacion::Completa ? ErrorDeEjecucion::EnUso : ErrorDeEjecucion::SinAcceso;
    case EIO:
        return ErrorDeEjecucion::ErrorDeDispositivo;
    default:
        return ErrorDeEjecucion::SinAcceso;
    }
}
} // namespace

void detalle::fallarArchivo(int error, const QString& ruta, Operacion operacion)
{
    const QString detalle = QDir::toNativeSeparators(ruta);
    throw ErrorDeEjecucion::conDetalle(numeroDe(error, ruta, operacion),
                                       error == EISDIR ? detalle + QStringLiteral(" es una carpeta") : detalle);
}
