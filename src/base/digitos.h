#pragma once

#include <QStringView>
#include <algorithm>

/// "0" to "9" and nothing that other scripts call a digit.
[[nodiscard]] constexpr bool esDigito(QChar caracter)
{
    return caracter >= u'0' && caracter <= u'9';
}

/// Digits alone, and one at least.
[[nodiscard]] inline bool sonDigitos(QStringView texto)
{
    return !texto.isEmpty() && std::all_of(texto.begin(), texto.end(), esDigito);
}
