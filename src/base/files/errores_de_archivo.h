#pragma once

#include <QString>

namespace detalle
{
/// What the failure happened to: the same errno value has another number for an open file than for a whole one.
enum class Operacion
{
    Canal,   ///< opening, reading or writing a text channel, making a folder: no access is 75
    Completa ///< copying, renaming, deleting: no access is 70, as for a file in use
};
/// Throws the error for an errno value met on `ruta`. A missing file is 53, or 76 when its folder is missing.
[[noreturn]] void fallarArchivo(int error, const QString& ruta, Operacion operacion);
} // namespace detalle
