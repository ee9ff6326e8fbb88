#pragma once

#include "base/net/transporte_ftp.h"

#include <QString>

/// Where the declarations go on the union's server. Only the host is a choice of the installation.
inline constexpr auto directorioFtp = u"/DDJJ/";
/// The account and the host, "host" or "host:port": the installation's own unless it was replaced.
[[nodiscard]] TransporteFtp::Cuenta CuentaFtp();
/// Replaces the host for tests and the robot; an empty text brings the installation's own back.
void reemplazarServidorFtp(const QString& servidor);

/// How long the server may keep the program waiting.
inline constexpr TransporteFtp::Limites limitesFtp{.conexion = std::chrono::seconds(20),
                                                   .sinAvance = std::chrono::seconds(30)};
