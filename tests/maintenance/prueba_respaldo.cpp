// Backup and restore of the closed database file: what is made, what is refused, and what a failure or a kill leaves.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/hijo.h"
#include "apoyo/version_anterior.h"
#include "base/files/archivos_de_base.h"
#include "maintenance/esquema.h"
#include "maintenance/respaldo.h"

#include <QDir>
#include <QFile>
#include <filesystem>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace
{
/// The program's database B, another one O, the safety copy S and a backup C; none of them is open.
struct Respaldo : testing::Test
{
    Respaldo()
    {
        Rutinas::CerrarBase();
        QDir(base.ruta(QString())).mkpath(QStringLiteral("otra"));
        QDir(base.ruta(QString())).mkpath(QStringLiteral("Copias"));
        escribirArchivo(O, nueva);
    }
    ~Respaldo() override { Rutinas::AbrirBase(); }
    /// The database as it is but for `sql`.
    [[nodiscard]] QByteArray conCambio(const char* sql) const
    {
        const QString ruta = base.escribir(QStringLiteral("cambio"), viva);
        Conexion c;
        c.abrir(ruta);
        c.ejecutar(sql);
        c.cerrar();
        const QByteArray bytes = leerArchivo(ruta);
        QFile::remove(archivoDeCandado(ruta));
        QFile::remove(ruta);
        return bytes;
    }
    template <class A>
    [[nodiscard]] std::string falla(A accion) const
    {
        return fallaDe(accion).remove(base.ruta(QString()) + u'/').toStdString();
    }
    [[nodiscard]] std::string restaurando() const
    {
        return falla([&] { restaurar(O, B, S); });
    }
    std::string resguardando(const QString& origen) // NOLINT
    {
        return falla([&] { dano = resguardar(origen, prepararCopia(base.ruta(QStringLiteral("Copias/1")))); });
    }
    [[nodiscard]] std::string archivos() const { return archivosDe(base.ruta(QString())); }

    BaseDePrueba base;
    const QString B = base.rutaBase();
    const QString O = base.ruta(QStringLiteral("otra/DBBrivo.mdb"));
    const QString S = base.ruta(QStringLiteral("DBBrivo_Bak.mdb"));
    const QString C = base.ruta(QStringLiteral("Copias/1/DBBrivo.mdb"));
    const QByteArray viva = leerArchivo(B);
    const QByteArray nueva = conCambio("INSERT INTO Rubros (Codigo, Nombre) VALUES ('z', 'otra')");
    const QByteArray danada = QByteArray(viva).replace(viva.size() - 4096, 4096, QByteArray(4096, '\x5a'));
    QString dano; ///< what the last backup told of its copy
};
const std::string noEs = "26 El archivo no es una base de datos de este programa";
const std::string noVa = "75 Error de acceso a la ruta o al archivo: ";
} // namespace

TEST_F(Respaldo, LaCopiaEsIgualTambienLaDeUnaBaseDanada)
{
    const std::pair<QByteArray, const char*> casos[] = {
        {viva, ""},
        {danada, "La base de datos está dañada (página 32 del archivo)"},
        {viva.first(viva.size() / 2), "La base de datos está dañada"},
        {"no es una base", "El archivo no es una base de datos"},
        {nueva, ""},
    };
    for (const auto& [bytes, dicho] : casos)
    {
        escribirArchivo(O, bytes);
        EXPECT_EQ("", resguardando(O));
        EXPECT_EQ(dicho, dano.toStdString());
        EXPECT_EQ(bytes, leerArchivo(C));
        EXPECT_EQ("DBBrivo.mdb", archivosDe(base.ruta(QStringLiteral("Copias/1"))));
    }
    QFile::remove(O);
    EXPECT_EQ("53 No se encontró el archivo: otra/DBBrivo.mdb", resguardando(O));
    EXPECT_EQ(nueva, leerArchivo(C));
    QFile::remove(C);
    QDir(C).mkpath(QStringLiteral("."));
    EXPECT_EQ(noVa + "Copias/1/DBBrivo.mdb es una carpeta", resguardando(B));
    QDir(base.ruta(QStringLiteral("Copias"))).removeRecursively();
    EXPECT_EQ("76 No se encontró la ruta de acceso: Copias/1", resguardando(B));
}

TEST_F(Respaldo, SoloUnaBaseEnteraDelProgramaReemplaza)
{
    const std::pair<QByteArray, std::string> casos[] = {
        {"no es una base", "26 El archivo no es una base de datos"},
        {"", noEs},
        {viva.first(viva.size() / 2), "11 La base de datos está dañada"},
        {danada, "11 La base de datos está dañada (página 32 del archivo)"},
        {conCambio("DROP TABLE Parametros"), noEs + ": falta la tabla Parametros"},
        {conCambio("DELETE FROM Parametros"), noEs + ": falta la fila de Parametros"},
        {conCambio("ALTER TABLE RptEmpleados DROP COLUMN Acuerdo2"), noEs + ": falta la columna RptEmpleados.Acuerdo2"},
    };
    for (const auto& [bytes, dicho] : casos)
    {
        escribirArchivo(O, bytes);
        EXPECT_EQ(dicho, restaurando());
    }
    QFile::remove(O);
    EXPECT_EQ("53 No se encontró el archivo: otra/DBBrivo.mdb", restaurando());
    QDir(O).mkpath(QStringLiteral("."));
    EXPECT_EQ(noVa + "otra/DBBrivo.mdb es una carpeta", restaurando());
    QDir(O).removeRecursively();
    escribirArchivo(O, nueva);
    QDir(S).mkpath(QStringLiteral("."));
    EXPECT_EQ(noVa + "DBBrivo_Bak.mdb es una carpeta", restaurando());
    QDir(S).removeRecursively();
    QFile::setPermissions(B, QFile::ReadOwner | QFile::ReadGroup);
    EXPECT_EQ(noVa + "DBBrivo.mdb está protegido contra escritura", restaurando());
    QFile::setPermissions(B, QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(viva, leerArchivo(B));
    EXPECT_EQ("DBBrivo.mdb otra/DBBrivo.mdb", archivos());
    for (const char* version : {"1.2", "1.1", "1.0"}) // an older one serves: the next starts upgrade it
    {
        escribirArchivo(O, viva);
        volverAVersion(O, QString::fromLatin1(version));
        EXPECT_EQ("", restaurando()) << version;
    }
}

TEST_F(Respaldo, CadaTablaYColumnaHaceFalta)
{
    Conexion c;
    c.abrir(O);
    c.ejecutar("PRAGMA synchronous = OFF");
    const Recordset columnas =
        c.consultar("SELECT t.name AS t, c.name AS c FROM sqlite_schema t, pragma_table_info(t.name) c "
                    "WHERE t.type = 'table' AND t.name NOT LIKE 'sqlite%'");
    EXPECT_LT(100U, columnas.cantidad());
    for (const Fila& fila : columnas)
    {
        const QString cambio = QStringLiteral("ALTER TABLE %1 RENAME COLUMN %2 TO %3");
        c.ejecutar(cambio.arg(fila.texto("t"), fila.texto("c"), QStringLiteral("x")).toStdString());
        EXPECT_EQ(26, numeroDe([&] { exigirEsquema(O); })) << (fila.texto("t") + fila.texto("c")).toStdString();
        c.ejecutar(cambio.arg(fila.texto("t"), QStringLiteral("x"), fila.texto("c")).toStdString());
    }
    EXPECT_EQ("", falla([&] { exigirEsquema(O); }));
}

TEST(OtraCopia, DISABLED_TieneLaBaseAbierta)
{
    Conexion conexion;
    conexion.abrir(hijo::ruta());
    hijo::listoYEsperar();
}

// At the second time the database lies elsewhere, and each desk has a link to it.
TEST_F(Respaldo, LoQueOtraCopiaTieneAbiertoNoSeTocaYDetrasDeUnEnlaceSeTrabajaConElArchivo)
{
#ifdef _WIN32
    constexpr int veces = 1;
#else
    constexpr int veces = 2;
#endif
    for (int vez = 0; vez < veces; ++vez)
    {
        const QString lejos = base.ruta(QStringLiteral("lejos.mdb"));
        const QString otroPuesto = vez == 0 ? B : base.ruta(QStringLiteral("otro.mdb"));
        if (vez == 1)
        {
            QFile::rename(B, lejos);
            std::filesystem::create_symlink(lejos.toStdString(), B.toStdString());
            std::filesystem::create_symlink(lejos.toStdString(), otroPuesto.toStdString());
        }
        {
            Hijo programa(QStringLiteral("OtraCopia.DISABLED_TieneLaBaseAbierta"), otroPuesto);
            EXPECT_EQ(70, numeroDe([&] { resguardar(B, C); }));
            EXPECT_EQ(70, numeroDe([&] { restaurar(O, B, S); }));
            EXPECT_EQ(70, numeroDe([] { Rutinas::CompactarBase(); }));
        }
        {
            Hijo alli(QStringLiteral("OtraCopia.DISABLED_TieneLaBaseAbierta"), O);
            EXPECT_EQ(70, numeroDe([&] { restaurar(O, B, S); }));
        }
        EXPECT_EQ(viva, leerArchivo(B));
        EXPECT_EQ("", resguardando(B));
        EXPECT_EQ("", restaurando());
        EXPECT_EQ(viva, leerArchivo(C));
        EXPECT_EQ(viva, leerArchivo(S));
        EXPECT_EQ(nueva, leerArchivo(B));
        EXPECT_EQ("", falla([] { Rutinas::CompactarBase(); }));
        EXPECT_NE(nueva, leerArchivo(B));
        EXPECT_EQ(vez == 1, QFileInfo(B).isSymbolicLink());
        EXPECT_EQ(std::string("Copias/1/DBBrivo.mdb DBBrivo.mdb DBBrivo_Bak.mdb ") +
                      (vez == 1 ? "lejos.mdb otra/DBBrivo.mdb otro.mdb" : "otra/DBBrivo.mdb"),
                  archivos());
        escribirArchivo(B, viva);
    }
}

/// Dies, or is killed, with half of a transaction in the file.
TEST(OtraCopia, DISABLED_AMitadDeUnaTransaccion)
{
    Conexion conexion;
    conexion.abrir(hijo::ruta());
    conexion.ejecutar("PRAGMA cache_size = 10"); // so that changes reach the file before the commit
    Transaccion transaccion(conexion);
    conexion.ejecutar("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000) "
                      "INSERT INTO Rubros (Codigo, Nombre) SELECT 'm' || i, hex(randomblob(30)) FROM n");
    hijo::listoYEsperar();
}

// Another copy of the program was killed at work, and nobody has read the database since: what it left half done is in
// the file, and what undoes it in the journal beside it.
TEST_F(Respaldo, LoQueOtraCopiaDejoAMediasNoPasa)
{
    const auto matarAMedias = [](const QString& ruta)
    {
        Hijo(QStringLiteral("OtraCopia.DISABLED_AMitadDeUnaTransaccion"), ruta).matar();
        EXPECT_TRUE(QFile::exists(ruta + QStringLiteral("-journal")));
        return leerArchivo(ruta);
    };
    matarAMedias(B);
    EXPECT_EQ("", resguardando(B));
    EXPECT_EQ("", dano.toStdString());
    EXPECT_EQ(viva, leerArchivo(C));
    EXPECT_EQ("", restaurando()); // the journal of the old file is not played into the new one
    EXPECT_EQ(viva, leerArchivo(S));
    EXPECT_EQ(nueva, leerArchivo(B));

    escribirArchivo(B, viva);
    const QByteArray rota = matarAMedias(O);
    EXPECT_EQ("", restaurando());
    EXPECT_EQ(nueva, leerArchivo(B));
    EXPECT_EQ(rota, leerArchivo(O)) << "the origin is only read";
    QFile::remove(O + QStringLiteral("-journal"));
    escribirArchivo(O, nueva);

    // A database that is past saving, and one that is gone, can be replaced all the same.
    for (const bool esta : {true, false})
    {
        esta ? escribirArchivo(B, "no es una base") : static_cast<void>(QFile::remove(B));
        escribirArchivo(B + QStringLiteral("-journal"), "ni esto un diario");
        EXPECT_EQ("", restaurando());
        EXPECT_EQ(nueva, leerArchivo(B));
    }
    EXPECT_EQ("Copias/1/DBBrivo.mdb DBBrivo.mdb DBBrivo_Bak.mdb otra/DBBrivo.mdb", archivos());
}

// A foreign program has left the database with its last changes in a write-ahead log.
TEST_F(Respaldo, LoQueQuedoEnUnRegistroAdelantadoSeTrae)
{
    const QString ajena = base.escribir(QStringLiteral("ajena"), viva);
    sqlite3* abierta = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(ajena.toUtf8().constData(), &abierta));
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(abierta, "PRAGMA journal_mode = WAL; UPDATE Parametros SET Bak_Carpeta = 'otra'",
                                      nullptr, nullptr, nullptr));
    const QByteArray antes = leerArchivo(ajena);
    escribirArchivo(O, antes);
    escribirArchivo(O + QStringLiteral("-wal"), leerArchivo(ajena + QStringLiteral("-wal")));
    sqlite3_close(abierta);
    QFile::remove(ajena);
    EXPECT_EQ("", restaurando());
    EXPECT_EQ("DBBrivo.mdb DBBrivo_Bak.mdb otra/DBBrivo.mdb otra/DBBrivo.mdb-wal", archivos());
    EXPECT_EQ(antes, leerArchivo(O)) << "the origin is only read";
    Rutinas::AbrirBase();
    EXPECT_EQ("otra", filas("SELECT Bak_Carpeta FROM Parametros"));
}

// A database of hundreds of MiB is copied for many seconds: the user sees how far it is, to the end.
TEST_F(Respaldo, ElAvanceSeCuentaHastaElFinalYLoQueLoCortaNoCambiaNada)
{
    escribirArchivo(O, conCambio("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50000) "
                                 "INSERT INTO Rubros (Codigo, Nombre) SELECT 'z' || i, 'otra' FROM n"));
    const qint64 largo = QFileInfo(O).size();
    QDir(base.ruta(QString())).mkpath(QStringLiteral("Copias/1"));
    for (const bool resguarda : {true, false})
    {
        const auto haz = [&](const Aviso& aviso)
        { resguarda ? static_cast<void>(resguardar(O, C, aviso)) : restaurar(O, B, S, aviso); };
        const qint64 bytes = resguarda ? largo : largo + viva.size();
        qint64 antes = 0;
        int revisiones = 0; // the copy is being checked, and how long that takes is not known
        haz(
            [&](qint64 hecho, qint64 total)
            {
                EXPECT_TRUE(total == 0 || (total == bytes && hecho >= antes));
                revisiones += total == 0 ? 1 : 0;
                antes = std::max(antes, hecho);
            });
        EXPECT_EQ(bytes, antes);
        const auto entera = std::pair(leerArchivo(B), archivos());
        int quedan = revisiones / 2;
        EXPECT_ANY_THROW(haz([&](qint64, qint64 total) { total == 0 && --quedan < 0 ? throw 0 : void(); }));
        EXPECT_EQ(entera, std::pair(leerArchivo(B), archivos()));
    }
}
