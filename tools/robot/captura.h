#pragma once

#include <QImage>
#include <QString>

/// The program as it stands on the screen: the main window and, over it, the windows that lie there.
[[nodiscard]] QImage retratar();
/// The current window alone, with its title.
[[nodiscard]] QImage retratarVentana();
/// Into a PNG; makes the folder. Throws Falla when it cannot be written.
void grabarImagen(const QImage& imagen, const QString& ruta);
