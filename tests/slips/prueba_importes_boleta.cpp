#include "boletas_de_prueba.h"
#include "core/vigencia.h"
#include "slips/importes_boleta.h"

#include <gtest/gtest.h>

using namespace dePrueba;

namespace
{
struct ImportesDeBoleta : testing::Test
{
    BaseDePrueba base;

    /// A declaration with a roster of one, whose three contributions are these.
    void nomina(int secuencia, const char* art100, const char* art101A, const char* art101B)
    {
        agregar(base.conexion(), DeclaracionDePrueba{.secuencia = secuencia});
        agregar(base.conexion(), EmpleadoDePrueba{.secuencia = secuencia,
                                                  .art100 = pesos(art100),
                                                  .art101A = pesos(art101A),
                                                  .art101B = pesos(art101B)});
    }
    /// The three as text, with what they add up to; "menor" when they cannot be paid.
    [[nodiscard]] std::string calcular(int secuencia)
    {
        const AportesDeBoleta a = calcularAportesDeBoleta(base.conexion(), {cuit, periodo, secuencia});
        return QStringList({a.art100.textoPlano(), a.art101A.textoPlano(), a.art101B.textoPlano(),
                            a.subTotal().textoPlano(), a.menorQueOriginal ? QStringLiteral("menor") : QString()})
            .join(QLatin1Char(' '))
            .trimmed()
            .toStdString();
    }
};
} // namespace

TEST_F(ImportesDeBoleta, SumanLaNominaYUnaRectificativaSoloLaDiferencia)
{
    nomina(0, "20", "10", "10");
    agregar(base.conexion(), EmpleadoDePrueba{.cuil = QStringLiteral("20-00000002-7"),
                                              .afiliado = false,
                                              .art100 = pesos("0,0125"),
                                              .art101A = {},
                                              .art101B = {}});
    agregar(base.conexion(), EmpleadoDePrueba{.periodo = QDate(2009, 6, 1)});
    EXPECT_EQ(calcular(0), "20.0125 10 10 40.0125");
    const struct
    {
        const char* nuevos[3];
        const char* resultado;
    } casos[] = {
        {{"20,0125", "10", "10"}, "0 0 0 0"},
        {{"20,02", "11", "12"}, "0.0075 1 2 3.0075"},
        {{"20,0124", "11", "12"}, "-0.0001 1 2 2.9999 menor"},
        {{"25", "9,99", "15"}, "4.9875 -0.01 5 9.9775 menor"},
        {{"25", "15", "0"}, "4.9875 5 -10 -0.0125 menor"},
    };
    int secuencia = 0;
    for (const auto& caso : casos)
    {
        nomina(++secuencia, caso.nuevos[0], caso.nuevos[1], caso.nuevos[2]);
        EXPECT_EQ(calcular(secuencia), caso.resultado);
    }
}

TEST_F(ImportesDeBoleta, LoEliminadoEnOtroPuestoSeAvisaYLoQueNuncaEstuvoEsUnError)
{
    EXPECT_THROW((void)calcular(0), YaNoEsta);
    nomina(1, "1", "1", "1");
    EXPECT_THROW((void)calcular(1), YaNoEsta) << "the original";
    agregar(base.conexion(), DeclaracionDePrueba{});
    EXPECT_THROW((void)calcular(0), YaNoEsta) << "its roster";
    try
    {
        (void)calcular(1);
        ADD_FAILURE() << "the original has no roster";
    }
    catch (const ErrorDeEjecucion& error)
    {
        EXPECT_EQ(error.numero(), ErrorDeEjecucion::UsoDeNull);
    }
}

TEST(ImporteDeCampo, RedondeaUnaVezAlCentavoPar)
{
    const std::pair<const char*, const char*> casos[] = {
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
    };
    for (const auto& [tecleado, importe] : casos)
    {
        EXPECT_EQ(importeDeCampo(QString::fromLatin1(tecleado)), pesos(importe)) << tecleado;
    }
    const std::pair<const char*, const char*> alEntrar[] = {
        {"$ 1.234.567,50", "1234567,50"}, {"$ 0,00", ""}, {"0", ""}, {"0,01", "0,01"}, {"1,2,3", "1,2,3"}};
    for (const auto& [mostrado, queda] : alEntrar)
    {
        EXPECT_EQ(importeParaEditar(QString::fromLatin1(mostrado)), QString::fromLatin1(queda));
    }
}

TEST(DomicilioDeBoleta, MuestraSoloLoQueHay)
{
    const auto con = [](qint64 numero, const char* local, const char* piso, const char* depto)
    {
        return domicilioDeBoleta(QStringLiteral("O'Higgins"), numero, QString::fromLatin1(local),
                                 QString::fromLatin1(piso), QString::fromLatin1(depto), QStringLiteral("1870"),
                                 QStringLiteral("Ñorquín"))
            .toStdString();
    };
    EXPECT_EQ(con(0, "", "", ""), "O'Higgins - (1870) Ñorquín");
    EXPECT_EQ(con(12, "3", "4", "B"), "O'Higgins 12 3 4 B - (1870) Ñorquín");
    EXPECT_EQ(con(0, "", "2", ""), "O'Higgins 2 - (1870) Ñorquín");
}
