#include "platform/data/sistema.h"

#include <QFile>
#include <cerrno>
#include <string>

#ifdef _WIN32

#define NOMINMAX
#include <windows.h>

std::filesystem::path sistema::nativa(const QString& ruta)
{
    return ruta.toStdWString();
}

sistema::Archivo sistema::abrir(const QString& ruta, const char* modo)
{
    const std::wstring ancho = QString::fromLatin1(modo).toStdWString() + L"N"; // N: not inherited
    Archivo archivo(_wfopen(nativa(ruta).c_str(), ancho.c_str()));
    if (archivo)
    {
        std::setvbuf(archivo.get(), nullptr, _IONBF, 0);
    }
    return archivo;
}

int sistema::asegurarArchivo(const QString& ruta)
{
    const HANDLE archivo = CreateFileW(nativa(ruta).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (archivo == INVALID_HANDLE_VALUE)
    {
        return std::error_code(static_cast<int>(GetLastError()), std::system_category())
            .default_error_condition()
            .value();
    }
    const bool hecho = FlushFileBuffers(archivo) != 0;
    CloseHandle(archivo);
    return hecho ? 0 : EIO;
}

int sistema::asegurarCarpeta(const QString& /*ruta*/)
{
    return 0;
}

#else

#include <fcntl.h>
#include <unistd.h>

namespace
{
int volcar(const QString& ruta)
{
    const int descriptor = ::open(sistema::nativa(ruta).c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
    {
        return errno;
    }
    const int error = ::fsync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    return error;
}
} // namespace

std::filesystem::path sistema::nativa(const QString& ruta)
{
    return QFile::encodeName(ruta).toStdString();
}

sistema::Archivo sistema::abrir(const QString& ruta, const char* modo)
{
    Archivo archivo(std::fopen(nativa(ruta).c_str(), (std::string(modo) + 'e').c_str())); // e: closed on exec
    if (archivo)
    {
        std::setvbuf(archivo.get(), nullptr, _IONBF, 0);
    }
    return archivo;
}

int sistema::asegurarArchivo(const QString& ruta)
{
    return volcar(ruta);
}

int sistema::asegurarCarpeta(const QString& ruta)
{
    const int error = volcar(ruta);
    return error == EINVAL ? 0 : error; // some network folders cannot be flushed
}

#endif
