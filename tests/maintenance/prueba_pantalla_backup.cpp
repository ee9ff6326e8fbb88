// The backup screen: what its scripts cannot say.
#include "apoyo/abandono.h"
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/hijo.h"
#include "base/reloj.h"
#include "maintenance/screens/backup.h"

#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace
{
struct PantallaBackup : ConBase
{
    PantallaBackup()
    {
        Reloj::reemplazar([] { return QDateTime(QDate(2009, 6, 3), QTime(9, 7, 59)); });
        QDir(base.ruta({})).mkdir("Copias");
        pantalla.cargar();
    }
    ~PantallaBackup() override { Reloj::reemplazar({}); }
    void pulsar(int pagina)
    {
        pantalla.findChild<QTabWidget*>()->setCurrentIndex(pagina);
        pantalla.findChild<QPushButton*>("cmdOK")->click();
    }
    CajasDePrueba cajas;
    Backup pantalla;
};
} // namespace

TEST_F(PantallaBackup, UnaCopiaDanadaSeGuardaSeAnotaYSeDice)
{
    Rutinas::CerrarBase();
    QByteArray bytes = base.leer("DBBrivo.mdb");
    base.escribir("DBBrivo.mdb", bytes.replace(bytes.size() - 4096, 4096, QByteArray(4096, 'Z')));
    Rutinas::AbrirBase();
    const QString copia = base.ruta("Copias/20090603_0907/DBBrivo.mdb");
    cajas.espera(Caja::Informacion, "Se ha realizado una Copia de la Base de Datos en la Ubicación: '" + copia + "'");
    cajas.espera(Caja::Exclamacion, "La copia tiene el daño de la Base de Datos: La base de datos está dañada (página "
                                    "32 del archivo).\n\nNo borre las copias anteriores y avise a quien da soporte.");
    pulsar(0);
    EXPECT_EQ(bytes, leerArchivo(copia));
    EXPECT_EQ(copia.toStdString(), filas("SELECT Bak_Carpeta FROM Parametros"));
}

TEST_F(PantallaBackup, UnaCopiaAbandonadaNoDejaNada)
{
    const Abandono abandono;
    cajas.alVer([](const DatosDeCaja&) { EXPECT_TRUE(Rutinas::Conexion.abierta()); });
    cajas.espera(Caja::Exclamacion, "La operación ha sido cancelada.");
    pulsar(0);
    EXPECT_TRUE(QDir(base.ruta("Copias")).isEmpty());
    EXPECT_EQ("", pantalla.findChild<QLineEdit*>("txtDestino_0")->text());
}

// While another desk copies itself: prueba_otro_puesto.cpp.
TEST_F(PantallaBackup, ConOtroUsuarioNiSeResguardaNiSeRestauraYElProgramaSigue)
{
    pantalla.findChild<QLineEdit*>("txtOrigen_1")->setText(base.ruta("x/DBBrivo.mdb"));
    cajas.alVer([](const DatosDeCaja&) { EXPECT_TRUE(Rutinas::Conexion.abierta()); });
    const Hijo otro("OtraCopia.DISABLED_TieneLaBaseAbierta", base.rutaBase());
    for (const int pagina : {0, 1})
    {
        pagina == 1 ? static_cast<void>(cajas.esperaQueDiga(Caja::Pregunta, "Está seguro")) : void();
        cajas.espera(Caja::Critico, "Disculpe, no se puede hacer la Copia de Seguridad porque otro Usuario está "
                                    "Ejecutando el Sistema.");
        pulsar(pagina);
        EXPECT_EQ(0U, cajas.pendientes());
    }
    EXPECT_EQ("Null", filas("SELECT Bak_Carpeta FROM Parametros"));
}
