#pragma once

#include "apoyo/base_de_prueba.h"
#include "slips/boleta.h"

/// Slips of the company and month of the tests, as the screen would have them: with the values of every kind.
namespace dePrueba
{
[[nodiscard]] inline Moneda pesos(const char* texto)
{
    return Moneda::deTexto(QString::fromUtf8(texto));
}
inline constexpr TipoBoleta tipos[] = {TipoBoleta::Aportes, TipoBoleta::Interes, TipoBoleta::Acta};
[[nodiscard]] inline Boleta boletaDe(TipoBoleta tipo)
{
    return {.tipo = tipo,
            .cuit = cuit,
            .declaracion = {cuit, periodo, 1},
            .fecha = QDate(2009, 6, 10),
            .art100 = pesos("20,01"),
            .art101A = pesos("10,02"),
            .art101B = pesos("10,03"),
            .dias = 15,
            .interes = pesos("1,5"),
            .importeTotal = pesos("1041,56"),
            .nroActa = 123456,
            .cuota = 3,
            .cuenta = 1,
            .importeActa = pesos("1000"),
            .cantidadEmpleados = 3,
            .cantidadAfiliados = 2};
}
} // namespace dePrueba
