#pragma once

#include <QString>

/// The program's directory, native separators, without one at its end (save for a root). Where the database, the
/// report layouts, the font and the help lie.
[[nodiscard]] QString DirectorioPrograma();
/// Replaces it for tests and the robot; an empty text brings the executable's own directory back.
void reemplazarDirectorioPrograma(const QString& ruta);
