#include "base_nueva.h"

namespace
{
using Espanol = BaseNueva;

/// Compares all with all; "=" stands between equal ones.
void enOrden(const QByteArray& orden)
{
    const auto signo = [](int n) { return n < 0 ? -1 : n > 0 ? 1 : 0; };
    std::vector<std::pair<int, std::string>> textos;
    for (int lugar = 0; const QByteArray& iguales : orden.split('/'))
    {
        ++lugar;
        for (const QByteArray& texto : iguales.split('='))
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
}
} // namespace

TEST_F(Espanol, OrdenDeTodosContraTodos)
{
    // The letters decide before the accents do; bytes that are not UTF-8 have their place.
    enOrden("/ /1/a=A/á=Á/ab=AB=aB/áb/abc/Águeda/Agüero=AGÜERO/Ana/Aña/Año/Aoa/Muñoz/nz/ñ=Ñ/ña=ÑA/o/u/ú/ü/z/日");
    enOrden("a/á/a\xC3/a\xFF/\xED\xA0\x80/\xF4\x90\x80\x80/\xC3(/\xE1\x62/\xFF");
    conexion.ejecutar("CREATE TABLE t (n TEXT COLLATE espanol)");
    conexion.ejecutar("CREATE INDEX i ON t (n)");
    conexion.ejecutar("INSERT INTO t VALUES ('Ortiz'), ('Ñáñez'), ('nuñez'), ('Álvarez'), ('ALVAREZ'), ('Zárate')");
    EXPECT_EQ("ALVAREZ;Álvarez;nuñez;Ñáñez;Ortiz;Zárate", filas(conexion, "SELECT n FROM t ORDER BY n"));
    EXPECT_EQ("ALVAREZ;Ñáñez", filas(conexion, "SELECT n FROM t WHERE n IN (?, ?) ORDER BY n", "ÑÁÑEZ", "alvarez"));
}

TEST_F(Espanol, Like)
{
    // A text, "~" where it is like and "!" where it is not, and the pattern.
    for (const QString caso :
         {"Muñoz~muñ%", "MUÑOZ~muñ%", "Munoz!muñ%", "Alvarez!ál%", "ÁLVAREZ~%ál%z", "abc~_b_", "ñ~_", "ñ!__", "~%",
          "a!", "abc!%b", "D'Angelo~d'a%", "100%~100\\%", "100x!100\\%", "a\\b~a\\\\b", "a!a\\"})
    {
        const bool coincide = caso.contains(u'~');
        const QStringList lados = caso.split(coincide ? u'~' : u'!');
        EXPECT_EQ(coincide, conexion.hay("SELECT 1 WHERE ? LIKE ? ESCAPE '\\'", lados[0], lados[1]))
            << qPrintable(caso);
        EXPECT_TRUE(caso.contains(u'\\') || coincide == conexion.hay("SELECT 1 WHERE ? LIKE ?", lados[0], lados[1]));
    }
    EXPECT_EQ("Null|1", filas(conexion, "SELECT NULL LIKE 'a' AS r, 123 LIKE '1%' AS s"));
    EXPECT_ANY_THROW(static_cast<void>(conexion.hay("SELECT 1 WHERE 'a' LIKE 'a' ESCAPE 'ab'")));
}
