#include "aportes_exactos.h"

#include "platform/data/formato.h"
#include "roster/aportes.h"

#include <QString>
#include <algorithm>
#include <bit>
#include <cmath>

namespace exactos
{
namespace
{
constexpr unsigned jornada = 200;
constexpr unsigned sinEscala = 128;
constexpr int bits = 24;

/// numerador / denominador to the nearest whole number, halves to the even one.
std::uint64_t dividir(std::uint64_t numerador, std::uint64_t denominador)
{
    const std::uint64_t cociente = numerador / denominador;
    const std::uint64_t resto = numerador % denominador;
    const bool sube = resto > denominador - resto || (resto == denominador - resto && cociente % 2 != 0);
    return cociente + (sube ? 1 : 0);
}

/// The factor in hundredths.
std::uint64_t factor(Regla regla, unsigned horas)
{
    return regla == Regla::Pantalla ? dividir(std::uint64_t{jornada} * 100, horas)
                                    : dividir(std::uint64_t{horas} * 100, jornada);
}

std::uint64_t aCentavos(Binario numero)
{
    const std::uint64_t cien = numero.mantisa * 100;
    return numero.exponente >= 0 ? cien << numero.exponente : dividir(cien, std::uint64_t{1} << -numero.exponente);
}

/// a * b / 100, times 2 when `doble`, to the nearest cent by way of a 24-bit number.
std::uint64_t porCiento(Binario a, Binario b, bool doble)
{
    Binario cociente = redondear24(a.mantisa * b.mantisa, 100);
    cociente.exponente += a.exponente + b.exponente + (doble ? 1 : 0);
    return aCentavos(cociente);
}

int ancho(std::uint64_t numero)
{
    return static_cast<int>(std::bit_width(numero));
}

std::uint64_t diferencia(std::uint64_t a, std::uint64_t b)
{
    return a > b ? a - b : b - a;
}
} // namespace

float Binario::comoFloat() const
{
    return std::ldexp(static_cast<float>(mantisa), exponente);
}

Binario redondear24(std::uint64_t numerador, std::uint64_t denominador)
{
    if (numerador == 0)
    {
        return {};
    }
    // The quotient's place of the leading bit is known to one: the second try mends it.
    int exponente = ancho(numerador) - ancho(denominador) - bits;
    for (;; ++exponente)
    {
        const std::uint64_t arriba = exponente < 0 ? numerador << -exponente : numerador;
        const std::uint64_t abajo = exponente > 0 ? denominador << exponente : denominador;
        if (arriba / abajo < std::uint64_t{1} << bits)
        {
            std::uint64_t mantisa = dividir(arriba, abajo);
            return mantisa == std::uint64_t{1} << bits ? Binario{mantisa / 2, exponente + 1}
                                                       : Binario{mantisa, exponente};
        }
    }
}

Centavos enBinario(Regla regla, std::uint64_t haberes, unsigned horas)
{
    const Binario total = redondear24(haberes, 100);
    const Binario escala = redondear24(factor(regla, horas), 100);
    const Binario uno{1, 0};
    return {porCiento(total, horas > sinEscala ? escala : uno, true), porCiento(total, escala, false)};
}

Centavos enDecimal(Regla regla, std::uint64_t haberes, unsigned horas)
{
    const std::uint64_t escala = factor(regla, horas);
    return {dividir(haberes * 2 * (horas > sinEscala ? escala : 100), 10000), dividir(haberes * escala, 10000)};
}

std::uint64_t malLeidos(std::uint64_t hasta, std::uint64_t paso)
{
    std::uint64_t cuantos = 0;
    for (std::uint64_t importe = 0; importe <= hasta; importe += paso)
    {
        const QString texto = QStringLiteral("%1,%2").arg(importe / 100).arg(importe % 100, 2, 10, QChar(u'0'));
        cuantos += LeerNumero(texto) == redondear24(importe, 100).comoFloat() ? 0U : 1U;
    }
    return cuantos;
}

Comparacion comparar(Regla regla, unsigned horas, std::uint64_t hasta, std::uint64_t paso)
{
    Comparacion cuenta;
    for (std::uint64_t haberes = 0; haberes <= hasta; haberes += paso)
    {
        const float sueldo = redondear24(haberes, 100).comoFloat();
        const Aportes aportes =
            (regla == Regla::Pantalla ? aportesDePantalla : aportesEnLote)(sueldo, 0, static_cast<int>(horas), true);
        const Centavos binario = enBinario(regla, haberes, horas);
        const Centavos decimal = enDecimal(regla, haberes, horas);
        ++cuenta.casos;
        const bool igual = aportes.art100 == redondear24(binario.art100, 100).comoFloat() &&
                           aportes.art101A == redondear24(binario.art101, 100).comoFloat() &&
                           aportes.art101B == aportes.art101A;
        cuenta.contraBinario += igual ? 0U : 1U;
        cuenta.art100 += binario.art100 == decimal.art100 ? 0U : 1U;
        cuenta.art101 += binario.art101 == decimal.art101 ? 0U : 1U;
        cuenta.mayor = std::max(
            {cuenta.mayor, diferencia(binario.art100, decimal.art100), diferencia(binario.art101, decimal.art101)});
        cuenta.art100DeMas += static_cast<std::int64_t>(binario.art100 - decimal.art100);
        cuenta.art101DeMas += static_cast<std::int64_t>(binario.art101 - decimal.art101);
    }
    return cuenta;
}
} // namespace exactos
