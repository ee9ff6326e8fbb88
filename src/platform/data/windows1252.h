#pragma once

#include <QByteArrayView>
#include <QString>

/// Windows-1252 both ways. A character outside it is written "?"; the five bytes that it leaves undefined read as the
/// control characters of the same value.
[[nodiscard]] QByteArray aWindows1252(QStringView texto);
[[nodiscard]] QString deWindows1252(QByteArrayView bytes);
