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
struct TotalesDeDDJJ : testing::Test
{
    BaseDePrueba base;
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

/// Pay, people and dependants of all and of the members, then the three contributions and their sum.
std::string plano(const SumasDDJJ& s)
{
    QStringList partes;
    for (const SumaDePersonal& suma : {s.todos, s.afiliados})
    {
        partes += suma.remuneracion.textoPlano() + QStringLiteral(" %1 %2").arg(suma.empleados).arg(suma.familiares);
    }
    for (const Moneda importe : {s.art100, s.art101a, s.art101b, s.aDepositar()})
    {
        partes += importe.textoPlano();
    }
    return partes.join(QLatin1Char('|')).toStdString();
}
} // namespace

TEST_F(TotalesDeDDJJ, SumaAfiliadosYNoAfiliados)
{
    poner("DDJJ_Empleados", {{"Secuencia", 1}, {"QHoras", 100}});
    EXPECT_EQ(QDate(2009, 6, 3), totales().fecha);
    EXPECT_FALSE(totales().sumas.has_value()); // nobody: no warning either
    EXPECT_EQ(0, totales().jornadaReducida);
    poner("DDJJ_Empleados", {{"Cuil", "20-00000003-1"},
                             {"Afiliado", false},
                             {"Imponible", "922337203685,4775"},
                             {"Acuerdo", "0,0001"},
                             {"ART100", "20,33"},
                             {"ART101A", "0"},
                             {"ART101B", "5"},
                             {"Familiares", 4}});
    EXPECT_EQ("922337203685.4776 1 4|0 0 0|20.33|0|5|25.33", plano(*totales().sumas));
    poner("DDJJ_Empleados", {{"Cuil", "20-00000001-1"},
                             {"Acuerdo", "100,5"},
                             {"Acuerdo2", "50,0001"},
                             {"ART100", "22,02"},
                             {"ART101A", "11,01"},
                             {"ART101B", "11,02"},
                             {"Familiares", 2}});
    poner("DDJJ_Empleados", {{"Imponible", "0,1"}, {"ART100", "0,1"}, {"ART101A", "0,2"}, {"ART101B", "0"}});
    EXPECT_EQ("922337204836.0777 3 6|1150.6001 2 2|42.45|11.21|16.02|69.68", plano(*totales().sumas));
}

TEST_F(TotalesDeDDJJ, CuentaUnaVezAQuienLeFaltaAlgo)
{
    int cuantos = 0;
    for (const char* falta : {"TipoDoc = 0", "NroDoc = 0", "Sexo = NULL", "Nacio = NULL", "EstCivil = 0",
                              "Categoria = 0", "Ingreso = NULL", "TipoDoc = 0, NroDoc = 0"})
    {
        const QString cuil = QStringLiteral("20-0000000%1-1").arg(++cuantos);
        poner("DDJJ_Empleados", {{"Cuil", cuil}});
        EXPECT_EQ(cuantos - 1, totales().incompletos) << falta;
        c.ejecutar(std::string("UPDATE DDJJ_Empleados SET ") + falta + " WHERE Cuil = ?", cuil);
        EXPECT_EQ(cuantos, totales().incompletos) << falta;
    }
    // What may be missing: address, branch, the day he left; and a null where only 0 counts.
    poner("DDJJ_Empleados", {{"Calle", nullptr}, {"Sucursal", nullptr}, {"Egreso", nullptr}, {"NroDoc", nullptr}});
    EXPECT_EQ(cuantos, totales().incompletos);
}

TEST_F(TotalesDeDDJJ, LaJornadaReducidaEsDelMesEntero)
{
    poner("DDJJ_Empleados", {{"Secuencia", 1}});
    poner("DDJJ_Empleados");
    for (const auto& [horas, cuentan] : {std::pair{"200", 0}, {"NULL", 0}, {"100", 1}, {"0", 1}, {"201", 1}})
    {
        c.ejecutar(std::string("UPDATE DDJJ_Empleados SET QHoras = ") + horas +
                   " WHERE Cuit = '30-12345678-1' AND Periodo = '2009-05-01' AND Secuencia = 0");
        EXPECT_EQ(cuentan, totales(original).jornadaReducida) << horas;
        EXPECT_EQ(cuentan, totales(rectificativa).jornadaReducida) << horas;
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
