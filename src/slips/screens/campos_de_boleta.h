#pragma once

#include "base/numbers/moneda.h"

class QLineEdit;
namespace Ui
{
class Boletas;
}

/// How the fields of the slip look and what they show.
namespace CamposDeBoleta
{
inline constexpr int sinLimite = 32767; ///< characters

/// Gives each field what may be typed into it and its looks, and the list of payments its columns.
void disponer(Ui::Boletas& ui);

/// All amounts in one column at the right, the short fields only as wide as what they hold. For the load of the screen:
/// what is measured here takes the place of what the form fixes.
void ajustarAnchos(Ui::Boletas& ui);

/// Shows an amount with its mask: longer than what may be typed.
void mostrar(QLineEdit* campo, const QString& texto);

/// What a field holds, as it was typed or as the program masked it.
[[nodiscard]] QString sinMascara(const QString& texto);

/// An amount as it is typed: a decimal comma, no thousands.
[[nodiscard]] QString paraEditar(Moneda importe);
} // namespace CamposDeBoleta
