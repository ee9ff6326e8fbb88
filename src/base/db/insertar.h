#pragma once

#include "base/db/conexion.h"

#include <vector>

/// A column and its value. In a list of them each value stands beside the name of its column.
struct ValorDeColumna
{
    const char* columna;
    Valor valor;
};
using ValoresDeColumnas = std::vector<ValorDeColumna>;

/// Inserts one row; columns not named take their defaults.
void insertar(Conexion& conexion, const char* tabla, const ValoresDeColumnas& valores);
/// Updates the rows in which every column of `clave` has its value; gives their number. A Null in `clave` meets none.
int actualizar(Conexion& conexion, const char* tabla, const ValoresDeColumnas& valores, const ValoresDeColumnas& clave);
