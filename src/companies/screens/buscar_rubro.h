#pragma once

#include "core/screens/buscador.h"

#include <memory>

namespace Ui
{
class BuscarRubro;
}

/// Finds a trade from a code on or by part of its name. Opens empty and with no answer; a row chosen goes into
/// Rutinas::TextoDevuelto.
class BuscarRubro : public Buscador
{
    Q_OBJECT
public:
    explicit BuscarRubro(QWidget* padre = nullptr);
    ~BuscarRubro() override;

    void cargar() override;

private:
    void Buscar() override;
    void elegir(int fila) override;

    std::unique_ptr<Ui::BuscarRubro> ui;
};
