#include "companies/busqueda_empresa.h"

#include "base/db/conexion.h"
#include "core/cuit.h"

#include <string>

std::vector<EmpresaHallada> buscarEmpresas(Conexion& conexion, const QString& cuit, const QString& nombre)
{
    const std::string orden = nombre.isEmpty() ? "Razon" : "Cuit";
    return conexion.lista(
        "SELECT Cuit, Razon FROM Empresas WHERE Cuit IS NOT NULL AND (?1 = '' OR Cuit = ?1) "
        "AND (?2 = '' OR Razon LIKE '%' || ?2 || '%') ORDER BY " +
            orden,
        [](const Fila& fila) {
            return EmpresaHallada{fila.texto("Cuit"), fila.texto("Razon")};
        },
        cuit == cuitVacio ? QString() : cuit, nombre);
}
