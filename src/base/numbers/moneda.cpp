#include "base/numbers/moneda.h"

#include "base/error_de_ejecucion.h"
#include "base/numbers/numeros.h"

#include <QtNumeric>
#include <array>
#include <cmath>

namespace
{
[[noreturn]] void desborda()
{
    throw ErrorDeEjecucion(ErrorDeEjecucion::Desbordamiento);
}

std::int64_t sumar(std::int64_t a, std::int64_t b)
{
    std::int64_t suma = 0;
    if (qAddOverflow(a, b, &suma))
    {
        desborda();
    }
    return suma;
}

std::int64_t restar(std::int64_t a, std::int64_t b)
{
    std::int64_t resta = 0;
    if (qSubOverflow(a, b, &resta))
    {
        desborda();
    }
    return resta;
}

std::int64_t multiplicar(std::int64_t a, std::int64_t b)
{
    std::int64_t producto = 0;
    if (qMulOverflow(a, b, &producto))
    {
        desborda();
    }
    return producto;
}

/// One more digit at the end of a number kept below zero, where the range is larger by one.
std::int64_t conDigito(std::int64_t negativo, char digito)
{
    return restar(multiplicar(negativo, 10), digito - '0');
}

/// Do the digits past the fourth decimal round away from zero, when the digit before them is odd or even?
bool redondeaHaciaAfuera(const std::string& decimales, bool impar)
{
    if (decimales.size() <= 4 || decimales[4] != '5')
    {
        return decimales.size() > 4 && decimales[4] > '5';
    }
    return impar || decimales.find_first_not_of('0', 5) != std::string::npos;
}
} // namespace

Moneda Moneda::deEntero(std::int64_t pesos)
{
    return Moneda(multiplicar(pesos, 10000));
}

Moneda Moneda::deTexto(const QString& texto)
{
    const auto digitos = detalle::desarmar(texto);
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

Moneda Moneda::deFlotante(float valor)
{
    const double exacto = static_cast<double>(valor) * 10000.0; // 24 bits and 14
    if (!(std::abs(exacto) < 0x1p63))                           // false for a NaN, too
    {
        desborda();
    }
    return Moneda(static_cast<std::int64_t>(std::nearbyint(exacto)));
}

Moneda Moneda::enCentavos(float valor)
{
    const double exacto = static_cast<double>(valor) * 100.0; // 24 bits and 7
    if (!(std::abs(exacto) * 100.0 < 0x1p63))
    {
        desborda();
    }
    return Moneda(static_cast<std::int64_t>(std::round(exacto)) * 100);
}

Moneda Moneda::enCentavos() const
{
    const std::int64_t resto = m_valor % 100;
    const std::int64_t sobra = resto >= 50 ? 100 : resto <= -50 ? -100 : 0;
    return Moneda(sumar(m_valor - resto, sobra));
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
    return Moneda(restar(a.m_valor, b.m_valor));
}

Moneda Moneda::operator-() const
{
    return Moneda(restar(0, m_valor));
}
