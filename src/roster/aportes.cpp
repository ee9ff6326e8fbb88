#include "roster/aportes.h"

#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"

#include <cmath>

namespace
{
constexpr int jornadaCompleta = 200;
/// Up to these hours ART100 is not scaled.
constexpr int horasSinEscala = 128;

float comoFlotante(double valor)
{
    const auto flotante = static_cast<float>(valor);
    if (!std::isfinite(flotante))
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::Desbordamiento);
    }
    return flotante;
}

Aportes calcular(float haberes, float acuerdo, float factor, int horas, bool afiliado)
{
    Aportes aportes;
    aportes.total = comoFlotante(double{acuerdo} + double{haberes});
    const double total = aportes.total;
    const double base100 = horas > horasSinEscala ? total * 2 * double{factor} : total * 2;
    aportes.art100 = Redondear2(comoFlotante(base100 / 100));
    if (afiliado)
    {
        aportes.art101A = Redondear2(comoFlotante(double{factor} * total / 100));
        aportes.art101B = aportes.art101A;
    }
    return aportes;
}

/// A quotient rounded to two decimals, kept as a 32-bit float. What is rounded, halves to even, is its product by 100
/// in double precision: 109 / 200 gives 0.55 and 115 / 200 gives 0.57, where the exact halves would go the other way.
float factorRedondeado(double cociente)
{
    return static_cast<float>(std::nearbyint(cociente * 100) / 100);
}
} // namespace

Aportes aportesDePantalla(float haberes, float acuerdo, int horas, bool afiliado)
{
    if (horas == 0)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::DivisionPorCero);
    }
    return calcular(haberes, acuerdo, factorRedondeado(static_cast<double>(jornadaCompleta) / horas), horas, afiliado);
}

Aportes aportesEnLote(float sueldo, float acuerdo, int horas, bool afiliado)
{
    return calcular(sueldo, acuerdo, factorRedondeado(static_cast<double>(horas) / jornadaCompleta), horas, afiliado);
}
