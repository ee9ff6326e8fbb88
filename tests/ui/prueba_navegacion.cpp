#include "ui/shell/navegacion.h"

#include "base/error_de_ejecucion.h"
#include "mesa.h"
#include "ui/shell/trabajo_largo.h"

namespace
{
/// Two children, "Una" the active one, their counts at zero.
struct Activacion : testing::Test
{
    Activacion()
    {
        mesa.area->tileSubWindows();
        activaciones();
    }
    /// How often "Una" and "Otra" were activated since the last time.
    std::pair<int, int> activaciones()
    {
        asentar();
        return {std::exchange(a.activaciones, 0), std::exchange(b.activaciones, 0)};
    }
    Mesa mesa;
    P b = mesa.abrir("Otra");
    P a = mesa.abrir("Una");
};

TEST_F(Activacion, AlCambiarDeHijaUnaVezYConElClicQueLaTrae)
{
    b.alActivar = [] { EXPECT_TRUE(Preguntar("¿Sigue?")); };
    {
        CajasDePrueba cajas;
        cajas.espera(Caja::Pregunta, "¿Sigue?", true);
        pulsar(*b.fecha);
    }
    EXPECT_TRUE(b.fecha->hasFocus());
    pulsar(*b.a);
    EXPECT_EQ(activaciones(), std::pair(0, 1));
    pulsar(a, {3, 3}); // beside its fields
    EXPECT_EQ(activaciones(), std::pair(1, 0));
    b.alActivar = [] {};
    mesa.abrir("Otra");
    mesa.abrir("Otra");
    EXPECT_EQ(activaciones(), std::pair(0, 1));
    mesa.conCaja();
    mesa.irseYVolver();
    EXPECT_EQ(activaciones(), std::pair(0, 0));
    b.cerrar();
    asentar();
    EXPECT_EQ(std::exchange(a.activaciones, 0), 1);
    EXPECT_EQ(mesa.navegacion.actual(), &a);
    EXPECT_EQ(mesa.enModal([](P modal) { modal.cerrar(); }), 1);
    EXPECT_EQ(a.activaciones, 0);
}

TEST_F(Activacion, CerrarTodasEsTodasONinguna)
{
    a.dejaCerrar = false; // opened last, asked last
    EXPECT_FALSE(mesa.navegacion.cerrarTodas());
    EXPECT_EQ(activaciones(), std::pair(0, 0));
    EXPECT_EQ(mesa.navegacion.hijas(), (std::vector<Pantalla*>{&b, &a}));
    EXPECT_FALSE(b.cerrada());
    a.dejaCerrar = true;
    {
        const TrabajoLargo trabajo("Importando");
        EXPECT_FALSE(mesa.navegacion.cerrarTodas() || a.hija().close() || mesa.ventana.close());
        EXPECT_EQ(a.descargas, 1);
    }
    EXPECT_TRUE(mesa.navegacion.cerrarTodas());
    asentar();
    EXPECT_TRUE(mesa.navegacion.hijas().empty());
    EXPECT_EQ(mesa.navegacion.actual(), nullptr);
}

TEST(Navegacion, UnaDeCadaSeCargaOcultaYSeVeConElFocoQuePidioDentroDelArea)
{
    Mesa mesa;
    QStringList orden;
    PantallaDePrueba::alCargar = [&](P pantalla)
    {
        pantalla.fecha->setFocus();
        pantalla.grilla->setMinimumWidth(pantalla.objectName() == "Una" ? 0 : 3000);
        orden << (pantalla.isVisible() ? "a la vista" : "carga");
        pantalla.alActivar = [&] { orden << (pantalla.isVisible() ? "activa" : ""); };
    };
    PantallaDePrueba* una = &mesa.abrir("Una");
    EXPECT_EQ(orden.join(u' '), "carga activa");
    EXPECT_TRUE(una->fecha->hasFocus());
    una->hija().showMinimized();
    EXPECT_EQ(&mesa.abrir("Una"), una);
    EXPECT_FALSE(una->hija().isMinimized());
    EXPECT_EQ(mesa.area->subWindowList().size(), 1);
    EXPECT_TRUE(mesa.area->rect().contains(mesa.abrir("Otra").hija().geometry()));
    // The area shrinks under a child and grows again; one pushed out comes in with the focus.
    const QSize antes = una->hija().size();
    mesa.ventana.resize(400, 300);
    mesa.abrir("Una").paginas->setFocus();
    EXPECT_TRUE(mesa.area->rect().contains(una->hija().geometry()));
    EXPECT_FALSE(una->paginas->tabBar()->visibleRegion().isEmpty());
    mesa.ventana.resize(1000, 700);
    asentar();
    EXPECT_EQ(una->hija().size(), antes);
    una->hija().move(900, 0);
    una->a->setFocus();
    EXPECT_TRUE(mesa.area->rect().contains(una->hija().geometry()));
}

TEST(Navegacion, LosCamposDeAnchoFijoCrecenConLaLetra)
{
    Mesa mesa;
    auto* una = new PantallaDePrueba("Una");
    una->b->setFixedWidth(104);
    una->setFont(QFont(una->font().family(), 18)); // twice the forms' own
    mesa.navegacion.registrar("Una", [una] { return una; });
    EXPECT_EQ(mesa.abrir("Una").b->width(), 208);
}

TEST(Navegacion, LaQueVuelveTieneElFocoDondeEstaba)
{
    for (const bool maximizada : {false, true})
    {
        Mesa mesa;
        P a = mesa.abrir("Una");
        maximizada ? a.hija().showMaximized() : a.hija().show();
        pulsar(*a.fecha);
        P b = mesa.abrir("Otra");
        mesa.navegacion.mostrar("Una");
        EXPECT_TRUE(a.fecha->hasFocus()) << maximizada;
        mesa.navegacion.mostrar("Otra");
        QApplication::focusWidget()->clearFocus(); // as where a control is disabled that has it
        mesa.irseYVolver();
        asentar();
        EXPECT_EQ(mesa.navegacion.actual(), &b) << maximizada;
        b.cerrar();
        asentar();
        EXPECT_TRUE(a.fecha->hasFocus()) << maximizada;
    }
}

TEST(Navegacion, LaQueSeCierraOFallaAlCargarNoAparece)
{
    Mesa mesa;
    int estado = 0;
    reemplazarFinDelProceso([&](int con) { estado = con; });
    CajasDePrueba cajas;
    cajas.esperaQueDiga(Caja::Critico, "'53'");
    PantallaDePrueba::alCargar = [](P) { throw ErrorDeEjecucion(53, {}); };
    mesa.navegacion.mostrar("Una");
    EXPECT_EQ(estado, 3);
    reemplazarFinDelProceso({});
    PantallaDePrueba::alCargar = [](P pantalla) { pantalla.cerrar(); };
    mesa.navegacion.mostrar("Una");
    mesa.navegacion.mostrarModal("Otra");
    asentar();
    EXPECT_TRUE(mesa.area->subWindowList().isEmpty());
    EXPECT_EQ(mesa.navegacion.abierta("Otra"), nullptr);
}

TEST(Navegacion, CerrarPreguntaUnaVezPorCualquierCaminoYElTituloYLaAyudaSonLosDeLaPantalla)
{
    Mesa mesa;
    QStringList paginas;
    mesa.navegacion.fijarAyuda([&](const QString& pagina) { paginas << pagina; });
    jugar("F1");
    P hija = mesa.abrir("Una");
    hija.setWindowTitle("Pantalla Una / INGRESO");
    EXPECT_EQ(hija.hija().windowTitle(), "Pantalla Una / INGRESO");
    hija.a->setText("mal");
    jugar("F1"); // no field is left by asking for help
    EXPECT_EQ(hija.chequeos, 0);
    hija.dejaCerrar = false;
    hija.cerrar();
    EXPECT_FALSE(hija.hija().close());
    EXPECT_EQ(hija.descargas, 2);
    hija.dejaCerrar = true;
    EXPECT_TRUE(hija.hija().close());
    EXPECT_EQ(hija.descargas, 3);
    const auto dentro = [&](P modal)
    {
        EXPECT_EQ(modal.window()->windowTitle(), "Pantalla Otra");
        pulsar(*mesa.ventana.menuWidget()); // blocked
        EXPECT_FALSE(mesa.menu->isVisible());
        modal.dejaCerrar = false;
        jugar("F1 Esc");
        modal.window()->close();
        EXPECT_EQ(modal.descargas, 2);
        EXPECT_EQ(mesa.navegacion.actual(), &modal);
        modal.dejaCerrar = true;
        jugar("Esc");
        EXPECT_EQ(modal.descargas, 3);
        EXPECT_EQ(mesa.navegacion.abierta("Otra"), nullptr);
    };
    EXPECT_EQ(mesa.enModal(dentro), 1);
    mesa.navegacion.fijarAyuda({});
    EXPECT_EQ(paginas.join(u','), ",Una,Otra");
}
} // namespace
