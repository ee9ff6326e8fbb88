#pragma once

#include "slips/boleta.h"

#include <QString>

/// The slip number: 49 digits by the layout of the kind and a check digit, 50 in all when every amount fits its field.
/// A value past its digits widens its field and moves the later ones; the check digit is still taken over the first 49
/// places. Of the two contributions of kind Aportes, one above 99.999,99 is divided by 100 for the number alone; the
/// second one then shows the first one's value.
/// Throws ErrorDeEjecucion 13 when one of the first 49 places is no digit.
[[nodiscard]] QString numeroBoleta(const Boleta& boleta);

/// Modulo 10 with weights 3 and 1 over the first 49 places, the first one weighing 3. Throws 13 as above.
[[nodiscard]] int digitoVerificador(const QString& numero);

/// Digits as the text of the bar-code font: start "(", a character a pair (pair + 48 below 50, else pair + 142, codes
/// of Windows-1252), stop ")". With parPoneDV a check digit of its own is appended first, the last digit weighing 3.
/// Text of odd length ends in a pair of one digit.
[[nodiscard]] QString StrToI2of5(const QString& tcString, bool parPoneDV);
