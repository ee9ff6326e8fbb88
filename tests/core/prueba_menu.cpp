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
struct PantallaConEmpresa : Pantalla
{
    using Pantalla::Pantalla;
    [[nodiscard]] bool descargar() override { return dejaCerrar; }
    [[nodiscard]] QString empresaEnCurso() const override { return empresa; }
    QString empresa;
    [[nodiscard]] bool dejaLoTipeado() override { return !tipeado; }
    bool dejaCerrar = true, tipeado = false;
};

/// A database, the main window on it, and an end of the process that only counts.
struct MenuTest : ConBase
{
    MenuTest()
    {
        reemplazarFinDelProceso([this](int estado) { estados.push_back(estado); });
        Entrada::activar(menu);
        for (const QString nombre : {"Una", "Otra", "Version"})
        {
            navegacion.registrar(nombre, [nombre] { return new PantallaConEmpresa(nombre); });
        }
    }
    ~MenuTest() override { reemplazarFinDelProceso({}); }
    PantallaConEmpresa& abrir(const QString& nombre)
    {
        navegacion.mostrar(nombre);
        return *dynamic_cast<PantallaConEmpresa*>(navegacion.abierta(nombre));
    }
    [[nodiscard]] QString enCurso() const { return menu.findChild<QLabel*>("lblEmpresaEnCurso")->text() + u'/'; }

    Navegacion& navegacion = Navegacion::instancia();
    CajasDePrueba cajas;
    std::vector<int> estados;
    MDIMenuPpal menu;
};

TEST_F(MenuTest, UnNoAlCerrarOAlTerminarLaSesionConservaTodasLasVentanas)
{
    PantallaConEmpresa& una = abrir("Una");
    una.tipeado = true; // asked where its own window is closed
    EXPECT_FALSE(una.close());
    PantallaConEmpresa& terca = abrir("Otra");
    terca.dejaCerrar = false;
    EXPECT_FALSE(menu.close());
    EXPECT_FALSE(menu.terminarSesion(true));
    EXPECT_TRUE(menu.terminarSesion(false)) << "nothing may be asked";
    EXPECT_EQ(navegacion.hijas().size(), 2U);
    EXPECT_TRUE(base.conexion().abierta());
    EXPECT_TRUE(estados.empty());

    terca.dejaCerrar = true;
    EXPECT_TRUE(menu.terminarSesion(true));
    EXPECT_EQ(estados, std::vector<int>{0});
    EXPECT_FALSE(base.conexion().abierta());
    Rutinas::AbrirBase();
}

TEST_F(MenuTest, LaEmpresaEnCursoEsLaDelDialogoOLaDeLaPantallaDeAbajo)
{
    abrir("Una").empresa = "Abajo";
    QString vistas;
    const auto mirar = [&]
    {
        auto& dialogo = *dynamic_cast<PantallaConEmpresa*>(navegacion.abierta("Version"));
        vistas = enCurso();
        dialogo.empresa = "Arriba";
        Q_EMIT navegacion.cambioDePantalla();
        vistas += enCurso();
        dialogo.cerrar();
    };
    QMetaObject::invokeMethod(&menu, mirar, Qt::QueuedConnection);
    navegacion.mostrarModal("Version");
    EXPECT_EQ(vistas + enCurso(), "Abajo/Arriba/Abajo/");
    PantallaConEmpresa& otra = abrir("Otra"); // works on none
    EXPECT_EQ(enCurso(), "/");
    otra.cerrar();
    Entrada::asentar();
    EXPECT_EQ(enCurso(), "Abajo/");
}

TEST_F(MenuTest, F10AbreElMenuYElAvisoDeVersionSaleUnaVez)
{
    Entrada::jugar("F10");
    EXPECT_TRUE(menu.findChild<QMenu*>("mnuArchivos")->isVisible());
    Entrada::jugar("Esc");
    menu.MostrarVersion = true;
    for (const std::size_t hay : {1U, 0U})
    {
        QEvent cambio(QEvent::ActivationChange);
        QCoreApplication::sendEvent(&menu, &cambio);
        EXPECT_EQ(navegacion.hijas().size(), hay);
        EXPECT_TRUE(navegacion.cerrarTodas());
    }
}

// What else becomes of dates and amounts: in scripts.
TEST(Validar, UnaFechaConUnHuecoSeRechazaConSuAnio)
{
    CajasDePrueba cajas;
    cajas.espera(Caja::Critico, "La Fecha ingresada es incorrecta");
    CampoMascara campo;
    campo.setClase(CampoMascara::Fecha);
    campo.setText("__/01/1203");
    EXPECT_FALSE(Rutinas::ValidarFecha(campo));
    EXPECT_EQ(campo.text(), "__/01/2003");
}
} // namespace
