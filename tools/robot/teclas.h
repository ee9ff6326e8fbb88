#pragma once

#include <QString>
#include <optional>

/// A key, and how often it is pressed.
struct Teclas
{
    QKeyCombination tecla;
    int veces = 1;
};

/// By its name in a script: "Enter", "F1", "Ctrl+A", "Alt+g", "Enter*3". Nothing for a name that is no key.
[[nodiscard]] std::optional<Teclas> leerTeclas(const QString& nombre);
