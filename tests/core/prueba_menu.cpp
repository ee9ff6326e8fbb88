#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "apoyo/hijo.h"
#include "core/screens/mdi_menu_ppal.h"
#include "core/screens/validar.h"
#include "platform/screens/campo_mascara.h"
#include "platform/screens/error_fatal.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/pantalla.h"

#include <QAction>
#include <QStatusBar>
#include <gtest/gtest.h>

namespace
{
/// A database, the main window on it, and an end of the process that only counts.
class MenuTest : public testing::Test
{
protected:
    MenuTest()
    {
        reemplazarFinDelProceso([this](int estado) { m_estados.push_back(estado); });
        m_menu = std::make_unique<MDIMenuPpal>();
        Entrada::activar(*m_menu);
    }
    ~MenuTest() override
    {
        m_menu.reset();
        reemplazarFinDelProceso({});
    }
    void elegir(const char* entrada)
    {
        auto* accion = m_menu->findChild<QAction*>(QString::fromLatin1(entrada));
        ASSERT_NE(accion, nullptr) << entrada;
        accion->trigger();
    }

    BaseDePrueba m_base;
    CajasDePrueba m_cajas;
    std::vector<int> m_estados;
    std::unique_ptr<MDIMenuPpal> m_menu;
};

TEST_F(MenuTest, ElTituloTerminaEnLaVersionDeLaBase)
{
    EXPECT_EQ(m_menu->windowTitle(), QStringLiteral("B.R.I.V.O. - Zona Sauce - Menu Principal - Versión: 2.0"));
}

TEST_F(MenuTest, CadaEntradaFijaElModoYAvisaLoQueNoEsta)
{
    struct Caso
    {
        const char* entrada;
        const char* pantalla;
        int modo;
    };
    const Caso casos[] = {{"mnuArchivo_0", "Empresas", 0}, {"mnuProceso_0", "DDJJ", 0}, {"mnuProceso_2", "Boletas", 2},
                          {"mnuTool_1", "Backup", 2},      {"mnuTool_3", "Depurar", 2}, {"mnuAcerca", "Acercade", 2}};
    for (const Caso& caso : casos)
    {
        Rutinas::CuitActual = QStringLiteral("algo");
        elegir(caso.entrada);
        EXPECT_EQ(Rutinas::ModoAbrir, caso.modo) << caso.entrada;
        EXPECT_EQ(Rutinas::CuitActual.isEmpty(),
                  caso.modo == 2 && QLatin1String(caso.pantalla) == QLatin1String("Boletas"))
            << caso.entrada;
        // No screen is registered in this program.
        EXPECT_TRUE(m_menu->statusBar()->currentMessage().contains(QLatin1String(caso.pantalla))) << caso.entrada;
    }
}

TEST_F(MenuTest, MantenimientoCompactaYReabre)
{
    m_cajas.espera(Caja::Exclamacion, QStringLiteral("LA BASE HA SIDO COMPACTADA Y REPARADA CON EXITO."));
    elegir("mnuTool_2");
    EXPECT_TRUE(m_base.conexion().abierta());
    EXPECT_TRUE(m_base.conexion().hay("SELECT 1 FROM Parametros"));
}

TEST_F(MenuTest, MantenimientoConOtraCopiaAbiertaDiceElNumeroYReabre)
{
    Hijo otra(QStringLiteral("OtraCopia.DISABLED_TieneLaBaseAbierta"), m_base.rutaBase());
    m_cajas.espera(Caja::Simple, QStringLiteral("70 - Permiso denegado o archivo en uso: otra copia del programa está "
                                                "usando la base de datos"));
    elegir("mnuTool_2");
    EXPECT_TRUE(m_base.conexion().hay("SELECT 1 FROM Parametros"));
    EXPECT_TRUE(m_estados.empty());
}

TEST_F(MenuTest, SalirCierraLaBaseYTerminaSinPreguntar)
{
    elegir("mnuSalir");
    EXPECT_FALSE(m_base.conexion().abierta());
    EXPECT_EQ(m_estados, std::vector<int>{0});
    Rutinas::AbrirBase();
}

/// A child that does not want to close.
class Terca : public Pantalla
{
public:
    Terca()
        : Pantalla(QStringLiteral("Terca"))
    {
    }
    bool descargar() override { return false; }
};

TEST_F(MenuTest, CerrarLaVentanaPreguntaALasHijas)
{
    Navegacion::instancia().registrar(QStringLiteral("Terca"), [] { return new Terca; });
    Navegacion::instancia().mostrar(QStringLiteral("Terca"));
    m_menu->close();
    EXPECT_TRUE(m_estados.empty()) << "the child refused";
    EXPECT_TRUE(m_menu->isVisible());
    EXPECT_TRUE(m_base.conexion().abierta());
}

TEST_F(MenuTest, ElAvisoDeVersionSaleUnaVezYSoloConSuBandera)
{
    int mostradas = 0;
    Navegacion::instancia().registrar(QStringLiteral("Version"),
                                      [&]
                                      {
                                          ++mostradas;
                                          return new Pantalla(QStringLiteral("Version"));
                                      });
    const auto reactivar = [&]
    {
        QEvent cambio(QEvent::ActivationChange);
        QCoreApplication::sendEvent(m_menu.get(), &cambio);
    };
    reactivar();
    EXPECT_EQ(mostradas, 0);
    m_menu->MostrarVersion = true;
    reactivar();
    reactivar();
    EXPECT_EQ(mostradas, 1);
}

TEST(ValidarFecha, CompletaElAnioYRechazaLoQueNoEsFecha)
{
    struct Caso
    {
        const char* tecleado;
        const char* queda;
        bool bien;
    };
    const Caso casos[] = {
        {"010203", "01/02/2003", true},   {"010229", "01/02/2029", true},     {"010230", "01/02/1930", true},
        {"25121970", "25/12/1970", true}, {"31022005", "31/02/2005", false},  {"13132005", "13/13/2005", false},
        {"311299", "31/12/1999", true},   {"290201", "29/02/2001", false},    {"12312005", "12/31/2005", false},
        {"0102", "01/02/____", false},    {"__/01/1203", "__/01/2003", false}};
    for (const Caso& caso : casos)
    {
        CajasDePrueba cajas;
        if (!caso.bien)
        {
            cajas.espera(Caja::Critico, QStringLiteral("La Fecha ingresada es incorrecta"));
        }
        CampoMascara campo;
        campo.setClase(CampoMascara::Fecha);
        campo.setText(QString::fromLatin1(caso.tecleado));
        EXPECT_EQ(Rutinas::ValidarFecha(campo), caso.bien) << caso.tecleado;
        EXPECT_EQ(campo.text(), QString::fromLatin1(caso.queda)) << caso.tecleado;
    }
}

TEST(VerificarNumero, ComaDecimalEnCualquierMaquina)
{
    struct Caso
    {
        const char* texto;
        bool bien;
    };
    const Caso casos[] = {{"12,5", true}, {"0", true},      {"1.234,5", true},
                          {"", false},    {"1,2,3", false}, {"doce", false}};
    for (const Caso& caso : casos)
    {
        CajasDePrueba cajas;
        if (!caso.bien)
        {
            cajas.espera(Caja::Simple, QStringLiteral("Verifique el Número ingresado.  El mismo es incorrecta"));
        }
        EXPECT_EQ(Rutinas::VerificarNumero(QString::fromLatin1(caso.texto)), caso.bien) << caso.texto;
    }
}
} // namespace
