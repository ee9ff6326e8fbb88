#pragma once

#include "base/error_de_ejecucion.h"

#include <QDate>
#include <QString>
#include <limits>

/// What identifies a sworn declaration everywhere: company, first day of the month, sequence (0 the original, 1, 2, 3
/// ... the rectifying ones).
struct ClaveDDJJ
{
    QString cuit; ///< masked form
    QDate periodo;
    int secuencia = 0;

    friend bool operator==(const ClaveDDJJ&, const ClaveDDJJ&) = default;
};

/// A sequence as the public variables hold it. Throws ErrorDeEjecucion 6 when it does not fit in a byte.
[[nodiscard]] inline quint8 comoByte(int secuencia)
{
    if (secuencia < 0 || secuencia > std::numeric_limits<quint8>::max())
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::Desbordamiento);
    }
    return static_cast<quint8>(secuencia);
}
