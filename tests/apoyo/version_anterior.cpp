#include "apoyo/version_anterior.h"

#include "platform/data/conexion.h"

#include <stdexcept>

namespace
{
void quitarAcuerdo2(Conexion& conexion)
{
    conexion.ejecutar("DROP INDEX IF EXISTS IX_DDJJ_Empleados_Acuerdo2Nulo");
    conexion.ejecutar("ALTER TABLE DDJJ_Empleados DROP COLUMN Acuerdo2");
    conexion.ejecutar("ALTER TABLE RptEmpleados DROP COLUMN Acuerdo2");
}

void quitarAcuerdo(Conexion& conexion)
{
    conexion.ejecutar("DROP INDEX IF EXISTS IX_DDJJ_Empleados_AcuerdoNulo");
    conexion.ejecutar("ALTER TABLE DDJJ_Empleados DROP COLUMN Acuerdo");
    conexion.ejecutar("ALTER TABLE RptEmpleados DROP COLUMN Acuerdo");
}
} // namespace

void volverAVersion(const QString& ruta, const QString& version)
{
    const bool es10 = version == QLatin1String("1.0");
    const bool es11 = version == QLatin1String("1.1");
    if (!es10 && !es11 && version != QLatin1String("1.2"))
    {
        throw std::invalid_argument("no such version");
    }
    Conexion conexion;
    conexion.abrir(ruta);
    if (es10 || es11)
    {
        quitarAcuerdo2(conexion);
    }
    if (es10)
    {
        quitarAcuerdo(conexion);
    }
    conexion.ejecutar("UPDATE Parametros SET Version = ?, EMail = ?", version, buzonAnterior);
    conexion.cerrar();
}
