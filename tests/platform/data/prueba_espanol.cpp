#include "platform/data/conexion.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace
{
struct BaseVacia
{
    QTemporaryDir carpeta;
    Conexion conexion;

    BaseVacia()
    {
        const QString ruta = carpeta.filePath(QStringLiteral("Base.mdb"));
        Conexion::crear(ruta);
        conexion.abrir(ruta);
    }
};

int signo(int n)
{
    return n < 0 ? -1 : n > 0 ? 1 : 0;
}
} // namespace

TEST(Espanol, OrdenDeTodosContraTodos)
{
    // In their order; the texts of one inner list are equal.
    const std::vector<std::vector<std::string>> orden = {
        {""},
        {" "},
        {"1"},
        {"a", "A"},
        {"á", "Á"},
        {"ab", "AB", "aB"},
        {"áb"},
        {"abc"},
        {"Águeda"}, // the letters decide before the accents do
        {"Agüero", "AGÜERO"},
        {"Ana"},
        {"Aña"},
        {"Año"},
        {"Aoa"},
        {"Muñoz"},
        {"nz"},
        {"ñ", "Ñ"},
        {"ña", "ÑA"},
        {"o"},
        {"u"},
        {"ú"},
        {"ü"},
        {"z"},
        {"日"},
    };
    std::vector<std::pair<std::size_t, std::string>> textos;
    for (std::size_t lugar = 0; lugar < orden.size(); ++lugar)
    {
        for (const std::string& texto : orden[lugar])
        {
            textos.emplace_back(lugar, texto);
        }
    }
    for (const auto& [lugarA, a] : textos)
    {
        for (const auto& [lugarB, b] : textos)
        {
            const int debe = lugarA < lugarB ? -1 : lugarA > lugarB ? 1 : 0;
            EXPECT_EQ(debe, signo(compararEspanol(a, b))) << a << " / " << b;
        }
    }
}

TEST(Espanol, BytesQueNoSonUtf8TienenSuLugar)
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
        EXPECT_EQ(0, compararEspanol(a, a));
        for (const std::string& b : textos)
        {
            EXPECT_EQ(signo(compararEspanol(a, b)), -signo(compararEspanol(b, a)));
            for (const std::string& c : textos)
            {
                if (compararEspanol(a, b) < 0 && compararEspanol(b, c) < 0)
                {
                    EXPECT_LT(compararEspanol(a, c), 0);
                }
            }
        }
    }
}

TEST(Espanol, LaBaseOrdenaYComparaConEl)
{
    BaseVacia base;
    base.conexion.ejecutar("CREATE TABLE t (n TEXT COLLATE espanol)");
    base.conexion.ejecutar("CREATE INDEX i ON t (n)");
    for (const char* nombre : {"Ortiz", "Ñáñez", "nuñez", "Álvarez", "ALVAREZ", "Zárate"})
    {
        base.conexion.ejecutar("INSERT INTO t VALUES (?)", nombre);
    }
    QStringList nombres;
    for (const Fila& fila : base.conexion.consultar("SELECT n FROM t ORDER BY n"))
    {
        nombres += fila.texto("n");
    }
    EXPECT_EQ("ALVAREZ Álvarez nuñez Ñáñez Ortiz Zárate", nombres.join(u' ').toStdString());
    EXPECT_EQ(1, base.conexion.consultar("SELECT n FROM t WHERE n = ?", "ÑÁÑEZ").cantidad());
    EXPECT_EQ(1, base.conexion.consultar("SELECT n FROM t WHERE n = ?", "alvarez").cantidad());
}

TEST(Espanol, Like)
{
    struct Caso
    {
        const char* texto;
        const char* patron;
        bool coincide;
    };
    const Caso casos[] = {
        {"Muñoz", "muñ%", true},
        {"MUÑOZ", "muñ%", true},
        {"Munoz", "muñ%", false},
        {"Álvarez", "ál%", true},
        {"Alvarez", "ál%", false},
        {"ÁLVAREZ", "%ál%z", true},
        {"abc", "_b_", true},
        {"ñ", "_", true},
        {"ñ", "__", false},
        {"", "%", true},
        {"", "", true},
        {"a", "", false},
        {"abc", "abc%", true},
        {"abc", "%c", true},
        {"abc", "%b", false},
        {"aab", "a%ab", true},
        {"mississippi", "m%iss%pi", true},
        {"aXbXc", "a%b%d", false},
        {"D'Angelo", "d'a%", true},
        {"100%", "100%", true},
        {"a", "%%_", true},
        {"áé", "%é", true},
    };
    BaseVacia base;
    for (const Caso& caso : casos)
    {
        EXPECT_EQ(caso.coincide, base.conexion.hay("SELECT 1 WHERE ? LIKE ?", caso.texto, caso.patron))
            << caso.texto << " LIKE " << caso.patron;
    }
    const Caso conEscape[] = {
        {"100%", "100\\%", true}, {"100x", "100\\%", false}, {"a_b", "a\\_b", true}, {"axb", "a\\_b", false},
        {"a\\b", "a\\\\b", true}, {"a", "a\\", false},       {"a%b", "%\\%b", true},
    };
    for (const Caso& caso : conEscape)
    {
        EXPECT_EQ(caso.coincide, base.conexion.hay("SELECT 1 WHERE ? LIKE ? ESCAPE '\\'", caso.texto, caso.patron))
            << caso.texto << " LIKE " << caso.patron;
    }
    EXPECT_TRUE(base.conexion.consultar("SELECT NULL LIKE 'a' AS r").primera().esNulo("r"));
    EXPECT_ANY_THROW(static_cast<void>(base.conexion.hay("SELECT 1 WHERE 'a' LIKE 'a' ESCAPE 'ab'")));
    EXPECT_TRUE(base.conexion.hay("SELECT 1 WHERE 123 LIKE '1%'"));
}
