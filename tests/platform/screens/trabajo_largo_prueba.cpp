#include "platform/screens/trabajo_largo.h"

#include "apoyo/entrada.h"
#include "mesa.h"
#include "platform/screens/mensajes.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QProgressBar>
#include <QWindow>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace Entrada;

namespace
{
class Trabajo : public testing::Test
{
protected:
    Trabajo() { TrabajoLargo::fijarDemora(0); }
    ~Trabajo() override { TrabajoLargo::fijarDemora(500); }

    [[nodiscard]] QProgressBar* barra() { return mesa.ventana.findChild<QProgressBar*>(); }

    Mesa mesa;
};
} // namespace

TEST_F(Trabajo, MuestraElAvanceYDejaTodoComoEstaba)
{
    PantallaDePrueba& una = mesa.abrir(QStringLiteral("Una"));
    una.b->setFocus();
    const int activaciones = una.activaciones;
    {
        TrabajoLargo trabajo(QStringLiteral("Importando <empleados>"));
        EXPECT_TRUE(TrabajoLargo::enCurso());
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        EXPECT_EQ(barra(), nullptr);
        trabajo.aviso()(250, 1000);
        ASSERT_NE(barra(), nullptr);
        EXPECT_TRUE(barra()->isVisible());
        EXPECT_EQ(barra()->value() * 4, barra()->maximum());
    }
    asentar();
    EXPECT_FALSE(TrabajoLargo::enCurso());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(barra(), nullptr);
    EXPECT_TRUE(una.b->hasFocus());
    EXPECT_EQ(una.activaciones, activaciones);
}

TEST_F(Trabajo, TotalDesconocidoYCantidadesEnormes)
{
    {
        TrabajoLargo trabajo(QStringLiteral("Compactando"));
        trabajo.avanzar(5, 0);
        EXPECT_EQ(barra()->maximum(), 0);
    }
    TrabajoLargo trabajo(QStringLiteral("Copiando"));
    trabajo.avanzar(std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::max());
    EXPECT_EQ(barra()->value(), barra()->maximum());
}

TEST_F(Trabajo, ElCortoNoMuestraNada)
{
    TrabajoLargo::fijarDemora(1000000);
    TrabajoLargo trabajo(QStringLiteral("Corto"));
    trabajo.avanzar(1, 2);
    EXPECT_EQ(barra(), nullptr);
}

TEST_F(Trabajo, LoQueSeTecleaYSePulsaMientrasTantoSePierde)
{
    PantallaDePrueba& una = mesa.abrir(QStringLiteral("Una"));
    una.a->setFocus();
    QWindow* ventana = mesa.ventana.windowHandle();
    const QPoint boton = una.accion->mapTo(&mesa.ventana, una.accion->rect().center());
    {
        TrabajoLargo trabajo(QStringLiteral("Enviando"));
        trabajo.avanzar(1, 10);
        const auto clic = [&](QEvent::Type tipo, Qt::MouseButtons botones)
        {
            return new QMouseEvent(tipo, boton, mesa.ventana.mapToGlobal(QPointF(boton)), Qt::LeftButton, botones,
                                   Qt::NoModifier);
        };
        QCoreApplication::postEvent(ventana, clic(QEvent::MouseButtonPress, Qt::LeftButton));
        QCoreApplication::postEvent(ventana, clic(QEvent::MouseButtonRelease, Qt::NoButton));
        QCoreApplication::postEvent(ventana,
                                    new QKeyEvent(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x")));
    }
    asentar();
    EXPECT_EQ(una.acciones, 0);
    EXPECT_EQ(una.a->text(), QString());
    pulsar(*una.accion);
    EXPECT_EQ(una.acciones, 1);
}

TEST_F(Trabajo, UnaExcepcionDevuelveElPuntero)
{
    try
    {
        TrabajoLargo trabajo(QStringLiteral("Falla"));
        trabajo.avanzar(1, 2);
        throw std::runtime_error("corte");
    }
    catch (const std::runtime_error&)
    {
        EXPECT_FALSE(TrabajoLargo::enCurso());
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(barra(), nullptr);
}

TEST_F(Trabajo, UnTrabajoDentroDeOtro)
{
    const TrabajoLargo afuera(QStringLiteral("Afuera"));
    {
        const TrabajoLargo adentro(QStringLiteral("Adentro"));
    }
    EXPECT_TRUE(TrabajoLargo::enCurso());
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
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
