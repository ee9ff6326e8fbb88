#pragma once

#include "ui/shell/pantalla.h"

#include <memory>

namespace Ui
{
class BuscarRubro;
}

/// Finds a trade from a code on or by part of its name. Opens empty and with no answer; a row chosen goes into
/// Rutinas::TextoDevuelto.
class BuscarRubro : public Pantalla
{
    Q_OBJECT
public:
    explicit BuscarRubro(QWidget* padre = nullptr);
    ~BuscarRubro() override;

    void cargar() override;

private:
    void Buscar();
    bool txtCodigo_Validate();
    void txtNombre_KeyUp();
    void vsGrilla_Click(int columna, int fila);

    std::unique_ptr<Ui::BuscarRubro> ui;
};
