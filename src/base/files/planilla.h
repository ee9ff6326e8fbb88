#pragma once

#include "base/numbers/moneda.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <variant>
#include <vector>

/// Tables as spreadsheets take and give them: cells as they are shown, with a comma for the decimals.
namespace planilla
{
using Filas = std::vector<QStringList>;

/// A cell that knows what it holds.
struct Celda
{
    QString texto = {};                                             ///< as a text file has it
    std::variant<std::monostate, qint64, Moneda, QDate> valor = {}; ///< what it is, unless a text
    bool titulo = false;                                            ///< a heading
    int columnas = 1;                                               ///< that it stretches over
};
using Tabla = std::vector<std::vector<Celda>>;
/// The texts alone. A cell over several columns is followed by empty ones.
[[nodiscard]] Filas textos(const Tabla& tabla);

/// What goes to the clipboard: a tab between cells, a line for each row. What a cell has of either becomes a blank; one
/// that begins with a quote is quoted, and formulas are made texts as in escribirCsv.
[[nodiscard]] QString tabulado(const Filas& filas);
/// The cells of what a spreadsheet has put on the clipboard. Quoted cells may hold tabs, quotes and line ends; where a
/// quote is never closed all are letters like others. A line end behind the last row begins no other.
[[nodiscard]] Filas leerTabulado(const QString& texto);

/// Writes a CSV file (RFC 4180) as Excel opens it where decimals have a comma, whole or not at all: ";" between cells,
/// UTF-8 with its mark, CR LF; a text that would be taken for a formula gets an apostrophe before it. Throws
/// ErrorDeEjecucion as Archivos::Parte and EscritorDeLineas do.
void escribirCsv(const QString& ruta, const Filas& filas);
} // namespace planilla
