#pragma once

#include "base/aviso.h"
#include "base/files/planilla.h"

namespace planilla
{
/// Writes a sheet of Excel, whole or not at all. Texts stay texts, whatever they look like; amounts have two decimals,
/// dates are DD/MM/YYYY, and what a sheet cannot hold exactly (more than fifteen digits, days before March 1900) stays
/// a text. A text past 32,767 characters is cut there, and what XML does not know in it is a blank. The first row stays
/// in sight where it begins with a heading. `aviso` is told rows done and in all, and what it throws ends the work.
/// Throws ErrorParaAvisar for more than 1,048,576 rows, and ErrorDeEjecucion as Archivos::Parte does, or with the
/// system's temporary folder, in which the sheet is made: 7 no memory, 61 full, 75 not to be written to.
void escribirXlsx(const QString& ruta, const Tabla& tabla, const Aviso& aviso = {});

/// As escribirXlsx where the file's name ends in ".xlsx", else as escribirCsv.
void escribir(const QString& ruta, const Tabla& tabla, const Aviso& aviso = {});
} // namespace planilla
