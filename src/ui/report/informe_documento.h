#pragma once

#include <QPointF>
#include <QString>
#include <memory>
#include <string>
#include <vector>

class QPainter;
class QTextDocument;

/// The laid-out pieces of text that a report's pages are made of. Measures are points, 1/72 inch.
namespace DocumentoDeInforme
{
/// What all pieces of one report share.
struct Hoja
{
    QString estilo;   ///< style sheet
    QString carpeta;  ///< where its pictures lie; nothing else is loaded
    double ancho = 0; ///< of the lines
};

/// Lays a piece of HTML out in fine units, so that glyphs stand where they will be printed, whatever the screen.
[[nodiscard]] std::unique_ptr<QTextDocument> hacer(const std::string& html, const Hoja& hoja);
[[nodiscard]] double alto(const QTextDocument& documento);
/// Paints what lies between `desde` and `hasta` of the piece, with its left upper corner at `en`.
void pintar(QPainter& pintor, const QTextDocument& documento, QPointF en, double desde, double hasta);
/// Where the rows of its first table begin, those of the head left out.
[[nodiscard]] std::vector<double> topes(const QTextDocument& documento);
/// Where the columns of its first table begin, by the cells of its head; none without a head.
[[nodiscard]] std::vector<double> columnas(const QTextDocument& documento);
} // namespace DocumentoDeInforme
