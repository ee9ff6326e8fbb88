#include "registro.h"

#include "companies/screens/buscar_empresa.h"
#include "companies/screens/buscar_rubro.h"
#include "companies/screens/empresas.h"
#include "declarations/screens/buscar_ddjj.h"
#include "declarations/screens/ddjj.h"
#include "declarations/screens/mes_de_empresas_pantalla.h"
#include "exchange/screens/importar.h"
#include "maintenance/screens/acercade.h"
#include "maintenance/screens/backup.h"
#include "maintenance/screens/depurar.h"
#include "maintenance/screens/version.h"
#include "roster/screens/buscar_empleado.h"
#include "roster/screens/buscar_sucursal.h"
#include "roster/screens/ddjj_sueldos.h"
#include "roster/screens/empleados.h"
#include "slips/screens/boletas.h"
#include "ui/shell/navegacion.h"

#include <QAction>
#include <QComboBox>

namespace
{
/// The month of all companies is opened from the list of them as well.
DDJJ* conElMes(DDJJ* pantalla)
{
    auto* lista = pantalla->findChild<QComboBox*>(QStringLiteral("cmbEmpresa"));
    auto* mes = new QAction(QStringLiteral("El mes de las empresas\tF9"), lista);
    QObject::connect(mes, &QAction::triggered, lista,
                     [] { protegido([] { Navegacion::instancia().mostrar(QStringLiteral("MesDeEmpresas")); }); });
    lista->addAction(mes);
    lista->setContextMenuPolicy(Qt::ActionsContextMenu);
    return pantalla;
}
} // namespace

void registrarPantallas()
{
    auto& navegacion = Navegacion::instancia();
    navegacion.registrar(QStringLiteral("Empresas"), [] { return new Empresas; });
    navegacion.registrar(QStringLiteral("BuscarEmpresa"), [] { return new BuscarEmpresa; });
    navegacion.registrar(QStringLiteral("BuscarRubro"), [] { return new BuscarRubro; });
    navegacion.registrar(QStringLiteral("DDJJ"), [] { return conElMes(new DDJJ); });
    navegacion.registrar(QStringLiteral("MesDeEmpresas"), [] { return new MesDeEmpresas; });
    navegacion.registrar(QStringLiteral("Importar"), [] { return new Importar; });
    navegacion.registrar(QStringLiteral("BuscarDDJJ"), [] { return new BuscarDDJJ; });
    navegacion.registrar(QStringLiteral("Empleados"), [] { return new Empleados; });
    navegacion.registrar(QStringLiteral("DDJJ_Sueldos"), [] { return new DDJJ_Sueldos; });
    navegacion.registrar(QStringLiteral("BuscarEmpleado"), [] { return new BuscarEmpleado; });
    navegacion.registrar(QStringLiteral("BuscarSucursal"), [] { return new BuscarSucursal; });
    navegacion.registrar(QStringLiteral("Backup"), [] { return new Backup; });
    navegacion.registrar(QStringLiteral("Depurar"), [] { return new Depurar; });
    navegacion.registrar(QStringLiteral("Acercade"), [] { return new Acercade; });
    navegacion.registrar(QStringLiteral("Version"), [] { return new Version; });
    navegacion.registrar(QStringLiteral("Boletas"), [] { return new Boletas; });
}
