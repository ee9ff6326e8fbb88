#include "maintenance/depuracion.h"

#include "base/db/conexion.h"
#include "core/vigencia.h"

namespace
{
/// Before every declaration: the limit when no month was picked.
const QDate fechaCero(1899, 12, 30);

void exigirPeriodo(Conexion& conexion, const QString& cuit, QDate periodo)
{
    if (!conexion.hay("SELECT Cuit FROM DDJJ WHERE CUIT = ? AND Periodo = ?", cuit, periodo))
    {
        throw YaNoEsta(QStringLiteral("Las Declaraciones Juradas del Periodo %1 ya no se encuentran en la Base: fueron "
                                      "eliminadas desde otra ventana u otro puesto.  No se ha eliminado ningún dato.")
                           .arg(periodo.toString(u"yyyy/MM")));
    }
}
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

void depurarHasta(Conexion& conexion, const QString& cuit, QDate periodoHasta, const std::vector<QDate>& vistos)
{
    const QDate limite = periodoHasta.isValid() ? periodoHasta : fechaCero;
    Transaccion transaccion(conexion);
    exigirEmpresa(conexion, cuit);
    for (const QDate periodo : vistos)
    {
        if (periodo <= limite)
        {
            exigirPeriodo(conexion, cuit, periodo);
        }
    }
    conexion.ejecutar("DELETE FROM DDJJ_Empleados WHERE CUIT = ? AND Periodo <= ?", cuit, limite);
    conexion.ejecutar("DELETE FROM DDJJ WHERE CUIT = ? AND Periodo <= ?", cuit, limite);
    transaccion.confirmar();
}
