#include "apoyo/entrada.h"

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace
{
constexpr int deSobra = 60'000; // milliseconds: a machine may be busy

QPoint enVentana(const QWidget& destino, QPoint lugar)
{
    return destino.mapTo(destino.window(), lugar.isNull() ? destino.rect().center() : lugar);
}
} // namespace

void Entrada::activar(QWidget& ventana)
{
    ventana.show();
    ventana.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ventana, deSobra));
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
    ASSERT_NE(QGuiApplication::focusWindow(), nullptr) << "no window has the focus";
    QTest::keyClick(QGuiApplication::focusWindow(), tecla, modificadores);
    asentar();
}

void Entrada::escribir(const QString& texto)
{
    for (const QChar letra : texto)
    {
        ASSERT_NE(QGuiApplication::focusWindow(), nullptr) << "no window has the focus";
        QTest::keyClick(QGuiApplication::focusWindow(), letra.toLatin1());
    }
    asentar();
}

void Entrada::jugar(const QString& gestos)
{
    for (const QString& gesto : gestos.split(u' ', Qt::SkipEmptyParts))
    {
        const QKeyCombination una = QKeySequence::fromString(gesto)[0];
        gesto.startsWith(u'\'') ? escribir(gesto.mid(1)) : tecla(una.key(), una.keyboardModifiers());
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
    const auto mirar = [haz = std::move(haz)]
    {
        auto* caja = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (caja != nullptr && caja->isVisible() && caja->isActiveWindow())
        {
            haz(*caja);
            QTimer::singleShot(0, qApp, [] {}); // Windows: the box's loop, left inside another, looks once more
            return;
        }
        if (caja != nullptr)
        {
            caja->activateWindow();
        }
        conLaCaja(haz);
    };
    QTimer::singleShot(0, qApp, mirar);
}
