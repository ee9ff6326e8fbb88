#pragma once

#include <QIcon>
#include <QString>

class QApplication;
class QGridLayout;
class QWidget;

/// The program's one look: Fusion, one light palette, the Spanish standard texts, the application's icon.
namespace Estilo
{
void aplicar(QApplication& aplicacion);
/// A line drawing of the program's family: "nueva", "copiar", "eliminar", "grabar", "cancelar", "buscar", ...
[[nodiscard]] QIcon icono(const QString& nombre);
/// Puts icon and accent on a screen's buttons by their objectName prefix-free list, and marks the main one.
void boton(QWidget* boton, const QString& icono, bool principal = false);
/// Fields that only show: flat, on the tinted ground, out of the tab order.
void soloMuestra(QWidget* campo);
/// A warning label: dark red with its icon. Returns nothing; the label's text is the caller's.
void advertencia(QWidget* etiqueta);
/// Tabular figures, right-aligned.
void importe(QWidget* campo);
} // namespace Estilo
