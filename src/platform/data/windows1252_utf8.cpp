#include "platform/data/windows1252.h"

#include <array>

namespace
{
/// UTF-8 of each byte of Windows-1252.
std::array<std::string, 256> hacerTabla()
{
    std::array<std::string, 256> tabla;
    for (std::size_t i = 0; i < tabla.size(); ++i)
    {
        const char byte = static_cast<char>(i);
        tabla.at(i) = deWindows1252(QByteArrayView(&byte, 1)).toStdString();
    }
    return tabla;
}

bool esAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

/// Takes one character off the front of `utf8`; an ill-formed one gives U+FFFD and takes one byte.
char32_t tomarCaracter(std::string_view& utf8)
{
    const auto primero = static_cast<unsigned char>(utf8.front());
    const std::size_t largo = primero < 0x80 ? 1 : primero < 0xC2 ? 0 : primero < 0xE0 ? 2 : primero < 0xF0 ? 3 : 4;
    if (largo == 0 || primero > 0xF4 || utf8.size() < largo)
    {
        utf8.remove_prefix(1);
        return 0xFFFD;
    }
    char32_t caracter = largo == 1 ? primero : primero & (0x7FU >> largo);
    for (std::size_t i = 1; i < largo; ++i)
    {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if ((byte & 0xC0U) != 0x80)
        {
            utf8.remove_prefix(1);
            return 0xFFFD;
        }
        caracter = (caracter << 6U) | (byte & 0x3FU);
    }
    utf8.remove_prefix(largo);
    return caracter;
}

char aByte(char32_t caracter)
{
    if (caracter < 0x80)
    {
        return static_cast<char>(caracter);
    }
    if (caracter > 0xFFFF)
    {
        return '?';
    }
    const QChar c(static_cast<char16_t>(caracter));
    return aWindows1252(QStringView(&c, 1)).front();
}

char aByteAlto(char32_t caracter)
{
    return caracter >= 0xA0 && caracter <= 0xFF ? static_cast<char>(caracter) : aByte(caracter);
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
            destino += aByteAlto(tomarCaracter(utf8));
            --maximo;
        }
    }
}
