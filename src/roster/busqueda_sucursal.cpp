#include "roster/busqueda_sucursal.h"

#include "base/db/conexion.h"

std::vector<SucursalListada> listarSucursales(Conexion& conexion, const QString& cuit)
{
    return conexion.lista(
        "SELECT * FROM Empresas_Sucursales WHERE Cuit = ? ORDER BY Sucursal",
        [](const Fila& fila)
        {
            const qint64 numero = fila.enteroONulo("Numero").value_or(0);
            const QString domicilio =
                fila.texto("Domicilio") + QLatin1Char(' ') + (numero != 0 ? QString::number(numero) : QString());
            return SucursalListada{fila.entero("ID"),    fila.texto("Sucursal"),  domicilio,
                                   fila.texto("CodPos"), fila.texto("Localidad"), fila.texto("Telefono")};
        },
        cuit);
}
