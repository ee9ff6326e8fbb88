#pragma once

#include <QIcon>
#include <QPalette>
#include <QString>
#include <initializer_list>

class QApplication;
class QLineEdit;
class QPainter;
class QRect;
class QWidget;

/// The program's one look: Fusion, one light palette, the Spanish standard texts, the application's icon.
namespace Estilo
{
/// `coloresDelUsuario`: he has asked for high contrast, and none of the program's colours is put over his.
void aplicar(QApplication& aplicacion, bool coloresDelUsuario = false);
/// Are the colours the user's own? Who paints with another one asks.
[[nodiscard]] bool deAltoContraste();
[[nodiscard]] QPalette paleta();
/// A line drawing of the program's family: "nueva", "copiar", "eliminar", "grabar", "cancelar", "buscar", ...
/// Sharp at every size; grey while its control is disabled. An unknown name gives a null icon.
[[nodiscard]] QIcon icono(const QString& nombre);
[[nodiscard]] QIcon iconoDelPrograma();
/// Puts its icon on a button, and marks the screen's main one with the accent colour. Works on buttons of every kind.
void boton(QWidget* boton, const QString& icono, bool principal = false);
/// The button of a command that cannot be undone: dark red, as the warnings.
void botonPeligroso(QWidget* boton, const QString& icono);
/// Fields that only show: flat, on the tinted ground, out of the tab order (a click lets their text be copied).
void soloMuestra(std::initializer_list<QLineEdit*> campos);
/// A warning label: dark red with its icon before the text. The label's text is the caller's, and may change.
void advertencia(QWidget* etiqueta);
/// A label that asks for a look, in amber, or no longer does; its words say why.
void atencion(QWidget* etiqueta, bool pide);
/// Tabular figures, right-aligned; in a field that is too narrow for one, smaller.
void importe(QWidget* campo);
/// The main window's picture, filling `zona` without distortion; its lower edge always shows.
void pintarFondo(QPainter& pintor, const QRect& zona);
} // namespace Estilo
