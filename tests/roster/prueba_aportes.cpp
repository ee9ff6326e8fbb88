// The contribution rules.
#include "apoyo/datos.h"
#include "base/numbers/formato.h"
#include "roster/aportes.h"

#include <bit>
#include <gtest/gtest.h>

/// Odd cents up to 100.000,00, and the halves of small amounts, at all hours: what the rules gave when they were held
/// against the same rules computed in whole numbers.
TEST(Aportes, CadaCentavoATodasLasHoras)
{
    std::uint64_t huella = 0;
    for (const auto regla : {aportesDePantalla, aportesEnLote})
    {
        for (int horas = 100; horas <= 200; ++horas)
        {
            for (int haberes = horas; haberes <= 10'000'000; haberes += haberes < 10'000 ? 25 : 9'973)
            {
                const Aportes a = regla(static_cast<float>(haberes) / 100, 0, horas, true);
                for (const float valor : {a.total, a.art100, a.art101A, a.art101B})
                {
                    huella = huella * 31 + std::bit_cast<std::uint32_t>(valor);
                }
            }
        }
    }
    EXPECT_EQ(10'879'033'451'641'684'484U, huella);
}

TEST(Aportes, LaTablaDeLasDosReglas)
{
    using Regla = Aportes (*)(float, float, int, bool);
    const std::tuple<Regla, float, float, int, bool, float, float> casos[] = {
        {aportesEnLote, 1000, 0, 0, true, 20.00F, 0.00F},   // the hours are the dividend
        {aportesEnLote, 1000, 0, 109, true, 20.00F, 5.50F}, // 0,545, as a double past the half
        {aportesEnLote, 1000, 0, 115, true, 20.00F, 5.70F}, // 0,575, before it
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
