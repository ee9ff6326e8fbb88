#include "platform/data/sistema.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>

#ifdef _WIN32

#define NOMINMAX
#include <windows.h>

namespace
{
int comoErrno(DWORD error)
{
    switch (error)
    {
    case ERROR_SUCCESS:
        return 0;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
        return EACCES;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return EBUSY;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return ENOSPC;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return EEXIST;
    case ERROR_NOT_SAME_DEVICE:
        return EXDEV;
    default:
        return EIO;
    }
}
} // namespace

sistema::RutaNativa sistema::nativa(const QString& ruta)
{
    return ruta.toStdWString();
}

int sistema::ultimoError()
{
    return comoErrno(GetLastError());
}

int sistema::asegurarEnDisco(const QString& ruta)
{
    const HANDLE archivo = CreateFileW(nativa(ruta).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (archivo == INVALID_HANDLE_VALUE)
    {
        return ultimoError();
    }
    const int error = FlushFileBuffers(archivo) != 0 ? 0 : ultimoError();
    CloseHandle(archivo);
    return error;
}

int sistema::reemplazar(const QString& origen, const QString& destino)
{
    const BOOL hecho = MoveFileExW(nativa(origen).c_str(), nativa(destino).c_str(),
                                   MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    return hecho != 0 ? 0 : ultimoError();
}

#else

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace
{
int volcar(const std::string& ruta)
{
    const int descriptor = ::open(ruta.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
    {
        return errno;
    }
    const int error = ::fsync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    return error;
}
} // namespace

sistema::RutaNativa sistema::nativa(const QString& ruta)
{
    return QFile::encodeName(ruta).toStdString();
}

int sistema::ultimoError()
{
    return errno;
}

int sistema::asegurarEnDisco(const QString& ruta)
{
    if (const int error = volcar(nativa(ruta)))
    {
        return error;
    }
    const int error = volcar(nativa(QFileInfo(ruta).absolutePath()));
    return error == EINVAL ? 0 : error; // some network folders cannot be flushed
}

int sistema::reemplazar(const QString& origen, const QString& destino)
{
    return std::rename(nativa(origen).c_str(), nativa(destino).c_str()) == 0 ? 0 : errno;
}

#endif
