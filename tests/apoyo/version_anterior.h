#pragma once

#include <QString>

/// Mailbox that volverAVersion() leaves in Parametros, so that a test can see it overwritten.
inline constexpr const char* buzonAnterior = "anterior@example.org";

/// Turns the closed database file `ruta`, a copy of the seed, into what it was at version "1.2", "1.1" or "1.0":
/// without the columns and indexes that came later. Throws ErrorDeEjecucion.
void volverAVersion(const QString& ruta, const QString& version);
