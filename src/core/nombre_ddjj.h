#pragma once

#include "core/clave_ddjj.h"

/// How the names of the files of a declaration begin: "30-71234567-1 2026-10 00".
[[nodiscard]] inline QString nombreDeDeclaracion(const ClaveDDJJ& clave)
{
    constexpr int cifras = 2;
    return clave.cuit + clave.periodo.toString(u" yyyy-MM ") +
           QString::number(clave.secuencia).rightJustified(cifras, QLatin1Char('0'));
}
