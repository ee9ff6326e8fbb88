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

/// Goes on until it is killed.
TEST(OtraCopia, DISABLED_RestauraYResguarda)
{
    const QString lugar = hijo::ruta();
    const QString viva = lugar + QStringLiteral("/DBBrivo.mdb");
    const QString copia = prepararCopia(lugar + QStringLiteral("/Copias/20090603_1007"));
    hijo::listo();
    for (bool una = true;; una = !una)
    {
        restaurar(lugar + (una ? QStringLiteral("/otra/DBBrivo.mdb") : QStringLiteral("/una/DBBrivo.mdb")), viva,
                  lugar + QStringLiteral("/DBBrivo_Bak.mdb"));
        resguardar(viva, copia);
    }
}

TEST_F(Respaldo, MuertoEnMedioDejaUnaBaseEntera)
{
    const QByteArray nueva = hacerOtra(50'000); // some megabytes, so that most of the time goes to the copying
    QDir(base.ruta(QString())).mkdir(QStringLiteral("una"));
    ASSERT_TRUE(QFile::copy(base.rutaBase(), base.ruta(QStringLiteral("una/DBBrivo.mdb"))));
    const QByteArray vieja = leerArchivo(base.rutaBase());
    const auto entera = [&](const QString& ruta)
    {
        const QByteArray bytes = leerArchivo(ruta);
        return bytes == vieja || bytes == nueva;
    };
    const QStringList temporales{QStringLiteral("*.tmp"), QStringLiteral("*.parte")};
    const QString copia = carpeta + QStringLiteral("/DBBrivo.mdb");
    int enMedio = 0;
    constexpr int veces = 6;
    for (int vez = 0; vez < veces; ++vez)
    {
        const QString mirada = vez % 2 == 0 ? base.ruta(QString()) : carpeta;
        Hijo programa(QStringLiteral("OtraCopia.DISABLED_RestauraYResguarda"), base.ruta(QString()));
        ASSERT_FALSE(programa.dicho().isEmpty());
        while (QDir(mirada).entryList(temporales, QDir::Files).isEmpty())
        {
        }
        programa.matar();
        enMedio += QDir(mirada).entryList(temporales, QDir::Files).isEmpty() ? 0 : 1;
        EXPECT_TRUE(entera(base.rutaBase()));
        EXPECT_TRUE(!QFile::exists(copia) || entera(copia));
        EXPECT_TRUE(!QFile::exists(seguridad) || entera(seguridad));
        for (const QString& donde : {base.ruta(QString()), carpeta})
        {
            for (const QString& resto : QDir(donde).entryList(temporales, QDir::Files))
            {
                QFile::remove(donde + QLatin1Char('/') + resto);
            }
        }
    }
    EXPECT_GT(enMedio, 0) << "none was killed at work";
    Conexion::comprobar(base.rutaBase());
}
