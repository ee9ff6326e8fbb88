#include "base/error_de_ejecucion.h"
#include "base/numbers/moneda.h"

#include <array>
#include <cmath>

namespace
{
constexpr std::array<double, 13> potencias = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12};

constexpr std::int64_t potenciaDeDiez(int exponente)
{
    std::int64_t valor = 1;
    for (int i = 0; i < exponente; ++i)
    {
        valor *= 10;
    }
    return valor;
}

/// A whole number of at most 2^53, divided by a power of ten, halves away from zero.
std::int64_t sinUltimosDigitos(std::int64_t entero, int cuantos)
{
    const std::int64_t divisor = potenciaDeDiez(cuantos);
    return entero / divisor + (entero % divisor * 2 >= divisor ? 1 : 0);
}

std::int64_t divididoAlPar(std::int64_t entero, std::int64_t divisor)
{
    const std::int64_t cociente = entero / divisor;
    const std::int64_t doble = entero % divisor * 2;
    return cociente + (doble > divisor || (doble == divisor && cociente % 2 != 0) ? 1 : 0);
}

/// Ten-thousandths of a float from 10^7 on, a whole number of which seven digits count.
std::int64_t deGrande(float magnitud)
{
    // 2^50 is past the range of Moneda and its ten-thousandths are not.
    if (!(magnitud < 0x1p50F))
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::Desbordamiento);
    }
    const auto entero = static_cast<std::int64_t>(magnitud);
    int sobran = 1;
    while (entero >= potenciaDeDiez(7 + sobran))
    {
        ++sobran;
    }
    const std::int64_t redondo = sinUltimosDigitos(entero, sobran) * potenciaDeDiez(sobran);
    return Moneda::deEntero(redondo).diezMilesimos();
}
} // namespace

Moneda Moneda::deSimple(float valor)
{
    if (!std::isfinite(valor))
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::Desbordamiento);
    }
    const float magnitud = std::abs(valor);
    if (magnitud >= 1e7F)
    {
        return Moneda(std::signbit(valor) ? -deGrande(magnitud) : deGrande(magnitud));
    }
    // Decimals: seven digits less those before the mark. A float times a power of ten up to 10^12 is exact
    // in a double; below a hundred-thousandth nothing is left.
    int decimales = 6;
    for (double desde = 10; magnitud >= desde && decimales > 0; desde *= 10)
    {
        --decimales;
    }
    for (double desde = 1; magnitud < desde && decimales < 11; desde /= 10)
    {
        ++decimales;
    }
    const double unidades =
        std::round(static_cast<double>(magnitud) * potencias.at(static_cast<std::size_t>(decimales)));
    const auto enteras = static_cast<std::int64_t>(unidades);
    const std::int64_t absoluto = decimales <= 4 ? enteras * potenciaDeDiez(4 - decimales)
                                                 : divididoAlPar(enteras, potenciaDeDiez(decimales - 4));
    return Moneda(std::signbit(valor) ? -absoluto : absoluto);
}
