#pragma once

#include <QString>

/// Host to which the declarations go, "host" or "host:port": the installation's own unless it was replaced.
[[nodiscard]] QString ServidorFtp();
/// Replaces it for tests and the robot; an empty text brings the installation's own back.
void reemplazarServidorFtp(const QString& servidor);
