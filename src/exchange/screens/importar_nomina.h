#pragma once

#include "core/clave_ddjj.h"

/// Imports into a declaration the file that the dialog Importar was answered with, and tells how that went. False when
/// nothing came in, with the pointer left busy. Throws YaNoEsta when the declaration is gone, TrabajoCancelado when the
/// user gives it up.
[[nodiscard]] bool ImportarNomina(const ClaveDDJJ& clave);
