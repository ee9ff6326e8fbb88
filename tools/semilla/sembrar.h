#pragma once

#include <QString>

/// Makes the database `destino` out of the texts in `carpeta`: esquema.sql, and one TABLE.csv a table, whose first line
/// names its columns. The file is complete before it stands under its name. Throws ErrorDeEjecucion, with the file and
/// line at fault in its description.
void sembrar(const QString& carpeta, const QString& destino);
