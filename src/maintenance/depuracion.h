#pragma once

#include <QDate>
#include <QString>
#include <vector>

class Conexion;

/// The months in which a company has declarations, newest first, each once whatever its sequences.
[[nodiscard]] std::vector<QDate> periodosDeEmpresa(Conexion& conexion, const QString& cuit);

/// Deletes all declarations of a company up to a month, that one included, with their rosters, in one transaction.
/// Payments and dependants stay. An invalid date matches nothing. Throws YaNoEsta, with nothing deleted, when the
/// company is gone or one of the months to be deleted that were `vistos` (as periodosDeEmpresa gave them) is.
void depurarHasta(Conexion& conexion, const QString& cuit, QDate periodoHasta, const std::vector<QDate>& vistos);
