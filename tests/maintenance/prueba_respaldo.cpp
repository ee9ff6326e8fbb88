// Backup and restore of the closed database file: what is made, what is refused, and what a failure or a kill leaves.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/base_de_prueba.h"
#include "apoyo/hijo.h"
#include "maintenance/respaldo.h"
#include "platform/data/error_de_ejecucion.h"

#include <QDir>
#include <QFile>
#include <functional>
#include <gtest/gtest.h>

namespace
{
int numeroDe(const std::function<void()>& haz)
{
    try
    {
        haz();
        return 0;
    }
    catch (const ErrorDeEjecucion& error)
    {
        return error.numero();
    }
}

class Respaldo : public testing::Test
{
protected:
    Respaldo()
    {
        Rutinas::CerrarBase();
        QDir(base.ruta(QString())).mkdir(QStringLiteral("Copias"));
        QDir(base.ruta(QString())).mkdir(QStringLiteral("otra"));
    }
    ~Respaldo() override { Rutinas::AbrirBase(); }
    /// Another sound database of the program.
    [[nodiscard]] QByteArray hacerOtra(int filas = 1) const
    {
        QFile::copy(base.rutaBase(), otra);
        Conexion c;
        c.abrir(otra);
        Transaccion transaccion(c);
        for (int i = 0; i < filas; ++i)
        {
            c.ejecutar("INSERT INTO Rubros (Codigo, Nombre) VALUES (?, 'otra')", QStringLiteral("z%1").arg(i));
        }
        transaccion.confirmar();
        c.cerrar();
        return leerArchivo(otra);
    }
    [[nodiscard]] QStringList archivos(const QString& donde) const
    {
        return QDir(donde).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    BaseDePrueba base;
    const QString otra = base.ruta(QStringLiteral("otra/DBBrivo.mdb"));
    const QString seguridad = base.ruta(QStringLiteral("DBBrivo_Bak.mdb"));
    const QString carpeta = base.ruta(QStringLiteral("Copias/20090603_1007"));
};
} // namespace

TEST_F(Respaldo, LaCarpetaLlevaFechaYMinuto)
{
    const QChar barra = QDir::separator();
    EXPECT_EQ(QStringLiteral("C") + barra + QStringLiteral("Copias") + barra + QStringLiteral("20090603_0907"),
              carpetaDeCopia(QStringLiteral("C"), QDateTime(QDate(2009, 6, 3), QTime(9, 7, 59))));
}

TEST_F(Respaldo, LaCopiaEsIgualYLaDelMismoMinutoSeRehace)
{
    const QString destino = prepararCopia(carpeta);
    EXPECT_EQ(QDir::toNativeSeparators(carpeta) + QDir::separator() + QStringLiteral("DBBrivo.mdb"), destino);
    resguardar(base.rutaBase(), destino);
    EXPECT_EQ(leerArchivo(base.rutaBase()), leerArchivo(destino));
    EXPECT_EQ(QStringList{QStringLiteral("DBBrivo.mdb")}, archivos(carpeta));

    const QByteArray nueva = hacerOtra();
    EXPECT_EQ(destino, prepararCopia(carpeta));
    resguardar(otra, destino);
    EXPECT_EQ(nueva, leerArchivo(destino));
    EXPECT_EQ(QStringList{QStringLiteral("DBBrivo.mdb")}, archivos(carpeta));
}

TEST_F(Respaldo, SinCarpetaNoHayCopia)
{
    QDir(base.ruta(QStringLiteral("Copias"))).removeRecursively();
    EXPECT_EQ(ErrorDeEjecucion::RutaNoEncontrada, numeroDe([&] { (void)prepararCopia(carpeta); }));
    // A file of that name is no folder of this minute.
    QDir(base.ruta(QString())).mkdir(QStringLiteral("Copias"));
    escribirArchivo(carpeta, "x");
    EXPECT_EQ(ErrorDeEjecucion::SinAcceso, numeroDe([&] { (void)prepararCopia(carpeta); }));
}

TEST_F(Respaldo, UnaBaseDanadaNoSeDaPorCopiada)
{
    const QString destino = prepararCopia(carpeta);
    QByteArray bytes = leerArchivo(base.rutaBase());
    bytes.replace(bytes.size() / 2, 4096, QByteArray(4096, '\x5a'));
    escribirArchivo(otra, bytes);
    EXPECT_NE(0, numeroDe([&] { resguardar(otra, destino); }));
    EXPECT_EQ(QStringList(), archivos(carpeta));
    // Nor does it take the place of a sound copy, and a file that is missing takes none.
    resguardar(base.rutaBase(), destino);
    EXPECT_NE(0, numeroDe([&] { resguardar(otra, destino); }));
    QFile::remove(otra);
    EXPECT_EQ(ErrorDeEjecucion::ArchivoNoEncontrado, numeroDe([&] { resguardar(otra, destino); }));
    EXPECT_EQ(leerArchivo(base.rutaBase()), leerArchivo(destino));
}

TEST_F(Respaldo, QueOrigenSeAcepta)
{
    const QString destino = QDir::toNativeSeparators(base.rutaBase());
    struct Caso
    {
        QString origen;
        FallaDeRestauracion falla;
    };
    const QChar barra = QDir::separator();
    const Caso casos[] = {
        {QString(), FallaDeRestauracion::SinOrigen},
        {destino, FallaDeRestauracion::SobreSiMisma},
        {QStringLiteral("x") + barra + QStringLiteral("dbbrivo.mdb"), FallaDeRestauracion::NoEsDelSistema},
        {QStringLiteral("x") + barra + QStringLiteral("DBBrivo.MDB"), FallaDeRestauracion::NoEsDelSistema},
        {QStringLiteral("x") + barra + QStringLiteral("DBBrivo_Bak.mdb"), FallaDeRestauracion::NoEsDelSistema},
        {QStringLiteral("xDBBrivo.mdb"), FallaDeRestauracion::NoEsDelSistema},
        {QStringLiteral("x") + barra + QStringLiteral("DBBrivo.mdb"), FallaDeRestauracion::Ninguna},
    };
    for (const Caso& caso : casos)
    {
        EXPECT_EQ(caso.falla, revisarRestauracion(caso.origen, destino)) << caso.origen.toStdString();
    }
}

TEST_F(Respaldo, RestaurarGuardaLaAnterior)
{
    const QByteArray vieja = leerArchivo(base.rutaBase());
    const QByteArray nueva = hacerOtra();
    restaurar(otra, base.rutaBase(), seguridad); // there was no safety copy before
    EXPECT_EQ(nueva, leerArchivo(base.rutaBase()));
    EXPECT_EQ(vieja, leerArchivo(seguridad));
    EXPECT_EQ(nueva, leerArchivo(otra));
    escribirArchivo(otra, vieja);
    restaurar(otra, base.rutaBase(), seguridad);
    EXPECT_EQ(vieja, leerArchivo(base.rutaBase()));
    EXPECT_EQ(nueva, leerArchivo(seguridad));
    EXPECT_EQ(
        (QStringList{QStringLiteral("DBBrivo.ldb"), QStringLiteral("DBBrivo.mdb"), QStringLiteral("DBBrivo_Bak.mdb")}),
        archivos(base.ruta(QString())));
}

TEST_F(Respaldo, LoQueNoSirveNoReemplaza)
{
    const QByteArray viva = leerArchivo(base.rutaBase());
    QByteArray rota = viva;
    rota.replace(rota.size() / 2, 4096, QByteArray(4096, '\x5a'));
    const QByteArray malas[] = {"no es una base", QByteArray(), viva.first(viva.size() / 2), rota};
    for (const QByteArray& mala : malas)
    {
        escribirArchivo(otra, mala);
        EXPECT_NE(0, numeroDe([&] { restaurar(otra, base.rutaBase(), seguridad); })) << mala.size();
        EXPECT_EQ(viva, leerArchivo(base.rutaBase())) << mala.size();
    }
    QFile::remove(otra);
    EXPECT_EQ(ErrorDeEjecucion::ArchivoNoEncontrado, numeroDe([&] { restaurar(otra, base.rutaBase(), seguridad); }));
    EXPECT_EQ(viva, leerArchivo(base.rutaBase()));
}

TEST(OtraCopia, DISABLED_TieneLaBaseAbierta)
{
    Conexion conexion;
    conexion.abrir(hijo::ruta());
    hijo::listoYEsperar();
}

TEST_F(Respaldo, ConOtraCopiaAbiertaFallaConSetenta)
{
    const QString destino = prepararCopia(carpeta);
    const QByteArray viva = leerArchivo(base.rutaBase());
    (void)hacerOtra();
    Hijo programa(QStringLiteral("OtraCopia.DISABLED_TieneLaBaseAbierta"), base.rutaBase());
    EXPECT_EQ(ErrorDeEjecucion::EnUso, numeroDe([&] { resguardar(base.rutaBase(), destino); }));
    EXPECT_EQ(ErrorDeEjecucion::EnUso, numeroDe([&] { restaurar(otra, base.rutaBase(), seguridad); }));
    EXPECT_FALSE(QFile::exists(destino));
    EXPECT_FALSE(QFile::exists(seguridad));
    EXPECT_EQ(viva, leerArchivo(base.rutaBase()));
    programa.matar(); // the lock goes with the process
    EXPECT_EQ(0, numeroDe([&] { resguardar(base.rutaBase(), destino); }));
}

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
    const QByteArray vieja = leerArchivo(base.rutaBase());
    const QByteArray nueva = hacerOtra();
    const auto matarAMedias = [](const QString& ruta)
    {
        const QByteArray antes = leerArchivo(ruta);
        Hijo programa(QStringLiteral("OtraCopia.DISABLED_AMitadDeUnaTransaccion"), ruta);
        programa.matar();
        EXPECT_TRUE(QFile::exists(Conexion::diario(ruta)));
        EXPECT_NE(antes, leerArchivo(ruta));
    };
    const auto tiene = [](const QString& ruta, bool laOtra)
    {
        Conexion::comprobar(ruta);
        Conexion conexion;
        conexion.abrir(ruta, Conexion::Modo::SoloLectura);
        EXPECT_FALSE(conexion.hay("SELECT 1 FROM Rubros WHERE Nombre = 'a medias'")) << ruta.toStdString();
        EXPECT_EQ(laOtra, conexion.hay("SELECT 1 FROM Rubros WHERE Nombre = 'otra'")) << ruta.toStdString();
        EXPECT_FALSE(QFile::exists(Conexion::diario(ruta))) << ruta.toStdString();
    };

    matarAMedias(base.rutaBase());
    const QString copia = prepararCopia(carpeta);
    resguardar(base.rutaBase(), copia);
    tiene(copia, false);
    tiene(base.rutaBase(), false);

    matarAMedias(base.rutaBase());
    restaurar(otra, base.rutaBase(), seguridad); // the journal of the old file is not played into the new one
    tiene(seguridad, false);
    tiene(base.rutaBase(), true);
    EXPECT_EQ(nueva, leerArchivo(base.rutaBase()));

    escribirArchivo(base.rutaBase(), vieja);
    matarAMedias(otra);
    const QByteArray rota = leerArchivo(otra);
    restaurar(otra, base.rutaBase(), seguridad);
    tiene(base.rutaBase(), true);
    EXPECT_EQ(rota, leerArchivo(otra)) << "the origin is only read";

    // A database that is past saving, and one that is gone, can be replaced all the same.
    escribirArchivo(base.rutaBase(), "no es una base");
    escribirArchivo(Conexion::diario(base.rutaBase()), "ni esto un diario");
    restaurar(copia, base.rutaBase(), seguridad);
    tiene(base.rutaBase(), false);
    QFile::remove(base.rutaBase());
    escribirArchivo(Conexion::diario(base.rutaBase()), "ni esto un diario");
    restaurar(copia, base.rutaBase(), seguridad);
    tiene(base.rutaBase(), false);
}

TEST_F(Respaldo, LoQueEstaEnUsoEnOtraParteNoSeTrae)
{
    const QByteArray viva = leerArchivo(base.rutaBase());
    (void)hacerOtra();
    Hijo programa(QStringLiteral("OtraCopia.DISABLED_TieneLaBaseAbierta"), otra);
    EXPECT_EQ(ErrorDeEjecucion::EnUso, numeroDe([&] { restaurar(otra, base.rutaBase(), seguridad); }));
    EXPECT_EQ(viva, leerArchivo(base.rutaBase()));
    programa.matar();
    restaurar(otra, base.rutaBase(), seguridad);
    EXPECT_NE(viva, leerArchivo(base.rutaBase()));
}

// A database of hundreds of MiB is copied for many seconds: the user sees how far it is.
TEST_F(Respaldo, ElAvanceSeCuentaHastaElFinal)
{
    const QByteArray viva = leerArchivo(base.rutaBase());
    const qint64 largoDeOtra = hacerOtra(50'000).size();
    struct Caso
    {
        const char* que;
        std::function<void(const Aviso&)> haz;
        qint64 total; ///< of the bytes copied; 0 when they are not known before
    };
    const Caso casos[] = {
        {"backup", [&](const Aviso& aviso) { resguardar(otra, prepararCopia(carpeta), aviso); }, largoDeOtra},
        {"restore", [&](const Aviso& aviso) { restaurar(otra, base.rutaBase(), seguridad, aviso); },
         viva.size() + largoDeOtra},
        {"compaction", [](const Aviso& aviso) { Rutinas::CompactarBase(aviso); }, 0},
    };
    for (const Caso& caso : casos)
    {
        qint64 antes = 0;
        qint64 hasta = 0;
        int revisiones = 0;
        caso.haz(
            [&](qint64 hecho, qint64 total)
            {
                if (total == 0) // the copy is being checked, and how long that takes is not known
                {
                    ++revisiones;
                    return;
                }
                EXPECT_GE(hecho, antes) << caso.que;
                antes = hecho;
                hasta = total;
            });
        EXPECT_GT(revisiones, 0) << caso.que;
        if (caso.total > 0)
        {
            EXPECT_EQ(caso.total, antes) << caso.que;
            EXPECT_EQ(caso.total, hasta) << caso.que;
        }
        // One who cannot go on telling it stops the work, and nothing has happened.
        const QByteArray entera = leerArchivo(base.rutaBase());
        const QStringList todos = archivos(base.ruta(QString()));
        int quedan = revisiones / 2;
        EXPECT_ANY_THROW(caso.haz([&](qint64 /*hecho*/, qint64 total)
                                  { total == 0 && --quedan < 0 ? throw std::runtime_error("stop") : void(); }))
            << caso.que;
        EXPECT_EQ(entera, leerArchivo(base.rutaBase())) << caso.que;
        EXPECT_EQ(todos, archivos(base.ruta(QString()))) << caso.que;
    }
}
