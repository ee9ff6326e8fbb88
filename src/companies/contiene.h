#pragma once

#include <QString>

/// Pattern for `LIKE ? ESCAPE '\'` that finds the text anywhere, its "%" and "_" taken as they stand.
[[nodiscard]] inline QString contiene(QString texto)
{
    for (const char comodin : {'\\', '%', '_'})
    {
        texto.replace(QLatin1Char(comodin), QLatin1Char('\\') + QString(QLatin1Char(comodin)));
    }
    return QLatin1Char('%') + texto + QLatin1Char('%');
}
