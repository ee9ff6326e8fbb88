#pragma once

#include "companies/cambios.h"

/// What a save would replace of another desk's work: "field=before>now" for each, joined by ";", "-" for a row that is
/// not there; "stored" when it went through.
template <class Guardar>
std::string cambiosAl(Guardar guardar)
{
    try
    {
        static_cast<void>(guardar());
        return "stored";
    }
    catch (const CambiadoPorOtro& cambiado)
    {
        QStringList textos;
        for (const Cambio& uno : cambiado.cambios())
        {
            textos += uno.campo + '=' + uno.antes.value_or("-") + '>' + uno.ahora.value_or("-");
        }
        return textos.join(';').toStdString();
    }
}
