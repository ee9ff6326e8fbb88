#include "companies/busqueda_empresa.h"

#include "base/db/conexion.h"
#include "core/cuit.h"

#include <string>

std::vector<EmpresaHallada> buscarEmpresas(Conexion& conexion, const QString& cuit, const QString& nombre)
{
    std::string sql = "SELECT Cuit, Razon FROM Empresas WHERE Cuit IS NOT NULL";
    std::vector<Valor> valores;
    if (cuit != cuitVacio)
    {
        sql += " AND Cuit = ?";
        valores.emplace_back(cuit);
    }
    if (!nombre.isEmpty())
    {
        sql += " AND Razon LIKE ?";
        valores.emplace_back(QLatin1Char('%') + nombre + QLatin1Char('%'));
    }
    sql += nombre.isEmpty() ? " ORDER BY Razon" : " ORDER BY Cuit";
    return conexion.preparar(sql).listaCon(valores,
                                           [](const Fila& fila) {
                                               return EmpresaHallada{fila.texto("Cuit"), fila.texto("Razon")};
                                           });
}
