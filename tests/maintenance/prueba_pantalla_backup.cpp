// The backup screen, worked by a person.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/entrada.h"
#include "apoyo/hijo.h"
#include "apoyo/mesa.h"
#include "apoyo/version_anterior.h"
#include "maintenance/screens/backup.h"
#include "platform/data/reloj.h"
#include "platform/screens/navegacion.h"

#include <QDir>
#include <QFile>
#include <QTabBar>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace
{
const QString pregunta = QStringLiteral("Está seguro que desea reemplazar la Base de Datos Actual?");
const QString reemplazada = QStringLiteral("La Base de Datos ha sido reemplazada con exito.");
const QString otroUsuario =
    QStringLiteral("Disculpe, no se puede hacer la Copia de Seguridad porque otro Usuario está Ejecutando el Sistema.");

class PantallaBackup : public testing::Test
{
protected:
    PantallaBackup()
    {
        Reloj::reemplazar([this] { return ahora; });
        Navegacion::instancia().registrar(QStringLiteral("Backup"), [] { return new Backup; });
        QDir(mesa.base.ruta(QString())).mkdir(QStringLiteral("Copias"));
    }
    ~PantallaBackup() override { Reloj::reemplazar({}); }
    static void abrir(int pagina = 0)
    {
        Mesa::abrir("Backup");
        auto* barra = dynamic_cast<QTabWidget&>(Mesa::control("SSTab1")).tabBar();
        Entrada::pulsar(*barra, barra->tabRect(pagina).center());
    }
    [[nodiscard]] static bool abierta() { return Navegacion::instancia().abierta(QStringLiteral("Backup")) != nullptr; }
    [[nodiscard]] QString ruta(const char* nombre) const
    {
        return QDir::toNativeSeparators(mesa.base.ruta(QString::fromLatin1(nombre)));
    }
    [[nodiscard]] QString recordado() const
    {
        const Recordset parametros = mesa.conexion().consultar("SELECT * FROM Parametros");
        const Fila fila = parametros.primera();
        return fila.texto("Bak_Carpeta") + QLatin1Char('|') + fila.texto("Bak_Fecha") + QLatin1Char('|') +
               fila.texto("Bak_Hora");
    }
    void esperaExito(const QString& copia)
    {
        cajas.espera(Caja::Informacion,
                     QStringLiteral("Se ha realizado una Copia de la Base de Datos en la Ubicación: '") + copia +
                         QLatin1Char('\''));
    }
    /// A backup of the database as it stands, in a folder of its own.
    [[nodiscard]] QString hacerCopia(const char* carpeta)
    {
        QDir(mesa.base.ruta(QString())).mkdir(QString::fromLatin1(carpeta));
        const QString copia = ruta(carpeta) + QDir::separator() + QStringLiteral("DBBrivo.mdb");
        escribirArchivo(copia, leerArchivo(mesa.base.rutaBase()));
        return copia;
    }

    QDateTime ahora{QDate(2009, 6, 3), QTime(9, 7, 59)};
    Mesa mesa;
    CajasDePrueba& cajas = mesa.cajas;
    const QString primera = ruta("Copias/20090603_0907/DBBrivo.mdb");
};
} // namespace

TEST_F(PantallaBackup, LaCopiaSeHaceSeRecuerdaYSePropone)
{
    abrir();
    EXPECT_EQ(QStringLiteral("B.R.I.V.O. Zona Sauce - Copia de Seguridad"), Mesa::titulo());
    EXPECT_EQ(Rutinas::rutaBase(), Mesa::texto("txtOrigen_0"));
    EXPECT_EQ(QString(), Mesa::texto("txtDestino_0"));
    EXPECT_EQ(QStringLiteral("Resguardar"), Mesa::texto("cmdOK"));
    const QByteArray antes = leerArchivo(mesa.base.rutaBase());
    esperaExito(primera);
    Mesa::pulsar("cmdOK");
    EXPECT_FALSE(abierta());
    EXPECT_EQ(antes, leerArchivo(primera)); // the copy does not know of itself
    EXPECT_EQ(primera + QStringLiteral("|2009-06-03|09:07:00"), recordado());

    // In the same minute again: it overwrites without a word, and holds the backup before it.
    abrir();
    esperaExito(primera);
    Mesa::pulsar("cmdOK");
    EXPECT_NE(antes, leerArchivo(primera));
    EXPECT_EQ(1U, QDir(mesa.base.ruta(QStringLiteral("Copias"))).count() - 2);

    ahora = QDateTime(QDate(2009, 6, 3), QTime(9, 8));
    abrir(1);
    EXPECT_EQ(QStringLiteral("Restaurar"), Mesa::texto("cmdOK"));
    EXPECT_EQ(Rutinas::rutaBase(), Mesa::texto("txtDestino_1"));
    EXPECT_EQ(primera, Mesa::texto("txtOrigen_1"));
    EXPECT_EQ(QLatin1Char('\'') + primera + QStringLiteral("'  -  Fecha: 03/06/09  -  Hora: 09:07"),
              Mesa::texto("lblUltimo"));
    Mesa::pulsar("cmdSalir");
    EXPECT_FALSE(abierta());
}

TEST_F(PantallaBackup, SinCopiaAnteriorNoSeProponeNada)
{
    for (const char* carpeta : {"NULL", "''"})
    {
        mesa.conexion().ejecutar(std::string("UPDATE Parametros SET Bak_Carpeta = ") + carpeta);
        abrir(1);
        EXPECT_EQ(QString(), Mesa::texto("lblUltimo"));
        EXPECT_EQ(QString(), Mesa::texto("txtOrigen_1"));
        Mesa::cerrar();
    }
}

TEST_F(PantallaBackup, SinLaCarpetaCopiasLoDiceYSigueAbierta)
{
    QDir(mesa.base.ruta(QStringLiteral("Copias"))).removeRecursively();
    abrir();
    cajas.esperaQueDiga(Caja::Simple, QStringLiteral("76 "));
    Mesa::pulsar("cmdOK");
    EXPECT_TRUE(abierta());
    EXPECT_EQ(QString(), Mesa::texto("txtDestino_0"));
    EXPECT_EQ(QStringLiteral("||"), recordado()); // the connection is open again
    EXPECT_EQ(0, mesa.fines);
}

TEST_F(PantallaBackup, UnaCopiaQueFallaNoSeDaPorHecha)
{
    // The folder of this minute is there, and the place of the copy in it is taken.
    QDir(mesa.base.ruta(QString())).mkpath(QStringLiteral("Copias/20090603_0907/DBBrivo.mdb"));
    abrir();
    cajas.espera(Caja::Critico, otroUsuario); // what may not be written counts as in use
    Mesa::pulsar("cmdOK");
    EXPECT_TRUE(abierta());
    EXPECT_EQ(primera, Mesa::texto("txtDestino_0"));
    EXPECT_EQ(QStringLiteral("||"), recordado());
}

TEST(OtraCopiaDeBackup, DISABLED_TieneLaBaseAbierta)
{
    Conexion conexion;
    conexion.abrir(hijo::ruta());
    hijo::listoYEsperar();
}

TEST_F(PantallaBackup, ConOtroUsuarioNiSeResguardaNiSeRestaura)
{
    const QString copia = hacerCopia("otra");
    Hijo otro(QStringLiteral("OtraCopiaDeBackup.DISABLED_TieneLaBaseAbierta"), mesa.base.rutaBase());
    abrir();
    cajas.espera(Caja::Critico, otroUsuario);
    Mesa::pulsar("cmdOK");
    EXPECT_TRUE(abierta());
    EXPECT_EQ(QStringLiteral("||"), recordado());
    abrir(1);
    Mesa::escribir("txtOrigen_1", copia.toUtf8());
    cajas.esperaPregunta(pregunta, true).espera(Caja::Critico, otroUsuario);
    Mesa::pulsar("cmdOK");
    EXPECT_TRUE(abierta());
    EXPECT_TRUE(mesa.conexion().abierta());
    EXPECT_FALSE(QFile::exists(mesa.base.ruta(QStringLiteral("DBBrivo_Bak.mdb"))));
}

TEST_F(PantallaBackup, LosRechazosDelOrigenEnSuOrden)
{
    const QString copia = hacerCopia("otra");
    abrir(1);
    cajas.espera(Caja::Simple, QStringLiteral("Debe seleccionar la Ubicación de la Base de Datos a Recuperar"));
    Mesa::pulsar("cmdOK");
    Mesa::escribir("txtOrigen_1", Rutinas::rutaBase().toUtf8());
    cajas.espera(
        Caja::Exclamacion,
        QStringLiteral("Debe seleccionar otra Ubicación de la Base de Datos.  No se puede recuperar sobre si misma."));
    Mesa::pulsar("cmdOK");
    cajas.archivo(copia.toLower());
    Mesa::pulsar("cmdExaminar");
    EXPECT_EQ(copia.toLower(), Mesa::texto("txtOrigen_1"));
    EXPECT_EQ(QString(), cajas.archivosPedidos().front().filtro);
    cajas.espera(Caja::Exclamacion,
                 QStringLiteral("La Base de Datos a Recuperar no es la que corresponde al Sistema.  Por favor, "
                                "verifique la misma."));
    Mesa::pulsar("cmdOK");
    cajas.archivo(copia);
    Mesa::pulsar("cmdExaminar");
    cajas.esperaPregunta(pregunta, false);
    Mesa::pulsar("cmdOK");
    cajas.archivo(QString());
    Mesa::pulsar("cmdExaminar");
    EXPECT_EQ(QString(), Mesa::texto("txtOrigen_1"));
    EXPECT_TRUE(abierta());
    EXPECT_FALSE(QFile::exists(mesa.base.ruta(QStringLiteral("DBBrivo_Bak.mdb"))));
}

TEST_F(PantallaBackup, SeRestauraUnaVersionAnterior)
{
    const QString copia = hacerCopia("otra");
    volverAVersion(copia, QStringLiteral("1.0"));
    const QString titulo = mesa.menu->windowTitle();
    const QByteArray vieja = leerArchivo(mesa.base.rutaBase());
    abrir(1);
    Mesa::escribir("txtOrigen_1", copia.toUtf8());
    cajas.esperaPregunta(pregunta, true).espera(Caja::Informacion, reemplazada);
    Mesa::pulsar("cmdOK");
    EXPECT_FALSE(abierta());
    EXPECT_EQ(QStringLiteral("1.0"),
              mesa.conexion().consultar("SELECT Version FROM Parametros").primera().texto("Version"));
    EXPECT_EQ(titulo, mesa.menu->windowTitle()); // upgraded by the next starts, not now
    EXPECT_EQ(vieja, leerArchivo(ruta("DBBrivo_Bak.mdb")));
    for (const char* version : {"1.1", "1.2", "2.0", "2.0"})
    {
        Rutinas::CerrarBase();
        Rutinas::Main([] {});
        EXPECT_TRUE(mesa.conexion().hay("SELECT 1 FROM Parametros WHERE Version = ?", version)) << version;
    }
    EXPECT_NO_THROW(mesa.conexion().ejecutar("UPDATE DDJJ_Empleados SET Acuerdo = Acuerdo2"));
}

TEST_F(PantallaBackup, UnArchivoDanadoNoReemplazaNada)
{
    const QString copia = hacerCopia("otra");
    QByteArray bytes = leerArchivo(copia);
    bytes.replace(bytes.size() / 2, 4096, QByteArray(4096, '\x5a'));
    escribirArchivo(copia, bytes);
    const QByteArray viva = leerArchivo(mesa.base.rutaBase());
    abrir(1);
    Mesa::escribir("txtOrigen_1", copia.toUtf8());
    cajas.esperaPregunta(pregunta, true).esperaQueDiga(Caja::Simple, QStringLiteral("dañada"));
    Mesa::pulsar("cmdOK");
    EXPECT_TRUE(abierta());
    // One that is not there is told too, and nothing is reported as done.
    QFile::remove(copia);
    cajas.esperaPregunta(pregunta, true).esperaQueDiga(Caja::Simple, QStringLiteral("53 "));
    Mesa::pulsar("cmdOK");
    EXPECT_TRUE(abierta());
    EXPECT_EQ(QStringLiteral("||"), recordado());
    Rutinas::CerrarBase();
    EXPECT_EQ(viva, leerArchivo(mesa.base.rutaBase()));
    Rutinas::AbrirBase();
}
