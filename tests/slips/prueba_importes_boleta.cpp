#include "apoyo/base_de_prueba.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/data/formato.h"
#include "slips/importes_boleta.h"

#include <gtest/gtest.h>

namespace
{
Moneda pesos(const char* texto)
{
    return Moneda::deTexto(QString::fromUtf8(texto));
}

struct Tres
{
    const char* art100;
    const char* art101A;
    const char* art101B;
};

struct ImportesDeBoleta : testing::Test
{
    BaseDePrueba base;

    void empleado(int secuencia, const char* cuil, Tres aportes, bool afiliado = true)
    {
        EmpleadoDePrueba uno;
        uno.secuencia = secuencia;
        uno.cuil = QString::fromLatin1(cuil);
        uno.afiliado = afiliado;
        uno.art100 = pesos(aportes.art100);
        uno.art101A = pesos(aportes.art101A);
        uno.art101B = pesos(aportes.art101B);
        agregar(base.conexion(), uno);
    }
    [[nodiscard]] AportesDeBoleta calcular(int secuencia)
    {
        return calcularAportesDeBoleta(base.conexion(), {dePrueba::cuit, dePrueba::periodo, secuencia});
    }
};

void esperar(const AportesDeBoleta& aportes, Tres esperado, bool menor, const char* que)
{
    EXPECT_EQ(aportes.art100, pesos(esperado.art100)) << que;
    EXPECT_EQ(aportes.art101A, pesos(esperado.art101A)) << que;
    EXPECT_EQ(aportes.art101B, pesos(esperado.art101B)) << que;
    EXPECT_EQ(aportes.menorQueOriginal, menor) << que;
}
} // namespace

TEST_F(ImportesDeBoleta, AFirstDeclarationIsThePlainSumOfAllItsEmployees)
{
    empleado(0, "20-00000001-0", {"20,01", "10,02", "10,03"});
    empleado(0, "20-00000002-0", {"0,0025", "0", "0"}, false);
    empleado(3, "20-00000001-0", {"500", "500", "500"});
    agregar(base.conexion(), EmpleadoDePrueba{.periodo = QDate(2009, 6, 1)});
    esperar(calcular(0), {"20,0125", "10,02", "10,03"}, false, "plain");
    EXPECT_EQ(calcular(0).subTotal(), pesos("40,0625"));
}

TEST_F(ImportesDeBoleta, ARectificationIsTheDifferenceAgainstTheOriginal)
{
    const struct
    {
        const char* que;
        Tres nuevos;
        Tres diferencia;
        bool menor;
    } casos[] = {
        {"equal", {"20", "10", "10"}, {"0", "0", "0"}, false},
        {"higher", {"20,01", "11", "12"}, {"0,01", "1", "2"}, false},
        {"lower", {"19,9999", "9", "8"}, {"-0,0001", "-1", "-2"}, true},
        {"only the second lower", {"25", "9,99", "15"}, {"5", "-0,01", "5"}, true},
        {"only the third lower", {"25", "15", "0"}, {"5", "5", "-10"}, true},
    };
    empleado(0, "20-00000001-0", {"15", "10", "4"});
    empleado(0, "20-00000002-0", {"5", "0", "6"});
    int secuencia = 0;
    for (const auto& caso : casos)
    {
        empleado(++secuencia, "20-00000003-0", caso.nuevos);
        esperar(calcular(secuencia), caso.diferencia, caso.menor, caso.que);
    }
}

TEST_F(ImportesDeBoleta, WithoutARosterThereIsNoSum)
{
    const auto error = [this](int secuencia)
    {
        try
        {
            (void)calcular(secuencia);
            return 0;
        }
        catch (const ErrorDeEjecucion& e)
        {
            return e.numero();
        }
    };
    EXPECT_EQ(error(0), ErrorDeEjecucion::UsoDeNull);
    empleado(1, "20-00000001-0", {"1", "1", "1"});
    EXPECT_EQ(error(1), ErrorDeEjecucion::UsoDeNull) << "the original has none";
    empleado(0, "20-00000001-0", {"1", "1", "1"});
    EXPECT_EQ(error(1), 0);
    EXPECT_EQ(error(2), ErrorDeEjecucion::UsoDeNull) << "the rectification has none";
}

TEST(ImporteDeCampo, RoundsWhatWasTypedOnceToTheEvenCent)
{
    const struct
    {
        const char* tecleado;
        const char* importe;
    } casos[] = {
        {"1234,5", "1234,50"},
        {"1.234,5", "1234,50"},
        {"0,005", "0"},
        {"0,015", "0,02"},
        {"0,025", "0,02"},
        // Rounded in two steps these would come out one cent off.
        {"0,00500001", "0,01"},
        {"0,01499999", "0,01"},
        {"0,0149995", "0,01"},
        {"0,0250000", "0,02"},
        {"2,674999999", "2,67"},
    };
    for (const auto& caso : casos)
    {
        EXPECT_EQ(importeDeCampo(QString::fromLatin1(caso.tecleado)), pesos(caso.importe)) << caso.tecleado;
    }
    EXPECT_THROW((void)importeDeCampo(QStringLiteral("1,2,3")), ErrorDeEjecucion);
}

TEST(ImporteDeCampo, OnEntryItLosesItsSignAndAZeroEmptiesIt)
{
    EXPECT_EQ(importeParaEditar(QStringLiteral("$ 1.234.567,50")), QStringLiteral("1234567,50"));
    EXPECT_EQ(importeParaEditar(QStringLiteral("$ 0,00")), QString());
    EXPECT_EQ(importeParaEditar(QStringLiteral("0")), QString());
    EXPECT_EQ(importeParaEditar(QStringLiteral("0,01")), QStringLiteral("0,01"));
    EXPECT_EQ(importeParaEditar(QStringLiteral("1,2,3")), QStringLiteral("1,2,3"));
}

TEST(DomicilioDeBoleta, ShowsOnlyWhatTheCompanyHas)
{
    const auto con = [](qint64 numero, const char* local, const char* piso, const char* depto)
    {
        return domicilioDeBoleta(QStringLiteral("O'Higgins"), numero, QString::fromLatin1(local),
                                 QString::fromLatin1(piso), QString::fromLatin1(depto), QStringLiteral("1870"),
                                 QStringLiteral("Ñorquín"));
    };
    EXPECT_EQ(con(0, "", "", ""), QStringLiteral("O'Higgins - (1870) Ñorquín"));
    EXPECT_EQ(con(12, "3", "4", "B"), QStringLiteral("O'Higgins 12 3 4 B - (1870) Ñorquín"));
    EXPECT_EQ(con(0, "", "2", ""), QStringLiteral("O'Higgins 2 - (1870) Ñorquín"));
}
