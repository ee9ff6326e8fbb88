#include "boletas_de_prueba.h"

Moneda dePrueba::pesos(const char* texto)
{
    return Moneda::deTexto(QString::fromUtf8(texto));
}

Boleta dePrueba::boletaDeAportes()
{
    Boleta boleta;
    boleta.tipo = TipoBoleta::Aportes;
    boleta.cuit = cuit;
    boleta.declaracion = {cuit, periodo, 1};
    boleta.fecha = QDate(2009, 6, 10);
    boleta.art100 = pesos("20,01");
    boleta.art101A = pesos("10,02");
    boleta.art101B = pesos("10,03");
    boleta.dias = 15;
    boleta.interes = pesos("1,5");
    boleta.importeTotal = pesos("41,56");
    boleta.cantidadEmpleados = 3;
    boleta.cantidadAfiliados = 2;
    return boleta;
}

Boleta dePrueba::boletaDeInteres()
{
    Boleta boleta;
    boleta.tipo = TipoBoleta::Interes;
    boleta.cuit = cuit;
    boleta.declaracion = {cuit, periodo, 1};
    boleta.fecha = QDate(2009, 6, 10);
    boleta.dias = 15;
    boleta.interes = pesos("1234,5");
    boleta.importeTotal = boleta.interes;
    return boleta;
}

Boleta dePrueba::boletaDeActa()
{
    Boleta boleta;
    boleta.tipo = TipoBoleta::Acta;
    boleta.cuit = cuit;
    boleta.fecha = QDate(2009, 6, 10);
    boleta.nroActa = 123456;
    boleta.cuota = 3;
    boleta.cuenta = 1;
    boleta.dias = 15;
    boleta.interes = pesos("100,25");
    boleta.importeActa = pesos("1000");
    boleta.importeTotal = pesos("1100,25");
    return boleta;
}
