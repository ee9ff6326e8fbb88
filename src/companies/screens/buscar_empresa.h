#pragma once

#include "ui/shell/pantalla.h"

#include <memory>

namespace Ui
{
class BuscarEmpresa;
}

/// Finds a company by CUIT or part of its name. A row chosen goes into Rutinas::CuitActual; closed without a choice it
/// leaves that as it was.
class BuscarEmpresa : public Pantalla
{
    Q_OBJECT
public:
    explicit BuscarEmpresa(QWidget* padre = nullptr);
    ~BuscarEmpresa() override;

    void cargar() override;

private:
    void Buscar();
    bool MaskCuit_Validate();
    void txtNombre_KeyUp();
    void vsGrilla_Click(int columna, int fila);

    std::unique_ptr<Ui::BuscarEmpresa> ui;
};
