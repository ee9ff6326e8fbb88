#include "companies/busqueda_rubro.h"

#include "companies/contiene.h"
#include "platform/data/conexion.h"

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
        sql += " AND Nombre LIKE ? ESCAPE '\\'";
        valores.emplace_back(contiene(nombre));
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
