#pragma once

class CampoMascara;
class QString;

namespace Rutinas
{
/// Completes a two-digit year in the field (00 to 29: 2000s, 30 to 99: 1900s) and checks the date, day first. Shows
/// the message and gives false when it is none.
[[nodiscard]] bool ValidarFecha(CampoMascara& campo);
/// True when the text is a number that an amount can hold; otherwise shows the message and gives false.
[[nodiscard]] bool VerificarNumero(const QString& texto);
} // namespace Rutinas
