// Backup, restore and compaction killed at random moments, a hundred times each: what stands afterwards is the old
// database or the new one, whole; it opens as at every start and passes its integrity check; and what the killed ones
// left behind does not pile up.
//
// Each death is that of a process of its own, which works as the program does. The moments are drawn evenly over the
// time that the operation takes here (it is measured first), by a generator whose seed is printed; ALTOVERDE_SEMILLA
// repeats a seed and ALTOVERDE_MUERTES sets another number of deaths. Printed too: how many fell before the first byte
// was written, in the middle, and after the new file stood in its place. Most must fall in the middle.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/hijo.h"
#include "core/rutinas.h"
#include "fallos/base_grande.h"
#include "maintenance/respaldo.h"
#include "platform/data/directorio_programa.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <random>
#include <thread>

namespace
{
using Microsegundos = std::chrono::microseconds;

const QString viva = QStringLiteral("DBBrivo.mdb");
const QString copia = QStringLiteral("Copias/20090603_1007/DBBrivo.mdb");
const QString seguridad = QStringLiteral("DBBrivo_Bak.mdb");

enum class Tarea
{
    Resguardar,
    Restaurar,
    Compactar,
};

/// Does it once, in `lugar` as the program's directory. `carpeta` is that of the backup to make.
void hacer(Tarea tarea, const QString& lugar, const QString& carpeta)
{
    reemplazarDirectorioPrograma(lugar);
    Rutinas::RutaApp = DirectorioPrograma() + QDir::separator();
    switch (tarea)
    {
    case Tarea::Resguardar:
        resguardar(Rutinas::rutaBase(), prepararCopia(lugar + QStringLiteral("/Copias/") + carpeta));
        break;
    case Tarea::Restaurar:
        restaurar(lugar + QLatin1Char('/') + copia, Rutinas::rutaBase(), lugar + QLatin1Char('/') + seguridad);
        break;
    case Tarea::Compactar:
        Rutinas::CompactarBase();
        break;
    }
}

/// Where a death fell, by the files that its process touched.
enum class Momento
{
    Antes,
    EnMedio,
    Despues,
};

class Muertes : public testing::Test
{
protected:
    Muertes()
        : semilla(qEnvironmentVariableIsSet("ALTOVERDE_SEMILLA") ? qEnvironmentVariable("ALTOVERDE_SEMILLA").toUInt()
                                                                 : std::random_device{}())
        , azar(semilla)
    {
        if (qEnvironmentVariableIsSet("ALTOVERDE_MUERTES"))
        {
            veces = qEnvironmentVariable("ALTOVERDE_MUERTES").toInt();
        }
        QDir(en(QString())).mkpath(QStringLiteral("Copias/20090603_1007"));
        llenarBase(base.conexion(), empleados, 1000);
        Rutinas::CerrarBase();
        QFile::copy(en(viva), en(copia));
        una = leerArchivo(en(viva));
        Conexion otraBase;
        otraBase.abrir(en(copia));
        otraBase.ejecutar("UPDATE DDJJ_Empleados SET Imponible = Imponible * 2");
        otraBase.cerrar();
        QFile::remove(en(QStringLiteral("Copias/20090603_1007/DBBrivo.ldb")));
        otra = leerArchivo(en(copia));
    }
    ~Muertes() override { Rutinas::AbrirBase(); }

    [[nodiscard]] QString en(const QString& nombre) const { return base.ruta(nombre); }
    /// Puts `bytes` there unless they are there already.
    void poner(const QString& nombre, const QByteArray& bytes) const
    {
        if (!QFile::exists(en(nombre)) || leerArchivo(en(nombre)) != bytes)
        {
            escribirArchivo(en(nombre), bytes);
        }
    }
    [[nodiscard]] QStringList archivos() const
    {
        QStringList todos;
        QDirIterator camina(base.ruta(QString()), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (camina.hasNext())
        {
            todos += QDir(base.ruta(QString())).relativeFilePath(camina.next());
        }
        todos.sort();
        return todos;
    }
    /// The middle one of a few runs, from end to end.
    [[nodiscard]] Microsegundos medir(Tarea tarea, const std::function<void()>& preparar) const
    {
        std::vector<qint64> tiempos;
        for (int vez = 0; vez < 5; ++vez)
        {
            preparar();
            QElapsedTimer reloj;
            reloj.start();
            hacer(tarea, en(QString()), QStringLiteral("20090603_1007"));
            tiempos.push_back(reloj.nsecsElapsed() / 1000);
        }
        std::sort(tiempos.begin(), tiempos.end());
        return Microsegundos(tiempos[tiempos.size() / 2]);
    }
    /// One death, at a moment drawn from [0, hasta).
    Momento morir(Tarea tarea, const char* prueba, const QString& carpeta, Microsegundos hasta)
    {
        const QString nueva =
            tarea == Tarea::Resguardar ? QStringLiteral("Copias/") + carpeta + QStringLiteral("/") + viva : viva;
        const Microsegundos espera(std::uniform_int_distribution<qint64>(0, hasta.count() - 1)(azar));
        const QDateTime comienzo = QDateTime::currentDateTime();
        {
            Hijo programa(QStringLiteral("HijoDeMuertes.") + QString::fromLatin1(prueba),
                          en(QString()) + QLatin1Char('|') + carpeta);
            std::this_thread::sleep_for(espera); // not to wait for something: this is the moment of the death
            programa.matar();
        }
        const auto tocado = [&](const QString& nombre) { return QFileInfo(en(nombre)).lastModified() >= comienzo; };
        if (tocado(nueva))
        {
            return Momento::Despues;
        }
        const QStringList todos = archivos();
        const bool alguno = std::any_of(todos.begin(), todos.end(),
                                        [&](const QString& nombre)
                                        { return !nombre.endsWith(QLatin1String(".ldb")) && tocado(nombre); });
        return alguno ? Momento::EnMedio : Momento::Antes;
    }
    /// All deaths of one operation. `revisar` looks at what stands after each.
    void matarMuchas(Tarea tarea, const char* prueba, const std::function<void()>& preparar,
                     const std::function<void(Momento, const QString& carpeta)>& revisar)
    {
        const Microsegundos duracion = medir(tarea, preparar);
        const QStringList limpios = archivos();
        std::map<Momento, int> cuantas;
        for (int vez = 0; vez < veces && !HasFailure(); ++vez)
        {
            SCOPED_TRACE(testing::Message() << "seed " << std::to_string(semilla) << ", death " << vez);
            preparar();
            // A folder of its own for nearly every backup, so that the leftovers of the one before lie elsewhere.
            const QString carpeta = QStringLiteral("20090603_11%1").arg(vez % 7, 2, 10, QLatin1Char('0'));
            const Momento momento = morir(tarea, prueba, carpeta, duracion * 5 / 4);
            ++cuantas[momento];
            EXPECT_EQ(QString(), problemaDeLaBase());
            revisar(momento, carpeta);
            const QStringList restos = archivos().filter(QRegularExpression(QStringLiteral("(parte|tmp|Temporal)")));
            EXPECT_LE(restos.size(), 2) << "leftovers pile up: " << restos.join(u' ').toStdString();
        }
        std::cout << "[ muertes  ] " << prueba << ": " << una.size() / 1024 << " KiB, " << duracion.count() / 1000
                  << " ms each, seed " << std::to_string(semilla) << "; before " << cuantas[Momento::Antes]
                  << ", in the middle " << cuantas[Momento::EnMedio] << ", after " << cuantas[Momento::Despues]
                  << std::endl;
        EXPECT_GE(cuantas[Momento::EnMedio], veces / 3) << "too few were killed at work";
        // The next one that is left alone removes what all of them left.
        preparar();
        hacer(tarea, en(QString()), QStringLiteral("20090603_1007"));
        QStringList ahora = archivos();
        ahora.erase(std::remove_if(ahora.begin(), ahora.end(),
                                   [](const QString& nombre) {
                                       return nombre.startsWith(QLatin1String("Copias/20090603_11")) &&
                                              nombre.endsWith(viva);
                                   }),
                    ahora.end());
        EXPECT_EQ(limpios, ahora);
    }

    static constexpr int empleados = 12'000;
    int veces = 100;
    BaseDePrueba base;
    unsigned semilla;
    std::mt19937 azar;
    QByteArray una;  ///< the database as it is before
    QByteArray otra; ///< another one
};

void morirHaciendo(Tarea tarea)
{
    const QStringList partes = hijo::ruta().split(QLatin1Char('|'));
    hijo::listo();
    hacer(tarea, partes[0], partes[1]);
}
} // namespace

TEST(HijoDeMuertes, DISABLED_Resguarda)
{
    morirHaciendo(Tarea::Resguardar);
}

TEST(HijoDeMuertes, DISABLED_Restaura)
{
    morirHaciendo(Tarea::Restaurar);
}

TEST(HijoDeMuertes, DISABLED_Compacta)
{
    morirHaciendo(Tarea::Compactar);
}

TEST_F(Muertes, AlResguardar)
{
    bool conOtra = false;
    matarMuchas(
        Tarea::Resguardar, "DISABLED_Resguarda",
        [&]
        {
            poner(viva, conOtra ? otra : una);
            conOtra = !conOtra; // a folder holds now the copy of the one, now that of the other
        },
        [&](Momento momento, const QString& carpeta)
        {
            const QByteArray origen = conOtra ? una : otra;
            EXPECT_EQ(origen, leerArchivo(en(viva)));
            const QString hecha = en(QStringLiteral("Copias/") + carpeta + QLatin1Char('/') + viva);
            if (momento == Momento::Despues || QFile::exists(hecha))
            {
                const QByteArray bytes = leerArchivo(hecha);
                EXPECT_TRUE(bytes == origen || (momento != Momento::Despues && (bytes == una || bytes == otra)));
            }
        });
}

TEST_F(Muertes, AlRestaurar)
{
    matarMuchas(
        Tarea::Restaurar, "DISABLED_Restaura",
        [&]
        {
            poner(viva, una);
            poner(copia, otra);
        },
        [&](Momento momento, const QString& /*carpeta*/)
        {
            EXPECT_EQ(momento == Momento::Despues ? otra : una, leerArchivo(en(viva)));
            EXPECT_EQ(otra, leerArchivo(en(copia)));
            EXPECT_EQ(una, leerArchivo(en(seguridad))) << "the safety copy of the run before or of this one";
        });
}

TEST_F(Muertes, AlCompactar)
{
    Rutinas::AbrirBase();
    base.conexion().ejecutar("DELETE FROM DDJJ_Empleados WHERE NroDoc % 3 = 0"); // something to make compact
    const QByteArray contenido = contenidoDe(base.conexion());
    Rutinas::CerrarBase();
    una = leerArchivo(en(viva));
    Rutinas::CompactarBase();
    otra = leerArchivo(en(viva));
    ASSERT_LT(otra.size(), una.size());
    Rutinas::AbrirBase();
    ASSERT_EQ(contenido, contenidoDe(base.conexion()));
    Rutinas::CerrarBase();
    matarMuchas(
        Tarea::Compactar, "DISABLED_Compacta", [&] { poner(viva, una); },
        [&](Momento momento, const QString& /*carpeta*/)
        { EXPECT_EQ(momento == Momento::Despues ? otra : una, leerArchivo(en(viva))); });
}
