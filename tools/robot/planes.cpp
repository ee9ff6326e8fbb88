#include "planes.h"

#include "base.h"
#include "falla.h"

#include <QRegularExpression>
#include <set>
#include <sqlite3.h>

namespace
{
std::set<std::string> anotadas;

int anotar(unsigned, void*, void* sentencia, void*)
{
    anotadas.insert(sqlite3_sql(static_cast<sqlite3_stmt*>(sentencia)));
    return 0;
}

int seguir(sqlite3* base, char**, const sqlite3_api_routines*)
{
    return sqlite3_trace_v2(base, SQLITE_TRACE_STMT, anotar, nullptr);
}

/// What looks for nulls at the start reads an index that holds nothing else; an upgrade writes every row.
bool esDelInicio(const QString& sql, const QString& plan)
{
    return plan.contains("Nulo") || sql.startsWith("UPDATE DDJJ_Empleados SET Acuerdo");
}
} // namespace

void anotarConsultas()
{
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(seguir));
}

QString consultasQueLeenTodo(const QString& ruta)
{
    static const QRegularExpression orden("^(SELECT|INSERT|UPDATE|DELETE|WITH)\\b");
    // A search by ANY value of an index's first column reads a piece of it for each company.
    static const QRegularExpression recorre("SCAN (DDJJ|DDJJ_Empleados|Empleados_Familiares|Empresas_Sucursales|"
                                            "Empresas_Responsables|PAGOS|RptEmpleados)\\b|\\bANY\\(");
    QString halladas;
    for (const std::string& texto : anotadas)
    {
        const QString sql = QString::fromStdString(texto);
        try
        {
            const QString plan = orden.match(sql).hasMatch() ? consultarBase(ruta, "EXPLAIN QUERY PLAN " + sql) : "";
            if (recorre.match(plan).hasMatch() && !esDelInicio(sql, plan))
            {
                halladas += QString("lee toda una tabla: %1\n    %2\n").arg(sql, plan);
            }
        }
        catch (const Falla&)
        {
            continue; // about a table of an earlier version
        }
    }
    return halladas;
}
