#pragma once

#include <QString>
#include <optional>

/// A key by its name in a script: "Enter", "Tab", "F1", "Ctrl+A", "Alt+g". Nothing for a name that is no key.
[[nodiscard]] std::optional<QKeyCombination> teclaDeNombre(const QString& nombre);
