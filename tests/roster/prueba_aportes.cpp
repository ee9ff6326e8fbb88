#include "platform/data/error_de_ejecucion.h"
#include "roster/aportes.h"

#include <gtest/gtest.h>

namespace
{
using Regla = Aportes (*)(float, float, int, bool);

struct Caso
{
    const char* que;
    Regla regla;
    float haberes;
    float acuerdo;
    int horas;
    bool afiliado;
    float art100;
    float art101;
};

void PrintTo(const Caso& caso, std::ostream* salida)
{
    *salida << caso.que << ": " << caso.haberes << " + " << caso.acuerdo << " a " << caso.horas << " h";
}

class AportesTest : public testing::TestWithParam<Caso>
{
};

TEST_P(AportesTest, DaLosTresImportes)
{
    const Caso& caso = GetParam();
    const Aportes aportes = caso.regla(caso.haberes, caso.acuerdo, caso.horas, caso.afiliado);
    EXPECT_EQ(aportes.total, caso.haberes + caso.acuerdo);
    EXPECT_EQ(aportes.art100, caso.art100);
    EXPECT_EQ(aportes.art101A, caso.art101);
    EXPECT_EQ(aportes.art101B, caso.art101);
}

INSTANTIATE_TEST_SUITE_P(Tablas, AportesTest,
                         testing::Values(
                             // The worked table of the screen's rule, with the fall of ART100 at 128 hours.
                             Caso{"pantalla", aportesDePantalla, 1000, 0, 200, true, 20.00F, 10.00F},
                             Caso{"pantalla", aportesDePantalla, 1000, 0, 150, true, 26.60F, 13.30F},
                             Caso{"pantalla", aportesDePantalla, 1000, 0, 129, true, 31.00F, 15.50F},
                             Caso{"pantalla", aportesDePantalla, 1000, 0, 128, true, 20.00F, 15.60F},
                             Caso{"pantalla", aportesDePantalla, 1000, 0, 100, true, 20.00F, 20.00F},
                             // The worked table of the bulk rule, with the hours as the dividend.
                             Caso{"lote", aportesEnLote, 1000, 0, 200, true, 20.00F, 10.00F},
                             Caso{"lote", aportesEnLote, 1000, 0, 150, true, 15.00F, 7.50F},
                             Caso{"lote", aportesEnLote, 1000, 0, 100, true, 20.00F, 5.00F},
                             Caso{"lote, en cero horas", aportesEnLote, 1000, 0, 0, true, 20.00F, 0.00F},
                             // Membership touches two of the three; the agreement sum counts like the wage.
                             Caso{"no afiliado", aportesDePantalla, 1000, 0, 150, false, 26.60F, 0.00F},
                             Caso{"no afiliado en lote", aportesEnLote, 1000, 0, 150, false, 15.00F, 0.00F},
                             Caso{"con acuerdo", aportesDePantalla, 900, 100, 200, true, 20.00F, 10.00F},
                             Caso{"sin nada", aportesDePantalla, 0, 0, 200, true, 0.00F, 0.00F},
                             // Exact halves go to the even cent ...
                             Caso{"mitad exacta", aportesDePantalla, 6.25F, 0, 200, true, 0.12F, 0.06F},
                             Caso{"mitad exacta", aportesDePantalla, 18.75F, 0, 200, true, 0.38F, 0.19F},
                             // ... and where the 32-bit value lies beside the half, it decides: decimal arithmetic
                             // gives 0,02; 0,02; 0,66; 0,78; 1,02 here.
                             Caso{"bajo la mitad", aportesDePantalla, 0.75F, 0, 200, false, 0.01F, 0.00F},
                             Caso{"sobre la mitad", aportesDePantalla, 1.25F, 0, 200, false, 0.03F, 0.00F},
                             Caso{"sobre la mitad", aportesDePantalla, 25.00F, 0, 150, false, 0.67F, 0.00F},
                             Caso{"bajo la mitad", aportesDePantalla, 25.00F, 0, 129, false, 0.77F, 0.00F},
                             Caso{"bajo la mitad", aportesDePantalla, 43.75F, 0, 173, false, 1.01F, 0.00F}));

TEST(AportesTest, CeroHorasFallaSinTerminarElPrograma)
{
    try
    {
        (void)aportesDePantalla(1000, 0, 0, true);
        FAIL() << "no falló";
    }
    catch (const ErrorDeEjecucion& error)
    {
        EXPECT_EQ(error.numero(), ErrorDeEjecucion::DivisionPorCero);
    }
}
} // namespace
