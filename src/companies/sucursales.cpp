#include "companies/sucursales.h"

#include "base/db/conexion.h"
#include "base/db/insertar.h"
#include "base/error_de_ejecucion.h"

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

void escribir(Conexion& conexion, const QString& cuit, FilaSucursal& fila)
{
    if (!fila.numero)
    {
        throw ErrorDeEjecucion::conDetalle(
            ErrorDeEjecucion::NoCoincidenTipos,
            QStringLiteral("falta el número del domicilio de la sucursal %1").arg(fila.sucursal));
    }
    ValoresDeColumnas valores{
        {"Sucursal", fila.sucursal}, {"Domicilio", fila.domicilio}, {"Numero", *fila.numero},
        {"CodPos", fila.codPos},     {"Localidad", fila.localidad}, {"Telefono", fila.telefono},
    };
    if (fila.id == 0)
    {
        valores.push_back({"CUIT", cuit});
        insertar(conexion, "Empresas_Sucursales", valores);
        fila.id = conexion.ultimoNumero();
    }
    else
    {
        valores.push_back({"Marca", 0});
        actualizar(conexion, "Empresas_Sucursales", valores, {{"ID", fila.id}, {"CUIT", cuit}});
    }
}

/// Deletes the branches still marked, unless one of them has employees: then the text of the refusal.
std::optional<QString> barrerMarcadas(Conexion& conexion, const QString& cuit)
{
    std::optional<QString> rechazo;
    const bool hay = conexion.recorrer(
        "SELECT * FROM Empresas_Sucursales WHERE CUIT = ? AND Marca = 1 ORDER BY ID",
        [&](const Fila& fila)
        {
            if (conexion.hay("SELECT * FROM DDJJ_Empleados WHERE Cuit = ? AND Sucursal = ?", cuit, fila.entero("ID")))
            {
                rechazo = QStringLiteral("Error - No se puede Eliminar la Sucursal ") + fila.texto("Sucursal") +
                          QStringLiteral(" - ") + fila.texto("Domicilio") + QLatin1Char(' ') + fila.texto("Numero") +
                          QStringLiteral(" - ") + fila.texto("Localidad") +
                          QStringLiteral(".  Tiene Empleados asignados a dicha Sucursal.");
            }
            return !rechazo;
        },
        cuit);
    if (hay && !rechazo)
    {
        conexion.ejecutar("DELETE FROM Empresas_Sucursales WHERE CUIT = ? AND Marca = 1", cuit);
    }
    return rechazo;
}
} // namespace

std::vector<FilaSucursal> cargarSucursales(Conexion& conexion, const QString& cuit)
{
    return conexion.lista(
        "SELECT * FROM Empresas_Sucursales WHERE CUIT = ? ORDER BY Sucursal, Localidad, ID",
        [](const Fila& fila)
        {
            return FilaSucursal{fila.entero("ID"),          fila.texto("Sucursal"),  fila.texto("Domicilio"),
                                fila.enteroONulo("Numero"), fila.texto("Localidad"), fila.texto("CodPos"),
                                fila.texto("Telefono")};
        },
        cuit);
}

SucursalEliminada::SucursalEliminada(const FilaSucursal& fila)
    : YaNoEsta(QStringLiteral("La Sucursal %1 - %2 ya no se encuentra en la Base: fue eliminada desde otra ventana u "
                              "otro puesto.  No se ha grabado ningún dato.")
                   .arg(fila.sucursal, fila.domicilio))
{
}

void exigirSucursales(Conexion& conexion, const QString& cuit, const std::vector<FilaSucursal>& filas)
{
    for (const FilaSucursal& fila : filas)
    {
        if (fila.id != 0 && !enBlanco(fila) &&
            !conexion.hay("SELECT ID FROM Empresas_Sucursales WHERE ID = ? AND CUIT = ?", fila.id, cuit))
        {
            throw SucursalEliminada(fila);
        }
    }
}

std::optional<QString> guardarSucursales(Conexion& conexion, const QString& cuit, std::vector<FilaSucursal>& filas)
{
    conexion.ejecutar("UPDATE Empresas_Sucursales SET Marca = 1 WHERE CUIT = ?", cuit);
    for (FilaSucursal& fila : filas)
    {
        if (enBlanco(fila))
        {
            fila.id = 0;
            continue;
        }
        if (incompleta(fila))
        {
            return QStringLiteral("Los datos de las Sucursales están incompletos.  Por favor, verifique los mismos "
                                  "(Nro. de Sucursal, Domicilio y Localidad).");
        }
        escribir(conexion, cuit, fila);
    }
    return barrerMarcadas(conexion, cuit);
}
