#pragma once

#include "base/numbers/moneda.h"

#include <QDate>
#include <QString>
#include <variant>
#include <vector>

/// One named value of a report, in the order in which it is handed over; its place in the list is its index. The
/// report engine turns it into the text to print by its type: amounts "#,##0.00", dates "DD/MM/YYYY".
struct ValorDeInforme
{
    QString nombre;
    std::variant<QString, qint64, Moneda, QDate> valor;

    friend bool operator==(const ValorDeInforme&, const ValorDeInforme&) = default;
};

using ValoresDeInforme = std::vector<ValorDeInforme>;
