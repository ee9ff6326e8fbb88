#include "platform/data/windows1252.h"

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
    struct Caso
    {
        const char* utf8;
        const char* bytes;
        std::size_t maximo = 99;
    };
    const Caso casos[] = {
        {"", ""},
        {"abc", "", 0},
        {"abc", "ab", 2},
        {"ñandú",
         "\xF1"
         "and\xFA",
         5},
        {"ñandú", "\xF1", 1},
        {"a€b", "a\x80", 2},
        {"“a” – Ž ŠŒ™", "\x93"
                        "a\x94 \x96 \x8E \x8A\x8C\x99"},
        {"日x", "?x"},     // outside the set
        {"a😀b", "a?b"},    // one character, one "?"
        {"n\u0303", "n?"}, // a mark apart from its letter
        {"\xC3", "?"},     // cut in the middle of a character
        {"\xE2\x82x", "??x"},
        {"\xFF\xFEx", "??x"},
        {"\xC0\xAFx", "??x"}, // a longer way to write "/"
        {"x\x80y", "x?y"},
    };
    for (const Caso& caso : casos)
    {
        std::string bytes;
        agregarWindows1252(bytes, caso.utf8, caso.maximo);
        EXPECT_EQ(caso.bytes, bytes) << caso.utf8;
    }
}
