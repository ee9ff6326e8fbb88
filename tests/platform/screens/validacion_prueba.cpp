#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "mesa.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTabBar>
#include <QTest>
#include <gtest/gtest.h>

using namespace Entrada;

namespace
{
const QString rechazo = QStringLiteral("El valor no sirve.");

QPoint celda(const QTableWidget& grilla, int fila)
{
    return grilla.visualItemRect(grilla.item(fila, 0)).center();
}

void girar(QWidget& destino)
{
    const QPoint lugar = destino.mapTo(destino.window(), destino.rect().center());
    QWheelEvent rueda(lugar, destino.window()->mapToGlobal(lugar), {}, QPoint(0, -120), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(destino.window()->windowHandle(), &rueda);
}

/// One way of leaving the field `a`, and whether it arrived.
struct Gesto
{
    const char* nombre;
    std::function<void(Mesa&, PantallaDePrueba&)> hacer;
    std::function<bool(Mesa&, PantallaDePrueba&)> llego;
};

void PrintTo(const Gesto& gesto, std::ostream* salida)
{
    *salida << gesto.nombre;
}

const std::vector<Gesto>& gestos()
{
    using M = Mesa&;
    using P = PantallaDePrueba&;
    static const std::vector<Gesto> todos = {
        {"ClicEnOtroCampo", [](M, P p) { pulsar(*p.b); }, [](M, P p) { return p.b->hasFocus(); }},
        {"ClicEnMascara", [](M, P p) { pulsar(*p.fecha); }, [](M, P p) { return p.fecha->hasFocus(); }},
        {"ClicEnBoton", [](M, P p) { pulsar(*p.accion); }, [](M, P p) { return p.acciones == 1; }},
        {"ClicEnCancelar", [](M, P p) { pulsar(*p.cancelar); }, [](M, P p) { return p.cancelaciones == 1; }},
        {"ClicEnTilde",
         [](M, P p) {
             pulsar(*p.tilde, {8, p.tilde->height() / 2});
         },
         [](M, P p) { return p.tilde->isChecked(); }},
        {"ClicEnPagina", [](M, P p) { pulsar(*p.paginas->tabBar(), p.paginas->tabBar()->tabRect(1).center()); },
         [](M, P p) { return p.paginas->currentIndex() == 1; }},
        {"ClicEnLista", [](M, P p) { pulsar(*p.lista); }, [](M, P p) { return p.lista->view()->isVisible(); }},
        {"ClicEnGrilla", [](M, P p) { pulsar(*p.grilla->viewport(), celda(*p.grilla, 1)); },
         [](M, P p) { return p.grilla->currentRow() == 1; }},
        {"DobleClicEnBoton", [](M, P p) { pulsarDosVeces(*p.accion); }, [](M, P p) { return p.acciones == 2; }},
        {"ClicEnOtraHija", [](M m, P) { pulsar(*m.pantalla("Otra")->b); },
         [](M m, P) { return m.pantalla("Otra")->b->hasFocus(); }},
        {"Tab", [](M, P) { tecla(Qt::Key_Tab); }, [](M, P p) { return p.b->hasFocus(); }},
        {"TabAtras", [](M, P) { tecla(Qt::Key_Backtab, Qt::ShiftModifier); },
         [](M, P p) { return !p.a->hasFocus() && !p.b->hasFocus(); }},
        {"Enter", [](M, P) { tecla(Qt::Key_Return); }, [](M, P p) { return p.b->hasFocus(); }},
        {"EnterDelTeclado", [](M, P) { tecla(Qt::Key_Enter, Qt::KeypadModifier); },
         [](M, P p) { return p.b->hasFocus(); }},
        {"AltLetraDeBoton",
         [](M, P p)
         {
             tecla(Qt::Key_G, Qt::AltModifier);
             EXPECT_TRUE(QTest::qWaitFor([&p] { return !p.accion->isDown(); })); // it clicks after a moment
         },
         [](M, P p) { return p.acciones == 1; }},
        {"AltLetraDeRotulo", [](M, P) { tecla(Qt::Key_B, Qt::AltModifier); }, [](M, P p) { return p.b->hasFocus(); }},
        {"TeclaDeOrden", [](M, P) { tecla(Qt::Key_M, Qt::ControlModifier); }, [](M m, P) { return m.ordenes == 1; }},
        {"Rueda",
         [](M, P p)
         {
             girar(*p.lista);
             asentar();
         },
         [](M, P p) { return p.lista->currentIndex() == 1; }},
    };
    return todos;
}

/// The box of a refusal: shown by nobody, answered by the test, or a real one closed by its key.
enum class ConCaja
{
    Sin,
    DePrueba,
    Real
};

/// Two children side by side, with the cursor in a field of one of them.
class DosHijas : public testing::Test
{
protected:
    DosHijas()
        : otra(mesa.abrir(QStringLiteral("Otra")))
        , una(mesa.abrir(QStringLiteral("Una")))
    {
        for (PantallaDePrueba* pantalla : {&otra, &una})
        {
            for (int fila = 0; fila < 3; ++fila)
            {
                pantalla->grilla->setItem(fila, 0, new QTableWidgetItem(QString::number(fila)));
            }
        }
        mesa.area->tileSubWindows();
        asentar();
        pulsar(*una.a);
        otra.chequeos.clear(); // what opening the second child asked the first one
    }
    ~DosHijas() override { mesa.menu->hide(); }

    Mesa mesa;
    PantallaDePrueba& otra;
    PantallaDePrueba& una;
};

class DejarCampo : public DosHijas, public testing::WithParamInterface<std::tuple<Gesto, ConCaja>>
{
};

class DejarCampoBien : public DosHijas, public testing::WithParamInterface<Gesto>
{
};
} // namespace

TEST_P(DejarCampo, RechazadoSeQuedaConSuTextoMarcado)
{
    const auto& [gesto, conCaja] = GetParam();
    escribir(QStringLiteral("mal dato"));
    int cajas = 0;
    std::unique_ptr<CajasDePrueba> cola;
    if (conCaja == ConCaja::DePrueba)
    {
        cola = std::make_unique<CajasDePrueba>();
        cola->espera(Caja::Informacion, rechazo);
    }
    if (conCaja == ConCaja::Real)
    {
        conLaCaja(
            [&](QMessageBox&)
            {
                ++cajas;
                tecla(Qt::Key_Return);
            });
    }
    if (conCaja != ConCaja::Sin)
    {
        una.alRechazar = [] { MsgBox(rechazo, Caja::Informacion); };
    }
    gesto.hacer(mesa, una);

    EXPECT_EQ(una.chequeos, QStringList{QStringLiteral("a")});
    EXPECT_FALSE(gesto.llego(mesa, una));
    EXPECT_EQ(mesa.ventana.focusWidget(), una.a);
    EXPECT_EQ(una.a->selectedText(), QStringLiteral("mal dato"));
    EXPECT_EQ(cajas, conCaja == ConCaja::Real ? 1 : 0);
    EXPECT_TRUE(otra.chequeos.isEmpty());
}

TEST_P(DejarCampoBien, AceptadoLlegaConUnSoloChequeo)
{
    escribir(QStringLiteral("bien"));
    GetParam().hacer(mesa, una);
    EXPECT_EQ(una.chequeos, QStringList{QStringLiteral("a")});
    EXPECT_TRUE(GetParam().llego(mesa, una));
}

INSTANTIATE_TEST_SUITE_P(Validacion, DejarCampoBien, testing::ValuesIn(gestos()),
                         [](const auto& caso) { return std::string(caso.param.nombre); });

static std::string nombreDelCaso(const testing::TestParamInfo<std::tuple<Gesto, ConCaja>>& caso)
{
    static const char* const cajas[] = {"SinCaja", "CajaDePrueba", "CajaReal"};
    return std::string(std::get<0>(caso.param).nombre) + "_" + cajas[static_cast<int>(std::get<1>(caso.param))];
}

INSTANTIATE_TEST_SUITE_P(Validacion, DejarCampo,
                         testing::Combine(testing::ValuesIn(gestos()),
                                          testing::Values(ConCaja::Sin, ConCaja::DePrueba, ConCaja::Real)),
                         nombreDelCaso);
