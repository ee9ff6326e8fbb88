#pragma once

#include "roster/sueldos.h"

/// People, sums and changed rows of the wage grid, kept while it is typed into: a change costs its own row alone.
class TotalesDeSueldos
{
public:
    /// Anew: the rows as they were read or saved last, and as they stand now. As many of each.
    void contar(const std::vector<FilaSueldo>& leidas, const std::vector<FilaSueldo>& ahora);
    /// The row, from 0, now stands so.
    void cambiar(std::size_t fila, Moneda sueldo, Moneda acuerdo);
    /// "3 personas - Sueldo $ 1.000,00 - Acuerdo $ 0,00 - 1 modificada"; without sums that no amount can hold.
    [[nodiscard]] QString texto() const;

private:
    struct Fila
    {
        Moneda sueldo;
        Moneda acuerdo;
        Moneda sueldoLeido;
        Moneda acuerdoLeido;
        [[nodiscard]] bool modificada() const { return sueldo != sueldoLeido || acuerdo != acuerdoLeido; }
    };

    std::vector<Fila> m_filas;
    Moneda m_sueldo;
    Moneda m_acuerdo;
    qint64 m_modificadas = 0;
    bool m_desborda = false;
};
