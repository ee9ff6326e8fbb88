#pragma once

#include <QPoint>
#include <QString>
#include <functional>

class QMessageBox;
class QWidget;

/// Input as a person gives it: the mouse through the window, so that what lies above or is blocked gets in the way, and
/// the keys to whatever has the focus.
namespace Entrada
{
/// Shows the window and waits until it is the active one.
void activar(QWidget& ventana);
/// A click in the middle of the widget, or at a place in it.
void pulsar(QWidget& destino, QPoint lugar = {}, Qt::MouseButton boton = Qt::LeftButton);
void pulsarDosVeces(QWidget& destino, QPoint lugar = {});
void tecla(Qt::Key tecla, Qt::KeyboardModifiers modificadores = {});
/// Key by key, Latin-1 letters.
void escribir(const QString& texto);
/// Words with blanks between: 'abc is typed, any other is a key by its English name: "'2500 Tab Ctrl+V".
void jugar(const QString& gestos);
/// Runs events until none are left.
void asentar();
/// Runs `haz` on the next real message box, once it is up and active.
void conLaCaja(std::function<void(QMessageBox&)> haz);
} // namespace Entrada
