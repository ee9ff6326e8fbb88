#include "mesa_empresas.h"

#include "companies/screens/buscar_empresa.h"
#include "companies/screens/buscar_rubro.h"
#include "companies/screens/empresas.h"
#include "platform/screens/navegacion.h"

MesaEmpresas::MesaEmpresas()
{
    auto& navegacion = Navegacion::instancia();
    navegacion.registrar(QStringLiteral("Empresas"), [] { return new Empresas; });
    navegacion.registrar(QStringLiteral("BuscarEmpresa"), [] { return new BuscarEmpresa; });
    navegacion.registrar(QStringLiteral("BuscarRubro"), [] { return new BuscarRubro; });
}
