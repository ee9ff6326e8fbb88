#pragma once

#include <QImage>
#include <QString>

/// The program as it stands on the screen: the main window and, over it, the windows that lie there.
[[nodiscard]] QImage retratar();
/// The same into a PNG; makes the folder. Throws Falla when it cannot be written.
void capturar(const QString& ruta);
