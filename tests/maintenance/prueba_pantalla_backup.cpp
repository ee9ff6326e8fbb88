// The backup screen: what its scripts cannot say.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/hijo.h"
#include "base/files/archivos_de_base.h"
#include "base/files/candado.h"
#include "base/reloj.h"
#include "core/screens/base_cerrada.h"
#include "maintenance/screens/backup.h"

#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace
{
struct PantallaBackup : testing::Test
{
    PantallaBackup()
    {
        Reloj::reemplazar([] { return QDateTime(QDate(2009, 6, 3), QTime(9, 7, 59)); });
        QDir(base.ruta(QString())).mkdir(QStringLiteral("Copias"));
        pantalla.cargar();
    }
    ~PantallaBackup() override { Reloj::reemplazar({}); }
    void pulsar(int pagina)
    {
        pantalla.findChild<QTabWidget*>()->setCurrentIndex(pagina);
        pantalla.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    }
    BaseDePrueba base;
    CajasDePrueba cajas;
    Backup pantalla;
};
} // namespace

TEST_F(PantallaBackup, UnaCopiaDanadaSeGuardaSeAnotaYSeDice)
{
    Rutinas::CerrarBase();
    QByteArray bytes = base.leer(QStringLiteral("DBBrivo.mdb"));
    base.escribir(QStringLiteral("DBBrivo.mdb"), bytes.replace(bytes.size() - 4096, 4096, QByteArray(4096, 'Z')));
    Rutinas::AbrirBase();
    const QString copia = base.ruta(QStringLiteral("Copias/20090603_0907/DBBrivo.mdb"));
    cajas.espera(Caja::Informacion,
                 QStringLiteral("Se ha realizado una Copia de la Base de Datos en la Ubicación: '%1'").arg(copia));
    cajas.espera(
        Caja::Exclamacion,
        QStringLiteral("La copia tiene el daño de la Base de Datos: La base de datos está dañada (página 32 del "
                       "archivo).\n\nNo borre las copias anteriores y avise a quien da soporte."));
    pulsar(0);
    EXPECT_EQ(bytes, leerArchivo(copia));
    EXPECT_EQ(copia.toStdString(), filas("SELECT Bak_Carpeta FROM Parametros"));
}

TEST(OtraCopia, DISABLED_Copia)
{
    const Candado solo(archivoDeCandado(hijo::ruta()), Candado::Modo::Exclusivo);
    hijo::listoYEsperar();
}

// The other desk works, or copies itself: then it lets the base go while this one tries to open it again.
TEST_F(PantallaBackup, ConOtroUsuarioNiSeResguardaNiSeRestauraYElProgramaSigue)
{
    const QString pregunta = QStringLiteral("Está seguro que desea reemplazar la Base de Datos Actual?");
    const QString ocupada =
        QStringLiteral("Otro puesto está copiando, compactando o restaurando la base de datos.  Acepte "
                       "para volver a intentar abrirla.");
    pantalla.findChild<QLineEdit*>(QStringLiteral("txtOrigen_1"))->setText(base.ruta(QStringLiteral("x/DBBrivo.mdb")));
    Rutinas::fijarPacienciaAlReabrir(0);
    for (const char* parte : {"TieneLaBaseAbierta", "Copia"})
    {
        for (const int pagina : {0, 1})
        {
            Rutinas::CerrarBase(); // so that the other one can take it
            Hijo otro(QStringLiteral("OtraCopia.DISABLED_") + QLatin1String(parte), base.rutaBase());
            cajas.alVer(
                [&](const DatosDeCaja& caja)
                {
                    caja.texto == ocupada ? otro.matar() : void();
                    EXPECT_EQ(caja.clase == Caja::Critico, Rutinas::Conexion.abierta())
                        << "open again before it is told";
                });
            pagina == 1 ? static_cast<void>(cajas.esperaPregunta(pregunta, true)) : void();
            *parte == 'C' ? static_cast<void>(cajas.espera(Caja::Exclamacion, ocupada)) : void();
            cajas.espera(Caja::Critico, QStringLiteral("Disculpe, no se puede hacer la Copia de Seguridad porque otro "
                                                       "Usuario está Ejecutando el Sistema."));
            pulsar(pagina);
        }
    }
    Rutinas::fijarPacienciaAlReabrir(60'000);
    EXPECT_EQ("Null", filas("SELECT Bak_Carpeta FROM Parametros"));
}
