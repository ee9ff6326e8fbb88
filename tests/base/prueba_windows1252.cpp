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
    const std::tuple<const char*, const char*, std::size_t> casos[] = {
        {"", "", 99},
        {"abc", "", 0},
        {"abc", "ab", 2},
        {"ñandú", "\xF1\x61nd\xFA", 5},
        {"ñandú", "\xF1", 1},
        {"a€b", "a\x80", 2},
        {"“a” – Ž ŠŒ™", "\x93\x61\x94 \x96 \x8E \x8A\x8C\x99", 99},
        {"日x", "?x", 99},     // outside the set
        {"a😀b", "a?b", 99},    // one character, one "?"
        {"n\u0303", "n?", 99}, // a mark apart from its letter
        {"\xC3", "?", 99},     // cut in the middle of a character
        {"\xE2\x82x", "??x", 99},
        {"\xFF\xFEx", "??x", 99},
        {"\xC0\xAFx", "??x", 99}, // a longer way to write "/"
        {"x\x80y", "x?y", 99},
    };
    for (const auto& [utf8, esperados, maximo] : casos)
    {
        std::string bytes;
        agregarWindows1252(bytes, utf8, maximo);
        EXPECT_EQ(esperados, bytes) << utf8;
    }
}
