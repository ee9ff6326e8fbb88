#pragma once

#include <QString>
#include <functional>

class QObject;

/// Entries found by their first letters, in every list and grid, without regard to accents and case. Letters that
/// follow each other within a second are one search; the same letter again walks through the entries that begin with
/// it.
namespace BusquedaPorLetras
{
/// The text without accents and case: "cordo" begins "Córdoba".
[[nodiscard]] QString llana(const QString& texto);
/// True when a search is under way there: a blank is a letter of it then.
[[nodiscard]] bool enCurso(const QObject* donde);
/// The entry to which a letter leads from `actual`, -1 for none; entries count from 0. A letter that finds nothing is
/// announced, and gives the entry from which the search began.
[[nodiscard]] int seguir(const QObject* donde, const QString& letra, int actual, int entradas,
                         const std::function<QString(int)>& texto);
/// The next letter begins a search.
void terminar();
} // namespace BusquedaPorLetras
