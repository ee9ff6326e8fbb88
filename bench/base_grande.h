#pragma once

#include "base_desnuda.h"

#include <string>

/// Databases of many roster rows, made once for all lines that ask for the same count.
namespace grande
{
inline constexpr int porDeclaracion = 500;
inline constexpr const char* periodo = "2009-05-01";

/// Masked form, without a true check digit.
[[nodiscard]] std::string cuitNumero(int n);
/// "DBBrivo.mdb" as it is delivered, with this many roster rows, one declaration of `porDeclaracion` people a company.
[[nodiscard]] const Taller& base(int filas);
} // namespace grande
