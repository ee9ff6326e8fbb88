#pragma once

#include "ui/shell/pantalla.h"

#include <memory>

namespace Ui
{
class BuscarEmpleado;
}

/// Finds an employee of the current declaration. A double click puts his CUIL into Rutinas::CuilElegido; closed any
/// other way it leaves that as it was.
class BuscarEmpleado : public Pantalla
{
    Q_OBJECT
public:
    explicit BuscarEmpleado(QWidget* padre = nullptr);
    ~BuscarEmpleado() override;

    void cargar() override;

private:
    void CargarGrilla();
    bool MaskCuil_Validate();
    void vsGrilla_DblClick(int columna, int fila);

    std::unique_ptr<Ui::BuscarEmpleado> ui;
};
