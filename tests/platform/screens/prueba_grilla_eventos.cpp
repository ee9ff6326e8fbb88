#include "mesa_de_grilla.h"

#include "apoyo/cajas_de_prueba.h"

#include <QDialog>
#include <QMenuBar>
#include <QPointer>

namespace
{
using C = ColumnaDeGrilla;

class EventosDeGrilla : public testing::Test
{
protected:
    MesaDeGrilla m;
    Grilla& g = *m.grilla;

    void SetUp() override
    {
        g.setColumnas({{C::Fija, QStringLiteral("Periodo")}, {C::Fija, {}, 0}, {C::Fija, QStringLiteral("Sec")}});
        g.cargar(
            {{QStringLiteral("2024/03"), 1, 0}, {QStringLiteral("2024/02"), 2, 0}, {QStringLiteral("2024/01"), 3, 0}});
        m.mostrar();
    }
};

TEST_F(EventosDeGrilla, ClicDejaLaCeldaYLuegoAvisa)
{
    m.celda(1, 2);
    EXPECT_EQ(m.tomarEventos(), QStringLiteral("dejar 1,1,1,2; clic 1,2")) << "with none, the first cell is left";
    m.celda(1, 2);
    EXPECT_EQ(m.tomarEventos(), QStringLiteral("clic 1,2")) << "the same row again";
    m.celda(3, 3);
    EXPECT_EQ(m.tomarEventos(), QStringLiteral("dejar 1,2,3,3; clic 3,3"));
    EXPECT_EQ(g.filaActual(), 3);
    EXPECT_EQ(g.columnaActual(), 3);
}

TEST_F(EventosDeGrilla, LaCabeceraEsLaFilaCero)
{
    m.celda(1, 2);
    m.tomarEventos();
    m.cabeza(3);
    m.cabeza(1);
    EXPECT_EQ(m.tomarEventos(), QStringLiteral("clic 3,0; clic 1,0"));
    EXPECT_EQ(g.filaActual(), 2);
    EXPECT_EQ(g.columnaActual(), 1);
}

TEST_F(EventosDeGrilla, DobleClic)
{
    m.doble(1, 2);
    EXPECT_EQ(m.tomarEventos(), QStringLiteral("dejar 1,1,1,2; clic 1,2; doble 1,2"));
}

TEST_F(EventosDeGrilla, FueraDeLasFilasNoHayEventos)
{
    m.celda(1, 2);
    m.tomarEventos();
    const QPoint vacio(40, g.viewport()->height() - 5);
    Entrada::pulsarDosVeces(*g.viewport(), vacio);
    QTest::mouseClick(m.ventana.windowHandle(), Qt::RightButton, {}, g.viewport()->mapTo(&m.ventana, m.centro(1, 1)));
    EXPECT_EQ(m.tomarEventos(), QString());
    EXPECT_EQ(g.filaActual(), 2);
}

TEST_F(EventosDeGrilla, ArrastrarNoRecorreLasFilas)
{
    QWidget* v = g.viewport();
    QTest::mousePress(m.ventana.windowHandle(), Qt::LeftButton, {}, v->mapTo(&m.ventana, m.centro(1, 1)));
    for (const int fila : {2, 3})
    {
        QMouseEvent mueve(QEvent::MouseMove, m.centro(1, fila), v->mapToGlobal(m.centro(1, fila)), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(v, &mueve);
    }
    QTest::mouseRelease(m.ventana.windowHandle(), Qt::LeftButton, {}, v->mapTo(&m.ventana, m.centro(1, 3)));
    EXPECT_EQ(m.tomarEventos(), QStringLiteral("dejar 1,1,1,1; clic 1,1"));
}

TEST_F(EventosDeGrilla, TecladoSoloDejaCeldas)
{
    Entrada::tecla(Qt::Key_Tab);
    ASSERT_TRUE(g.hasFocus());
    EXPECT_EQ(g.filaActual(), 0) << "entering chooses nothing";
    EXPECT_EQ(m.tomarEventos(), QString());
    Entrada::tecla(Qt::Key_Down);
    Entrada::tecla(Qt::Key_Down);
    Entrada::tecla(Qt::Key_Right);
    Entrada::tecla(Qt::Key_End, Qt::ControlModifier);
    Entrada::tecla(Qt::Key_Down);
    EXPECT_EQ(m.tomarEventos(), QStringLiteral("dejar 1,1,1,1; dejar 1,1,1,2; dejar 1,2,3,2; dejar 3,2,3,3"));
    Entrada::tecla(Qt::Key_Tab);
    EXPECT_TRUE(m.boton->hasFocus()) << "Tab leads out";
    EXPECT_EQ(m.tomarEventos(), QStringLiteral("dejar 3,3,-1,-1"));
}

TEST_F(EventosDeGrilla, ElFocoQueSeVaAOtroControl)
{
    m.celda(1, 2);
    m.tomarEventos();
    Entrada::pulsar(*m.boton);
    EXPECT_EQ(m.tomarEventos(), QStringLiteral("dejar 1,2,-1,-1"));
    EXPECT_EQ(m.pulsado, 1);
    EXPECT_EQ(g.filaActual(), 2) << "the row stays chosen";
    m.antes->setFocus();
    EXPECT_EQ(m.tomarEventos(), QString()) << "it was not in the grid any more";
}

TEST_F(EventosDeGrilla, OtraVentanaNoDejaLaGrilla)
{
    m.celda(1, 2);
    m.tomarEventos();
    {
        QDialog dialogo(&m.ventana);
        QLineEdit campo(&dialogo);
        dialogo.show();
        dialogo.activateWindow();
        campo.setFocus();
        ASSERT_TRUE(QTest::qWaitFor([&campo] { return campo.hasFocus(); }));
    }
    m.ventana.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m.ventana));
    EXPECT_EQ(m.tomarEventos(), QString());
}

TEST_F(EventosDeGrilla, ElManejadorPuedeRecargarLaGrilla)
{
    const auto conexion = QObject::connect(&g, &Grilla::dejarCelda, &m.ventana,
                                           [this] {
                                               g.cargar({{QStringLiteral("2025/01"), 1, 0}});
                                           });
    m.celda(1, 3);
    EXPECT_EQ(m.tomarEventos(), QStringLiteral("dejar 1,1,1,3")) << "the row clicked is gone: no click on it";
    Entrada::tecla(Qt::Key_Down);
    EXPECT_EQ(g.filas(), 1);
    EXPECT_EQ(g.filaActual(), 0);
    QObject::disconnect(conexion);
}

TEST_F(EventosDeGrilla, ElManejadorPuedeCerrarLaPantalla)
{
    for (const bool conTecla : {false, true})
    {
        auto* otra = new QWidget;
        auto* fila = new QHBoxLayout(otra);
        auto* nueva = new Grilla(otra);
        fila->addWidget(nueva);
        nueva->setColumnas({{C::Fija, QStringLiteral("Rubro")}});
        nueva->cargar({{1}, {2}});
        otra->show();
        otra->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(otra));
        const QPointer<Grilla> viva = nueva;
        QObject::connect(nueva, &Grilla::clic, otra, [otra] { delete otra; });
        QObject::connect(nueva, &Grilla::dejarCelda, otra, [otra, conTecla] { conTecla ? delete otra : void(); });
        if (conTecla)
        {
            nueva->setFocus();
            QTest::keyClick(nueva, Qt::Key_Down);
        }
        else
        {
            QMouseEvent baja(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, Qt::LeftButton,
                             {});
            QMouseEvent sube(QEvent::MouseButtonRelease, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, {}, {});
            QCoreApplication::sendEvent(nueva->viewport(), &baja);
            QCoreApplication::sendEvent(nueva->viewport(), &sube);
        }
        EXPECT_TRUE(viva.isNull());
    }
}

TEST_F(EventosDeGrilla, EnterEnUnaListaQueNoSeEdita)
{
    m.celda(1, 2);
    Entrada::tecla(Qt::Key_Return);
    EXPECT_TRUE(m.boton->hasFocus()) << "as Tab";
    QString entradas;
    QObject::connect(&g, &Grilla::entrar, &m.ventana,
                     [&](int c, int f) { entradas += QStringLiteral("%1,%2 ").arg(c).arg(f); });
    m.celda(1, 3);
    Entrada::tecla(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(entradas, QStringLiteral("1,3 "));
    EXPECT_TRUE(g.hasFocus());
}

TEST_F(EventosDeGrilla, TeclasDeFila)
{
    bool admite = false;
    QList<int> quitadas;
    g.setTeclasDeFila([&admite] { return admite; },
                      [&quitadas](int fila)
                      {
                          quitadas.append(fila);
                          return fila != 2;
                      });
    m.celda(3, 3);
    Entrada::tecla(Qt::Key_Down);
    Entrada::tecla(Qt::Key_Insert);
    EXPECT_EQ(g.filas(), 3) << "the screen did not want one";
    admite = true;
    m.tomarEventos();
    Entrada::tecla(Qt::Key_Down);
    EXPECT_EQ(m.tomarEventos(), QStringLiteral("dejar 3,3,1,4"));
    Entrada::tecla(Qt::Key_Insert);
    EXPECT_EQ(m.tomarEventos(), QStringLiteral("dejar 1,4,1,5"));
    EXPECT_EQ(g.filas(), 5);
    EXPECT_FALSE(g.cambiada());
    Entrada::tecla(Qt::Key_Up);
    Entrada::tecla(Qt::Key_Insert);
    EXPECT_EQ(g.filas(), 5) << "on the last row only";

    g.setFilaActual(2);
    Entrada::tecla(Qt::Key_Delete);
    EXPECT_EQ(g.filas(), 5) << "refused by the screen";
    EXPECT_FALSE(g.cambiada());
    g.setFilaActual(1);
    m.tomarEventos();
    Entrada::tecla(Qt::Key_Delete);
    EXPECT_EQ(g.filas(), 4);
    EXPECT_TRUE(g.cambiada());
    EXPECT_EQ(g.texto(1, 1), QStringLiteral("2024/02"));
    EXPECT_EQ(g.filaActual(), 1);
    EXPECT_EQ(quitadas, (QList<int>{2, 1}));
    g.setFilas(1);
    Entrada::tecla(Qt::Key_Delete);
    EXPECT_EQ(g.filas(), 1) << "one row always stays";
    EXPECT_TRUE(g.celdaVacia(1, 1));
    EXPECT_EQ(g.filaActual(), 1);
    EXPECT_EQ(m.tomarEventos(), QString());
}
} // namespace
