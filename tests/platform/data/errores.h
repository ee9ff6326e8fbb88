#pragma once

#include "platform/data/error_de_ejecucion.h"

/// What `accion` throws as "number description", empty when it throws nothing.
template <class A>
QString fallaDe(A accion)
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

/// The number alone, 0 when it throws nothing.
template <class A>
int numeroDe(A accion)
{
    return fallaDe(accion).section(u' ', 0, 0).toInt();
}
