#pragma once

#include <QString>
#include <memory>
#include <vector>

/// Screen fonts: the installed ones and those added from a file for the running program.
namespace Fuentes
{
/// Is a font of this name there? Case is ignored.
[[nodiscard]] bool hay(const QString& nombre);

/// A font file added to the program; it goes with the last holder.
class Agregada;
/// Adds a font file; nothing when it is missing or is no font.
[[nodiscard]] std::shared_ptr<Agregada> agregar(const QString& ruta);
/// Everything added that still lives, for who must outlast the screen that added it: a preview draws its pages when
/// they come into view.
[[nodiscard]] std::vector<std::shared_ptr<Agregada>> enUso();
} // namespace Fuentes
