#pragma once

#include "base/aviso.h"
#include "core/clave_ddjj.h"

#include <vector>

class Conexion;

/// The declarations from which a roster can be copied: the company's with at least one employee, newest first, the
/// target left out.
[[nodiscard]] std::vector<ClaveDDJJ> fuentesDeCopia(Conexion& conexion, const ClaveDDJJ& destino);

/// Replaces the target's roster by the source's, in one transaction. Wages and contributions pass as they are; the two
/// agreement sums fold into Acuerdo, and the count of dependants is lost. Throws YaNoEsta, with the target's roster as
/// it was, when either declaration is gone or the source has nobody any more, and what `aviso` throws.
void copiarNomina(Conexion& conexion, const ClaveDDJJ& destino, const ClaveDDJJ& fuente, const Aviso& aviso = {});
