#pragma once

#include <QString>

/// Turns the closed database file `ruta`, a copy of the seed, into what it was at version "1.2", "1.1" or "1.0":
/// without the columns and indexes that came later, and with another mailbox. Throws ErrorDeEjecucion.
void volverAVersion(const QString& ruta, const QString& version);
