#pragma once

#include <QStringView>
#include <optional>
#include <string>

/// What money and typed numbers share: a number's text taken apart into its digits.
namespace detalle
{
struct Digitos
{
    bool negativo = false;
    std::string enteros;   ///< ASCII digits before the mark, no leading zeros
    std::string decimales; ///< ASCII digits after it
};

/// A number as a person types it: outer blanks, a sign, digits or well-formed groups of thousands ("1.234.567"), and a
/// decimal comma. Nothing when the text is anything else, or has no digit.
[[nodiscard]] std::optional<Digitos> desarmar(QStringView texto);
/// Without its sign, the least number's included.
[[nodiscard]] constexpr quint64 magnitud(qint64 numero)
{
    return numero < 0 ? quint64{0} - static_cast<quint64>(numero) : static_cast<quint64>(numero);
}
/// The nearest 32-bit float; nothing when it does not fit.
[[nodiscard]] std::optional<float> aFlotante(const Digitos& digitos);
} // namespace detalle
