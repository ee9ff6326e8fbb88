#pragma once

#include "ui/grid/grilla.h"

#include <QHash>
#include <QKeySequence>

struct CeldaAPegar;

/// What goes from a grid to a spreadsheet and comes from there. Each of these is an action of the grid, and so an entry
/// of its menu.
class Grilla::Planilla
{
public:
    explicit Planilla(Grilla* grilla);

    void setPegable(int columnaClave);
    [[nodiscard]] bool pegable() const { return m_columnaClave != 0; }
    /// No paste can be undone any more.
    void olvidarPegado() { m_pegadas.clear(); }
    /// This cell is no longer of the last paste.
    void soltar(int columna, int fila) { m_pegadas.remove({columna, fila}); }
    /// The user has changed a cell by hand.
    void tipeada(int columna, int fila);

    QString nombre; ///< proposed for an exported file; without one, the end of the window's title

private:
    void agregarAccion(const QString& texto, QKeySequence::StandardKey tecla, void (Planilla::*accion)());
    void copiar();
    void exportar();
    void pegar();
    void deshacerPegado();
    [[nodiscard]] bool hayFilas() const; ///< says so where there is none
    /// Puts the values into their cells and lets the screen know of each.
    void poner(const std::vector<CeldaAPegar>& celdas);

    Grilla* m_grilla;
    int m_columnaClave = 0;                         ///< 0: nothing can be pasted
    QHash<std::pair<int, int>, QVariant> m_pegadas; ///< cells of the last paste, and what stood there before
    bool m_cambiadaAntes = false;                   ///< the changed flag before it
    bool m_tipeadoDespues = false;                  ///< something was typed since
};
