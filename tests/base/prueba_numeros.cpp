// Money and its texts: what a person types, what is stored, and what is shown.
#include "apoyo/datos.h"
#include "base/numbers/formato.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace
{
constexpr std::int64_t masGrande = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t minimo = std::numeric_limits<std::int64_t>::min();
constexpr float infinito = std::numeric_limits<float>::infinity();

Moneda m(std::int64_t diezMilesimos)
{
    return Moneda::deDiezMilesimos(diezMilesimos);
}
} // namespace

TEST(Moneda, DeTexto)
{
    // At the fifth decimal halves go to the even digit.
    for (const QString caso :
         {"0=0", " 12,5 =125000", "-12,5=-125000", ",5=5000", "5,=50000", "007,10=71000", "1.234=12340000",
          "12.345.678,9=123456789000", "-1.000=-10000000", "0,00005=0", "0,00015=2", "0,00025=2", "0,000250000001=3",
          "0,00024999999=2", "-0,00015=-2", "0,99995=10000", "922337203685477,58074=9223372036854775807",
          "-922337203685477,5808=-9223372036854775808"})
    {
        const Moneda leida = Moneda::deTexto(caso.section(u'=', 0, 0));
        EXPECT_EQ(caso.section(u'=', 1), QString::number(leida.diezMilesimos())) << qPrintable(caso);
    }
    for (const char* texto :
         {"922337203685477,5808", "922337203685477,58075", "-922337203685477,5809", "9999999999999999"})
    {
        EXPECT_EQ(6, numeroDe([&] { return Moneda::deTexto(texto); })) << texto;
    }
    for (const char* texto : {"", "   ", ",", "-", "1,2,3", "1.5", "1.23,4", "1.2345", "1234.567", ".123", "1..234",
                              "1.234.", "1,234.5", "1 234", "- 5", "12a", "$ 5", "1E5", "٣"})
    {
        EXPECT_EQ(13, numeroDe([&] { return Moneda::deTexto(texto); })) << texto;
        EXPECT_EQ(std::nullopt, LeerNumero(QString(texto))) << texto;
    }
}

TEST(Moneda, CuentasExactasOErrorSeis)
{
    EXPECT_EQ(m(masGrande), m(masGrande - 1) + m(1));
    EXPECT_EQ(m(minimo), m(-1) - m(masGrande));
    EXPECT_EQ(m(masGrande), m(-1) - m(minimo));
    EXPECT_LT(m(-1), m(0));
    EXPECT_EQ(6, numeroDe([] { return m(masGrande) + m(1); }));
    EXPECT_EQ(6, numeroDe([] { return m(minimo) - m(1); }));
    EXPECT_EQ(6, numeroDe([] { return -m(minimo); }));
    EXPECT_EQ(6, numeroDe([] { return Moneda::deEntero(922337203685478); }));
}

/// In ten-thousandths: rounded to two decimals as it is computed and as it is shown, and the texts.
TEST(Moneda, Redondeos)
{
    const std::tuple<std::int64_t, std::int64_t, std::int64_t, const char*, const char*> casos[] = {
        {0, 0, 0, "0,00", "0"},
        {12350, 12400, 12400, "1,24", "1.235"},
        {12450, 12400, 12500, "1,25", "1.245"},
        {12449, 12400, 12400, "1,24", "1.2449"},
        {12451, 12500, 12500, "1,25", "1.2451"},
        {-12450, -12400, -12500, "-1,25", "-1.245"},
        {-49, 0, 0, "0,00", "-0.0049"}, // no sign before what shows as zero
        {50, 0, 100, "0,01", "0.005"},
        {9999950, 10000000, 10000000, "1.000,00", "999.995"},
        {-10000000, -10000000, -10000000, "-1.000,00", "-1000"},
        {12345678900, 12345678900, 12345678900, "1.234.567,89", "1234567.89"},
        {masGrande, masGrande - 7, masGrande - 7, "922.337.203.685.477,58", "922337203685477.5807"},
        {minimo, minimo + 8, minimo + 8, "-922.337.203.685.477,58", "-922337203685477.5808"},
    };
    for (const auto& [valor, alPar, centavos, miles, plano] : casos)
    {
        EXPECT_EQ(alPar, m(valor).redondeada(2).diezMilesimos()) << valor;
        EXPECT_EQ(centavos, m(valor).enCentavos().diezMilesimos()) << valor;
        EXPECT_EQ(miles, conMiles(m(valor)).toStdString());
        EXPECT_EQ(QString::fromUtf8(miles).remove(u'.'), sinMiles(m(valor)));
        EXPECT_EQ(plano, m(valor).textoPlano().toStdString());
    }
    EXPECT_EQ("$ 1.100,00|-$ 0,50|-9.223.372.036.854.775.808|-1.000|999|007|123|-05|0",
              (QStringList{conPesos(m(11000000)), conPesos(m(-5000)), conMiles(std::numeric_limits<qint64>::min()),
                           conMiles(qint64{-1000}), conMiles(qint64{999}), ceros(7, 3), ceros(123, 2), ceros(-5, 2),
                           ceros(0, 1)})
                  .join(u'|')
                  .toStdString());
}

/// A 32-bit float: to the nearest ten-thousandth, by its seven digits that count, and as it is shown.
TEST(Moneda, DeUnFlotante)
{
    const std::tuple<float, std::int64_t, std::int64_t, const char*> casos[] = {
        {-0.0F, 0, 0, "0,00"},
        {1.5F, 15000, 15000, "1,50"},
        {-1200.35F, -12003500, -12003500, "-1200,35"},
        {0.125F, 1250, 1250, "0,13"}, // a true half
        {-0.375F, -3750, -3750, "-0,38"},
        {1.005F, 10050, 10050, "1,00"}, // 1.00499999523...
        {1.045F, 10450, 10450, "1,04"}, // 1.04499995708...
        {-0.001F, -10, -10, "0,00"},
        {0.15625F, 1562, 1562, "0,16"}, // a half of a ten-thousandth goes to the even digit
        {0.21875F, 2188, 2188, "0,22"},
        {0.00014999999F, 1, 2, "0,00"}, // below the half, which its digits show
        {0.00005001F, 1, 1, "0,00"},
        {200.0999755859375F, 2001000, 2001000, "200,10"},
        {123456.78F, 1234567812, 1234568000, "123456,78"},
        {1234567.8F, 12345677500, 12345680000, "1234567,75"},
        {1234566.5F, 12345665000, 12345670000, "1234566,50"}, // a half of the seventh digit goes away from zero
        {999999.94F, 9999999375, 9999999000, "999999,94"},
        {16777215, 167772150000, 167772200000, "16777215,00"},
        {-98765432, -987654320000, -987654300000, "-98765432,00"},
        {922337152000000.0F, 9223371803852800000, 9223372000000000000, "922337180385280,00"},
    };
    for (const auto& [valor, alDiezMilesimo, simple, texto] : casos)
    {
        EXPECT_EQ(alDiezMilesimo, Moneda::deFlotante(valor).diezMilesimos()) << valor;
        EXPECT_EQ(simple, Moneda::deSimple(valor).diezMilesimos()) << valor;
        EXPECT_EQ(texto, sinMiles(valor).toStdString());
    }
    for (const float fuera : {9.3e14F, -9.3e14F, 1e30F, infinito, -infinito, std::nanf("")})
    {
        EXPECT_EQ(6, numeroDe([&] { return Moneda::deFlotante(fuera); })) << fuera;
        EXPECT_EQ(6, numeroDe([&] { return Moneda::deSimple(fuera); })) << fuera;
        EXPECT_EQ(6, numeroDe([&] { return sinMiles(fuera); })) << fuera;
    }
    EXPECT_EQ(0.12F, Redondear2(0.125F));
    EXPECT_EQ(0.38F, Redondear2(0.375F));
    EXPECT_EQ(1.0F, Redondear2(1.005F));
    EXPECT_EQ(16777216.0F, Redondear2(16777217.0F));
}

TEST(Formato, LeerNumeroYFecha)
{
    EXPECT_EQ(1234.5F, LeerNumero(u"1.234,5"));
    EXPECT_EQ(-0.25F, LeerNumero(u"-0,25"));
    EXPECT_EQ(16777216.0F, LeerNumero(u"16777217"));
    EXPECT_EQ(0.0F, LeerNumero(u"0,000000000000000000000000000000000000000000000000001"));
    EXPECT_EQ(std::nullopt, LeerNumero(u"9999999999999999999999999999999999999999"));
    EXPECT_EQ(QDate(2004, 2, 29), LeerFecha("29/02/2004"));
    EXPECT_EQ(QDate(100, 12, 31), LeerFecha("31/12/0100"));
    EXPECT_EQ(QDate(2003, 2, 1), LeerFecha(" 01/02/2003 "));
    for (const char* texto : {"31/02/2005", "12/31/2005", "29/02/2005", "01/02/03", "00/01/2005", "01/01/0099",
                              "__/__/____", "01-02-2003", "01/02/2003x", "001/02/2003", "01/02", "01/02/20033", ""})
    {
        EXPECT_EQ(std::nullopt, LeerFecha(texto)) << texto;
    }
}
