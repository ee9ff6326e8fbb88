#pragma once

#include "apoyo/base_de_prueba.h"
#include "slips/boleta.h"

/// Slips of each kind of the company and month of the tests, as the screen would have them.
namespace dePrueba
{
[[nodiscard]] inline Moneda pesos(const char* texto)
{
    return Moneda::deTexto(QString::fromUtf8(texto));
}

[[nodiscard]] inline Boleta deTipo(TipoBoleta tipo, const char* interes, const char* total)
{
    Boleta boleta;
    boleta.tipo = tipo;
    boleta.cuit = cuit;
    boleta.declaracion = {cuit, periodo, 1};
    boleta.fecha = QDate(2009, 6, 10);
    boleta.dias = 15;
    boleta.interes = pesos(interes);
    boleta.importeTotal = pesos(total);
    return boleta;
}
[[nodiscard]] inline Boleta boletaDeAportes()
{
    Boleta boleta = deTipo(TipoBoleta::Aportes, "1,5", "41,56");
    boleta.art100 = pesos("20,01");
    boleta.art101A = pesos("10,02");
    boleta.art101B = pesos("10,03");
    boleta.cantidadEmpleados = 3;
    boleta.cantidadAfiliados = 2;
    return boleta;
}
/// With values left over from the other kinds, as the next one.
[[nodiscard]] inline Boleta boletaDeInteres()
{
    Boleta boleta = deTipo(TipoBoleta::Interes, "1234,5", "1234,5");
    boleta.art100 = pesos("7");
    boleta.nroActa = 9;
    return boleta;
}
[[nodiscard]] inline Boleta boletaDeActa()
{
    Boleta boleta = deTipo(TipoBoleta::Acta, "100,25", "1100,25");
    boleta.nroActa = 123456;
    boleta.cuota = 3;
    boleta.cuenta = 1;
    boleta.importeActa = pesos("1000");
    return boleta;
}
} // namespace dePrueba
