#include "boletas_de_prueba.h"
#include "platform/data/error_de_ejecucion.h"
#include "slips/pagos.h"

#include <functional>
#include <gtest/gtest.h>

using namespace dePrueba;

namespace
{
struct Pagos : testing::Test
{
    BaseDePrueba base;
    Conexion& conexion = base.conexion();

    /// The register as text, a row a line.
    [[nodiscard]] QStringList registro()
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
        return lineas;
    }
    [[nodiscard]] qint64 cantidad()
    {
        return conexion.consultar("SELECT count(*) AS N FROM PAGOS").primera().entero("N");
    }
};
} // namespace

TEST_F(Pagos, EachKindRegistersItsOwnColumns)
{
    registrarPago(conexion, boletaDeAportes());
    Boleta interes = boletaDeInteres();
    interes.art100 = pesos("7"); // left over from a screen that was of another kind before
    interes.nroActa = 9;
    registrarPago(conexion, interes);
    registrarPago(conexion, boletaDeActa());
    EXPECT_EQ(registro(),
              QStringList({
                  QStringLiteral("30-12345678-1|0|2009-05-01|1|2009-06-10|200100|100200|100300|15|15000|415600|0|0|0"),
                  QStringLiteral("30-12345678-1|1|2009-05-01|1|2009-06-10|0|0|0|15|12345000|12345000|0|0|0"),
                  QStringLiteral("30-12345678-1|2|Null|0|2009-06-10|0|0|0|15|1002500|11002500|123456|3|1"),
              }));
}

TEST_F(Pagos, TheSameSlipIsWhatItsKindCompares)
{
    using Cambio = std::function<void(Boleta&)>;
    // For each change: is it still the same slip, by kind (contributions, interest, act)?
    const struct
    {
        const char* que;
        Cambio cambio;
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
    for (const Boleta& original : originales)
    {
        EXPECT_FALSE(pagoRegistrado(conexion, original));
        registrarPago(conexion, original);
    }
    for (const auto& caso : casos)
    {
        for (std::size_t tipo = 0; tipo < 3; ++tipo)
        {
            Boleta otra = originales[tipo];
            caso.cambio(otra);
            EXPECT_EQ(pagoRegistrado(conexion, otra), caso.iguales[tipo]) << caso.que << ", kind " << tipo;
        }
    }
    Boleta otroTipo = originales[2];
    otroTipo.tipo = TipoBoleta::Interes;
    EXPECT_FALSE(pagoRegistrado(conexion, otroTipo));
}

TEST_F(Pagos, TheSameSlipIsRegisteredOnceAlsoFromTwoDesks)
{
    Conexion otroPuesto;
    otroPuesto.abrir(base.rutaBase());
    registrarPagoSiFalta(conexion, boletaDeActa());
    registrarPagoSiFalta(otroPuesto, boletaDeActa());
    registrarPagoSiFalta(conexion, boletaDeActa());
    EXPECT_EQ(cantidad(), 1);
    Boleta manana = boletaDeActa();
    manana.fecha = manana.fecha.addDays(1);
    registrarPagoSiFalta(otroPuesto, manana);
    EXPECT_EQ(cantidad(), 2);
}

TEST_F(Pagos, ActsAreListedByActAndInstalmentDescendingOfOneFund)
{
    const int pagos[][3] = {{3, 1, 0}, {12, 1, 0}, {3, 2, 0}, {3, 10, 0}, {99, 1, 1}}; // act, instalment, fund
    for (const auto& pago : pagos)
    {
        Boleta boleta = boletaDeActa();
        boleta.nroActa = pago[0];
        boleta.cuota = pago[1];
        boleta.cuenta = pago[2];
        registrarPago(conexion, boleta);
    }
    registrarPago(conexion, boletaDeInteres());
    const auto ver = [this](int cuenta)
    {
        QStringList filas;
        for (const PagoDeActa& pago : listarPagosDeActas(conexion, cuit, cuenta))
        {
            filas.append(QStringLiteral("%1/%2 %3 %4")
                             .arg(pago.nroActa)
                             .arg(pago.cuota)
                             .arg(pago.fecha.toString(Qt::ISODate), pago.importe.textoPlano()));
        }
        return filas;
    };
    const QString resto = QStringLiteral(" 2009-06-10 1100.25");
    EXPECT_EQ(ver(0), QStringList({QStringLiteral("12/1") + resto, QStringLiteral("3/10") + resto,
                                   QStringLiteral("3/2") + resto, QStringLiteral("3/1") + resto}));
    EXPECT_EQ(ver(1), QStringList({QStringLiteral("99/1") + resto}));
    EXPECT_EQ(ver(-1), QStringList());
    EXPECT_TRUE(listarPagosDeActas(conexion, QStringLiteral("30-87654321-5"), 0).empty());
}

TEST_F(Pagos, APaymentIsLoadedAndDeletedByItsKey)
{
    registrarPago(conexion, boletaDeActa());
    const qint64 clave = conexion.ultimoNumero();
    const PagoGuardado pago = cargarPago(conexion, clave);
    EXPECT_EQ(pago.dias, 15);
    EXPECT_EQ(pago.interes, pesos("100,25"));
    EXPECT_EQ(pago.nroActa, 123456);
    EXPECT_EQ(pago.cuota, 3);
    EXPECT_EQ(pago.importe, pesos("1100,25"));
    registrarPago(conexion, boletaDeInteres());
    eliminarPago(conexion, clave);
    EXPECT_EQ(cantidad(), 1);
    try
    {
        (void)cargarPago(conexion, clave);
        ADD_FAILURE() << "it is gone";
    }
    catch (const ErrorDeEjecucion& error)
    {
        EXPECT_EQ(error.numero(), ErrorDeEjecucion::SinRegistro);
    }
}
