#include "platform/data/windows1252.h"

#include <gtest/gtest.h>

TEST(Windows1252, TodosLosBytesVanYVuelven)
{
    QByteArray todos;
    for (int b = 0; b < 256; ++b)
    {
        todos += static_cast<char>(b);
    }
    const QString texto = deWindows1252(todos);
    EXPECT_EQ(256, texto.size());
    EXPECT_EQ(todos, aWindows1252(texto));
}

TEST(Windows1252, Caracteres)
{
    struct Caso
    {
        const char16_t* texto;
        const char* bytes;
    };
    const Caso casos[] = {
        {u"Ñandú", "\xD1"
                   "and\xFA"},
        {u"áéíóúüÁÜ¿¡º", "\xE1\xE9\xED\xF3\xFA\xFC\xC1\xDC\xBF\xA1\xBA"},
        {u"€ “a” – Ž", "\x80 \x93"
                       "a\x94 \x96 \x8E"},
        {u"日本x", "??x"},  // outside the set
        {u"a😀b", "a?b"},    // one character of two units, one "?"
        {u"n\u0303", "n?"}, // a mark apart from its letter
        {u"\xD800", "?"},   // half of a character
    };
    for (const Caso& caso : casos)
    {
        EXPECT_EQ(QByteArray(caso.bytes), aWindows1252(QString::fromUtf16(caso.texto)));
    }
    EXPECT_EQ(QStringLiteral("ŠŒ™"), deWindows1252(QByteArray("\x8A\x8C\x99")));
}
