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
    const struct
    {
        const char* tabla;
        const char* porte; ///< smallest code, rows at least, largest code at most
    } casos[] = {{"Provincias", "0|24|99"}, {"Documentos", "1|4|9"},  {"Categorias", "1|10|99"},
                 {"Familiar", "1|9|9"},     {"EstadoCivil", "1|4|9"}, {"Rubros", "1|40|999999"}};
    for (const auto& [tabla, porte] : casos)
    {
        const QStringList limites = QString::fromLatin1(porte).split(u'|');
        EXPECT_EQ(filas(std::string("SELECT min(CAST(Codigo AS INTEGER) > 0) = ? AND count(*) >= ? AND "
                                    "max(CAST(Codigo AS INTEGER)) <= ? AND count(DISTINCT Nombre) = count(*) FROM ") +
                            tabla,
                        limites[0].toInt(), limites[1].toInt(), limites[2].toInt()),
                  "1")
            << tabla << ": 0 in a roster row means missing, only a province has that code";
    }
    EXPECT_EQ(
        filas(
            "SELECT P.Nombre AS P, D.Nombre AS D FROM Provincias P, Documentos D WHERE P.Codigo = 1 AND D.Codigo = 1"),
        "Buenos Aires|DNI");
    EXPECT_EQ(cuantos("Rubros WHERE Codigo NOT GLOB '[0-9][0-9][0-9][0-9][0-9][0-9]'"), 0);
    EXPECT_EQ(filas("SELECT Version, Indice, Bak_Carpeta, Bak_Fecha, Bak_Hora FROM Parametros"),
              "2.0|0|Null|Null|Null");
}

TEST(Semilla, NamesCompareTheSpanishWay)
{
    const BaseDePrueba base;
    const std::pair<const char*, std::vector<std::string>> casos[] = {
        {"Empresas", {"Razon", "Fantasia", "Localidad", "Contacto", "Estudio"}},
        {"Empresas_Sucursales", {"Sucursal", "Domicilio", "Localidad"}},
        {"Empresas_Responsables", {"AyN", "Domicilio", "Localidad"}},
        {"DDJJ_Empleados", {"AyN", "Calle", "Localidad"}},
        {"Empleados_Familiares", {"AyN"}},
        {"RptEmpleados", {"Sucursal", "AyN", "Categoria", "Calle", "Localidad"}},
    };
    for (const auto& [tabla, columnas] : casos)
    {
        for (const std::string& columna : columnas)
        {
            Rutinas::Conexion.ejecutar(std::string("DELETE FROM ") + tabla);
            poner(tabla, {{columna.c_str(), "Ñandú"}});
            EXPECT_EQ(cuantos(tabla + (" WHERE " + columna + " = ?"), "ñANDÚ"), 1) << tabla << '.' << columna;
        }
    }
}
} // namespace
