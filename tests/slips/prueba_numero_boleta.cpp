#include "base/error_de_ejecucion.h"
#include "boletas_de_prueba.h"
#include "slips/numero_boleta.h"

#include <gtest/gtest.h>

using namespace dePrueba;

TEST(NumeroBoleta, CadaTipoDigitoPorDigito)
{
    using enum TipoBoleta;
    // The change of a slip, and constant, amount, CUIT, kind and the fields of the kind, by hand.
    const std::tuple<TipoBoleta, void (*)(Boleta&), const char*> casos[] = {
        {Interes, [](Boleta&) {}, "1265 00104156 30123456781 1 0905 1 15 000000000000000000"},
        {Interes, [](Boleta& b) { b.importeTotal = pesos("0,05"); },
         "1265 00000005 30123456781 1 0905 1 15 000000000000000000"},
        {Interes, [](Boleta& b) { b.dias = 0; }, "1265 00104156 30123456781 1 0905 1 00 000000000000000000"},
        {Interes, [](Boleta& b) { b.declaracion.periodo = QDate(2100, 12, 1); },
         "1265 00104156 30123456781 1 0012 1 15 000000000000000000"},
        {Interes, [](Boleta& b) { b.importeTotal = pesos("1000000"); }, // the number grows
         "1265 100000000 30123456781 1 0905 1 15 000000000000000000"},
        {Aportes, [](Boleta&) {}, "1265 00104156 30123456781 0 0905 1 0002001 0001002 003 002"},
        {Aportes, [](Boleta& b) { b.art100 = b.art101A = pesos("99999,99"); }, // the limit of seven digits
         "1265 00104156 30123456781 0 0905 1 9999999 9999999 003 002"},
        {Aportes, [](Boleta& b) { b.art100 = pesos("123456,78"); },
         "1265 00104156 30123456781 0 0905 1 0123457 0001002 003 002"},
        {Aportes, [](Boleta& b) { b.art101A = pesos("123456,78"); }, // the second takes the place of the first
         "1265 00104156 30123456781 0 0905 1 0002001 0000020 003 002"},
        {Aportes, [](Boleta& b) { b.art100 = b.art101A = pesos("200000"); },
         "1265 00104156 30123456781 0 0905 1 0200000 0002000 003 002"},
        {Aportes, [](Boleta& b) { b.art100 = pesos("100000,50"); }, // half to even
         "1265 00104156 30123456781 0 0905 1 0100000 0001002 003 002"},
        {Acta, [](Boleta&) {}, "1265 00104156 30123456781 2 123456 03 1 15 00100000 000000"},
    };
    for (const auto& [tipo, cambio, partes] : casos)
    {
        Boleta boleta = boletaDe(tipo);
        cambio(boleta);
        const QString esperado = QString(partes).remove(' ');
        EXPECT_EQ(numeroBoleta(boleta), esperado + QString::number(digitoVerificador(esperado)));
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
    EXPECT_THROW((void)digitoVerificador(QString(48, QChar('0'))), ErrorDeEjecucion);
    const QString ejemplo = QString::fromLatin1(casos[0].first);
    EXPECT_EQ(StrToI2of5(ejemplo, true), StrToI2of5(ejemplo + QChar('1'), false)) << "the font's own agrees";
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
