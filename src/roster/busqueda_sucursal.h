#pragma once

#include <QString>
#include <vector>

class Conexion;

struct SucursalListada
{
    qint64 id = 0;
    QString sucursal;
    QString domicilio; ///< with its number unless that is 0
    QString codPos;
    QString localidad;
    QString telefono;
};

/// Branches of a company by their code.
[[nodiscard]] std::vector<SucursalListada> listarSucursales(Conexion& conexion, const QString& cuit);
