#pragma once

#include <QString>
#include <string>

/// What a query gives, from a connection of its own that only reads: rows joined by ";", their values by "|", a Null as
/// "Null". Values as they are stored. Throws Falla when the query fails.
[[nodiscard]] QString consultarBase(const QString& ruta, const QString& sql);

/// Runs the statements of `sql` in one transaction: thousands of rows cost what one does. Throws Falla when one fails.
void ejecutarEnBase(const QString& ruta, const std::string& sql);
