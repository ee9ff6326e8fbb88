#include "ui/shell/campos.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QRadioButton>
#include <QTabBar>
#include <QWindow>

namespace
{
/// The buttons that a maximised child puts into the menu bar close or resize it: they leave no field.
bool esMarco(const QWidget* destino)
{
    for (; destino != nullptr; destino = destino->parentWidget())
    {
        const QLatin1String clase(destino->metaObject()->className()); // private ones: inherits() knows them not
        if (clase == QLatin1String("QMdi::ControllerWidget") || clase == QLatin1String("QMdi::ControlLabel"))
        {
            return true;
        }
    }
    return false;
}
} // namespace

const QWidget* campos::ventanaDe(const QWidget* control)
{
    while (!control->isWindow() && qobject_cast<const QMdiSubWindow*>(control) == nullptr)
    {
        control = control->parentWidget();
    }
    return control;
}

QString campos::contenido(const QWidget* campo)
{
    if (const auto* linea = qobject_cast<const QLineEdit*>(campo))
    {
        return linea->displayText();
    }
    if (const auto* lista = qobject_cast<const QComboBox*>(campo))
    {
        return lista->currentText();
    }
    if (const auto* numero = qobject_cast<const QAbstractSpinBox*>(campo))
    {
        return numero->text();
    }
    if (const auto* tilde = qobject_cast<const QAbstractButton*>(campo))
    {
        return tilde->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
    }
    return {};
}

void campos::seleccionar(QWidget* campo)
{
    if (auto* linea = qobject_cast<QLineEdit*>(campo))
    {
        linea->selectAll();
    }
    else if (auto* lista = qobject_cast<QComboBox*>(campo); lista != nullptr && lista->lineEdit() != nullptr)
    {
        lista->lineEdit()->selectAll();
    }
    else if (auto* numero = qobject_cast<QAbstractSpinBox*>(campo))
    {
        numero->selectAll();
    }
}

QWidget* campos::superficie(const QObject* ventana)
{
    const QWidgetList todas = QApplication::topLevelWidgets();
    for (QWidget* candidata : todas)
    {
        if (static_cast<const QObject*>(candidata->windowHandle()) == ventana)
        {
            return candidata;
        }
    }
    return nullptr;
}

QWidget* campos::campoEn(const QWidget* ventana)
{
    QWidget* campo = QApplication::focusWidget();
    if (campo == nullptr)
    {
        campo = ventana->focusWidget();
    }
    return campo != nullptr && campo->window() == ventana ? campo : nullptr;
}

bool campos::sacaDe(const QWidget* campo, QWidget* destino, QPoint enVentana)
{
    if (!destino->isEnabled() || esMarco(destino))
    {
        return false;
    }
    for (QWidget* parte = destino; parte != nullptr; parte = parte->parentWidget())
    {
        const QPoint lugar = parte->mapFrom(parte->window(), enVentana);
        if (qobject_cast<QMdiSubWindow*>(parte) != nullptr)
        {
            return !parte->isAncestorOf(campo); // its own frame moves or closes it; another's brings that one forward
        }
        if (qobject_cast<QMenuBar*>(parte) != nullptr)
        {
            return false;
        }
        if (const auto* paginas = qobject_cast<QTabBar*>(parte))
        {
            return paginas->tabAt(lugar) >= 0 && paginas->tabAt(lugar) != paginas->currentIndex();
        }
        if (qobject_cast<QAbstractButton*>(parte) != nullptr || qobject_cast<QAbstractItemView*>(parte) != nullptr ||
            (parte->focusPolicy() & Qt::ClickFocus) != 0)
        {
            return true;
        }
        if (parte->isWindow())
        {
            break;
        }
    }
    return false;
}

bool campos::tieneElFoco(const QWidget* campo)
{
    const QWidget* foco = QApplication::focusWidget();
    while (foco != nullptr && foco != campo)
    {
        foco = foco->parentWidget();
    }
    return foco != nullptr;
}

bool campos::esPasajero(Qt::FocusReason motivo)
{
    return motivo == Qt::ActiveWindowFocusReason || motivo == Qt::PopupFocusReason || motivo == Qt::MenuBarFocusReason;
}

bool campos::esEnter(const QKeyEvent& evento)
{
    return (evento.key() == Qt::Key_Return || evento.key() == Qt::Key_Enter) &&
           (evento.modifiers() & ~Qt::KeypadModifier) == 0;
}

bool campos::esTab(const QKeyEvent& evento)
{
    return evento.key() == Qt::Key_Tab || evento.key() == Qt::Key_Backtab;
}

bool campos::dejaEditor(const QWidget* editor, const QKeyEvent& evento)
{
    if (esTab(evento) || esEnter(evento))
    {
        return true;
    }
    const int tecla = evento.key();
    return qobject_cast<const QLineEdit*>(editor) != nullptr &&
           (tecla == Qt::Key_Up || tecla == Qt::Key_Down || tecla == Qt::Key_PageUp || tecla == Qt::Key_PageDown);
}

bool campos::entraComoTab(const QWidget* campo)
{
    return qobject_cast<const QLineEdit*>(campo) != nullptr || qobject_cast<const QComboBox*>(campo) != nullptr ||
           qobject_cast<const QCheckBox*>(campo) != nullptr || qobject_cast<const QRadioButton*>(campo) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(campo) != nullptr || qobject_cast<const QTabBar*>(campo) != nullptr;
}

void campos::ponerEntero(QLineEdit* campo, const QString& texto)
{
    constexpr const char* limite = "limite"; // what may be typed there
    if (!campo->property(limite).isValid())
    {
        campo->setProperty(limite, campo->maxLength());
    }
    campo->setMaxLength(std::max(campo->property(limite).toInt(), static_cast<int>(texto.size())));
    campo->setText(texto);
    campo->setCursorPosition(0);
}
