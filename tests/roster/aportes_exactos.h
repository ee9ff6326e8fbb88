#pragma once

#include <cstdint>

/// The contribution rules computed a second time, in whole numbers only and with nothing in common with the program's
/// own code, to hold the two against each other.
namespace exactos
{
enum class Regla
{
    Pantalla, ///< factor 200 / hours
    Lote,     ///< factor hours / 200
};

/// A binary number of 24 bits, as a 32-bit float holds it: mantisa * 2^exponente.
struct Binario
{
    std::uint64_t mantisa = 0;
    int exponente = 0;
    [[nodiscard]] float comoFloat() const;
};

/// The 24-bit number nearest to numerador / denominador, halves to the even one. numerador below 2^50, denominador
/// below 2^30, and each the smaller the farther apart they lie.
[[nodiscard]] Binario redondear24(std::uint64_t numerador, std::uint64_t denominador);

/// Both amounts of a wage, in cents.
struct Centavos
{
    std::uint64_t art100 = 0;
    std::uint64_t art101 = 0;
    friend bool operator==(const Centavos&, const Centavos&) = default;
};

/// By the rule as it stands: wage, factor and products are 24-bit numbers, rounded to cents with halves to even.
[[nodiscard]] Centavos enBinario(Regla regla, std::uint64_t haberes, unsigned horas);
/// By decimal arithmetic without any loss, which nothing in the program uses.
[[nodiscard]] Centavos enDecimal(Regla regla, std::uint64_t haberes, unsigned horas);

/// How the program's rule stands against the other two, over all wages of a range.
struct Comparacion
{
    std::uint64_t casos = 0;
    std::uint64_t contraBinario = 0; ///< must be 0
    std::uint64_t art100 = 0;        ///< wages whose ART100 decimal arithmetic would give otherwise
    std::uint64_t art101 = 0;
    std::uint64_t mayor = 0;      ///< largest difference, in cents
    std::int64_t art100DeMas = 0; ///< sum of the differences, in cents: the program's less the decimal one
    std::int64_t art101DeMas = 0;
};

/// Amounts typed with two decimals that the program turns into another float than the nearest; must be 0.
[[nodiscard]] std::uint64_t malLeidos(std::uint64_t hasta, std::uint64_t paso);
/// Wages from 0 to hasta cents, every paso-th.
[[nodiscard]] Comparacion comparar(Regla regla, unsigned horas, std::uint64_t hasta, std::uint64_t paso);
} // namespace exactos
