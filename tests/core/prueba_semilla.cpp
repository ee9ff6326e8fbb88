#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"

#include <gtest/gtest.h>

namespace
{
TEST(Semilla, NumbersOfBranchesAndPaymentsAreNeverUsedAgain)
{
    const BaseDePrueba base;
    for (const std::string tabla : {"Empresas_Sucursales", "PAGOS"})
    {
        const qint64 primero = poner(tabla.c_str());
        Rutinas::Conexion.ejecutar("DELETE FROM " + tabla);
        EXPECT_GT(poner(tabla.c_str()), primero) << tabla;
    }
}

TEST(Semilla, LookUpTablesHaveWhatAFixedWidthFileHasRoomForAndNamesCompareTheSpanishWay)
{
    const BaseDePrueba base;
    // Names, codes and widths. 0 in a roster row means missing: only a province has that code.
    const std::pair<std::string, const char*> casos[] = {
        {"Provincias", "24|0|24|1|2"}, {"Documentos", "7|1|7|1|1"},  {"Categorias", "33|11|73|2|2"},
        {"Familiar", "9|1|9|1|1"},     {"EstadoCivil", "6|1|6|1|1"}, {"Rubros", "65|012110|942000|6|6"}};
    for (const auto& [tabla, esperado] : casos)
    {
        EXPECT_EQ(
            filas("SELECT count(DISTINCT Nombre) AS n, min(Codigo) AS a, max(Codigo) AS b, min(length(Codigo)) AS c, "
                  "max(length(Codigo)) AS d FROM " +
                  tabla),
            esperado);
    }
    EXPECT_EQ(
        filas("SELECT sum(length(sql) - length(replace(sql, 'COLLATE espanol', ''))) / 15 AS n FROM sqlite_schema"),
        "31");
}
} // namespace
