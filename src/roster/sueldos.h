#pragma once

#include "base/aviso.h"
#include "base/numbers/moneda.h"
#include "core/clave_ddjj.h"

#include <QString>
#include <vector>

class Conexion;

/// One row of the wage grid; both amounts with two decimals.
struct FilaSueldo
{
    QString cuil;
    QString ayn;
    QString categoria;
    Moneda sueldo;  ///< Imponible
    Moneda acuerdo; ///< both agreement sums, through a 32-bit float
};

/// The roster of a declaration by CUIL.
[[nodiscard]] std::vector<FilaSueldo> cargarSueldos(Conexion& conexion, const ClaveDDJJ& clave);

/// Writes the rows whose amounts differ, to two decimals, from what the database shows: wage, agreement sum and the
/// contributions by the bulk rule, each number as the text of a 32-bit float. Sueldo is left as it stands. One
/// transaction. `filas` comes back with the written rows as they were saved; gives their number.
/// `leidas` are the same rows as they were read; empty: whatever is stored now is replaced.
/// Throws with nothing written: YaNoEsta when the declaration or an employee was deleted meanwhile, CambiadoPorOtro
/// when an amount is no longer stored as it was read, ErrorDeEjecucion 94 for Null hours, and what
/// `aviso`, which is told the rows done and in all now and then, throws.
[[nodiscard]] int actualizarSueldos(Conexion& conexion, const ClaveDDJJ& clave, std::vector<FilaSueldo>& filas,
                                    const std::vector<FilaSueldo>& leidas, const Aviso& aviso = {});

/// "Se ha realizado 1 Actualización.", "Se han realizado 3 Actualizaciones."
[[nodiscard]] QString textoActualizaciones(int cantidad);
