#pragma once

#include "ui/doors/dialogos.h"

/// Hands the message, attachment included, to the mail program by the system's own road. False when the system has
/// none; throws ErrorDeEjecucion when it failed.
[[nodiscard]] bool entregarAlSistema(const MensajeDeCorreo& mensaje);
/// "mailto:" and the address, safe as one argument.
[[nodiscard]] QString direccionDeCorreo(const MensajeDeCorreo& mensaje);

inline constexpr int errorDeCorreo = 429;
