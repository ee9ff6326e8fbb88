#pragma once

#include "platform/data/error_de_ejecucion.h"

/// The number of the error that `accion` throws, 0 when it throws none.
template <class A>
int numeroDe(A accion)
{
    try
    {
        static_cast<void>(accion());
        return 0;
    }
    catch (const ErrorDeEjecucion& error)
    {
        return error.numero();
    }
}

/// The same for an action without a result.
template <class A>
requires std::is_void_v<std::invoke_result_t<A>>
int numeroDe(A accion)
{
    return numeroDe(
        [&]
        {
            accion();
            return 0;
        });
}
