#include "ui/shell/trabajo_largo.h"

#include "apoyo/entrada.h"
#include "mesa.h"
#include "ui/doors/mensajes.h"

#include <QApplication>
#include <QMessageBox>
#include <QProgressBar>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <gtest/gtest.h>

using namespace Entrada;

namespace
{
class Trabajo : public testing::Test
{
protected:
    Trabajo() { TrabajoLargo::fijarDemora(0); }
    ~Trabajo() override { TrabajoLargo::fijarDemora(500); }

    [[nodiscard]] QProgressBar* barra() { return mesa.ventana.findChild<QProgressBar*>(); }
    [[nodiscard]] QWindow* ventana() { return mesa.ventana.windowHandle(); }
    [[nodiscard]] QPoint centro(const QWidget& control)
    {
        return control.mapTo(&mesa.ventana, control.rect().center());
    }
    /// Works until `haz`, which the window system's turn brings, has been done.
    static void mientrasTanto(TrabajoLargo& trabajo, const std::function<void()>& haz)
    {
        bool hecho = false;
        QTimer::singleShot(0, qApp,
                           [&]
                           {
                               haz();
                               hecho = true;
                           });
        while (!hecho)
        {
            trabajo.avanzar(1, 2);
        }
    }

    Mesa mesa;
};
} // namespace

TEST_F(Trabajo, MuestraElAvanceYDejaTodoComoEstaba)
{
    PantallaDePrueba& una = mesa.abrir(QStringLiteral("Una"));
    una.b->setFocus();
    const std::tuple<qint64, qint64, int> casos[] = {{250, 1000, 250}, {7, 0, -1}, {INT64_MAX, INT64_MAX, 1000}};
    for (const auto& [hecho, total, milesimos] : casos)
    {
        TrabajoLargo trabajo(QStringLiteral("Importando <empleados>"));
        EXPECT_TRUE(TrabajoLargo::enCurso());
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        TrabajoLargo::fijarDemora(1000000);
        trabajo.avanzar(hecho, total);
        EXPECT_EQ(barra(), nullptr) << "a short one shows nothing";
        TrabajoLargo::fijarDemora(0);
        trabajo.aviso()(hecho, total);
        ASSERT_TRUE(barra() != nullptr && barra()->isVisible());
        EXPECT_EQ(barra()->maximum(), total == 0 ? 0 : 1000) << "how far is not known";
        EXPECT_TRUE(total == 0 || barra()->value() == milesimos);
        EXPECT_EQ(mesa.ventana.findChild<QWidget*>(QStringLiteral("cmdCancelarTrabajo")), nullptr);
    }
    EXPECT_FALSE(TrabajoLargo::enCurso());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(barra(), nullptr);
    EXPECT_TRUE(una.b->hasFocus());
    EXPECT_EQ(una.activaciones, 1);
}

TEST_F(Trabajo, LoQueSeTecleaSePulsaOSeCierraMientrasTantoSePierde)
{
    PantallaDePrueba& una = mesa.abrir(QStringLiteral("Una"));
    QWidget suelta; // a window that asks nobody whether it may close
    suelta.show();
    mesa.ventana.activateWindow();
    for (const auto cancelable : {TrabajoLargo::Cancelable::No, TrabajoLargo::Cancelable::Si})
    {
        una.a->setFocus();
        {
            TrabajoLargo trabajo(QStringLiteral("Enviando"), cancelable);
            mientrasTanto(trabajo,
                          [&]
                          {
                              QTest::keyClick(ventana(), 'x');
                              QTest::mouseClick(ventana(), Qt::LeftButton, {}, centro(*una.accion));
                              una.accion->setFocus();
                              QTest::keyClick(ventana(), Qt::Key_Space);
                              EXPECT_FALSE(suelta.windowHandle()->close());
                          });
        }
        asentar();
        EXPECT_EQ(una.acciones, 0);
        EXPECT_EQ(una.a->text(), QString());
        EXPECT_TRUE(suelta.isVisible());
    }
    pulsar(*una.accion);
    EXPECT_EQ(una.acciones, 1);
}

TEST_F(Trabajo, SuBotonOEscapeLoCancela)
{
    PantallaDePrueba& una = mesa.abrir(QStringLiteral("Una"));
    for (const bool conRaton : {true, false})
    {
        una.b->setFocus();
        const auto trabajar = [&]
        {
            TrabajoLargo trabajo(QStringLiteral("Preparando"), TrabajoLargo::Cancelable::Si);
            mientrasTanto(trabajo,
                          [&]
                          {
                              const auto* boton =
                                  mesa.ventana.findChild<QPushButton*>(QStringLiteral("cmdCancelarTrabajo"));
                              ASSERT_TRUE(boton != nullptr && boton->isVisible());
                              conRaton ? QTest::mouseClick(ventana(), Qt::LeftButton, {}, centro(*boton))
                                       : QTest::keyClick(ventana(), Qt::Key_Escape);
                          });
        };
        EXPECT_THROW(trabajar(), TrabajoCancelado) << conRaton;
        EXPECT_FALSE(TrabajoLargo::enCurso());
        EXPECT_TRUE(una.b->hasFocus());

        pulsar(*una.accion);
    }
    EXPECT_EQ(una.acciones, 2) << "nothing is thrown away afterwards";
}

TEST_F(Trabajo, UnaCajaDelTrabajoSeContesta)
{
    mesa.abrir(QStringLiteral("Una"));
    TrabajoLargo trabajo(QStringLiteral("Copiando"));
    trabajo.avanzar(1, 2);
    conLaCaja([](QMessageBox& caja) { pulsar(*caja.button(QMessageBox::Yes)); });
    EXPECT_TRUE(Preguntar(QStringLiteral("¿Sigue?")));
}

TEST(PunteroDePantalla, QuedaComoSeDejaYLasCajasLoTienenNormal)
{
    Puntero::ocupado();
    Puntero::ocupado();
    EXPECT_TRUE(Puntero::estaOcupado());
    conLaCaja(
        [](QMessageBox&)
        {
            EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
            tecla(Qt::Key_Return);
        });
    MsgBox(QStringLiteral("Aviso"));
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    Puntero::normal();
    EXPECT_FALSE(Puntero::estaOcupado());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}
