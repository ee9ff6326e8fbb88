// The program beside another desk that writes into the base or holds it alone.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/hijo.h"
#include "apoyo/version_anterior.h"
#include "base/files/candado.h"
#include "core/screens/base_cerrada.h"
#include "core/screens/mdi_menu_ppal.h"
#include "ui/shell/error_fatal.h"
#include "ui/shell/trabajo_largo.h"

#include <QApplication>
#include <gtest/gtest.h>

namespace
{
/// The other desk: holds the base as it is told until it is let go on.
void tenerLaBase(const char* como)
{
    Conexion conexion;
    conexion.abrir(hijo::ruta());
    conexion.ejecutar(como);
    hijo::listoYEsperar();
}
TEST(OtroPuesto, DISABLED_Abierta)
{
    tenerLaBase("SELECT 1");
}
TEST(OtroPuesto, DISABLED_Graba)
{
    tenerLaBase("BEGIN IMMEDIATE");
}
TEST(OtroPuesto, DISABLED_Confirma)
{
    tenerLaBase("BEGIN EXCLUSIVE"); // as in the moment of a COMMIT: nobody reads either
}
TEST(OtroPuesto, DISABLED_Sola)
{
    const Candado sola(QString(hijo::ruta()).replace(".mdb", ".ldb"), Candado::Modo::Exclusivo);
    hijo::listoYEsperar();
}

struct AlLado : testing::Test
{
    BaseDePrueba base;
    CajasDePrueba cajas;
    std::unique_ptr<Hijo> otro;

    ~AlLado() override { Conexion::alEsperar({}); }
    void puesto(const char* como)
    {
        otro = std::make_unique<Hijo>(QString("OtroPuesto.DISABLED_") + como, base.rutaBase());
    }
};

TEST_F(AlLado, UnaSentenciaEsperaConElPunteroOcupadoYSigue)
{
    puesto("Graba");
    const MDIMenuPpal menu;
    TrabajoLargo::fijarDemora(0);
    bool esperaba = false;
    QMetaObject::invokeMethod(
        qApp,
        [&]
        {
            esperaba = TrabajoLargo::enCurso() && QApplication::overrideCursor()->shape() == Qt::WaitCursor;
            EXPECT_TRUE(otro->seguir());
        },
        Qt::QueuedConnection);
    EXPECT_EQ(Rutinas::ObtenerIndice(), 1);
    EXPECT_TRUE(esperaba);
    EXPECT_FALSE(TrabajoLargo::enCurso());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    TrabajoLargo::fijarDemora(500);
}

TEST_F(AlLado, UnaGrabacionQueNoPudoSerSeDiceEnUnaCajaYElProgramaSigue)
{
    puesto("Graba");
    cajas.espera(Caja::Exclamacion, "La base de datos está ocupada por otra copia del programa.  Espere "
                                    "unos segundos e inténtelo nuevamente.");
    const Conexion::EsperaCorta nada(std::chrono::milliseconds(0));
    Puntero::ocupado();
    protegido(
        []
        {
            Transaccion transaccion(Rutinas::Conexion);
            ADD_FAILURE() << "wrote beside another desk";
        });
    EXPECT_FALSE(Puntero::estaOcupado());
    EXPECT_FALSE(Rutinas::Conexion.enTransaccion());
    EXPECT_TRUE(otro->seguir());
    EXPECT_NO_THROW(Transaccion(Rutinas::Conexion).confirmar());
}

TEST_F(AlLado, ElInicioEsperaUnaSolaVezYDejaElPasoAlSiguiente)
{
    poner("DDJJ_Empleados", {{"Acuerdo", nullptr}});
    Rutinas::CerrarBase();
    volverAVersion(base.rutaBase(), "1.1");
    puesto("Graba");
    int esperas = 0;
    Conexion::alEsperar([&](bool espera) { esperas += espera ? 0 : 1; });
    bool mostrado = false;
    Rutinas::Main([&] { mostrado = true; });
    EXPECT_TRUE(mostrado);
    EXPECT_EQ(esperas, 1);
    EXPECT_EQ(filas("SELECT Version, Acuerdo FROM Parametros, DDJJ_Empleados"), "1.1|Null");
    EXPECT_TRUE(otro->seguir());
    Rutinas::SubirUnaVersion();
    EXPECT_EQ(filas("SELECT Version, Acuerdo, Acuerdo2 FROM Parametros, DDJJ_Empleados"), "1.2|0|0");
}

TEST_F(AlLado, UnaVersionQueNoSeLeePorElOtroPuestoNoDaNingunPaso)
{
    Rutinas::Conexion.ejecutar("UPDATE Parametros SET EMail = 'propio@example.org'");
    puesto("Confirma");
    Conexion::alEsperar(
        [&](bool espera)
        {
            if (!espera)
            {
                EXPECT_TRUE(otro->seguir()); // the base is free just after the look at the version
            }
        });
    Rutinas::SubirUnaVersion();
    EXPECT_EQ(filas("SELECT Version, EMail FROM Parametros"), "2.0|propio@example.org");
}

TEST_F(AlLado, MantenimientoRechazadoSeDiceConLaBaseAbierta)
{
    puesto("Abierta");
    MDIMenuPpal menu;
    cajas.espera(Caja::Simple, "70 - Permiso denegado o archivo en uso: otra copia del programa está "
                               "usando la base de datos");
    cajas.alVer([](const DatosDeCaja&) { EXPECT_TRUE(Rutinas::Conexion.abierta()); });
    menu.findChild<QAction*>("mnuTool_2")->trigger();
    EXPECT_EQ(cuantos("Parametros"), 1);
}

TEST_F(AlLado, LaBaseSeReabreCuandoElOtroTerminaYAntesDeContar)
{
    Rutinas::fijarPacienciaAlReabrir(0);
    const Conexion::EsperaCorta nada(std::chrono::milliseconds(0));
    cajas.alVer([&](const DatosDeCaja&) { EXPECT_TRUE(otro->seguir()); });
    for (const char* como : {"Sola", "Confirma"})
    {
        cajas.esperaQueDiga(Caja::Exclamacion, "Otro puesto está copiando");
        int contado = 0;
        const auto trabajo = [&](const Aviso&)
        {
            EXPECT_FALSE(Rutinas::Conexion.abierta());
            puesto(como);
            Rutinas::CompactarBase();
        };
        const auto contar = [&](const std::optional<ErrorDeEjecucion>& falla)
        {
            contado = falla ? falla->numero() : 0;
            EXPECT_TRUE(Rutinas::Conexion.abierta());
        };
        Rutinas::ConLaBaseCerrada("Compactando", trabajo, contar);
        EXPECT_EQ(contado, ErrorDeEjecucion::EnUso) << como;
    }
    Rutinas::fijarPacienciaAlReabrir(60'000);
}

TEST_F(AlLado, UnaBaseQueYaNoAbreSeCuentaYDespuesFalla)
{
    bool contado = false;
    const auto perder = [&]
    {
        Rutinas::ConLaBaseCerrada(
            "Copiando", [&](const Aviso&) { QFile::rename(base.rutaBase(), base.ruta("otra")); },
            [&](const std::optional<ErrorDeEjecucion>& falla) { contado = !falla; });
    };
    EXPECT_EQ(numeroDe(perder), 14);
    EXPECT_TRUE(contado);
    QFile::rename(base.ruta("otra"), base.rutaBase());
    Rutinas::AbrirBase();
}
} // namespace
