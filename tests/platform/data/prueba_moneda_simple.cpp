#include "platform/data/error_de_ejecucion.h"
#include "platform/data/formato.h"
#include "platform/data/moneda.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

TEST(MonedaDeSimple, SieteDigitosQueCuentan)
{
    struct Caso
    {
        float valor;
        std::int64_t diezMilesimos;
    };
    const Caso casos[] = {
        {0, 0},
        {-0.0F, 0},
        {1.5F, 15000},
        {-1200.35F, -12003500},
        {0.0001F, 1},
        {0.00015F, 2}, // halves of what the text shows go to the even digit
        {0.00025F, 2},
        {0.00005F, 0},
        {0.00005001F, 1},
        {1e-30F, 0},
        {200.0999755859375F, 2001000},
        {123456.78F, 1234568000},
        {1234567.8F, 12345680000},
        {999999.94F, 9999999000},
        {9999999, 99999990000},
        {16777216, 167772200000},
        {1234566.5F, 12345670000}, // a half of the seventh digit goes away from zero, as the text does
        {12345675, 123456800000},
        {-98765432, -987654300000},
        {1e12F, 10000000000000000},
        {922337152000000.0F, 9223372000000000000},
    };
    for (const Caso& caso : casos)
    {
        EXPECT_EQ(caso.diezMilesimos, Moneda::deSimple(caso.valor).diezMilesimos()) << caso.valor;
    }
    for (const float fuera : {9.3e14F, -9.3e14F, 1e30F, std::numeric_limits<float>::infinity(), std::nanf("")})
    {
        EXPECT_THROW((void)Moneda::deSimple(fuera), ErrorDeEjecucion) << fuera;
    }
}

TEST(MonedaDeSimple, EsLoQueDiceElTextoSimple)
{
    std::mt19937 azar(1200);
    for (int i = 0; i < 200'000; ++i)
    {
        const auto valor = std::bit_cast<float>(static_cast<std::uint32_t>(azar()));
        if (!(std::abs(valor) < 9e14F))
        {
            continue;
        }
        QString texto = TextoSimple(valor);
        const qsizetype e = texto.indexOf(u'E');
        if (e >= 0) // the exponent moves the comma
        {
            const int exponente = texto.sliced(e + 1).toInt();
            const bool negativo = texto.startsWith(u'-');
            const QString digitos = texto.first(e).remove(u'-').remove(u',');
            texto = exponente > 0 ? digitos.leftJustified(exponente + 1, u'0')
                                  : QStringLiteral("0,") + QString(-exponente - 1, u'0') + digitos;
            texto.prepend(negativo ? QStringLiteral("-") : QString());
        }
        ASSERT_EQ(Moneda::deTexto(texto).diezMilesimos(), Moneda::deSimple(valor).diezMilesimos())
            << texto.toStdString();
    }
}
