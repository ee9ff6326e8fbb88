#include "companies/busqueda_rubro.h"

#include "base/db/conexion.h"

#include <string>

std::vector<RubroHallado> buscarRubros(Conexion& conexion, const QString& codigo, const QString& nombre)
{
    std::string sql = "SELECT Codigo, Nombre FROM Rubros WHERE Codigo <> ''";
    std::vector<Valor> valores;
    if (!codigo.isEmpty())
    {
        sql += " AND Codigo >= ?";
        valores.emplace_back(codigo);
    }
    if (!nombre.isEmpty())
    {
        sql += " AND Nombre LIKE ?";
        valores.emplace_back(QLatin1Char('%') + nombre + QLatin1Char('%'));
    }
    sql += " ORDER BY Codigo";
    return conexion.preparar(sql).listaCon(valores,
                                           [](const Fila& fila) {
                                               return RubroHallado{fila.texto("Codigo"), fila.texto("Nombre")};
                                           });
}
