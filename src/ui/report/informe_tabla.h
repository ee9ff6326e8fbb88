#pragma once

#include "base/aviso.h"
#include "base/files/planilla.h"

class ContenidoDeInforme;

/// Has the report a table at all?
[[nodiscard]] bool tieneTabla(const ContenidoDeInforme& contenido);
/// The report's tables for a spreadsheet: heads, groups, rows and totals with the texts that are printed, one table
/// under the other with an empty row in between. What is written exactly as the program prints an amount or a date is
/// one; a whole number is one only where it stands at the right, for elsewhere digits are a code. `aviso` is told rows
/// done and in all, and what it throws ends the work.
[[nodiscard]] planilla::Tabla filasDeTablas(const ContenidoDeInforme& contenido, const Aviso& aviso = {});
