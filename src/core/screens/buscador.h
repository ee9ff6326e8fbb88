#pragma once

#include "ui/grid/grilla.h"
#include "ui/shell/pantalla.h"

class QLineEdit;

/// A search dialog: a grid of what was found, of which a row is picked, and perhaps fields that say what to look for.
/// What each search finds comes in its own order; a click on a header sorts it.
class Buscador : public Pantalla
{
    Q_OBJECT
protected:
    using Pantalla::Pantalla;

    /// Gives the grid its columns. A row that gets `gesto` (Grilla::clic or Grilla::dobleClic) or Enter is picked.
    void armar(Grilla* grilla, std::vector<ColumnaDeGrilla> columnas, void (Grilla::*gesto)(int, int));
    /// Searches anew whenever `clave` is left and at each key let go in `nombre`.
    void buscarCon(QWidget* clave, QLineEdit* nombre);

    /// Fills the grid with what the fields ask for.
    virtual void Buscar() = 0;
    /// Hands back the row picked, from 1 on, as it stands in the grid; the dialog then closes.
    virtual void elegir(int fila) = 0;

private:
    void elegirYCerrar(int columna, int fila);
};
