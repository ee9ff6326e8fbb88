// Backup and restore of the closed database file: what is made, what is refused, and what a failure or a kill leaves.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/hijo.h"
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
struct Respaldo : ConBase
{
    Respaldo()
    {
        Rutinas::CerrarBase();
        QDir(base.ruta({})).mkpath("otra");
        QDir(base.ruta({})).mkpath("Copias");
        escribirArchivo(O, nueva);
    }
    ~Respaldo() override { Rutinas::AbrirBase(); }
    /// The database as it is but for `sql`.
    [[nodiscard]] QByteArray conCambio(const char* sql) const
    {
        const QString ruta = base.escribir("cambio", viva);
        Conexion c;
        c.abrir(ruta);
        c.ejecutar(sql);
        c.cerrar();
        QByteArray bytes = leerArchivo(ruta);
        QFile::remove(archivoDeCandado(ruta));
        QFile::remove(ruta);
        return bytes;
    }
    template <class A>
    [[nodiscard]] std::string falla(A accion) const
    {
        return fallaDe(accion).remove(QDir::fromNativeSeparators(base.ruta({})) + u'/').toStdString();
    }
    [[nodiscard]] std::string restaurando() const
    {
        return falla([&] { restaurar(O, B, S); });
    }
    std::string resguardando(const QString& origen) // NOLINT
    {
        return falla([&] { dano = resguardar(origen, prepararCopia(base.ruta("Copias/1")), avance); });
    }
    [[nodiscard]] std::string archivos() const { return archivosDe(base.ruta({})); }

    const QString B = base.rutaBase();
    const QString O = base.ruta("otra/DBBrivo.mdb");
    const QString S = base.ruta("DBBrivo_Bak.mdb");
    const QString C = base.ruta("Copias/1/DBBrivo.mdb");
    const QByteArray viva = leerArchivo(B);
    const QByteArray nueva = conCambio("INSERT INTO Rubros (Codigo, Nombre) VALUES ('z', 'otra')");
    const QByteArray danada = QByteArray(viva).replace(viva.size() - 4096, 4096, QByteArray(4096, '\x5a'));
    QString dano;        ///< what the last backup told of its copy
    qint64 copiados = 0; ///< how far it told that it was; no total while the copy is checked
    const Aviso avance = [this](qint64 hecho, qint64 total) { copiados = total == 0 ? copiados : hecho; };
};
const std::string noEs = "26 El archivo no es una base de datos de este programa";
const std::string noVa = "75 Error de acceso a la ruta o al archivo: ";
} // namespace

TEST_F(Respaldo, LaCopiaEsIgualTambienLaDeUnaBaseDanada)
{
    const std::pair<QByteArray, const char*> casos[] = {
        {viva, ""},
        {danada, "La base de datos está dañada (página 32 del archivo)"},
        {"no es una base", "El archivo no es una base de datos"},
        {nueva, ""},
    };
    for (const auto& [bytes, dicho] : casos)
    {
        escribirArchivo(O, bytes);
        EXPECT_EQ("", resguardando(O));
        EXPECT_EQ(dicho, dano.toStdString());
        EXPECT_EQ(bytes, leerArchivo(C));
        EXPECT_EQ(bytes.size(), copiados);
        EXPECT_EQ("DBBrivo.mdb", archivosDe(base.ruta("Copias/1")));
    }
    QFile::remove(O);
    EXPECT_EQ("53 No se encontró el archivo: otra/DBBrivo.mdb", resguardando(O));
    EXPECT_EQ(nueva, leerArchivo(C));
}

TEST_F(Respaldo, SoloUnaBaseEnteraDelProgramaReemplaza)
{
    const std::pair<QByteArray, std::string> casos[] = {
        {"", noEs},
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
    escribirArchivo(O, nueva);
    QDir(S).mkpath(".");
    EXPECT_EQ(noVa + "DBBrivo_Bak.mdb es una carpeta", restaurando());
    QDir(S).removeRecursively();
    QFile::setPermissions(B, QFile::ReadOwner | QFile::ReadGroup);
    EXPECT_EQ(noVa + "DBBrivo.mdb está protegido contra escritura", restaurando());
    QFile::setPermissions(B, QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(viva, leerArchivo(B));
    EXPECT_EQ("DBBrivo.mdb otra/DBBrivo.mdb", archivos());
}

TEST_F(Respaldo, CadaTablaYColumnaHaceFalta)
{
    Conexion c;
    c.abrir(O);
    c.ejecutar("PRAGMA synchronous = OFF");
    const auto columnas = c.lista("SELECT t.name AS t, c.name AS c FROM sqlite_schema t, pragma_table_info(t.name) c "
                                  "WHERE t.type = 'table' AND t.name NOT LIKE 'sqlite%'",
                                  [](const Fila& fila) { return std::pair(fila.texto("t"), fila.texto("c")); });
    EXPECT_LT(100U, columnas.size());
    for (const auto& [tabla, columna] : columnas)
    {
        const QString cambio = "ALTER TABLE %1 RENAME COLUMN %2 TO %3";
        c.ejecutar(cambio.arg(tabla, columna, "x").toStdString());
        EXPECT_EQ(26, numeroDe([&] { exigirEsquema(O); })) << (tabla + columna).toStdString();
        c.ejecutar(cambio.arg(tabla, "x", columna).toStdString());
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
    for (const bool enlazada : {false, true})
    {
        const QString lejos = base.ruta("lejos.mdb");
        const QString otroPuesto = enlazada ? base.ruta("otro.mdb") : B;
        if (enlazada)
        {
#ifdef _WIN32
            return;
#endif
            QFile::rename(B, lejos);
            std::filesystem::create_symlink(lejos.toStdString(), B.toStdString());
            std::filesystem::create_symlink(lejos.toStdString(), otroPuesto.toStdString());
        }
        EXPECT_EQ(FallaDeRestauracion::SobreSiMisma, revisarRestauracion(otroPuesto, B));
        {
            Hijo programa("OtraCopia.DISABLED_TieneLaBaseAbierta", otroPuesto);
            EXPECT_EQ(70, numeroDe([&] { resguardar(B, C); }));
            EXPECT_EQ(70, numeroDe([&] { restaurar(O, B, S); }));
            EXPECT_EQ(70, numeroDe([] { Rutinas::CompactarBase(); }));
        }
        {
            Hijo alli("OtraCopia.DISABLED_TieneLaBaseAbierta", O);
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
        EXPECT_EQ(enlazada, QFileInfo(B).isSymbolicLink());
        EXPECT_EQ(std::string("Copias/1/DBBrivo.mdb DBBrivo.mdb DBBrivo_Bak.mdb ") +
                      (enlazada ? "lejos.mdb otra/DBBrivo.mdb otro.mdb" : "otra/DBBrivo.mdb"),
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
                      "INSERT INTO Rubros (Codigo, Nombre) SELECT 'm' || i, printf('%060d', i * 7919) FROM n");
    hijo::listoYEsperar();
}

// Another copy of the program was killed at work, and nobody has read the database since: what it left half done is in
// the file, and what undoes it in the journal beside it.
TEST_F(Respaldo, LoQueOtraCopiaDejoAMediasNoPasa)
{
    const auto matarAMedias = [](const QString& ruta)
    {
        Hijo("OtraCopia.DISABLED_AMitadDeUnaTransaccion", ruta).matar();
        EXPECT_TRUE(QFile::exists(ruta + "-journal"));
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
    QFile::remove(O + "-journal");
    escribirArchivo(O, nueva);

    // A database that is past saving, and one that is gone, can be replaced all the same.
    for (const bool esta : {true, false})
    {
        esta ? escribirArchivo(B, "no es una base") : static_cast<void>(QFile::remove(B));
        escribirArchivo(B + "-journal", "ni esto un diario");
        EXPECT_EQ("", restaurando());
        EXPECT_EQ(nueva, leerArchivo(B));
    }
    EXPECT_EQ("Copias/1/DBBrivo.mdb DBBrivo.mdb DBBrivo_Bak.mdb otra/DBBrivo.mdb", archivos());
}

// A foreign program has left the database with its last changes in a write-ahead log.
TEST_F(Respaldo, LoQueQuedoEnUnRegistroAdelantadoSeTrae)
{
    const QString ajena = base.escribir("ajena", viva);
    sqlite3* abierta = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(ajena.toUtf8().constData(), &abierta));
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(abierta, "PRAGMA journal_mode = WAL; UPDATE Parametros SET Bak_Carpeta = 'otra'",
                                      nullptr, nullptr, nullptr));
    const QByteArray antes = leerArchivo(ajena);
    escribirArchivo(O, antes);
    escribirArchivo(O + "-wal", leerArchivo(ajena + "-wal"));
    sqlite3_close(abierta);
    QFile::remove(ajena);
    EXPECT_EQ("", restaurando());
    EXPECT_EQ("DBBrivo.mdb DBBrivo_Bak.mdb otra/DBBrivo.mdb otra/DBBrivo.mdb-wal", archivos());
    EXPECT_EQ(antes, leerArchivo(O)) << "the origin is only read";
    Rutinas::AbrirBase();
    EXPECT_EQ("otra", filas("SELECT Bak_Carpeta FROM Parametros"));
}
