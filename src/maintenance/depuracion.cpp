#include "maintenance/depuracion.h"

#include "base/db/conexion.h"
#include "base/db/latido.h"
#include "base/numbers/formato.h"
#include "core/vigencia.h"

#include <algorithm>
#include <string>

namespace
{
/// Before every declaration: the limit when no month was picked.
const QDate fechaCero(1899, 12, 30);

/// What goes, of both tables; its values are the company and the limit.
const std::string loQueSeVa = " WHERE CUIT = ? AND Periodo <= ?";

QDate limiteDe(QDate periodoHasta)
{
    return periodoHasta.isValid() ? periodoHasta : fechaCero;
}

/// "1 mes", "1.203 meses"
QString contados(qint64 cuantos, const QString& uno, const QString& varios)
{
    return conMiles(cuantos) + QLatin1Char(' ') + (cuantos == 1 ? uno : varios);
}

void exigirPeriodo(Conexion& conexion, const QString& cuit, QDate periodo)
{
    if (!conexion.hay("SELECT Cuit FROM DDJJ WHERE CUIT = ? AND Periodo = ?", cuit, periodo))
    {
        throw YaNoEsta(QStringLiteral("Las Declaraciones Juradas del Periodo %1 ya no se encuentran en la Base: fueron "
                                      "eliminadas desde otra ventana u otro puesto.  No se ha eliminado ningún dato.")
                           .arg(periodo.toString(u"yyyy/MM")));
    }
}

/// From the oldest month on, so that it is told how many are left. Of one alone nobody knows how far it is.
void borrarNominas(Conexion& conexion, const QString& cuit, QDate limite, const Aviso& aviso)
{
    const std::string borrar = "DELETE FROM DDJJ_Empleados" + loQueSeVa;
    const std::vector<QDate> periodos = periodosDeEmpresa(conexion, cuit);
    const auto total = std::ranges::count_if(periodos, [&](QDate periodo) { return periodo <= limite; });
    qint64 hechos = 0;
    const Latido latido(conexion, [&] { aviso ? aviso(hechos, total > 1 ? total : 0) : void(); });
    const auto porMeses = [&]
    {
        for (auto periodo = periodos.crbegin(); hechos < total; ++periodo, ++hechos)
        {
            conexion.ejecutar(borrar, cuit, *periodo);
        }
        conexion.ejecutar(borrar, cuit, limite); // what has no declaration
    };
    latido.durante(porMeses);
}
} // namespace

std::vector<QDate> periodosDeEmpresa(Conexion& conexion, const QString& cuit)
{
    return conexion.lista(
        "SELECT Periodo FROM DDJJ WHERE CUIT = ? GROUP BY Periodo ORDER BY Periodo DESC",
        [](const Fila& fila) { return fila.fecha("Periodo"); }, cuit);
}

AlcanceDeDepuracion alcanceDeDepuracion(Conexion& conexion, const QString& cuit, QDate periodoHasta)
{
    const QDate limite = limiteDe(periodoHasta);
    return conexion.primera(
        "SELECT Count(*) AS Declaraciones, Count(DISTINCT Periodo) AS Meses, (SELECT Count(*) FROM DDJJ_Empleados" +
            loQueSeVa + ") AS Empleados FROM DDJJ" + loQueSeVa,
        [](const Fila& fila) {
            return AlcanceDeDepuracion{fila.entero("Declaraciones"), fila.entero("Meses"), fila.entero("Empleados")};
        },
        cuit, limite, cuit, limite);
}

QString textoDelAlcance(const AlcanceDeDepuracion& alcance, QDate periodoHasta, const QString& razon)
{
    const QString hasta = periodoHasta.toString(u"yyyy/MM");
    QString empresa = razon.simplified();
    empresa += empresa.endsWith(QLatin1Char('.')) ? QString() : QStringLiteral("."); // "S.A." ends the sentence
    if (alcance.declaraciones == 0)
    {
        return QStringLiteral("No hay declaraciones hasta %1 de %2").arg(hasta, empresa);
    }
    const QString cuales =
        contados(alcance.declaraciones, QStringLiteral("declaración"), QStringLiteral("declaraciones"));
    const QString meses = contados(alcance.meses, QStringLiteral("mes"), QStringLiteral("meses"));
    const QString gente = contados(alcance.empleados, QStringLiteral("empleado"), QStringLiteral("empleados"));
    return QStringLiteral("Se %1 %2 de %3, hasta %4, %5, de %6")
        .arg(alcance.declaraciones == 1 ? QStringLiteral("eliminará") : QStringLiteral("eliminarán"), cuales, meses,
             hasta, alcance.empleados == 0 ? QStringLiteral("sin empleados") : QStringLiteral("con ") + gente, empresa);
}

void depurarHasta(Conexion& conexion, const QString& cuit, QDate periodoHasta, const std::vector<QDate>& vistos,
                  const Aviso& aviso)
{
    const QDate limite = limiteDe(periodoHasta);
    Transaccion transaccion(conexion);
    exigirEmpresa(conexion, cuit);
    for (const QDate periodo : vistos)
    {
        if (periodo <= limite)
        {
            exigirPeriodo(conexion, cuit, periodo);
        }
    }
    borrarNominas(conexion, cuit, limite, aviso);
    conexion.ejecutar("DELETE FROM DDJJ" + loQueSeVa, cuit, limite);
    transaccion.confirmar();
}
