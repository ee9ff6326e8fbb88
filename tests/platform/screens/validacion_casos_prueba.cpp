#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "mesa.h"
#include "platform/screens/grilla.h"

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace Entrada;

namespace
{
const QStringList soloA = {QStringLiteral("a")};

/// One screen with a bad value in `a`, which holds the cursor.
class ConMalDato : public testing::Test
{
protected:
    ConMalDato()
        : una(mesa.abrir(QStringLiteral("Una")))
    {
        pulsar(*una.a);
        escribir(QStringLiteral("mal"));
    }
    [[nodiscard]] QMdiSubWindow& marco() const { return *mesa.area->subWindowList().constFirst(); }

    Mesa mesa;
    PantallaDePrueba& una;
};

struct NoEsDejar
{
    const char* nombre;
    std::function<void(Mesa&, PantallaDePrueba&)> hacer;
};

void PrintTo(const NoEsDejar& caso, std::ostream* salida)
{
    *salida << caso.nombre;
}

class NoDeja : public ConMalDato, public testing::WithParamInterface<NoEsDejar>
{
};

const std::vector<NoEsDejar> noSonDejar = {
    {"OtraVentanaSeActiva",
     [](Mesa& m, PantallaDePrueba&)
     {
         QWidget otroPrograma;
         activar(otroPrograma);
         otroPrograma.hide();
         activar(m.ventana);
     }},
    {"CajaDelPrograma",
     [](Mesa& m, PantallaDePrueba&)
     {
         conLaCaja([](QMessageBox&) { tecla(Qt::Key_Return); });
         MsgBox(QStringLiteral("Aviso"));
         activar(m.ventana);
     }},
    {"ClicEnElMarcoPropio",
     [](Mesa& m, PantallaDePrueba&) {
         pulsar(*m.area->subWindowList().constFirst(), {60, 8});
     }},
    {"ClicEnElFondoPropio",
     [](Mesa&, PantallaDePrueba& p) {
         pulsar(p, {3, 3});
     }},
    {"ClicEnElMismoCampo", [](Mesa&, PantallaDePrueba& p) { pulsar(*p.a); }},
    {"ClicEnBotonApagado",
     [](Mesa&, PantallaDePrueba& p)
     {
         p.accion->setEnabled(false);
         pulsar(*p.accion);
     }},
    {"PaginaYaElegida",
     [](Mesa&, PantallaDePrueba& p) { pulsar(*p.paginas->tabBar(), p.paginas->tabBar()->tabRect(0).center()); }},
    {"Menu",
     [](Mesa& m, PantallaDePrueba&)
     {
         pulsar(*m.ventana.menuBar(), m.ventana.menuBar()->actionGeometry(m.menu->menuAction()).center());
         EXPECT_TRUE(m.menu->isVisible());
         tecla(Qt::Key_M); // a command that opens nothing
         EXPECT_EQ(m.ordenes, 1);
     }},
    {"AltLetraDeMenu",
     [](Mesa& m, PantallaDePrueba&)
     {
         tecla(Qt::Key_P, Qt::AltModifier);
         EXPECT_TRUE(m.menu->isVisible());
         tecla(Qt::Key_M);
     }},
    {"AltSola",
     [](Mesa&, PantallaDePrueba&)
     {
         tecla(Qt::Key_Alt);
         tecla(Qt::Key_Alt);
     }},
    {"Escape", [](Mesa&, PantallaDePrueba&) { tecla(Qt::Key_Escape); }},
    {"EnPausa",
     [](Mesa&, PantallaDePrueba& p)
     {
         const Validacion::Pausa pausa;
         p.b->setFocus();
         p.a->setFocus();
         asentar();
     }},
};
} // namespace

TEST_P(NoDeja, NoChequea)
{
    GetParam().hacer(mesa, una);
    EXPECT_TRUE(una.chequeos.isEmpty());
    EXPECT_EQ(mesa.ventana.focusWidget(), una.a);
}

INSTANTIATE_TEST_SUITE_P(Validacion, NoDeja, testing::ValuesIn(noSonDejar),
                         [](const auto& caso) { return std::string(caso.param.nombre); });

TEST_F(ConMalDato, CerrarPorElSistemaOPorCodigoNoChequea)
{
    QStringList chequeos;
    const auto anotar = [&] { chequeos.append(QStringLiteral("a")); };
    una.alRechazar = anotar;
    marco().close();
    asentar();
    EXPECT_TRUE(chequeos.isEmpty());
    EXPECT_EQ(Mesa::pantalla(QStringLiteral("Una")), nullptr);

    PantallaDePrueba& deNuevo = mesa.abrir(QStringLiteral("Una"));
    deNuevo.alRechazar = anotar;
    pulsar(*deNuevo.a);
    escribir(QStringLiteral("mal"));
    deNuevo.cerrar();
    asentar();
    EXPECT_TRUE(chequeos.isEmpty());
}

TEST_F(ConMalDato, BotonDeCerrarDeLaHijaMaximizadaNoChequea)
{
    marco().showMaximized();
    asentar();
    auto* controles = mesa.ventana.menuBar()->cornerWidget(Qt::TopRightCorner);
    ASSERT_NE(controles, nullptr);
    QStringList chequeos;
    una.alRechazar = [&] { chequeos.append(QStringLiteral("a")); };
    pulsar(*controles, {controles->width() - 6, controles->height() / 2});
    EXPECT_TRUE(chequeos.isEmpty());
    EXPECT_EQ(Mesa::pantalla(QStringLiteral("Una")), nullptr);
}

TEST_F(ConMalDato, CampoApagadoUOcultoPorElProgramaNoChequea)
{
    una.a->setEnabled(false);
    asentar();
    EXPECT_FALSE(una.chequeos.contains(QStringLiteral("a")));
    una.a->setEnabled(true);
    una.a->setFocus();
    asentar();
    una.a->hide();
    asentar();
    EXPECT_FALSE(una.chequeos.contains(QStringLiteral("a")));
}

TEST_F(ConMalDato, ElProgramaQueLlevaElFocoALaOtraMalaDaUnaSolaCaja)
{
    una.b->setText(QStringLiteral("mal"));
    CajasDePrueba cajas;
    cajas.espera(Caja::Exclamacion, QStringLiteral("No."));
    una.alRechazar = [] { MsgBox(QStringLiteral("No."), Caja::Exclamacion); };
    una.b->setFocus();
    asentar();
    EXPECT_EQ(una.chequeos, soloA);
    EXPECT_TRUE(una.a->hasFocus());
    EXPECT_EQ(una.a->selectedText(), QStringLiteral("mal"));
}

TEST_F(ConMalDato, SoltarElBotonTragadoNoEsUnClicEnLaGrilla)
{
    una.grilla->setItem(1, 0, new QTableWidgetItem(QStringLiteral("x")));
    const QPoint celda = una.grilla->visualItemRect(una.grilla->item(1, 0)).center();
    una.a->setText(QStringLiteral("bien"));
    pulsar(*una.grilla->viewport(), celda); // the grid remembers this press
    pulsar(*una.a);
    una.a->setText(QStringLiteral("mal"));
    int clics = 0;
    QObject::connect(una.grilla, &QTableWidget::cellClicked, &una, [&] { ++clics; });
    pulsar(*una.grilla->viewport(), celda);
    EXPECT_EQ(clics, 0);
}

TEST_F(ConMalDato, DespuesDelRechazoSeCorrigeYSeSigue)
{
    pulsar(*una.accion);
    EXPECT_EQ(una.acciones, 0);
    escribir(QStringLiteral("bien")); // replaces the selected text
    pulsar(*una.accion);
    EXPECT_EQ(una.acciones, 1);
    EXPECT_EQ(una.chequeos.size(), 2);
}

TEST_F(ConMalDato, LaPantallaQueAbreElMenuNoDejaElCampoPeroVolverAOtroLugarSi)
{
    una.alRechazar = [] { FAIL() << "asked by the menu"; };
    tecla(Qt::Key_P, Qt::AltModifier);
    QObject::connect(mesa.orden, &QAction::triggered, &una, [this] { mesa.abrir(QStringLiteral("Otra")); });
    tecla(Qt::Key_M);
    PantallaDePrueba& otra = *Mesa::pantalla(QStringLiteral("Otra"));
    EXPECT_TRUE(otra.a->hasFocus());
    mesa.area->tileSubWindows();
    asentar();

    una.alRechazar = {};
    pulsar(*una.accion);
    EXPECT_EQ(una.acciones, 0);
    EXPECT_EQ(una.chequeos, soloA);
    EXPECT_EQ(mesa.ventana.focusWidget(), una.a);
    una.a->setText(QStringLiteral("bien"));
    pulsar(*una.accion);
    EXPECT_EQ(una.acciones, 1);
}

TEST_F(ConMalDato, IntentarDejarDiceSiSePuede)
{
    EXPECT_FALSE(Validacion::instancia().intentarDejar());
    EXPECT_TRUE(una.a->hasFocus());
    una.a->setText(QStringLiteral("bien"));
    EXPECT_TRUE(Validacion::instancia().intentarDejar());
}

namespace
{
/// A tick and a list check when they are left, and their check moves the cursor on.
class QueMueve : public testing::TestWithParam<std::function<void(PantallaDePrueba&)>>
{
protected:
    Mesa mesa;
    PantallaDePrueba& una = mesa.abrir(QStringLiteral("Una"));
};
} // namespace

TEST_P(QueMueve, SuLugarVale)
{
    int veces = 0;
    for (QWidget* campo : {static_cast<QWidget*>(una.lista), static_cast<QWidget*>(una.tilde)})
    {
        una.alDejar(campo,
                    [&]
                    {
                        ++veces;
                        una.paginas->setCurrentIndex(0);
                        una.grilla->setFocus();
                        return true;
                    });
        una.paginas->setCurrentIndex(1);
        campo->setFocus();
        asentar();
        veces = 0;
        GetParam()(una);
        EXPECT_EQ(veces, 1);
        EXPECT_TRUE(una.grilla->hasFocus());
        EXPECT_EQ(una.paginas->currentIndex(), 0);
        EXPECT_EQ(una.acciones, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Validacion, QueMueve,
                         testing::Values([](PantallaDePrueba&) { tecla(Qt::Key_Tab); },
                                         [](PantallaDePrueba&) { tecla(Qt::Key_Return); },
                                         [](PantallaDePrueba& p) { pulsar(*p.accion); },
                                         [](PantallaDePrueba& p) { pulsar(*p.a); },
                                         [](PantallaDePrueba& p)
                                         {
                                             p.b->setFocus();
                                             asentar();
                                         }));

TEST(ListaConChequeo, AbrirlaYElegirNoLaDeja)
{
    Mesa mesa;
    PantallaDePrueba& una = mesa.abrir(QStringLiteral("Una"));
    int veces = 0;
    una.alDejar(una.lista,
                [&]
                {
                    ++veces;
                    return true;
                });
    pulsar(*una.lista);
    pulsar(*una.lista);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Return);
    EXPECT_EQ(una.lista->currentIndex(), 1);
    EXPECT_TRUE(una.lista->hasFocus());
    EXPECT_EQ(veces, 0);
    tecla(Qt::Key_Tab);
    EXPECT_EQ(veces, 1);
}

TEST(EnterComoTab, RecorreLosCamposYAprietaElBoton)
{
    Mesa mesa;
    PantallaDePrueba& una = mesa.abrir(QStringLiteral("Una"));
    una.a->setFocus();
    for (QWidget* sigue :
         {static_cast<QWidget*>(una.b), static_cast<QWidget*>(una.fecha), static_cast<QWidget*>(una.lista),
          static_cast<QWidget*>(una.tilde), static_cast<QWidget*>(una.accion)})
    {
        tecla(Qt::Key_Return);
        EXPECT_TRUE(sigue->hasFocus()) << sigue->metaObject()->className();
    }
    QKeyEvent sigueApretada(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), true);
    QCoreApplication::sendEvent(mesa.ventana.windowHandle(), &sigueApretada);
    EXPECT_EQ(una.acciones, 0) << "a key held down presses nothing";
    tecla(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(una.acciones, 1);
    EXPECT_TRUE(una.accion->hasFocus());
    una.grilla->setFocus();
    tecla(Qt::Key_Return);
    EXPECT_TRUE(una.grilla->hasFocus()); // the grid decides itself
}

TEST(EnterComoTab, LosDialogosDelSistemaConservanElSuyo)
{
    Mesa mesa;
    mesa.abrir(QStringLiteral("Una"));
    QDialog dialogo(&mesa.ventana);
    auto* campo = new QLineEdit;
    auto* aceptar = new QPushButton(QStringLiteral("Aceptar"));
    auto* disposicion = new QVBoxLayout(&dialogo);
    disposicion->addWidget(campo);
    disposicion->addWidget(aceptar);
    QObject::connect(aceptar, &QPushButton::clicked, &dialogo, &QDialog::accept);
    activar(dialogo);
    campo->setFocus();
    tecla(Qt::Key_Return);
    EXPECT_EQ(dialogo.result(), QDialog::Accepted);
}

namespace
{
/// What happens inside a modal screen: the steps run one by one once it is up.
void enModal(Mesa& mesa, const std::function<void(PantallaDePrueba&)>& hacer)
{
    mesa.alCargar = [&](PantallaDePrueba& pantalla)
    {
        pantalla.alActivar = [&]
        {
            QMetaObject::invokeMethod(
                &pantalla,
                [&]
                {
                    activar(*pantalla.window());
                    hacer(pantalla);
                },
                Qt::QueuedConnection);
        };
    };
    Navegacion::instancia().mostrarModal(QStringLiteral("Otra"));
    mesa.alCargar = {};
    asentar();
}
} // namespace

TEST(ValidacionModal, RigeEnLaPantallaModalYDentroDeUnChequeo)
{
    Mesa mesa;
    PantallaDePrueba& una = mesa.abrir(QStringLiteral("Una"));
    int hechos = 0;
    una.alRechazar = [&]
    {
        enModal(mesa,
                [&](PantallaDePrueba& modal)
                {
                    pulsar(*modal.a);
                    escribir(QStringLiteral("mal"));
                    pulsar(*modal.accion);
                    tecla(Qt::Key_Tab);
                    EXPECT_EQ(modal.chequeos.size(), 2);
                    EXPECT_EQ(modal.acciones, 0);
                    EXPECT_TRUE(modal.a->hasFocus());
                    tecla(Qt::Key_Escape);
                    ++hechos;
                });
    };
    pulsar(*una.a);
    escribir(QStringLiteral("mal"));
    tecla(Qt::Key_Tab);
    EXPECT_EQ(hechos, 1);
    EXPECT_EQ(una.chequeos, soloA);
    EXPECT_EQ(mesa.ventana.focusWidget(), una.a);
}

TEST(ValidacionModal, EnterEnLaGrillaNoAprietaUnBoton)
{
    Mesa mesa;
    int hechos = 0;
    enModal(mesa,
            [&](PantallaDePrueba& modal)
            {
                modal.grilla->setFocus();
                tecla(Qt::Key_Return);
                EXPECT_EQ(modal.acciones + modal.cancelaciones, 0);
                modal.cerrar();
                ++hechos;
            });
    EXPECT_EQ(hechos, 1);
}

TEST(ValidacionDeGrilla, ElEditorRechazadoSigueAbierto)
{
    Mesa mesa;
    PantallaDePrueba& una = mesa.abrir(QStringLiteral("Una"));
    auto* grilla = new Grilla;
    grilla->setColumnas({{.clase = ColumnaDeGrilla::Entero, .titulo = QStringLiteral("Horas"), .maximo = 200}});
    grilla->setEditable(true);
    grilla->setFilas(2);
    una.layout()->addWidget(grilla);
    una.parentWidget()->adjustSize();
    asentar();
    grilla->setFocus();
    grilla->setFilaActual(1, 1);
    escribir(QStringLiteral("999"));
    for (const auto& salir :
         std::vector<std::function<void()>>{[&] { pulsar(*una.accion); }, [&] { pulsar(*una.b); },
                                            [] { tecla(Qt::Key_Return); }, [] { tecla(Qt::Key_Down); },
                                            [] { tecla(Qt::Key_M, Qt::ControlModifier); }})
    {
        CajasDePrueba cajas;
        cajas.esperaQueDiga(Caja::Informacion, QString());
        salir();
        EXPECT_TRUE(grilla->editando());
    }
    EXPECT_EQ(una.acciones + mesa.ordenes, 0);
    escribir(QStringLiteral("150"));
    tecla(Qt::Key_M, Qt::ControlModifier); // a shortcut moves no focus: the value is stored all the same
    EXPECT_EQ(mesa.ordenes, 1);
    EXPECT_EQ(grilla->entero(1, 1), 150);
    EXPECT_FALSE(grilla->editando());
}
