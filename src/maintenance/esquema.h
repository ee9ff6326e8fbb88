#pragma once

#include <QString>

/// Throws ErrorDeEjecucion 26 unless the database file holds every table and column that the program needs at the
/// version which the file tells, and that version's row. Takes no lock; the file is only read.
void exigirEsquema(const QString& ruta);
