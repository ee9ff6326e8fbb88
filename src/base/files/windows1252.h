#pragma once

#include <string>
#include <string_view>

/// Windows-1252 both ways, between the files and the database's UTF-8, appended to a buffer that the caller keeps. The
/// five bytes that the set leaves undefined read as the control characters of the same value.
void agregarUtf8(std::string& destino, std::string_view bytes);
/// Appends at most `maximo` characters, one byte each; one outside the set, and what is no UTF-8, is written "?".
void agregarWindows1252(std::string& destino, std::string_view utf8, std::size_t maximo = std::string_view::npos);
