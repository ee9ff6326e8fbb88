#pragma once

#include <QString>
#include <string>

/// The few calls that each operating system names differently.
namespace sistema
{
#ifdef _WIN32
using RutaNativa = std::wstring;
#else
using RutaNativa = std::string;
#endif
/// A path as the system's own calls take it.
[[nodiscard]] RutaNativa nativa(const QString& ruta);

/// The last failure of the C library or the system, as an errno value.
[[nodiscard]] int ultimoError();

/// Both give 0, or the errno value of the failure.
/// Flushes a closed file, and the folder's entry for it where the system wants that told, to the disk.
[[nodiscard]] int asegurarEnDisco(const QString& ruta);
/// Puts `origen` in the place of `destino` in one step, whether `destino` exists or not.
[[nodiscard]] int reemplazar(const QString& origen, const QString& destino);
} // namespace sistema
