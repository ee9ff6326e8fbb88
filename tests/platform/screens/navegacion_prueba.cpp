#include "platform/screens/navegacion.h"

#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "mesa.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/screens/trabajo_largo.h"

#include <QApplication>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>
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

/// Runs `hacer` in the modal screen "Otra" once it is up, and gives how often it ran.
int enModal(Mesa& mesa, const std::function<void(PantallaDePrueba&)>& hacer)
{
    int hechos = 0;
    mesa.alCargar = [&](PantallaDePrueba& pantalla)
    {
        QMetaObject::invokeMethod(
            &pantalla,
            [&]
            {
                activar(*pantalla.window());
                ++hechos;
                hacer(pantalla);
            },
            Qt::QueuedConnection);
    };
    navegacion().mostrarModal(otra);
    mesa.alCargar = {};
    activar(mesa.ventana); // a window manager does it
    return hechos;
}

/// Two children, "Una" the active one, their counts at zero.
class Activacion : public testing::Test
{
protected:
    Activacion()
        : b(mesa.abrir(otra))
        , a(mesa.abrir(una))
    {
        mesa.area->tileSubWindows();
        asentar();
        a.activaciones = 0;
        b.activaciones = 0;
    }
    void activaciones(int deUna, int deOtra) const
    {
        EXPECT_EQ(a.activaciones, deUna);
        EXPECT_EQ(b.activaciones, deOtra);
    }

    Mesa mesa;
    PantallaDePrueba& b;
    PantallaDePrueba& a;
};
} // namespace

TEST(Navegacion, LaPrimeraVezCargaMuestraYActiva)
{
    Mesa mesa;
    QStringList orden;
    mesa.alCargar = [&](PantallaDePrueba& pantalla)
    {
        orden << (pantalla.isVisible() ? QStringLiteral("visible") : QStringLiteral("cargar"));
        pantalla.alActivar = [&orden, &pantalla]
        { orden << (pantalla.isVisible() ? QStringLiteral("activar") : QStringLiteral("oculta")); };
    };
    navegacion().mostrar(una);
    EXPECT_EQ(orden, (QStringList{QStringLiteral("cargar"), QStringLiteral("activar")}));
    asentar();
    EXPECT_EQ(Mesa::pantalla(una)->activaciones, 1);
    EXPECT_EQ(navegacion().actual(), Mesa::pantalla(una));
}

TEST_F(Activacion, AlCambiarDeHija)
{
    pulsar(*b.fecha);
    activaciones(0, 1);
    pulsar(*b.a);
    activaciones(0, 1);
    pulsar(a, {3, 3}); // beside its fields
    activaciones(1, 1);
    EXPECT_EQ(navegacion().actual(), &a);
    navegacion().mostrar(otra);
    activaciones(1, 2);
    navegacion().mostrar(otra);
    asentar();
    activaciones(1, 2);
}

TEST_F(Activacion, AlCerrarseLaOtra)
{
    const QPointer<PantallaDePrueba> cerrada = &a;
    a.cerrar();
    asentar();
    EXPECT_EQ(b.activaciones, 1);
    EXPECT_TRUE(cerrada.isNull());
    EXPECT_EQ(navegacion().actual(), &b);
}

TEST_F(Activacion, NoPorCajasNiDialogosNiModales)
{
    conLaCaja([](QMessageBox&) { tecla(Qt::Key_Return); });
    MsgBox(QStringLiteral("Listo"), Caja::Informacion);
    activar(mesa.ventana);
    activaciones(0, 0);

    QTimer cierra;
    QObject::connect(&cierra, &QTimer::timeout, &mesa.ventana,
                     []
                     {
                         if (auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget()))
                         {
                             dialogo->reject();
                         }
                     });
    cierra.start();
    EXPECT_EQ(DialogoArchivo({QStringLiteral("Abrir"), QStringLiteral("antes"), {}, {}, true}),
              QStringLiteral("antes"));
    cierra.stop();
    activar(mesa.ventana);
    activaciones(0, 0);

    EXPECT_EQ(enModal(mesa, [](PantallaDePrueba& modal) { modal.cerrar(); }), 1);
    activaciones(0, 0);
}

TEST_F(Activacion, NoAlVolverElPrograma)
{
    QWidget otroPrograma;
    activar(otroPrograma);
    EXPECT_FALSE(mesa.ventana.isActiveWindow());
    otroPrograma.hide();
    activar(mesa.ventana);
    activaciones(0, 0);
    EXPECT_EQ(navegacion().actual(), &a);
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
    EXPECT_TRUE(navegacion().cerrarTodas());
    asentar();
    EXPECT_TRUE(navegacion().hijas().empty());
    EXPECT_EQ(navegacion().actual(), nullptr);
}

TEST(Navegacion, LaPreguntaDeLaActivacionLlegaConElClicQueTraeALaHija)
{
    Mesa mesa;
    PantallaDePrueba& primera = mesa.abrir(una);
    mesa.abrir(otra);
    mesa.area->tileSubWindows();
    asentar();
    CajasDePrueba cajas;
    cajas.esperaPregunta(QStringLiteral("¿Sigue?"), true);
    primera.alActivar = [] { EXPECT_TRUE(Preguntar(QStringLiteral("¿Sigue?"))); };
    pulsar(*primera.b);
    EXPECT_EQ(cajas.pendientes(), 0U);
    EXPECT_TRUE(primera.b->hasFocus());
}

TEST(Navegacion, CentraYLimitaAlArea)
{
    Mesa mesa;
    const PantallaDePrueba& chica = mesa.abrir(una);
    const QRect area(QPoint(), mesa.area->viewport()->size());
    const QRect marco = chica.parentWidget()->geometry();
    EXPECT_LE((marco.center() - area.center()).manhattanLength(), 2);
    EXPECT_TRUE(area.contains(marco));
    mesa.alCargar = [](PantallaDePrueba& pantalla)
    {
        pantalla.grilla->setColumnCount(60);
        pantalla.grilla->setRowCount(60);
        pantalla.grilla->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
        EXPECT_GT(pantalla.sizeHint().width(), 3000);
    };
    const PantallaDePrueba& grande = mesa.abrir(otra);
    EXPECT_TRUE(area.contains(grande.parentWidget()->geometry()));
}

TEST(Navegacion, ElTituloSigueALaPantalla)
{
    Mesa mesa;
    PantallaDePrueba& pantalla = mesa.abrir(una);
    EXPECT_EQ(pantalla.parentWidget()->windowTitle(), QStringLiteral("Pantalla Una"));
    pantalla.setWindowTitle(QStringLiteral("Pantalla Una / INGRESO"));
    EXPECT_EQ(pantalla.parentWidget()->windowTitle(), QStringLiteral("Pantalla Una / INGRESO"));
    EXPECT_EQ(enModal(mesa,
                      [](PantallaDePrueba& modal)
                      {
                          modal.setWindowTitle(QStringLiteral("Otro título"));
                          EXPECT_EQ(modal.window()->windowTitle(), QStringLiteral("Otro título"));
                          modal.cerrar();
                      }),
              1);
}

TEST(Navegacion, LaQueSeCierraAlCargarNoAparece)
{
    Mesa mesa;
    QPointer<PantallaDePrueba> vista;
    mesa.alCargar = [&](PantallaDePrueba& pantalla)
    {
        vista = &pantalla;
        pantalla.cerrar();
    };
    navegacion().mostrar(una);
    navegacion().mostrarModal(otra);
    asentar();
    EXPECT_TRUE(vista.isNull());
    EXPECT_TRUE(mesa.area->subWindowList().isEmpty());
    EXPECT_EQ(navegacion().abierta(una), nullptr);
}

TEST(Navegacion, ElErrorAlCargarSeInformaYNadaAparece)
{
    Mesa mesa;
    int estado = 0;
    reemplazarFinDelProceso([&](int con) { estado = con; });
    CajasDePrueba cajas;
    cajas.esperaQueDiga(Caja::Critico, QStringLiteral("'53'"));
    mesa.alCargar = [](PantallaDePrueba&) { throw ErrorDeEjecucion(ErrorDeEjecucion::ArchivoNoEncontrado); };
    navegacion().mostrar(una);
    reemplazarFinDelProceso({});
    EXPECT_EQ(estado, 3);
    EXPECT_TRUE(mesa.area->subWindowList().isEmpty());
}

TEST(Navegacion, UnaDeCada)
{
    Mesa mesa;
    const Pantalla* primera = &mesa.abrir(una);
    primera->parentWidget()->showMinimized();
    EXPECT_EQ(&mesa.abrir(una), primera);
    EXPECT_FALSE(primera->parentWidget()->isMinimized());
    EXPECT_EQ(mesa.area->subWindowList().size(), 1);
}

TEST(Navegacion, ElFocoInicialEsElQuePideLaCarga)
{
    Mesa mesa;
    EXPECT_TRUE(mesa.abrir(una).a->hasFocus()); // first in the order of the tabs
    mesa.alCargar = [](PantallaDePrueba& pantalla) { pantalla.fecha->setFocus(); };
    EXPECT_TRUE(mesa.abrir(otra).fecha->hasFocus());
    int hechos = enModal(mesa, [](PantallaDePrueba& modal) { modal.cerrar(); });
    mesa.alCargar = [&](PantallaDePrueba& pantalla)
    {
        pantalla.fecha->setFocus();
        QMetaObject::invokeMethod(
            &pantalla,
            [&]
            {
                activar(*pantalla.window());
                ++hechos;
                EXPECT_TRUE(pantalla.fecha->hasFocus());
                pantalla.cerrar();
            },
            Qt::QueuedConnection);
    };
    navegacion().mostrarModal(una);
    EXPECT_EQ(hechos, 2);
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
    EXPECT_EQ(navegacion().abierta(una), nullptr);

    EXPECT_EQ(enModal(mesa,
                      [](PantallaDePrueba& modal)
                      {
                          modal.dejaCerrar = false;
                          tecla(Qt::Key_Escape);
                          modal.window()->close();
                          EXPECT_EQ(modal.descargas, 2);
                          EXPECT_TRUE(modal.isVisible());
                          EXPECT_EQ(navegacion().actual(), &modal);
                          modal.dejaCerrar = true;
                          tecla(Qt::Key_Escape);
                          EXPECT_EQ(modal.descargas, 3);
                          EXPECT_EQ(navegacion().abierta(otra), nullptr);
                      }),
              1);
}

TEST(Navegacion, LaModalVaEnElMedioDelMonitor)
{
    Mesa mesa;
    EXPECT_EQ(enModal(mesa,
                      [&](PantallaDePrueba& modal)
                      {
                          EXPECT_TRUE(modal.window()->isModal());
                          EXPECT_EQ(modal.activaciones, 1);
                          const QRect monitor = mesa.ventana.screen()->availableGeometry();
                          EXPECT_LE((modal.window()->geometry().center() - monitor.center()).manhattanLength(), 4);
                          pulsar(*mesa.ventana.menuWidget()); // blocked
                          EXPECT_FALSE(mesa.menu->isVisible());
                          modal.cerrar();
                      }),
              1);
}

TEST(Navegacion, F1AbreLaPaginaDeLaPantallaActual)
{
    Mesa mesa;
    QStringList paginas;
    navegacion().fijarAyuda([&](const QString& pagina) { paginas << pagina; });
    tecla(Qt::Key_F1);
    PantallaDePrueba& hija = mesa.abrir(una);
    pulsar(*hija.a);
    escribir(QStringLiteral("mal"));
    tecla(Qt::Key_F1); // no field is left by asking for help
    hija.grilla->setFocus();
    hija.a->clear();
    tecla(Qt::Key_F1);
    EXPECT_EQ(enModal(mesa,
                      [](PantallaDePrueba& modal)
                      {
                          tecla(Qt::Key_F1);
                          modal.cerrar();
                      }),
              1);
    navegacion().fijarAyuda({});
    EXPECT_EQ(paginas, (QStringList{QString(), una, una, otra}));
}

TEST(Navegacion, NadaSeCierraEnMedioDeUnTrabajo)
{
    Mesa mesa;
    PantallaDePrueba& hija = mesa.abrir(una);
    {
        const TrabajoLargo trabajo(QStringLiteral("Importando"));
        EXPECT_FALSE(mesa.ventana.close());
        EXPECT_FALSE(hija.parentWidget()->close());
        EXPECT_FALSE(navegacion().cerrarTodas());
        EXPECT_EQ(hija.descargas, 0);
    }
    EXPECT_TRUE(hija.parentWidget()->close());
    EXPECT_TRUE(mesa.ventana.close());
}
