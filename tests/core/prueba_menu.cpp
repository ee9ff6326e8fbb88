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
        for (const QString& nombre : {QStringLiteral("Una"), QStringLiteral("Otra"), QStringLiteral("Version")})
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
    [[nodiscard]] QString enCurso() const
    {
        return m_menu->findChild<QLabel*>(QStringLiteral("lblEmpresaEnCurso"))->text();
    }

    Navegacion& navegacion = Navegacion::instancia();
    BaseDePrueba m_base;
    CajasDePrueba m_cajas;
    std::vector<int> m_estados;
    std::unique_ptr<MDIMenuPpal> m_menu;
};

TEST_F(MenuTest, UnNoAlCerrarOAlTerminarLaSesionConservaTodasLasVentanas)
{
    abrir(QStringLiteral("Una"));
    PantallaConEmpresa& terca = abrir(QStringLiteral("Otra"));
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
    QStringList vistas;
    const auto cambiar = [&](PantallaConEmpresa& pantalla, const QString& empresa)
    {
        pantalla.empresa = empresa;
        Q_EMIT navegacion.cambioDePantalla();
        vistas << enCurso();
    };
    const auto enElDialogo = [&]
    {
        auto* dialogo = dynamic_cast<PantallaConEmpresa*>(navegacion.abierta(QStringLiteral("Version")));
        vistas << enCurso();
        cambiar(*dialogo, QStringLiteral("Arriba"));
        dialogo->cerrar();
    };
    PantallaConEmpresa& una = abrir(QStringLiteral("Una"));
    cambiar(una, QStringLiteral("Abajo"));
    QMetaObject::invokeMethod(m_menu.get(), enElDialogo, Qt::QueuedConnection);
    navegacion.mostrarModal(QStringLiteral("Version"));
    vistas << enCurso();
    PantallaConEmpresa& otra = abrir(QStringLiteral("Otra")); // works on none
    vistas << enCurso();
    otra.cerrar();
    Entrada::asentar();
    vistas << enCurso();
    una.cerrar();
    Entrada::asentar();
    vistas << enCurso();
    EXPECT_EQ(vistas.join(u'/'), QStringLiteral("Abajo/Abajo/Arriba/Abajo//Abajo/"));
}

TEST_F(MenuTest, F10AbreElMenu)
{
    Entrada::tecla(Qt::Key_F10);
    EXPECT_TRUE(m_menu->findChild<QMenu*>(QStringLiteral("mnuArchivos"))->isVisible());
    Entrada::tecla(Qt::Key_Escape);
}

TEST_F(MenuTest, ElAvisoDeVersionSaleUnaVezYSoloConSuBandera)
{
    QEvent cambio(QEvent::ActivationChange);
    QCoreApplication::sendEvent(m_menu.get(), &cambio);
    EXPECT_TRUE(navegacion.hijas().empty());
    m_menu->MostrarVersion = true;
    QCoreApplication::sendEvent(m_menu.get(), &cambio);
    EXPECT_EQ(navegacion.hijas().size(), 1U);
    EXPECT_FALSE(m_menu->MostrarVersion);
}

TEST(ValidarFecha, CompletaElAnioYRechazaLoQueNoEsFecha)
{
    // Typed, and what stays; the last ones are refused.
    const std::pair<const char*, const char*> casos[] = {
        {"010203", "01/02/2003"},   {"010230", "01/02/1930"}, {"25121970", "25/12/1970"},   {"290201", "29/02/2001"},
        {"12312005", "12/31/2005"}, {"0102", "01/02/____"},   {"__/01/1203", "__/01/2003"},
    };
    for (int i = 0; const auto& [tecleado, queda] : casos)
    {
        const bool bien = i++ < 3;
        CajasDePrueba cajas;
        if (!bien)
        {
            cajas.espera(Caja::Critico, QStringLiteral("La Fecha ingresada es incorrecta"));
        }
        CampoMascara campo;
        campo.setClase(CampoMascara::Fecha);
        campo.setText(QString::fromLatin1(tecleado));
        EXPECT_EQ(Rutinas::ValidarFecha(campo), bien) << tecleado;
        EXPECT_EQ(campo.text(), QString::fromLatin1(queda)) << tecleado;
    }
}

TEST(VerificarNumero, ComaDecimalYMensajeConLoQueNoEsNumero)
{
    CajasDePrueba cajas;
    EXPECT_TRUE(Rutinas::VerificarNumero(QStringLiteral("1.234,5")));
    cajas.espera(Caja::Simple, QStringLiteral("Verifique el Número ingresado.  El mismo es incorrecta"));
    EXPECT_FALSE(Rutinas::VerificarNumero(QString()));
}
} // namespace
