#pragma once

#include <QString>
#include <vector>

class Conexion;

struct EmpresaHallada
{
    QString cuit;
    QString razon;
    friend bool operator==(const EmpresaHallada&, const EmpresaHallada&) = default;
};

/// Companies of this CUIT, unless the mask is untouched (a partly typed one finds nothing), whose Razon contains
/// `nombre`, in which "%" and "_" are wild cards. By CUIT when a name is given, else by Razon.
[[nodiscard]] std::vector<EmpresaHallada> buscarEmpresas(Conexion& conexion, const QString& cuit,
                                                         const QString& nombre);
