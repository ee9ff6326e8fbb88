#include "errores.h"
#include "platform/data/moneda.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <optional>

namespace
{
constexpr std::int64_t maximo = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t minimo = std::numeric_limits<std::int64_t>::min();

Moneda m(std::int64_t diezMilesimos)
{
    return Moneda::deDiezMilesimos(diezMilesimos);
}
} // namespace

TEST(Moneda, DeTexto)
{
    struct Caso
    {
        const char* texto;
        std::int64_t vale; // when `error` is 0
        int error = 0;
    };
    const Caso casos[] = {
        {"0", 0},
        {"12", 120000},
        {"12,5", 125000},
        {" 12,5 ", 125000},
        {"-12,5", -125000},
        {"+3", 30000},
        {",5", 5000},
        {"5,", 50000},
        {"007,10", 71000},
        {"1.234,5", 12345000},
        {"1.234", 12340000},
        {"12.345.678,9", 123456789000},
        {"-1.000", -10000000},
        // the fifth decimal: halves to the even digit
        {"0,00005", 0},
        {"0,00015", 2},
        {"0,00025", 2},
        {"0,000250000001", 3},
        {"0,00024999999", 2},
        {"-0,00015", -2},
        {"0,99995", 10000},
        // as the text of a large float stands
        {"1,234568E+07", 123456800000},
        {"1E+10", 100000000000000},
        {"-2,5E-03", -25},
        {"1,5E-01", 1500},
        // the ends of the range
        {"922337203685477,5807", maximo},
        {"-922337203685477,5808", minimo},
        {"922337203685477,58074", maximo},
        {"922337203685477,5808", 0, 6},
        {"922337203685477,58075", 0, 6},
        {"-922337203685477,5809", 0, 6},
        {"99999999999999999999999", 0, 6},
        {"1E+30", 0, 6},
        // no numbers
        {"", 0, 13},
        {"   ", 0, 13},
        {",", 0, 13},
        {"-", 0, 13},
        {"1,2,3", 0, 13},
        {"1.5", 0, 13},
        {"1.23,4", 0, 13},
        {"1.2345", 0, 13},
        {"1234.567", 0, 13},
        {".123", 0, 13},
        {"1..234", 0, 13},
        {"1.234.", 0, 13},
        {"1,234.5", 0, 13},
        {"1 234", 0, 13},
        {"- 5", 0, 13},
        {"12a", 0, 13},
        {"$ 5", 0, 13},
        {"E5", 0, 13},
        {"1E", 0, 13},
        {"1E999", 0, 13},
        {"0x10", 0, 13},
        {"inf", 0, 13},
        {"٣", 0, 13},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.texto);
        std::optional<Moneda> leida;
        EXPECT_EQ(caso.error, numeroDe([&] { return leida = Moneda::deTexto(QString::fromUtf8(caso.texto)); }));
        if (caso.error == 0 && leida)
        {
            EXPECT_EQ(caso.vale, leida->diezMilesimos());
        }
    }
}

TEST(Moneda, DeFlotanteVaAlDiezMilesimoMasCercano)
{
    struct Caso
    {
        double valor;
        std::int64_t vale;
    };
    const Caso casos[] = {
        {0.0, 0},
        {1.5, 15000},
        {-0.25, -2500},
        {0.1, 1000},
        {double{0.1F}, 1000},
        {0.00003125, 0},              // 0.3125 units
        {0.00015, 1},                 // the double lies just below the half
        {0.00025, 3},                 // and here just above it
        {1.0 / 32768, 0},             // exact, 0.305 units
        {0.03125 + 1.0 / 65536, 313}, // exact, 312.6526 units
        {5.0 / 32, 1562},             // exact, 1562.5 units: to the even digit
        {7.0 / 32, 2188},             // exact, 2187.5 units: to the even digit
        {-5.0 / 32, -1562},
        {12345678.125, 123456781250},
        {922337203685477.5, 9223372036854775000},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.valor);
        EXPECT_EQ(caso.vale, Moneda::deFlotante(caso.valor).diezMilesimos());
    }
    for (const double fuera : {std::nan(""), HUGE_VAL, -HUGE_VAL, 922337203685477.625, -922337203685478.0, 1e300})
    {
        SCOPED_TRACE(fuera);
        EXPECT_EQ(6, numeroDe([&] { return Moneda::deFlotante(fuera); }));
    }
}

TEST(Moneda, CuentasExactasOErrorSeis)
{
    EXPECT_EQ(m(3), m(1) + m(2));
    EXPECT_EQ(m(maximo), m(maximo - 1) + m(1));
    EXPECT_EQ(m(minimo), m(-1) - m(maximo));
    EXPECT_EQ(m(maximo), m(-1) - m(minimo));
    EXPECT_EQ(m(minimo), m(minimo / 2) * 2);
    EXPECT_EQ(m(-30000), m(10000) * -3);
    EXPECT_EQ(m(0), m(minimo) * 0);
    EXPECT_EQ(m(0), m(0) * minimo);
    EXPECT_LT(m(-1), m(0));
    EXPECT_EQ(m(250000), Moneda::deEntero(25));

    EXPECT_EQ(6, numeroDe([] { return m(maximo) + m(1); }));
    EXPECT_EQ(6, numeroDe([] { return m(minimo) + m(-1); }));
    EXPECT_EQ(6, numeroDe([] { return m(minimo) - m(1); }));
    EXPECT_EQ(6, numeroDe([] { return m(0) - m(minimo); }));
    EXPECT_EQ(6, numeroDe([] { return -m(minimo); }));
    EXPECT_EQ(6, numeroDe([] { return m(minimo) * -1; }));
    EXPECT_EQ(6, numeroDe([] { return m(-1) * minimo; }));
    EXPECT_EQ(6, numeroDe([] { return m(maximo / 2 + 1) * 2; }));
    EXPECT_EQ(6, numeroDe([] { return Moneda::deEntero(922337203685478); }));
}

TEST(Moneda, RedondeaLasMitadesAlPar)
{
    struct Caso
    {
        std::int64_t valor;
        int decimales;
        std::int64_t vale;
    };
    const Caso casos[] = {
        {12350, 2, 12400},   {12450, 2, 12400},   {12451, 2, 12500}, {12449, 2, 12400},
        {-12350, 2, -12400}, {-12450, 2, -12400}, {12345, 4, 12345}, {12345, 3, 12340},
        {12355, 3, 12360},   {5000, 0, 0},        {15000, 0, 20000}, {-5000, 0, 0},
        {-5001, 0, -10000},  {50, 2, 0},          {150, 2, 200},     {9950, 1, 10000},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.valor);
        EXPECT_EQ(caso.vale, m(caso.valor).redondeada(caso.decimales).diezMilesimos());
    }
    EXPECT_EQ(6, numeroDe([] { return m(maximo).redondeada(0); }));
}

TEST(Moneda, TextoPlano)
{
    struct Caso
    {
        std::int64_t valor;
        const char* texto;
    };
    const Caso casos[] = {
        {0, "0"},
        {10000, "1"},
        {12345000, "1234.5"},
        {-2500, "-0.25"},
        {1, "0.0001"},
        {-1, "-0.0001"},
        {100, "0.01"},
        {-12345, "-1.2345"},
        {10000000000, "1000000"},
        {maximo, "922337203685477.5807"},
        {minimo, "-922337203685477.5808"},
    };
    for (const Caso& caso : casos)
    {
        EXPECT_EQ(QString::fromLatin1(caso.texto), m(caso.valor).textoPlano());
    }
}
