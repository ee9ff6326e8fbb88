#pragma once

#include "core/screens/buscador.h"

#include <memory>

namespace Ui
{
class BuscarEmpleado;
}

/// Finds an employee of the current declaration. A double click puts his CUIL into Rutinas::CuilElegido; closed any
/// other way it leaves that as it was.
class BuscarEmpleado : public Buscador
{
    Q_OBJECT
public:
    explicit BuscarEmpleado(QWidget* padre = nullptr);
    ~BuscarEmpleado() override;

    void cargar() override;

private:
    void Buscar() override;
    void elegir(int fila) override;

    std::unique_ptr<Ui::BuscarEmpleado> ui;
};
