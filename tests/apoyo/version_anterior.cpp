#include "apoyo/version_anterior.h"

#include "base/db/conexion.h"

void volverAVersion(const QString& ruta, const QString& version)
{
    Conexion conexion;
    conexion.abrir(ruta);
    for (const auto& [desde, columna] : {std::pair("1.2", "Acuerdo2"), std::pair("1.1", "Acuerdo")})
    {
        if (version < QLatin1String(desde))
        {
            conexion.ejecutar(std::string("DROP INDEX IF EXISTS IX_DDJJ_Empleados_") + columna + "Nulo");
            conexion.ejecutar(std::string("ALTER TABLE DDJJ_Empleados DROP COLUMN ") + columna);
            conexion.ejecutar(std::string("ALTER TABLE RptEmpleados DROP COLUMN ") + columna);
        }
    }
    conexion.ejecutar("UPDATE Parametros SET Version = ?, EMail = 'anterior@example.org'", version);
}
