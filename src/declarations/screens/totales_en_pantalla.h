#pragma once

#include "declarations/totales_ddjj.h"

#include <array>

class QLineEdit;
namespace Ui
{
class DDJJ;
}

/// What the declaration at work comes to, in its frame on the screen DDJJ, and the two warnings below.
class TotalesEnPantalla
{
public:
    explicit TotalesEnPantalla(const Ui::DDJJ& pantalla);

    /// Names the declaration, adds it up anew and shows that; without a roster, its date alone. Throws as
    /// calcularTotales() does, and nothing but the name is shown then.
    void mostrar(const ClaveDDJJ& clave);
    void limpiar();
    /// Of the declaration shown; zero without a roster.
    [[nodiscard]] const SumasDDJJ& sumas() const { return m_sumas; }

private:
    const Ui::DDJJ& ui;
    std::array<QLineEdit*, 10> m_numeros; ///< txtCantidad and txtImporte
    SumasDDJJ m_sumas;
};
