#pragma once

#include <QString>

/// What a query gives, from a connection of its own that only reads: rows joined by ";", their values by "|", a Null as
/// "Null". Values as they are stored. Throws Falla when the query fails.
[[nodiscard]] QString consultarBase(const QString& ruta, const QString& sql);
