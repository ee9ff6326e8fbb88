#pragma once

#include "base/numbers/moneda.h"
#include "core/clave_ddjj.h"

#include <QDate>
#include <QString>

/// Kinds of slip; the number is ModoAbrir, Tipo in PAGOS and digit 24 of the slip number.
enum class TipoBoleta
{
    Aportes = 0,
    Interes = 1,
    Acta = 2,
};

/// One slip as the screen has it when it is issued.
struct Boleta
{
    TipoBoleta tipo = TipoBoleta::Aportes;
    QString cuit;          ///< masked
    ClaveDDJJ declaracion; ///< kinds Aportes and Interes
    QDate fecha;           ///< of payment
    Moneda art100;         ///< kind Aportes; a difference in a rectification
    Moneda art101A;
    Moneda art101B;
    int dias = 0;
    Moneda interes;
    Moneda importeTotal;
    int nroActa = 0; ///< kind Acta
    int cuota = 0;
    int cuenta = 0; ///< fund: 0 C.O.L.U., 1 burial insurance
    Moneda importeActa;
    int cantidadEmpleados = 0;
    int cantidadAfiliados = 0;
};
