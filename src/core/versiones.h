#pragma once

#include <QLatin1String>

/// What Parametros.Version says, from the oldest database to this program's; each start upgrades by one.
namespace versiones
{
inline constexpr QLatin1String inicial("1.0");
inline constexpr QLatin1String conAcuerdo("1.1");  ///< column Acuerdo
inline constexpr QLatin1String conAcuerdo2("1.2"); ///< column Acuerdo2
inline constexpr QLatin1String actual("2.0");
} // namespace versiones
