#include "declarations/mes_de_empresas.h"

#include "base/db/conexion.h"

#include <QStringList>
#include <algorithm>

namespace
{
// Each part goes down the key of its table, company by company.
constexpr std::string_view consultaDelMes =
    "SELECT CUIT, Razon, UltimoPeriodo, UltimaSecuencia, Secuencia, "
    "(SELECT count(*) FROM DDJJ_Empleados AS N WHERE N.Cuit = E.CUIT AND N.Periodo = ?1 "
    "AND N.Secuencia = E.Secuencia) AS Personas, "
    "(SELECT coalesce(sum(N.ART100), 0) + coalesce(sum(N.ART101A), 0) + coalesce(sum(N.ART101B), 0) "
    "FROM DDJJ_Empleados AS N WHERE N.Cuit = E.CUIT AND N.Periodo = ?1 AND N.Secuencia = E.Secuencia) AS ADepositar, "
    "(SELECT count(*) FROM PAGOS AS P WHERE P.Cuit = E.CUIT AND P.Periodo = ?1 AND P.Tipo = 0) AS Aportes, "
    "(SELECT count(*) FROM PAGOS AS P WHERE P.Cuit = E.CUIT AND P.Periodo = ?1 AND P.Tipo = 1) AS Intereses "
    "FROM (SELECT CUIT, Razon, "
    "(SELECT D.Periodo FROM DDJJ AS D WHERE D.Cuit = Empresas.CUIT ORDER BY D.Periodo DESC LIMIT 1) AS UltimoPeriodo, "
    "(SELECT D.Secuencia FROM DDJJ AS D WHERE D.Cuit = Empresas.CUIT ORDER BY D.Periodo DESC, D.Secuencia DESC "
    "LIMIT 1) AS UltimaSecuencia, "
    "(SELECT max(D.Secuencia) FROM DDJJ AS D WHERE D.Cuit = Empresas.CUIT AND D.Periodo = ?1) AS Secuencia "
    "FROM Empresas) AS E ORDER BY Razon, CUIT";

MesDeEmpresa leerMes(const Fila& fila)
{
    MesDeEmpresa mes;
    mes.cuit = fila.texto("CUIT");
    mes.razon = fila.texto("Razon");
    if (!fila.esNulo("UltimoPeriodo"))
    {
        mes.ultima = {mes.cuit, fila.fecha("UltimoPeriodo"), static_cast<int>(fila.entero("UltimaSecuencia"))};
    }
    if (!fila.esNulo("Secuencia"))
    {
        mes.secuencia = static_cast<int>(fila.entero("Secuencia"));
    }
    mes.personas = fila.entero("Personas");
    mes.aDepositar = fila.moneda("ADepositar");
    mes.aportes = fila.entero("Aportes");
    mes.intereses = fila.entero("Intereses");
    return mes;
}
} // namespace

std::vector<MesDeEmpresa> mesDeEmpresas(Conexion& conexion, QDate periodo)
{
    return conexion.lista(consultaDelMes, leerMes, periodo);
}

std::optional<QDate> ultimoMesDeclarado(Conexion& conexion)
{
    // The latest of each company, so that the declarations are not all read.
    const auto mes = conexion.una(
        "SELECT max((SELECT max(Periodo) FROM DDJJ WHERE DDJJ.Cuit = Empresas.CUIT)) AS Periodo FROM Empresas",
        [](const Fila& fila) { return fila.fecha("Periodo"); });
    return mes && mes->isValid() ? mes : std::nullopt;
}

QString textoDeBoletas(const MesDeEmpresa& mes)
{
    QStringList partes;
    const auto agregar = [&](qint64 cuantas, const QString& clase)
    {
        if (cuantas > 0)
        {
            partes.append(QString::number(cuantas) + clase);
        }
    };
    agregar(mes.aportes, QStringLiteral(" de aportes"));
    agregar(mes.intereses, QStringLiteral(" de intereses"));
    return partes.isEmpty() ? QStringLiteral("Ninguna") : partes.join(QStringLiteral(", "));
}

QString resumenDelMes(const std::vector<MesDeEmpresa>& meses)
{
    const auto cuantas = [&](auto cuales)
    { return QString::number(std::count_if(meses.begin(), meses.end(), cuales)); };
    const auto declarada = [](const MesDeEmpresa& mes) { return mes.secuencia.has_value(); };
    const auto sinBoleta = [](const MesDeEmpresa& mes) { return mes.secuencia.has_value() && mes.aportes == 0; };
    return QStringLiteral("%1 %2, %3 con declaración del mes, %4 sin boleta")
        .arg(QString::number(meses.size()), meses.size() == 1 ? QStringLiteral("empresa") : QStringLiteral("empresas"),
             cuantas(declarada), cuantas(sinBoleta));
}
