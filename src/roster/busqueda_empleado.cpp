#include "roster/busqueda_empleado.h"

#include "base/db/conexion.h"
#include "core/cuit.h"

#include <string>

std::vector<EmpleadoHallado> buscarEmpleados(Conexion& conexion, const ClaveDDJJ& clave, const QString& cuil,
                                             const QString& nombre, FiltroAfiliado afiliado)
{
    std::string sql = "SELECT Cuil, AyN, ART101A FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?";
    std::vector<Valor> valores{Valor(clave.cuit), Valor(clave.periodo), Valor(clave.secuencia)};
    if (cuil != cuitVacio)
    {
        sql += " AND Cuil = ?";
        valores.emplace_back(cuil);
    }
    if (!nombre.isEmpty())
    {
        sql += " AND AyN LIKE ?";
        valores.emplace_back(QLatin1Char('%') + nombre + QLatin1Char('%'));
    }
    if (afiliado != FiltroAfiliado::Todos)
    {
        sql += afiliado == FiltroAfiliado::Si ? " AND ART101A <> 0" : " AND ART101A = 0";
    }
    sql += nombre.isEmpty() ? " ORDER BY AyN" : " ORDER BY Cuil";
    return conexion.preparar(sql).listaCon(
        valores,
        [](const Fila& fila) {
            return EmpleadoHallado{fila.texto("Cuil"), fila.texto("AyN"), fila.enteroONulo("ART101A") != qint64{0}};
        });
}
