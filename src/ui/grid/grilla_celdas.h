#pragma once

#include "ui/grid/grilla.h"

// Values and texts of a grid's cells, by the kind of their column. No widget here.

/// As it is shown.
[[nodiscard]] QString textoDeCelda(const ColumnaDeGrilla& columna, const QVariant& valor);
/// As it stands in an editor: amounts without thousands separators.
[[nodiscard]] QString textoParaEditar(const ColumnaDeGrilla& columna, const QVariant& valor);
/// As a spreadsheet takes it: amounts without thousands separators, dates with all of their year, ticks as
/// "Sí" and "No".
[[nodiscard]] QString textoParaPlanilla(const ColumnaDeGrilla& columna, const QVariant& valor);
/// The characters that can be typed or pasted into a cell; empty: any.
[[nodiscard]] QString admitidosEnCelda(const ColumnaDeGrilla& columna);
[[nodiscard]] bool admiteEnCelda(const ColumnaDeGrilla& columna, QChar letra);
/// What is told of a sign that a cell does not admit.
[[nodiscard]] QString noEntraEnCelda(const ColumnaDeGrilla& columna, const QString& signo);
[[nodiscard]] bool celdaVacia(const QVariant& valor);

/// What a person typed into a cell: its value (invalid for an empty cell), or the message that refuses it.
struct LecturaDeCelda
{
    QVariant valor;
    QString error;
};
[[nodiscard]] LecturaDeCelda leerCelda(const ColumnaDeGrilla& columna, const QString& texto);
