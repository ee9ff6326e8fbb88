// The backup screen: what the scripts cannot say. They walk its ways to success and its refusals.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/entrada.h"
#include "apoyo/hijo.h"
#include "apoyo/mesa.h"
#include "apoyo/version_anterior.h"
#include "core/screens/base_cerrada.h"
#include "maintenance/screens/backup.h"
#include "platform/data/candado.h"
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
const QString otroUsuario =
    QStringLiteral("Disculpe, no se puede hacer la Copia de Seguridad porque otro Usuario está Ejecutando el Sistema.");
const QString anterior =
    QStringLiteral("La Base de Datos anterior quedó guardada en 'DBBrivo_Bak.mdb', en la carpeta del programa.");

const QString ocupada = QStringLiteral(
    "Otro puesto está copiando, compactando o restaurando la base de datos.  Acepte para volver a intentar abrirla.");

class PantallaBackup : public testing::Test
{
protected:
    PantallaBackup()
    {
        Reloj::reemplazar([] { return QDateTime(QDate(2009, 6, 3), QTime(9, 7, 59)); });
        Navegacion::instancia().registrar(QStringLiteral("Backup"), [] { return new Backup; });
        QDir(mesa.base.ruta(QString())).mkdir(QStringLiteral("Copias"));
        QDir(mesa.base.ruta(QString())).mkdir(QStringLiteral("otra"));
        // The database is open again before anything is told: another desk cannot take it over under the screens.
        cajas.alVer(
            [this](const DatosDeCaja& caja)
            {
                caja.texto == ocupada ? soltar() : void();
                EXPECT_TRUE(caja.texto == pregunta || caja.texto == ocupada || mesa.conexion().abierta())
                    << caja.texto.toStdString();
            });
    }
    ~PantallaBackup() override { Reloj::reemplazar({}); }
    void abrir(int pagina) const
    {
        Mesa::abrir("Backup");
        auto* barra = dynamic_cast<QTabWidget&>(Mesa::control("SSTab1")).tabBar();
        Entrada::pulsar(*barra, barra->tabRect(pagina).center());
        if (pagina == 1)
        {
            Mesa::escribir("txtOrigen_1", copia.toUtf8());
        }
    }
    void pulsar(int pagina) const
    {
        abrir(pagina);
        Mesa::pulsar("cmdOK");
    }
    [[nodiscard]] static bool abierta() { return Navegacion::instancia().abierta(QStringLiteral("Backup")) != nullptr; }
    [[nodiscard]] std::string recordado() const
    {
        const Recordset parametros = mesa.conexion().consultar("SELECT * FROM Parametros");
        return parametros.primera().texto("Bak_Carpeta").toStdString();
    }

    std::function<void()> soltar; ///< makes the other desk let the base go
    Mesa mesa;
    CajasDePrueba& cajas = mesa.cajas;
    const QString copia = mesa.base.ruta(QStringLiteral("otra/DBBrivo.mdb"));
};
} // namespace

TEST_F(PantallaBackup, ProponeLaUltimaCopiaCuandoLaHay)
{
    for (const char* carpeta : {"NULL", "''", "'/c/DBBrivo.mdb'"})
    {
        const bool hay = carpeta[1] == '/';
        mesa.conexion().ejecutar(std::string("UPDATE Parametros SET Bak_Fecha = '2009-06-03', Bak_Hora = '09:07:00', "
                                             "Bak_Carpeta = ") +
                                 carpeta);
        Mesa::abrir("Backup");
        EXPECT_EQ(hay ? "'/c/DBBrivo.mdb'  -  Fecha: 03/06/09  -  Hora: 09:07" : "",
                  Mesa::texto("lblUltimo").toStdString());
        EXPECT_EQ(hay ? "/c/DBBrivo.mdb" : "", Mesa::texto("txtOrigen_1").toStdString());
        Mesa::cerrar();
    }
}

TEST_F(PantallaBackup, UnaFallaSeDiceConSuNumeroYLaPantallaSigue)
{
    QDir(mesa.base.ruta(QStringLiteral("Copias"))).removeRecursively();
    cajas.esperaQueDiga(Caja::Simple, QStringLiteral("76 "));
    pulsar(0);
    QDir(mesa.base.ruta(QString())).mkpath(QStringLiteral("Copias/20090603_0907/DBBrivo.mdb"));
    cajas.esperaQueDiga(Caja::Simple, QStringLiteral("75 "));
    pulsar(0);
    cajas.esperaPregunta(pregunta, true).esperaQueDiga(Caja::Simple, QStringLiteral("53 "));
    pulsar(1);
    EXPECT_TRUE(abierta());
    EXPECT_EQ("", recordado());
}

TEST_F(PantallaBackup, UnaCopiaDanadaSeGuardaYSeDice)
{
    Rutinas::CerrarBase();
    QByteArray bytes = leerArchivo(mesa.base.rutaBase());
    escribirArchivo(mesa.base.rutaBase(), bytes.replace(bytes.size() - 4096, 4096, QByteArray(4096, '\x5a')));
    Rutinas::AbrirBase();
    const QString hecha = mesa.base.ruta(QStringLiteral("Copias/20090603_0907/DBBrivo.mdb"));
    cajas.espera(Caja::Informacion,
                 QStringLiteral("Se ha realizado una Copia de la Base de Datos en la Ubicación: '%1'").arg(hecha));
    cajas.esperaQueDiga(Caja::Exclamacion,
                        QStringLiteral("La copia tiene el daño de la Base de Datos: La base de datos está dañada ("));
    pulsar(0);
    EXPECT_FALSE(abierta());
    EXPECT_EQ(bytes, leerArchivo(hecha));
    EXPECT_EQ(hecha.toStdString(), recordado());
}

TEST_F(PantallaBackup, UnaVersionAnteriorSeDiceYSubeEnLosArranques)
{
    escribirArchivo(copia, leerArchivo(mesa.base.rutaBase()));
    volverAVersion(copia, QStringLiteral("1.0"));
    const QString titulo = mesa.menu->windowTitle();
    cajas.esperaPregunta(pregunta, true)
        .espera(Caja::Informacion, QStringLiteral("La Base de Datos ha sido reemplazada con exito."))
        .espera(Caja::Informacion,
                anterior + QStringLiteral("\n\nLa que se restauró es de la versión 1.0: cierre y vuelva a abrir el "
                                          "programa para actualizarla."));
    pulsar(1);
    EXPECT_FALSE(abierta());
    EXPECT_EQ(titulo, mesa.menu->windowTitle());
    for (const char* version : {"1.0", "1.1", "1.2", "2.0", "2.0"})
    {
        EXPECT_TRUE(mesa.conexion().hay("SELECT 1 FROM Parametros WHERE Version = ?", version)) << version;
        Rutinas::CerrarBase();
        Rutinas::Main([] {});
    }
}

TEST(OtraCopiaDeBackup, DISABLED_Trabaja)
{
    Conexion conexion;
    conexion.abrir(hijo::ruta());
    hijo::listoYEsperar();
}

TEST(OtraCopiaDeBackup, DISABLED_Copia)
{
    const Candado solo(Conexion::candado(hijo::ruta()), Candado::Modo::Exclusivo);
    hijo::listoYEsperar();
}

// The other desk works, or copies itself: then it lets the base go while this one tries to open it again.
TEST_F(PantallaBackup, ConOtroUsuarioNiSeResguardaNiSeRestauraYElProgramaSigue)
{
    escribirArchivo(copia, leerArchivo(mesa.base.rutaBase()));
    Rutinas::fijarPacienciaAlReabrir(0);
    for (const char* parte : {"Trabaja", "Copia"})
    {
        for (const int pagina : {0, 1})
        {
            abrir(pagina);
            Rutinas::CerrarBase(); // so that the other one can take it
            Hijo otro(QStringLiteral("OtraCopiaDeBackup.DISABLED_") + QLatin1String(parte), mesa.base.rutaBase());
            soltar = [&] { otro.matar(); };
            if (pagina == 1)
            {
                cajas.esperaPregunta(pregunta, true);
            }
            if (*parte == 'C')
            {
                cajas.espera(Caja::Exclamacion, ocupada);
            }
            cajas.espera(Caja::Critico, otroUsuario);
            Mesa::pulsar("cmdOK");
            EXPECT_TRUE(abierta());
            EXPECT_EQ("", recordado());
            Mesa::cerrar();
        }
    }
    Rutinas::fijarPacienciaAlReabrir(60'000);
    EXPECT_FALSE(QFile::exists(mesa.base.ruta(QStringLiteral("DBBrivo_Bak.mdb"))));
    EXPECT_EQ(0, mesa.fines);
}
