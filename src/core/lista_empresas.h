#pragma once

#include <QString>
#include <QStringList>
#include <optional>

class Conexion;

/// Every company's Razon, ordered by it, one entry a company: a name that two companies share stands twice.
[[nodiscard]] QStringList razonesDeEmpresas(Conexion& conexion);
/// The Razon of a CUIT (masked form); nothing when there is no such company.
[[nodiscard]] std::optional<QString> razonDeCuit(Conexion& conexion, const QString& cuit);
/// The CUIT of the first company of exactly this Razon, capitals and accents told apart, an empty one being a null one
/// too; nothing when there is none.
[[nodiscard]] std::optional<QString> cuitDeRazon(Conexion& conexion, const QString& razon);
/// The CUIT of the only company in the file; nothing when there are none or several.
[[nodiscard]] std::optional<QString> cuitDeUnicaEmpresa(Conexion& conexion);
