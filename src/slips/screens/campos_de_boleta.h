#pragma once

namespace Ui
{
class Boletas;
}

/// How the form of the slip looks.
namespace CamposDeBoleta
{
/// Gives each field what may be typed into it and its looks.
void disponer(const Ui::Boletas& ui);

/// All amounts in one column at the right, the short fields only as wide as what they hold, and one place and size for
/// the three kinds, of which none shows. For the load of the screen: what is measured here takes the place of what the
/// form fixes.
void ajustarMedidas(const Ui::Boletas& ui);
} // namespace CamposDeBoleta
