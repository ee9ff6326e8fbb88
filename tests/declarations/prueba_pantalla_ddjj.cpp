// The declarations screen's frame: company, list, selection, totals, states and closing.
#include "apoyo/entrada.h"
#include "core/rutinas.h"
#include "datos_ddjj.h"
#include "declarations/screens/ddjj.h"
#include "mesa_ddjj.h"
#include "platform/data/servidor_ftp.h"
#include "platform/screens/campo_mascara.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace
{
const QDate mayo(2009, 5, 1);
const QDate abril(2009, 4, 1);
const QString norte = QStringLiteral("Del Norte D'Angelo");
const QString sur = QStringLiteral("Ñandú Sur");

/// Two companies; the first one with three declarations, of which 2009/05-0 has a roster.
class PantallaDDJJ : public testing::Test
{
protected:
    PantallaDDJJ()
    {
        agregarEmpresa(c, cuitUno, norte);
        agregarEmpresa(c, cuitDos, sur);
        for (const ClaveDDJJ& clave : {ClaveDDJJ{cuitUno, abril, 0}, original, ClaveDDJJ{cuitUno, mayo, 1}})
        {
            agregarDeclaracion(c, clave);
        }
        agregarEmpleado(c, original,
                        {.imponible = "1000", .acuerdo = "100", .art100 = "22", .art101a = "11", .familiares = 2});
        agregarEmpleado(c, original,
                        {.cuil = "27-00000002-1", .afiliado = false, .imponible = "0,5", .art100 = "0,01"});
    }
    void abrirConNorte()
    {
        mesa.abrir();
        mesa.elegirEmpresa(norte);
    }
    [[nodiscard]] QStringList periodo() const
    {
        return {mesa.texto("txtAnio"), mesa.texto("txtMes"), mesa.texto("txtSecuencia")};
    }

    const ClaveDDJJ original{cuitUno, mayo, 0};
    MesaDDJJ mesa;
    Conexion& c = mesa.conexion();
};

const QStringList nada{QString(), QString(), QString()};
} // namespace

TEST(PantallaDDJJSinEmpresas, LoDiceYNoQueda)
{
    MesaDDJJ mesa;
    mesa.cajas.espera(Caja::Exclamacion, QStringLiteral("Debe Ingresar primero la Empresa correspondiente."));
    mesa.abrir();
    EXPECT_EQ(nullptr, MesaDDJJ::pantalla());
}

TEST(PantallaDDJJConUna, LaEligeAlAbrirYNoSeleccionaNada)
{
    MesaDDJJ mesa;
    agregarEmpresa(mesa.conexion(), cuitUno, norte);
    agregarDeclaracion(mesa.conexion(), {cuitUno, mayo, 0});
    mesa.abrir();
    EXPECT_EQ(cuitUno, mesa.control<CampoMascara>("MaskCuit").text());
    EXPECT_EQ(QStringList{QStringLiteral("2009/05 0")}, mesa.filas());
    EXPECT_EQ(QString(), mesa.texto("txtAnio"));
    EXPECT_EQ(0, mesa.amarilla());
    EXPECT_EQ(0, mesa.control<QTabWidget>("SSTab1").currentIndex());
}

TEST_F(PantallaDDJJ, CuitYNombreSeSiguen)
{
    mesa.abrir();
    EXPECT_FALSE(mesa.control<QLabel>("lblIncompleto").isVisible());
    EXPECT_FALSE(mesa.control<QLabel>("lblJornada").isVisible());
    EXPECT_EQ(-1, mesa.control<QComboBox>("cmbEmpresa").currentIndex());
    mesa.escribir("MaskCuit", "30123456781");
    Entrada::tecla(Qt::Key_Tab);
    EXPECT_EQ(norte, mesa.control<QComboBox>("cmbEmpresa").currentText());
    EXPECT_EQ((QStringList{QStringLiteral("2009/05 1"), QStringLiteral("2009/05 0"), QStringLiteral("2009/04 0")}),
              mesa.filas());
    EXPECT_EQ(nada, periodo());

    mesa.elegirEmpresa(sur);
    EXPECT_EQ(cuitDos, mesa.control<CampoMascara>("MaskCuit").text());
    EXPECT_EQ(QStringList(), mesa.filas());

    mesa.elegirEmpresa(norte);
    mesa.pulsarFila(2);
    mesa.cajas.espera(Caja::Critico, QStringLiteral("Verifique los datos de la Empresa.  El Nro. de CUIT no se "
                                                    "encuentra en la Base de Empresas."));
    mesa.escribir("MaskCuit", "3099");
    Entrada::tecla(Qt::Key_Tab);
    EXPECT_EQ(QStringLiteral("MaskCuit"), mesa.foco());
    EXPECT_EQ(nada, periodo()); // what was selected is gone all the same

    Entrada::tecla(Qt::Key_Delete); // the refused text stands selected
    Entrada::tecla(Qt::Key_Tab);
    EXPECT_EQ(-1, mesa.control<QComboBox>("cmbEmpresa").currentIndex());
    EXPECT_EQ(QStringList(), mesa.filas());
}

TEST_F(PantallaDDJJ, SeleccionaConRatonYTeclado)
{
    abrirConNorte();
    mesa.pulsarFila(0);
    EXPECT_EQ(nada, periodo());
    EXPECT_EQ(0, mesa.amarilla());

    mesa.pulsarFila(3);
    EXPECT_EQ(3, mesa.amarilla());
    EXPECT_EQ((QStringList{QStringLiteral("2009"), QStringLiteral("4"), QStringLiteral("0")}), periodo());
    Entrada::tecla(Qt::Key_Up);
    EXPECT_EQ(2, mesa.amarilla());
    EXPECT_EQ(QStringLiteral("Periodo: 2009/05 - 0"), mesa.texto("fraPeriodo"));
    Entrada::tecla(Qt::Key_Up);
    EXPECT_EQ((QStringList{QStringLiteral("2009"), QStringLiteral("5"), QStringLiteral("1")}), periodo());
    mesa.pulsar("txtFecha"); // leaving the grid selects nothing else
    EXPECT_EQ(1, mesa.amarilla());
}

TEST_F(PantallaDDJJ, ElTecladoSoloTambienEligeLaPrimera)
{
    abrirConNorte();
    Entrada::tecla(Qt::Key_Tab);
    ASSERT_EQ(QStringLiteral("vsDDJJ"), mesa.foco());
    EXPECT_EQ(nada, periodo());
    Entrada::tecla(Qt::Key_Down);
    EXPECT_EQ(1, mesa.amarilla());
    Entrada::tecla(Qt::Key_Down);
    EXPECT_EQ(2, mesa.amarilla());
}

TEST_F(PantallaDDJJ, MuestraTotalesYAdvertencias)
{
    abrirConNorte();
    mesa.pulsarFila(2);
    struct Esperado
    {
        const char* control;
        const char* texto;
    };
    const Esperado completos[] = {
        {"txtFecha", "03/06/09"},        {"txtCantidad(0)", "2"},      {"txtCantidad(1)", "1"},
        {"txtCantidad(2)", "2"},         {"txtCantidad(3)", "2"},      {"txtImporte(0)", "$ 1.100,50"},
        {"txtImporte(1)", "$ 1.100,00"}, {"txtImporte(2)", "$ 22,01"}, {"txtImporte(3)", "$ 11,00"},
        {"txtImporte(4)", "$ 0,00"},     {"txtImporte(5)", "$ 33,01"},
    };
    for (const Esperado& uno : completos)
    {
        EXPECT_EQ(QString::fromUtf8(uno.texto), mesa.texto(uno.control)) << uno.control;
    }
    EXPECT_FALSE(mesa.control<QLabel>("lblIncompleto").isVisible());
    EXPECT_FALSE(mesa.control<QLabel>("lblJornada").isVisible());
    EXPECT_TRUE(MesaDDJJ::pantalla()->datosCompletos());

    c.ejecutar("UPDATE DDJJ_Empleados SET NroDoc = 0, QHoras = 100 WHERE Cuil = '27-00000002-1'");
    agregarEmpleado(c, {cuitUno, mayo, 1});
    mesa.pulsarFila(2);
    EXPECT_TRUE(mesa.control<QLabel>("lblIncompleto").isVisible());
    EXPECT_EQ(QStringLiteral("Datos Incompletos en 1 Empleados - Ver Nomina de Personal"), mesa.texto("lblIncompleto"));
    EXPECT_TRUE(mesa.control<QLabel>("lblJornada").isVisible());
    EXPECT_EQ(QStringLiteral("Recuerde que tiene Personal con Jornada Reducida"), mesa.texto("lblJornada"));
    EXPECT_FALSE(MesaDDJJ::pantalla()->datosCompletos());

    mesa.pulsarFila(1); // the other sequence of the month warns of the reduced day too
    EXPECT_FALSE(mesa.control<QLabel>("lblIncompleto").isVisible());
    EXPECT_TRUE(mesa.control<QLabel>("lblJornada").isVisible());

    mesa.pulsarFila(3); // no roster: everything stays empty
    for (const Esperado& uno : completos)
    {
        if (uno.texto != completos[0].texto)
        {
            EXPECT_EQ(QString(), mesa.texto(uno.control)) << uno.control;
        }
    }
    EXPECT_FALSE(mesa.control<QLabel>("lblJornada").isVisible());
    EXPECT_EQ(QStringLiteral("Periodo: 2009/04 - 0"), mesa.texto("fraPeriodo"));
}

TEST_F(PantallaDDJJ, LaSecuenciaDeTresCifrasSeVeEntera)
{
    agregarDeclaracion(c, {cuitUno, mayo, 10});
    agregarDeclaracion(c, {cuitUno, mayo, 100});
    abrirConNorte();
    mesa.pulsarFila(1);
    EXPECT_EQ(QStringLiteral("100"), mesa.texto("txtSecuencia"));
    mesa.cajas.esperaPregunta(QStringLiteral("Esta seguro de desea ELIMINAR la Declaración Jurada Seleccionada?"),
                              true);
    mesa.cajas.esperaPregunta(QStringLiteral("Se Eliminaran todos los datos relacionados con la Declaración Jurada "
                                             "Actual.  Es Correcto?"),
                              true);
    mesa.cajas.espera(Caja::Exclamacion, QStringLiteral("La Declaración Jurada ha sido Eliminada."));
    mesa.pulsar("cmdEliminar");
    EXPECT_EQ(QStringLiteral("2009/05 10"), mesa.filas().value(0));
}

TEST_F(PantallaDDJJ, ABoletaEmitidaPreguntaUnaVezYEnviaSiempre)
{
    abrirConNorte();
    mesa.pulsarFila(2);
    reemplazarServidorFtp(QStringLiteral("127.0.0.1:1")); // nobody listens: the file stays as the trace of the attempt
    const QString archivo = mesa.base.ruta(QStringLiteral("30-12345678-1 2009-05 00.txt"));
    for (const bool respuesta : {false, true})
    {
        Rutinas::BoletaEmitida = true;
        mesa.cajas.esperaPregunta(QStringLiteral("Debe enviar la Declaración Jurada correspondiente?"), respuesta);
        MesaDDJJ::pantalla()->activar();
        EXPECT_FALSE(Rutinas::BoletaEmitida);
        EXPECT_TRUE(QFile::remove(archivo));
        MesaDDJJ::pantalla()->activar();
        EXPECT_FALSE(QFile::exists(archivo));
    }
    reemplazarServidorFtp({});
}
