#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "core/vigencia.h"
#include "declarations/totales_ddjj.h"

#include <gtest/gtest.h>

namespace
{
const ClaveDDJJ original{dePrueba::cuit, dePrueba::periodo, 0};
const ClaveDDJJ rectificativa{dePrueba::cuit, dePrueba::periodo, 1};

/// A declaration and, around it, others that must not count.
struct TotalesDeDDJJ : ConBase
{
    Conexion& c = base.conexion();
    TotalesDeDDJJ()
    {
        poner("DDJJ");
        poner("DDJJ", {{"Secuencia", 1}, {"Fecha", "2009-07-04"}});
        poner("DDJJ_Empleados", {{"Periodo", "2009-04-01"}, {"QHoras", 100}, {"NroDoc", 0}});
        poner("DDJJ_Empleados", {{"Cuit", "30-87654321-5"}, {"QHoras", 100}, {"NroDoc", 0}});
    }
    [[nodiscard]] TotalesDDJJ totales(const ClaveDDJJ& clave = original) { return calcularTotales(c, clave); }
};

/// People and dependants of all and of the members; their pay, the three contributions and their sum.
std::string plano(const SumasDDJJ& s)
{
    auto texto = QString("%1 %2 %3 %4")
                     .arg(s.todos.empleados)
                     .arg(s.todos.familiares)
                     .arg(s.afiliados.empleados)
                     .arg(s.afiliados.familiares);
    for (const Moneda importe :
         {s.todos.remuneracion, s.afiliados.remuneracion, s.art100, s.art101a, s.art101b, s.aDepositar()})
    {
        texto += '|' + importe.textoPlano();
    }
    return texto.toStdString();
}
} // namespace

TEST_F(TotalesDeDDJJ, SumaAfiliadosYNoAfiliados)
{
    poner("DDJJ_Empleados", {{"Secuencia", 1}, {"QHoras", 100}});
    EXPECT_EQ(QDate(2009, 6, 3), totales().fecha);
    EXPECT_FALSE(totales().sumas.has_value()); // nobody: no warning either
    EXPECT_EQ(0, totales().jornadaReducida);
    const auto uno = [&](const char* valores)
    {
        c.ejecutar(
            std::string("INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, Afiliado, Imponible, Acuerdo, "
                        "Acuerdo2, ART100, ART101A, ART101B, Familiares) VALUES ('30-12345678-1', '2009-05-01', 0, ") +
            valores + ")");
    };
    uno("'20-3', 0, 9223372036854775, 1, 0, 203300, 0, 50000, 4");
    EXPECT_EQ("1 4 0 0|922337203685.4776|0|20.33|0|5|25.33", plano(*totales().sumas));
    uno("'20-1', 1, 10000000, 1005000, 500001, 220200, 110100, 110200, 2");
    uno("'20-2', 1, 1000, 0, 0, 1000, 2000, 0, 0");
    EXPECT_EQ("3 6 2 2|922337204836.0777|1150.6001|42.45|11.21|16.02|69.68", plano(*totales().sumas));
}

// Who lacks something is counted once; a reduced day is the whole month's.
TEST_F(TotalesDeDDJJ, CuentaLosDatosIncompletosYLasJornadasReducidas)
{
    poner("DDJJ_Empleados");
    poner("DDJJ_Empleados", {{"Secuencia", 1}});
    // How many, and the change of one person.
    for (const QString caso :
         {"10 TipoDoc = 0", "10 NroDoc = 0", "10 Sexo = NULL", "10 Nacio = NULL", "10 EstCivil = 0", "10 Categoria = 0",
          "10 Ingreso = NULL", "10 TipoDoc = 0, NroDoc = 0", "00 QHoras = NULL", "01 QHoras = 100", "01 QHoras = 0",
          "01 QHoras = 201", "00 Calle = NULL, Sucursal = NULL, Egreso = NULL, NroDoc = NULL"})
    {
        const Transaccion vuelveAtras(c);
        c.ejecutar("UPDATE DDJJ_Empleados SET " + caso.mid(3).toStdString() +
                   " WHERE Cuit = '30-12345678-1' AND Periodo = '2009-05-01' AND Secuencia = 0");
        const int reducidas = caso[1].digitValue();
        EXPECT_TRUE(totales().incompletos == caso[0].digitValue() && totales().jornadaReducida == reducidas)
            << qPrintable(caso);
        EXPECT_EQ(reducidas, totales(rectificativa).jornadaReducida) << qPrintable(caso);
    }
}

TEST_F(TotalesDeDDJJ, FallaConLoQueNoSePuedeSumar)
{
    poner("DDJJ_Empleados");
    const auto errorAlSumar = [&] { return numeroDe([&] { return totales(); }); };
    for (const char* columna : {"Imponible", "Familiares", "Acuerdo", "Acuerdo2", "ART100", "ART101A", "ART101B"})
    {
        c.ejecutar(std::string("UPDATE DDJJ_Empleados SET ") + columna + " = NULL");
        EXPECT_EQ(94, errorAlSumar()) << columna;
        c.ejecutar(std::string("UPDATE DDJJ_Empleados SET ") + columna + " = 0");
    }
    c.ejecutar("UPDATE DDJJ_Empleados SET Familiares = 32767");
    EXPECT_EQ(0, errorAlSumar());
    poner("DDJJ_Empleados", {{"Cuil", "20-00000009-1"}, {"Afiliado", false}, {"Familiares", 1}});
    EXPECT_EQ(6, errorAlSumar());
    c.ejecutar("DELETE FROM DDJJ"); // at another desk
    EXPECT_THROW((void)totales(), YaNoEsta);
}
