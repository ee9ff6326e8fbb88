// What a slip leaves in the register and hands to its page, and the list of the payments of acts.
#include "boletas_de_prueba.h"
#include "core/vigencia.h"
#include "slips/emision.h"
#include "slips/numero_boleta.h"
#include "slips/pagos.h"

#include <functional>
#include <gtest/gtest.h>

using namespace dePrueba;

namespace
{
struct EmisionDeBoletas : testing::Test
{
    BaseDePrueba base;
    Conexion& conexion = base.conexion();
    TextosDeBoleta textos{QStringLiteral("D'Angelo"), QStringLiteral("Mitre 1 - (1870) Lanús"),
                          QStringLiteral("SEPELIO"),  {},
                          QStringLiteral("015"),      QStringLiteral("0123456"),
                          QStringLiteral("03")};

    void SetUp() override
    {
        agregar(conexion, EmpresaDePrueba());
        agregar(conexion, DeclaracionDePrueba{.secuencia = 1});
        const auto empleado = [this](const char* cuil, bool afiliado, const char* imponible, const char* acuerdo)
        {
            agregar(conexion, EmpleadoDePrueba{.secuencia = *cuil - '0',
                                               .cuil = QString::fromLatin1(cuil),
                                               .afiliado = afiliado,
                                               .imponible = pesos(imponible),
                                               .acuerdo = pesos(acuerdo),
                                               .acuerdo2 = pesos("0,5")});
        };
        empleado("1-00000001-0", true, "1000", "100");
        empleado("1-00000002-0", true, "2000,25", "0");
        empleado("1-00000003-0", false, "500", "50");
        empleado("0-00000004-0", true, "9999", "0"); // the original's
    }
    /// "name=value" in their order, amounts exact.
    [[nodiscard]] std::string emitir(const Boleta& boleta)
    {
        struct Texto
        {
            QString operator()(const QString& texto) const { return texto; }
            QString operator()(qint64 numero) const { return QString::number(numero); }
            QString operator()(Moneda importe) const { return importe.textoPlano(); }
            QString operator()(QDate fecha) const { return fecha.toString(Qt::ISODate); }
        };
        QStringList lista;
        for (const ValorDeInforme& valor : emitirBoleta(conexion, boleta, textos))
        {
            lista.append(valor.nombre + QLatin1Char('=') + std::visit(Texto(), valor.valor));
        }
        return lista.join(QLatin1Char('|')).toStdString();
    }
    /// The register, a payment a line.
    [[nodiscard]] std::string registro()
    {
        QStringList lineas;
        for (const Fila& fila : conexion.consultar("SELECT * FROM PAGOS ORDER BY Pago"))
        {
            QStringList celdas;
            for (const char* columna : {"Cuit", "Tipo", "Periodo", "Secuencia", "Fecha", "Art100", "Art101A", "Art101B",
                                        "Dias", "Interes", "Importe", "NroActa", "Cuota", "Cuenta"})
            {
                celdas.append(fila.esNulo(columna) ? QStringLiteral("Null") : fila.texto(columna));
            }
            lineas.append(celdas.join(QLatin1Char('|')));
        }
        return lineas.join(QLatin1Char('\n')).toStdString();
    }
    void acta(int nroActa, int cuota, int cuenta)
    {
        Boleta boleta = boletaDeActa();
        boleta.nroActa = nroActa;
        boleta.cuota = cuota;
        boleta.cuenta = cuenta;
        (void)emitirBoleta(conexion, boleta, textos);
    }
};
} // namespace

TEST_F(EmisionDeBoletas, CadaTipoRegistraYEntregaLoSuyo)
{
    const auto comunes = [](const Boleta& boleta, const std::string& total, const std::string& interes)
    {
        const QString numero = numeroBoleta(boleta);
        return "Version=2.0|CUIT=30-12345678-1|Domicilio=Mitre 1 - (1870) Lanús|Empresa=D'Angelo|ImporteTotal=" +
               total + "|Otros_Conceptos=INTERES 015 DIAS|Interes=" + interes +
               "|BarCode=" + StrToI2of5(numero, false).toStdString() + "|BarNro=" + numero.toStdString();
    };
    const std::string fin = "|Fecha=2009-06-10|FuenteDeBarras=1";
    EXPECT_EQ(emitir(boletaDeAportes()),
              comunes(boletaDeAportes(), "41.56", "1.5") +
                  "|TipoPago=APORTE MENSUAL|Periodo=2009/05|Secuencia=1|Aporte_2=20.01|Aporte_1A=10.02|Aporte_1B=10.03"
                  "|Empleados_2=3|Remuneracion_2=3651.75|Empleados_1=2|Remuneracion_1=3000.25" +
                  fin);
    EXPECT_EQ(emitir(boletaDeInteres()), comunes(boletaDeInteres(), "1234.5", "1234.5") +
                                             "|TipoPago=INTERES APORTE|Periodo=2009/05|Secuencia=1" + fin);
    EXPECT_EQ(emitir(boletaDeActa()),
              comunes(boletaDeActa(), "1100.25", "100.25") +
                  "|TipoPago=PAGO DE ACTAS|Cuenta=SEPELIO|Acta_Cuota=ACTA Nº 0123456  -  CUOTA Nº 03|Importe=1000" +
                  fin);
    EXPECT_EQ(registro(), "30-12345678-1|0|2009-05-01|1|2009-06-10|200100|100200|100300|15|15000|415600|0|0|0\n"
                          "30-12345678-1|1|2009-05-01|1|2009-06-10|0|0|0|15|12345000|12345000|0|0|0\n"
                          "30-12345678-1|2|Null|0|2009-06-10|0|0|0|15|1002500|11002500|123456|3|1");

    conexion.ejecutar("UPDATE DDJJ_Empleados SET Afiliado = 0");
    textos.domicilio = QStringLiteral("Mitre 1 - () ");
    textos.hayFuente = false;
    const std::string sinAfiliados = emitir(boletaDeAportes());
    for (const char* dice : {"|Empleados_1=0|Remuneracion_1=0|", "|Domicilio=Mitre 1|", "|FuenteDeBarras=0"})
    {
        EXPECT_NE(sinAfiliados.find(dice), std::string::npos) << dice;
    }
    Boleta sinInteres = boletaDeActa();
    sinInteres.dias = 0;
    EXPECT_NE(emitir(sinInteres).find("|Otros_Conceptos=|"), std::string::npos);
}

TEST_F(EmisionDeBoletas, LoQueNoPuedeHacerseNoSeRegistra)
{
    Boleta negativa = boletaDeAportes();
    negativa.importeTotal = pesos("-38,20");
    EXPECT_THROW((void)emitir(negativa), ErrorDeEjecucion);
    const char* const borrados[] = {"Parametros", "DDJJ_Empleados", "DDJJ", "Empresas"};
    const bool seAvisa[][3] = {{false, false, false}, {true, false, false}, {true, true, false}, {true, true, true}};
    for (std::size_t i = 0; i < std::size(borrados); ++i)
    {
        conexion.ejecutar(std::string("DELETE FROM ") + borrados[i]);
        std::size_t tipo = 0;
        for (const Boleta& boleta : {boletaDeAportes(), boletaDeInteres(), boletaDeActa()})
        {
            bool avisado = false;
            try
            {
                (void)emitir(boleta);
                ADD_FAILURE() << borrados[i] << ' ' << tipo;
            }
            catch (const YaNoEsta&)
            {
                avisado = true;
            }
            catch (const ErrorDeEjecucion&)
            {
            }
            EXPECT_EQ(avisado, seAvisa[i][tipo]) << borrados[i] << ' ' << tipo;
            ++tipo;
        }
    }
    EXPECT_EQ(registro(), "");
    EXPECT_FALSE(conexion.enTransaccion());
}

TEST_F(EmisionDeBoletas, LaMismaBoletaSeRegistraUnaVez)
{
    // For each change: is it still the same slip, by kind (contributions, interest, act)?
    const struct
    {
        const char* que;
        std::function<void(Boleta&)> cambio;
        bool iguales[3];
    } casos[] = {
        {"nothing", [](Boleta&) {}, {true, true, true}},
        {"company", [](Boleta& b) { b.cuit = QStringLiteral("30-87654321-5"); }, {false, false, false}},
        {"date", [](Boleta& b) { b.fecha = b.fecha.addDays(1); }, {false, false, false}},
        {"days", [](Boleta& b) { b.dias = 16; }, {false, false, false}},
        {"interest", [](Boleta& b) { b.interes += pesos("0,0001"); }, {false, false, false}},
        {"total", [](Boleta& b) { b.importeTotal += pesos("0,01"); }, {false, false, false}},
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
    const Boleta originales[] = {boletaDeAportes(), boletaDeInteres(), boletaDeActa()};
    for (std::size_t tipo = 0; tipo < 3; ++tipo)
    {
        EXPECT_FALSE(pagoRegistrado(conexion, originales[tipo]));
        (void)emitir(originales[tipo]);
        for (const auto& caso : casos)
        {
            Boleta otra = originales[tipo];
            caso.cambio(otra);
            EXPECT_EQ(pagoRegistrado(conexion, otra), caso.iguales[tipo]) << caso.que << ", kind " << tipo;
        }
    }
    const std::string antes = registro();
    (void)emitir(boletaDeActa());
    EXPECT_EQ(registro(), antes);
}

TEST_F(EmisionDeBoletas, LosPagosDeActasSeListanSeCarganYSeEliminan)
{
    for (const auto& [nroActa, cuota, cuenta] : {std::tuple(3, 1, 0), {12, 1, 0}, {3, 2, 0}, {3, 10, 0}, {99, 1, 1}})
    {
        acta(nroActa, cuota, cuenta);
    }
    const auto ver = [this](const QString& empresa, int cuenta)
    {
        QString filas;
        for (const PagoDeActa& pago : listarPagosDeActas(conexion, empresa, cuenta))
        {
            filas += QStringLiteral("%1/%2 %3 %4;")
                         .arg(pago.nroActa)
                         .arg(pago.cuota)
                         .arg(pago.fecha.toString(Qt::ISODate), pago.importe.textoPlano());
        }
        return filas.toStdString();
    };
    EXPECT_EQ(ver(cuit, 0), "12/1 2009-06-10 1100.25;3/10 2009-06-10 1100.25;3/2 2009-06-10 1100.25;"
                            "3/1 2009-06-10 1100.25;");
    EXPECT_EQ(ver(cuit, 1), "99/1 2009-06-10 1100.25;");
    EXPECT_EQ(ver(cuit, -1) + ver(QStringLiteral("30-87654321-5"), 0), "");

    const qint64 clave = listarPagosDeActas(conexion, cuit, 1)[0].pago;
    const PagoGuardado pago = cargarPago(conexion, clave);
    EXPECT_EQ(std::tuple(pago.dias, pago.interes, pago.nroActa, pago.cuota, pago.importe),
              std::tuple(15, pesos("100,25"), 99, 1, pesos("1100,25")));
    eliminarPago(conexion, clave);
    EXPECT_EQ(ver(cuit, 1), "");
    EXPECT_NE(ver(cuit, 0), "");
    EXPECT_THROW((void)cargarPago(conexion, clave), YaNoEsta);
    EXPECT_THROW(eliminarPago(conexion, clave), YaNoEsta);
}
