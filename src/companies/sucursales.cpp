#include "companies/sucursales.h"

#include "platform/data/conexion.h"
#include "platform/data/error_de_ejecucion.h"

namespace
{
bool enBlanco(const FilaSucursal& fila)
{
    return fila.sucursal.isEmpty() && fila.domicilio.isEmpty() && !fila.numero && fila.localidad.isEmpty() &&
           fila.codPos.isEmpty() && fila.telefono.isEmpty();
}

bool incompleta(const FilaSucursal& fila)
{
    return fila.sucursal.isEmpty() || fila.domicilio.isEmpty() || fila.localidad.isEmpty();
}

/// Writes one row. False when it is a known branch that is no longer there.
bool escribir(Conexion& conexion, const QString& cuit, const FilaSucursal& fila)
{
    if (!fila.numero)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos,
                               QStringLiteral("falta el número del domicilio de la sucursal %1").arg(fila.sucursal));
    }
    if (fila.id == 0)
    {
        conexion.ejecutar("INSERT INTO Empresas_Sucursales (CUIT, Sucursal, Domicilio, Numero, CodPos, Localidad, "
                          "Telefono) VALUES (?, ?, ?, ?, ?, ?, ?)",
                          cuit, fila.sucursal, fila.domicilio, *fila.numero, fila.codPos, fila.localidad,
                          fila.telefono);
        return true;
    }
    return conexion.ejecutar("UPDATE Empresas_Sucursales SET Sucursal = ?, Domicilio = ?, Numero = ?, CodPos = ?, "
                             "Localidad = ?, Telefono = ?, Marca = 0 WHERE ID = ? AND CUIT = ?",
                             fila.sucursal, fila.domicilio, *fila.numero, fila.codPos, fila.localidad, fila.telefono,
                             fila.id, cuit) > 0;
}

/// Deletes the branches still marked, unless one of them has employees: then the text of the refusal.
std::optional<QString> barrerMarcadas(Conexion& conexion, const QString& cuit)
{
    const Recordset marcadas =
        conexion.consultar("SELECT * FROM Empresas_Sucursales WHERE CUIT = ? AND Marca = 1 ORDER BY ID", cuit);
    for (const Fila& fila : marcadas)
    {
        if (conexion.hay("SELECT * FROM DDJJ_Empleados WHERE Cuit = ? AND Sucursal = ?", cuit, fila.entero("ID")))
        {
            return QStringLiteral("Error - No se puede Eliminar la Sucursal ") + fila.texto("Sucursal") +
                   QStringLiteral(" - ") + fila.texto("Domicilio") + QLatin1Char(' ') + fila.texto("Numero") +
                   QStringLiteral(" - ") + fila.texto("Localidad") +
                   QStringLiteral(".  Tiene Empleados asignados a dicha Sucursal.");
        }
    }
    if (!marcadas.vacio())
    {
        conexion.ejecutar("DELETE FROM Empresas_Sucursales WHERE CUIT = ? AND Marca = 1", cuit);
    }
    return std::nullopt;
}
} // namespace

std::vector<FilaSucursal> cargarSucursales(Conexion& conexion, const QString& cuit)
{
    std::vector<FilaSucursal> filas;
    conexion.recorrer(
        "SELECT * FROM Empresas_Sucursales WHERE CUIT = ? ORDER BY Sucursal, Localidad, ID",
        [&](const Fila& fila)
        {
            filas.push_back({fila.entero("ID"), fila.texto("Sucursal"), fila.texto("Domicilio"),
                             fila.enteroONulo("Numero"), fila.texto("Localidad"), fila.texto("CodPos"),
                             fila.texto("Telefono")});
        },
        cuit);
    return filas;
}

std::optional<QString> guardarSucursales(Conexion& conexion, const QString& cuit,
                                         const std::vector<FilaSucursal>& filas)
{
    conexion.ejecutar("UPDATE Empresas_Sucursales SET Marca = 1 WHERE CUIT = ?", cuit);
    for (const FilaSucursal& fila : filas)
    {
        if (enBlanco(fila))
        {
            continue;
        }
        if (incompleta(fila))
        {
            return QStringLiteral("Los datos de las Sucursales están incompletos.  Por favor, verifique los mismos "
                                  "(Nro. de Sucursal, Domicilio y Localidad).");
        }
        if (!escribir(conexion, cuit, fila))
        {
            return QStringLiteral("La Sucursal %1 - %2 ya no se encuentra en la Base: fue eliminada desde otro "
                                  "puesto.  No se ha grabado ningún dato.")
                .arg(fila.sucursal, fila.domicilio);
        }
    }
    return barrerMarcadas(conexion, cuit);
}
