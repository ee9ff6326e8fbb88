#pragma once

#include <QString>
#include <compare>
#include <cstdint>

/// Exact amount of money: a whole number of ten-thousandths in 64 bits. No floating point inside.
/// Every operation that leaves the range throws ErrorDeEjecucion 6 (Desbordamiento).
class Moneda
{
public:
    constexpr Moneda() = default;
    [[nodiscard]] static constexpr Moneda deDiezMilesimos(std::int64_t valor) { return Moneda(valor); }
    /// Whole pesos.
    [[nodiscard]] static Moneda deEntero(std::int64_t pesos);
    /// Amount typed by a person or stored in a file, read as LeerNumero does. Past the fourth decimal, halves go to the
    /// even digit. Throws ErrorDeEjecucion 13 when the text is no number.
    [[nodiscard]] static Moneda deTexto(const QString& texto);
    /// The nearest ten-thousandth of a 32-bit float, halves to even. Throws 6 for NaN, infinities and overflow.
    [[nodiscard]] static Moneda deFlotante(float valor);
    /// The seven most significant digits of a 32-bit float, halves away from zero, and of those what fits in four
    /// decimals, halves to even: 1234567.8 is 1234568. Throws 6 for NaN, infinities and overflow.
    [[nodiscard]] static Moneda deSimple(float valor);
    /// The exact value of a 32-bit float rounded as amounts are shown: to two decimals, halves away from zero.
    [[nodiscard]] static Moneda enCentavos(float valor);

    [[nodiscard]] constexpr std::int64_t diezMilesimos() const { return m_valor; }
    [[nodiscard]] double aDoble() const { return static_cast<double>(m_valor) / 10000.0; }
    /// Rounded to 0..4 decimals, halves to the even digit.
    [[nodiscard]] Moneda redondeada(int decimales = 2) const;
    /// Rounded as amounts are shown: to two decimals, halves away from zero.
    [[nodiscard]] Moneda enCentavos() const;
    /// Without thousands separator or trailing zeros, "." as the decimal mark: "1234.5", "-0.25", "0".
    [[nodiscard]] QString textoPlano() const;

    friend Moneda operator+(Moneda a, Moneda b);
    friend Moneda operator-(Moneda a, Moneda b);
    Moneda operator-() const;
    Moneda& operator+=(Moneda otro) { return *this = *this + otro; }
    Moneda& operator-=(Moneda otro) { return *this = *this - otro; }
    friend constexpr auto operator<=>(Moneda a, Moneda b) = default; // NOLINT(modernize-use-nullptr): a false alarm

private:
    explicit constexpr Moneda(std::int64_t valor)
        : m_valor(valor)
    {
    }
    std::int64_t m_valor = 0;
};
