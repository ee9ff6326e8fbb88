#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

/// An icon drawn from the program's line drawings, `trazo` for their lines and `acento` for their accents.
[[nodiscard]] QIcon iconoDeTrazos(const QString& nombre, QColor trazo, QColor acento);
