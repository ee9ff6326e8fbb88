#include "platform/data/windows1252.h"

#include <gtest/gtest.h>

TEST(Windows1252Utf8, IgualQuePorQString)
{
    std::string todos;
    for (int b = 0; b < 256; ++b)
    {
        todos += static_cast<char>(b);
    }
    std::string utf8 = "antes ";
    agregarUtf8(utf8, todos);
    EXPECT_EQ("antes " + deWindows1252(QByteArray::fromStdString(todos)).toStdString(), utf8);
    std::string vuelta = "antes ";
    agregarWindows1252(vuelta, std::string_view(utf8).substr(6));
    EXPECT_EQ("antes " + todos, vuelta);
}

TEST(Windows1252Utf8, CortaPorCaracteresYSenalaLoQueNoEs)
{
    struct Caso
    {
        const char* utf8;
        std::size_t maximo;
        const char* bytes;
    };
    const Caso casos[] = {
        {"", 5, ""},
        {"abc", 0, ""},
        {"abc", 2, "ab"},
        {"ñandú", 5,
         "\xF1"
         "and\xFA"},
        {"ñandú", 1, "\xF1"},
        {"a€b", 2, "a\x80"},
        {"日x", 9, "?x"},
        {"a😀b", 9, "a?b"},
        {"\xC3", 9, "?"}, // cut in the middle of a character
        {"\xE2\x82x", 9, "??x"},
        {"\xFF\xFEx", 9, "??x"},
        {"\xC0\xAFx", 9, "??x"}, // a longer way to write "/"
        {"x\x80y", 9, "x?y"},
    };
    for (const Caso& caso : casos)
    {
        std::string bytes;
        agregarWindows1252(bytes, caso.utf8, caso.maximo);
        EXPECT_EQ(caso.bytes, bytes) << caso.utf8;
    }
}
