#pragma once

#include <QByteArrayView>
#include <QString>
#include <string>
#include <string_view>

/// Windows-1252 both ways. A character outside it is written "?"; the five bytes that it leaves undefined read as the
/// control characters of the same value.
[[nodiscard]] QByteArray aWindows1252(QStringView texto);
[[nodiscard]] QString deWindows1252(QByteArrayView bytes);

/// The same between Windows-1252 and the database's UTF-8, appended to a buffer that the caller keeps.
void agregarUtf8(std::string& destino, std::string_view bytes);
/// Appends at most `maximo` characters, one byte each; what is no UTF-8 is written "?".
void agregarWindows1252(std::string& destino, std::string_view utf8, std::size_t maximo = std::string_view::npos);
