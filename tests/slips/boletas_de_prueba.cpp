#include "boletas_de_prueba.h"

Moneda dePrueba::pesos(const char* texto)
{
    return Moneda::deTexto(QString::fromUtf8(texto));
}

namespace
{
Boleta deTipo(TipoBoleta tipo, const char* interes, const char* total)
{
    Boleta boleta;
    boleta.tipo = tipo;
    boleta.cuit = dePrueba::cuit;
    boleta.fecha = QDate(2009, 6, 10);
    boleta.dias = 15;
    boleta.interes = dePrueba::pesos(interes);
    boleta.importeTotal = dePrueba::pesos(total);
    return boleta;
}
} // namespace

Boleta dePrueba::boletaDeAportes()
{
    Boleta boleta = deTipo(TipoBoleta::Aportes, "1,5", "41,56");
    boleta.declaracion = {cuit, periodo, 1};
    boleta.art100 = pesos("20,01");
    boleta.art101A = pesos("10,02");
    boleta.art101B = pesos("10,03");
    boleta.cantidadEmpleados = 3;
    boleta.cantidadAfiliados = 2;
    return boleta;
}

Boleta dePrueba::boletaDeInteres()
{
    Boleta boleta = deTipo(TipoBoleta::Interes, "1234,5", "1234,5");
    boleta.declaracion = {cuit, periodo, 1};
    boleta.art100 = pesos("7"); // left over from another kind
    boleta.nroActa = 9;
    return boleta;
}

Boleta dePrueba::boletaDeActa()
{
    Boleta boleta = deTipo(TipoBoleta::Acta, "100,25", "1100,25");
    boleta.nroActa = 123456;
    boleta.cuota = 3;
    boleta.cuenta = 1;
    boleta.importeActa = pesos("1000");
    return boleta;
}
