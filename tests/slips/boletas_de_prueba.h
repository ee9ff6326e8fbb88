#pragma once

#include "apoyo/base_de_prueba.h"
#include "slips/boleta.h"

/// Slips of each kind of the company and month of the tests, as the screen would have them.
namespace dePrueba
{
[[nodiscard]] Moneda pesos(const char* texto);
[[nodiscard]] Boleta boletaDeAportes(); ///< of sequence 1
[[nodiscard]] Boleta boletaDeInteres();
[[nodiscard]] Boleta boletaDeActa();
} // namespace dePrueba
