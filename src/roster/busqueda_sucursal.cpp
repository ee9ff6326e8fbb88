#include "roster/busqueda_sucursal.h"

#include "base/db/conexion.h"
#include "core/domicilio.h"

std::vector<SucursalListada> listarSucursales(Conexion& conexion, const QString& cuit)
{
    return conexion.lista(
        "SELECT * FROM Empresas_Sucursales WHERE Cuit = ? ORDER BY Sucursal",
        [](const Fila& fila)
        {
            return SucursalListada{fila.entero("ID"),    fila.texto("Sucursal"),  domicilioDeSucursal(fila),
                                   fila.texto("CodPos"), fila.texto("Localidad"), fila.texto("Telefono")};
        },
        cuit);
}
