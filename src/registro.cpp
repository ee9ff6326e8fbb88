#include "registro.h"

#include "declarations/screens/ddjj.h"
#include "platform/screens/navegacion.h"
#include "slips/screens/boletas.h"

void registrarPantallas()
{
    auto& navegacion = Navegacion::instancia();
    navegacion.registrar(QStringLiteral("DDJJ"), [] { return new DDJJ; });
    navegacion.registrar(QStringLiteral("Boletas"), [] { return new Boletas; });
}
