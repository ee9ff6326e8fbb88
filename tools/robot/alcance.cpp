#include "alcance.h"

#include "controles.h"
#include "falla.h"
#include "ui/shell/campos.h"
#include "ui/shell/validacion.h"

#include <QAccessible>
#include <QtWidgets>

namespace
{
QString nombreDelControl(const QWidget* control)
{
    return control->objectName().isEmpty() ? QString(control->metaObject()->className()) : control->objectName();
}

void exigirEnPantalla(const QWidget* ventana)
{
    const QRect libre = ventana->screen()->availableGeometry();
    const QRect marco = ventana->frameGeometry();
    if (!libre.adjusted(-1, -1, 1, 1).contains(marco)) // a scaled screen has no whole number of pixels
    {
        throw Falla("la ventana, de %1x%2, sale de la pantalla, de %3x%4", marco.width(), marco.height(), libre.width(),
                    libre.height());
    }
}

/// Labels and buttons are as large as what they say.
void exigirEntero(const QWidget* control)
{
    const auto* rotulo = qobject_cast<const QLabel*>(control);
    const bool dice = qobject_cast<const QAbstractButton*>(control) != nullptr ||
                      (rotulo != nullptr && !rotulo->text().isEmpty() && rotulo->minimumWidth() == 0);
    const QSize pide = control->minimumSizeHint();
    if (dice && (control->width() < pide.width() || control->height() < pide.height()))
    {
        throw Falla("«%1» mide %2x%3, y pide %4x%5", nombreDelControl(control), control->width(), control->height(),
                    pide.width(), pide.height());
    }
}

/// Of a grid, which may be larger than its window, a part is enough.
void exigirALaVista(QWidget* control)
{
    control->setFocus(Qt::TabFocusReason);
    const QRegion seVe = control->visibleRegion();
    const auto* zona = campos::antepasado<QScrollArea>(control);
    const QSize pide = zona != nullptr ? control->size().boundedTo(zona->viewport()->size()) : control->size();
    const bool entero = pide == pide.boundedTo(seVe.boundingRect().size());
    if (seVe.isEmpty() || (!entero && qobject_cast<QAbstractScrollArea*>(control) == nullptr))
    {
        throw Falla("«%1» tiene el foco y no se ve entero", nombreDelControl(control));
    }
}

/// What a label or the caption of a frame shows is heard, too: a name of its own or a frame around takes its place.
void exigirQueSeLea(QWidget* control)
{
    const bool rotulo = qobject_cast<const QLabel*>(control) != nullptr;
    if (!rotulo && qobject_cast<const QGroupBox*>(control) == nullptr)
    {
        return;
    }
    const QString muestra = controles::textoDe(control);
    const QString dice = QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name);
    if ((rotulo && dice.isEmpty()) || !dice.contains(muestra))
    {
        throw Falla("«%1» muestra \"%2\", y dice \"%3\"", nombreDelControl(control), muestra, dice);
    }
}

void exigirQueSeDiga(QWidget* control)
{
    QAccessibleInterface* voz = QAccessible::queryAccessibleInterface(control);
    if (voz == nullptr || voz->role() == QAccessible::NoRole || voz->role() == QAccessible::Client)
    {
        throw Falla("«%1» no dice qué es", nombreDelControl(control));
    }
    // A list gives what it holds for its name, and has its name from its label.
    const bool lista = qobject_cast<QComboBox*>(control) != nullptr;
    if ((lista || voz->text(QAccessible::Name).isEmpty()) && control->accessibleName().isEmpty() &&
        voz->relations(QAccessible::Label).isEmpty())
    {
        throw Falla("«%1» no tiene nombre", nombreDelControl(control));
    }
    const auto* campo = qobject_cast<QLineEdit*>(control);
    const QString valor = campo != nullptr ? campo->QLineEdit::text() : lista ? controles::textoDe(control) : QString();
    if (!valor.isEmpty() && voz->text(QAccessible::Value) != valor)
    {
        throw Falla("«%1» no dice su valor", nombreDelControl(control));
    }
    for (int i = 0; voz->tableInterface() != nullptr && i < voz->tableInterface()->columnCount(); ++i)
    {
        if (voz->tableInterface()->columnDescription(i).isEmpty())
        {
            throw Falla("«%1» tiene una columna sin título, la %2", nombreDelControl(control), i + 1);
        }
    }
}
} // namespace

void exigirAlcance()
{
    QWidget* ventana = controles::ventanaActual();
    exigirEnPantalla(ventana->window());
    const Validacion::Pausa pausa; // looking leaves no field
    const QPointer<QWidget> antes = QApplication::focusWidget();
    for (QWidget* control : ventana->findChildren<QWidget*>())
    {
        if (!control->isVisible() || control->window() != ventana->window() ||
            controles::hijaDe(control) != controles::hijaDe(ventana))
        {
            continue;
        }
        exigirEntero(control);
        exigirQueSeLea(control);
        if (control->isEnabled() && (control->focusPolicy() & Qt::TabFocus) != 0 && control->focusProxy() == nullptr)
        {
            exigirALaVista(control);
            exigirQueSeDiga(control);
        }
    }
    if (!antes.isNull())
    {
        antes->setFocus();
    }
}
