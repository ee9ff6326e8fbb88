// "Aceptar": the checks in their order with their page, box and focus, the save, and what can go wrong in it.
#include "mesa_empleados.h"
#include "platform/data/error_de_ejecucion.h"
#include "roster/screens/empleados.h"
#include "roster/screens/grilla_familiar.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <gtest/gtest.h>

namespace
{
const QString tituloIncompletos = QStringLiteral("Datos Incompletos");
const QString familiaIncompleta =
    QStringLiteral("Los datos de los Familiares están incompletos.  Por favor, verifique los mismos.");

class GrabarEmpleados : public testing::Test
{
protected:
    void enNomina(const EmpleadoDePrueba& empleado) { agregar(mesa.conexion(), empleado); }
    void modificarUnoConFamilia()
    {
        EmpleadoDePrueba empleado;
        empleado.cuil = cuil;
        enNomina(empleado);
        mesa.conexion().ejecutar("INSERT INTO Empleados_Familiares VALUES (?, 1, 'Ana', 1, 1, 0, '1975-05-06')", cuil);
        mesa.abrir();
        mesa.pulsar("cmdEmpleado(1)");
    }
    /// Presses "Aceptar" from another page than `pagina`; a box comes, and the user is sent there.
    void esperaFalta(Caja clase, const QString& texto, const QString& titulo, int pagina, const char* foco)
    {
        SCOPED_TRACE(texto.toStdString());
        mesa.irAPagina(1);
        int paginaConLaCaja = -1;
        mesa.cajas.alVer([&](const DatosDeCaja&) { paginaConLaCaja = mesa.pagina(); });
        mesa.cajas.espera(clase, texto);
        mesa.pulsar("cmdEmpleado(3)");
        mesa.cajas.alVer({});
        EXPECT_EQ(titulo, mesa.cajas.vistas().back().titulo);
        EXPECT_EQ(pagina, paginaConLaCaja);
        EXPECT_EQ(pagina, mesa.pagina());
        EXPECT_EQ(QString::fromLatin1(foco), mesa.foco());
        EXPECT_TRUE(mesa.activo("FraEmpleado(0)"));
        EXPECT_EQ(0, mesa.contar("DDJJ_Empleados"));
    }
    void elegir(const char* lista, int posicion) { mesa.control<QComboBox>(lista).setCurrentIndex(posicion); }
    void familiar(int fila, const QStringList& celdas)
    {
        for (int i = 0; i < celdas.size(); ++i)
        {
            mesa.familia().setValor(i + 1, fila, celdas[i].isEmpty() ? QVariant() : QVariant(celdas[i]));
        }
    }

    MesaEmpleados mesa;
    const QString cuil = cuilDe(12345678);
};

TEST_F(GrabarEmpleados, RevisaEnOrdenYLlevaALoQueFalta)
{
    const qint64 sucursal = agregar(mesa.conexion(), SucursalDePrueba());
    mesa.fugaces.registrar(QStringLiteral("BuscarSucursal"),
                           [&] { Rutinas::SucursalElegida = static_cast<qint32>(sucursal); });
    mesa.abrir();
    mesa.pulsar("cmdEmpleado(0)");

    esperaFalta(Caja::Informacion, QStringLiteral("Debe informar el Nro. de Cuil del Empleado."), tituloIncompletos, 0,
                "MaskCuil_0");
    mesa.teclear(QString(cuil).remove(QLatin1Char('-')) + QLatin1Char('\n'));
    esperaFalta(Caja::Informacion, QStringLiteral("Debe informar el Apellido y Nombre del Empleado."),
                tituloIncompletos, 0, "txtAyN_0");
    mesa.teclear(QStringLiteral("Perez\n"));
    mesa.escribir("txtDocumento", QString());
    esperaFalta(Caja::Informacion, QStringLiteral("Debe informar el Tipo de Documento del Empleado."),
                tituloIncompletos, 0, "cmbDocumento");
    mesa.teclear(QStringLiteral("d\n"));
    esperaFalta(Caja::Informacion, QStringLiteral("Debe informar el Número de Documento del Empleado."),
                tituloIncompletos, 0, "txtDocumento");
    EXPECT_EQ(QString(), mesa.texto("txtNumero"));
    mesa.teclear(QStringLiteral("12345678\n"));

    const QString jornada =
        QStringLiteral("Debe informar la Cantidad de Horas Mensuales de la Jornada Laboral que realiza el Empleado.");
    for (const char* horas : {"99", "201", "0"})
    {
        mesa.irAPagina(2);
        mesa.escribir("cmbQHoras", QString::fromLatin1(horas));
        esperaFalta(Caja::Informacion, jornada, tituloIncompletos, 2, "cmbQHoras");
        EXPECT_EQ(QStringLiteral("200"), mesa.texto("cmbQHoras"));
    }
    EXPECT_EQ(QStringLiteral("0"), mesa.texto("txtNumero"));
    EXPECT_EQ(QString(), mesa.texto("txtImporte(1)"));
    esperaFalta(Caja::Exclamacion,
                QStringLiteral("Debe seleccionar la Sucursal correspondiente donde trabaja el Empleado."),
                QString::fromLatin1(tituloPorDefecto), 2, "cmdSucursal");
    EXPECT_EQ((QStringList{"0", "0"}), mesa.textos({"txtImporte(1)", "txtImporte(2)"}));
    mesa.tecla(Qt::Key_Return);
    mesa.pulsar("cmdEmpleado(3)");

    EXPECT_EQ(QString(), mesa.titulo());
    EXPECT_FALSE(mesa.activo("FraEmpleado(0)"));
    EXPECT_EQ(QString::number(sucursal), mesa.guardado("Sucursal", cuil));
    EXPECT_EQ(cuil, mesa.texto("MaskCuil(0)")); // what was typed is the record shown
    EXPECT_EQ((QStringList{"0,00", "0,00", "0,00", "0,00"}),
              mesa.textos({"lblRemTotal", "txtImporte(3)", "txtImporte(4)", "txtImporte(5)"}));
}

TEST_F(GrabarEmpleados, UnCuilQueOtroPuestoCargoMientrasTanto)
{
    mesa.abrir();
    mesa.pulsar("cmdEmpleado(0)");
    mesa.teclear(QString(cuil).remove(QLatin1Char('-')) + QStringLiteral("\nPerez\nd\n"));
    EmpleadoDePrueba otro;
    otro.cuil = cuil;
    otro.ayn = QStringLiteral("del otro puesto");
    enNomina(otro);
    mesa.cajas.espera(
        Caja::Critico,
        QStringLiteral("El Presente C.U.I.L. ya se encuentra ingresado en la Actual Declaración Jurada."));
    mesa.pulsar("cmdEmpleado(3)");
    EXPECT_EQ(QStringLiteral(" / INGRESO"), mesa.titulo());
    EXPECT_EQ(QStringLiteral("del otro puesto"), mesa.guardado("AyN", cuil));
}

TEST_F(GrabarEmpleados, UnEmpleadoQueOtroPuestoBorroMientrasSeModificaba)
{
    modificarUnoConFamilia();
    mesa.tecla(Qt::Key_End);
    mesa.teclear(QStringLiteral(" cambiado"));
    mesa.familia().borrarFila(1);
    mesa.conexion().ejecutar("DELETE FROM DDJJ_Empleados");

    mesa.cajas.espera(Caja::Simple, QStringLiteral("3021 El Empleado ya no está en la Declaración Jurada: fue "
                                                   "eliminado desde otro puesto."));
    mesa.pulsar("cmdEmpleado(3)");
    EXPECT_EQ(QStringLiteral(" / MODIFICACION"), mesa.titulo());
    EXPECT_EQ(QStringLiteral("Pérez Juan cambiado"), mesa.texto("txtAyN(0)"));
    EXPECT_EQ(1, mesa.contar("Empleados_Familiares"));
    EXPECT_EQ(0, mesa.contar("DDJJ_Empleados"));
}

TEST_F(GrabarEmpleados, UnaBaseOcupadaSeDiceYNoPierdeLoEscrito)
{
    modificarUnoConFamilia();
    mesa.teclear(QStringLiteral("X"));
    mesa.conexion().ejecutar("CREATE TRIGGER t BEFORE UPDATE ON DDJJ_Empleados BEGIN SELECT RAISE(ABORT, 'roto'); END");
    mesa.cajas.esperaQueDiga(Caja::Simple, QStringLiteral("roto"));
    mesa.pulsar("cmdEmpleado(3)");
    const DatosDeCaja& caja = mesa.cajas.vistas().back();
    EXPECT_EQ(QString::fromLatin1(tituloPorDefecto), caja.titulo);
    EXPECT_TRUE(caja.texto.section(QLatin1Char(' '), 0, 0).toInt() > 0) << caja.texto.toStdString();
    EXPECT_EQ(QStringLiteral(" / MODIFICACION"), mesa.titulo());

    mesa.conexion().ejecutar("DROP TRIGGER t");
    mesa.pulsar("cmdEmpleado(3)");
    EXPECT_EQ(QStringLiteral("XPérez Juan"), mesa.guardado("AyN", cuil));
}

TEST_F(GrabarEmpleados, UnCodigoFueraDeCatalogoSeGuardaNuloYElDocumentoLoImpide)
{
    EmpleadoDePrueba empleado;
    empleado.cuil = cuil;
    empleado.provincia = 99;
    empleado.estCivil = 99;
    empleado.categoria = 99;
    empleado.tipoDoc = 99;
    enNomina(empleado);
    mesa.abrir();
    mesa.pulsar("cmdEmpleado(1)");
    mesa.cajas.espera(Caja::Informacion, QStringLiteral("Debe informar el Tipo de Documento del Empleado."));
    mesa.pulsar("cmdEmpleado(3)");
    mesa.teclear(QStringLiteral("d"));
    mesa.pulsar("cmdEmpleado(3)");
    for (const char* columna : {"Provincia", "EstCivil", "Categoria"})
    {
        EXPECT_EQ(QString(), mesa.guardado(columna, cuil)) << columna;
    }
    EXPECT_EQ(QStringLiteral("1"), mesa.guardado("TipoDoc", cuil));
}

TEST_F(GrabarEmpleados, ModificarSinTocarNadaNoCambiaSinoLoPrevisto)
{
    // Longer than the fields let type, in another century, under hours of the bulk rule.
    EmpleadoDePrueba empleado;
    empleado.cuil = cuil;
    empleado.ayn = QStringLiteral("x").repeated(60);
    empleado.nroDoc = 1234567890;
    empleado.nacio = QDate(1925, 12, 31);
    empleado.imponible = Moneda::deTexto(QStringLiteral("12345678,95"));
    empleado.acuerdo = Moneda::deTexto(QStringLiteral("1,10"));
    empleado.acuerdo2 = Moneda::deTexto(QStringLiteral("2,20"));
    empleado.familiares = 4;
    enNomina(empleado);
    mesa.conexion().ejecutar("INSERT INTO Empleados_Familiares VALUES (?, 1, 'Ana', 1, 1, 0, '1925-05-06')", cuil);
    mesa.conexion().ejecutar("INSERT INTO Empleados_Familiares VALUES (?, 99, 'oculta', 1, 1, 0, '1925-05-06')", cuil);
    mesa.abrir();
    mesa.pulsar("cmdEmpleado(1)");
    for (int i = 0; i < 26; ++i)
    {
        mesa.tecla(Qt::Key_Tab); // through all fields of all pages
    }
    mesa.pulsar("cmdEmpleado(3)");

    EXPECT_EQ(QString(), mesa.titulo());
    const std::pair<const char*, const char*> esperados[] = {
        {"NroDoc", "1234567890"}, {"Nacio", "1925-12-31"}, {"Imponible", "123456789500"}, {"Acuerdo", "33000"},
        {"Acuerdo2", "0"},        {"Familiares", "4"},     {"ART100", "2469136400"}};
    for (const auto& [columna, valor] : esperados)
    {
        EXPECT_EQ(QString::fromLatin1(valor), mesa.guardado(columna, cuil)) << columna;
    }
    EXPECT_EQ(empleado.ayn, mesa.guardado("AyN", cuil));
    // The family keeps its dates; a row that its catalogue hides is lost.
    EXPECT_EQ(1, mesa.contar("Empleados_Familiares"));
    EXPECT_EQ(1, mesa.contar("Empleados_Familiares WHERE AyN = 'Ana' AND Nacio = '1925-05-06'"));
}

TEST_F(GrabarEmpleados, LaFamiliaIncompletaDeshaceTodo)
{
    modificarUnoConFamilia();
    mesa.teclear(QStringLiteral("X"));
    const QStringList completo = {QStringLiteral("Hijo"), QStringLiteral("DNI"),   QStringLiteral("12345678"),
                                  QStringLiteral("Luis"), QStringLiteral("Masc."), QStringLiteral("31/01/05")};
    for (const int falta : {0, 1, 3, 4, 5})
    {
        QStringList celdas = completo;
        celdas[falta].clear();
        familiar(2, celdas);
        mesa.irAPagina(0);
        mesa.cajas.espera(Caja::Exclamacion, familiaIncompleta);
        mesa.pulsar("cmdEmpleado(3)");
        EXPECT_EQ(1, mesa.pagina()) << falta;
        EXPECT_EQ(QStringLiteral(" / MODIFICACION"), mesa.titulo()) << falta;
        EXPECT_EQ(QStringLiteral("Pérez Juan"), mesa.guardado("AyN", cuil)) << falta;
        EXPECT_EQ(1, mesa.contar("Empleados_Familiares")) << falta;
    }
    // Without its number the word comes from the save itself.
    QStringList celdas = completo;
    celdas[2].clear();
    familiar(2, celdas);
    mesa.cajas.esperaQueDiga(Caja::Simple, QStringLiteral("13 "));
    mesa.pulsar("cmdEmpleado(3)");
    EXPECT_EQ(QStringLiteral("Pérez Juan"), mesa.guardado("AyN", cuil));

    familiar(2, completo);
    mesa.pulsar("cmdEmpleado(3)");
    EXPECT_EQ(QStringLiteral("XPérez Juan"), mesa.guardado("AyN", cuil));
    EXPECT_EQ(2, mesa.contar("Empleados_Familiares"));
    EXPECT_EQ(1, mesa.contar("Empleados_Familiares WHERE Nacio = '2005-01-31' AND Familiar = 2 AND Sexo = 1"));
}

TEST_F(GrabarEmpleados, LaFamiliaEsDeLaPersonaYNoDeLaDeclaracion)
{
    mesa.conexion().ejecutar("INSERT INTO Empleados_Familiares VALUES (?, 1, 'Ana', 1, 1, 0, '1975-05-06')", cuil);
    mesa.abrir();
    mesa.pulsar("cmdEmpleado(0)");
    mesa.teclear(QString(cuil).remove(QLatin1Char('-')) + QStringLiteral("\nPerez\nd\n"));
    EXPECT_EQ((QStringList{QStringLiteral("|||||")}), mesa.familiares()); // a known CUIL is not looked up
    mesa.pulsar("cmdEmpleado(3)");
    EXPECT_EQ(0, mesa.contar("Empleados_Familiares"));
}

TEST_F(GrabarEmpleados, UnaCeldaQueSeEstaEditandoSeGuarda)
{
    mesa.abrir();
    mesa.pulsar("cmdEmpleado(0)");
    mesa.teclear(QString(cuil).remove(QLatin1Char('-')) + QStringLiteral("\nPerez\nd\n"));
    familiar(1, {QStringLiteral("Hijo"), QStringLiteral("DNI"), QStringLiteral("5"), QStringLiteral("Luis"),
                 QStringLiteral("Masc.")});
    mesa.irAPagina(1);
    mesa.familia().setFocus();
    mesa.familia().setFilaActual(1, GrillaFamiliar::Nacio);
    mesa.teclear(QStringLiteral("310105"));
    ASSERT_TRUE(mesa.familia().editando());
    mesa.pulsar("cmdEmpleado(3)");
    EXPECT_EQ(1, mesa.contar("Empleados_Familiares WHERE Nacio = '2005-01-31'"));
}
} // namespace
