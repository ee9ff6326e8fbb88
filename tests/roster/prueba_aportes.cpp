// The contribution rules, held against the same rules computed in whole numbers with nothing of the program's own code.
#include "apoyo/datos.h"
#include "base/numbers/formato.h"
#include "roster/aportes.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>

namespace
{
/// numerador / denominador to the nearest whole number, halves to the even one.
std::uint64_t dividir(std::uint64_t numerador, std::uint64_t denominador)
{
    const std::uint64_t cociente = numerador / denominador;
    const std::uint64_t resto = numerador % denominador;
    const bool sube = resto > denominador - resto || (resto == denominador - resto && cociente % 2 != 0);
    return cociente + (sube ? 1 : 0);
}

/// A binary number of 24 bits, as a 32-bit float holds it: mantisa * 2^exponente.
struct Binario
{
    std::uint64_t mantisa = 0;
    int exponente = 0;
    [[nodiscard]] float comoFloat() const { return std::ldexp(static_cast<float>(mantisa), exponente); }
};

/// The 24-bit number nearest to the quotient, halves to the even one.
Binario redondear24(std::uint64_t numerador, std::uint64_t denominador)
{
    if (numerador == 0)
    {
        return {};
    }
    constexpr int bits = 24;
    // The quotient's leading bit is known to one place: a second try mends it.
    for (int e = static_cast<int>(std::bit_width(numerador)) - static_cast<int>(std::bit_width(denominador)) - bits;;
         ++e)
    {
        const std::uint64_t arriba = e < 0 ? numerador << -e : numerador;
        const std::uint64_t abajo = e > 0 ? denominador << e : denominador;
        if (arriba / abajo < std::uint64_t{1} << bits)
        {
            return {dividir(arriba, abajo), e}; // one bit more is the same number
        }
    }
}

/// a * b / 100, times 2 when `doble`, as a 24-bit number and from there to the nearest cent.
std::uint64_t porCiento(Binario a, Binario b, bool doble)
{
    Binario cociente = redondear24(a.mantisa * b.mantisa, 100);
    cociente.exponente += a.exponente + b.exponente + (doble ? 1 : 0);
    const std::uint64_t cien = cociente.mantisa * 100;
    return cociente.exponente >= 0 ? cien << cociente.exponente
                                   : dividir(cien, std::uint64_t{1} << -cociente.exponente);
}

/// hours / 200 ends in a half thousandth at odd hours. Two of these quotients, as doubles, do not round to the even
/// digit once they are taken times 100: 0,545 becomes 54,50000000000001, and 0,575 57,49999999999999.
std::uint64_t factor(bool enLote, unsigned horas)
{
    return !enLote ? dividir(20000, horas) : horas == 109 ? 55 : horas == 115 ? 57 : dividir(horas * 100, 200);
}
} // namespace

TEST(Aportes, DanLoQueLaReglaEnEnteros)
{
    int distintos = 0;
    for (const bool enLote : {false, true})
    {
        for (unsigned horas = 100; horas <= 200; ++horas)
        {
            const Binario escala = redondear24(factor(enLote, horas), 100);
            // Odd cents up to 100.000,00, and the halves of small amounts.
            for (std::uint64_t haberes = horas; haberes <= 10'000'000; haberes += haberes < 10'000 ? 25 : 9'973)
            {
                const Binario total = redondear24(haberes, 100);
                const auto art100 = porCiento(total, horas > 128 ? escala : Binario{1, 0}, true);
                const auto art101 = porCiento(total, escala, false);
                const Aportes aportes =
                    (enLote ? aportesEnLote : aportesDePantalla)(total.comoFloat(), 0, static_cast<int>(horas), true);
                const Aportes esperados{total.comoFloat(), redondear24(art100, 100).comoFloat(),
                                        redondear24(art101, 100).comoFloat(), redondear24(art101, 100).comoFloat()};
                distintos += aportes == esperados ? 0 : 1;
            }
        }
    }
    EXPECT_EQ(0, distintos);
    for (std::uint64_t importe = 0; importe <= 10'000'000; importe += 997)
    {
        const QString texto = QString("%1,%2").arg(importe / 100).arg(importe % 100, 2, 10, QChar('0'));
        ASSERT_EQ(redondear24(importe, 100).comoFloat(), LeerNumero(texto)) << importe;
    }
}

TEST(Aportes, LaTablaDeLasDosReglas)
{
    using Regla = Aportes (*)(float, float, int, bool);
    const std::tuple<Regla, float, float, int, bool, float, float> casos[] = {
        {aportesEnLote, 1000, 0, 0, true, 20.00F, 0.00F}, // the hours are the dividend
        {aportesDePantalla, 1000, 0, 150, false, 26.60F, 0.00F},
        {aportesDePantalla, 900, 100, 200, true, 20.00F, 10.00F},
        {aportesDePantalla, 6.25F, 0, 200, true, 0.12F, 0.06F},  // exact halves go to the even cent
        {aportesDePantalla, 0.75F, 0, 200, false, 0.01F, 0.00F}, // its 32-bit value lies below the half
    };
    for (const auto& [regla, haberes, acuerdo, horas, afiliado, art100, art101] : casos)
    {
        EXPECT_EQ((Aportes{haberes + acuerdo, art100, art101, art101}), regla(haberes, acuerdo, horas, afiliado))
            << haberes << " at " << horas;
    }
    EXPECT_EQ(ErrorDeEjecucion::DivisionPorCero, numeroDe([] { return aportesDePantalla(1000, 0, 0, true); }));
}
