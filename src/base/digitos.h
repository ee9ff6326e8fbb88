#pragma once

#include <algorithm>

/// "0" to "9" and nothing that other scripts call a digit. Of a byte as of a QChar.
template <class Letra>
[[nodiscard]] constexpr bool esDigito(Letra letra)
{
    return letra >= Letra(u'0') && letra <= Letra(u'9');
}

/// Digits alone, and one at least. Of a text of bytes as of one of QChars.
template <class Texto>
[[nodiscard]] bool sonDigitos(const Texto& texto)
{
    return texto.size() > 0 && std::all_of(texto.begin(), texto.end(), [](auto letra) { return esDigito(letra); });
}
