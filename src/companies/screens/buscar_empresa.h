#pragma once

#include "core/screens/buscador.h"

#include <memory>

namespace Ui
{
class BuscarEmpresa;
}

/// Finds a company by CUIT or part of its name. A row chosen goes into Rutinas::CuitActual; closed without a choice it
/// leaves that as it was.
class BuscarEmpresa : public Buscador
{
    Q_OBJECT
public:
    explicit BuscarEmpresa(QWidget* padre = nullptr);
    ~BuscarEmpresa() override;

    void cargar() override;

private:
    void Buscar() override;
    void elegir(int fila) override;

    std::unique_ptr<Ui::BuscarEmpresa> ui;
};
