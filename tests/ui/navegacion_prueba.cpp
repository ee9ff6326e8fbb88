#include "ui/shell/navegacion.h"

#include "apoyo/cajas_de_prueba.h"
#include "base/error_de_ejecucion.h"
#include "mesa.h"
#include "ui/shell/trabajo_largo.h"

#include <QMessageBox>
#include <QScreen>
#include <gtest/gtest.h>

using namespace Entrada;

namespace
{
const QString una = QStringLiteral("Una");
const QString otra = QStringLiteral("Otra");

Navegacion& navegacion()
{
    return Navegacion::instancia();
}

/// Two children, "Una" the active one, their counts at zero.
struct Activacion : testing::Test
{
    Activacion()
    {
        mesa.area->tileSubWindows();
        asentar();
        a.activaciones = b.activaciones = 0;
    }
    void activaciones(int deUna, int deOtra) const
    {
        EXPECT_EQ(a.activaciones, deUna);
        EXPECT_EQ(b.activaciones, deOtra);
    }
    Mesa mesa;
    PantallaDePrueba& b = mesa.abrir(otra);
    PantallaDePrueba& a = mesa.abrir(una);
};

TEST_F(Activacion, AlCambiarDeHijaUnaVezYConElClicQueLaTrae)
{
    b.alActivar = [] { EXPECT_TRUE(Preguntar(QStringLiteral("¿Sigue?"))); };
    CajasDePrueba cajas;
    cajas.esperaPregunta(QStringLiteral("¿Sigue?"), true);
    pulsar(*b.fecha);
    activaciones(0, 1);
    EXPECT_TRUE(b.fecha->hasFocus());
    pulsar(*b.a);
    activaciones(0, 1);
    pulsar(a, {3, 3}); // beside its fields
    activaciones(1, 1);
    b.alActivar = {};
    navegacion().mostrar(otra);
    navegacion().mostrar(otra);
    asentar();
    activaciones(1, 2);
    b.cerrar();
    asentar();
    EXPECT_EQ(a.activaciones, 2);
    EXPECT_EQ(navegacion().actual(), &a);
}

TEST_F(Activacion, NoPorCajasNiModalesNiAlVolverElPrograma)
{
    conLaCaja([](QMessageBox&) { tecla(Qt::Key_Return); });
    MsgBox(QStringLiteral("Listo"), Caja::Informacion);
    activar(mesa.ventana);
    activaciones(0, 0);
    b.cerrar(); // so that its name can be opened as a dialog
    asentar();
    EXPECT_EQ(mesa.enModal([](PantallaDePrueba& modal) { modal.cerrar(); }), 1);
    QWidget otroPrograma;
    activar(otroPrograma);
    otroPrograma.hide();
    activar(mesa.ventana);
    EXPECT_EQ(a.activaciones, 0);
}

TEST_F(Activacion, CerrarTodasEsTodasONinguna)
{
    a.dejaCerrar = false; // opened last, asked last
    EXPECT_FALSE(navegacion().cerrarTodas());
    asentar();
    activaciones(0, 0);
    EXPECT_EQ(navegacion().hijas(), (std::vector<Pantalla*>{&b, &a}));
    EXPECT_FALSE(b.cerrada());
    a.dejaCerrar = true;
    {
        const TrabajoLargo trabajo(QStringLiteral("Importando"));
        EXPECT_FALSE(navegacion().cerrarTodas());
        EXPECT_FALSE(a.parentWidget()->close());
        EXPECT_FALSE(mesa.ventana.close());
        EXPECT_EQ(a.descargas, 1);
    }
    EXPECT_TRUE(navegacion().cerrarTodas());
    asentar();
    EXPECT_TRUE(navegacion().hijas().empty());
    EXPECT_EQ(navegacion().actual(), nullptr);
}

TEST(Navegacion, SeCargaOcultaYSeActivaALaVistaConElFocoQuePidio)
{
    Mesa mesa;
    QStringList orden;
    PantallaDePrueba::alCargar = [&](PantallaDePrueba& pantalla)
    {
        pantalla.fecha->setFocus();
        orden << (pantalla.isVisible() ? QStringLiteral("a la vista") : QStringLiteral("carga"));
        pantalla.alActivar = [&] { orden << (pantalla.isVisible() ? QStringLiteral("activa") : QString()); };
    };
    EXPECT_TRUE(mesa.abrir(una).fecha->hasFocus());
    EXPECT_EQ(orden, (QStringList{QStringLiteral("carga"), QStringLiteral("activa")}));
    EXPECT_EQ(Mesa::pantalla(una)->activaciones, 1);
}

TEST(Navegacion, UnaDeCadaCentradaYNoMayorQueElArea)
{
    Mesa mesa;
    const PantallaDePrueba* primera = &mesa.abrir(una);
    const QRect area(QPoint(), mesa.area->viewport()->size());
    EXPECT_LE((primera->parentWidget()->geometry().center() - area.center()).manhattanLength(), 2);
    primera->parentWidget()->showMinimized();
    EXPECT_EQ(&mesa.abrir(una), primera);
    EXPECT_FALSE(primera->parentWidget()->isMinimized());
    EXPECT_EQ(mesa.area->subWindowList().size(), 1);
    PantallaDePrueba::alCargar = [](PantallaDePrueba& pantalla) { pantalla.grilla->setMinimumWidth(3000); };
    EXPECT_TRUE(area.contains(mesa.abrir(otra).parentWidget()->geometry()));
}

TEST(Navegacion, LaQueSeCierraOFallaAlCargarNoAparece)
{
    Mesa mesa;
    int estado = 0;
    reemplazarFinDelProceso([&](int con) { estado = con; });
    CajasDePrueba cajas;
    cajas.esperaQueDiga(Caja::Critico, QStringLiteral("'53'"));
    PantallaDePrueba::alCargar = [](PantallaDePrueba&)
    { throw ErrorDeEjecucion(ErrorDeEjecucion::ArchivoNoEncontrado); };
    navegacion().mostrar(una);
    EXPECT_EQ(estado, 3);
    reemplazarFinDelProceso({});
    PantallaDePrueba::alCargar = [](PantallaDePrueba& pantalla) { pantalla.cerrar(); };
    navegacion().mostrar(una);
    navegacion().mostrarModal(otra);
    asentar();
    EXPECT_TRUE(mesa.area->subWindowList().isEmpty());
    EXPECT_EQ(navegacion().abierta(otra), nullptr);
}

TEST(Navegacion, CerrarPreguntaUnaVezPorCualquierCamino)
{
    Mesa mesa;
    PantallaDePrueba& hija = mesa.abrir(una);
    hija.dejaCerrar = false;
    hija.cerrar();
    EXPECT_FALSE(hija.parentWidget()->close());
    EXPECT_EQ(hija.descargas, 2);
    EXPECT_TRUE(hija.isVisible());
    hija.dejaCerrar = true;
    EXPECT_TRUE(hija.parentWidget()->close());
    EXPECT_EQ(hija.descargas, 3);
    const auto dentro = [&](PantallaDePrueba& modal)
    {
        const QPoint centro = mesa.ventana.screen()->availableGeometry().center();
        EXPECT_LE((modal.window()->geometry().center() - centro).manhattanLength(), 4);
        EXPECT_TRUE(modal.window()->isModal());
        pulsar(*mesa.ventana.menuWidget()); // blocked
        EXPECT_FALSE(mesa.menu->isVisible());
        modal.dejaCerrar = false;
        tecla(Qt::Key_Escape);
        modal.window()->close();
        EXPECT_EQ(modal.descargas, 2);
        EXPECT_EQ(navegacion().actual(), &modal);
        modal.dejaCerrar = true;
        tecla(Qt::Key_Escape);
        EXPECT_EQ(modal.descargas, 3);
        EXPECT_EQ(navegacion().abierta(otra), nullptr);
    };
    EXPECT_EQ(mesa.enModal(dentro), 1);
}

TEST(Navegacion, ElTituloYLaAyudaSonLosDeLaPantalla)
{
    Mesa mesa;
    QStringList paginas;
    navegacion().fijarAyuda([&](const QString& pagina) { paginas << pagina; });
    tecla(Qt::Key_F1);
    PantallaDePrueba& hija = mesa.abrir(una);
    hija.setWindowTitle(QStringLiteral("Pantalla Una / INGRESO"));
    EXPECT_EQ(hija.parentWidget()->windowTitle(), QStringLiteral("Pantalla Una / INGRESO"));
    hija.a->setText(QStringLiteral("mal"));
    tecla(Qt::Key_F1); // no field is left by asking for help
    EXPECT_EQ(hija.chequeos, 0);
    const auto dentro = [](PantallaDePrueba& modal)
    {
        EXPECT_EQ(modal.window()->windowTitle(), QStringLiteral("Pantalla Otra"));
        tecla(Qt::Key_F1);
        modal.cerrar();
    };
    EXPECT_EQ(mesa.enModal(dentro), 1);
    navegacion().fijarAyuda({});
    EXPECT_EQ(paginas, (QStringList{QString(), una, otra}));
}
} // namespace
