#pragma once

#include "base/numbers/moneda.h"
#include "core/clave_ddjj.h"

#include <QDate>
#include <optional>

class Conexion;

/// People, their dependants and their taxable pay, both agreement sums included.
struct SumaDePersonal
{
    Moneda remuneracion;
    qint16 empleados = 0;
    qint16 familiares = 0;
};

/// What a declaration with a roster comes to. Contributions count members and non-members alike.
struct SumasDDJJ
{
    SumaDePersonal todos;
    SumaDePersonal afiliados; ///< zero when no one is a member
    Moneda art100;            ///< "Aporte Sindical"
    Moneda art101a;           ///< "Turismo y Rec."
    Moneda art101b;           ///< "Seguro Sepelio"
    [[nodiscard]] Moneda aDepositar() const { return art100 + art101a + art101b; }
};

struct TotalesDDJJ
{
    QDate fecha; ///< day the declaration was created
    /// Nothing for a declaration without a roster; the two counts below are then not looked at.
    std::optional<SumasDDJJ> sumas;
    qint64 incompletos = 0;     ///< employees who lack at least one datum
    qint64 jornadaReducida = 0; ///< employees whose hours are not 200, in all sequences of the month
};

/// Adds up a declaration from its roster. Reads only the rows of its company and month.
/// Throws YaNoEsta when the declaration is gone, ErrorDeEjecucion 94 when a column to be summed holds nothing but nulls
/// in a group, 6 when people or dependants pass 32767.
[[nodiscard]] TotalesDDJJ calcularTotales(Conexion& conexion, const ClaveDDJJ& clave);
