#pragma once

#include "core/clave_ddjj.h"

#include <QString>
#include <vector>

class Conexion;

enum class FiltroAfiliado
{
    Todos = 0,
    Si = 1,
    No = 2,
};

struct EmpleadoHallado
{
    QString cuil;
    QString ayn;
    bool afiliado = false; ///< judged by the amount ART101A, not by the column Afiliado
};

/// Employees of a declaration: of one CUIL unless the mask is untouched, whose name contains `nombre`, by membership.
/// "%" and "_" in the name are the database's wild cards. By CUIL when a name is given, else by name.
[[nodiscard]] std::vector<EmpleadoHallado> buscarEmpleados(Conexion& conexion, const ClaveDDJJ& clave,
                                                           const QString& cuil, const QString& nombre,
                                                           FiltroAfiliado afiliado);
