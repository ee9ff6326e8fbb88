#include "base/files/windows1252.h"

#include "base/utf8.h"

#include <QString>
#include <algorithm>
#include <array>

namespace
{
/// What the bytes 80 to 9F stand for; the rest of the set is the same as Unicode's first 256.
constexpr std::array<char16_t, 32> altos = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

/// UTF-8 of each byte of Windows-1252.
std::array<std::string, 256> hacerTabla()
{
    std::array<std::string, 256> tabla;
    for (std::size_t i = 0; i < tabla.size(); ++i)
    {
        const bool alto = i >= 0x80 && i < 0xA0;
        tabla.at(i) = QString(QChar(alto ? altos.at(i - 0x80) : static_cast<char16_t>(i))).toStdString();
    }
    return tabla;
}

char aByte(char32_t caracter)
{
    if (caracter < 0x80 || (caracter >= 0xA0 && caracter <= 0xFF))
    {
        return static_cast<char>(caracter);
    }
    const auto alto = std::find(altos.begin(), altos.end(), caracter);
    return alto == altos.end() ? '?' : static_cast<char>(0x80 + (alto - altos.begin()));
}

bool esAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}
} // namespace

void agregarUtf8(std::string& destino, std::string_view bytes)
{
    static const std::array<std::string, 256> tabla = hacerTabla();
    for (std::size_t i = 0; i < bytes.size();)
    {
        const std::size_t desde = i;
        while (i < bytes.size() && esAscii(bytes[i]))
        {
            ++i;
        }
        destino.append(bytes, desde, i - desde);
        for (; i < bytes.size() && !esAscii(bytes[i]); ++i)
        {
            destino += tabla.at(static_cast<unsigned char>(bytes[i]));
        }
    }
}

void agregarWindows1252(std::string& destino, std::string_view utf8, std::size_t maximo)
{
    while (maximo > 0 && !utf8.empty())
    {
        std::size_t ascii = 0;
        while (ascii < utf8.size() && ascii < maximo && esAscii(utf8[ascii]))
        {
            ++ascii;
        }
        destino.append(utf8, 0, ascii);
        utf8.remove_prefix(ascii);
        maximo -= ascii;
        if (maximo > 0 && !utf8.empty())
        {
            std::size_t tomados = 0;
            destino += aByte(tomarCaracter(utf8, tomados));
            utf8.remove_prefix(tomados);
            --maximo;
        }
    }
}
