#pragma once

#include "base/numbers/moneda.h"

#include <QDate>
#include <QString>
#include <optional>

// How the program shows numbers and reads what a person types, the same on every machine: comma decimals, dots between
// thousands. Amounts show two decimals, halves away from zero, and what shows as zero has no sign.

/// "1.234,50"
[[nodiscard]] QString conMiles(Moneda importe);
/// "1.234"
[[nodiscard]] QString conMiles(qint64 numero);
/// "$ 1.234,50", "-$ 0,50"
[[nodiscard]] QString conPesos(Moneda importe);
/// "1234,50"
[[nodiscard]] QString sinMiles(Moneda importe);
/// The same for the exact value of a 32-bit float. Throws ErrorDeEjecucion 6 when it is out of range.
[[nodiscard]] QString sinMiles(float importe);
/// At least `ancho` digits: "007", "1234", "-007".
[[nodiscard]] QString ceros(qint64 numero, int ancho);

/// Number typed by a person into a 32-bit float: "," is the decimal mark; "." groups thousands, and must stand before
/// groups of three digits ("1.234,5"). Two commas, letters, blanks inside or an empty text are no number.
[[nodiscard]] std::optional<float> LeerNumero(QStringView texto);

/// Rounds to two decimals, halves to the even digit, exactly on the float's binary value; the result is a float again.
[[nodiscard]] float Redondear2(float valor);

/// "DD/MM/YYYY", day first always; nothing when it is no date of the calendar. Years 100 to 9999.
[[nodiscard]] std::optional<QDate> LeerFecha(const QString& texto);
/// A two-digit year's full year: 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999.
[[nodiscard]] int AnioCompleto(int dosDigitos);
