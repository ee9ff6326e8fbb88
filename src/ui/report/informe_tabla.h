#pragma once

#include "base/aviso.h"
#include "base/files/planilla.h"

class ContenidoDeInforme;

/// Has the report a table at all?
[[nodiscard]] bool tieneTabla(const ContenidoDeInforme& contenido);
/// The report's tables for a spreadsheet: heads, groups, rows and totals with the texts that are printed, one table
/// under the other with an empty row in between. A cell over several columns is followed by empty ones. `aviso` is told
/// rows done and in all, and what it throws ends the work.
[[nodiscard]] planilla::Filas filasDeTablas(const ContenidoDeInforme& contenido, const Aviso& aviso = {});
