#pragma once

#include "ui/shell/pantalla.h"

#include <QDate>
#include <memory>
#include <vector>

class EleccionEmpresa;
namespace Ui
{
class Depurar;
}

/// Deletes all declarations of a company up to a month.
class Depurar : public Pantalla
{
    Q_OBJECT
public:
    explicit Depurar(QWidget* padre = nullptr);
    ~Depurar() override;

    void cargar() override;
    [[nodiscard]] QString empresaEnCurso() const override;

private:
    void CargarPeriodos();
    void elegirFila(int fila);
    void cmdEliminar_Click();
    void limpiarEleccion();
    void mostrarAlcance();

    std::unique_ptr<Ui::Depurar> ui;
    EleccionEmpresa* m_eleccion;
    std::vector<QDate> m_periodos; ///< the rows of vsDDJJ, in their order
    QDate PeriodoHasta;            ///< the limit; the fields only show it
};
