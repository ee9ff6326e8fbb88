#include "entrada.h"

#include "controles.h"
#include "falla.h"

#include <QtTest>
#include <QtWidgets>

namespace entrada
{
namespace
{
/// An open list or menu takes the keys whatever window has the focus: not every system gives it to them.
QWindow* ventanaConFoco()
{
    const QWidget* abierta = QApplication::activePopupWidget();
    if (abierta != nullptr && abierta->windowHandle() != nullptr)
    {
        return abierta->windowHandle();
    }
    if (QWindow* ventana = QGuiApplication::focusWindow())
    {
        return ventana;
    }
    for (const QWidget* posible : {QApplication::activeModalWidget(), QApplication::activeWindow(),
                                   static_cast<QWidget*>(controles::ventanaPrincipal())})
    {
        if (posible != nullptr && posible->windowHandle() != nullptr)
        {
            return posible->windowHandle();
        }
    }
    throw Falla("ninguna ventana recibe el teclado");
}

/// A part without a name of its own goes by that of the control it belongs to.
QString nombreDe(const QWidget* control)
{
    while (control->parentWidget() != nullptr &&
           (control->objectName().isEmpty() || control->objectName().startsWith("qt_")))
    {
        control = control->parentWidget();
    }
    return control->objectName().isEmpty() ? QString(control->metaObject()->className()) : control->objectName();
}

/// A list or menu left open closes before something else is clicked.
void cerrarListasAbiertas(const QWidget* destino)
{
    constexpr int masQueSuficiente = 10;
    for (int i = 0; i < masQueSuficiente; ++i)
    {
        const QWidget* abierta = QApplication::activePopupWidget();
        if (abierta == nullptr || abierta == destino->window())
        {
            return;
        }
        tecla(Qt::Key_Escape);
    }
}

/// A tick or option is clicked on its mark: the rest of a wide one does not answer.
QPoint centroDe(const QWidget* control)
{
    QStyleOptionButton opcion;
    opcion.initFrom(control);
    const bool tilde = qobject_cast<const QCheckBox*>(control) != nullptr;
    if (!tilde && qobject_cast<const QRadioButton*>(control) == nullptr)
    {
        return control->rect().center();
    }
    const auto marca = tilde ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator;
    return control->style()->subElementRect(marca, &opcion, control).center();
}
} // namespace

void clic(QWidget* control)
{
    clic(control, centroDe(control));
}

void clic(QWidget* control, QPoint lugar)
{
    cerrarListasAbiertas(control);
    QWidget* ventana = control->window();
    for (QWidget* parte = control; parte != ventana; parte = parte->parentWidget())
    {
        if (auto* zona = qobject_cast<QScrollArea*>(parte)) // a person turns the wheel
        {
            const QPoint aqui = control->mapTo(zona->widget(), lugar);
            zona->ensureVisible(aqui.x(), aqui.y(), 1, 1);
        }
    }
    const QPoint enVentana = control->mapTo(ventana, lugar);
    const QWidget* encima = ventana->childAt(enVentana);
    const bool libre = encima == control || control->isAncestorOf(encima) || (encima == nullptr && control == ventana);
    if (ventana->windowHandle() == nullptr || !ventana->rect().contains(enVentana))
    {
        throw Falla("«%1» queda fuera de la ventana", nombreDe(control));
    }
    if (!libre)
    {
        throw Falla("«%1» está tapado por «%2»", nombreDe(control), nombreDe(encima != nullptr ? encima : ventana));
    }
    QTest::mouseMove(ventana->windowHandle(), enVentana);
    QTest::mouseClick(ventana->windowHandle(), Qt::LeftButton, Qt::NoModifier, enVentana);
}

void dobleClic(QWidget* control, QPoint lugar, const std::function<bool()>& sigue)
{
    const QPointer<QWidget> vivo = control;
    clic(control, lugar);
    if (!vivo.isNull() && vivo->isVisible() && sigue())
    {
        // Each click sets the clock of the simulated mouse forward, so that two clicks are never taken for a double
        // one.
        QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
        QTest::mouseClick(control->window()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          control->mapTo(control->window(), lugar));
    }
}

void tecla(Qt::Key tecla, Qt::KeyboardModifiers modificadores)
{
    QTest::keyClick(ventanaConFoco(), tecla, modificadores);
}

void escribir(const QString& texto)
{
    for (const char32_t codigo : texto.toUcs4())
    {
        if (codigo < 0x80)
        {
            QTest::keyClick(ventanaConFoco(), static_cast<char>(codigo));
            continue;
        }
        QTest::sendKeyEvent(QTest::Click, ventanaConFoco(), Qt::Key_unknown, QString::fromUcs4(&codigo, 1),
                            Qt::NoModifier);
    }
}

bool tieneFoco(const QWidget* control)
{
    const QWidget* foco = QApplication::focusWidget();
    if (foco == nullptr)
    {
        foco = control->window()->focusWidget(); // just after a box the window only remembers it
    }
    return foco != nullptr && (foco == control || control->isAncestorOf(foco) || control->focusProxy() == foco);
}
} // namespace entrada
