#pragma once

#include <QString>

/// Screen fonts: the installed ones and those added from a file for the running program.
namespace Fuentes
{
/// Is a font of this name there? Case is ignored.
[[nodiscard]] bool hay(const QString& nombre);

/// Adds a font file for as long as the program runs; no other program sees it. False when it is missing or is no font.
bool agregar(const QString& ruta);
} // namespace Fuentes
