#pragma once

#include "ui/shell/pantalla.h"

#include <QDate>
#include <memory>

namespace Ui
{
class MesDeEmpresas;
}

/// The month at a glance for who serves several companies: who has declared it and who has his slip. Nothing is written
/// here; a company chosen is shown on DDJJ.
class MesDeEmpresas : public Pantalla
{
    Q_OBJECT
public:
    explicit MesDeEmpresas(QWidget* padre = nullptr);
    ~MesDeEmpresas() override;

    void cargar() override;
    void activar() override; ///< reads anew what was done on other screens meanwhile

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void CargarEmpresas(QDate periodo);
    void mostrarPeriodo();
    /// Leaving check of year and month: shows the month that they tell. False, with its box, when it is none.
    [[nodiscard]] bool tomarPeriodo(bool elAnio);
    void mover(int meses);
    void irADeclaraciones(int fila);

    std::unique_ptr<Ui::MesDeEmpresas> ui;
    QDate m_periodo;
};
