#include "platform/data/error_de_ejecucion.h"
#include "slips/numero_boleta.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace
{
Boleta base(TipoBoleta tipo, const char* total)
{
    Boleta boleta;
    boleta.tipo = tipo;
    boleta.cuit = QStringLiteral("30-71234567-8");
    boleta.declaracion = {boleta.cuit, QDate(2006, 3, 1), 0};
    boleta.importeTotal = Moneda::deTexto(QString::fromLatin1(total));
    return boleta;
}

Boleta aportes(const char* total, const char* art100, const char* art101A, int empleados, int afiliados,
               int secuencia = 0)
{
    Boleta boleta = base(TipoBoleta::Aportes, total);
    boleta.declaracion.secuencia = secuencia;
    boleta.art100 = Moneda::deTexto(QString::fromLatin1(art100));
    boleta.art101A = Moneda::deTexto(QString::fromLatin1(art101A));
    boleta.cantidadEmpleados = empleados;
    boleta.cantidadAfiliados = afiliados;
    return boleta;
}

Boleta interes(const char* total, int dias, QDate periodo = QDate(2006, 3, 1))
{
    Boleta boleta = base(TipoBoleta::Interes, total);
    boleta.dias = dias;
    boleta.declaracion.periodo = periodo;
    return boleta;
}

Boleta acta(const char* total, int nroActa, int cuota, int cuenta, int dias, const char* importe)
{
    Boleta boleta = base(TipoBoleta::Acta, total);
    boleta.nroActa = nroActa;
    boleta.cuota = cuota;
    boleta.cuenta = cuenta;
    boleta.dias = dias;
    boleta.importeActa = Moneda::deTexto(QString::fromLatin1(importe));
    return boleta;
}

struct Caso
{
    const char* que;
    Boleta boleta;
    const char* sinVerificador; // constant, amount, CUIT, kind, fields of the kind, joined by hand
    int largo = 50;
};

TEST(NumeroBoleta, CadaTipoDigitoPorDigito)
{
    const Caso casos[] = {
        {"intereses", interes("1234,56", 15),
         "1265"
         "00123456"
         "30712345678"
         "1"
         "0603"
         "0"
         "15"
         "000000000000000000"},
        {"cinco centavos", interes("0,05", 0),
         "1265"
         "00000005"
         "30712345678"
         "1"
         "0603"
         "0"
         "00"
         "000000000000000000"},
        {"año 2100", interes("1", 0, QDate(2100, 12, 1)),
         "1265"
         "00000100"
         "30712345678"
         "1"
         "0012"
         "0"
         "00"
         "000000000000000000"},
        {"aportes", aportes("400", "200", "100,50", 41, 7),
         "1265"
         "00040000"
         "30712345678"
         "0"
         "0603"
         "0"
         "0020000"
         "0010050"
         "041"
         "007"},
        {"el tope de cinco enteros", aportes("400", "99999,99", "99999,99", 1, 1),
         "1265"
         "00040000"
         "30712345678"
         "0"
         "0603"
         "0"
         "9999999"
         "9999999"
         "001"
         "001"},
        {"el primero se escala", aportes("400", "123456,78", "100,50", 1, 1),
         "1265"
         "00040000"
         "30712345678"
         "0"
         "0603"
         "0"
         "0123457"
         "0010050"
         "001"
         "001"},
        {"el segundo toma el primero", aportes("400", "200", "123456,78", 1, 1),
         "1265"
         "00040000"
         "30712345678"
         "0"
         "0603"
         "0"
         "0020000"
         "0000200"
         "001"
         "001"},
        {"el segundo toma el primero ya escalado", aportes("400", "200000", "123456,78", 1, 1),
         "1265"
         "00040000"
         "30712345678"
         "0"
         "0603"
         "0"
         "0200000"
         "0002000"
         "001"
         "001"},
        {"la mitad de la escala va al par", aportes("400", "100000,50", "1", 1, 1),
         "1265"
         "00040000"
         "30712345678"
         "0"
         "0603"
         "0"
         "0100000"
         "0000100"
         "001"
         "001"},
        {"acta", acta("1100", 123456, 3, 1, 15, "1000"),
         "1265"
         "00110000"
         "30712345678"
         "2"
         "123456"
         "03"
         "1"
         "15"
         "00100000"
         "000000"},
        {"un millón ensancha el importe", interes("1000000", 15),
         "1265"
         "100000000"
         "30712345678"
         "1"
         "0603"
         "0"
         "15"
         "000000000000000000",
         51},
        {"mil empleados", aportes("400", "200", "100", 1000, 7),
         "1265"
         "00040000"
         "30712345678"
         "0"
         "0603"
         "0"
         "0020000"
         "0010000"
         "1000"
         "007",
         51},
        {"secuencia de dos cifras", aportes("400", "200", "100", 1, 7, 12),
         "1265"
         "00040000"
         "30712345678"
         "0"
         "0603"
         "12"
         "0020000"
         "0010000"
         "001"
         "007",
         51},
    };
    for (const Caso& caso : casos)
    {
        const QString numero = numeroBoleta(caso.boleta);
        EXPECT_EQ(numero.chopped(1).toStdString(), caso.sinVerificador) << caso.que;
        EXPECT_EQ(numero.size(), caso.largo) << caso.que;
    }
}

TEST(NumeroBoleta, ElVerificadorPesaTresYUnoSobreCuarentaYNueveLugares)
{
    // Odd places add up to 51, even ones to 46: 3 * 51 + 46 = 199, so 1.
    EXPECT_EQ(numeroBoleta(interes("1234,56", 15)).right(1), QStringLiteral("1"));
    EXPECT_EQ(digitoVerificador(QString(49, QLatin1Char('0'))), 0) << "ten counts as 0";
    EXPECT_EQ(digitoVerificador(QStringLiteral("1") + QString(48, QLatin1Char('0'))), 7);
    EXPECT_EQ(digitoVerificador(QStringLiteral("01") + QString(47, QLatin1Char('0'))), 9);
    EXPECT_EQ(digitoVerificador(QString(49, QLatin1Char('0')) + QStringLiteral("9")), 0) << "place 50 is not read";
    EXPECT_THROW((void)digitoVerificador(QString(48, QLatin1Char('0'))), ErrorDeEjecucion);
    EXPECT_THROW((void)digitoVerificador(QStringLiteral("-") + QString(48, QLatin1Char('0'))), ErrorDeEjecucion);
}

std::vector<int> codigos(const QString& texto)
{
    std::vector<int> codigos;
    std::transform(texto.cbegin(), texto.cend(), std::back_inserter(codigos), [](QChar c) { return c.unicode(); });
    return codigos;
}

TEST(StrToI2of5, UnCaracterPorPar)
{
    const std::vector<int> esperados{40, 60, 207, 48, 60, 82, 198, 78, 213, 71, 93, 209, 223, 54,
                                     51, 49, 192, 48, 48, 48, 48,  48, 48,  48, 48, 49,  41};
    EXPECT_EQ(codigos(StrToI2of5(numeroBoleta(interes("1234,56", 15)), false)), esperados);
    EXPECT_EQ(codigos(StrToI2of5(QStringLiteral("4950"), false)), (std::vector<int>{40, 97, 192, 41}));
    EXPECT_EQ(codigos(StrToI2of5(QStringLiteral("0099"), false)), (std::vector<int>{40, 48, 241, 41}));
    EXPECT_EQ(codigos(StrToI2of5(QStringLiteral("  12 "), false)), (std::vector<int>{40, 60, 41}));
    EXPECT_EQ(codigos(StrToI2of5(QStringLiteral("127"), false)), (std::vector<int>{40, 60, 55, 41}))
        << "a last digit alone";
    EXPECT_EQ(StrToI2of5(QString(), false), QStringLiteral("()"));
}

TEST(StrToI2of5, ElVerificadorPropioCoincideEnNumerosImpares)
{
    std::mt19937 azar(7);
    for (int vuelta = 0; vuelta < 200; ++vuelta)
    {
        QString digitos;
        std::generate_n(std::back_inserter(digitos), 49, [&] { return QChar('0' + static_cast<int>(azar() % 10)); });
        const QString completo = digitos + QString::number(digitoVerificador(digitos));
        EXPECT_EQ(StrToI2of5(digitos, true), StrToI2of5(completo, false)) << digitos.toStdString();
    }
}
} // namespace
