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

    std::vector<RubroHallado> hallados;
    conexion.preparar(sql).recorrerCon(valores.data(), valores.size(),
                                       [&](const Fila& fila)
                                       {
                                           hallados.push_back({fila.texto("Codigo"), fila.texto("Nombre")});
                                           return true;
                                       });
    return hallados;
}
