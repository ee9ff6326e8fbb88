#pragma once

#include "platform/data/error_de_ejecucion.h"

#include <QString>
#include <limits>

/// A sequence as the public variables hold it. An empty text counts as 0. Throws ErrorDeEjecucion 6 when it does not
/// fit in a byte.
[[nodiscard]] inline quint8 comoByte(const QString& texto)
{
    const int numero = texto.toInt();
    if (numero < 0 || numero > std::numeric_limits<quint8>::max())
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::Desbordamiento);
    }
    return static_cast<quint8>(numero);
}
