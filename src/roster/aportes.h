#pragma once

/// What one employee contributes in one declaration, in pesos, each a 32-bit float rounded to two decimals, halves to
/// the even digit.
struct Aportes
{
    float total = 0;   ///< wage and agreement sum
    float art100 = 0;  ///< union contribution, 2%
    float art101A = 0; ///< tourism and recreation, 1%, members only
    float art101B = 0; ///< burial insurance, 1%, members only

    friend bool operator==(const Aportes&, const Aportes&) = default;
};

/// The rule of the screen Empleados. The factor is 200 / hours rounded to two decimals; above 128 hours it scales
/// ART100, which is independent of membership; it scales the other two at any hours. Products and quotients run in
/// double and are stored in a 32-bit float, which is then rounded.
/// Throws ErrorDeEjecucion 11 for 0 hours, 6 when a result does not fit.
[[nodiscard]] Aportes aportesDePantalla(float haberes, float acuerdo, int horas, bool afiliado);

/// The rule of the bulk wage update: the same, but the factor is hours / 200.
[[nodiscard]] Aportes aportesEnLote(float sueldo, float acuerdo, int horas, bool afiliado);
