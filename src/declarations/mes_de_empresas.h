#pragma once

#include "base/numbers/moneda.h"
#include "core/clave_ddjj.h"

#include <QDate>
#include <QString>
#include <optional>
#include <vector>

class Conexion;

/// What a company has of one month.
struct MesDeEmpresa
{
    QString cuit; ///< masked form
    QString razon;
    std::optional<ClaveDDJJ> ultima; ///< its last declaration, of whatever month
    std::optional<int> secuencia;    ///< of its last declaration of the month; nothing when it has none
    qint64 personas = 0;             ///< in that one
    Moneda aDepositar;               ///< their contributions
    qint64 aportes = 0;              ///< slips of the month, whatever their sequence; acts belong to no month
    qint64 intereses = 0;
};

/// Every company, by Razon. `periodo` is the first of a month. One query, which reads the rosters of that month alone.
[[nodiscard]] std::vector<MesDeEmpresa> mesDeEmpresas(Conexion& conexion, QDate periodo);

/// The latest month that any company has declared; nothing when none has.
[[nodiscard]] std::optional<QDate> ultimoMesDeclarado(Conexion& conexion);

/// "1 de aportes, 2 de intereses", "Ninguna".
[[nodiscard]] QString textoDeBoletas(const MesDeEmpresa& mes);

/// "12 empresas, 8 con declaración del mes, 3 sin boleta": those without a slip of contributions among the 8.
[[nodiscard]] QString resumenDelMes(const std::vector<MesDeEmpresa>& meses);
