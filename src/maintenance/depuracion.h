#pragma once

#include "base/aviso.h"

#include <QDate>
#include <QString>
#include <vector>

class Conexion;

/// The months in which a company has declarations, newest first, each once whatever its sequences.
[[nodiscard]] std::vector<QDate> periodosDeEmpresa(Conexion& conexion, const QString& cuit);

/// How much depurarHasta would delete of a company, up to a month and with it.
struct AlcanceDeDepuracion
{
    qint64 declaraciones = 0;
    qint64 meses = 0;
    qint64 empleados = 0; ///< of all its rosters: a person counts once a declaration
};
[[nodiscard]] AlcanceDeDepuracion alcanceDeDepuracion(Conexion& conexion, const QString& cuit, QDate periodoHasta);
/// The same in one sentence of one line, which names the month and the company.
[[nodiscard]] QString textoDelAlcance(const AlcanceDeDepuracion& alcance, QDate periodoHasta, const QString& razon);

/// Deletes all declarations of a company up to a month, that one included, with their rosters, in one transaction.
/// Payments and dependants stay. An invalid date matches nothing. Throws YaNoEsta, with nothing deleted, when the
/// company is gone or one of the months to be deleted that were `vistos` (as periodosDeEmpresa gave them) is;
/// and so does what `aviso` throws.
void depurarHasta(Conexion& conexion, const QString& cuit, QDate periodoHasta, const std::vector<QDate>& vistos,
                  const Aviso& aviso = {});
