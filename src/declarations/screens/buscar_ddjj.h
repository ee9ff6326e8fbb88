#pragma once

#include "core/clave_ddjj.h"
#include "ui/shell/pantalla.h"

#include <memory>
#include <optional>
#include <vector>

namespace Ui
{
class BuscarDDJJ;
}

/// Picks the declaration from which a roster is copied. The public variables describe the target when it opens and,
/// once accepted, the source; cancelled they are untouched.
class BuscarDDJJ : public Pantalla
{
    Q_OBJECT
public:
    explicit BuscarDDJJ(QWidget* padre = nullptr);
    ~BuscarDDJJ() override;

    void cargar() override;
    [[nodiscard]] QString empresaEnCurso() const override;

private:
    void llenarLista();
    void mostrarAdvertencia();
    void elegirFila(int fila);
    void cmdAceptar_Click();

    std::unique_ptr<Ui::BuscarDDJJ> ui;
    std::vector<ClaveDDJJ> m_fuentes; ///< the rows of vsDDJJ, in their order
    std::optional<ClaveDDJJ> m_fuente;
};
