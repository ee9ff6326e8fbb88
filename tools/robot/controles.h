#pragma once

#include <QString>
#include <QStringList>

class QComboBox;
class QMainWindow;
class QMdiSubWindow;
class QWidget;
class Grilla;

/// Finding the controls that a person would see now. Everything throws Falla with the control's name and the reason.
namespace controles
{
[[nodiscard]] QMainWindow* ventanaPrincipal();
/// The child window in which a control lies, or none.
[[nodiscard]] QMdiSubWindow* hijaDe(const QWidget* control);
/// The active child window, or none.
[[nodiscard]] QMdiSubWindow* hijaActiva();
/// What a person has in front of him: the active dialog, else a window of its own that is active (the preview of a
/// report), else the active child window, else the main window.
[[nodiscard]] QWidget* ventanaActual();
/// Its name for messages: the screen's name, else its title.
[[nodiscard]] QString nombreDe(const QWidget* ventana);
/// The open window of that name that has no screen in it, as the preview of a report, or none.
[[nodiscard]] QWidget* suelta(const QString& nombre);
/// Throws Falla when a dialog lies over what was asked for.
void exigirDelante(const QString& que);

/// The control of this name (`txtImporte(3)`) in the active dialog, else in the active child window, else in the main
/// window.
[[nodiscard]] QWidget* buscar(const QString& nombre);
/// The same, and it is shown: not hidden, not on another page.
[[nodiscard]] QWidget* buscarVisible(const QString& nombre);
/// The same, and it is enabled.
[[nodiscard]] QWidget* buscarUsable(const QString& nombre);
[[nodiscard]] Grilla* buscarGrilla(const QString& nombre, bool usable = false);

/// The text that a control shows, without mnemonic marks.
[[nodiscard]] QString textoDe(const QWidget* control);
/// True when `esperado` is that text; a mnemonic mark in it and the dashes of a date out of focus are accepted.
[[nodiscard]] bool muestra(const QWidget* control, const QString& esperado);
[[nodiscard]] QStringList entradasDe(const QComboBox& lista);

/// "&Nueva DDJJ" is "Nueva DDJJ".
[[nodiscard]] QString sinMarca(const QString& texto);
/// "; parecidos: " and those of `posibles` that are like a wrong name; empty when none is.
[[nodiscard]] QString parecidos(const QString& nombre, const QStringList& posibles);
} // namespace controles
