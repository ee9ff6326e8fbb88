// The slip screen: its three arrangements, the choice of the company, the fields.
#include "apoyo/entrada.h"
#include "boletas_de_prueba.h"
#include "mesa_boletas.h"
#include "platform/screens/fuentes.h"
#include "platform/screens/grilla.h"
#include "platform/screens/informe_vista.h"
#include "platform/screens/navegacion.h"
#include "slips/pagos.h"
#include "slips/screens/boletas.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <gtest/gtest.h>

using namespace dePrueba;

namespace
{
const QString otroCuit = QStringLiteral("30-87654321-5");
const QString noEsNumero = QStringLiteral("Verifique el Número ingresado.  El mismo es incorrecta");
const QString verifique = QStringLiteral(
    "Verifique los datos ingresados en la Rectificativa.  Los mismos no pueden ser menores al Original.");

struct PantallaBoletas : testing::Test
{
    MesaBoletas mesa;

    void empresa(const QString& cuit = dePrueba::cuit, const char* razon = "Panaderia D'Angelo")
    {
        agregar(mesa.conexion(), EmpresaDePrueba{.cuit = cuit, .razon = QString::fromLatin1(razon)});
    }
    /// A roster of one with these three contributions.
    void nomina(int secuencia, const char* art100, const char* art101A, const char* art101B)
    {
        EmpleadoDePrueba uno;
        uno.secuencia = secuencia;
        uno.art100 = pesos(art100);
        uno.art101A = pesos(art101A);
        uno.art101B = pesos(art101B);
        agregar(mesa.conexion(), uno);
    }
    [[nodiscard]] static QComboBox& lista() { return dynamic_cast<QComboBox&>(Mesa::control("cmbConcepto")); }
    [[nodiscard]] static QStringList entradas()
    {
        QStringList textos;
        for (int i = 0; i < lista().count(); ++i)
        {
            textos.append(lista().itemText(i));
        }
        return textos;
    }
};

const QStringList deDeclaracion{QStringLiteral("APORTES DEL PERIODO"), QStringLiteral("INTERESES DEL PERIODO")};
const QStringList deActas{QStringLiteral("PAGO DE ACTAS - C.O.L.U."),
                          QStringLiteral("PAGO DE ACTAS - SEGURO DE SEPELIO")};
} // namespace

TEST_F(PantallaBoletas, EachKindHasItsArrangement)
{
    empresa();
    nomina(0, "20,01", "10,02", "1010,03");
    const struct
    {
        const QStringList& entradas;
        int posicion;
        bool eligeTipo;
        const char* titulo; // of the frame of acts, that follows the list for every kind
    } casos[] = {
        {deDeclaracion, 0, false, "APORTES DEL PERIODO"},
        {deDeclaracion, 1, false, "INTERESES DEL PERIODO"},
        {deActas, -1, true, "Pago de Actas: "},
    };
    for (int tipo = 0; tipo < 3; ++tipo)
    {
        SCOPED_TRACE(tipo);
        const auto& caso = casos[tipo];
        mesa.abrir(tipo);
        EXPECT_EQ(mesa.pantalla()->windowTitle(), QStringLiteral("B.R.I.V.O. Zona Sauce - Generar Boletas de Pago"));
        EXPECT_EQ(entradas(), caso.entradas);
        EXPECT_EQ(lista().currentIndex(), caso.posicion);
        EXPECT_EQ(mesa.activo("cmbConcepto"), caso.eligeTipo);
        EXPECT_FALSE(mesa.activo("txtCuit"));
        EXPECT_TRUE(mesa.activo("cmdBoletas"));
        EXPECT_EQ(mesa.textos({"txtCuit", "txtRazon", "txtDomicilio", "MaskFecha"}),
                  QStringList({cuit, QStringLiteral("Panaderia D'Angelo"),
                               QStringLiteral("San Martín 123 - (1870) Avellaneda"), QStringLiteral("10/06/2009")}));
        EXPECT_EQ(mesa.marco("fraPeriodo_2"), QString::fromLatin1(caso.titulo));
        for (int marco = 0; marco < 3; ++marco)
        {
            EXPECT_EQ(mesa.visible(qPrintable(QStringLiteral("fraPeriodo_%1").arg(marco))), marco == tipo) << marco;
        }
        EXPECT_EQ(mesa.foco(), tipo < 2 ? QStringLiteral("MaskFecha") : QStringLiteral("cmbConcepto"));
        if (tipo < 2)
        {
            EXPECT_EQ(mesa.textos({"txtAnio_0", "txtMes_0", "txtSecuencia_0", "txtAnio_1", "txtMes_1"}),
                      QStringList({QStringLiteral("2009"), QStringLiteral("5"), QStringLiteral("0"),
                                   QStringLiteral("2009"), QStringLiteral("5")}));
        }
        mesa.cerrar();
    }
    mesa.abrir(0);
    EXPECT_EQ(mesa.textos({"txtArt100", "txtArt101A", "txtArt101B", "txtTotal_0"}),
              QStringList({QStringLiteral("20,01"), QStringLiteral("10,02"), QStringLiteral("1.010,03"),
                           QStringLiteral("1.040,06")}));
    EXPECT_FALSE(mesa.activo("txtTotal_0"));
    EXPECT_FALSE(mesa.activo("txtArt100"));
    EXPECT_TRUE(mesa.grilla("vsActas").isColumnHidden(4));
}

TEST_F(PantallaBoletas, TheWindowHasRoomForAnyKindAndFitsASmallScreen)
{
    empresa();
    nomina(0, "1", "1", "1");
    QSize tamano;
    for (int tipo = 0; tipo < 3; ++tipo)
    {
        mesa.abrir(tipo);
        QWidget* ventana = mesa.pantalla()->parentWidget();
        EXPECT_TRUE(tamano.isEmpty() || tamano == ventana->size()) << tipo;
        tamano = ventana->size();
        EXPECT_TRUE(mesa.menu->centralWidget()->rect().contains(ventana->geometry())) << tipo;
        EXPECT_GE(mesa.pantalla()->height(), mesa.pantalla()->minimumSizeHint().height()) << tipo;
        mesa.cerrar();
    }
}

TEST_F(PantallaBoletas, FromTheMenuWithoutACompanyItSaysSoAndCloses)
{
    mesa.cajas.espera(Caja::Exclamacion,
                      QStringLiteral("DEBE INGRESAR PRIMERO LOS DATOS DE LA EMPRESA CORRESPONDIENTE."));
    mesa.abrirDelMenu();
    EXPECT_EQ(mesa.pantalla(), nullptr);
}

TEST_F(PantallaBoletas, FromTheMenuTheOnlyCompanyIsTakenAndOneOfSeveralIsAskedFor)
{
    empresa();
    mesa.abrirDelMenu();
    EXPECT_EQ(mesa.texto("txtCuit"), cuit);
    EXPECT_EQ(Rutinas::CuitActual, cuit);
    mesa.cerrar();

    empresa(otroCuit, "Confiteria");
    mesa.enDialogo([&] { mesa.abrirDelMenu(); }, [] { Mesa::cerrar(); });
    EXPECT_EQ(mesa.pantalla(), nullptr) << "none chosen";

    mesa.enDialogo([&] { mesa.abrirDelMenu(); }, [] { Mesa::pulsarCelda("vsGrilla", 1, 1); });
    ASSERT_NE(mesa.pantalla(), nullptr);
    EXPECT_EQ(mesa.texto("txtRazon"), QStringLiteral("Confiteria"));
    EXPECT_TRUE(mesa.visible("fraPeriodo_2"));
}

TEST_F(PantallaBoletas, AnotherCompanyMayBeSearchedForAndTheListFollows)
{
    empresa();
    empresa(otroCuit, "Confiteria");
    Boleta pago = boletaDeActa();
    pago.cuit = otroCuit;
    registrarPago(mesa.conexion(), pago);
    mesa.abrir(2);
    mesa.elegirFondo(1);
    EXPECT_EQ(mesa.actas(), QStringList());
    mesa.enDialogo("cmdBuscar", [] { Mesa::cerrar(); });
    EXPECT_EQ(mesa.texto("txtCuit"), cuit) << "the same one again";
    mesa.enDialogo("cmdBuscar", [] { Mesa::pulsarCelda("vsGrilla", 1, 1); });
    EXPECT_EQ(mesa.texto("txtCuit"), otroCuit);
    EXPECT_EQ(mesa.actas(), QStringList({QStringLiteral("10/06/09|123456|3|1.100,25")}));
    EXPECT_EQ(lista().count(), 2) << "a dialog is no new activation";
}

TEST_F(PantallaBoletas, TypedInterestIsRoundedShownAndAdded)
{
    empresa();
    nomina(0, "20,01", "10,02", "10,03");
    mesa.abrir(0);
    const struct
    {
        const char* tecleado;
        const char* queda;
        const char* total;
    } casos[] = {
        {"1234,5", "$ 1.234,50", "$ 1.274,56"},
        {"0,005", "", "$ 40,06"},
        {"0,015", "$ 0,02", "$ 40,08"},
        {"", "", "$ 40,06"},
        {"12.5", "$ 12,50", "$ 52,56"},
        {"a1b2-3 ", "$ 123,00", "$ 163,06"},
        {"0", "", "$ 40,06"},
    };
    EXPECT_EQ(mesa.texto("txtTotal_0"), QStringLiteral("40,06")) << "without its sign until an interest is left";
    for (const auto& caso : casos)
    {
        mesa.poner("txtInteres_0", caso.tecleado);
        EXPECT_EQ(mesa.texto("txtInteres_0"), QString::fromLatin1(caso.queda)) << caso.tecleado;
        EXPECT_EQ(mesa.texto("txtTotal_0"), QString::fromLatin1(caso.total)) << caso.tecleado;
    }
}

TEST_F(PantallaBoletas, OnEntryAnAmountIsReadyToBeTypedOver)
{
    empresa();
    mesa.abrir(2);
    mesa.poner("txtImporte", "1234567,5");
    EXPECT_EQ(mesa.texto("txtImporte"), QStringLiteral("$ 1.234.567,50"));
    mesa.pulsar("txtImporte");
    EXPECT_EQ(mesa.texto("txtImporte"), QStringLiteral("1234567,50"));
    mesa.poner("txtImporte", "");
    EXPECT_EQ(mesa.texto("txtImporte"), QStringLiteral("$ 0,00")) << "an instalment of nothing shows";
    EXPECT_EQ(mesa.texto("txtTotal_2"), QStringLiteral("$ 0,00"));
    mesa.pulsar("txtImporte");
    EXPECT_EQ(mesa.texto("txtImporte"), QString());
    mesa.escribir("txtDias_2", "00");
    mesa.pulsar("txtActa");
    EXPECT_EQ(mesa.texto("txtDias_2"), QStringLiteral("00"));
    mesa.pulsar("txtDias_2");
    EXPECT_EQ(mesa.texto("txtDias_2"), QString());
    for (const auto& [campo, largo] :
         {std::pair("txtActa", 6), {"txtCuota", 2}, {"txtImporte", 10}, {"txtDias_2", 2}, {"txtInteres_2", 10}})
    {
        mesa.escribir(campo, "1234567890123");
        EXPECT_EQ(mesa.texto(campo).size(), largo) << campo;
    }
    mesa.escribir("txtActa", "1a.2,3");
    EXPECT_EQ(mesa.texto("txtActa"), QStringLiteral("123"));
}

TEST_F(PantallaBoletas, ADotGroupsThousandsOnlyWhenPasted)
{
    empresa();
    nomina(0, "0", "0", "0");
    mesa.abrir(1);
    QApplication::clipboard()->setText(QStringLiteral("1.234,5"));
    mesa.escribir("txtInteres_1", "");
    Entrada::tecla(Qt::Key_V, Qt::ControlModifier);
    Entrada::tecla(Qt::Key_Tab);
    EXPECT_EQ(mesa.textos({"txtInteres_1", "txtTotal_1"}),
              QStringList({QStringLiteral("$ 1.234,50"), QStringLiteral("$ 1.234,50")}));

    mesa.cajas.espera(Caja::Simple, noEsNumero);
    mesa.poner("txtInteres_1", "1.234,5");
    EXPECT_EQ(mesa.texto("txtInteres_1"), QStringLiteral("1,234,5")) << "typed, a dot is a comma";
    EXPECT_EQ(mesa.foco(), QStringLiteral("txtInteres_1"));
    EXPECT_EQ(dynamic_cast<QLineEdit&>(mesa.control("txtInteres_1")).selectedText(), QStringLiteral("1,234,5"));
    mesa.cajas.espera(Caja::Simple, noEsNumero);
    mesa.pulsar("cmdBoletas"); // swallowed: nothing is asked
    EXPECT_EQ(mesa.foco(), QStringLiteral("txtInteres_1"));
    mesa.poner("txtInteres_1", "1");
    EXPECT_EQ(mesa.texto("txtTotal_1"), QStringLiteral("$ 1,00"));
}

TEST_F(PantallaBoletas, TheDateIsCheckedOnLeavingAndMayBeEmpty)
{
    empresa();
    nomina(0, "1", "1", "1");
    mesa.abrir(0);
    mesa.cajas.espera(Caja::Critico, QStringLiteral("La Fecha ingresada es incorrecta"));
    mesa.poner("MaskFecha", "31022009");
    EXPECT_EQ(mesa.foco(), QStringLiteral("MaskFecha"));
    mesa.escribir("MaskFecha", "150709");
    Entrada::tecla(Qt::Key_Return); // as Tab
    EXPECT_EQ(mesa.texto("MaskFecha"), QStringLiteral("15/07/2009"));
    EXPECT_EQ(mesa.foco(), QStringLiteral("txtDias_0"));
    mesa.poner("MaskFecha", "");
    EXPECT_EQ(mesa.foco(), QStringLiteral("txtDias_0"));
}

TEST_F(PantallaBoletas, ARectificationBelowTheOriginalCannotBePaid)
{
    empresa();
    nomina(0, "20", "10", "10");
    nomina(1, "25", "10", "9");
    nomina(2, "20", "10", "10");
    mesa.cajas.espera(Caja::Informacion, verifique);
    mesa.abrir(0, 1);
    EXPECT_EQ(
        mesa.textos({"txtArt100", "txtArt101A", "txtArt101B", "txtTotal_0"}),
        QStringList({QStringLiteral("5,00"), QStringLiteral("0,00"), QStringLiteral("-1,00"), QStringLiteral("4,00")}));
    EXPECT_FALSE(mesa.activo("cmdBoletas"));
    Rutinas::SecuenciaActual = 2;
    mesa.irYVolver();
    EXPECT_FALSE(mesa.activo("cmdBoletas")) << "nothing enables it again";
    mesa.cerrar();

    mesa.abrir(0, 2);
    EXPECT_EQ(mesa.texto("txtTotal_0"), QStringLiteral("0,00"));
    mesa.cajas.esperaPregunta(QStringLiteral("Desea Generar la Boleta Correspondiente?"), true);
    mesa.cajas.espera(Caja::Informacion, QStringLiteral("Debe ingresar el Importe a Abonar."));
    mesa.pulsar("cmdBoletas");
    EXPECT_EQ(mesa.pagos(), 0);
    EXPECT_EQ(mesa.fines, 0);
}

TEST_F(PantallaBoletas, WithoutARosterOfTheOriginalTheActivationFails)
{
    empresa();
    nomina(1, "25", "10", "9");
    mesa.cajas.esperaQueDiga(Caja::Critico, QStringLiteral("94"));
    mesa.abrir(0, 1);
    EXPECT_EQ(mesa.fines, 1);
}

TEST_F(PantallaBoletas, EachActivationBeginsAnewWithoutEmptyingTheFields)
{
    empresa();
    nomina(0, "20", "10", "10");
    mesa.abrir(0);
    mesa.poner("txtDias_0", "15");
    mesa.poner("txtInteres_0", "100");
    mesa.poner("MaskFecha", "01072009");
    EXPECT_EQ(mesa.texto("txtTotal_0"), QStringLiteral("$ 140,00"));
    mesa.irYVolver();
    EXPECT_EQ(entradas(), deDeclaracion + deDeclaracion);
    EXPECT_EQ(mesa.textos({"cmbConcepto", "MaskFecha", "txtDias_0", "txtInteres_0", "txtTotal_0"}),
              QStringList({QStringLiteral("APORTES DEL PERIODO"), QStringLiteral("10/06/2009"), QStringLiteral("15"),
                           QStringLiteral("$ 100,00"), QStringLiteral("40,00")}))
        << "the interest shown counts no more";
    mesa.cerrar();

    mesa.abrir(1);
    mesa.poner("txtDias_1", "15");
    mesa.poner("txtInteres_1", "100");
    mesa.irYVolver();
    EXPECT_EQ(
        mesa.textos({"cmbConcepto", "txtInteres_1", "txtTotal_1"}),
        QStringList({QStringLiteral("INTERESES DEL PERIODO"), QStringLiteral("$ 100,00"), QStringLiteral("$ 100,00")}));
    mesa.cajas.esperaPregunta(QStringLiteral("Desea Generar la Boleta Correspondiente?"), true);
    mesa.cajas.espera(Caja::Informacion, QStringLiteral("Debe ingresar el Importe a Abonar."));
    mesa.pulsar("cmdBoletas");
    EXPECT_EQ(mesa.pagos(), 0);
}

TEST_F(PantallaBoletas, TheFundChosenOutlivesAnActivation)
{
    empresa();
    mesa.abrir(2);
    mesa.elegirFondo(1);
    EXPECT_EQ(mesa.marco("fraPeriodo_2"), QStringLiteral("PAGO DE ACTAS - SEGURO DE SEPELIO"));
    mesa.irYVolver();
    EXPECT_EQ(entradas(), deActas + deActas);
    EXPECT_EQ(lista().currentIndex(), 1);
}

TEST_F(PantallaBoletas, ItFollowsTheKindThatAnotherScreenSets)
{
    empresa();
    nomina(0, "20", "10", "10");
    mesa.abrir(2);
    Rutinas::ModoAbrir = 0;
    mesa.irYVolver();
    EXPECT_TRUE(mesa.visible("fraPeriodo_0"));
    EXPECT_FALSE(mesa.visible("fraPeriodo_2"));
    EXPECT_FALSE(mesa.activo("cmbConcepto"));
    EXPECT_EQ(entradas(), deActas + deDeclaracion);
    EXPECT_EQ(mesa.texto("txtTotal_0"), QStringLiteral("40,00"));
    mesa.cerrar();

    Boleta pago = boletaDeActa();
    pago.cuenta = 0;
    registrarPago(mesa.conexion(), pago);
    mesa.abrir(0);
    Rutinas::ModoAbrir = 2;
    mesa.irYVolver();
    EXPECT_FALSE(mesa.visible("fraPeriodo_0"));
    EXPECT_TRUE(mesa.visible("fraPeriodo_2"));
    EXPECT_FALSE(mesa.activo("cmbConcepto")) << "nothing enables it again";
    EXPECT_EQ(entradas(), deDeclaracion + deActas);
    EXPECT_EQ(mesa.texto("cmbConcepto"), QStringLiteral("APORTES DEL PERIODO"));
    EXPECT_EQ(mesa.marco("fraPeriodo_2"), QStringLiteral("APORTES DEL PERIODO"));
    EXPECT_EQ(mesa.actas(), QStringList({QStringLiteral("10/06/09|123456|3|1.100,25")}))
        << "the list's place is a fund";
}

TEST_F(PantallaBoletas, ACompanyThatIsGoneIsAnErrorOfTheProgram)
{
    mesa.cajas.esperaQueDiga(Caja::Critico, QStringLiteral("3021"));
    mesa.abrir(1);
    EXPECT_EQ(mesa.fines, 1);
}

TEST_F(PantallaBoletas, TheBarCodeFontLivesAsLongAsSomebodyNeedsIt)
{
    const QString fuente = QStringLiteral("pf interleaved 2 OF 5");
    empresa();
    EXPECT_FALSE(Boletas::IsFont(fuente));
    mesa.abrir(1);
    EXPECT_TRUE(Boletas::IsFont(fuente));
    mesa.poner("txtDias_1", "15");
    mesa.poner("txtInteres_1", "100");
    mesa.generar();
    ASSERT_EQ(mesa.vistas().size(), 1);
    mesa.cerrar();
    EXPECT_TRUE(Boletas::IsFont(fuente)) << "the preview draws its pages when they come into view";
    mesa.abrir(1); // finds the font installed, by the preview
    mesa.cerrarVistas();
    EXPECT_TRUE(Boletas::IsFont(fuente));
    mesa.cerrar();
    EXPECT_FALSE(Boletas::IsFont(fuente));
}
