#pragma once

#include "core/clave_ddjj.h"
#include "roster/totales_de_sueldos.h"
#include "ui/shell/pantalla.h"

#include <memory>
#include <vector>

namespace Ui
{
class DDJJ_Sueldos;
}

/// Wages and agreement sums of a whole roster in one grid, typed or pasted. Saving computes the contributions of each
/// changed row by the bulk rule.
class DDJJ_Sueldos : public Pantalla
{
    Q_OBJECT
public:
    explicit DDJJ_Sueldos(QWidget* padre = nullptr);
    ~DDJJ_Sueldos() override;

    void cargar() override;
    [[nodiscard]] bool dejaLoTipeado() override;

protected:
    /// Escape gives up a cell and no more: a second one must not close the screen over what was typed.
    void keyPressEvent(QKeyEvent* evento) override;

private:
    static constexpr int columnaSueldo = 4;
    static constexpr int columnaAcuerdo = 5;

    void CargarSueldos();
    void cmdGrabar_Click();
    void cmdCancelar_Click();
    void cmdSalir_Click();
    void grabar();
    [[nodiscard]] std::vector<FilaSueldo> tipeadas() const;
    void quitarEliminados();
    void contar();
    void vsSueldos_Editada(int columna, int fila);

    void armarBusqueda();
    /// Opens the search of people, or goes on with it where it is open already.
    void irABuscar(bool sigue);
    void cerrarBusqueda();
    /// To the first row from `fila` on, and round to the one before it, that the search fits.
    void buscarDesde(int fila);

    std::unique_ptr<Ui::DDJJ_Sueldos> ui;
    ClaveDDJJ m_clave;
    std::vector<FilaSueldo> m_leidas; ///< the rows of the grid as they were read or saved last
    std::vector<QString> m_buscables; ///< what a search compares with, by row
    int m_filaAntes = 0;              ///< where the search began
    TotalesDeSueldos m_totales;
    bool m_porMostrar = false; ///< the totals shown are old
};
