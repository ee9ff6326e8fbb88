// What a slip leaves in the register and hands to its page, and the list of the payments of acts.
#include "apoyo/datos.h"
#include "boletas_de_prueba.h"
#include "core/vigencia.h"
#include "slips/emision.h"
#include "slips/numero_boleta.h"
#include "slips/pagos.h"
#include "ui/report/informe_plantilla.h"

#include <gtest/gtest.h>

using namespace dePrueba;

namespace
{
struct EmisionDeBoletas : testing::Test
{
    BaseDePrueba base;
    TextosDeBoleta textos{"D'Angelo", "Mitre 1 - () ", "SEPELIO", {}, "015", "0123456", "03"};
    const Boleta boletas[3] = {boletaDeAportes(), boletaDeInteres(), boletaDeActa()};

    EmisionDeBoletas()
    {
        poner("Empresas");
        poner("DDJJ", {{"Secuencia", 1}});
        poner("DDJJ_Empleados", {{"Secuencia", 1}, {"Acuerdo", "100"}, {"Acuerdo2", "0,5"}});
        poner("DDJJ_Empleados", {{"Secuencia", 1}, {"Cuil", "20-2"}, {"Imponible", "2000,25"}});
        poner("DDJJ_Empleados", {{"Secuencia", 1}, {"Cuil", "20-3"}, {"Afiliado", 0}, {"Acuerdo", "50"}});
        poner("DDJJ_Empleados", {{"Imponible", "9999"}}); // of the original
    }
    /// "name=value" in their order, amounts exact.
    std::string emitir(const Boleta& boleta)
    {
        std::string lista;
        for (const ValorDeInforme& valor : emitirBoleta(Rutinas::Conexion, boleta, textos))
        {
            const auto* importe = std::get_if<Moneda>(&valor.valor);
            const QString texto = importe ? importe->textoPlano() : textoDeValor(valor);
            lista += (valor.nombre + '=' + texto + '|').toStdString();
        }
        return lista;
    }
};
} // namespace

TEST_F(EmisionDeBoletas, CadaTipoRegistraYEntregaLoSuyo)
{
    const auto comunes = [](const Boleta& boleta, const std::string& total, const std::string& interes)
    {
        const QString numero = numeroBoleta(boleta);
        return "Version=2.0|CUIT=30-12345678-1|Domicilio=Mitre 1|Empresa=D'Angelo|ImporteTotal=" + total +
               "|Otros_Conceptos=INTERES 015 DIAS|Interes=" + interes +
               "|BarCode=" + StrToI2of5(numero, false).toStdString() + "|BarNro=" + numero.toStdString();
    };
    const std::string fin = "|Fecha=10/06/2009|FuenteDeBarras=1|";
    EXPECT_EQ(emitir(boletaDeAportes()),
              comunes(boletaDeAportes(), "41.56", "1.5") +
                  "|TipoPago=APORTE MENSUAL|Periodo=2009/05|Secuencia=1|Aporte_2=20.01|Aporte_1A=10.02|Aporte_1B=10.03"
                  "|Empleados_2=3|Remuneracion_2=4150.75|Empleados_1=2|Remuneracion_1=3000.25" +
                  fin);
    EXPECT_EQ(emitir(boletaDeInteres()), comunes(boletaDeInteres(), "1234.5", "1234.5") +
                                             "|TipoPago=INTERES APORTE|Periodo=2009/05|Secuencia=1" + fin);
    EXPECT_EQ(emitir(boletaDeActa()),
              comunes(boletaDeActa(), "1100.25", "100.25") +
                  "|TipoPago=PAGO DE ACTAS|Cuenta=SEPELIO|Acta_Cuota=ACTA Nº 0123456  -  CUOTA Nº 03|Importe=1000" +
                  fin);
    EXPECT_EQ(filas("SELECT Cuit, Tipo, Periodo, Secuencia, Fecha, Art100, Art101A, Art101B, Dias, Interes, Importe, "
                    "NroActa, Cuota, Cuenta FROM PAGOS ORDER BY Pago"),
              "30-12345678-1|0|2009-05-01|1|2009-06-10|200100|100200|100300|15|15000|415600|0|0|0;"
              "30-12345678-1|1|2009-05-01|1|2009-06-10|0|0|0|15|12345000|12345000|0|0|0;"
              "30-12345678-1|2|Null|0|2009-06-10|0|0|0|15|1002500|11002500|123456|3|1");
    Rutinas::Conexion.ejecutar("UPDATE DDJJ_Empleados SET Afiliado = 0");
    textos.domicilio = "Mitre - () Azul";
    textos.hayFuente = false;
    Boleta sinDias = boletaDeAportes();
    sinDias.dias = 0;
    const std::string otra = emitir(sinDias);
    for (const char* dice : {"|Empleados_1=0|Remuneracion_1=0|", "|Domicilio=Mitre - () Azul|", "|FuenteDeBarras=0|",
                             "|Otros_Conceptos=|"})
    {
        EXPECT_NE(otra.find(dice), std::string::npos) << dice;
    }
    EXPECT_EQ(fueraDeTransaccion([&] { emitir(boletaDeActa()); }), "");
}

TEST_F(EmisionDeBoletas, LoQueNoPuedeHacerseNoSeRegistra)
{
    Boleta negativa = boletaDeAportes();
    negativa.importeTotal = pesos("-38,20");
    EXPECT_EQ(numeroDe([&] { return emitir(negativa); }), ErrorDeEjecucion::NoCoincidenTipos);
    {
        Conexion otroPuesto;
        otroPuesto.abrir(base.rutaBase());
        const Transaccion escribe(otroPuesto);
        const Conexion::EsperaCorta corta(std::chrono::milliseconds(1));
        EXPECT_THROW(emitir(boletaDeActa()), ErrorParaAvisar);
    }
    // How many kinds, from the first on, tell of what is gone; the others are errors of the program.
    int avisan = 0;
    for (const char* borrada : {"Parametros", "DDJJ_Empleados", "DDJJ", "Empresas"})
    {
        Rutinas::Conexion.ejecutar(std::string("DELETE FROM ") + borrada);
        for (int tipo = 0; tipo < 3; ++tipo)
        {
            SCOPED_TRACE(borrada);
            if (tipo < avisan)
            {
                EXPECT_THROW(emitir(boletas[tipo]), YaNoEsta);
            }
            else
            {
                EXPECT_NE(numeroDe([&] { return emitir(boletas[tipo]); }), 0);
            }
        }
        ++avisan;
    }
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
    for (std::size_t tipo = 0; tipo < 3; ++tipo)
    {
        EXPECT_FALSE(pagoRegistrado(Rutinas::Conexion, boletas[tipo]));
        emitir(boletas[tipo]);
        emitir(boletas[tipo]);
        for (const auto& [que, cambio, iguales] : casos)
        {
            Boleta otra = boletas[tipo];
            cambio(otra);
            EXPECT_EQ(pagoRegistrado(Rutinas::Conexion, otra), iguales[tipo]) << que << ", kind " << tipo;
        }
    }
    EXPECT_EQ(cuantos("PAGOS"), 3);
}

TEST_F(EmisionDeBoletas, LosPagosDeActasSeListanSeCarganYSeEliminan)
{
    for (const auto& [nroActa, cuota, cuenta] : {std::tuple(3, 1, 0), {12, 1, 0}, {3, 2, 0}, {3, 10, 0}, {99, 1, 1}})
    {
        Boleta boleta = boletaDeActa();
        boleta.nroActa = nroActa;
        boleta.cuota = cuota;
        boleta.cuenta = cuenta;
        emitir(boleta);
    }
    const auto ver = [](const QString& empresa, int cuenta)
    {
        std::string pagos;
        for (const PagoDeActa& pago : listarPagosDeActas(Rutinas::Conexion, empresa, cuenta))
        {
            EXPECT_EQ(pago.fecha, QDate(2009, 6, 10));
            EXPECT_EQ(pago.importe, pesos("1100,25"));
            pagos += std::to_string(pago.nroActa) + '/' + std::to_string(pago.cuota) + ' ';
        }
        return pagos;
    };
    EXPECT_EQ(ver(cuit, 0), "12/1 3/10 3/2 3/1 ");
    EXPECT_EQ(ver(cuit, 1), "99/1 ");
    EXPECT_EQ(ver(cuit, -1) + ver("30-87654321-5", 0), "");
    const qint64 clave = listarPagosDeActas(Rutinas::Conexion, cuit, 1)[0].pago;
    const PagoGuardado pago = cargarPago(Rutinas::Conexion, clave);
    EXPECT_EQ(std::tuple(pago.dias, pago.interes, pago.nroActa, pago.cuota, pago.importe),
              std::tuple(15, pesos("100,25"), 99, 1, pesos("1100,25")));
    eliminarPago(Rutinas::Conexion, clave);
    EXPECT_EQ(ver(cuit, 0) + ver(cuit, 1), "12/1 3/10 3/2 3/1 ");
    EXPECT_THROW((void)cargarPago(Rutinas::Conexion, clave), YaNoEsta);
    EXPECT_THROW(eliminarPago(Rutinas::Conexion, clave), YaNoEsta);
}
