#include "companies/screens/preguntar_cambios.h"

#include "companies/cambios.h"
#include "ui/doors/mensajes.h"

bool guardarPreguntando(const std::function<void(bool reemplaza)>& guardar)
{
    try
    {
        guardar(false);
        return true;
    }
    catch (const CambiadoPorOtro& cambio)
    {
        if (!Preguntar(cambio.descripcion()))
        {
            return false;
        }
    }
    guardar(true);
    return true;
}
