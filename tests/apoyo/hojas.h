#pragma once

#include <QString>
#include <QStringList>
#include <vector>

/// What stands on the pages of a PDF, as another program reads it.
namespace hojas
{
struct Palabra
{
    int hoja;                                 ///< from 0
    double izquierda, arriba, derecha, abajo; ///< points
    QString texto;
};

/// Output of a program that must end well.
QString correr(const QString& programa, const QStringList& argumentos);
/// Text of each page, blanks run together.
[[nodiscard]] QStringList textos(const QString& pdf);
/// The words, page by page from top to bottom.
[[nodiscard]] std::vector<Palabra> palabras(const QString& pdf);
} // namespace hojas
