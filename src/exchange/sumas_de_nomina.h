#pragma once

#include "base/numbers/moneda.h"
#include "core/clave_ddjj.h"

#include <initializer_list>

class Conexion;

/// What the totals of a declaration add up, followed while its roster grows: past the range of one of them the
/// declaration could not be shown any more.
class SumasDeNomina
{
public:
    /// Begins with the roster as it stands. Throws ErrorDeEjecucion 6 when that is out of range.
    SumasDeNomina(Conexion& conexion, const ClaveDDJJ& clave);
    /// One more employee, with what counts of him: taxable pay, agreement sums and contributions. Throws FallaDeCampo 6
    /// for the first field that goes out of range.
    void agregar(qint64 familiares, std::initializer_list<Moneda> importes);

private:
    qint64 m_empleados = 0;
    qint64 m_familiares = 0;
    Moneda m_importes; ///< all of them, without their signs: no order of adding them can leave the range
};
