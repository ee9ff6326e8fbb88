#include "base/files/windows1252.h"

#include <gtest/gtest.h>

TEST(Windows1252, TodosLosBytesVanYVuelven)
{
    std::string todos;
    for (int b = 0; b < 256; ++b)
    {
        todos += static_cast<char>(b);
    }
    std::string utf8 = "antes ";
    agregarUtf8(utf8, todos);
    std::string vuelta = "antes ";
    agregarWindows1252(vuelta, std::string_view(utf8).substr(6));
    EXPECT_EQ("antes " + todos, vuelta);
}

TEST(Windows1252, CortaPorCaracteresYSenalaLoQueNoEs)
{
    const auto bytes = [](std::string_view utf8, std::size_t maximo = 99)
    {
        std::string puestos;
        agregarWindows1252(puestos, utf8, maximo);
        return puestos;
    };
    EXPECT_EQ("", bytes(""));
    EXPECT_EQ("ab", bytes("abc", 2));
    EXPECT_EQ("\xF1\x61nd\xFA", bytes("ñandú", 5));
    EXPECT_EQ("a\x80", bytes("a€b", 2));
    EXPECT_EQ("\x93\x61\x94 \x96 \x8E \x8A\x8C\x99", bytes("“a” – Ž ŠŒ™"));
    EXPECT_EQ("?x", bytes("日x"));     // outside the set
    EXPECT_EQ("a?b", bytes("a😀b"));    // one character, one "?"
    EXPECT_EQ("n?", bytes("n\u0303")); // a mark apart from its letter
    EXPECT_EQ("?", bytes("\xC3"));     // cut in the middle of a character
    EXPECT_EQ("??x", bytes("\xE2\x82x"));
    EXPECT_EQ("??x", bytes("\xFF\xFEx"));
    EXPECT_EQ("??x", bytes("\xC0\xAFx")); // a longer way to write "/"
    EXPECT_EQ("x?y", bytes("x\x80y"));
}
