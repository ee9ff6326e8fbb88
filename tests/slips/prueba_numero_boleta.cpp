#include "boletas_de_prueba.h"
#include "platform/data/error_de_ejecucion.h"
#include "slips/numero_boleta.h"

#include <gtest/gtest.h>

using dePrueba::pesos;

namespace
{
Boleta base(TipoBoleta tipo, const char* total)
{
    Boleta boleta;
    boleta.tipo = tipo;
    boleta.cuit = QStringLiteral("30-71234567-8");
    boleta.declaracion = {boleta.cuit, QDate(2006, 3, 1), 0};
    boleta.importeTotal = pesos(total);
    return boleta;
}

Boleta interes(const char* total, int dias, QDate periodo = QDate(2006, 3, 1))
{
    Boleta boleta = base(TipoBoleta::Interes, total);
    boleta.dias = dias;
    boleta.declaracion.periodo = periodo;
    return boleta;
}

Boleta aportes(const char* art100, const char* art101A, int empleados, int afiliados, int secuencia = 0)
{
    Boleta boleta = base(TipoBoleta::Aportes, "400");
    boleta.declaracion.secuencia = secuencia;
    boleta.art100 = pesos(art100);
    boleta.art101A = pesos(art101A);
    boleta.cantidadEmpleados = empleados;
    boleta.cantidadAfiliados = afiliados;
    return boleta;
}

Boleta acta(int nroActa, int cuota, int cuenta, int dias)
{
    Boleta boleta = base(TipoBoleta::Acta, "1100");
    boleta.nroActa = nroActa;
    boleta.cuota = cuota;
    boleta.cuenta = cuenta;
    boleta.dias = dias;
    boleta.importeActa = pesos("1000");
    return boleta;
}
} // namespace

TEST(NumeroBoleta, CadaTipoDigitoPorDigito)
{
    const struct
    {
        const char* que;
        Boleta boleta;
        const char* partes; // constant, amount, CUIT, kind and the fields of the kind, by hand
    } casos[] = {
        {"interest", interes("1234,56", 15), "1265 00123456 30712345678 1 0603 0 15 000000000000000000"},
        {"five cents", interes("0,05", 0), "1265 00000005 30712345678 1 0603 0 00 000000000000000000"},
        {"year 2100", interes("1", 0, QDate(2100, 12, 1)), "1265 00000100 30712345678 1 0012 0 00 000000000000000000"},
        {"contributions", aportes("200", "100,50", 41, 7),
         "1265 00040000 30712345678 0 0603 0 0020000 0010050 041 007"},
        {"limit", aportes("99999,99", "99999,99", 1, 1), "1265 00040000 30712345678 0 0603 0 9999999 9999999 001 001"},
        {"first", aportes("123456,78", "100,50", 1, 1), "1265 00040000 30712345678 0 0603 0 0123457 0010050 001 001"},
        {"second", aportes("200", "123456,78", 1, 1), "1265 00040000 30712345678 0 0603 0 0020000 0000200 001 001"},
        {"both", aportes("200000", "123456,78", 1, 1), "1265 00040000 30712345678 0 0603 0 0200000 0002000 001 001"},
        {"half to even", aportes("100000,50", "1", 1, 1), "1265 00040000 30712345678 0 0603 0 0100000 0000100 001 001"},
        {"act", acta(123456, 3, 1, 15), "1265 00110000 30712345678 2 123456 03 1 15 00100000 000000"},
        {"a million", interes("1000000", 15), "1265 100000000 30712345678 1 0603 0 15 000000000000000000"},
        {"1,000 people", aportes("200", "100", 1000, 7), "1265 00040000 30712345678 0 0603 0 0020000 0010000 1000 007"},
        {"sequence", aportes("200", "100", 1, 7, 12), "1265 00040000 30712345678 0 0603 12 0020000 0010000 001 007"},
    };
    for (const auto& caso : casos)
    {
        const QString esperado = QString::fromLatin1(caso.partes).remove(QLatin1Char(' '));
        EXPECT_EQ(numeroBoleta(caso.boleta), esperado + QString::number(digitoVerificador(esperado))) << caso.que;
    }
    EXPECT_THROW((void)numeroBoleta(interes("-1", 15)), ErrorDeEjecucion);
}

TEST(NumeroBoleta, ElVerificadorPesaTresYUnoSobreCuarentaYNueveLugares)
{
    const auto ceros = [](int cuantos) { return QString(cuantos, QLatin1Char('0')); };
    const QString ejemplo = QStringLiteral("1265001234563071234567810603015000000000000000000");
    EXPECT_EQ(digitoVerificador(ejemplo), 1) << "odd places add up to 51, even ones to 46: 199";
    EXPECT_EQ(digitoVerificador(ceros(49)), 0) << "ten counts as 0";
    EXPECT_EQ(digitoVerificador(QStringLiteral("1") + ceros(48)), 7);
    EXPECT_EQ(digitoVerificador(QStringLiteral("01") + ceros(47)), 9);
    EXPECT_EQ(digitoVerificador(ceros(49) + QStringLiteral("9")), 0) << "place 50 is not read";
    EXPECT_THROW((void)digitoVerificador(ceros(48)), ErrorDeEjecucion);
    EXPECT_EQ(StrToI2of5(ejemplo, true), StrToI2of5(ejemplo + QStringLiteral("1"), false)) << "the font's own agrees";
}

TEST(StrToI2of5, UnCaracterPorPar)
{
    using Codigos = std::vector<int>;
    const std::pair<const char*, Codigos> casos[] = {
        {"12650012345630712345678106030150000000000000000001",
         {40, 60, 207, 48, 60, 82, 198, 78, 213, 71, 93, 209, 223, 54,
          51, 49, 192, 48, 48, 48, 48,  48, 48,  48, 48, 49,  41}},
        {"49509900", {40, 97, 192, 241, 48, 41}},
        {"  12 ", {40, 60, 41}},
        {"127", {40, 60, 55, 41}}, // a last digit alone
        {"", {40, 41}},
    };
    for (const auto& [digitos, esperados] : casos)
    {
        Codigos codigos;
        for (const QChar c : StrToI2of5(QString::fromLatin1(digitos), false))
        {
            codigos.push_back(c.unicode());
        }
        EXPECT_EQ(codigos, esperados) << digitos;
    }
}
