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
/// The other desk: runs a statement on the base, or locks it for itself, and holds it so until it is let go on.
TEST(OtroPuesto, DISABLED_Tiene)
{
    const QString ruta = hijo::ruta().section(u'|', 0, 0);
    const std::string como = hijo::ruta().section(u'|', 1).toStdString();
    if (como == "sola")
    {
        const Candado sola(QString(ruta).replace(".mdb", ".ldb"), Candado::Modo::Exclusivo);
        return hijo::listoYEsperar();
    }
    Conexion conexion;
    conexion.abrir(ruta);
    conexion.ejecutar(como);
    hijo::listoYEsperar();
}
const char* const graba = "BEGIN IMMEDIATE";
const char* const confirma = "BEGIN EXCLUSIVE"; // as in the moment of a COMMIT: nobody reads either

struct AlLado : ConBase
{
    CajasDePrueba cajas;
    std::unique_ptr<Hijo> otro;

    ~AlLado() override { Conexion::alEsperar({}); }
    void puesto(const char* como)
    {
        otro = std::make_unique<Hijo>("OtroPuesto.DISABLED_Tiene", base.rutaBase() + u'|' + como);
    }
};

TEST_F(AlLado, UnaSentenciaEsperaConElPunteroOcupadoYSigue)
{
    puesto(graba);
    const MDIMenuPpal menu;
    TrabajoLargo::fijarDemora(0);
    bool esperaba = false;
    const auto alEsperar = [&]
    {
        esperaba = TrabajoLargo::enCurso() && QApplication::overrideCursor()->shape() == Qt::WaitCursor;
        EXPECT_TRUE(otro->seguir());
    };
    QMetaObject::invokeMethod(qApp, alEsperar, Qt::QueuedConnection);
    EXPECT_EQ(Rutinas::ObtenerIndice(), 1);
    EXPECT_TRUE(esperaba);
    EXPECT_FALSE(TrabajoLargo::enCurso());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    TrabajoLargo::fijarDemora(500);
}

TEST_F(AlLado, UnaGrabacionQueNoPudoSerSeDiceEnUnaCajaYElProgramaSigue)
{
    puesto(graba);
    cajas.esperaQueDiga(Caja::Exclamacion, "La base de datos está ocupada por otra copia del programa.");
    const Conexion::EsperaCorta nada(std::chrono::milliseconds(0));
    Puntero::ocupado();
    protegido([] { Transaccion(Rutinas::Conexion).confirmar(); });
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
    puesto(graba);
    int esperas = 0;
    Conexion::alEsperar([&](bool espera) { esperas += espera ? 0 : 1; });
    Rutinas::Main([] {});
    EXPECT_EQ(esperas, 1);
    EXPECT_EQ(filas("SELECT Version, Acuerdo FROM Parametros, DDJJ_Empleados"), "1.1|Null");
    EXPECT_TRUE(otro->seguir());
    Rutinas::SubirUnaVersion();
    EXPECT_EQ(filas("SELECT Version, Acuerdo, Acuerdo2 FROM Parametros, DDJJ_Empleados"), "1.2|0|0");
}

TEST_F(AlLado, UnaVersionQueNoSeLeePorElOtroPuestoNoDaNingunPaso)
{
    Rutinas::Conexion.ejecutar("UPDATE Parametros SET EMail = 'propio@example.org'");
    puesto(confirma);
    // The base is free just after the look at the version.
    Conexion::alEsperar([&](bool espera) { EXPECT_TRUE(espera || otro->seguir()); });
    Rutinas::SubirUnaVersion();
    EXPECT_EQ(filas("SELECT Version, EMail FROM Parametros"), "2.0|propio@example.org");
}

TEST_F(AlLado, LaBaseSeReabreCuandoElOtroTerminaYAntesDeContar)
{
    Rutinas::fijarPacienciaAlReabrir(0);
    const Conexion::EsperaCorta nada(std::chrono::milliseconds(0));
    cajas.alVer([&](const DatosDeCaja&) { EXPECT_TRUE(otro->seguir()); });
    for (const char* como : {"sola", confirma})
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
