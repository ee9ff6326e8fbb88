#pragma once

#include "core/screens/buscador.h"

#include <memory>

namespace Ui
{
class BuscarSucursal;
}

/// The branches of the current company. A double click puts a branch's ID into Rutinas::SucursalElegida; closed any
/// other way it leaves that as it was.
class BuscarSucursal : public Buscador
{
    Q_OBJECT
public:
    explicit BuscarSucursal(QWidget* padre = nullptr);
    ~BuscarSucursal() override;

    void cargar() override;

private:
    void Buscar() override;
    void elegir(int fila) override;

    std::unique_ptr<Ui::BuscarSucursal> ui;
};
