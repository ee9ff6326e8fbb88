#pragma once

#include <QString>

/// From here on, notes each statement that the program runs.
void anotarConsultas();

/// The noted statements that read the whole of a table that grows with the declarations, each with its plan; empty when
/// there is none. What is about one declaration must take as long with a million rows. `ruta` is the database.
[[nodiscard]] QString consultasQueLeenTodo(const QString& ruta);
