#pragma once

#include <cstddef>
#include <string_view>

/// The character of a UTF-8 text at `i`, which moves past it. A byte that is no UTF-8 stands for itself, above all
/// characters (110000 hexadecimal and more).
[[nodiscard]] inline char32_t tomarCaracter(std::string_view utf8, std::size_t& i)
{
    const auto primero = static_cast<unsigned char>(utf8[i]);
    ++i;
    if (primero < 0x80)
    {
        return primero;
    }
    const std::size_t siguen = primero >= 0xF0 && primero < 0xF5   ? 3
                               : primero >= 0xE0 && primero < 0xF0 ? 2
                               : primero >= 0xC2 && primero < 0xE0 ? 1
                                                                   : 0;
    char32_t c = primero & (0x3FU >> siguen);
    for (std::size_t n = 0; n < siguen; ++n)
    {
        if (i + n >= utf8.size() || (static_cast<unsigned char>(utf8[i + n]) & 0xC0U) != 0x80U)
        {
            return 0x110000U + primero;
        }
        c = (c << 6U) | (static_cast<unsigned char>(utf8[i + n]) & 0x3FU);
    }
    i += siguen;
    return siguen == 0 ? 0x110000U + primero : c;
}
