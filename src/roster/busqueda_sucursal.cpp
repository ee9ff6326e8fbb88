#include "roster/busqueda_sucursal.h"

#include "base/db/conexion.h"

std::vector<SucursalListada> listarSucursales(Conexion& conexion, const QString& cuit)
{
    std::vector<SucursalListada> sucursales;
    for (const Fila& fila :
         conexion.consultar("SELECT * FROM Empresas_Sucursales WHERE Cuit = ? ORDER BY Sucursal", cuit))
    {
        const qint64 numero = fila.enteroONulo("Numero").value_or(0);
        const QString domicilio =
            fila.texto("Domicilio") + QLatin1Char(' ') + (numero != 0 ? QString::number(numero) : QString());
        sucursales.push_back({fila.entero("ID"), fila.texto("Sucursal"), domicilio, fila.texto("CodPos"),
                              fila.texto("Localidad"), fila.texto("Telefono")});
    }
    return sucursales;
}
