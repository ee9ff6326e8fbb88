#pragma once

#include "slips/boleta.h"

#include <QDate>
#include <QString>
#include <vector>

class Conexion;

/// Is the same slip registered? Kind Aportes compares the declaration and its amounts, kind Acta act, instalment and
/// fund; kind Interes only company, date, days, interest and total, whatever the period.
[[nodiscard]] bool pagoRegistrado(Conexion& conexion, const Boleta& boleta);
/// Adds the slip to the register.
void registrarPago(Conexion& conexion, const Boleta& boleta);

/// A payment of an act as the list shows it.
struct PagoDeActa
{
    qint64 pago = 0;
    QDate fecha;
    qint64 nroActa = 0;
    qint64 cuota = 0;
    Moneda importe; ///< interest included
};
/// Payments of a company to one fund, acts and instalments descending. A fund of -1 has none.
[[nodiscard]] std::vector<PagoDeActa> listarPagosDeActas(Conexion& conexion, const QString& cuit, int cuenta);

/// What a payment puts back into the fields of the screen.
struct PagoGuardado
{
    qint64 dias = 0;
    Moneda interes;
    qint64 nroActa = 0;
    qint64 cuota = 0;
    Moneda importe;
};
/// Both throw YaNoEsta when another desk has deleted it.
[[nodiscard]] PagoGuardado cargarPago(Conexion& conexion, qint64 pago);
void eliminarPago(Conexion& conexion, qint64 pago);
