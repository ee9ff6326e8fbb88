#pragma once

#include "apoyo/base_de_prueba.h"

#include <QByteArray>
#include <QString>

/// Fills the open database with a company, a declaration and `empleados` employees, whose wages are all `sueldo`.
/// About 150 bytes an employee.
void llenarBase(Conexion& conexion, int empleados, int sueldo);

/// What the database says, and not how it lies in the file: a digest of all rows of all tables, and of the schema.
[[nodiscard]] QByteArray contenidoDe(Conexion& conexion);

/// Opens the database of the program's directory as every start does, and closes it: the problem that the integrity
/// check finds, or the error of the opening; empty when all is well.
[[nodiscard]] QString problemaDeLaBase();
