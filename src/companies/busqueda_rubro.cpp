#include "companies/busqueda_rubro.h"

#include "base/db/conexion.h"

std::vector<RubroHallado> buscarRubros(Conexion& conexion, const QString& codigo, const QString& nombre)
{
    // Every text comes after an empty one.
    return conexion.lista(
        "SELECT Codigo, Nombre FROM Rubros WHERE Codigo <> '' AND Codigo >= ?1 "
        "AND (?2 = '' OR Nombre LIKE '%' || ?2 || '%') ORDER BY Codigo",
        [](const Fila& fila) {
            return RubroHallado{fila.texto("Codigo"), fila.texto("Nombre")};
        },
        codigo, nombre);
}
