#pragma once

#include "core/clave_ddjj.h"

#include <vector>

class Conexion;

/// The declarations of a company (CUIT in masked form), the latest month first and within it the highest sequence
/// first.
[[nodiscard]] std::vector<ClaveDDJJ> listarDeclaraciones(Conexion& conexion, const QString& cuit);
