// What a slip leaves in the register. What its page says, and the list of the payments of acts, are in scripts.
#include "apoyo/datos.h"
#include "boletas_de_prueba.h"
#include "slips/emision.h"
#include "slips/pagos.h"

#include <gtest/gtest.h>

using namespace dePrueba;

namespace
{
struct EmisionDeBoletas : ConBase
{
    TextosDeBoleta textos{"D'Angelo", "Mitre 1 - () ", "SEPELIO", {}, "015", "0123456", "03"};

    EmisionDeBoletas()
    {
        poner("Empresas");
        poner("DDJJ", {{"Secuencia", 1}});
        poner("DDJJ_Empleados", {{"Secuencia", 1}});
    }
    auto emitir(const Boleta& boleta) { return emitirBoleta(Rutinas::Conexion, boleta, textos); }
};
} // namespace

TEST_F(EmisionDeBoletas, CadaTipoRegistraLoSuyo)
{
    for (const TipoBoleta tipo : tipos)
    {
        EXPECT_EQ(fueraDeTransaccion([&] { emitir(boletaDe(tipo)); }), "");
    }
    EXPECT_EQ(filas("SELECT Cuit, Tipo, Periodo, Secuencia, Fecha, Art100, Art101A, Art101B, Dias, Interes, Importe, "
                    "NroActa, Cuota, Cuenta FROM PAGOS ORDER BY Pago"),
              "30-12345678-1|0|2009-05-01|1|2009-06-10|200100|100200|100300|15|15000|10415600|0|0|0;"
              "30-12345678-1|1|2009-05-01|1|2009-06-10|0|0|0|15|15000|10415600|0|0|0;"
              "30-12345678-1|2|Null|0|2009-06-10|0|0|0|15|15000|10415600|123456|3|1");
}

// What another desk has deleted, and an amount below zero: in scripts.
TEST_F(EmisionDeBoletas, LoQueNoPuedeHacerseNoSeRegistra)
{
    Conexion otroPuesto;
    otroPuesto.abrir(base.rutaBase());
    const Transaccion escribe(otroPuesto);
    const Conexion::EsperaCorta corta(std::chrono::milliseconds(1));
    EXPECT_THROW(emitir(boletaDe(TipoBoleta::Acta)), ErrorParaAvisar);
    EXPECT_EQ(cuantos("PAGOS"), 0);
}

TEST_F(EmisionDeBoletas, LaMismaBoletaSeRegistraUnaVez)
{
    // For each change: is it still the same slip, by kind (contributions, interest, act)?
    const std::tuple<const char*, void (*)(Boleta&), std::array<bool, 3>> casos[] = {
        {"company", [](Boleta& b) { b.cuit = "30-87654321-5"; }, {}},
        {"date", [](Boleta& b) { b.fecha = b.fecha.addDays(1); }, {}},
        {"days", [](Boleta& b) { b.dias = 16; }, {}},
        {"interest", [](Boleta& b) { b.interes += pesos("0,0001"); }, {}},
        {"total", [](Boleta& b) { b.importeTotal += pesos("0,01"); }, {}},
        {"month", [](Boleta& b) { b.declaracion.periodo = QDate(2009, 4, 1); }, {false, true, true}},
        {"sequence", [](Boleta& b) { b.declaracion.secuencia = 2; }, {false, true, true}},
        {"first contribution", [](Boleta& b) { b.art100 += pesos("0,01"); }, {false, true, true}},
        {"second contribution", [](Boleta& b) { b.art101A += pesos("0,01"); }, {false, true, true}},
        {"third contribution", [](Boleta& b) { b.art101B += pesos("0,01"); }, {false, true, true}},
        {"act", [](Boleta& b) { b.nroActa = 5; }, {true, true, false}},
        {"instalment", [](Boleta& b) { b.cuota = 5; }, {true, true, false}},
        {"fund", [](Boleta& b) { b.cuenta = 0; }, {true, true, false}},
        {"head counts", [](Boleta& b) { b.cantidadEmpleados = 999; }, {true, true, true}},
    };
    for (const TipoBoleta tipo : tipos)
    {
        emitir(boletaDe(tipo));
        emitir(boletaDe(tipo));
        for (const auto& [que, cambio, iguales] : casos)
        {
            Boleta otra = boletaDe(tipo);
            cambio(otra);
            const auto cual = static_cast<std::size_t>(tipo);
            EXPECT_EQ(pagoRegistrado(Rutinas::Conexion, otra), iguales[cual]) << que << ", kind " << cual;
        }
    }
    EXPECT_EQ(cuantos("PAGOS"), 3);
}
