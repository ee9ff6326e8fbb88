#include "apoyo/archivos_de_prueba.h"
#include "apoyo/base_de_prueba.h"
#include "errores.h"

#include <QDir>
#include <QTemporaryDir>
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

/// A database of some hundred pages.
void crearGrande(const QString& ruta)
{
    Conexion::crear(ruta);
    Conexion conexion;
    conexion.abrir(ruta);
    conexion.ejecutar("CREATE TABLE t (n TEXT COLLATE espanol)");
    conexion.ejecutar("CREATE INDEX i ON t (n)");
    conexion.ejecutar("WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < 5000) "
                      "INSERT INTO t SELECT 'Ñandú ' || char(65 + i % 2 * 32 + i % 26) || hex(randomblob(40)) FROM c");
}

class ArchivoDeBase : public testing::Test
{
protected:
    [[nodiscard]] QString en(const char* nombre) const { return carpeta.filePath(QString::fromLatin1(nombre)); }
    [[nodiscard]] QStringList archivos() const { return QDir(carpeta.path()).entryList(QDir::Files, QDir::Name); }
    QTemporaryDir carpeta;
};
} // namespace

TEST_F(ArchivoDeBase, LoQueNoEsUnaBaseFallaAlAbrir)
{
    crearGrande(en("buena.mdb"));
    const QByteArray buena = leerArchivo(en("buena.mdb"));
    QByteArray sinTablas = buena;
    sinTablas.replace(100, 4096 - 100, QByteArray(4096 - 100, '\x5A'));
    QByteArray otroId = buena;
    otroId.replace(68, 4, QByteArray(4, '\x01'));
    struct Caso
    {
        const char* nombre;
        QByteArray bytes;
        int numero;
        const char* descripcion;
    };
    const Caso casos[] = {
        {"vacia", "", 26, "El archivo no es una base de datos de este programa"},
        {"texto", QByteArray(5000, 'x'), 26, "El archivo no es una base de datos"},
        {"corta", "SQLite format 3", 26, "El archivo no es una base de datos"},
        {"cortada", buena.first(buena.size() / 2), 11, "La base de datos está dañada"},
        {"sin_final", buena.first(buena.size() - 1), 11, "La base de datos está dañada"},
        {"primera_pagina", sinTablas, 11, "La base de datos está dañada"},
        {"ajena", otroId, 26, "El archivo no es una base de datos de este programa"},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.nombre);
        escribirArchivo(en(caso.nombre), caso.bytes);
        for (const bool comprobar : {false, true})
        {
            Conexion conexion;
            try
            {
                comprobar ? Conexion::comprobar(en(caso.nombre)) : conexion.abrir(en(caso.nombre));
                ADD_FAILURE() << "opened";
            }
            catch (const ErrorDeEjecucion& error)
            {
                EXPECT_EQ(caso.numero, error.numero());
                EXPECT_EQ(caso.descripcion, error.descripcion().toStdString());
            }
            EXPECT_FALSE(conexion.abierta());
        }
        EXPECT_EQ(caso.bytes, leerArchivo(en(caso.nombre))) << "a failed opening must not write";
    }
}

TEST_F(ArchivoDeBase, UnaQueFaltaNoSeCrea)
{
    Conexion conexion;
    try
    {
        conexion.abrir(en("falta.mdb"));
        FAIL();
    }
    catch (const ErrorDeEjecucion& error)
    {
        EXPECT_EQ(14, error.numero());
        EXPECT_EQ("No se encontró la base de datos: " + QDir::toNativeSeparators(en("falta.mdb")).toStdString(),
                  error.descripcion().toStdString());
    }
    EXPECT_EQ(14, numeroDe([&] { conexion.abrir(carpeta.path()); }));
    EXPECT_EQ(QStringList(), archivos());
    escribirArchivo(en("esta.mdb"), "x");
    EXPECT_EQ(75, numeroDe([&] { Conexion::crear(en("esta.mdb")); }));
    EXPECT_EQ(QByteArray("x"), leerArchivo(en("esta.mdb")));
}

TEST_F(ArchivoDeBase, UnaEnModoWalVuelveASerUnSoloArchivo)
{
    crearGrande(en("Base.mdb"));
    ajeno(en("Base.mdb"), "PRAGMA journal_mode=WAL");
    Conexion conexion;
    conexion.abrir(en("Base.mdb"));
    conexion.ejecutar("INSERT INTO t VALUES ('a')");
    EXPECT_EQ((QStringList{QStringLiteral("Base.ldb"), QStringLiteral("Base.mdb")}), archivos());
}

TEST_F(ArchivoDeBase, CompactarRehaceYComprueba)
{
    crearGrande(en("Base.mdb"));
    Conexion conexion;
    conexion.abrir(en("Base.mdb"));
    conexion.ejecutar("DELETE FROM t WHERE rowid % 10 <> 0");
    conexion.cerrar();
    const QByteArray antes = leerArchivo(en("Base.mdb"));
    Conexion::compactar(en("Base.mdb"), en("Nueva.mdb"));
    EXPECT_EQ(antes, leerArchivo(en("Base.mdb")));
    EXPECT_LT(leerArchivo(en("Nueva.mdb")).size(), antes.size() / 2);
    conexion.abrir(en("Nueva.mdb")); // it has the program's mark
    EXPECT_EQ(500, conexion.consultar("SELECT * FROM t WHERE n LIKE 'ñANDÚ%'").cantidad());

    EXPECT_EQ(75, numeroDe([&] { Conexion::compactar(en("Base.mdb"), en("Nueva.mdb")); }));
    EXPECT_EQ(500, conexion.consultar("SELECT * FROM t").cantidad());
}

TEST_F(ArchivoDeBase, CompactarNoDejaNadaCuandoFalla)
{
    crearGrande(en("Base.mdb"));
    QByteArray danada = leerArchivo(en("Base.mdb"));
    danada.replace(4096 * 20, 4096 * 5, QByteArray(4096 * 5, '\xEE'));
    escribirArchivo(en("Danada.mdb"), danada);
    escribirArchivo(en("Texto.mdb"), QByteArray(9000, 'x'));
    const QStringList antes = archivos();
    EXPECT_EQ(11, numeroDe([&] { Conexion::compactar(en("Danada.mdb"), en("Nueva.mdb")); }) & 0xFF);
    EXPECT_EQ(26, numeroDe([&] { Conexion::compactar(en("Texto.mdb"), en("Nueva.mdb")); }));
    EXPECT_EQ(14, numeroDe([&] { Conexion::compactar(en("Falta.mdb"), en("Nueva.mdb")); }));
    EXPECT_EQ(14, numeroDe([&] { Conexion::compactar(en("Base.mdb"), en("nada/Nueva.mdb")); }) & 0xFF);
    EXPECT_EQ(antes, archivos());
    EXPECT_EQ(danada, leerArchivo(en("Danada.mdb")));
}

TEST_F(ArchivoDeBase, ComprobarHallaUnIndiceQueNoSigueASuTabla)
{
    crearGrande(en("Base.mdb"));
    EXPECT_NO_THROW(Conexion::comprobar(en("Base.mdb")));
    ajeno(en("Base.mdb"), "PRAGMA writable_schema=ON; UPDATE sqlite_schema SET sql = "
                          "'CREATE INDEX i ON t (n COLLATE BINARY)' WHERE name = 'i'");
    EXPECT_EQ(11, numeroDe([&] { Conexion::comprobar(en("Base.mdb")); }));
}

TEST(BaseDePruebaCompleta, DaLaBaseSembradaYReponeTodo)
{
    Rutinas::CuitActual = QStringLiteral("antes");
    {
        const BaseDePrueba base;
        EXPECT_TRUE(Rutinas::CuitActual.isEmpty());
        EXPECT_EQ(Rutinas::rutaBase(), QDir::toNativeSeparators(base.rutaBase()));
        agregar(base.conexion(), EmpresaDePrueba());
        const qint64 sucursal = agregar(base.conexion(), SucursalDePrueba());
        agregar(base.conexion(), DeclaracionDePrueba());
        agregar(base.conexion(), EmpleadoDePrueba{.acuerdo = Moneda::deEntero(100), .sucursal = sucursal});
        const Recordset empleados = base.conexion().consultar(
            "SELECT Sueldo, Razon FROM DDJJ_Empleados JOIN Empresas ON Empresas.CUIT = DDJJ_Empleados.Cuit "
            "JOIN Empresas_Sucursales ON ID = DDJJ_Empleados.Sucursal");
        EXPECT_EQ(Moneda::deEntero(1100), empleados.primera().moneda("Sueldo"));
        Rutinas::CuitActual = QStringLiteral("durante");
    }
    EXPECT_EQ(QStringLiteral("antes"), Rutinas::CuitActual);
    EXPECT_FALSE(Rutinas::Conexion.abierta());
    Rutinas::CuitActual.clear();
}
