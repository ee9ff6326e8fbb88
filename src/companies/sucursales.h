#pragma once

#include <QString>
#include <optional>
#include <vector>

class Conexion;

/// One row of the list of branches as the screen holds it.
struct FilaSucursal
{
    qint64 id = 0; ///< 0 for a new branch; the number by which employees refer to it
    QString sucursal = {};
    QString domicilio = {};
    std::optional<qint64> numero = {}; ///< an empty cell holds nothing
    QString localidad = {};
    QString codPos = {};
    QString telefono = {};

    friend bool operator==(const FilaSucursal&, const FilaSucursal&) = default;
};

/// Branches of a company by code, town and ID.
[[nodiscard]] std::vector<FilaSucursal> cargarSucursales(Conexion& conexion, const QString& cuit);

/// Makes the company's branches those of the rows, inside the caller's transaction: known ones are updated and keep
/// their ID, new ones are inserted, and those that have left the rows are deleted. Rows blank but for their ID are
/// passed over. Gives the text of the refusal when a row is incomplete, when a branch that has left has employees, or
/// when a branch was deleted at another desk meanwhile: the caller rolls back.
/// Throws ErrorDeEjecucion 13 for a row without its number.
[[nodiscard]] std::optional<QString> guardarSucursales(Conexion& conexion, const QString& cuit,
                                                       const std::vector<FilaSucursal>& filas);
