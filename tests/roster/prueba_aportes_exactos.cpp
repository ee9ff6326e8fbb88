#include "aportes_exactos.h"
#include "roster/aportes.h"

#include <cmath>
#include <gtest/gtest.h>

namespace
{
using exactos::Regla;

// Every 97th cent up to 99.999,99. The whole range is the program aportes_exhaustivo's, which takes longer. The counts
// are facts of the 32-bit arithmetic: a rule computed in decimals, or in doubles, would bring them to 0.
TEST(AportesExactos, CoincidenConLaReglaEnEnterosYDifierenDeLosDecimalesLoQueSeSabe)
{
    constexpr std::uint64_t hasta = 9999999;
    constexpr std::uint64_t paso = 97;
    const struct
    {
        Regla regla;
        unsigned horas;
        std::uint64_t art100;
        std::uint64_t art101;
    } conocidos[] = {
        {Regla::Pantalla, 100, 977, 977}, {Regla::Pantalla, 128, 977, 362}, {Regla::Pantalla, 129, 537, 274},
        {Regla::Pantalla, 150, 553, 256}, {Regla::Pantalla, 173, 447, 229}, {Regla::Pantalla, 200, 977, 488},
        {Regla::Lote, 100, 977, 238},     {Regla::Lote, 128, 977, 164},     {Regla::Lote, 129, 303, 164},
        {Regla::Lote, 150, 248, 125},     {Regla::Lote, 173, 230, 113},     {Regla::Lote, 200, 977, 488},
    };
    for (const auto& conocido : conocidos)
    {
        const auto cuenta = exactos::comparar(conocido.regla, conocido.horas, hasta, paso);
        EXPECT_EQ(0U, cuenta.contraBinario) << conocido.horas;
        EXPECT_EQ(conocido.art100, cuenta.art100) << conocido.horas;
        EXPECT_EQ(conocido.art101, cuenta.art101) << conocido.horas;
        EXPECT_EQ(1U, cuenta.mayor) << conocido.horas;
    }
    EXPECT_EQ(0U, exactos::malLeidos(hasta, paso));
}

TEST(AportesExactos, TodasLasHorasTienenElFactorDeLaReglaEnEnteros)
{
    // 10.000 pesos show the factor in the contribution of one per cent.
    constexpr std::uint64_t diezMil = 1000000;
    for (unsigned horas = 1; horas <= 200; ++horas)
    {
        const auto centavos = [&](Regla regla) { return exactos::enDecimal(regla, diezMil, horas).art101; };
        const auto programa = [&](auto regla) {
            return static_cast<std::uint64_t>(
                std::llround(regla(1e4F, 0, static_cast<int>(horas), true).art101A * 100.0));
        };
        EXPECT_EQ(centavos(Regla::Pantalla), programa(aportesDePantalla)) << horas;
        // hours / 200 ends in a half thousandth at odd hours. Two of these quotients, as doubles, do not round to the
        // even digit once they are taken times 100: 0,545 becomes 54,50000000000001, and 0,575 57,49999999999999.
        const std::uint64_t enLote = horas == 109 ? 5500 : horas == 115 ? 5700 : centavos(Regla::Lote);
        if (horas >= 100)
        {
            EXPECT_EQ(enLote, programa(aportesEnLote)) << horas;
        }
    }
}
} // namespace
