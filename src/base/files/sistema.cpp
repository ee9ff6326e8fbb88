#include "base/files/sistema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <string>

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <fcntl.h>
#include <io.h>
#include <string_view>
#include <sys/stat.h>
#include <windows.h>

namespace
{
/// The errno value of the last failure of a call of the system.
int ultimoError()
{
    switch (GetLastError())
    {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
        return ENOENT;
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS:
        return EEXIST;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return EACCES;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return ENOSPC;
    case ERROR_WRITE_PROTECT:
        return EROFS;
    default:
        return EIO;
    }
}

/// The error of a call, 0 for none, made again while a virus scanner holds a file that has just been written.
template <class Llamada>
int conPaciencia(Llamada llamada)
{
    constexpr int intentos = 10;
    constexpr DWORD milisegundos = 50;
    int error = llamada();
    for (int intento = 1; error == EACCES && intento < intentos; ++intento)
    {
        Sleep(milisegundos);
        error = llamada();
    }
    return error;
}
} // namespace

QString sistema::completa(const QString& ruta)
{
    constexpr qsizetype corta = 240; // a little more, and the calls want the prefix
    const QString entera = QDir::toNativeSeparators(QFileInfo(ruta).absoluteFilePath());
    if (entera.size() < corta || entera.startsWith(QStringLiteral(R"(\\?\)")))
    {
        return entera;
    }
    return entera.startsWith(QStringLiteral(R"(\\)")) ? QStringLiteral(R"(\\?\UNC)") + entera.mid(1)
                                                      : QStringLiteral(R"(\\?\)") + entera;
}

std::filesystem::path sistema::nativa(const QString& ruta)
{
    return completa(ruta).toStdWString();
}

sistema::Archivo sistema::abrir(const QString& ruta, const char* modo)
{
    // The C library that each Windows brings knows no "x" in the mode of its fopen.
    const std::string_view letras(modo);
    const bool escribe = letras.front() == 'w';
    const int alEscribir = _O_WRONLY | _O_CREAT | (letras.back() == 'x' ? _O_EXCL : _O_TRUNC);
    const int como = _O_BINARY | _O_NOINHERIT | (escribe ? alEscribir : _O_RDONLY);
    const int descriptor = _wopen(nativa(ruta).c_str(), como, _S_IREAD | _S_IWRITE);
    Archivo archivo(descriptor < 0 ? nullptr : _fdopen(descriptor, escribe ? "wb" : "rb"));
    if (archivo)
    {
        std::setvbuf(archivo.get(), nullptr, _IONBF, 0);
    }
    return archivo;
}

std::optional<sistema::Identidad> sistema::identidad(const QString& ruta)
{
    const HANDLE archivo =
        CreateFileW(nativa(ruta).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr); // this flag opens folders, too
    if (archivo == INVALID_HANDLE_VALUE)
    {
        return std::nullopt;
    }
    BY_HANDLE_FILE_INFORMATION datos = {};
    const bool hecho = GetFileInformationByHandle(archivo, &datos) != 0;
    CloseHandle(archivo);
    return hecho ? std::optional<Identidad>(
                       {datos.dwVolumeSerialNumber, (quint64{datos.nFileIndexHigh} << 32U) | datos.nFileIndexLow})
                 : std::nullopt;
}

int sistema::mover(const QString& origen, const QString& destino)
{
    // The standard library's rename tells another number for a missing folder, and does not flush the new name.
    const DWORD como = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    return conPaciencia(
        [&] { return MoveFileExW(nativa(origen).c_str(), nativa(destino).c_str(), como) != 0 ? 0 : ultimoError(); });
}

int sistema::borrar(const QString& ruta)
{
    return conPaciencia([&] { return DeleteFileW(nativa(ruta).c_str()) != 0 ? 0 : ultimoError(); });
}

int sistema::crearCarpeta(const QString& ruta)
{
    return CreateDirectoryW(nativa(ruta).c_str(), nullptr) != 0 ? 0 : ultimoError();
}

int sistema::asegurarArchivo(const QString& ruta)
{
    const auto volcar = [&]
    {
        const HANDLE archivo =
            CreateFileW(nativa(ruta).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (archivo == INVALID_HANDLE_VALUE)
        {
            return ultimoError();
        }
        const int error = FlushFileBuffers(archivo) != 0 ? 0 : ultimoError();
        CloseHandle(archivo);
        return error;
    };
    return conPaciencia(volcar);
}

int sistema::asegurarCarpeta(const QString& /*ruta*/)
{
    return 0;
}

#else

#include <fcntl.h>
#include <sys/stat.h>
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

QString sistema::completa(const QString& ruta)
{
    return QFileInfo(ruta).absoluteFilePath();
}

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

std::optional<sistema::Identidad> sistema::identidad(const QString& ruta)
{
    struct stat datos = {};
    if (::stat(nativa(ruta).c_str(), &datos) != 0)
    {
        return std::nullopt;
    }
    return Identidad{datos.st_dev, datos.st_ino};
}

int sistema::mover(const QString& origen, const QString& destino)
{
    return std::rename(nativa(origen).c_str(), nativa(destino).c_str()) == 0 ? 0 : errno;
}

int sistema::borrar(const QString& ruta)
{
    return ::unlink(nativa(ruta).c_str()) == 0 ? 0 : errno;
}

int sistema::crearCarpeta(const QString& ruta)
{
    constexpr mode_t comoSePueda = 0777; // the user's mask takes its part
    return ::mkdir(nativa(ruta).c_str(), comoSePueda) == 0 ? 0 : errno;
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

bool sistema::mismoArchivo(const QString& uno, const QString& otro)
{
    const auto cual = identidad(uno);
    return cual && cual == identidad(otro);
}
