#pragma once

#include <QString>

/// A CUIT or CUIL of which nothing is typed, as its field tells it.
inline constexpr QLatin1String cuitVacio("__-________-_");
