// A declaration's life on the screen: entered, renumbered, cancelled, deleted; closing in the middle of it.
#include "apoyo/entrada.h"
#include "datos_ddjj.h"
#include "declarations/screens/ddjj.h"
#include "mesa_ddjj.h"
#include "platform/screens/grilla.h"

#include <QAction>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace
{
class CicloEnPantalla : public testing::Test
{
protected:
    CicloEnPantalla() { agregarEmpresa(c, cuitUno, QStringLiteral("Del Norte")); }
    [[nodiscard]] QStringList periodo() const
    {
        return {mesa.texto("txtAnio"), mesa.texto("txtMes"), mesa.texto("txtSecuencia")};
    }
    void ingresar(const char* anio, const char* mes)
    {
        mesa.pulsar("cmdNueva");
        mesa.escribir("txtAnio", anio);
        mesa.escribir("txtMes", mes);
        mesa.pulsar("cmdGrabar");
    }

    MesaDDJJ mesa;
    Conexion& c = mesa.conexion();
};

const std::initializer_list<const char*> mandos = {"fraEmpresa",    "fraDDJJ(0)",    "cmdNueva",      "cmdCopiar",
                                                   "cmdEliminar",   "cmdImportar",   "cmdNomina",     "cmdSueldos",
                                                   "fraDDJJ(1)",    "cmdGrabar",     "cmdCancelar",   "cmdBoletas(0)",
                                                   "cmdBoletas(1)", "cmdBoletas(2)", "cmdBoletas(3)", "cmdInformes(0)"};
const QStringList alRecorrer{
    QStringLiteral("fraEmpresa"),    QStringLiteral("fraDDJJ(0)"),    QStringLiteral("cmdNueva"),
    QStringLiteral("cmdCopiar"),     QStringLiteral("cmdEliminar"),   QStringLiteral("cmdImportar"),
    QStringLiteral("cmdNomina"),     QStringLiteral("cmdSueldos"),    QStringLiteral("cmdBoletas(0)"),
    QStringLiteral("cmdBoletas(1)"), QStringLiteral("cmdBoletas(2)"), QStringLiteral("cmdBoletas(3)"),
    QStringLiteral("cmdInformes(0)")};
const QStringList alIngresar{QStringLiteral("fraDDJJ(1)"), QStringLiteral("cmdGrabar"), QStringLiteral("cmdCancelar")};
const QString preguntaDeSalida = QStringLiteral("Esta seguro de desea Salir del Actual Formulario?");
} // namespace

TEST_F(CicloEnPantalla, NumeraYPropone)
{
    mesa.abrir();
    mesa.pagina(1);
    mesa.pulsar("cmdNueva");
    EXPECT_EQ((QStringList{QString(), QString(), QString()}), periodo()); // the company's first one
    EXPECT_EQ(0, mesa.control<QTabWidget>("SSTab1").currentIndex());
    EXPECT_EQ(QStringLiteral("txtAnio"), mesa.foco());
    EXPECT_EQ(alIngresar, mesa.habilitados(mandos));

    Entrada::escribir(QStringLiteral("x07")); // letters do not pass
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(QStringLiteral("2007"), mesa.texto("txtAnio"));
    EXPECT_EQ(QStringLiteral("txtMes"), mesa.foco());
    Entrada::escribir(QStringLiteral("05"));
    mesa.pulsar("cmdGrabar");
    EXPECT_EQ((QStringList{QStringLiteral("2007"), QStringLiteral("05"), QStringLiteral("0")}), periodo());
    EXPECT_EQ(QStringList{QStringLiteral("2007/05 0")}, mesa.filas());
    EXPECT_EQ(0, mesa.amarilla()); // the one to work on, yet not picked in the list
    EXPECT_EQ(QStringLiteral("Periodo: "), mesa.texto("fraPeriodo"));
    EXPECT_EQ(alRecorrer, mesa.habilitados(mandos));
    EXPECT_EQ(QDate(2009, 6, 3), c.consultar("SELECT Fecha FROM DDJJ").primera().fecha("Fecha"));

    mesa.pulsar("cmdNueva");
    EXPECT_EQ((QStringList{QStringLiteral("2007"), QStringLiteral("6"), QString()}), periodo());
    mesa.escribir("txtMes", "5");
    mesa.pulsar("cmdGrabar");
    EXPECT_EQ((QStringList{QStringLiteral("2007"), QStringLiteral("5"), QStringLiteral("1")}), periodo());
    EXPECT_EQ((QStringList{QStringLiteral("2007/05 1"), QStringLiteral("2007/05 0")}), mesa.filas());

    ingresar("2007", "12");
    mesa.pulsar("cmdNueva");
    EXPECT_EQ((QStringList{QStringLiteral("2008"), QStringLiteral("1"), QString()}), periodo());
}

TEST_F(CicloEnPantalla, RechazaYVuelveAlCampo)
{
    mesa.abrir();
    mesa.pulsar("cmdNueva");
    mesa.cajas.espera(Caja::Informacion,
                      QStringLiteral("Debe ingresar el Año correspondiente a la Declaración Jurada."));
    mesa.pulsar("cmdGrabar");
    EXPECT_EQ(QStringLiteral("txtAnio"), mesa.foco());
    mesa.cajas.espera(Caja::Exclamacion,
                      QStringLiteral("Por favor verifique el Año ingresado.  El mismo no es Válido."));
    mesa.escribir("txtAnio", "05");
    mesa.pulsar("cmdGrabar");
    EXPECT_EQ(QStringLiteral("2005"), mesa.texto("txtAnio"));
    mesa.escribir("txtAnio", "2006");
    mesa.cajas.espera(Caja::Informacion,
                      QStringLiteral("Debe ingresar el Mes correspondiente a la Declaración Jurada."));
    mesa.pulsar("cmdGrabar");
    EXPECT_EQ(QStringLiteral("txtMes"), mesa.foco());
    mesa.cajas.espera(Caja::Informacion, QStringLiteral("Verifique el Mes ingresado.  El mismo es incorrecto."));
    mesa.escribir("txtMes", "13");
    mesa.pulsar("cmdGrabar");
    EXPECT_EQ(QStringLiteral("txtMes"), mesa.foco());
    EXPECT_EQ(alIngresar, mesa.habilitados(mandos));
    EXPECT_EQ(0, contar(c, "DDJJ"));
}

TEST_F(CicloEnPantalla, ConElTecladoSolo)
{
    mesa.abrir();
    mesa.control<QWidget>("cmdNueva").setFocus();
    Entrada::tecla(Qt::Key_Space);
    Entrada::escribir(QStringLiteral("2007"));
    Entrada::tecla(Qt::Key_Return);
    Entrada::escribir(QStringLiteral("5"));
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(QStringLiteral("cmdGrabar"), mesa.foco());
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(QStringList{QStringLiteral("2007/05 0")}, mesa.filas());
    EXPECT_EQ(QStringLiteral("cmdNomina"), mesa.foco());
}

TEST_F(CicloEnPantalla, CancelarNoDejaNadaSeleccionado)
{
    agregarDeclaracion(c, {cuitUno, QDate(2009, 5, 1), 0});
    mesa.abrir();
    mesa.pulsarFila(1);
    mesa.pulsar("cmdNueva");
    mesa.pulsar("cmdCancelar");
    EXPECT_EQ((QStringList{QString(), QString(), QString()}), periodo());
    EXPECT_EQ(QStringList{QStringLiteral("2009/05 0")}, mesa.filas());
    EXPECT_EQ(0, mesa.amarilla());
    EXPECT_EQ(alRecorrer, mesa.habilitados(mandos));
    mesa.pulsarFila(1);
    EXPECT_EQ(1, mesa.amarilla());
}

TEST_F(CicloEnPantalla, EliminarPideDosVecesSi)
{
    const ClaveDDJJ clave{cuitUno, QDate(2009, 5, 1), 0};
    const QString primera = QStringLiteral("Esta seguro de desea ELIMINAR la Declaración Jurada Seleccionada?");
    const QString segunda =
        QStringLiteral("Se Eliminaran todos los datos relacionados con la Declaración Jurada Actual.  Es Correcto?");
    agregarDeclaracion(c, clave);
    agregarEmpleado(c, clave);
    mesa.abrir();
    mesa.cajas.espera(Caja::Informacion, QStringLiteral("Debe seleccionar primero la Declaración Jurada a Eliminar, "
                                                        "haciendo un click en la misma."));
    mesa.pulsar("cmdEliminar");

    mesa.pulsarFila(1);
    mesa.cajas.esperaPregunta(primera, false);
    mesa.pulsar("cmdEliminar");
    mesa.cajas.esperaPregunta(primera, true).esperaPregunta(segunda, false);
    mesa.pulsar("cmdEliminar");
    EXPECT_EQ(1, contar(c, "DDJJ"));
    EXPECT_EQ(1, contar(c, "DDJJ_Empleados"));
    EXPECT_EQ(1, mesa.amarilla());

    mesa.cajas.esperaPregunta(primera, true).esperaPregunta(segunda, true);
    mesa.cajas.espera(Caja::Exclamacion, QStringLiteral("La Declaración Jurada ha sido Eliminada."));
    mesa.pulsar("cmdEliminar");
    EXPECT_EQ(0, contar(c, "DDJJ"));
    EXPECT_EQ(0, contar(c, "DDJJ_Empleados"));
    EXPECT_EQ(QStringList(), mesa.filas());
    EXPECT_EQ((QStringList{QString(), QString(), QString()}), periodo());
}

TEST_F(CicloEnPantalla, SinEmpresaLosMandosLoDicen)
{
    agregarEmpresa(c, cuitDos, QStringLiteral("Del Sur"));
    mesa.abrir();
    for (const char* mando : {"cmdNueva", "cmdCopiar", "cmdEliminar", "cmdImportar"})
    {
        mesa.cajas.espera(Caja::Informacion, QStringLiteral("Debe seleccionar primero la Empresa correspondiente."));
        mesa.pulsar(mando);
        EXPECT_EQ(QStringLiteral("cmbEmpresa"), mesa.foco()) << mando;
    }
}

TEST_F(CicloEnPantalla, CerrarAlIngresarPregunta)
{
    mesa.abrir();
    mesa.pulsar("cmdNueva");
    mesa.escribir("txtAnio", "2007");
    mesa.cajas.esperaPregunta(preguntaDeSalida, false);
    EXPECT_FALSE(mesa.cerrar());
    EXPECT_EQ(QStringLiteral("2007"), mesa.texto("txtAnio"));

    mesa.cajas.esperaPregunta(preguntaDeSalida, false); // by the main window's close command
    mesa.menu->close();
    EXPECT_EQ(0, mesa.fines);
    EXPECT_NE(nullptr, MesaDDJJ::pantalla());

    mesa.menu->findChild<QAction*>(QStringLiteral("mnuSalir"))->trigger(); // asks nothing
    EXPECT_EQ(1, mesa.fines);

    mesa.cajas.esperaPregunta(preguntaDeSalida, true);
    EXPECT_TRUE(mesa.cerrar());
}

TEST_F(CicloEnPantalla, CerrarEnReposoNoPregunta)
{
    mesa.abrir();
    EXPECT_TRUE(mesa.cerrar());
}
