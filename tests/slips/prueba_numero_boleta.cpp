#include "boletas_de_prueba.h"
#include "platform/data/error_de_ejecucion.h"
#include "slips/numero_boleta.h"

#include <gtest/gtest.h>

using namespace dePrueba;

TEST(NumeroBoleta, CadaTipoDigitoPorDigito)
{
    const struct
    {
        const char* que;
        Boleta boleta;
        void (*cambio)(Boleta&);
        const char* partes; // constant, amount, CUIT, kind and the fields of the kind, by hand
    } casos[] = {
        {"interest", boletaDeInteres(), [](Boleta&) {}, "1265 00123450 30123456781 1 0905 1 15 000000000000000000"},
        {"five cents", boletaDeInteres(),
         [](Boleta& b)
         {
             b.importeTotal = pesos("0,05");
             b.dias = 0;
         },
         "1265 00000005 30123456781 1 0905 1 00 000000000000000000"},
        {"year 2100", boletaDeInteres(), [](Boleta& b) { b.declaracion.periodo = QDate(2100, 12, 1); },
         "1265 00123450 30123456781 1 0012 1 15 000000000000000000"},
        {"a million", boletaDeInteres(), [](Boleta& b) { b.importeTotal = pesos("1000000"); },
         "1265 100000000 30123456781 1 0905 1 15 000000000000000000"},
        {"contributions", boletaDeAportes(), [](Boleta&) {},
         "1265 00004156 30123456781 0 0905 1 0002001 0001002 003 002"},
        {"the limit", boletaDeAportes(), [](Boleta& b) { b.art100 = b.art101A = pesos("99999,99"); },
         "1265 00004156 30123456781 0 0905 1 9999999 9999999 003 002"},
        {"the first past it", boletaDeAportes(), [](Boleta& b) { b.art100 = pesos("123456,78"); },
         "1265 00004156 30123456781 0 0905 1 0123457 0001002 003 002"},
        {"the second past it", boletaDeAportes(), [](Boleta& b) { b.art101A = pesos("123456,78"); },
         "1265 00004156 30123456781 0 0905 1 0002001 0000020 003 002"},
        {"both past it", boletaDeAportes(), [](Boleta& b) { b.art100 = b.art101A = pesos("200000"); },
         "1265 00004156 30123456781 0 0905 1 0200000 0002000 003 002"},
        {"half to even", boletaDeAportes(), [](Boleta& b) { b.art100 = pesos("100000,50"); },
         "1265 00004156 30123456781 0 0905 1 0100000 0001002 003 002"},
        {"counts", boletaDeAportes(),
         [](Boleta& b)
         {
             b.cantidadEmpleados = 1000;
             b.cantidadAfiliados = 41;
         },
         "1265 00004156 30123456781 0 0905 1 0002001 0001002 1000 041"},
        {"sequence", boletaDeAportes(), [](Boleta& b) { b.declaracion.secuencia = 12; },
         "1265 00004156 30123456781 0 0905 12 0002001 0001002 003 002"},
        {"act", boletaDeActa(), [](Boleta&) {}, "1265 00110025 30123456781 2 123456 03 1 15 00100000 000000"},
    };
    for (const auto& caso : casos)
    {
        Boleta boleta = caso.boleta;
        caso.cambio(boleta);
        const QString esperado = QString::fromLatin1(caso.partes).remove(QLatin1Char(' '));
        EXPECT_EQ(numeroBoleta(boleta), esperado + QString::number(digitoVerificador(esperado))) << caso.que;
    }
}

TEST(NumeroBoleta, ElVerificadorPesaTresYUnoSobreCuarentaYNueveLugares)
{
    const std::pair<const char*, int> casos[] = {
        {"1265001234563071234567810603015000000000000000000", 1}, // odd places add up to 51, even ones to 46: 199
        {"0000000000000000000000000000000000000000000000000", 0}, // ten counts as 0
        {"1000000000000000000000000000000000000000000000000", 7},
        {"0100000000000000000000000000000000000000000000000", 9},
        {"00000000000000000000000000000000000000000000000009", 0}, // place 50 is not read
    };
    for (const auto& [digitos, verificador] : casos)
    {
        EXPECT_EQ(digitoVerificador(QString::fromLatin1(digitos)), verificador) << digitos;
    }
    EXPECT_THROW((void)digitoVerificador(QString(48, QLatin1Char('0'))), ErrorDeEjecucion);
    const QString ejemplo = QString::fromLatin1(casos[0].first);
    EXPECT_EQ(StrToI2of5(ejemplo, true), StrToI2of5(ejemplo + QLatin1Char('1'), false)) << "the font's own agrees";
}

TEST(StrToI2of5, UnCaracterPorPar)
{
    const std::pair<const char*, const char16_t*> casos[] = {
        {"12650012345630712345678106030150000000000000000001",
         u"(<\u00CF0<R\u00C6N\u00D5G]\u00D1\u00DF631\u00C0000000001)"},
        {"49509900", u"(a\u00C0\u00F10)"},
        {"  12 ", u"(<)"},
        {"127", u"(<7)"}, // a last digit alone
        {"", u"()"},
    };
    for (const auto& [digitos, esperados] : casos)
    {
        EXPECT_EQ(StrToI2of5(QString::fromLatin1(digitos), false), QString::fromUtf16(esperados)) << digitos;
    }
}
