#pragma once

#include "ui/grid/grilla_celdas.h"

/// The sign before the decimals in amounts that come from a spreadsheet, which is the same in all of them: those whose
/// form tells it decide how the others are read. No widget here.
class MarcaDeDecimales
{
public:
    /// An amount of those that come.
    void mirar(const ColumnaDeGrilla& columna, const QString& texto);
    /// The value of one for a cell of this column, as if it were typed there, or why not. "$ 1.234,50" and "1.234" are
    /// read as here; "1,234.50" and "1234.5" as what they can only be. Refused is what can be read in two ways, "1.234"
    /// beside "1234.5" and "1,234" where none has a dot for its decimals, and what has more than two decimals.
    [[nodiscard]] LecturaDeCelda leer(const ColumnaDeGrilla& columna, const QString& texto) const;

private:
    bool m_comas = false;
    bool m_puntos = false;
};
