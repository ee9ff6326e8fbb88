// The bulk wage update: what is read, what is written, and what a failure leaves.
#include "apoyo/base_de_prueba.h"
#include "platform/data/error_de_ejecucion.h"
#include "roster/sueldos.h"

#include <gtest/gtest.h>

namespace
{
const QString ana = QStringLiteral("20-00000001-1");
const QString beto = QStringLiteral("20-00000002-1");

Moneda pesos(const char* texto)
{
    return Moneda::deTexto(QString::fromLatin1(texto));
}

class Sueldos : public testing::Test
{
protected:
    Sueldos()
    {
        agregar(c, EmpresaDePrueba());
        agregar(c, DeclaracionDePrueba());
    }
    void empleado(const QString& cuil, const char* imponible, const char* acuerdo = "0", const char* acuerdo2 = "0",
                  int horas = 200, bool afiliado = true)
    {
        EmpleadoDePrueba e;
        e.cuil = cuil;
        e.imponible = pesos(imponible);
        e.acuerdo = pesos(acuerdo);
        e.acuerdo2 = pesos(acuerdo2);
        e.qHoras = horas;
        e.afiliado = afiliado;
        agregar(c, e);
    }
    [[nodiscard]] std::vector<FilaSueldo> cargar() { return cargarSueldos(c, clave); }
    /// Stored amounts in plain form: Imponible, Acuerdo, Acuerdo2, ART100, ART101A, ART101B, Sueldo.
    [[nodiscard]] QString guardado(const QString& cuil)
    {
        const Recordset filas = c.consultar("SELECT * FROM DDJJ_Empleados WHERE Cuil = ?", cuil);
        QStringList textos;
        for (const char* columna : {"Imponible", "Acuerdo", "Acuerdo2", "ART100", "ART101A", "ART101B", "Sueldo"})
        {
            textos.append(filas.primera().moneda(columna).textoPlano());
        }
        return textos.join(QLatin1Char(' '));
    }
    /// The whole roster as it is stored.
    [[nodiscard]] QStringList todo()
    {
        QStringList filas;
        for (const Fila& fila : c.consultar("SELECT * FROM DDJJ_Empleados ORDER BY Cuit, Periodo, Secuencia, Cuil"))
        {
            QStringList celdas;
            for (int i = 0; i < fila.columnas(); ++i)
            {
                celdas.append(fila.texto(fila.nombre(i)));
            }
            filas.append(celdas.join(QLatin1Char('|')));
        }
        return filas;
    }
    /// Saves and tells the number of the error, 0 for none.
    int error(std::vector<FilaSueldo> filas)
    {
        try
        {
            (void)actualizarSueldos(c, clave, filas);
            return 0;
        }
        catch (const ErrorDeEjecucion& falla)
        {
            EXPECT_FALSE(c.enTransaccion());
            return falla.numero();
        }
    }

    const ClaveDDJJ clave{dePrueba::cuit, dePrueba::periodo, 0};
    BaseDePrueba base;
    Conexion& c = base.conexion();
};
} // namespace

TEST_F(Sueldos, LaNominaPorCuilConSuCategoriaYLosAcuerdosSumados)
{
    agregar(c, DeclaracionDePrueba{.secuencia = 1});
    EmpleadoDePrueba otra;
    otra.secuencia = 1;
    agregar(c, otra);
    empleado(beto, "1000", "100", "50,25");
    empleado(ana, "10,125"); // an even cent below the half
    c.ejecutar("INSERT OR REPLACE INTO Categorias (Codigo, Nombre) VALUES (1, 'Oficial')");
    c.ejecutar("UPDATE DDJJ_Empleados SET Categoria = 999 WHERE Cuil = ?", beto);
    const std::vector<FilaSueldo> filas = cargar();
    ASSERT_EQ(2U, filas.size());
    EXPECT_EQ(ana, filas[0].cuil);
    EXPECT_EQ(QStringLiteral("Oficial"), filas[0].categoria);
    EXPECT_EQ(pesos("10,12"), filas[0].sueldo);
    EXPECT_EQ(beto, filas[1].cuil);
    EXPECT_EQ(QString(), filas[1].categoria); // no such category
    EXPECT_EQ(pesos("150,25"), filas[1].acuerdo);
}

TEST_F(Sueldos, LoQueEscribeLaReglaEnLote)
{
    struct Caso
    {
        int horas;
        bool afiliado;
        const char* sueldo;
        const char* acuerdo;
        const char* queda; ///< Sueldo is the old total, 7
    };
    const Caso casos[] = {
        {200, true, "1000", "0", "1000 0 0 20 10 10 7"},
        {150, true, "1000", "0", "1000 0 0 15 7.5 7.5 7"},
        {100, true, "1000", "0", "1000 0 0 20 5 5 7"},
        {129, true, "1000", "0", "1000 0 0 12.8 6.4 6.4 7"}, // 0,645 to the even cent
        {128, true, "1000", "0", "1000 0 0 20 6.4 6.4 7"},
        {100, false, "1000", "0", "1000 0 0 20 0 0 7"},
        {200, true, "900", "100", "900 100 0 20 10 10 7"},
        {200, true, "0", "0", "0 0 0 0 0 0 7"},
        {0, true, "1000", "0", "1000 0 0 20 0 0 7"},
        // Seven digits, as a 32-bit float is written.
        {200, false, "1234567,89", "0", "1234568 0 0 24691.36 0 0 7"},
        {200, false, "9999999,99", "0", "10000000 0 0 200000 0 0 7"},
        {200, false, "0,01", "123456,78", "0.01 123456.8 0 2469.14 0 0 7"},
    };
    for (const Caso& caso : casos)
    {
        c.ejecutar("DELETE FROM DDJJ_Empleados");
        empleado(ana, "7", "0", "0", caso.horas, caso.afiliado);
        auto filas = cargar();
        filas[0].sueldo = pesos(caso.sueldo);
        filas[0].acuerdo = pesos(caso.acuerdo);
        EXPECT_EQ(1, actualizarSueldos(c, clave, filas));
        EXPECT_EQ(QString::fromLatin1(caso.queda), guardado(ana)) << caso.horas << ' ' << caso.sueldo;
        // What came back is what is stored: saving again writes nothing.
        EXPECT_EQ(0, actualizarSueldos(c, clave, filas));
    }
}

TEST_F(Sueldos, SoloSeEscribeLoCambiado)
{
    empleado(ana, "1000", "100", "50", 150); // its contributions, 20 and 10, were computed under another rule
    empleado(beto, "500", "100", "50");
    auto filas = cargar();
    EXPECT_EQ(0, actualizarSueldos(c, clave, filas));
    EXPECT_EQ(QStringLiteral("1000 100 50 20 10 10 1100"), guardado(ana));
    filas[1].acuerdo = pesos("150,01");
    EXPECT_EQ(1, actualizarSueldos(c, clave, filas));
    EXPECT_EQ(QStringLiteral("1000 100 50 20 10 10 1100"), guardado(ana));
    EXPECT_EQ(QStringLiteral("500 150.01 0 13 6.5 6.5 600"), guardado(beto));
}

TEST_F(Sueldos, OtrasDeclaracionesQuedanComoEstan)
{
    empleado(ana, "1000");
    EmpleadoDePrueba otra;
    otra.cuil = ana;
    otra.secuencia = 1;
    agregar(c, DeclaracionDePrueba{.secuencia = 1});
    agregar(c, otra);
    otra.secuencia = 0;
    otra.periodo = QDate(2009, 6, 1);
    agregar(c, DeclaracionDePrueba{.periodo = otra.periodo});
    agregar(c, otra);
    const QStringList antes = todo();
    auto filas = cargar();
    filas[0].sueldo = pesos("2000");
    EXPECT_EQ(1, actualizarSueldos(c, clave, filas));
    EXPECT_EQ(antes.mid(1), todo().mid(1));
    EXPECT_NE(antes.first(), todo().first());
}

TEST_F(Sueldos, UnaFallaNoEscribeNada)
{
    empleado(ana, "1000");
    empleado(beto, "1000");
    auto filas = cargar();
    filas[0].sueldo = pesos("2000");
    filas[1].sueldo = pesos("2000");
    c.ejecutar("UPDATE DDJJ_Empleados SET QHoras = NULL WHERE Cuil = ?", beto);
    QStringList antes = todo();
    EXPECT_EQ(ErrorDeEjecucion::UsoDeNull, error(filas));
    EXPECT_EQ(antes, todo());

    // Null hours of a row that has not changed are not looked at.
    auto soloAna = cargar();
    soloAna[0].sueldo = pesos("2000");
    EXPECT_EQ(0, error(soloAna));

    filas[0].sueldo = pesos("3000");
    c.ejecutar("DELETE FROM DDJJ_Empleados WHERE Cuil = ?", beto);
    antes = todo();
    EXPECT_EQ(ErrorDeEjecucion::SinRegistro, error(filas));
    EXPECT_EQ(antes, todo());
}

TEST(TextoActualizaciones, EnSingularYEnPlural)
{
    EXPECT_EQ(QStringLiteral("Se ha realizado 1 Actualización."), textoActualizaciones(1));
    EXPECT_EQ(QStringLiteral("Se han realizado 3 Actualizaciones."), textoActualizaciones(3));
}
