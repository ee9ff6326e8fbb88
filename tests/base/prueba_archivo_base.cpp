// The database file: what is refused when it is opened, and what compacting it leaves.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/limite_de_archivos.h"
#include "base_nueva.h"

#include <QDir>
#include <QFile>
#include <sqlite3.h>

namespace
{
/// Runs SQL on a file with the bare library, as a foreign program would.
void ajeno(const QString& ruta, const char* sql)
{
    sqlite3* base = nullptr;
    EXPECT_EQ(SQLITE_OK, sqlite3_open(ruta.toUtf8().constData(), &base));
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(base, sql, nullptr, nullptr, nullptr));
    sqlite3_close(base);
}

/// A database of some hundred pages.
class ArchivoDeBase : public BaseNueva
{
protected:
    ArchivoDeBase()
    {
        conexion.ejecutar("CREATE TABLE t (n TEXT COLLATE espanol)");
        conexion.ejecutar("CREATE INDEX i ON t (n)");
        conexion.ejecutar(
            "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < 5000) "
            "INSERT INTO t SELECT 'Ñandú ' || char(65 + i % 2 * 32 + i % 26) || printf('%080d', i * 7919) FROM c");
        conexion.cerrar();
    }
    [[nodiscard]] std::string archivos() const { return archivosDe(carpeta.path()); }
    [[nodiscard]] std::string compactando() const
    {
        return fallaDe([&] { Conexion::compactar(base, "Temporal.mdb"); }).toStdString();
    }
};
} // namespace

TEST_F(ArchivoDeBase, LoQueNoEsUnaBaseFallaAlAbrirAlComprobarYAlCompactarSinQueSeEscriba)
{
    const QByteArray bytes = leerArchivo(base);
    const auto con = [&](qsizetype desde, qsizetype cuantos, char c)
    { return QByteArray(bytes).replace(desde, cuantos, QByteArray(cuantos, c)); };
    const std::pair<QByteArray, const char*> casos[] = {
        {"", "26 El archivo no es una base de datos de este programa"},
        {QByteArray(5000, 'x'), "26 El archivo no es una base de datos"},
        {"SQLite format 3", "26 El archivo no es una base de datos"},
        {bytes.first(bytes.size() - 1), "11 La base de datos está dañada"},
        {con(100, 4096 - 100, 'Z'), "11 La base de datos está dañada"},
        {con(68, 4, 1), "26 El archivo no es una base de datos de este programa"}, // the mark of another program
    };
    for (const auto& [mala, falla] : casos)
    {
        escribirArchivo(base, mala);
        EXPECT_EQ(falla, fallaDe([&] { conexion.abrir(base); }).toStdString());
        EXPECT_EQ(falla, fallaDe([&] { Conexion::comprobar(base); }).toStdString());
        EXPECT_EQ(falla, compactando());
        EXPECT_EQ(mala, leerArchivo(base));
        EXPECT_EQ("Bäse ñ.mdb", archivos());
    }
    escribirArchivo(base, con(20 * qsizetype{4096}, 5 * qsizetype{4096}, 'Z'));
    EXPECT_TRUE(compactando().starts_with("11 La base de datos está dañada"));
    escribirArchivo(base, bytes);
    ajeno(base, "PRAGMA writable_schema=ON; UPDATE sqlite_schema SET sql = "
                "'CREATE INDEX i ON t (n COLLATE BINARY)' WHERE name = 'i'");
    EXPECT_EQ("11 La base de datos está dañada (el índice i no sigue a su tabla)",
              fallaDe([&] { Conexion::comprobar(base); }).toStdString());
    QFile::remove(base);
    EXPECT_EQ("14 No se encontró la base de datos: " + base.toStdString(),
              fallaDe([&] { conexion.abrir(base); }).toStdString());
    EXPECT_EQ("", archivos());
}

TEST_F(ArchivoDeBase, UnaEnModoWalVuelveASerUnSoloArchivo)
{
    ajeno(base, "PRAGMA journal_mode=WAL");
    conexion.abrir(base);
    conexion.ejecutar("INSERT INTO t VALUES ('a')");
    EXPECT_EQ("Bäse ñ.mdb", archivos());
    EXPECT_EQ(75, numeroDe([&] { Conexion::crear(base); }));
}

TEST_F(ArchivoDeBase, CompactarRehaceONoCambiaNada)
{
    EXPECT_ANY_THROW(Conexion::compactar(base, "Temporal.mdb", [](qint64, qint64) { throw 0; }));
    conexion.abrir(base);
    conexion.ejecutar("DELETE FROM t WHERE rowid % 10 <> 0");
    EXPECT_TRUE(compactando().starts_with("70 "));
    conexion.cerrar();
    const QByteArray bytes = leerArchivo(base);
    QFile::setPermissions(base, QFile::ReadOwner | QFile::ReadGroup);
    EXPECT_EQ("75 Error de acceso a la ruta o al archivo: " + base.toStdString() + " está protegido contra escritura",
              compactando());
    QFile::setPermissions(base, QFile::ReadOwner | QFile::WriteOwner);
#ifndef _WIN32
    {
        const LimiteDeArchivos limite(30'000);
        EXPECT_NE("", compactando());
    }
#endif
    EXPECT_EQ(bytes, leerArchivo(base));
    EXPECT_EQ("Bäse ñ.mdb", archivos());

    escribirArchivo(en("Temporal.mdb"), "what one that was killed left");
    EXPECT_EQ("", compactando());
    EXPECT_LT(leerArchivo(base).size(), bytes.size() / 2);
    EXPECT_EQ("Bäse ñ.mdb", archivos());
    conexion.abrir(base); // it has the program's mark
    EXPECT_EQ(500, cuantos(conexion, "t WHERE n LIKE 'ñANDÚ%'"));
}
