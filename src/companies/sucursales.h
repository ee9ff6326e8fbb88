#pragma once

#include "core/vigencia.h"

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

/// A branch that is no longer in the database.
class SucursalEliminada : public YaNoEsta
{
public:
    explicit SucursalEliminada(const FilaSucursal& fila);
};

/// Throws SucursalEliminada when a row stands for a branch that was deleted meanwhile.
void exigirSucursales(Conexion& conexion, const QString& cuit, const std::vector<FilaSucursal>& filas);

/// Makes the company's branches those of the rows, inside the caller's transaction: known ones are updated and keep
/// their ID, new ones are inserted and come back with theirs, and those that have left the rows are deleted. Rows blank
/// but for their ID are passed over and lose it. Gives the text of the refusal when a row is incomplete or when a
/// branch that has left has employees: the caller rolls back. Throws ErrorDeEjecucion 13 for a row without its number.
[[nodiscard]] std::optional<QString> guardarSucursales(Conexion& conexion, const QString& cuit,
                                                       std::vector<FilaSucursal>& filas);
