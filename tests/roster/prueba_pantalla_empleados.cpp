// The employees' screen in its two modes: what it shows, the arrows, and the commands.
#include "mesa_empleados.h"
#include "platform/screens/navegacion.h"
#include "roster/screens/empleados.h"
#include "roster/screens/grilla_familiar.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace
{
const QString sinCuil = QStringLiteral("__-________-_");
const QString ultimo = QStringLiteral("Se encuentra posicionado en el Ultimo Registro.");
const QString primero = QStringLiteral("Se encuentra posicionado en el Primer Registro.");

const std::initializer_list<const char*> deIngreso = {"FraEmpleado(0)", "FraEmpleado(1)", "vsFamiliares",
                                                      "cmdEmpleado(3)", "cmdEmpleado(4)"};
const std::initializer_list<const char*> deRecorrido = {"cmdFlecha(0)",   "cmdFlecha(1)",   "cmdFlecha(2)",
                                                        "cmdFlecha(3)",   "cmdEmpleado(0)", "cmdEmpleado(1)",
                                                        "cmdEmpleado(2)", "cmdEmpleado(5)", "cmdEmpleado(9)"};

class PantallaEmpleados : public testing::Test
{
protected:
    void enNomina(int documento, const QString& ayn = QStringLiteral("Pérez Juan"))
    {
        EmpleadoDePrueba empleado;
        empleado.cuil = cuilDe(documento);
        empleado.ayn = ayn;
        agregar(mesa.conexion(), empleado);
    }
    void esperaModo(bool ingreso, const QString& cola)
    {
        for (const char* nombre : deIngreso)
        {
            EXPECT_EQ(ingreso, mesa.activo(nombre)) << nombre;
        }
        for (const char* nombre : deRecorrido)
        {
            EXPECT_EQ(!ingreso, mesa.activo(nombre)) << nombre;
        }
        EXPECT_EQ(cola, mesa.titulo());
    }
    void esperaVacia()
    {
        EXPECT_EQ((QStringList{sinCuil, sinCuil, sinCuil}), mesa.textos({"MaskCuil(0)", "MaskCuil(1)", "MaskCuil(2)"}));
        for (const char* nombre :
             {"txtAyN(0)",     "txtAyN(1)",     "txtAyN(2)",      "cmbDocumento",  "txtDocumento", "cmbSexo",
              "txtCalle",      "txtNumero",     "txtPiso",        "txtDepto",      "txtLocalidad", "txtCodPos",
              "cmbProvincia",  "txtTelefono",   "cmbEstadoCivil", "cmbCategoria",  "txtSucursal",  "txtImporte(1)",
              "txtImporte(2)", "txtImporte(3)", "txtImporte(4)",  "txtImporte(5)", "lblRemTotal"})
        {
            EXPECT_EQ(QString(), mesa.texto(nombre)) << nombre;
        }
        for (const char* nombre : {"MaskFecha(0)", "MaskFecha(1)", "MaskFecha(2)"})
        {
            EXPECT_EQ(QStringLiteral("__/__/____"), mesa.texto(nombre)) << nombre;
        }
        EXPECT_EQ(QStringLiteral("200"), mesa.texto("cmbQHoras"));
        EXPECT_TRUE(mesa.control<QCheckBox>("chkAfiliado(1)").isChecked());
        EXPECT_TRUE(mesa.control<QCheckBox>("chkAfiliado(2)").isChecked());
        EXPECT_EQ(0, mesa.familia().filas());
    }

    MesaEmpleados mesa;
};

TEST_F(PantallaEmpleados, UnaNominaVaciaAbreVaciaYSoloDejaAgregar)
{
    mesa.abrir();

    esperaModo(false, {});
    esperaVacia();
    EXPECT_EQ(0, mesa.pagina());
    EXPECT_EQ((QStringList{QStringLiteral("30-12345678-1"), QStringLiteral("Panadería Ñandú"),
                           QStringLiteral("2009/05"), QStringLiteral("0")}),
              mesa.textos({"txtCuit", "txtRazonSocial", "txtPeriodo", "txtSecuencia"}));
    for (const char* nombre : {"cmdEmpleado(1)", "cmdEmpleado(2)", "cmdFlecha(0)", "cmdFlecha(3)"})
    {
        mesa.pulsar(nombre); // nothing, and no message
        esperaModo(false, {});
    }
    mesa.cajas.espera(Caja::Informacion, ultimo).espera(Caja::Informacion, primero);
    mesa.pulsar("cmdFlecha(2)");
    mesa.pulsar("cmdFlecha(1)");
}

TEST_F(PantallaEmpleados, MuestraTodoLoGuardado)
{
    const qint64 sucursal = agregar(mesa.conexion(), SucursalDePrueba());
    mesa.conexion().ejecutar(
        "INSERT INTO DDJJ_Empleados VALUES (?, ?, 0, ?, 'O''Higgins Ana', 5, 123, 0, 'Calle \"9\"', 0, 'PB', 'A', "
        "'1870', 'Avellaneda', 2, '4201-5555', '1925-03-15', 2, 0, 99990000, 10005000, 22, '2001-02-03', NULL, ?, 150, "
        "266100, 0, 1200, 100000, 50000, 7)",
        dePrueba::cuit, dePrueba::periodo, dePrueba::cuil, sucursal);
    mesa.conexion().ejecutar("INSERT INTO Empleados_Familiares VALUES (?, 2, 'Luis', 1, 5, 1, '1929-12-31')",
                             dePrueba::cuil);
    mesa.abrir();

    EXPECT_EQ((QStringList{"20-12345678-6", "O'Higgins Ana", "Pasaporte", "123", "Femenino", "15/03/1925",
                           "Calle \"9\"", "0", "PB", "A", "Avellaneda", "1870", "4201-5555", "Casado/a"}),
              mesa.textos({"MaskCuil(0)", "txtAyN(0)", "cmbDocumento", "txtDocumento", "cmbSexo", "MaskFecha(0)",
                           "txtCalle", "txtNumero", "txtPiso", "txtDepto", "txtLocalidad", "txtCodPos", "txtTelefono",
                           "cmbEstadoCivil"}));
    EXPECT_EQ((QStringList{"20-12345678-6", "O'Higgins Ana", "20-12345678-6", "O'Higgins Ana"}),
              mesa.textos({"MaskCuil(1)", "txtAyN(1)", "MaskCuil(2)", "txtAyN(2)"}));
    EXPECT_NE(QString(), mesa.texto("cmbProvincia"));
    EXPECT_EQ((QStringList{"03/02/2001", "Maquinista de línea de embotellado", "150", "__/__/____",
                           "1 - Belgrano 45 - Avellaneda"}),
              mesa.textos({"MaskFecha(1)", "cmbCategoria", "cmbQHoras", "MaskFecha(2)", "txtSucursal"}));
    // Both agreement sums in one field; the total shown is theirs and the wage's, not the one stored; nothing is
    // computed anew although the member's contributions do not fit.
    EXPECT_EQ((QStringList{"1000,50", "15,00", "1015,50", "26,61", "0,00", "0,12"}),
              mesa.textos({"txtImporte(1)", "txtImporte(2)", "lblRemTotal", "txtImporte(3)", "txtImporte(4)",
                           "txtImporte(5)"}));
    EXPECT_FALSE(mesa.control<QCheckBox>("chkAfiliado(1)").isChecked());
    EXPECT_FALSE(mesa.control<QCheckBox>("chkAfiliado(2)").isChecked());
    EXPECT_EQ((QStringList{"Hijo|DNI|5|Luis|Masc.|31/12/1929"}), mesa.familiares());
    esperaModo(false, {});
}

TEST_F(PantallaEmpleados, LasFlechasRecorrenYAvisanEnLosExtremos)
{
    enNomina(11111111);
    enNomina(22222222);
    enNomina(33333333);
    mesa.abrir();
    const struct
    {
        const char* flecha;
        int documento;
        QString aviso;
    } pasos[] = {{"cmdFlecha(1)", 11111111, primero}, {"cmdFlecha(2)", 22222222, {}}, {"cmdFlecha(2)", 33333333, {}},
                 {"cmdFlecha(2)", 33333333, ultimo},  {"cmdFlecha(1)", 22222222, {}}, {"cmdFlecha(3)", 33333333, {}},
                 {"cmdFlecha(0)", 11111111, {}}};
    for (const auto& paso : pasos)
    {
        if (!paso.aviso.isEmpty())
        {
            mesa.cajas.espera(Caja::Informacion, paso.aviso);
        }
        mesa.pulsar(paso.flecha);
        EXPECT_EQ(cuilDe(paso.documento), mesa.texto("MaskCuil(0)")) << paso.flecha;
    }
    EXPECT_EQ(QStringLiteral("Posiciona en el Ultimo Registro"), mesa.control<QWidget>("cmdFlecha(3)").toolTip());
}

TEST_F(PantallaEmpleados, UnaSucursalBorradaSeAvisaEnCadaVisitaYSeVuelveAGuardar)
{
    EmpleadoDePrueba empleado;
    empleado.sucursal = 77;
    agregar(mesa.conexion(), empleado);
    const QString aviso = QStringLiteral("ERROR - SUCURSAL INEXISTENTE!!!");
    mesa.cajas.espera(Caja::Exclamacion, aviso).espera(Caja::Exclamacion, aviso);
    mesa.abrir();
    mesa.pulsar("cmdFlecha(0)");
    EXPECT_EQ(QString(), mesa.texto("txtSucursal"));

    mesa.pulsar("cmdEmpleado(1)");
    mesa.pulsar("cmdEmpleado(3)");
    EXPECT_EQ(QStringLiteral("77"), mesa.guardado("Sucursal", empleado.cuil));
}

TEST_F(PantallaEmpleados, AgregarVaciaYEmpiezaPorElCuil)
{
    enNomina(11111111);
    mesa.abrir();
    mesa.irAPagina(2);
    mesa.pulsar("cmdEmpleado(0)");

    esperaModo(true, QStringLiteral(" / INGRESO"));
    EXPECT_EQ(0, mesa.pagina());
    EXPECT_EQ(QStringLiteral("MaskCuil_0"), mesa.foco());
    EXPECT_EQ((QStringList{QStringLiteral("|||||")}), mesa.familiares());
    EXPECT_EQ(QString(), mesa.texto("txtImporte(3)"));
}

TEST_F(PantallaEmpleados, ModificarDejaElCuilFijoYUnRenglonLibre)
{
    mesa.conexion().ejecutar("INSERT INTO Empleados_Familiares VALUES (?, 2, 'Luis', 1, 5, 1, '1929-12-31')",
                             cuilDe(11111111));
    enNomina(11111111);
    mesa.abrir();
    mesa.pulsar("cmdEmpleado(1)");

    esperaModo(true, QStringLiteral(" / MODIFICACION"));
    EXPECT_FALSE(mesa.activo("MaskCuil(0)"));
    EXPECT_EQ(QStringLiteral("txtAyN_0"), mesa.foco());
    EXPECT_EQ((QStringList{QStringLiteral("Hijo|DNI|5|Luis|Masc.|31/12/1929"), QStringLiteral("|||||")}),
              mesa.familiares());

    // The next "Agregar" frees the CUIL.
    mesa.pulsar("cmdEmpleado(3)");
    EXPECT_FALSE(mesa.activo("MaskCuil(0)"));
    mesa.pulsar("cmdEmpleado(0)");
    EXPECT_TRUE(mesa.activo("MaskCuil(0)"));
}

TEST_F(PantallaEmpleados, ModificarNoMueveLaPaginaYLoQueSeEscribeEnElNombreSeVe)
{
    enNomina(11111111);
    mesa.abrir();
    mesa.irAPagina(2);
    mesa.pulsar("cmdEmpleado(1)");
    EXPECT_EQ(2, mesa.pagina());
    EXPECT_EQ(QStringLiteral("txtAyN_0"), mesa.foco());
    mesa.teclear(QStringLiteral("\n")); // Enter goes on with what the page shows
    EXPECT_EQ(2, mesa.pagina());
    EXPECT_EQ(QStringLiteral("MaskFecha_1"), mesa.foco());

    mesa.pulsar("cmdEmpleado(3)");
    mesa.pulsar("cmdEmpleado(1)");
    mesa.teclear(QStringLiteral("X"));
    EXPECT_EQ(0, mesa.pagina());
    EXPECT_EQ(QStringLiteral("XPérez Juan"), mesa.texto("txtAyN(0)"));
}

TEST_F(PantallaEmpleados, EliminarPreguntaYDejaLaPantallaVacia)
{
    enNomina(11111111);
    enNomina(22222222);
    mesa.abrir();
    const QString pregunta = QStringLiteral("Esta seguro de desea ELIMINAR este EMPLEADO?");
    mesa.cajas.esperaPregunta(pregunta, false);
    mesa.pulsar("cmdEmpleado(2)");
    EXPECT_EQ(2, mesa.contar("DDJJ_Empleados"));
    EXPECT_EQ(cuilDe(11111111), mesa.texto("MaskCuil(0)"));

    mesa.cajas.esperaPregunta(pregunta, true)
        .espera(Caja::Informacion, QStringLiteral("EL EMPLEADO HA SIDO ELIMINADO DE LA ACTUAL DECLARACION JURADA."));
    mesa.pulsar("cmdEmpleado(2)");
    esperaVacia();
    esperaModo(false, {});
    EXPECT_EQ(1, mesa.contar("DDJJ_Empleados"));
    mesa.pulsar("cmdEmpleado(2)"); // no employee is shown
    mesa.pulsar("cmdFlecha(0)");
    EXPECT_EQ(cuilDe(22222222), mesa.texto("MaskCuil(0)"));
}

TEST_F(PantallaEmpleados, CancelarVaciaYElTituloConservaSuCola)
{
    enNomina(11111111);
    mesa.abrir();
    mesa.pulsar("cmdEmpleado(1)");
    const QString pregunta = QStringLiteral("Esta seguro de desea Cancelar los Datos Ingresados?");
    mesa.cajas.esperaPregunta(pregunta, false);
    mesa.pulsar("cmdEmpleado(4)");
    esperaModo(true, QStringLiteral(" / MODIFICACION"));

    mesa.cajas.esperaPregunta(pregunta, true);
    mesa.pulsar("cmdEmpleado(4)");
    esperaModo(false, QStringLiteral(" / MODIFICACION"));
    esperaVacia();
    mesa.pulsar("cmdFlecha(3)");
    mesa.pulsar("cmdEmpleado(1)");
    mesa.pulsar("cmdEmpleado(3)");
    esperaModo(false, {});
}

TEST_F(PantallaEmpleados, BuscarTraeAlElegido)
{
    enNomina(11111111);
    enNomina(22222222);
    mesa.abrir();
    QString elegido = cuilDe(22222222);
    mesa.fugaces.registrar(QStringLiteral("BuscarEmpleado"),
                           [&]
                           {
                               EXPECT_EQ(QString(), Rutinas::CuilElegido);
                               Rutinas::CuilElegido = elegido;
                           });
    mesa.pulsar("cmdEmpleado(5)");
    EXPECT_EQ(cuilDe(22222222), mesa.texto("MaskCuil(0)"));
    EXPECT_EQ(QStringLiteral("Pérez Juan"), mesa.texto("txtAyN(2)"));

    elegido.clear(); // given up
    mesa.pulsar("cmdEmpleado(5)");
    EXPECT_EQ(cuilDe(22222222), mesa.texto("MaskCuil(0)"));

    elegido = cuilDe(33333333); // deleted by another desk meanwhile
    mesa.pulsar("cmdEmpleado(5)");
    esperaVacia();
}

TEST_F(PantallaEmpleados, SucursalMuestraLaElegida)
{
    const qint64 sucursal = agregar(mesa.conexion(), SucursalDePrueba());
    mesa.abrir();
    mesa.pulsar("cmdEmpleado(0)");
    mesa.irAPagina(2);
    qint32 elegida = static_cast<qint32>(sucursal);
    mesa.fugaces.registrar(QStringLiteral("BuscarSucursal"),
                           [&]
                           {
                               EXPECT_EQ(0, Rutinas::SucursalElegida);
                               EXPECT_EQ(dePrueba::cuit, Rutinas::CuitActual);
                               Rutinas::SucursalElegida = elegida;
                           });
    mesa.pulsar("cmdSucursal");
    EXPECT_EQ(QStringLiteral("1 - Belgrano 45 - Avellaneda"), mesa.texto("txtSucursal"));
    EXPECT_EQ(QStringLiteral("cmdSucursal"), mesa.foco());
    elegida = 0;
    mesa.pulsar("cmdSucursal");
    EXPECT_EQ(QStringLiteral("1 - Belgrano 45 - Avellaneda"), mesa.texto("txtSucursal"));

    elegida = 77; // deleted by another desk between its listing and the pick
    mesa.cajas.espera(Caja::Exclamacion, QStringLiteral("ERROR - SUCURSAL INEXISTENTE!!!"));
    mesa.pulsar("cmdSucursal");
    EXPECT_EQ(QString(), mesa.texto("txtSucursal"));
}

TEST_F(PantallaEmpleados, SalirCierraYEscapeNoPierdeLoIngresado)
{
    enNomina(11111111);
    mesa.abrir();
    mesa.pulsar("cmdEmpleado(1)");
    mesa.tecla(Qt::Key_Escape);
    EXPECT_TRUE(mesa.abierta());
    mesa.pulsar("cmdEmpleado(3)");
    mesa.pulsar("cmdEmpleado(9)");
    EXPECT_FALSE(mesa.abierta());
}

TEST_F(PantallaEmpleados, LasFechasSeVenConGuionesMientrasNoSeEditan)
{
    enNomina(11111111);
    mesa.abrir();
    mesa.irAPagina(2);
    auto& fecha = mesa.control<QLineEdit>("MaskFecha(1)");
    const auto pixeles = [&] { return fecha.grab().toImage(); };
    mesa.pulsar("cmdEmpleado(1)");
    const QImage conGuiones = pixeles();
    mesa.pulsar("MaskFecha(1)");
    mesa.pulsar("MaskFecha(2)");
    EXPECT_EQ(conGuiones, pixeles());
    QLineEdit comun(fecha.displayText().replace(QLatin1Char('/'), QLatin1Char('-')), fecha.parentWidget());
    comun.setGeometry(fecha.geometry());
    EXPECT_EQ(comun.grab().toImage(), conGuiones);
    EXPECT_EQ(QStringLiteral("01/02/2001"), mesa.texto("MaskFecha(1)"));
}
} // namespace
