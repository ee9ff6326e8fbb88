#pragma once

#include "core/clave_ddjj.h"

#include <QString>

enum class InformeDDJJ;

/// The declaration has a roster, or it is told that it has none.
[[nodiscard]] bool avisarSiNoHayNomina(const ClaveDDJJ& clave);

/// Stages, shows and releases a report of a declaration. Says so when the declaration has no roster. The preview's
/// errors are told in a plain box; what fails before it throws. The user can cancel it.
void ImprimirInforme(const ClaveDDJJ& clave, const QString& mes, const QString& anio, InformeDDJJ cual);
