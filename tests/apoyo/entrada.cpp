#include "apoyo/entrada.h"

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace
{
QPoint enVentana(const QWidget& destino, QPoint lugar)
{
    return destino.mapTo(destino.window(), lugar.isNull() ? destino.rect().center() : lugar);
}
} // namespace

void Entrada::activar(QWidget& ventana)
{
    ventana.show();
    ventana.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ventana));
    asentar();
}

void Entrada::pulsar(QWidget& destino, QPoint lugar, Qt::MouseButton boton)
{
    ASSERT_NE(destino.window()->windowHandle(), nullptr);
    QTest::mouseClick(destino.window()->windowHandle(), boton, {}, enVentana(destino, lugar));
    asentar();
}

void Entrada::pulsarDosVeces(QWidget& destino, QPoint lugar)
{
    ASSERT_NE(destino.window()->windowHandle(), nullptr);
    QTest::mouseDClick(destino.window()->windowHandle(), Qt::LeftButton, {}, enVentana(destino, lugar));
    asentar();
}

void Entrada::tecla(Qt::Key tecla, Qt::KeyboardModifiers modificadores)
{
    QWindow* ventana = QGuiApplication::focusWindow();
    ASSERT_NE(ventana, nullptr) << "no window has the focus";
    QTest::keyClick(ventana, tecla, modificadores);
    asentar();
}

void Entrada::escribir(const QString& texto)
{
    for (const QChar letra : texto)
    {
        QWindow* ventana = QGuiApplication::focusWindow();
        ASSERT_NE(ventana, nullptr) << "no window has the focus";
        QTest::keyClick(ventana, letra.toLatin1());
    }
    asentar();
}

void Entrada::jugar(const QString& gestos)
{
    for (const QString& gesto : gestos.split(u' ', Qt::SkipEmptyParts))
    {
        if (gesto.startsWith(u'\''))
        {
            escribir(gesto.mid(1));
            continue;
        }
        const QKeySequence secuencia = QKeySequence::fromString(gesto);
        ASSERT_EQ(secuencia.count(), 1) << qPrintable(gesto);
        tecla(secuencia[0].key(), secuencia[0].keyboardModifiers());
    }
}

void Entrada::asentar()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void Entrada::conLaCaja(std::function<void(QMessageBox&)> haz)
{
    QTimer::singleShot(0, qApp,
                       [haz = std::move(haz)]
                       {
                           auto* caja = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                           if (caja == nullptr || !caja->isVisible() || !caja->isActiveWindow())
                           {
                               if (caja != nullptr)
                               {
                                   caja->activateWindow();
                               }
                               conLaCaja(haz);
                               return;
                           }
                           haz(*caja);
                       });
}
