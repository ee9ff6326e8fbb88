#pragma once

#include "core/clave_ddjj.h"
#include "platform/screens/pantalla.h"

#include <memory>
#include <vector>

struct FilaSueldo;
namespace Ui
{
class DDJJ_Sueldos;
}

/// Wages and agreement sums of a whole roster in one grid. Saving computes the contributions of each changed row by
/// the bulk rule.
class DDJJ_Sueldos : public Pantalla
{
    Q_OBJECT
public:
    explicit DDJJ_Sueldos(QWidget* padre = nullptr);
    ~DDJJ_Sueldos() override;

    void cargar() override;

protected:
    /// Escape gives up a cell and no more: a second one must not close the screen over what was typed.
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void CargarSueldos();
    void vsSueldos_LeaveCell(int columna, int fila, int nuevaColumna, int nuevaFila);
    void cmdGrabar_Click();
    void cmdCancelar_Click();
    void cmdSalir_Click();
    void grabar();
    void mostrarGuardadas(const std::vector<FilaSueldo>& filas);

    std::unique_ptr<Ui::DDJJ_Sueldos> ui;
    ClaveDDJJ m_clave;
};
