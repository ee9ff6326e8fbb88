#include "base_nueva.h"

namespace
{
using Espanol = BaseNueva;

int signo(int n)
{
    return n < 0 ? -1 : n > 0 ? 1 : 0;
}
} // namespace

TEST_F(Espanol, OrdenDeTodosContraTodos)
{
    // In their order; "=" stands between equal ones. The letters decide before the accents do.
    const QString orden = QStringLiteral("/ /1/a=A/á=Á/ab=AB=aB/áb/abc/Águeda/Agüero=AGÜERO/Ana/Aña/Año/Aoa/Muñoz/nz/"
                                         "ñ=Ñ/ña=ÑA/o/u/ú/ü/z/日");
    std::vector<std::pair<int, std::string>> textos;
    for (int lugar = 0; const QString& iguales : orden.split(u'/'))
    {
        ++lugar;
        for (const QString& texto : iguales.split(u'='))
        {
            textos.emplace_back(lugar, texto.toStdString());
        }
    }
    for (const auto& [lugar, texto] : textos)
    {
        for (const auto& [otroLugar, otro] : textos)
        {
            EXPECT_EQ(signo(lugar - otroLugar), signo(compararEspanol(texto, otro))) << texto << " / " << otro;
        }
    }
    conexion.ejecutar("CREATE TABLE t (n TEXT COLLATE espanol)");
    conexion.ejecutar("CREATE INDEX i ON t (n)");
    conexion.ejecutar("INSERT INTO t VALUES ('Ortiz'), ('Ñáñez'), ('nuñez'), ('Álvarez'), ('ALVAREZ'), ('Zárate')");
    EXPECT_EQ("ALVAREZ;Álvarez;nuñez;Ñáñez;Ortiz;Zárate", filas(conexion, "SELECT n FROM t ORDER BY n"));
    EXPECT_EQ("ALVAREZ;Ñáñez", filas(conexion, "SELECT n FROM t WHERE n IN (?, ?) ORDER BY n", "ÑÁÑEZ", "alvarez"));
}

TEST(BytesQueNoSonUtf8, TienenSuLugar)
{
    std::vector<std::string> orden = {"\xFF",     "a\xFF", "a\xC3",        "\xC3\x28",        "a",
                                      "\xE1\x62", "á",     "\xED\xA0\x80", "\xF4\x90\x80\x80"};
    std::sort(orden.begin(), orden.end(), [](const auto& a, const auto& b) { return compararEspanol(a, b) < 0; });
    for (std::size_t i = 0; i < orden.size(); ++i)
    {
        for (std::size_t j = 0; j < orden.size(); ++j)
        {
            EXPECT_EQ(signo(static_cast<int>(i) - static_cast<int>(j)), signo(compararEspanol(orden[i], orden[j])));
        }
    }
}

TEST_F(Espanol, Like)
{
    const std::tuple<const char*, const char*, bool> casos[] = {
        {"Muñoz", "muñ%", true},   {"MUÑOZ", "muñ%", true},    {"Munoz", "muñ%", false},
        {"Alvarez", "ál%", false}, {"ÁLVAREZ", "%ál%z", true}, {"abc", "_b_", true},
        {"ñ", "_", true},          {"ñ", "__", false},         {"", "%", true},
        {"a", "", false},          {"abc", "%b", false},       {"D'Angelo", "d'a%", true},
        {"100%", "100\\%", true},  {"100x", "100\\%", false},  {"a\\b", "a\\\\b", true},
        {"a", "a\\", false},
    };
    for (const auto& [texto, patron, coincide] : casos)
    {
        EXPECT_EQ(coincide, conexion.hay("SELECT 1 WHERE ? LIKE ? ESCAPE '\\'", texto, patron)) << texto << patron;
        EXPECT_TRUE(strchr(patron, '\\') != nullptr ||
                    coincide == conexion.hay("SELECT 1 WHERE ? LIKE ?", texto, patron))
            << texto << patron;
    }
    EXPECT_EQ("Null|1", filas(conexion, "SELECT NULL LIKE 'a' AS r, 123 LIKE '1%' AS s"));
    EXPECT_ANY_THROW(static_cast<void>(conexion.hay("SELECT 1 WHERE 'a' LIKE 'a' ESCAPE 'ab'")));
}
