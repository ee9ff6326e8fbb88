#pragma once

#include "platform/data/moneda.h"

#include <QDate>
#include <QString>
#include <QTime>
#include <optional>

// The program's number and date patterns, the same on every machine: comma decimals, dots between thousands.

/// Numeric pattern: an optional literal prefix such as "$ ", then "0" for a digit always shown, "#" for one shown if
/// needed, "," between them for thousands, "." before the decimals ("0000000.00", "#,##0.00", "$ #,##0.00", "00000").
/// The decimal mark comes out as ",". Decimals past the pattern round half away from zero. A number too long for the
/// pattern comes out longer; a negative one takes a leading "-", before the prefix.
[[nodiscard]] QString Formato(Moneda valor, QStringView patron);
[[nodiscard]] QString Formato(qint64 valor, QStringView patron);
[[nodiscard]] inline QString Formato(int valor, QStringView patron)
{
    return Formato(qint64{valor}, patron);
}
/// 32-bit float, formatted from its exact decimal value.
[[nodiscard]] QString Formato(float valor, QStringView patron);

/// Date pattern made of DD, MM, YY, YYYY, upper or lower case, and literals. An invalid date gives an empty text.
[[nodiscard]] QString Formato(QDate fecha, QStringView patron);
/// Time pattern made of HH, MM (minutes), SS and literals.
[[nodiscard]] QString Formato(QTime hora, QStringView patron);

/// Number typed by a person into a 32-bit float: "," is the decimal mark; "." groups thousands, and must stand before
/// groups of three digits ("1.234,5"). Two commas, letters, blanks inside or an empty text are no number.
[[nodiscard]] std::optional<float> LeerNumero(QStringView texto);

/// Amount of a roster file into a 32-bit float: "." and "," are both the decimal mark, one at most.
/// Throws ErrorDeEjecucion 13 when the text is no number, 6 when it does not fit.
[[nodiscard]] float LeerImporteDeArchivo(QStringView texto);

/// A 32-bit float as text, with at most seven significant digits and "," as the decimal mark: "12,5", "1E+10".
[[nodiscard]] QString TextoSimple(float valor);

/// Rounds to two decimals, halves to the even digit, exactly on the float's binary value; the result is a float again.
[[nodiscard]] float Redondear2(float valor);

/// "DD/MM/YYYY", day first always; nothing when it is no date of the calendar. Years 100 to 9999.
[[nodiscard]] std::optional<QDate> LeerFecha(QStringView texto);
/// First day of the month of "YYYY/MM"; nothing when it is none.
[[nodiscard]] std::optional<QDate> LeerPeriodo(QStringView texto);
/// A two-digit year's full year: 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999.
[[nodiscard]] int AnioCompleto(int dosDigitos);
