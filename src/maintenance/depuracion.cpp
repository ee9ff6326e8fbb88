#include "maintenance/depuracion.h"

#include "platform/data/conexion.h"

namespace
{
/// Before every declaration: the limit when no month was picked.
const QDate fechaCero(1899, 12, 30);
} // namespace

std::vector<QDate> periodosDeEmpresa(Conexion& conexion, const QString& cuit)
{
    std::vector<QDate> periodos;
    for (const Fila& fila :
         conexion.consultar("SELECT Periodo FROM DDJJ WHERE CUIT = ? GROUP BY Periodo ORDER BY Periodo DESC", cuit))
    {
        periodos.push_back(fila.fecha("Periodo"));
    }
    return periodos;
}

void depurarHasta(Conexion& conexion, const QString& cuit, QDate periodoHasta)
{
    const QDate limite = periodoHasta.isValid() ? periodoHasta : fechaCero;
    Transaccion transaccion(conexion);
    conexion.ejecutar("DELETE FROM DDJJ_Empleados WHERE CUIT = ? AND Periodo <= ?", cuit, limite);
    conexion.ejecutar("DELETE FROM DDJJ WHERE CUIT = ? AND Periodo <= ?", cuit, limite);
    transaccion.confirmar();
}
