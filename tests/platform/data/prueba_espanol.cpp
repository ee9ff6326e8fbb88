#include "apoyo/datos.h"
#include "platform/data/conexion.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace
{
class Espanol : public testing::Test
{
protected:
    Espanol()
    {
        const QString ruta = carpeta.filePath(QStringLiteral("Base.mdb"));
        Conexion::crear(ruta);
        conexion.abrir(ruta);
    }
    QTemporaryDir carpeta;
    Conexion conexion;
};

int signo(int n)
{
    return n < 0 ? -1 : n > 0 ? 1 : 0;
}
} // namespace

TEST_F(Espanol, OrdenDeTodosContraTodos)
{
    // In their order; the texts of one inner list are equal. The letters decide before the accents do.
    const std::vector<std::vector<std::string>> orden = {{""},       {" "},
                                                         {"1"},      {"a", "A"},
                                                         {"á", "Á"}, {"ab", "AB", "aB"},
                                                         {"áb"},     {"abc"},
                                                         {"Águeda"}, {"Agüero", "AGÜERO"},
                                                         {"Ana"},    {"Aña"},
                                                         {"Año"},    {"Aoa"},
                                                         {"Muñoz"},  {"nz"},
                                                         {"ñ", "Ñ"}, {"ña", "ÑA"},
                                                         {"o"},      {"u"},
                                                         {"ú"},      {"ü"},
                                                         {"z"},      {"日"}};
    for (std::size_t a = 0; a < orden.size(); ++a)
    {
        for (std::size_t b = 0; b < orden.size(); ++b)
        {
            for (const std::string& izquierdo : orden[a])
            {
                for (const std::string& derecho : orden[b])
                {
                    EXPECT_EQ(a < b   ? -1
                              : a > b ? 1
                                      : 0,
                              signo(compararEspanol(izquierdo, derecho)))
                        << izquierdo << " / " << derecho;
                }
            }
        }
    }
    conexion.ejecutar("CREATE TABLE t (n TEXT COLLATE espanol)");
    conexion.ejecutar("CREATE INDEX i ON t (n)");
    conexion.ejecutar("INSERT INTO t VALUES ('Ortiz'), ('Ñáñez'), ('nuñez'), ('Álvarez'), ('ALVAREZ'), ('Zárate')");
    EXPECT_EQ("ALVAREZ;Álvarez;nuñez;Ñáñez;Ortiz;Zárate", filas(conexion, "SELECT n FROM t ORDER BY n"));
    EXPECT_EQ("Ñáñez", filas(conexion, "SELECT n FROM t WHERE n = ?", "ÑÁÑEZ"));
    EXPECT_EQ("ALVAREZ", filas(conexion, "SELECT n FROM t WHERE n = ?", "alvarez"));
}

TEST_F(Espanol, BytesQueNoSonUtf8TienenSuLugar)
{
    const std::string textos[] = {"\xFF",
                                  "a\xFF",
                                  "a\xC3",
                                  "\xC3\x28",
                                  "a",
                                  "\xE1"
                                  "b",
                                  "á",
                                  "\xED\xA0\x80",
                                  "\xF4\x90\x80\x80"};
    for (const std::string& a : textos)
    {
        for (const std::string& b : textos)
        {
            EXPECT_EQ(signo(compararEspanol(a, b)), -signo(compararEspanol(b, a)));
            for (const std::string& c : textos)
            {
                EXPECT_TRUE(compararEspanol(a, b) >= 0 || compararEspanol(b, c) >= 0 || compararEspanol(a, c) < 0);
            }
        }
    }
}

TEST_F(Espanol, Like)
{
    struct Caso
    {
        const char* texto;
        const char* patron;
        bool coincide;
    };
    const Caso casos[] = {
        {"Muñoz", "muñ%", true},   {"MUÑOZ", "muñ%", true},    {"Munoz", "muñ%", false},
        {"Alvarez", "ál%", false}, {"ÁLVAREZ", "%ál%z", true}, {"abc", "_b_", true},
        {"ñ", "_", true},          {"ñ", "__", false},         {"", "%", true},
        {"a", "", false},          {"abc", "%b", false},       {"D'Angelo", "d'a%", true},
        {"100%", "100\\%", true},  {"100x", "100\\%", false},  {"a\\b", "a\\\\b", true},
        {"a", "a\\", false},
    };
    for (const Caso& caso : casos)
    {
        EXPECT_EQ(caso.coincide, conexion.hay("SELECT 1 WHERE ? LIKE ? ESCAPE '\\'", caso.texto, caso.patron))
            << caso.texto << " LIKE " << caso.patron;
        if (QByteArray(caso.patron).count('\\') == 0)
        {
            EXPECT_EQ(caso.coincide, conexion.hay("SELECT 1 WHERE ? LIKE ?", caso.texto, caso.patron));
        }
    }
    EXPECT_EQ("Null|1", filas(conexion, "SELECT NULL LIKE 'a' AS r, 123 LIKE '1%' AS s"));
    EXPECT_ANY_THROW(static_cast<void>(conexion.hay("SELECT 1 WHERE 'a' LIKE 'a' ESCAPE 'ab'")));
}
