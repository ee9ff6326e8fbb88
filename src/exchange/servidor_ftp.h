#pragma once

#include "platform/data/transporte_ftp.h"

#include <QString>

/// Host to which the declarations go, "host" or "host:port": the installation's own unless it was replaced.
[[nodiscard]] QString ServidorFtp();
/// Replaces it for tests and the robot; an empty text brings the installation's own back.
void reemplazarServidorFtp(const QString& servidor);

/// How long a server may keep the program waiting.
[[nodiscard]] TransporteFtp::Limites LimitesFtp();
/// Replaces them for tests; the default value brings the program's own back.
void reemplazarLimitesFtp(const TransporteFtp::Limites& limites = {});
