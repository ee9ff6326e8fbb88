#pragma once

#include <QDate>
#include <QString>

/// What identifies a sworn declaration everywhere: company, first day of the month, sequence (0 the original, 1, 2, 3
/// ... the rectifying ones).
struct ClaveDDJJ
{
    QString cuit; ///< masked form
    QDate periodo;
    int secuencia = 0;

    friend bool operator==(const ClaveDDJJ&, const ClaveDDJJ&) = default;
};
