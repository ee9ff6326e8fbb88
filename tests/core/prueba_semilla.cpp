#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"

#include <gtest/gtest.h>

namespace
{
TEST(Semilla, NumbersOfBranchesAndPaymentsAreNeverUsedAgain)
{
    const BaseDePrueba base;
    for (const char* tabla : {"Empresas_Sucursales", "PAGOS"})
    {
        const qint64 primero = poner(tabla);
        Rutinas::Conexion.ejecutar(std::string("DELETE FROM ") + tabla);
        EXPECT_GT(poner(tabla), primero) << tabla;
    }
}

TEST(Semilla, LookUpTablesAreFilledWithWhatAFixedWidthFileHasRoomFor)
{
    const BaseDePrueba base;
    const std::tuple<std::string, int, int, int> casos[] = {// smallest code, rows at least, largest code at most
                                                            {"Provincias", 0, 24, 99}, {"Documentos", 1, 4, 9},
                                                            {"Categorias", 1, 10, 99}, {"Familiar", 1, 9, 9},
                                                            {"EstadoCivil", 1, 4, 9},  {"Rubros", 1, 40, 999999}};
    for (const auto& [tabla, menor, cuantas, mayor] : casos)
    {
        EXPECT_EQ(cuantos(tabla + " WHERE CAST(Codigo AS INTEGER) NOT BETWEEN ? AND ?", menor, mayor), 0)
            << tabla << ": 0 in a roster row means missing, only a province has that code";
        EXPECT_GE(cuantos("(SELECT DISTINCT Nombre FROM " + tabla + ")"), cuantas) << tabla;
        EXPECT_EQ(cuantos("(SELECT DISTINCT Nombre FROM " + tabla + ")"), cuantos(tabla)) << tabla;
    }
    EXPECT_EQ(filas("SELECT P.Nombre AS P, D.Nombre AS D FROM Provincias P, Documentos D WHERE P.Codigo = 1 AND "
                    "D.Codigo = 1"),
              "Buenos Aires|DNI");
    EXPECT_EQ(cuantos("Rubros WHERE Codigo NOT GLOB '[0-9][0-9][0-9][0-9][0-9][0-9]'"), 0);
    EXPECT_EQ(filas("SELECT Version, Indice, Bak_Carpeta, Bak_Fecha, Bak_Hora FROM Parametros"),
              "2.0|0|Null|Null|Null");
}

TEST(Semilla, NamesCompareTheSpanishWay)
{
    const BaseDePrueba base;
    const std::pair<const char*, QString> casos[] = {
        {"Empresas", "Razon Fantasia Localidad Contacto Estudio"},
        {"Empresas_Sucursales", "Sucursal Domicilio Localidad"},
        {"Empresas_Responsables", "AyN Domicilio Localidad"},
        {"DDJJ_Empleados", "AyN Calle Localidad"},
        {"Empleados_Familiares", "AyN"},
        {"RptEmpleados", "Sucursal AyN Categoria Calle Localidad"},
    };
    for (const auto& [tabla, columnas] : casos)
    {
        for (const QString& nombre : columnas.split(u' '))
        {
            const std::string columna = nombre.toStdString();
            Rutinas::Conexion.ejecutar(std::string("DELETE FROM ") + tabla);
            poner(tabla, {{columna.c_str(), "Ñandú"}});
            EXPECT_EQ(cuantos(tabla + (" WHERE " + columna + " = ?"), "ñANDÚ"), 1) << tabla << '.' << columna;
        }
    }
}
} // namespace
