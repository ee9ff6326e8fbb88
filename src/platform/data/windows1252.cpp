#include "platform/data/windows1252.h"

#include <array>

namespace
{
/// What the bytes 80 to 9F stand for; the rest of the set is the same as Unicode's first 256.
constexpr std::array<char16_t, 32> altos = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char aByte(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
    {
        return static_cast<char>(c);
    }
    for (std::size_t i = 0; i < altos.size(); ++i)
    {
        if (altos[i] == c)
        {
            return static_cast<char>(0x80 + i);
        }
    }
    return '?';
}
} // namespace

QByteArray aWindows1252(QStringView texto)
{
    QByteArray bytes;
    bytes.reserve(texto.size());
    for (qsizetype i = 0; i < texto.size(); ++i)
    {
        const QChar c = texto[i];
        if (c.isHighSurrogate() && i + 1 < texto.size() && texto[i + 1].isLowSurrogate())
        {
            ++i; // one character, one "?"
        }
        bytes += aByte(c.unicode());
    }
    return bytes;
}

QString deWindows1252(QByteArrayView bytes)
{
    QString texto(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i)
    {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        texto[i] = byte >= 0x80 && byte < 0xA0 ? QChar(altos[byte - 0x80U]) : QChar(char16_t{byte});
    }
    return texto;
}
