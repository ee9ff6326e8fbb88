#include "registro.h"

#include "declarations/screens/ddjj.h"
#include "platform/screens/navegacion.h"

void registrarPantallas()
{
    auto& navegacion = Navegacion::instancia();
    navegacion.registrar(QStringLiteral("DDJJ"), [] { return new DDJJ; });
}
