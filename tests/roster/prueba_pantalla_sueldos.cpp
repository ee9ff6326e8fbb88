// The wage grid, worked by mouse and keyboard.
#include "apoyo/entrada.h"
#include "apoyo/mesa.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"
#include "roster/screens/ddjj_sueldos.h"

#include <gtest/gtest.h>

namespace
{
const QString ana = QStringLiteral("20-00000001-1");
const QString beto = QStringLiteral("20-00000002-1");
const QString caro = QStringLiteral("20-00000003-1");
const QString actualizar = QStringLiteral("Esta seguro de desea ACTUALIZAR los Sueldos de los Empleados?");
const QString cancelar = QStringLiteral("Esta seguro de desea CANCELAR las Modificaciones Realizadas?");
const QString salir = QStringLiteral("Esta seguro de desea SALIR sin Actualizar las Modificaciones Efectuadas?");

class PantallaSueldos : public testing::Test
{
protected:
    PantallaSueldos()
    {
        Navegacion::instancia().registrar(QStringLiteral("DDJJ_Sueldos"), [] { return new DDJJ_Sueldos; });
        agregar(c, EmpresaDePrueba());
        agregar(c, DeclaracionDePrueba());
        EmpleadoDePrueba e;
        e.acuerdo = Moneda::deEntero(100);
        e.acuerdo2 = Moneda::deEntero(50);
        for (const QString& cuil : {ana, beto, caro})
        {
            e.cuil = cuil;
            agregar(c, e);
        }
        Rutinas::CuitActual = dePrueba::cuit;
        Rutinas::EmpresaActual = QStringLiteral("Panadería Ñandú");
        Rutinas::PeriodoActual = dePrueba::periodo;
        Rutinas::SecuenciaActual = 0;
    }
    static void abrir(const std::function<void()>& haz) { Mesa::abrirModal("DDJJ_Sueldos", haz); }
    static Grilla& sueldos() { return Mesa::grilla("vsSueldos"); }
    [[nodiscard]] QString imponible(const QString& cuil)
    {
        return c.consultar("SELECT Imponible FROM DDJJ_Empleados WHERE Cuil = ?", cuil)
            .primera()
            .moneda("Imponible")
            .textoPlano();
    }

    Mesa mesa;
    CajasDePrueba& cajas = mesa.cajas;
    Conexion& c = mesa.conexion();
};
} // namespace

TEST_F(PantallaSueldos, MuestraLaDeclaracionYSuNomina)
{
    abrir(
        []
        {
            EXPECT_EQ(QStringLiteral("B.R.I.V.O. Zona Sauce - Actualización de Sueldos"), Mesa::titulo());
            EXPECT_EQ(dePrueba::cuit, Mesa::texto("txtCuit"));
            EXPECT_EQ(QStringLiteral("Panadería Ñandú"), Mesa::texto("txtRazonSocial"));
            EXPECT_EQ(QStringLiteral("2009/05"), Mesa::texto("txtPeriodo"));
            EXPECT_EQ(QStringLiteral("0"), Mesa::texto("txtSecuencia"));
            EXPECT_EQ(3, sueldos().filas());
            EXPECT_EQ(QStringLiteral("1.000,00"), sueldos().texto(4, 1));
            EXPECT_EQ(QStringLiteral("150,00"), sueldos().texto(5, 1));
            EXPECT_EQ(QList<int>(), Mesa::amarillas("vsSueldos"));
            Mesa::pulsarCelda("vsSueldos", 4, 2);
            EXPECT_EQ(QList<int>{2}, Mesa::amarillas("vsSueldos"));
            Mesa::pulsarCelda("vsSueldos", 4, 3);
            EXPECT_EQ(QList<int>{3}, Mesa::amarillas("vsSueldos"));
            Mesa::pulsar("cmdCancelar"); // nothing was changed: no question, and the row stays yellow
            EXPECT_EQ(QList<int>{3}, Mesa::amarillas("vsSueldos"));
            Mesa::pulsar("cmdSalir");
        });
}

TEST_F(PantallaSueldos, GrabaLoCambiadoYLoMuestra)
{
    abrir(
        [&]
        {
            cajas.esperaPregunta(actualizar, false);
            Mesa::pulsar("cmdGrabar");
            cajas.esperaPregunta(actualizar, true)
                .espera(Caja::Informacion,
                        QStringLiteral("No se han actualizado los Datos por no modificarse ningún Registro."));
            Mesa::pulsar("cmdGrabar");

            // The cell at work is taken with the rest.
            Mesa::pulsarCelda("vsSueldos", 4, 1);
            Entrada::escribir(QStringLiteral("1234567,89"));
            EXPECT_TRUE(sueldos().editando());
            cajas.esperaPregunta(actualizar, true)
                .espera(Caja::Informacion, QStringLiteral("Se ha realizado 1 Actualización."));
            Mesa::pulsar("cmdGrabar");
            EXPECT_EQ(QStringLiteral("1234568"), imponible(ana));
            EXPECT_EQ(QStringLiteral("1.234.568,00"), sueldos().texto(4, 1));

            Mesa::celda("vsSueldos", 4, 1, "2000");
            Mesa::celda("vsSueldos", 5, 2, "150.5");
            Mesa::celda("vsSueldos", 4, 3, "0");
            cajas.esperaPregunta(actualizar, true)
                .espera(Caja::Informacion, QStringLiteral("Se han realizado 3 Actualizaciones."));
            Mesa::pulsar("cmdGrabar");
            EXPECT_EQ(QStringLiteral("0"), imponible(caro));
            EXPECT_EQ(QStringLiteral("150,50"), sueldos().texto(5, 2));

            // Typed again as it was: touched, but nothing to write.
            Mesa::celda("vsSueldos", 4, 1, "2000");
            cajas.esperaPregunta(actualizar, true)
                .espera(Caja::Informacion, QStringLiteral("Verifique las modificaciones realizadas.  No se ha "
                                                          "Actualizado ningún Registro."));
            Mesa::pulsar("cmdGrabar");
            Mesa::pulsar("cmdSalir"); // nothing is pending after a save
        });
}

TEST_F(PantallaSueldos, CancelarYSalirPreguntanSoloSiHayCambios)
{
    abrir(
        [&]
        {
            Mesa::celda("vsSueldos", 4, 2, "5");
            cajas.esperaPregunta(cancelar, false);
            Mesa::pulsar("cmdCancelar");
            EXPECT_EQ(QStringLiteral("5,00"), sueldos().texto(4, 2));
            cajas.esperaPregunta(salir, false);
            Mesa::pulsar("cmdSalir");
            cajas.esperaPregunta(cancelar, true);
            Mesa::pulsar("cmdCancelar");
            EXPECT_EQ(QStringLiteral("1.000,00"), sueldos().texto(4, 2));
            EXPECT_EQ(QList<int>(), Mesa::amarillas("vsSueldos"));
            Mesa::celda("vsSueldos", 4, 2, "6");
            cajas.esperaPregunta(salir, true);
            Mesa::pulsar("cmdSalir");
        });
    EXPECT_EQ(QStringLiteral("1000"), imponible(beto));
}

TEST_F(PantallaSueldos, UnaFallaDejaLoTecleadoYNadaEscrito)
{
    c.ejecutar("UPDATE DDJJ_Empleados SET QHoras = NULL WHERE Cuil = ?", beto);
    abrir(
        [&]
        {
            Mesa::celda("vsSueldos", 4, 1, "5");
            Mesa::celda("vsSueldos", 4, 2, "6");
            cajas.esperaPregunta(actualizar, true).esperaQueDiga(Caja::Simple, QStringLiteral("94 "));
            Mesa::pulsar("cmdGrabar");
            EXPECT_EQ(QStringLiteral("1000"), imponible(ana));
            EXPECT_EQ(QStringLiteral("6,00"), sueldos().texto(4, 2));
            cajas.esperaPregunta(salir, true); // the changes are still pending
            Mesa::pulsar("cmdSalir");
        });
}

TEST_F(PantallaSueldos, UnaNominaVaciaNoTieneQueActualizar)
{
    c.ejecutar("DELETE FROM DDJJ_Empleados");
    abrir(
        [&]
        {
            EXPECT_EQ(0, sueldos().filas());
            cajas.esperaPregunta(actualizar, true)
                .esperaQueDiga(Caja::Informacion, QStringLiteral("No se han actualizado"));
            Mesa::pulsar("cmdGrabar");
            Mesa::cerrar();
        });
}
