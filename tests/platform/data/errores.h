#pragma once

#include "apoyo/datos.h"

/// What `accion` throws as "number description", empty when it throws nothing.
template <class Accion>
[[nodiscard]] QString fallaDe(Accion accion)
{
    try
    {
        static_cast<void>(accion());
        return {};
    }
    catch (const ErrorDeEjecucion& error)
    {
        return QString::number(error.numero()) + u' ' + error.descripcion();
    }
}
