#pragma once

#include "ui/grid/grilla.h"

/// The rows of a grid by the values of a column, as places from 0 on: empty cells before numbers and dates, those
/// before texts, and these as Spanish orders them; rows of the same value as they stand.
[[nodiscard]] std::vector<int> ordenDeFilas(const Grilla& grilla, int columna, Qt::SortOrder sentido);
