// The database file: what is refused when it is opened, and what compacting it leaves.
#include "apoyo/archivos_de_prueba.h"
#include "errores.h"
#include "limite_de_archivos.h"
#include "platform/data/conexion.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <filesystem>
#include <gtest/gtest.h>
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

/// A database of some hundred pages in "Base.mdb".
class ArchivoDeBase : public testing::Test
{
protected:
    ArchivoDeBase()
    {
        Conexion::crear(base);
        Conexion conexion;
        conexion.abrir(base);
        conexion.ejecutar("CREATE TABLE t (n TEXT COLLATE espanol)");
        conexion.ejecutar("CREATE INDEX i ON t (n)");
        conexion.ejecutar(
            "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < 5000) "
            "INSERT INTO t SELECT 'Ñandú ' || char(65 + i % 2 * 32 + i % 26) || hex(randomblob(40)) FROM c");
        conexion.cerrar();
        bytes = leerArchivo(base);
    }
    [[nodiscard]] QString en(const char* nombre) const { return carpeta.filePath(QString::fromLatin1(nombre)); }
    [[nodiscard]] QString archivos() const
    {
        return QDir(carpeta.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name).join(u' ');
    }
    QTemporaryDir carpeta;
    QString base = carpeta.filePath(QStringLiteral("Base.mdb"));
    QByteArray bytes;
};
const QString temporal = QStringLiteral("Temporal.mdb");
} // namespace

TEST_F(ArchivoDeBase, LoQueNoEsUnaBaseFallaAlAbrirAlComprobarYAlCompactar)
{
    const QByteArray sinTablas = QByteArray(bytes).replace(100, 4096 - 100, QByteArray(4096 - 100, '\x5A'));
    const QByteArray otroId = QByteArray(bytes).replace(68, 4, QByteArray(4, '\x01'));
    struct Caso
    {
        QByteArray bytes;
        const char* falla;
    };
    const Caso casos[] = {
        {"", "26 El archivo no es una base de datos de este programa"},
        {QByteArray(5000, 'x'), "26 El archivo no es una base de datos"},
        {"SQLite format 3", "26 El archivo no es una base de datos"},
        {bytes.first(bytes.size() / 2), "11 La base de datos está dañada"},
        {bytes.first(bytes.size() - 1), "11 La base de datos está dañada"},
        {sinTablas, "11 La base de datos está dañada"},
        {otroId, "26 El archivo no es una base de datos de este programa"},
    };
    for (const Caso& caso : casos)
    {
        escribirArchivo(en("mala"), caso.bytes);
        Conexion conexion;
        EXPECT_EQ(caso.falla, fallaDe([&] { conexion.abrir(en("mala")); }).toStdString());
        EXPECT_EQ(caso.falla, fallaDe([&] { Conexion::comprobar(en("mala")); }).toStdString());
        EXPECT_EQ(caso.falla, fallaDe([&] { Conexion::compactar(en("mala"), temporal); }).toStdString());
        EXPECT_FALSE(conexion.abierta());
        EXPECT_EQ(caso.bytes, leerArchivo(en("mala"))) << "a failed opening must not write";
        EXPECT_EQ(QStringLiteral("Base.ldb Base.mdb mala mala.ldb"), archivos());
    }
    const QByteArray enMedio = QByteArray(bytes).replace(4096 * 20, 4096 * 5, QByteArray(4096 * 5, '\xEE'));
    escribirArchivo(en("mala"), enMedio);
    EXPECT_TRUE(fallaDe([&] { Conexion::comprobar(en("mala")); }).startsWith(u"11 La base de datos está dañada"));
    EXPECT_EQ(11, numeroDe([&] { Conexion::compactar(en("mala"), temporal); }) & 0xFF);
    EXPECT_EQ(enMedio, leerArchivo(en("mala")));
    ajeno(base, "PRAGMA writable_schema=ON; UPDATE sqlite_schema SET sql = "
                "'CREATE INDEX i ON t (n COLLATE BINARY)' WHERE name = 'i'");
    EXPECT_EQ("11 La base de datos está dañada (el índice i no sigue a su tabla)",
              fallaDe([&] { Conexion::comprobar(base); }).toStdString());
}

TEST_F(ArchivoDeBase, UnaQueFaltaNoSeCrea)
{
    Conexion conexion;
    EXPECT_EQ("14 No se encontró la base de datos: " + QDir::toNativeSeparators(en("falta.mdb")).toStdString(),
              fallaDe([&] { conexion.abrir(en("falta.mdb")); }).toStdString());
    EXPECT_EQ(14, numeroDe([&] { conexion.abrir(carpeta.path()); }));
    EXPECT_EQ(75, numeroDe([&] { Conexion::crear(base); }));
    EXPECT_EQ(bytes, leerArchivo(base));
    EXPECT_EQ(QStringLiteral("Base.ldb Base.mdb"), archivos());
}

TEST_F(ArchivoDeBase, UnaEnModoWalVuelveASerUnSoloArchivo)
{
    ajeno(base, "PRAGMA journal_mode=WAL");
    Conexion conexion;
    conexion.abrir(base);
    conexion.ejecutar("INSERT INTO t VALUES ('a')");
    EXPECT_EQ(QStringLiteral("Base.ldb Base.mdb"), archivos());
}

TEST_F(ArchivoDeBase, CompactarRehaceElArchivoDetrasDelEnlaceYTiraLosRestos)
{
    Conexion conexion;
    conexion.abrir(base);
    conexion.ejecutar("DELETE FROM t WHERE rowid % 10 <> 0");
    conexion.cerrar();
    escribirArchivo(en("Temporal.mdb"), "resto");
    QString ruta = base;
#ifndef _WIN32
    const QTemporaryDir otra;
    ruta = otra.filePath(QStringLiteral("DBBrivo.mdb"));
    std::filesystem::create_symlink(base.toStdString(), ruta.toStdString());
#endif
    Conexion::compactar(ruta, temporal);
    EXPECT_LT(leerArchivo(base).size(), bytes.size() / 2);
    EXPECT_EQ(QStringLiteral("Base.ldb Base.mdb"), archivos());
    conexion.abrir(ruta); // it has the program's mark
    EXPECT_EQ(500, conexion.consultar("SELECT * FROM t WHERE n LIKE 'ñANDÚ%'").cantidad());
#ifndef _WIN32
    EXPECT_EQ(QStringList(QStringLiteral("DBBrivo.mdb")), QDir(otra.path()).entryList(QDir::Files));
    EXPECT_TRUE(QFileInfo(ruta).isSymbolicLink());
#endif
    EXPECT_EQ(70, numeroDe([&] { Conexion::compactar(base, temporal); })) << "open by the link's name";
}

TEST_F(ArchivoDeBase, CompactarNoTocaLoQueNoDebeNiDejaNadaCuandoFalla)
{
    QFile::setPermissions(base, QFile::ReadOwner | QFile::ReadGroup);
    EXPECT_EQ("75 Error de acceso a la ruta o al archivo: " + QDir::toNativeSeparators(base).toStdString() +
                  " está protegido contra escritura",
              fallaDe([&] { Conexion::compactar(base, temporal); }).toStdString());
    QFile::setPermissions(base, QFile::ReadOwner | QFile::WriteOwner);
#ifndef _WIN32
    {
        const LimiteDeArchivos limite(300'000);
        EXPECT_NE(0, numeroDe([&] { Conexion::compactar(base, temporal); }));
    }
#endif
    EXPECT_ANY_THROW(Conexion::compactar(base, temporal, [](qint64, qint64) { throw 0; }));
    EXPECT_EQ(bytes, leerArchivo(base));
    EXPECT_EQ(QStringLiteral("Base.ldb Base.mdb"), archivos());
}
