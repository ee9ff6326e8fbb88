#pragma once

#include <QString>

/// Where the build has put what the tests use.
namespace rutas
{
[[nodiscard]] QString enInstalacion(const QString& nombre); ///< in the installation that the build lays out
[[nodiscard]] QString enFuentes(const QString& nombre);
[[nodiscard]] QString baseSembrada(); ///< the database as it was seeded
[[nodiscard]] QString programaPython();
} // namespace rutas
