#include "apoyo/datos.h"
#include "boletas_de_prueba.h"
#include "core/vigencia.h"
#include "slips/importes_boleta.h"

#include <gtest/gtest.h>

using namespace dePrueba;

namespace
{
struct ImportesDeBoleta : ConBase
{
    /// A declaration with a roster of one, whose three contributions are these.
    static void nomina(int secuencia, const char* art100, const char* art101A, const char* art101B)
    {
        poner("DDJJ", {{"Secuencia", secuencia}});
        poner("DDJJ_Empleados",
              {{"Secuencia", secuencia}, {"ART100", art100}, {"ART101A", art101A}, {"ART101B", art101B}});
    }
    /// The three and what they add up to; "menor" when they cannot be paid.
    [[nodiscard]] static std::string calcular(int secuencia)
    {
        const AportesDeBoleta a = calcularAportesDeBoleta(Rutinas::Conexion, {cuit, periodo, secuencia});
        return QString("%1 %2 %3 %4%5")
            .arg(a.art100.textoPlano(), a.art101A.textoPlano(), a.art101B.textoPlano(), a.subTotal().textoPlano(),
                 a.menorQueOriginal ? " menor" : QString())
            .toStdString();
    }
};
} // namespace

TEST_F(ImportesDeBoleta, SumanLaNominaYUnaRectificativaSoloLaDiferencia)
{
    nomina(0, "20", "10", "10");
    poner("DDJJ_Empleados",
          {{"Cuil", "20-2"}, {"Afiliado", 0}, {"ART100", "0,0125"}, {"ART101A", "0"}, {"ART101B", "0"}});
    poner("DDJJ_Empleados", {{"Periodo", "2009-06-01"}});
    EXPECT_EQ(calcular(0), "20.0125 10 10 40.0125");
    const std::tuple<const char*, const char*, const char*, const char*> casos[] = {
        {"20,0125", "10", "10", "0 0 0 0"},
        {"20,02", "11", "12", "0.0075 1 2 3.0075"},
        {"20,0124", "11", "12", "-0.0001 1 2 2.9999 menor"},
        {"25", "9,99", "15", "4.9875 -0.01 5 9.9775 menor"},
        {"25", "15", "0", "4.9875 5 -10 -0.0125 menor"},
    };
    int secuencia = 0;
    for (const auto& [art100, art101A, art101B, resultado] : casos)
    {
        nomina(++secuencia, art100, art101A, art101B);
        EXPECT_EQ(calcular(secuencia), resultado);
    }
}

TEST_F(ImportesDeBoleta, LoEliminadoEnOtroPuestoSeAvisaYLoQueNuncaEstuvoEsUnError)
{
    EXPECT_THROW((void)calcular(0), YaNoEsta);
    nomina(1, "1", "1", "1");
    EXPECT_THROW((void)calcular(1), YaNoEsta) << "the original";
    poner("DDJJ");
    EXPECT_THROW((void)calcular(0), YaNoEsta) << "its roster";
    EXPECT_EQ(numeroDe([] { return calcular(1); }), ErrorDeEjecucion::UsoDeNull) << "the original has no roster";
}

TEST(ImporteDeCampo, RedondeaUnaVezAlCentavoPar)
{
    const std::pair<const char*, const char*> casos[] = {
        {"1234,5", "1234,50"}, {"1.234,5", "1234,50"}, {"0,005", "0"}, {"0,015", "0,02"},
        {"0,025", "0,02"},     {"0,00500001", "0,01"}, // rounded in two steps the next ones would come out one cent off
        {"0,0149995", "0,01"}, {"0,0250000", "0,02"},
    };
    for (const auto& [tecleado, importe] : casos)
    {
        EXPECT_EQ(importeDeCampo(tecleado), pesos(importe)) << tecleado;
    }
    const std::pair<const char*, const char*> alEntrar[] = {
        {"$ 1.234.567,50", "1234567,50"}, {"$ 0,00", ""}, {"0,01", "0,01"}, {"1,2,3", "1,2,3"}};
    for (const auto& [mostrado, queda] : alEntrar)
    {
        EXPECT_EQ(importeParaEditar(mostrado), QString(queda));
    }
}
