#pragma once

#include "core/clave_ddjj.h"

/// What the user reads of a declaration of a company that he knows: "2026/10 - 0".
[[nodiscard]] inline QString textoDe(const ClaveDDJJ& clave)
{
    return QStringLiteral("%1 - %2").arg(clave.periodo.toString(u"yyyy/MM"), QString::number(clave.secuencia));
}

/// How the names of the files of a declaration begin: "30-71234567-1 2026-10 00".
[[nodiscard]] inline QString nombreDeDeclaracion(const ClaveDDJJ& clave)
{
    constexpr int cifras = 2;
    return clave.cuit + clave.periodo.toString(u" yyyy-MM ") +
           QString::number(clave.secuencia).rightJustified(cifras, QLatin1Char('0'));
}
