#pragma once

#include "base/aviso.h"
#include "core/clave_ddjj.h"

#include <QDate>
#include <QString>
#include <optional>

class Conexion;

// The life of a declaration: proposed, checked, numbered and stored, deleted.

/// The month that follows `ultimo`, the latest one declared; nothing when none was, nor past the year 9999.
[[nodiscard]] std::optional<QDate> proponerPeriodo(std::optional<QDate> ultimo);

enum class CampoDePeriodo
{
    Anio,
    Mes,
};

/// Why a typed period is refused, and the field to go back to.
struct RechazoDePeriodo
{
    QString texto;
    bool grave = false; ///< told as an exclamation; otherwise as information
    CampoDePeriodo campo = CampoDePeriodo::Anio;
};

/// Checks year and month as typed (digits only), in the order of the screen; nothing when they can be saved.
[[nodiscard]] std::optional<RechazoDePeriodo> comprobarPeriodo(const QString& anio, const QString& mes);

/// Stores a declaration of the month under the sequence that follows the highest one of its company and month, 0 when
/// there is none, and gives that sequence. The number is read and used in one transaction, so that two desks never take
/// the same one. People left under that sequence without a declaration go: a new one is empty. Throws YaNoEsta when the
/// company is gone.
int crearDeclaracion(Conexion& conexion, const QString& cuit, QDate periodo, QDate hoy);

/// Deletes a declaration and its roster, both or none. Payments and family members stay. Throws YaNoEsta when
/// it is gone. What `aviso` throws leaves everything as it was.
void eliminarDeclaracion(Conexion& conexion, const ClaveDDJJ& clave, const Aviso& aviso = {});
