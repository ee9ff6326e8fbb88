#pragma once

#include <QKeyEvent>
#include <QPoint>
#include <QString>
#include <QWidget>

class QLineEdit;

/// What the leaving checks ask of widgets, of places in a window and of keys.
namespace campos
{
template <class Clase>
Clase* antepasado(QObject* objeto)
{
    for (; objeto != nullptr; objeto = objeto->parent())
    {
        if (auto* hallado = qobject_cast<Clase*>(objeto))
        {
            return hallado;
        }
    }
    return nullptr;
}

/// The window of a control: a child window, a dialog or a window of the system.
[[nodiscard]] const QWidget* ventanaDe(const QWidget* control);
/// What the user entered, to tell whether it changed since a check passed.
[[nodiscard]] QString contenido(const QWidget* campo);
void seleccionar(QWidget* campo);
/// The widget that fills a window of the window system; none for another's.
[[nodiscard]] QWidget* superficie(const QObject* ventana);
/// The field at work in a window. Just after a box nothing has the focus yet, and the window remembers its own.
[[nodiscard]] QWidget* campoEn(const QWidget* ventana);
/// True when a press at this place leaves the field: the place takes the focus, or acts on a press.
[[nodiscard]] bool sacaDe(const QWidget* campo, QWidget* destino, QPoint enVentana);
/// In the field, in a part of it, or in the list that it drops down, which is a window of its own.
[[nodiscard]] bool tieneElFoco(const QWidget* campo);
/// The focus goes to a list, a menu or another window, and comes back to the field.
[[nodiscard]] bool esPasajero(Qt::FocusReason motivo);
[[nodiscard]] bool esEnter(const QKeyEvent& evento);
[[nodiscard]] bool esTab(const QKeyEvent& evento);
/// The keys by which a grid's one-line editor is left.
[[nodiscard]] bool dejaEditor(const QWidget* editor, const QKeyEvent& evento);
/// Shows a text whole, also where it is longer than what may be typed there: a value that another program or an older
/// version stored is not cut when it is saved again.
void ponerEntero(QLineEdit* campo, const QString& texto);
/// Enter walks on from it, as Tab does.
[[nodiscard]] bool entraComoTab(const QWidget* campo);
} // namespace campos
