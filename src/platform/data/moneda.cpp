#include "platform/data/moneda.h"

#include "platform/data/error_de_ejecucion.h"
#include "platform/data/numeros.h"

#include <array>
#include <cmath>
#include <limits>

namespace
{
constexpr std::int64_t maximo = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t minimo = std::numeric_limits<std::int64_t>::min();

[[noreturn]] void desborda()
{
    throw ErrorDeEjecucion(ErrorDeEjecucion::Desbordamiento);
}

std::int64_t sumar(std::int64_t a, std::int64_t b)
{
    if (b > 0 ? a > maximo - b : a < minimo - b)
    {
        desborda();
    }
    return a + b;
}

std::int64_t multiplicar(std::int64_t a, std::int64_t b)
{
    if (a == 0 || b == 0)
    {
        return 0;
    }
    const bool cabe = a > 0 ? (b > 0 ? a <= maximo / b : b >= minimo / a) : (b > 0 ? a >= minimo / b : b >= maximo / a);
    if (!cabe)
    {
        desborda();
    }
    return a * b;
}

/// One more digit at the end of a number kept below zero, where the range is larger by one.
std::int64_t conDigito(std::int64_t negativo, char digito)
{
    return sumar(multiplicar(negativo, 10), -static_cast<std::int64_t>(digito - '0'));
}

/// Do the digits past the fourth decimal round away from zero, when the digit before them is odd or even?
bool redondeaHaciaAfuera(const std::string& decimales, bool impar)
{
    if (decimales.size() <= 4 || decimales[4] < '5')
    {
        return false;
    }
    if (decimales[4] > '5')
    {
        return true;
    }
    for (std::size_t i = 5; i < decimales.size(); ++i)
    {
        if (decimales[i] != '0')
        {
            return true;
        }
    }
    return impar;
}
} // namespace

Moneda Moneda::deEntero(std::int64_t pesos)
{
    return Moneda(multiplicar(pesos, 10000));
}

Moneda Moneda::deTexto(const QString& texto)
{
    const auto digitos = detalle::desarmarTexto(texto);
    if (!digitos)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos);
    }
    std::int64_t negativo = 0;
    for (const char c : digitos->enteros)
    {
        negativo = conDigito(negativo, c);
    }
    for (std::size_t i = 0; i < 4; ++i)
    {
        negativo = conDigito(negativo, i < digitos->decimales.size() ? digitos->decimales[i] : '0');
    }
    if (redondeaHaciaAfuera(digitos->decimales, negativo % 2 != 0))
    {
        negativo = sumar(negativo, -1);
    }
    return digitos->negativo ? Moneda(negativo) : -Moneda(negativo);
}

Moneda Moneda::deFlotante(double valor)
{
    const double escalado = valor * 10000.0;
    // The whole range as powers of two, which a double holds exactly; also false for a NaN.
    if (!(escalado >= -0x1p63 && escalado < 0x1p63))
    {
        desborda();
    }
    const double perdido = std::fma(valor, 10000.0, -escalado); // what the product rounded away
    double redondo = std::nearbyint(escalado);
    const double resto = escalado - redondo;
    // A half that nearbyint saw may have been one only after the product was rounded.
    if (resto == 0.5 && perdido > 0)
    {
        redondo += 1;
    }
    else if (resto == -0.5 && perdido < 0)
    {
        redondo -= 1;
    }
    // From 2^53 on a double holds even numbers only, and the rest lies in what was lost.
    const bool grande = std::abs(escalado) >= 0x1p53;
    return Moneda(
        sumar(static_cast<std::int64_t>(redondo), grande ? static_cast<std::int64_t>(std::nearbyint(perdido)) : 0));
}

Moneda Moneda::redondeada(int decimales) const
{
    static constexpr std::array<std::int64_t, 5> unidades = {10000, 1000, 100, 10, 1};
    const std::int64_t unidad = unidades.at(static_cast<std::size_t>(decimales));
    std::int64_t cociente = m_valor / unidad;
    const std::int64_t resto = m_valor % unidad;
    const std::int64_t doble = (resto < 0 ? -resto : resto) * 2;
    if (doble > unidad || (doble == unidad && cociente % 2 != 0))
    {
        cociente += m_valor < 0 ? -1 : 1;
    }
    return Moneda(multiplicar(cociente, unidad));
}

QString Moneda::textoPlano() const
{
    // The remainders are taken before the sign is dropped: the lowest amount has no positive twin.
    const std::int64_t resto = m_valor % 10000;
    QString texto = QString::number(m_valor / 10000);
    if (m_valor < 0 && m_valor > -10000)
    {
        texto.prepend(u'-');
    }
    if (resto == 0)
    {
        return texto;
    }
    QString decimales = QString::number(resto < 0 ? -resto : resto).rightJustified(4, u'0');
    while (decimales.endsWith(u'0'))
    {
        decimales.chop(1);
    }
    return texto + u'.' + decimales;
}

Moneda operator+(Moneda a, Moneda b)
{
    return Moneda(sumar(a.m_valor, b.m_valor));
}

Moneda operator-(Moneda a, Moneda b)
{
    if (b.m_valor == minimo)
    {
        if (a.m_valor >= 0)
        {
            desborda();
        }
        return Moneda(a.m_valor - b.m_valor);
    }
    return Moneda(sumar(a.m_valor, -b.m_valor));
}

Moneda Moneda::operator-() const
{
    if (m_valor == minimo)
    {
        desborda();
    }
    return Moneda(-m_valor);
}

Moneda operator*(Moneda a, std::int64_t veces)
{
    return Moneda(multiplicar(a.m_valor, veces));
}
