#pragma once

#include "slips/datos_boleta.h"

/// Registers the slip unless it is, and gives the named values of its page, in one transaction: nothing is registered
/// whose number or values cannot be made. `textos` comes without the number.
/// Throws YaNoEsta when the company, the declaration or (kind Aportes) its roster has been deleted meanwhile, and 13
/// when the number cannot be made, as for a negative total.
[[nodiscard]] ValoresDeInforme emitirBoleta(Conexion& conexion, const Boleta& boleta, TextosDeBoleta textos);

/// How the file of the slip is called: "30-71234567-1 2026-10 00 boleta", "30-71234567-1 acta 1234 cuota 2 boleta".
[[nodiscard]] QString nombreDeBoleta(const Boleta& boleta);
