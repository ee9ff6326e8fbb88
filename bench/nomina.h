#pragma once

#include <QString>

/// Roster files of made-up people, always the same for the same count.
namespace nomina
{
/// "AFIP - SIJP": as many employees as lines.
void escribirAfip(const QString& ruta, int lineas);
/// "B.R.I.V.O.": employees, each with one family member; half as many employees as lines.
void escribirBrivo(const QString& ruta, int lineas);
} // namespace nomina
