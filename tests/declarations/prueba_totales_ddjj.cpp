#include "apoyo/base_de_prueba.h"
#include "datos_ddjj.h"
#include "declarations/totales_ddjj.h"
#include "platform/data/error_de_ejecucion.h"

#include <gtest/gtest.h>

namespace
{
const ClaveDDJJ original{cuitUno, QDate(2009, 5, 1), 0};
const ClaveDDJJ rectificativa{cuitUno, QDate(2009, 5, 1), 1};

/// A database with the declaration of the tests and, around it, others that must not count.
class TotalesDeDDJJ : public testing::Test
{
protected:
    TotalesDeDDJJ()
    {
        const ClaveDDJJ vecinas[] = {{cuitUno, QDate(2009, 4, 1), 0}, {cuitDos, QDate(2009, 5, 1), 0}};
        for (const ClaveDDJJ& vecina : vecinas)
        {
            agregarDeclaracion(c, vecina);
            agregarEmpleado(c, vecina, {.imponible = "9999,99", .art100 = "9", .familiares = 7, .horas = 100});
        }
        agregarDeclaracion(c, original, QDate(2009, 6, 3));
        agregarDeclaracion(c, rectificativa, QDate(2009, 7, 4));
    }
    [[nodiscard]] TotalesDDJJ totales(const ClaveDDJJ& clave = original) { return calcularTotales(c, clave); }

    BaseDePrueba base;
    Conexion& c = base.conexion();
};

std::string plano(Moneda importe)
{
    return importe.textoPlano().toStdString();
}

int errorAlSumar(Conexion& conexion)
{
    try
    {
        (void)calcularTotales(conexion, original);
    }
    catch (const ErrorDeEjecucion& error)
    {
        return error.numero();
    }
    return 0;
}
} // namespace

TEST_F(TotalesDeDDJJ, SinNominaNoHaySumasNiAdvertencias)
{
    agregarEmpleado(c, rectificativa, {.horas = 100});
    const TotalesDDJJ t = totales();
    EXPECT_EQ(QDate(2009, 6, 3), t.fecha);
    EXPECT_FALSE(t.sumas.has_value());
    EXPECT_EQ(0, t.jornadaReducida);
}

TEST_F(TotalesDeDDJJ, SumaAfiliadosYNoAfiliados)
{
    agregarEmpleado(c, original,
                    {.cuil = "20-00000001-1",
                     .imponible = "1000",
                     .acuerdo = "100,5",
                     .acuerdo2 = "50,0001",
                     .art100 = "22,02",
                     .art101a = "11,01",
                     .art101b = "11,02",
                     .familiares = 2});
    agregarEmpleado(c, original,
                    {.cuil = "20-00000002-1", .imponible = "0,1", .art100 = "0,1", .art101a = "0,2", .familiares = 1});
    agregarEmpleado(c, original,
                    {.cuil = "20-00000003-1",
                     .afiliado = false,
                     .imponible = "922337203685,4775",
                     .acuerdo = "0,0001",
                     .art100 = "20,33",
                     .art101b = "5",
                     .familiares = 4});
    const TotalesDDJJ t = totales();
    ASSERT_TRUE(t.sumas.has_value());
    const SumasDDJJ& s = *t.sumas;
    EXPECT_EQ("1150.6001", plano(s.afiliados.remuneracion));
    EXPECT_EQ(2, s.afiliados.empleados);
    EXPECT_EQ(3, s.afiliados.familiares);
    EXPECT_EQ("922337204836.0777", plano(s.todos.remuneracion));
    EXPECT_EQ(3, s.todos.empleados);
    EXPECT_EQ(7, s.todos.familiares);
    EXPECT_EQ("42.45", plano(s.art100));
    EXPECT_EQ("11.21", plano(s.art101a));
    EXPECT_EQ("16.02", plano(s.art101b));
    EXPECT_EQ("69.68", plano(s.aDepositar()));
    EXPECT_EQ(0, t.incompletos);
    EXPECT_EQ(0, t.jornadaReducida);
}

TEST_F(TotalesDeDDJJ, SoloNoAfiliadosDejaLosAfiliadosEnCero)
{
    agregarEmpleado(c, original, {.afiliado = false, .imponible = "500", .art100 = "10", .familiares = 1});
    const SumasDDJJ s = totales().sumas.value();
    EXPECT_EQ("0", plano(s.afiliados.remuneracion));
    EXPECT_EQ(0, s.afiliados.empleados);
    EXPECT_EQ(0, s.afiliados.familiares);
    EXPECT_EQ("500", plano(s.todos.remuneracion));
    EXPECT_EQ("10", plano(s.aDepositar()));
}

TEST_F(TotalesDeDDJJ, CuentaUnaVezAQuienLeFaltaAlgo)
{
    const char* const faltas[] = {"TipoDoc = 0",  "NroDoc = 0",    "Sexo = NULL",    "Nacio = NULL",
                                  "EstCivil = 0", "Categoria = 0", "Ingreso = NULL", "TipoDoc = 0, NroDoc = 0"};
    int numero = 0;
    for (const char* falta : faltas)
    {
        SCOPED_TRACE(falta);
        const std::string cuil = "20-0000000" + std::to_string(++numero) + "-1";
        agregarEmpleado(c, original, {.cuil = cuil.c_str()});
        EXPECT_EQ(numero - 1, totales().incompletos);
        c.ejecutar(std::string("UPDATE DDJJ_Empleados SET ") + falta + " WHERE Cuit = ? AND Periodo = ? AND Cuil = ?",
                   cuitUno, original.periodo, cuil);
        EXPECT_EQ(numero, totales().incompletos);
    }
    // What may be missing: address, branch, date left; and a null where only 0 counts.
    agregarEmpleado(c, original, {.cuil = "20-99999999-1"});
    c.ejecutar("UPDATE DDJJ_Empleados SET Calle = NULL, Sucursal = NULL, Egreso = NULL, NroDoc = NULL "
               "WHERE Cuil = '20-99999999-1'");
    EXPECT_EQ(numero, totales().incompletos);
}

TEST_F(TotalesDeDDJJ, LaJornadaReducidaEsDelMesEntero)
{
    struct Caso
    {
        std::optional<int> horas;
        qint64 cuentan;
    };
    agregarEmpleado(c, rectificativa, {.cuil = "20-00000009-1"});
    for (const Caso& caso : {Caso{200, 0}, Caso{std::nullopt, 0}, Caso{100, 1}, Caso{0, 1}, Caso{201, 1}})
    {
        c.ejecutar("DELETE FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = 0", cuitUno,
                   original.periodo);
        agregarEmpleado(c, original, {.horas = caso.horas});
        EXPECT_EQ(caso.cuentan, totales(original).jornadaReducida) << caso.horas.value_or(-1);
        EXPECT_EQ(caso.cuentan, totales(rectificativa).jornadaReducida) << caso.horas.value_or(-1);
    }
}

TEST_F(TotalesDeDDJJ, FallaConLoQueNoSePuedeSumar)
{
    agregarEmpleado(c, original);
    for (const char* columna : {"Imponible", "Familiares", "Acuerdo", "Acuerdo2", "ART100", "ART101A", "ART101B"})
    {
        c.ejecutar(std::string("UPDATE DDJJ_Empleados SET ") + columna + " = NULL WHERE Cuit = ?", cuitUno);
        EXPECT_EQ(94, errorAlSumar(c)) << columna;
        c.ejecutar(std::string("UPDATE DDJJ_Empleados SET ") + columna + " = 0 WHERE Cuit = ?", cuitUno);
    }
    c.ejecutar("UPDATE DDJJ_Empleados SET Familiares = 32767 WHERE Cuit = ?", cuitUno);
    EXPECT_EQ(0, errorAlSumar(c));
    agregarEmpleado(c, original, {.cuil = "20-00000009-1", .afiliado = false, .familiares = 1});
    EXPECT_EQ(6, errorAlSumar(c));
    c.ejecutar("DELETE FROM DDJJ WHERE Cuit = ?", cuitUno); // at another desk
    EXPECT_EQ(3021, errorAlSumar(c));
}
