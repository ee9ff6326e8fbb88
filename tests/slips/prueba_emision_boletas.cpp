// Issuing slips on the screen, and the list of the payments of acts.
#include "apoyo/entrada.h"
#include "boletas_de_prueba.h"
#include "mesa_boletas.h"
#include "platform/screens/grilla.h"
#include "platform/screens/informe_vista.h"
#include "slips/pagos.h"
#include "slips/screens/boletas.h"

#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>

using namespace dePrueba;

namespace
{
const QString desea = QStringLiteral("Desea Generar la Boleta Correspondiente?");
const QString sinImporte = QStringLiteral("Debe ingresar el Importe a Abonar.");

struct EmisionDeBoletas : testing::Test
{
    MesaBoletas mesa;

    void SetUp() override
    {
        agregar(mesa.conexion(), EmpresaDePrueba());
        agregar(mesa.conexion(), EmpleadoDePrueba());
    }
    /// A slip that is refused with this box, with the focus there afterwards.
    void refusa(const QString& caja, const char* foco)
    {
        mesa.cajas.esperaPregunta(desea, true).espera(Caja::Informacion, caja);
        mesa.pulsar("cmdBoletas");
        EXPECT_EQ(mesa.foco(), QString::fromLatin1(foco)) << caja.toStdString();
        EXPECT_EQ(mesa.pagos(), 0);
    }
    void acta(int nroActa, int cuota, int cuenta, bool conInteres = true)
    {
        Boleta boleta = boletaDeActa();
        boleta.nroActa = nroActa;
        boleta.cuota = cuota;
        boleta.cuenta = cuenta;
        if (!conInteres)
        {
            boleta.dias = 0;
            boleta.interes = Moneda();
            boleta.importeTotal = boleta.importeActa;
        }
        registrarPago(mesa.conexion(), boleta);
    }
    /// The text of the page in preview, blanks run together.
    [[nodiscard]] QString hoja()
    {
        const QString pdf = mesa.base.ruta(QStringLiteral("hoja.pdf"));
        mesa.vistas().value(0)->guardarPdf(pdf);
        QProcess proceso;
        proceso.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
        EXPECT_TRUE(proceso.waitForFinished() && proceso.exitCode() == 0);
        return QString::fromUtf8(proceso.readAllStandardOutput()).simplified();
    }
    /// The last payment's days, interest, total, act and instalment.
    [[nodiscard]] QString pago() const
    {
        const Recordset filas = mesa.conexion().consultar("SELECT * FROM PAGOS ORDER BY Pago DESC LIMIT 1");
        const Fila fila = filas.primera();
        return QStringLiteral("%1|%2|%3|%4|%5")
            .arg(fila.entero("Dias"))
            .arg(fila.moneda("Interes").textoPlano(), fila.moneda("Importe").textoPlano())
            .arg(fila.entero("NroActa"))
            .arg(fila.entero("Cuota"));
    }
    void llenarActa()
    {
        mesa.elegirFondo(1);
        mesa.poner("txtActa", "7");
        mesa.poner("txtCuota", "2");
        mesa.poner("txtImporte", "1000");
    }
};
} // namespace

TEST_F(EmisionDeBoletas, ChecksComeInTheirOrder)
{
    mesa.abrir(0);
    mesa.generar(false);
    EXPECT_EQ(mesa.vistas().size(), 0) << "answered No";
    mesa.escribir("MaskFecha", "");
    mesa.poner("txtDias_0", "15");
    refusa(QStringLiteral("Debe informar la fecha correspondiente al Pago."), "MaskFecha");
    EXPECT_EQ(mesa.texto("MaskFecha"), QStringLiteral("10/06/2009"));
    refusa(QStringLiteral("Debe informar el Monto de Interes correspondiente."), "txtInteres_0");
    mesa.poner("txtInteres_0", "100");
    mesa.poner("txtDias_0", "0");
    refusa(QStringLiteral("Debe informar los Días de Interes correspondientes."), "txtDias_0");
    EXPECT_EQ(mesa.texto("txtDias_0"), QString());
    mesa.cerrar();

    mesa.abrir(1);
    refusa(sinImporte, "cmdBoletas");
    EXPECT_EQ(mesa.textos({"txtDias_1", "txtInteres_1"}), QStringList({QStringLiteral("0"), QStringLiteral("0")}));
    mesa.cerrar();

    mesa.abrir(2);
    refusa(sinImporte, "cmdBoletas");
    mesa.poner("txtImporte", "100");
    refusa(QStringLiteral("Debe seleccionar el Tipo de Acta: 'C.O.L.U.' ó 'Seguro de Sepelio'."), "cmbConcepto");
    mesa.elegirFondo(0);
    mesa.poner("txtActa", "000");
    refusa(QStringLiteral("Debe informar el Nro. de Acta correspondiente."), "txtActa");
    EXPECT_EQ(mesa.texto("txtActa"), QString());
    mesa.poner("txtActa", "12");
    refusa(QStringLiteral("Debe informar el Nro. de Cuota correspondiente."), "txtCuota");
    EXPECT_FALSE(Rutinas::BoletaEmitida);
}

TEST_F(EmisionDeBoletas, TheSameSlipIsRegisteredOnceAndPrintedAgain)
{
    mesa.abrir(0);
    mesa.generar();
    EXPECT_EQ(mesa.vistas().size(), 1);
    EXPECT_EQ(mesa.pagos(), 1);
    EXPECT_TRUE(Rutinas::BoletaEmitida);
    mesa.cerrarVistas();
    mesa.generar();
    EXPECT_EQ(mesa.vistas().size(), 1);
    EXPECT_EQ(mesa.pagos(), 1);
    mesa.cerrarVistas();
    mesa.poner("MaskFecha", "11062009");
    mesa.generar();
    EXPECT_EQ(mesa.pagos(), 2);
    EXPECT_EQ(mesa.texto("MaskFecha"), QStringLiteral("11/06/2009")) << "the screen stays as it is";
}

TEST_F(EmisionDeBoletas, OnlyContributionsAreToBeSent)
{
    mesa.abrir(1);
    mesa.poner("txtDias_1", "15");
    mesa.poner("txtInteres_1", "100");
    mesa.generar();
    EXPECT_EQ(mesa.pagos(), 1);
    mesa.cerrarVistas();
    Rutinas::PeriodoActual = QDate(2009, 4, 1);
    mesa.generar();
    EXPECT_EQ(mesa.pagos(), 1) << "interest is compared without its month";
    EXPECT_EQ(mesa.vistas().size(), 1);
    mesa.cerrarVistas();
    mesa.cerrar();
    mesa.abrir(2);
    llenarActa();
    mesa.generar();
    EXPECT_EQ(mesa.pagos(), 2);
    EXPECT_FALSE(Rutinas::BoletaEmitida);
}

TEST_F(EmisionDeBoletas, ThePagePrintsWhatWasTypedAndTheRegisterItsValue)
{
    mesa.abrir(2);
    llenarActa();
    mesa.poner("txtActa", "007");
    mesa.poner("txtCuota", "02");
    mesa.poner("txtDias_2", "05");
    mesa.poner("txtInteres_2", "1");
    mesa.generar();
    const QString acta = hoja();
    EXPECT_EQ(acta.count(QStringLiteral("ACTA Nº 007 - CUOTA Nº 02")), 3);
    EXPECT_EQ(acta.count(QStringLiteral("INTERES 05 DIAS $ 1,00")), 3);
    EXPECT_EQ(pago(), QStringLiteral("5|1|1001|7|2"));
    mesa.cerrarVistas();
    mesa.cerrar();

    // A second activation drops the interest but not the fields: the days go out with no interest.
    mesa.abrir(0);
    mesa.poner("txtDias_0", "15");
    mesa.poner("txtInteres_0", "100");
    mesa.irYVolver();
    mesa.generar();
    EXPECT_EQ(hoja().count(QStringLiteral("INTERES 15 DIAS $ 0,00")), 3);
    EXPECT_EQ(pago(), QStringLiteral("15|0|40|0|0"));
}

TEST_F(EmisionDeBoletas, AFailingReportIsToldAndThePaymentStays)
{
    mesa.abrir(0);
    ASSERT_TRUE(QFile::remove(mesa.base.ruta(QStringLiteral("RptBoleta0.rpt"))));
    mesa.cajas.esperaPregunta(desea, true).esperaQueDiga(Caja::Simple, QStringLiteral("RptBoleta0.rpt"));
    mesa.pulsar("cmdBoletas");
    EXPECT_EQ(mesa.pagos(), 1);
    EXPECT_TRUE(Rutinas::BoletaEmitida);
    EXPECT_EQ(mesa.vistas().size(), 0);
    EXPECT_EQ(mesa.fines, 0);
}

TEST_F(EmisionDeBoletas, AnActJoinsTheListAndNoneIsPicked)
{
    acta(7, 1, 1);
    mesa.abrir(2);
    llenarActa();
    mesa.pulsarCelda("vsActas", 1, 1);
    mesa.poner("txtCuota", "2");
    mesa.generar();
    mesa.cerrarVistas();
    EXPECT_EQ(mesa.actas(),
              QStringList({QStringLiteral("10/06/09|7|2|1.100,25"), QStringLiteral("10/06/09|7|1|1.100,25")}));
    EXPECT_EQ(mesa.amarilla(), 0);
    mesa.pulsar("cmdEliminar"); // does nothing and says nothing
    EXPECT_EQ(mesa.pagos(), 2);
}

TEST_F(EmisionDeBoletas, ARowPickedByMouseOrKeyboardFillsTheFields)
{
    acta(3, 1, 1, false);
    acta(12, 1, 1);
    acta(3, 2, 1);
    acta(99, 1, 0);
    mesa.abrir(2);
    EXPECT_EQ(mesa.actas(), QStringList()) << "no fund chosen";
    mesa.elegirFondo(1);
    EXPECT_EQ(mesa.grilla("vsActas").texto(2, 0), QStringLiteral("Nº Acta"));
    EXPECT_EQ(mesa.actas(),
              QStringList({QStringLiteral("10/06/09|12|1|1.100,25"), QStringLiteral("10/06/09|3|2|1.100,25"),
                           QStringLiteral("10/06/09|3|1|1.000,00")}));
    mesa.pulsarCelda("vsActas", 1, 0);
    EXPECT_EQ(mesa.amarilla(), 0);
    const auto campos = [this] {
        return mesa.textos({"txtActa", "txtCuota", "txtImporte", "txtDias_2", "txtInteres_2", "txtTotal_2"});
    };
    mesa.pulsarCelda("vsActas", 1, 1);
    EXPECT_EQ(mesa.amarilla(), 1);
    EXPECT_EQ(campos(), QStringList({QStringLiteral("12"), QStringLiteral("1"), QStringLiteral("$ 1.000,00"),
                                     QStringLiteral("15"), QStringLiteral("$ 100,25"), QStringLiteral("$ 1.100,25")}));
    Entrada::tecla(Qt::Key_Down);
    Entrada::tecla(Qt::Key_Down);
    EXPECT_EQ(mesa.amarilla(), 3);
    EXPECT_EQ(campos(), QStringList({QStringLiteral("3"), QStringLiteral("1"), QStringLiteral("$ 1.000,00"), QString(),
                                     QString(), QStringLiteral("$ 1.000,00")}));
    EXPECT_EQ(mesa.texto("MaskFecha"), QStringLiteral("10/06/2009"));
    mesa.pulsar("txtActa"); // the grid is left
    EXPECT_EQ(mesa.amarilla(), 3);
    mesa.elegirFondo(0);
    EXPECT_EQ(mesa.actas(), QStringList({QStringLiteral("10/06/09|99|1|1.100,25")}));
    mesa.pulsar("cmdEliminar");
    EXPECT_EQ(mesa.pagos(), 4) << "another list, nothing picked";
}

TEST_F(EmisionDeBoletas, APickedPaymentIsDeletedAfterAQuestion)
{
    acta(3, 1, 1);
    acta(12, 1, 1);
    mesa.abrir(2);
    mesa.elegirFondo(1);
    mesa.pulsar("cmdEliminar");
    mesa.pulsarCelda("vsActas", 1, 2);
    mesa.cajas.esperaPregunta(QStringLiteral("Esta seguro de desea ELIMINAR el Pago seleccionado?"), false);
    mesa.pulsar("cmdEliminar");
    EXPECT_EQ(mesa.pagos(), 2);
    mesa.cajas.esperaPregunta(QStringLiteral("Esta seguro de desea ELIMINAR el Pago seleccionado?"), true)
        .espera(Caja::Exclamacion, QStringLiteral("El Pago ha sido Eliminado."));
    mesa.pulsar("cmdEliminar");
    EXPECT_EQ(mesa.actas(), QStringList({QStringLiteral("10/06/09|12|1|1.100,25")}));
    mesa.pulsar("cmdEliminar");
    EXPECT_EQ(mesa.pagos(), 1);
}

TEST_F(EmisionDeBoletas, ASlipPastItsPlacesStillGoesOut)
{
    mesa.abrir(1);
    mesa.poner("txtDias_1", "15");
    mesa.poner("txtInteres_1", "1000000");
    mesa.generar();
    EXPECT_EQ(mesa.vistas().size(), 1);
    EXPECT_EQ(mesa.pagos(), 1);
    EXPECT_EQ(mesa.fines, 0);
}
