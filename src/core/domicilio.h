#pragma once

#include <QString>

class Fila;

/// The street of a company, a row of Empresas, then what has a value of number (unless 0), premises, floor and flat.
[[nodiscard]] QString domicilioDeEmpresa(const Fila& empresa);

/// Street and number of a row of Empresas_Sucursales; a blank follows a street without a number.
[[nodiscard]] QString domicilioDeSucursal(const Fila& sucursal);
