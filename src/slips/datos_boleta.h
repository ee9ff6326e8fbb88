#pragma once

#include "base/numbers/valor_informe.h"
#include "slips/boleta.h"

class Conexion;

/// A company as its slips show it.
struct EmpresaDeBoleta
{
    QString razon;
    QString domicilio; ///< the street, then " - (postal code) town"
};
/// Throws YaNoEsta when the company has been deleted meanwhile, and 3021 for an empty CUIT.
[[nodiscard]] EmpresaDeBoleta empresaDeBoleta(Conexion& conexion, const QString& cuit);

/// What a slip's page shows beside its amounts.
struct TextosDeBoleta
{
    QString empresa = {};
    QString domicilio = {};
    QString concepto = {}; ///< kind Acta: the fund's name
    QString numero = {};   ///< the slip number
    QString dias = {};     ///< days, act and instalment as they were typed, zeros in front and all
    QString nroActa = {};
    QString cuota = {};
    bool hayFuente = true; ///< to draw the bars with
};

/// The named values of the slip report, by index: nine common ones, then those of the kind, at last the date of payment
/// and whether the bars can be drawn. Reads the schema version and, for contributions, head counts and remunerations of
/// the declaration at hand. Amounts are exact; the layout's engine formats them.
[[nodiscard]] ValoresDeInforme valoresDeBoleta(Conexion& conexion, const Boleta& boleta, const TextosDeBoleta& textos);
