#pragma once

#include "base/numbers/moneda.h"
#include "core/clave_ddjj.h"

#include <QString>

class Conexion;

/// The three contributions of a declaration, added over its roster; in a rectification their differences against the
/// original.
struct AportesDeBoleta
{
    Moneda art100;
    Moneda art101A;
    Moneda art101B;
    /// A rectification with one of the three below the original: it cannot be paid.
    bool menorQueOriginal = false;

    [[nodiscard]] Moneda subTotal() const { return art100 + art101A + art101B; }
};

/// Throws YaNoEsta when the declaration, its roster or the original of a rectification has been deleted meanwhile;
/// ErrorDeEjecucion 94 when the original stands and has no roster.
[[nodiscard]] AportesDeBoleta calcularAportesDeBoleta(Conexion& conexion, const ClaveDDJJ& clave);

/// Throws YaNoEsta when the declaration has been deleted meanwhile, or all of its roster.
void exigirNomina(Conexion& conexion, const ClaveDDJJ& clave);

/// What a typed amount comes to: rounded to two decimals, halves to even. Throws 13 for what is no number and 6 for
/// more than money holds.
[[nodiscard]] Moneda importeDeCampo(const QString& texto);

/// The text of an amount field without "$ " and thousands' dots before its comma.
[[nodiscard]] QString importeSinSigno(const QString& texto);
/// An amount field on entry: without "$ " and thousands' dots, and empty when it comes to 0.
[[nodiscard]] QString importeParaEditar(const QString& texto);
