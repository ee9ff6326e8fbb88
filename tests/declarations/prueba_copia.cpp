// Copying a roster from another declaration: the rule, the dialog and the command.
#include "apoyo/entrada.h"
#include "apoyo/mesa.h"
#include "core/rutinas.h"
#include "datos_ddjj.h"
#include "declarations/copia_ddjj.h"
#include "declarations/screens/buscar_ddjj.h"
#include "mesa_ddjj.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"

#include <gtest/gtest.h>

namespace
{
const QDate abril(2009, 4, 1);
const QDate mayo(2009, 5, 1);
const QString copiar = QStringLiteral("Esta seguro que desea copiar desde la DDJJ seleccionada?");
const QString copiada = QStringLiteral("La Declaración Jurada se ha copiada con éxito.");

/// Source 2009/04: two people. Target 2009/05 - 1: one of its own. 2009/05 - 0 is empty.
class Copia : public testing::Test
{
protected:
    Copia()
    {
        Navegacion::instancia().registrar(QStringLiteral("BuscarDDJJ"), [] { return new BuscarDDJJ; });
        agregarEmpresa(c, cuitUno, QStringLiteral("Del Norte"));
        agregarEmpresa(c, cuitDos, QStringLiteral("Del Sur"));
        agregarDeclaracion(c, {cuitUno, abril, 0});
        agregarDeclaracion(c, {cuitUno, mayo, 0});
        agregarDeclaracion(c, destino);
        agregarEmpleado(c, {cuitUno, abril, 0},
                        {.cuil = "20-00000001-1",
                         .imponible = "1000",
                         .acuerdo = "100,5",
                         .acuerdo2 = "50,25",
                         .art100 = "23,01",
                         .familiares = 3});
        agregarEmpleado(c, {cuitUno, abril, 0}, {.cuil = "20-00000002-1", .afiliado = false, .horas = {}});
        c.ejecutar("UPDATE DDJJ_Empleados SET Egreso = '2009-04-20', Depto = 'B', Sucursal = 4 "
                   "WHERE Cuil = '20-00000001-1'");
        agregarEmpleado(c, destino, {.cuil = "20-00000009-1"});
    }
    /// A roster, each row with all its columns but the key's month and sequence.
    [[nodiscard]] QStringList nomina(const ClaveDDJJ& clave)
    {
        QStringList filas;
        for (const Fila& fila : c.consultar("SELECT * FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND "
                                            "Secuencia = ? ORDER BY Cuil",
                                            clave.cuit, clave.periodo, clave.secuencia))
        {
            QStringList celdas;
            for (int i = 0; i < fila.columnas(); ++i)
            {
                const QString columna = QString::fromUtf8(fila.nombre(i));
                if (columna != QStringLiteral("Periodo") && columna != QStringLiteral("Secuencia"))
                {
                    celdas.append(columna + QLatin1Char('=') +
                                  (fila.esNulo(fila.nombre(i)) ? QStringLiteral("Null") : fila.texto(fila.nombre(i))));
                }
            }
            filas.append(celdas.join(QLatin1Char(' ')));
        }
        return filas;
    }
    [[nodiscard]] QStringList cuiles()
    {
        QStringList todos;
        for (const QString& fila : nomina(destino))
        {
            todos.append(fila.section(QStringLiteral("Cuil="), 1).left(13));
        }
        return todos;
    }
    /// What the source's roster becomes.
    [[nodiscard]] QStringList copiaDe(const ClaveDDJJ& fuente)
    {
        QStringList filas = nomina(fuente);
        filas.replaceInStrings(QStringLiteral("Acuerdo=1005000 Acuerdo2=502500"),
                               QStringLiteral("Acuerdo=1507500 Acuerdo2=0"));
        filas.replaceInStrings(QStringLiteral("Familiares=3"), QStringLiteral("Familiares=0"));
        return filas;
    }
    void abrirYElegir()
    {
        mesa.abrir();
        mesa.elegirEmpresa(QStringLiteral("Del Norte"));
        mesa.pulsarFila(1);
    }
    /// Picks row `fila` in the dialog and accepts.
    static void aceptar(int fila)
    {
        Mesa::pulsarCelda("vsDDJJ", 1, fila);
        Mesa::pulsar("cmdAceptar");
    }

    const ClaveDDJJ destino{cuitUno, mayo, 1};
    MesaDDJJ mesa;
    Conexion& c = mesa.conexion();
};
} // namespace

TEST_F(Copia, SeOfrecenLasQueTienenGenteSalvoElDestino)
{
    agregarDeclaracion(c, {cuitDos, abril, 0});
    agregarEmpleado(c, {cuitDos, abril, 0});
    agregarDeclaracion(c, {cuitUno, QDate(2009, 6, 1), 0});
    agregarEmpleado(c, {cuitUno, QDate(2009, 6, 1), 0});
    agregarDeclaracion(c, {cuitUno, abril, 2});
    agregarEmpleado(c, {cuitUno, abril, 2});
    QStringList ofrecidas;
    for (const FuenteDeCopia& fuente : fuentesDeCopia(c, destino))
    {
        ofrecidas.append(fuente.periodo.toString(QStringLiteral("MM-")) + QString::number(fuente.secuencia));
    }
    EXPECT_EQ((QStringList{QStringLiteral("06-0"), QStringLiteral("04-2"), QStringLiteral("04-0")}), ofrecidas);
}

TEST_F(Copia, ReemplazaSumaLosAcuerdosYPierdeLosFamiliares)
{
    const QStringList fuente = nomina({cuitUno, abril, 0});
    const QStringList esperada = copiaDe({cuitUno, abril, 0});
    ASSERT_NE(fuente, esperada);
    copiarNomina(c, destino, {abril, 0});
    EXPECT_EQ(esperada, nomina(destino));
    EXPECT_EQ(fuente, nomina({cuitUno, abril, 0}));
}

TEST_F(Copia, UnaFallaEnMedioDejaElDestinoComoEstaba)
{
    const QStringList antes = nomina(destino);
    c.ejecutar("CREATE TRIGGER falla BEFORE INSERT ON DDJJ_Empleados WHEN NEW.Cuil = '20-00000002-1' BEGIN "
               "SELECT RAISE(ABORT, 'prueba'); END");
    EXPECT_THROW(copiarNomina(c, destino, {abril, 0}), ErrorDeEjecucion);
    EXPECT_FALSE(c.enTransaccion());
    EXPECT_EQ(antes, nomina(destino));
}

TEST_F(Copia, ElMandoCopiaYVuelveASumar)
{
    abrirYElegir();
    EXPECT_EQ(QStringLiteral("1"), mesa.texto("txtCantidad(0)"));
    mesa.cajas.espera(Caja::Informacion, QStringLiteral("Debe seleccionar el Periodo correspondiente."))
        .esperaPregunta(copiar, false);
    Mesa::enDialogo(
        "cmdCopiar",
        []
        {
            EXPECT_EQ(QStringLiteral("B.R.I.V.O. Zona Sauce - Busqueda de Declaraciones Juradas"), Mesa::titulo());
            EXPECT_EQ(QStringLiteral("Del Norte"), Mesa::texto("txtEmpresa"));
            EXPECT_EQ(cuitUno, Mesa::texto("txtCuit"));
            EXPECT_EQ(QStringLiteral("2009/05"), Mesa::texto("txtPeriodo_0"));
            EXPECT_EQ(QStringLiteral("1"), Mesa::texto("txtSecuencia_0"));
            EXPECT_EQ(QStringLiteral("Recuerde que la Declaración Jurada del Periodo: 2009/05 - 1  tiene Empleados "
                                     "ingresados.  Los mismos serán eliminados con la presente operación."),
                      Mesa::texto("lblRecuerde"));
            EXPECT_EQ(QStringList{QStringLiteral("2009/04|0")}, Mesa::filas("vsDDJJ"));
            EXPECT_EQ(QString(), Mesa::texto("txtPeriodo_1"));
            Mesa::pulsarCelda("vsDDJJ", 1, 0); // a header picks nothing
            Mesa::pulsar("cmdAceptar");
            Mesa::pulsarCelda("vsDDJJ", 1, 1);
            EXPECT_EQ(QList<int>{1}, Mesa::amarillas("vsDDJJ"));
            EXPECT_EQ(QStringLiteral("2009/04"), Mesa::texto("txtPeriodo_1"));
            EXPECT_EQ(QStringLiteral("0"), Mesa::texto("txtSecuencia_1"));
            Mesa::pulsar("cmdAceptar");
        });
    EXPECT_EQ(QStringList{QStringLiteral("20-00000009-1")}, cuiles());

    mesa.cajas.esperaPregunta(copiar, true).espera(Caja::Informacion, copiada);
    Mesa::enDialogo("cmdCopiar", [] { aceptar(1); });
    EXPECT_EQ(copiaDe({cuitUno, abril, 0}), nomina(destino));
    EXPECT_EQ(QStringLiteral("2"), mesa.texto("txtCantidad(0)"));
    EXPECT_EQ(QStringLiteral("$ 1.150,75"), mesa.texto("txtImporte(0)"));
}

TEST_F(Copia, LaRectificativaEmpiezaComoCopiaDeLaOriginal)
{
    agregarEmpleado(c, {cuitUno, mayo, 0}, {.cuil = "20-00000005-1"});
    c.ejecutar("DELETE FROM DDJJ_Empleados WHERE Secuencia = 1");
    abrirYElegir();
    mesa.cajas.esperaPregunta(copiar, true).espera(Caja::Informacion, copiada);
    Mesa::enDialogo(
        "cmdCopiar",
        []
        {
            EXPECT_EQ(QString(), Mesa::texto("lblRecuerde"));
            EXPECT_EQ((QStringList{QStringLiteral("2009/05|0"), QStringLiteral("2009/04|0")}), Mesa::filas("vsDDJJ"));
            aceptar(1);
        });
    EXPECT_EQ(QStringList{QStringLiteral("20-00000005-1")}, cuiles());
}

TEST_F(Copia, CancelarCallaYNoCambiaNada)
{
    abrirYElegir();
    const QStringList antes = nomina(destino);
    Mesa::enDialogo("cmdCopiar",
                    []
                    {
                        Mesa::pulsarCelda("vsDDJJ", 1, 1);
                        Mesa::pulsar("cmdCancelar");
                    });
    Mesa::enDialogo("cmdCopiar", [] { Entrada::tecla(Qt::Key_Escape); });
    EXPECT_EQ(antes, nomina(destino));
    EXPECT_EQ(mayo, Rutinas::PeriodoActual);
}

TEST_F(Copia, UnaFallaSeInformaYNoPierdeNada)
{
    abrirYElegir();
    const QStringList antes = nomina(destino);
    c.ejecutar("CREATE TRIGGER falla BEFORE INSERT ON DDJJ_Empleados BEGIN SELECT RAISE(ABORT, 'prueba'); END");
    mesa.cajas.esperaPregunta(copiar, true).esperaQueDiga(Caja::Critico, QStringLiteral("prueba"));
    Mesa::enDialogo("cmdCopiar", [] { aceptar(1); });
    EXPECT_EQ(1, mesa.fines); // no handler: the process ends with its report
    EXPECT_EQ(antes, nomina(destino));
}
