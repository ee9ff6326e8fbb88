#pragma once

#include <QString>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

/// The few calls that each operating system names differently. Failures are told as errno values.
namespace sistema
{
/// The absolute path in a form that every call takes, however long it is.
[[nodiscard]] QString completa(const QString& ruta);
/// A path as the system's own calls take it.
[[nodiscard]] std::filesystem::path nativa(const QString& ruta);

struct CierraArchivo
{
    void operator()(std::FILE* archivo) const noexcept { std::fclose(archivo); }
};
using Archivo = std::unique_ptr<std::FILE, CierraArchivo>;

/// fopen for any path, without a buffer of its own and not handed on to processes that are started. Null with errno set
/// when it fails.
[[nodiscard]] Archivo abrir(const QString& ruta, const char* modo);

/// What tells a file or folder from every other one, whatever the name and the links by which it is reached. Nothing
/// when there is none.
using Identidad = std::pair<quint64, quint64>;
[[nodiscard]] std::optional<Identidad> identidad(const QString& ruta);
/// Do both lead to one file or folder, which is there?
[[nodiscard]] bool mismoArchivo(const QString& uno, const QString& otro);

/// Puts `origen` in the place of `destino`, which may exist, in one step; 0, or the errno value of the failure.
[[nodiscard]] int mover(const QString& origen, const QString& destino);
/// Removes a file, or a link and not what is behind it; 0, or the errno value of the failure.
[[nodiscard]] int borrar(const QString& ruta);
/// Makes a folder in one that exists; 0, or the errno value of the failure.
[[nodiscard]] int crearCarpeta(const QString& ruta);

/// Flushes a closed file to the disk; 0, or the errno value of the failure.
[[nodiscard]] int asegurarArchivo(const QString& ruta);
/// Flushes a folder's list of files to the disk, where the system wants that told.
[[nodiscard]] int asegurarCarpeta(const QString& ruta);
} // namespace sistema
