#pragma once

#include "ui/grid/grilla.h"

// Amounts pasted from a spreadsheet into a grid. No widget here.

/// The grid as a paste sees it; rows and columns counted from 1.
struct DestinoDePegado
{
    std::vector<ColumnaDeGrilla> columnas; ///< those hidden included
    int columnaClave = 1;                  ///< the C.U.I.L. of each row
    QStringList claves;                    ///< its text, by row
    int columnaActual = 0;
    int filaActual = 0; ///< 0 when there is none
};

struct CeldaAPegar
{
    int columna;
    int fila;
    QVariant valor; ///< checked as a typed one
};

struct Pegado
{
    std::vector<CeldaAPegar> celdas; ///< one value for a cell at most
    QString encabezado;              ///< the first row, when it was taken for headings and left out
    QStringList rechazos;            ///< the first ten of what was refused, and why
    qsizetype rechazados = 0;
    QString error; ///< why nothing of it could be looked at
};

/// What the text of the clipboard puts where: a column of amounts goes down from the current cell, as many columns as
/// the grid has amounts go down from the current row, and rows that begin with a C.U.I.L. go wherever it stands, to
/// the columns that their headings name, else to all of them, else to the current one. The grid's own copy goes back
/// by its C.U.I.L. A column that is empty at the right counts for none, and one of two that is not of amounts stops the
/// paste. A first row of words that names no column is headings where rows begin with a C.U.I.L.; where they
/// go by their order it stops the paste, for it may be somebody without an amount. An empty cell leaves what is there.
/// What is read in two ways is refused: "1,234" everywhere, "1.234" where other amounts have a dot for their decimals.
[[nodiscard]] Pegado prepararPegado(const QString& texto, const DestinoDePegado& destino);
/// How many went in, and what did not and why.
[[nodiscard]] QString textoDePegado(const Pegado& pegado);
