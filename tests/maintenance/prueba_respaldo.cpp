// Backup and restore of the closed database file: what is made, what is refused, and what a failure or a kill leaves.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/base_de_prueba.h"
#include "apoyo/hijo.h"
#include "apoyo/version_anterior.h"
#include "maintenance/esquema.h"
#include "maintenance/respaldo.h"
#include "platform/data/errores.h"

#include <QDir>
#include <QFile>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace
{
class Respaldo : public testing::Test
{
protected:
    Respaldo()
    {
        Rutinas::CerrarBase();
        QDir(base.ruta(QString())).mkpath(QStringLiteral("Copias"));
        QDir(base.ruta(QString())).mkpath(QStringLiteral("otra"));
        viva = leerArchivo(base.rutaBase());
    }
    ~Respaldo() override { Rutinas::AbrirBase(); }
    /// Another sound database of the program, changed by `sql`.
    QByteArray hacerOtra(const char* sql = "INSERT INTO Rubros (Codigo, Nombre) VALUES ('z', 'otra')") const
    {
        escribirArchivo(otra, viva);
        Conexion c;
        c.abrir(otra);
        c.ejecutar(sql);
        c.cerrar();
        QFile::remove(base.ruta(QStringLiteral("otra/DBBrivo.ldb")));
        return leerArchivo(otra);
    }
    [[nodiscard]] std::string restaurando() const
    {
        return fallaDe([&] { restaurar(otra, base.rutaBase(), seguridad); }).toStdString();
    }
    [[nodiscard]] std::string resguardando(const QString& origen) const
    {
        return fallaDe([&] { resguardar(origen, prepararCopia(carpeta)); }).toStdString();
    }
    [[nodiscard]] static QString archivos(const QString& donde)
    {
        return QDir(donde).entryList(QDir::Files | QDir::Hidden, QDir::Name).join(u' ');
    }
    [[nodiscard]] QString archivos() const { return archivos(base.ruta(QString())); }
    /// Sound, with or without the row of the other one, and with nothing beside it.
    static void tiene(const QString& ruta, bool laOtra)
    {
        SCOPED_TRACE(ruta.toStdString());
        EXPECT_EQ("", fallaDe([&] { Conexion::comprobar(ruta); }).toStdString());
        Conexion conexion;
        conexion.abrir(ruta, Conexion::Modo::SoloLectura);
        EXPECT_FALSE(conexion.hay("SELECT 1 FROM Rubros WHERE Nombre = 'a medias'"));
        EXPECT_EQ(laOtra, conexion.hay("SELECT 1 FROM Rubros WHERE Nombre = 'otra'"));
        EXPECT_FALSE(QFile::exists(ruta + QStringLiteral("-journal")));
    }

    BaseDePrueba base;
    QByteArray viva;
    const QString otra = base.ruta(QStringLiteral("otra/DBBrivo.mdb"));
    const QString seguridad = base.ruta(QStringLiteral("DBBrivo_Bak.mdb"));
    const QString carpeta = base.ruta(QStringLiteral("Copias/20090603_1007"));
    const QString copia = carpeta + QDir::separator() + QStringLiteral("DBBrivo.mdb");
    const QString alFinal = QStringLiteral("DBBrivo.ldb DBBrivo.mdb DBBrivo_Bak.mdb");
};
const QString roto = QStringLiteral("x");
} // namespace

TEST_F(Respaldo, LaCopiaEsIgualYLaDelMismoMinutoSeRehace)
{
    EXPECT_EQ(QDir::toNativeSeparators(QStringLiteral("C/Copias/20090603_0907")),
              carpetaDeCopia(QStringLiteral("C"), QDateTime(QDate(2009, 6, 3), QTime(9, 7, 59))));
    EXPECT_EQ("", resguardando(base.rutaBase()));
    EXPECT_EQ(viva, leerArchivo(copia));
    const QByteArray nueva = hacerOtra();
    EXPECT_EQ("", resguardando(otra));
    EXPECT_EQ(nueva, leerArchivo(copia));
    EXPECT_EQ(QStringLiteral("DBBrivo.mdb"), archivos(carpeta));
    QDir(base.ruta(QStringLiteral("Copias"))).removeRecursively();
    EXPECT_EQ(76, numeroDe([&] { return prepararCopia(carpeta); }));
    QDir(base.ruta(QString())).mkdir(QStringLiteral("Copias"));
    escribirArchivo(carpeta, "a file of that name is no folder of this minute");
    EXPECT_EQ(75, numeroDe([&] { return prepararCopia(carpeta); }));
}

TEST_F(Respaldo, UnaBaseDanadaSeCopiaIgualYSeDice)
{
    const std::pair<QByteArray, const char*> casos[] = {
        {QByteArray(viva).replace(viva.size() / 2, 4096, QByteArray(4096, '\x5a')), "La base de datos está dañada ("},
        {viva.first(viva.size() / 2), "La base de datos está dañada"},
        {"no es una base", "El archivo no es una base de datos"},
        {viva, ""},
    };
    for (const auto& [bytes, dano] : casos)
    {
        escribirArchivo(otra, bytes);
        const QString dicho = resguardar(otra, prepararCopia(carpeta));
        EXPECT_TRUE(*dano == 0 ? dicho.isEmpty() : dicho.startsWith(QString::fromUtf8(dano))) << dicho.toStdString();
        EXPECT_FALSE(dicho.contains(u"database") || dicho.contains(u"error code")) << dicho.toStdString();
        EXPECT_EQ(bytes, leerArchivo(copia));
        EXPECT_EQ(QStringLiteral("DBBrivo.mdb"), archivos(carpeta));
    }
    QFile::remove(otra);
    EXPECT_EQ("53 No se encontró el archivo: " + otra.toStdString(), resguardando(otra));
    EXPECT_EQ(viva, leerArchivo(copia));
}

TEST_F(Respaldo, QueOrigenSeAcepta)
{
    using enum FallaDeRestauracion;
    const std::pair<QString, FallaDeRestauracion> casos[] = {
        {"", SinOrigen},
        {base.rutaBase(), SobreSiMisma},
        {base.ruta("otra/../DBBrivo.mdb"), SobreSiMisma},
        {"x/dbbrivo.mdb", NoEsDelSistema},
        {"x/DBBrivo.MDB", NoEsDelSistema},
        {"x/DBBrivo_Bak.mdb", NoEsDelSistema},
        {"xDBBrivo.mdb", NoEsDelSistema},
        {"x/DBBrivo.mdb", Ninguna},
    };
    for (const auto& [origen, falla] : casos)
    {
        EXPECT_EQ(falla,
                  revisarRestauracion(QDir::toNativeSeparators(origen), QDir::toNativeSeparators(base.rutaBase())))
            << origen.toStdString();
    }
}

TEST_F(Respaldo, RestaurarGuardaLaAnterior)
{
    const QByteArray nueva = hacerOtra();
    EXPECT_EQ("", restaurando()); // there was no safety copy before
    EXPECT_EQ(nueva, leerArchivo(base.rutaBase()));
    EXPECT_EQ(viva, leerArchivo(seguridad));
    EXPECT_EQ(nueva, leerArchivo(otra));
    escribirArchivo(otra, viva);
    EXPECT_EQ("", restaurando());
    EXPECT_EQ(viva, leerArchivo(base.rutaBase()));
    EXPECT_EQ(nueva, leerArchivo(seguridad));
    EXPECT_EQ(alFinal, archivos());
}

TEST_F(Respaldo, LoQueNoSirveNoReemplaza)
{
    const std::string noEs = "26 El archivo no es una base de datos de este programa";
    const std::pair<const char*, std::string> casos[] = {
        {"DROP TABLE Parametros", noEs + ": falta la tabla Parametros"},
        {"DELETE FROM Parametros", noEs + ": falta la fila de Parametros"},
        {"ALTER TABLE PAGOS DROP COLUMN Cuota", noEs + ": falta la columna PAGOS.Cuota"},
        {"ALTER TABLE RptEmpleados DROP COLUMN Acuerdo2", noEs + ": falta la columna RptEmpleados.Acuerdo2"},
    };
    for (const auto& [sql, falla] : casos)
    {
        hacerOtra(sql);
        EXPECT_EQ(falla, restaurando()) << sql;
    }
    for (const QByteArray& mala : {QByteArray("no es una base"), QByteArray(), viva.first(viva.size() / 2),
                                   QByteArray(viva).replace(viva.size() / 2, 4096, QByteArray(4096, '\x5a'))})
    {
        escribirArchivo(otra, mala);
        EXPECT_NE("", restaurando()) << mala.size();
    }
    QFile::remove(otra);
    EXPECT_EQ("53 No se encontró el archivo: " + otra.toStdString(), restaurando());
    QDir(base.ruta(QString())).mkdir(QStringLiteral("otra/DBBrivo.mdb"));
    EXPECT_EQ("75 Error de acceso a la ruta o al archivo: " + otra.toStdString() + " es una carpeta", restaurando());
    EXPECT_EQ(viva, leerArchivo(base.rutaBase()));
    EXPECT_EQ(QStringLiteral("DBBrivo.ldb DBBrivo.mdb"), archivos());
    QDir(base.ruta(QString())).rmdir(QStringLiteral("otra/DBBrivo.mdb"));
    for (const char* version : {"1.2", "1.1", "1.0"}) // an older one serves: the next starts upgrade it
    {
        escribirArchivo(otra, viva);
        volverAVersion(otra, QString::fromLatin1(version));
        EXPECT_EQ("", restaurando()) << version;
    }
}

// Each table and column that the seed has, at each version, is asked for.
TEST_F(Respaldo, CadaTablaYColumnaHaceFalta)
{
    hacerOtra();
    Conexion c;
    c.abrir(otra);
    c.ejecutar("PRAGMA synchronous = OFF");
    c.ejecutar("PRAGMA journal_mode = MEMORY");
    const Recordset columnas =
        c.consultar("SELECT t.name AS t, c.name AS c FROM sqlite_schema t, pragma_table_info(t.name) c "
                    "WHERE t.type = 'table' AND t.name NOT LIKE 'sqlite%'");
    EXPECT_LT(100U, columnas.cantidad());
    for (const Fila& fila : columnas)
    {
        const auto renombrar = [&](const QString& de, const QString& a) {
            c.ejecutar(
                QStringLiteral("ALTER TABLE %1 RENAME COLUMN %2 TO %3").arg(fila.texto("t"), de, a).toStdString());
        };
        renombrar(fila.texto("c"), roto);
        EXPECT_EQ(26, numeroDe([&] { exigirEsquema(otra); }))
            << fila.texto("t").toStdString() << fila.texto("c").toStdString();
        renombrar(roto, fila.texto("c"));
    }
    EXPECT_EQ("", fallaDe([&] { exigirEsquema(otra); }).toStdString());
}

TEST_F(Respaldo, LoQueEstaEnElCaminoSeDicePorSuNombreYNadaCambia)
{
    const std::string carpetaEnElCamino = "75 Error de acceso a la ruta o al archivo: ";
    hacerOtra();
    QDir(base.ruta(QString())).mkdir(QStringLiteral("DBBrivo_Bak.mdb"));
    EXPECT_EQ(carpetaEnElCamino + seguridad.toStdString() + " es una carpeta", restaurando());
    QDir(base.ruta(QString())).rmdir(QStringLiteral("DBBrivo_Bak.mdb"));
    QFile::setPermissions(base.rutaBase(), QFile::ReadOwner | QFile::ReadGroup);
    EXPECT_EQ(carpetaEnElCamino + base.rutaBase().toStdString() + " está protegido contra escritura", restaurando());
    QFile::setPermissions(base.rutaBase(), QFile::ReadOwner | QFile::WriteOwner);
    QDir(base.ruta(QString())).mkpath(copia);
    EXPECT_EQ(carpetaEnElCamino + copia.toStdString() + " es una carpeta", resguardando(base.rutaBase()));
    EXPECT_EQ(viva, leerArchivo(base.rutaBase()));
    EXPECT_EQ(QStringLiteral("DBBrivo.ldb DBBrivo.mdb"), archivos());
    EXPECT_EQ(QString(), archivos(carpeta));
}

TEST(OtraCopia, DISABLED_TieneLaBaseAbierta)
{
    Conexion conexion;
    conexion.abrir(hijo::ruta());
    hijo::listoYEsperar();
}

TEST_F(Respaldo, LoQueOtraCopiaTieneAbiertoNiSeCopiaNiSeReemplazaNiSeTrae)
{
    hacerOtra();
    Hijo programa(QStringLiteral("OtraCopia.DISABLED_TieneLaBaseAbierta"), base.rutaBase());
    EXPECT_TRUE(resguardando(base.rutaBase()).starts_with("70 "));
    EXPECT_TRUE(restaurando().starts_with("70 "));
    programa.matar(); // the lock goes with the process
    Hijo alli(QStringLiteral("OtraCopia.DISABLED_TieneLaBaseAbierta"), otra);
    EXPECT_TRUE(restaurando().starts_with("70 "));
    EXPECT_FALSE(QFile::exists(copia) || QFile::exists(seguridad));
    EXPECT_EQ(viva, leerArchivo(base.rutaBase()));
    alli.matar();
    EXPECT_EQ("", resguardando(base.rutaBase()));
    EXPECT_EQ("", restaurando());
}

#ifndef _WIN32
// The database lies on a share, and each desk has a link to it.
TEST_F(Respaldo, DetrasDeUnEnlaceSeTrabajaConElArchivo)
{
    const QString lejos = base.ruta(QStringLiteral("lejos.mdb"));
    QFile::rename(base.rutaBase(), lejos);
    std::filesystem::create_symlink(lejos.toStdString(), base.rutaBase().toStdString());
    std::filesystem::create_symlink(lejos.toStdString(), base.ruta(QStringLiteral("otro puesto.mdb")).toStdString());
    QFile::remove(base.ruta(QStringLiteral("DBBrivo.ldb")));
    const QByteArray nueva = hacerOtra();
    {
        Hijo programa(QStringLiteral("OtraCopia.DISABLED_TieneLaBaseAbierta"),
                      base.ruta(QStringLiteral("otro puesto.mdb")));
        EXPECT_TRUE(resguardando(base.rutaBase()).starts_with("70 "));
        EXPECT_TRUE(restaurando().starts_with("70 "));
        EXPECT_EQ(70, numeroDe([] { Rutinas::CompactarBase(); }));
    }
    EXPECT_EQ("", resguardando(base.rutaBase()));
    EXPECT_EQ(viva, leerArchivo(copia));
    EXPECT_EQ("", restaurando());
    EXPECT_EQ(nueva, leerArchivo(lejos));
    EXPECT_EQ(viva, leerArchivo(seguridad));
    EXPECT_EQ("", fallaDe([] { Rutinas::CompactarBase(); }).toStdString());
    EXPECT_NE(nueva, leerArchivo(lejos));
    EXPECT_TRUE(QFileInfo(base.rutaBase()).isSymbolicLink());
    EXPECT_EQ(QStringLiteral("DBBrivo.mdb DBBrivo_Bak.mdb lejos.ldb lejos.mdb otro puesto.mdb"), archivos());
}
#endif

/// Dies, or is killed, with half of a transaction in the file.
TEST(OtraCopia, DISABLED_AMitadDeUnaTransaccion)
{
    Conexion conexion;
    conexion.abrir(hijo::ruta());
    conexion.ejecutar("PRAGMA cache_size = 10"); // so that changes reach the file before the commit
    Transaccion transaccion(conexion);
    conexion.ejecutar("UPDATE Rubros SET Nombre = 'a medias'");
    conexion.ejecutar("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000) "
                      "INSERT INTO Rubros (Codigo, Nombre) SELECT 'm' || i, hex(randomblob(30)) FROM n");
    hijo::listoYEsperar();
}

// Another copy of the program was killed at work, and nobody has read the database since: what it left half done is in
// the file, and what undoes it in the journal beside it.
TEST_F(Respaldo, LoQueOtraCopiaDejoAMediasNoPasa)
{
    const QByteArray nueva = hacerOtra();
    const auto matarAMedias = [](const QString& ruta)
    {
        Hijo(QStringLiteral("OtraCopia.DISABLED_AMitadDeUnaTransaccion"), ruta).matar();
        EXPECT_TRUE(QFile::exists(ruta + QStringLiteral("-journal")));
        return leerArchivo(ruta);
    };
    matarAMedias(base.rutaBase());
    EXPECT_EQ("", resguardando(base.rutaBase()));
    tiene(copia, false);
    EXPECT_EQ("", restaurando()); // the journal of the old file is not played into the new one
    tiene(seguridad, false);
    tiene(base.rutaBase(), true);
    EXPECT_EQ(nueva, leerArchivo(base.rutaBase()));

    escribirArchivo(base.rutaBase(), viva);
    const QByteArray rota = matarAMedias(otra);
    EXPECT_EQ("", restaurando());
    tiene(base.rutaBase(), true);
    EXPECT_EQ(rota, leerArchivo(otra)) << "the origin is only read";

    // A database that is past saving, and one that is gone, can be replaced all the same.
    escribirArchivo(otra, viva);
    QFile::remove(otra + QStringLiteral("-journal"));
    for (const bool esta : {true, false})
    {
        esta ? escribirArchivo(base.rutaBase(), "no es una base") : static_cast<void>(QFile::remove(base.rutaBase()));
        escribirArchivo(base.rutaBase() + QStringLiteral("-journal"), "ni esto un diario");
        EXPECT_EQ("", restaurando());
        tiene(base.rutaBase(), false);
    }
}

// A foreign program has left the database with its last changes in a write-ahead log.
TEST_F(Respaldo, LoQueQuedoEnUnRegistroAdelantadoSeTrae)
{
    hacerOtra("DELETE FROM Rubros WHERE 0");
    const QString ajena = base.ruta(QStringLiteral("ajena"));
    QFile::copy(otra, ajena);
    sqlite3* abierta = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(ajena.toUtf8().constData(), &abierta));
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(abierta, "PRAGMA journal_mode = WAL; UPDATE Parametros SET Bak_Carpeta = 'otra'",
                                      nullptr, nullptr, nullptr));
    escribirArchivo(otra, leerArchivo(ajena));
    escribirArchivo(otra + QStringLiteral("-wal"), leerArchivo(ajena + QStringLiteral("-wal")));
    sqlite3_close(abierta);
    QFile::remove(ajena);
    const QByteArray antes = leerArchivo(otra);
    EXPECT_EQ("", restaurando());
    Conexion c;
    c.abrir(base.rutaBase());
    EXPECT_TRUE(c.hay("SELECT 1 FROM Parametros WHERE Bak_Carpeta = 'otra'"));
    c.cerrar();
    EXPECT_EQ(alFinal, archivos());
    EXPECT_EQ(antes, leerArchivo(otra)) << "the origin is only read";
}

// A database of hundreds of MiB is copied for many seconds: the user sees how far it is.
TEST_F(Respaldo, ElAvanceSeCuentaHastaElFinalYPuedeCortarlo)
{
    const qint64 largo = hacerOtra("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50000) "
                                   "INSERT INTO Rubros (Codigo, Nombre) SELECT 'z' || i, 'otra' FROM n")
                             .size();
    struct Caso
    {
        const char* que;
        std::function<void(const Aviso&)> haz;
        qint64 total; ///< of the bytes copied; 0 when they are not known before
    };
    const Caso casos[] = {
        {"backup", [&](const Aviso& aviso) { resguardar(otra, prepararCopia(carpeta), aviso); }, largo},
        {"restore", [&](const Aviso& aviso) { restaurar(otra, base.rutaBase(), seguridad, aviso); },
         viva.size() + largo},
        {"compaction", [](const Aviso& aviso) { Rutinas::CompactarBase(aviso); }, 0},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.que);
        qint64 antes = 0;
        int revisiones = 0; // the copy is being checked, and how long that takes is not known
        caso.haz(
            [&](qint64 hecho, qint64 total)
            {
                revisiones += total == 0 ? 1 : 0;
                EXPECT_TRUE(total == 0 || hecho >= antes);
                EXPECT_TRUE(total == 0 || caso.total == 0 || total == caso.total);
                antes = total == 0 ? antes : hecho;
            });
        EXPECT_GT(revisiones, 0);
        EXPECT_TRUE(caso.total == 0 || caso.total == antes);
        // One who cannot go on telling it stops the work, and nothing has happened.
        const QByteArray entera = leerArchivo(base.rutaBase());
        const QString todos = archivos() + archivos(carpeta);
        int quedan = revisiones / 2;
        EXPECT_ANY_THROW(caso.haz([&](qint64 /*hecho*/, qint64 total)
                                  { total == 0 && --quedan < 0 ? throw std::runtime_error("stop") : void(); }));
        EXPECT_EQ(entera, leerArchivo(base.rutaBase()));
        EXPECT_EQ(todos, archivos() + archivos(carpeta));
    }
}
