#pragma once

#include "slips/pagos.h"

#include <functional>

class Grilla;

/// The list of the payments of acts and the one chosen in it, the yellow one. A payment that is gone by now throws
/// YaNoEsta, after the list was read anew.
class ListaDePagos
{
public:
    /// `leer` gives the payments of the company and the fund on the screen. The grid lives longer than this.
    ListaDePagos(Grilla* grilla, std::function<std::vector<PagoDeActa>()> leer);

    /// Reads the list; none is chosen then.
    void cargar();
    /// Chooses the payment of a row, and gives what is stored of it.
    [[nodiscard]] PagoGuardado elegir(int fila);
    [[nodiscard]] bool hayElegido() const { return m_elegido != 0; }
    /// Deletes the one chosen. Its row stays until the list is read.
    void eliminarElegido();

private:
    Grilla* m_grilla;
    std::function<std::vector<PagoDeActa>()> m_leer;
    qint64 m_elegido = 0; ///< PAGOS.Pago; 0 for none
};
