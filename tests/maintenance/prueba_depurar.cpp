// The purge: what it deletes, and how the screen tells and forgets its limit.
#include "apoyo/entrada.h"
#include "apoyo/mesa.h"
#include "maintenance/depuracion.h"
#include "maintenance/screens/depurar.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"

#include <QComboBox>
#include <gtest/gtest.h>

namespace
{
const QString cuitB = QStringLiteral("30-87654321-5");
const QString primeraPregunta =
    QStringLiteral("Esta seguro de desea ELIMINAR las Declaraciones Juradas Seleccionadas?");
const QString segundaPregunta = QStringLiteral(
    "Se Eliminaran todos los datos relacionados con las Declaraciones Juradas Anteriores.  Es Correcto?");
const QString eliminadas = QStringLiteral("Las Declaraciones Juradas han sido Eliminadas.");

/// Company A "Alfa": 2009/03 (0), 2009/04 (0, 1, 2), 2009/05 (0); company B "Beta": 2009/02 and 2009/06. One employee
/// and one payment each.
class Depuracion : public testing::Test
{
protected:
    Depuracion()
    {
        Navegacion::instancia().registrar(QStringLiteral("Depurar"), [] { return new Depurar; });
        agregar(c, EmpresaDePrueba{.razon = QStringLiteral("Alfa")});
        agregar(c, EmpresaDePrueba{.cuit = cuitB, .razon = QStringLiteral("Beta")});
        declaracion(dePrueba::cuit, 3, 0);
        for (const int secuencia : {0, 1, 2})
        {
            declaracion(dePrueba::cuit, 4, secuencia);
        }
        declaracion(dePrueba::cuit, 5, 0);
        declaracion(cuitB, 2, 0);
        declaracion(cuitB, 6, 0);
        c.ejecutar("INSERT INTO Empleados_Familiares (CUIL, AyN) VALUES (?, 'Hija')", dePrueba::cuil);
    }
    void declaracion(const QString& cuit, int mes, int secuencia)
    {
        const QDate periodo(2009, mes, 1);
        agregar(c, DeclaracionDePrueba{cuit, periodo, secuencia});
        EmpleadoDePrueba e;
        e.cuit = cuit;
        e.periodo = periodo;
        e.secuencia = secuencia;
        agregar(c, e);
        c.ejecutar("INSERT INTO PAGOS (Cuit, Periodo, Secuencia) VALUES (?, ?, ?)", cuit, periodo, secuencia);
    }
    /// Months and sequences left of a company, of its declarations or, which must be the same, of its rosters.
    [[nodiscard]] QString quedan(const QString& cuit)
    {
        QStringList textos;
        for (const char* tabla : {"DDJJ", "DDJJ_Empleados"})
        {
            textos.append(c.consultar(std::string("SELECT group_concat(m, ' ') AS t FROM (SELECT strftime('%m', "
                                                  "Periodo) || '-' || Secuencia AS m FROM ") +
                                          tabla + " WHERE Cuit = ? ORDER BY Periodo, Secuencia)",
                                      cuit)
                              .primera()
                              .texto("t"));
        }
        EXPECT_EQ(textos[0], textos[1]);
        return textos[0];
    }
    [[nodiscard]] qint64 contar(const char* tabla)
    {
        return c.consultar(std::string("SELECT Count(*) AS n FROM ") + tabla).primera().entero("n");
    }
    static void elegir(const char* cuit)
    {
        Mesa::escribir("MaskCuit", cuit);
        Entrada::tecla(Qt::Key_Return);
    }
    void responder(bool primera, bool segunda)
    {
        cajas.esperaPregunta(primeraPregunta, primera);
        if (primera)
        {
            cajas.esperaPregunta(segundaPregunta, segunda);
        }
        if (primera && segunda)
        {
            cajas.espera(Caja::Exclamacion, eliminadas);
        }
        Mesa::pulsar("cmdEliminar");
    }

    Mesa mesa;
    CajasDePrueba& cajas = mesa.cajas;
    Conexion& c = mesa.conexion();
    const QString todoA = QStringLiteral("03-0 04-0 04-1 04-2 05-0");
    const QString todoB = QStringLiteral("02-0 06-0");
};
} // namespace

TEST_F(Depuracion, BorraHastaElMesConTodasSusSecuencias)
{
    depurarHasta(c, dePrueba::cuit, QDate(), {});
    EXPECT_EQ(todoA, quedan(dePrueba::cuit));
    depurarHasta(c, dePrueba::cuit, QDate(2009, 2, 1), {});
    EXPECT_EQ(todoA, quedan(dePrueba::cuit));
    depurarHasta(c, dePrueba::cuit, QDate(2009, 4, 1), {});
    EXPECT_EQ(QStringLiteral("05-0"), quedan(dePrueba::cuit));
    EXPECT_EQ(todoB, quedan(cuitB));
    EXPECT_EQ(7, contar("PAGOS"));
    EXPECT_EQ(2, contar("Empresas"));
    EXPECT_EQ(1, contar("Empleados_Familiares"));
}

TEST_F(Depuracion, UnaFallaDejaTodoComoEstaba)
{
    c.ejecutar("CREATE TRIGGER falla BEFORE DELETE ON DDJJ WHEN OLD.Secuencia = 2 BEGIN "
               "SELECT RAISE(ABORT, 'prueba'); END");
    EXPECT_THROW(depurarHasta(c, dePrueba::cuit, QDate(2009, 5, 1), {}), ErrorDeEjecucion);
    EXPECT_EQ(todoA, quedan(dePrueba::cuit));
}

TEST_F(Depuracion, LoAmarilloEsLoQueSeVa)
{
    Mesa::abrir("Depurar");
    EXPECT_EQ(QStringLiteral("B.R.I.V.O. Zona Sauce - Depuración de Declaraciones Juradas"), Mesa::titulo());
    cajas.espera(Caja::Informacion, QStringLiteral("Debe seleccionar primero la Empresa correspondiente."));
    Mesa::pulsar("cmdEliminar");
    EXPECT_EQ(QStringLiteral("cmbEmpresa"), Mesa::foco());
    elegir("30123456781");
    EXPECT_EQ(QStringLiteral("Alfa"), Mesa::texto("cmbEmpresa"));
    EXPECT_EQ((QStringList{QStringLiteral("2009/05"), QStringLiteral("2009/04"), QStringLiteral("2009/03")}),
              Mesa::filas("vsDDJJ"));
    cajas.espera(
        Caja::Informacion,
        QStringLiteral("Debe seleccionar primero la Declaración Jurada a Eliminar, haciendo un click en la misma."));
    Mesa::pulsar("cmdEliminar");

    Mesa::pulsarCelda("vsDDJJ", 1, 0);
    EXPECT_EQ(QList<int>(), Mesa::amarillas("vsDDJJ"));
    Mesa::pulsarCelda("vsDDJJ", 1, 1);
    EXPECT_EQ((QList<int>{1, 2, 3}), Mesa::amarillas("vsDDJJ"));
    Entrada::tecla(Qt::Key_Down);
    EXPECT_EQ((QList<int>{2, 3}), Mesa::amarillas("vsDDJJ"));
    Mesa::pulsarCelda("vsDDJJ", 1, 3);
    EXPECT_EQ(QList<int>{3}, Mesa::amarillas("vsDDJJ"));
    EXPECT_EQ(QStringLiteral("2009"), Mesa::texto("txtAnio"));
    EXPECT_EQ(QStringLiteral("3"), Mesa::texto("txtMes"));
    // What is typed has no effect.
    Mesa::escribir("txtMes", "5");
    EXPECT_EQ(QList<int>{3}, Mesa::amarillas("vsDDJJ"));

    responder(false, false);
    responder(true, false);
    EXPECT_EQ(todoA, quedan(dePrueba::cuit));
    responder(true, true);
    EXPECT_EQ(QStringLiteral("04-0 04-1 04-2 05-0"), quedan(dePrueba::cuit));
    EXPECT_EQ((QStringList{QStringLiteral("2009/05"), QStringLiteral("2009/04")}), Mesa::filas("vsDDJJ"));
    EXPECT_EQ(QString(), Mesa::texto("txtAnio"));
    EXPECT_EQ(QString(), Mesa::texto("txtMes"));

    Mesa::pulsarCelda("vsDDJJ", 1, 1);
    responder(true, true);
    EXPECT_EQ(QString(), quedan(dePrueba::cuit));
    EXPECT_EQ(0, Mesa::grilla("vsDDJJ").filas());
    EXPECT_EQ(todoB, quedan(cuitB));
    EXPECT_EQ(7, contar("PAGOS"));
}

TEST_F(Depuracion, ElLimiteSigueAlCambiarDeEmpresa)
{
    Mesa::abrir("Depurar");
    elegir("30123456781");
    Mesa::pulsarCelda("vsDDJJ", 1, 1);
    elegir("30876543215");
    EXPECT_EQ(QStringLiteral("2009"), Mesa::texto("txtAnio"));
    EXPECT_EQ(QList<int>(), Mesa::amarillas("vsDDJJ"));
    responder(true, true);
    EXPECT_EQ(QStringLiteral("06-0"), quedan(cuitB));
    EXPECT_EQ(todoA, quedan(dePrueba::cuit));
}

TEST_F(Depuracion, UnAnioTecleadoSinElegirNoBorraNada)
{
    Mesa::abrir("Depurar");
    elegir("30123456781");
    Mesa::escribir("txtAnio", "2010");
    responder(true, true);
    EXPECT_EQ(todoA, quedan(dePrueba::cuit));
}

TEST_F(Depuracion, UnCuitDesconocidoRetieneElFocoYElVacioVaciaLaLista)
{
    Mesa::abrir("Depurar");
    elegir("30123456781");
    Mesa::escribir("MaskCuit", "20123456786");
    cajas.espera(Caja::Critico, QStringLiteral("Verifique los datos de la Empresa.  El Nro. de CUIT no se encuentra en "
                                               "la Base de Empresas."));
    Entrada::tecla(Qt::Key_Tab);
    EXPECT_EQ(QStringLiteral("MaskCuit"), Mesa::foco());
    elegir("");
    EXPECT_EQ(-1, dynamic_cast<QComboBox&>(Mesa::control("cmbEmpresa")).currentIndex());
    EXPECT_EQ(0, Mesa::grilla("vsDDJJ").filas());
}

TEST_F(Depuracion, SinEmpresasAbreVaciaYConUnaSolaLaElige)
{
    c.ejecutar("DELETE FROM Empresas WHERE Cuit = ?", cuitB);
    Mesa::abrir("Depurar");
    EXPECT_EQ(3, Mesa::grilla("vsDDJJ").filas());
    Mesa::cerrar();
    c.ejecutar("DELETE FROM Empresas");
    cajas.espera(Caja::Exclamacion, QStringLiteral("Debe Ingresar primero la Empresa correspondiente."));
    Mesa::abrir("Depurar");
    EXPECT_NE(nullptr, Navegacion::instancia().abierta(QStringLiteral("Depurar")));
    EXPECT_EQ(0, Mesa::grilla("vsDDJJ").filas());
}
