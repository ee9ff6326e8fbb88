#pragma once

#include <QDate>
#include <QString>
#include <vector>

class Conexion;

/// The months in which a company has declarations, newest first, each once whatever its sequences.
[[nodiscard]] std::vector<QDate> periodosDeEmpresa(Conexion& conexion, const QString& cuit);

/// Deletes all declarations of a company up to a month, that one included, with their rosters, in one transaction.
/// Payments and dependants stay. An invalid date matches nothing.
void depurarHasta(Conexion& conexion, const QString& cuit, QDate periodoHasta);
