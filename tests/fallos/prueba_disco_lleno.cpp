// A disk that fills up in the middle of a backup, a restore, a compaction, an import, a save and the writing of a text
// file, and folders where nothing can be written: each ends in the message told, the database is as it was, nothing
// half made is left, and the same action goes well once there is room.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/entrada.h"
#include "apoyo/mesa.h"
#include "exchange/archivo_ddjj.h"
#include "exchange/importacion.h"
#include "fallos/base_grande.h"
#include "fallos/disco_chico.h"
#include "maintenance/screens/backup.h"
#include "platform/data/archivos.h"
#include "platform/data/directorio_programa.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/data/reloj.h"
#include "platform/screens/navegacion.h"
#include "roster/guardar_empleado.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QTabBar>
#include <QTabWidget>
#include <gtest/gtest.h>
#ifdef __linux__
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace
{
const ClaveDDJJ clave{dePrueba::cuit, dePrueba::periodo, 0};
const QString pregunta = QStringLiteral("Está seguro que desea reemplazar la Base de Datos Actual?");

/// The error of what failed; "" when it went well.
QString fallaDe(const std::function<void()>& haz)
{
    try
    {
        haz();
        return {};
    }
    catch (const ErrorDeEjecucion& error)
    {
        return QStringLiteral("%1 - %2").arg(error.numero()).arg(error.descripcion());
    }
}

class DiscoLleno : public testing::Test
{
protected:
    DiscoLleno()
    {
        Reloj::reemplazar([] { return QDateTime(QDate(2009, 6, 3), QTime(9, 7)); });
        Navegacion::instancia().registrar(QStringLiteral("Backup"), [] { return new Backup; });
        QDir(en(QString())).mkpath(QStringLiteral("Copias"));
        llenarBase(mesa.conexion(), 6'000, 1000);
        contenido = contenidoDe(mesa.conexion());
        largo = QFileInfo(mesa.base.rutaBase()).size();
        std::cout << "[ disco    ] " << (disco.montado() ? "a disk of its own" : "files limited in size") << std::endl;
    }
    ~DiscoLleno() override { Reloj::reemplazar({}); }
    [[nodiscard]] QString en(const QString& nombre) const { return mesa.base.ruta(nombre); }
    /// Every file but the lock, which stays open, and journals of no length.
    [[nodiscard]] QStringList archivos() const
    {
        QStringList todos = QDir(en(QString())).entryList(QDir::Files | QDir::Hidden);
        todos += QDir(en(QStringLiteral("Copias/20090603_0907"))).entryList(QDir::Files | QDir::Hidden);
        todos.removeAll(QStringLiteral("DBBrivo.ldb"));
        return todos;
    }
    void nadaCambio(const QStringList& antes)
    {
        EXPECT_EQ(antes, archivos());
        ASSERT_TRUE(mesa.conexion().abierta());
        EXPECT_EQ(contenido, contenidoDe(mesa.conexion()));
        EXPECT_EQ("ok",
                  mesa.conexion().consultar("PRAGMA integrity_check").primera().texto("integrity_check").toStdString());
        EXPECT_EQ(0, mesa.fines);
    }
    static void abrirBackup(int pagina)
    {
        Mesa::abrir("Backup");
        auto* barra = dynamic_cast<QTabWidget&>(Mesa::control("SSTab1")).tabBar();
        Entrada::pulsar(*barra, barra->tabRect(pagina).center());
    }
    void mantenimiento() const { mesa.menu->findChild<QAction*>(QStringLiteral("mnuTool_2"))->trigger(); }

    QTemporaryDir fuera; ///< on a disk with room
    DiscoChico disco{6};
    Mesa mesa;
    QByteArray contenido;
    qint64 largo = 0;
};
} // namespace

TEST_F(DiscoLleno, AlResguardar)
{
    const QStringList antes = archivos();
    abrirBackup(0);
    disco.llenar(largo / 2, largo / 2);
    mesa.cajas.esperaQueDiga(Caja::Simple, QStringLiteral("61 El disco está lleno: "));
    Mesa::pulsar("cmdOK");
    disco.llenar(0, largo / 2); // no room for anything at all
    mesa.cajas.esperaQueDiga(Caja::Simple, QStringLiteral("61 El disco está lleno: "));
    Mesa::pulsar("cmdOK");
    nadaCambio(antes);
    disco.vaciar();
    mesa.cajas.esperaQueDiga(Caja::Informacion, QStringLiteral("Se ha realizado una Copia"));
    Mesa::pulsar("cmdOK");
    EXPECT_EQ(largo, QFileInfo(en(QStringLiteral("Copias/20090603_0907/DBBrivo.mdb"))).size());
}

TEST_F(DiscoLleno, AlRestaurar)
{
    QDir(en(QString())).mkdir(QStringLiteral("otra"));
    const QString otra = en(QStringLiteral("otra")) + QDir::separator() + QStringLiteral("DBBrivo.mdb");
    ASSERT_TRUE(QFile::copy(mesa.base.rutaBase(), otra));
    Conexion conexion;
    conexion.abrir(otra);
    conexion.ejecutar("UPDATE Parametros SET EMail = 'otra@example.org'");
    conexion.cerrar();
    QStringList antes = archivos();
    abrirBackup(1);
    Mesa::escribir("txtOrigen_1", otra.toUtf8());
    // No room for the safety copy; then room for it, and none for the database.
    for (const qint64 libres : {largo / 2, largo * 3 / 2})
    {
        disco.llenar(libres, largo / 2);
        mesa.cajas.esperaPregunta(pregunta, true);
        mesa.cajas.esperaQueDiga(Caja::Simple, QStringLiteral("61 El disco está lleno: "));
        Mesa::pulsar("cmdOK");
        if (libres > largo && disco.montado())
        {
            antes.insert(antes.indexOf(QStringLiteral("DBBrivo.mdb")) + 1, QStringLiteral("DBBrivo_Bak.mdb"));
        }
        nadaCambio(antes);
    }
    disco.vaciar();
    mesa.cajas.esperaPregunta(pregunta, true);
    mesa.cajas.espera(Caja::Informacion, QStringLiteral("La Base de Datos ha sido reemplazada con exito."));
    Mesa::pulsar("cmdOK");
    EXPECT_TRUE(mesa.conexion().hay("SELECT 1 FROM Parametros WHERE EMail = 'otra@example.org'"));
}

TEST_F(DiscoLleno, AlCompactar)
{
    const QStringList antes = archivos();
    for (const qint64 libres : {largo / 2, qint64{0}})
    {
        disco.llenar(libres, largo / 2);
        mesa.cajas.esperaQueDiga(Caja::Simple, QStringLiteral(" - ") + disco.textoDeLaBase());
        mantenimiento();
        nadaCambio(antes);
    }
    disco.vaciar();
    mesa.cajas.espera(Caja::Exclamacion, QStringLiteral("LA BASE HA SIDO COMPACTADA Y REPARADA CON EXITO."));
    mantenimiento();
    nadaCambio(antes);
}

TEST_F(DiscoLleno, AlImportarYAlGuardar)
{
    QByteArray lineas;
    constexpr int cantidad = 5'000;
    for (int i = 0; i < cantidad; ++i)
    {
        lineas += "27" + QByteArray::number(i).rightJustified(9, '0') + "Importado                     T02" +
                  QByteArray(13, ' ') + "001" + QByteArray(9, ' ') + "       1000       1000\r\n";
    }
    const QString nomina = fuera.filePath(QStringLiteral("nomina.txt"));
    escribirArchivo(nomina, lineas);
    EntradaEmpleado empleado;
    empleado.nuevo = true;
    empleado.cuil = dePrueba::cuil;
    empleado.ayn = QStringLiteral("Pérez Juan");
    empleado.tipoDoc = 1;
    empleado.documento = QStringLiteral("12345678");
    empleado.qHoras = QStringLiteral("200");

    const QStringList antes = archivos();
    const auto importar = [&]
    {
        const auto hecho = importarNomina(mesa.conexion(), clave, nomina, FormatoDeNomina::AfipSijp);
        EXPECT_EQ(cantidad, hecho.titulares);
    };
    const auto guardar = [&] { EXPECT_TRUE(guardarEmpleado(mesa.conexion(), clave, empleado)); };
    for (const qint64 libres : {largo / 4, qint64{16 * 1024}, qint64{0}})
    {
        disco.llenar(libres, largo + 4096);
        EXPECT_TRUE(fallaDe(importar).section(QStringLiteral(" - "), 1).startsWith(disco.textoDeLaBase())) << libres;
        Archivos::cerrarTodos();
        nadaCambio(antes);
    }
    disco.llenar(0, 0);
    EXPECT_TRUE(fallaDe(guardar).section(QStringLiteral(" - "), 1).startsWith(disco.textoDeLaBase()));
    nadaCambio(antes);
    disco.vaciar();
    EXPECT_EQ(QString(), fallaDe(importar));
    EXPECT_EQ(QString(), fallaDe(guardar));
}

TEST_F(DiscoLleno, AlEscribirUnArchivoDeTexto)
{
    const DatosArchivoDDJJ datos{clave.cuit, clave.periodo, QStringLiteral("2009"), QStringLiteral("5"),
                                 QStringLiteral("0")};
    QString nombre;
    const auto grabar = [&] { GrabarArchivoDDJJ(mesa.conexion(), datos, nombre); };
    for (const qint64 libres : {largo / 4, qint64{0}})
    {
        disco.llenar(libres, largo / 4);
        EXPECT_TRUE(fallaDe(grabar).startsWith(QStringLiteral("61 - El disco está lleno: "))) << libres;
        EXPECT_FALSE(Archivos::abierto(1)) << "the next one must not fail on it";
        QFile::remove(rutaArchivoDDJJ(nombre));
    }
    disco.vaciar();
    const QStringList antes = archivos();
    ASSERT_EQ(QString(), fallaDe(grabar));

    // Saved as another file, on the disk with no room: the file that was there stays.
    const QString grande = fuera.filePath(QStringLiteral("grande.txt"));
    ASSERT_TRUE(QFile::rename(rutaArchivoDDJJ(nombre), grande));
    const QString destino = mesa.base.escribir(QStringLiteral("otro.txt"), "el que estaba");
    disco.llenar(largo / 4, largo / 4);
    EXPECT_TRUE(
        fallaDe([&] { Archivos::copiar(grande, destino); }).startsWith(QStringLiteral("61 - El disco está lleno: ")));
    EXPECT_EQ("el que estaba", leerArchivo(destino));
    disco.vaciar();
    QFile::remove(destino);
    nadaCambio(antes);
}

#ifdef __linux__
/// A folder in which not even root makes anything; an empty text where there is none.
QString carpetaDeNadie()
{
    for (const char* carpeta : {"/sys", "/dev/pts"})
    {
        const std::string dentro = std::string(carpeta) + "/altoverde";
        if (::mkdir(dentro.c_str(), S_IRWXU) != 0 && (errno == EPERM || errno == EACCES))
        {
            return QLatin1String(carpeta);
        }
        ::rmdir(dentro.c_str());
    }
    return {};
}

TEST_F(DiscoLleno, DondeNoSePuedeEscribir)
{
    const QString nadie = carpetaDeNadie();
    ASSERT_FALSE(nadie.isEmpty()) << "neither /sys nor /dev/pts is mounted";
    QDir(en(QStringLiteral("Copias"))).removeRecursively();
    ASSERT_TRUE(QFile::link(nadie, en(QStringLiteral("Copias"))));
    const QStringList antes = archivos();
    abrirBackup(0);
    mesa.cajas.esperaQueDiga(Caja::Simple, QStringLiteral("75 Error de acceso a la ruta o al archivo: "));
    Mesa::pulsar("cmdOK");
    nadaCambio(antes);
    // A copy that may not be made there counts as refused.
    const QString suelto = fuera.filePath(QStringLiteral("suelto.txt"));
    escribirArchivo(suelto, "algo");
    EXPECT_TRUE(fallaDe([&] { Archivos::copiar(suelto, nadie + QStringLiteral("/copia")); })
                    .startsWith(QStringLiteral("70 - ")));
    const DatosArchivoDDJJ datos{clave.cuit, clave.periodo, QStringLiteral("2009"), QStringLiteral("5"),
                                 QStringLiteral("0")};
    QString nombre;
    const QString propio = DirectorioPrograma();
    reemplazarDirectorioPrograma(nadie);
    EXPECT_TRUE(fallaDe([&] { GrabarArchivoDDJJ(mesa.conexion(), datos, nombre); })
                    .startsWith(QStringLiteral("75 - Error de acceso a la ruta o al archivo: ")));
    reemplazarDirectorioPrograma(propio);
    nadaCambio(antes);
}
#endif
