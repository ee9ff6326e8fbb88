#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "core/screens/mdi_menu_ppal.h"
#include "core/screens/validar.h"
#include "ui/fields/campo_mascara.h"
#include "ui/shell/error_fatal.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/pantalla.h"

#include <QLabel>
#include <QMenu>
#include <gtest/gtest.h>

namespace
{
/// A screen that works on a company and may refuse to close.
class PantallaConEmpresa : public Pantalla
{
public:
    using Pantalla::Pantalla;
    [[nodiscard]] bool descargar() override { return dejaCerrar; }
    [[nodiscard]] QString empresaEnCurso() const override { return empresa; }
    QString empresa;
    bool dejaCerrar = true;
};

/// A database, the main window on it, and an end of the process that only counts.
class MenuTest : public testing::Test
{
protected:
    MenuTest()
    {
        reemplazarFinDelProceso([this](int estado) { m_estados.push_back(estado); });
        m_menu = std::make_unique<MDIMenuPpal>();
        Entrada::activar(*m_menu);
        for (const QString nombre : {"Una", "Otra", "Version"})
        {
            navegacion.registrar(nombre, [nombre] { return new PantallaConEmpresa(nombre); });
        }
    }
    ~MenuTest() override
    {
        m_menu.reset();
        reemplazarFinDelProceso({});
    }
    PantallaConEmpresa& abrir(const QString& nombre)
    {
        navegacion.mostrar(nombre);
        return *dynamic_cast<PantallaConEmpresa*>(navegacion.abierta(nombre));
    }
    [[nodiscard]] QString enCurso() const { return m_menu->findChild<QLabel*>("lblEmpresaEnCurso")->text(); }

    Navegacion& navegacion = Navegacion::instancia();
    BaseDePrueba m_base;
    CajasDePrueba m_cajas;
    std::vector<int> m_estados;
    std::unique_ptr<MDIMenuPpal> m_menu;
};

TEST_F(MenuTest, UnNoAlCerrarOAlTerminarLaSesionConservaTodasLasVentanas)
{
    abrir("Una");
    PantallaConEmpresa& terca = abrir("Otra");
    terca.dejaCerrar = false;
    EXPECT_FALSE(m_menu->close());
    EXPECT_FALSE(m_menu->terminarSesion(true));
    EXPECT_TRUE(m_menu->terminarSesion(false)) << "nothing may be asked";
    EXPECT_EQ(navegacion.hijas().size(), 2U);
    EXPECT_TRUE(m_base.conexion().abierta());
    EXPECT_TRUE(m_estados.empty());

    terca.dejaCerrar = true;
    EXPECT_TRUE(m_menu->terminarSesion(true));
    EXPECT_EQ(m_estados, std::vector<int>{0});
    EXPECT_FALSE(m_base.conexion().abierta());
    Rutinas::AbrirBase();
}

TEST_F(MenuTest, LaEmpresaEnCursoEsLaDelDialogoOLaDeLaPantallaDeAbajo)
{
    QString vistas;
    const auto cambiar = [&](PantallaConEmpresa& pantalla, const char* empresa)
    {
        pantalla.empresa = empresa;
        Q_EMIT navegacion.cambioDePantalla();
        vistas += enCurso() + u'/';
    };
    const auto enElDialogo = [&]
    {
        auto* dialogo = dynamic_cast<PantallaConEmpresa*>(navegacion.abierta("Version"));
        vistas += enCurso() + u'/';
        cambiar(*dialogo, "Arriba");
        dialogo->cerrar();
    };
    PantallaConEmpresa& una = abrir("Una");
    cambiar(una, "Abajo");
    QMetaObject::invokeMethod(m_menu.get(), enElDialogo, Qt::QueuedConnection);
    navegacion.mostrarModal("Version");
    vistas += enCurso() + u'/';
    PantallaConEmpresa& otra = abrir("Otra"); // works on none
    for (PantallaConEmpresa* pantalla : {&otra, &una})
    {
        vistas += enCurso() + u'/';
        pantalla->cerrar();
        Entrada::asentar();
    }
    EXPECT_EQ(vistas + enCurso(), "Abajo/Abajo/Arriba/Abajo//Abajo/");
}

TEST_F(MenuTest, F10AbreElMenuYElAvisoDeVersionSaleUnaVezYSoloConSuBandera)
{
    Entrada::jugar("F10");
    EXPECT_TRUE(m_menu->findChild<QMenu*>("mnuArchivos")->isVisible());
    Entrada::jugar("Esc");
    for (const bool bandera : {false, true, false})
    {
        m_menu->MostrarVersion = m_menu->MostrarVersion || bandera;
        QEvent cambio(QEvent::ActivationChange);
        QCoreApplication::sendEvent(m_menu.get(), &cambio);
        EXPECT_EQ(navegacion.hijas().size(), bandera ? 1U : 0U);
        EXPECT_TRUE(navegacion.cerrarTodas());
    }
}

TEST(Validar, LaFechaCompletaElAnioYElNumeroEsUnImporte)
{
    // Typed, and what stays: "!" where it is refused.
    const std::pair<const char*, const char*> fechas[] = {
        {"010203", "01/02/2003"},    {"010230", "01/02/1930"}, {"25121970", "25/12/1970"},    {"290201", "29/02/2001!"},
        {"12312005", "12/31/2005!"}, {"0102", "01/02/____!"},  {"__/01/1203", "__/01/2003!"},
    };
    CajasDePrueba cajas;
    for (const auto& [tecleado, queda] : fechas)
    {
        const QString texto = queda;
        if (texto.endsWith(u'!'))
        {
            cajas.espera(Caja::Critico, "La Fecha ingresada es incorrecta");
        }
        CampoMascara campo;
        campo.setClase(CampoMascara::Fecha);
        campo.setText(tecleado);
        const bool bien = Rutinas::ValidarFecha(campo);
        EXPECT_EQ(campo.text() + (bien ? "" : "!"), texto);
    }
    EXPECT_TRUE(Rutinas::VerificarNumero("1.234,5"));
    for (const char* malo : {"", "1.5x", "999999999999999999"})
    {
        cajas.espera(Caja::Simple, "Verifique el Número ingresado.  El mismo es incorrecta");
        EXPECT_FALSE(Rutinas::VerificarNumero(malo)) << malo;
    }
}
} // namespace
