// Backup, restore and compaction killed at random moments: what stands afterwards is the old database or the new one,
// whole; it opens as at every start; and what the killed ones left behind does not pile up. Each death is that of a
// process of its own. The moments are drawn evenly over the time that the operation takes here, which is measured
// first, three times. ALTOVERDE_MUERTES sets the number of deaths, ALTOVERDE_SEMILLA draws other moments.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/hijo.h"
#include "base/directorio_programa.h"
#include "fallos/base_grande.h"
#include "maintenance/respaldo.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <chrono>
#include <limits>
#include <random>
#include <thread>

namespace
{
const QString viva = QStringLiteral("DBBrivo.mdb");
const QString copiaARestaurar = QStringLiteral("Copias/20090603_1007/DBBrivo.mdb");
const QString seguridad = QStringLiteral("DBBrivo_Bak.mdb");

/// Does it once in the program's directory. `carpeta` is that of the backup to make.
void hacer(const QString& tarea, const QString& carpeta)
{
    const QString base = Rutinas::rutaBase();
    tarea == "Resguardar"  ? static_cast<void>(resguardar(base, prepararCopia(Rutinas::RutaApp + "Copias/" + carpeta)))
    : tarea == "Restaurar" ? restaurar(Rutinas::RutaApp + copiaARestaurar, base, Rutinas::RutaApp + seguridad)
                           : Rutinas::CompactarBase();
}

class Muertes : public testing::TestWithParam<const char*>
{
protected:
    Muertes()
    {
        QDir().mkpath(en(QStringLiteral("Copias/20090603_1007")));
        llenarBase(12'000);
        // Something to make compact, and the other database of a backup or a restore.
        base.conexion().ejecutar("DELETE FROM DDJJ_Empleados WHERE NroDoc % 3 = 0");
        contenido = contenidoDe();
        Rutinas::CerrarBase();
        una = leerArchivo(en(viva));
        Rutinas::CompactarBase();
        otra = leerArchivo(en(viva));
        EXPECT_LT(otra.size(), una.size());
    }
    ~Muertes() override { Rutinas::AbrirBase(); }

    [[nodiscard]] QString en(const QString& nombre) const { return base.ruta(nombre); }
    [[nodiscard]] QStringList archivos() const { return QString::fromStdString(archivosDe(en({}))).split(u' '); }
    [[nodiscard]] QStringList restos() const
    {
        return archivos().filter(QRegularExpression(QStringLiteral("parte|tmp|Temporal|journal")));
    }
    /// Before death `vez`: a folder holds now the copy of the one database, now that of the other.
    void preparar(int vez)
    {
        const bool alterna = tarea == QStringLiteral("Resguardar") && vez % 2 == 1;
        escribirArchivo(en(viva), alterna ? otra : una);
        escribirArchivo(en(copiaARestaurar), otra);
    }
    /// What stands after a death is whole: the old database or the new one.
    void revisar(int vez, const QString& carpeta)
    {
        const QByteArray queda = leerArchivo(en(viva));
        const QString hecha = en(QStringLiteral("Copias/") + carpeta + QLatin1Char('/') + viva);
        EXPECT_TRUE(tarea != "Resguardar" || queda == (vez % 2 == 1 ? otra : una));
        EXPECT_TRUE(queda == una || queda == otra);
        EXPECT_TRUE(!QFile::exists(hecha) || leerArchivo(hecha) == una || leerArchivo(hecha) == otra);
        EXPECT_TRUE(leerArchivo(en(copiaARestaurar)) == otra);
        // The safety copy of the run before or of this one.
        EXPECT_TRUE(tarea != QStringLiteral("Restaurar") || leerArchivo(en(seguridad)) == una);
        Rutinas::AbrirBase();
        EXPECT_EQ(contenido, contenidoDe());
        Rutinas::CerrarBase();
        EXPECT_LE(restos().size(), 2) << "leftovers pile up: " << restos().join(u' ').toStdString();
    }

    BaseDePrueba base;
    const QString tarea = QString::fromLatin1(GetParam());
    std::string contenido;
    QByteArray una;  ///< the database as it is before
    QByteArray otra; ///< the one after the restore or the compaction
};

TEST_P(Muertes, DejanUnaBaseEntera)
{
    const int veces = pedido("ALTOVERDE_MUERTES", 20);
    std::mt19937 azar(static_cast<unsigned>(pedido("ALTOVERDE_SEMILLA", 1)));
    qint64 dura = std::numeric_limits<qint64>::max(); // microseconds, the least of three: a machine may stall at one
    for (int vez = 0; vez < 3; ++vez)
    {
        preparar(0);
        QElapsedTimer reloj;
        reloj.start();
        hacer(tarea, QStringLiteral("20090603_1007"));
        dura = std::min(dura, reloj.nsecsElapsed() / 1000);
    }
    const QStringList limpios = archivos();
    int enMedio = 0;
    for (int vez = 0; vez < veces && !HasFailure(); ++vez)
    {
        SCOPED_TRACE(testing::Message() << "death " << vez);
        preparar(vez);
        const QString carpeta = QStringLiteral("20090603_11%1").arg(vez % 7, 2, 10, QLatin1Char('0'));
        const std::chrono::microseconds espera(std::uniform_int_distribution<qint64>(0, dura * 5 / 4)(azar));
        Hijo programa(QStringLiteral("HijoDeMuertes.DISABLED_Hace"),
                      QStringList{en(QString()), tarea, carpeta}.join(u'|'));
        std::this_thread::sleep_for(espera); // not to wait for something: this is the moment of the death
        programa.matar();
        enMedio += restos().isEmpty() ? 0 : 1;
        revisar(vez, carpeta);
    }
    EXPECT_GT(enMedio, 0) << "none was killed at work";
    // The next one that is left alone removes what all of them left.
    preparar(0);
    hacer(tarea, QStringLiteral("20090603_1007"));
    QStringList ahora = archivos();
    ahora.removeIf([](const QString& nombre)
                   { return nombre.startsWith(QLatin1String("Copias/20090603_11")) && nombre.endsWith(viva); });
    EXPECT_EQ(limpios, ahora);
}

INSTANTIATE_TEST_SUITE_P(Al, Muertes, testing::Values("Resguardar", "Restaurar", "Compactar"),
                         [](const auto& caso) { return std::string(caso.param); });
} // namespace

TEST(HijoDeMuertes, DISABLED_Hace)
{
    const QStringList partes = hijo::ruta().split(QLatin1Char('|'));
    reemplazarDirectorioPrograma(partes[0]);
    Rutinas::RutaApp = DirectorioPrograma() + QDir::separator();
    hijo::listo();
    hacer(partes[1], partes[2]);
}
