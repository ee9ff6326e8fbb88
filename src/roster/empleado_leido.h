#pragma once

#include "companies/cambios.h"
#include "roster/empleado.h"
#include "roster/familiares.h"

#include <vector>

/// An employee as a screen read him, to be compared at the save with what is stored then.
struct EmpleadoLeido
{
    Empleado empleado;
    std::vector<FilaFamiliar> familia;
};

/// Nothing when the declaration has no such employee (any more). Throws as cargarEmpleado does.
[[nodiscard]] std::optional<EmpleadoLeido> leerEmpleado(Conexion& conexion, const ClaveDDJJ& clave, const QString& cuil,
                                                        AccionEmpleado accion = AccionEmpleado::Buscado);

/// What the screen shows of the employee and of his dependants and is no longer stored so. The contributions do not
/// count: a save computes them anew.
[[nodiscard]] Cambios cambiosEnEmpleado(Conexion& conexion, const QString& cuit, const EmpleadoLeido& antes,
                                        const EmpleadoLeido& ahora);
