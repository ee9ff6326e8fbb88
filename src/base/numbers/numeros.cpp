#include "base/numbers/numeros.h"

#include "base/digitos.h"

#include <algorithm>
#include <charconv>

namespace
{
/// Takes the digits at the front of `texto` into `destino`.
void tomarDigitos(QStringView& texto, std::string& destino)
{
    qsizetype n = 0;
    while (n < texto.size() && esDigito(texto[n]))
    {
        destino += static_cast<char>(texto[n].unicode());
        ++n;
    }
    texto = texto.sliced(n);
}

bool tomarSigno(QStringView& texto)
{
    if (!texto.startsWith(u'-') && !texto.startsWith(u'+'))
    {
        return false;
    }
    const bool negativo = texto.front() == u'-';
    texto = texto.sliced(1);
    return negativo;
}

/// Takes the groups ".ddd" at the front; false when a dot stands before anything but three digits.
bool tomarGrupos(QStringView& texto, std::string& enteros)
{
    if (texto.startsWith(u'.') && (enteros.empty() || enteros.size() > 3))
    {
        return false;
    }
    while (texto.startsWith(u'.'))
    {
        texto = texto.sliced(1);
        const std::size_t antes = enteros.size();
        tomarDigitos(texto, enteros);
        if (enteros.size() - antes != 3)
        {
            return false;
        }
    }
    return true;
}
} // namespace

std::optional<detalle::Digitos> detalle::desarmar(QStringView texto)
{
    texto = texto.trimmed();
    Digitos digitos;
    digitos.negativo = tomarSigno(texto);
    tomarDigitos(texto, digitos.enteros);
    if (!tomarGrupos(texto, digitos.enteros))
    {
        return std::nullopt;
    }
    if (texto.startsWith(u','))
    {
        texto = texto.sliced(1);
        tomarDigitos(texto, digitos.decimales);
    }
    if (!texto.isEmpty() || (digitos.enteros.empty() && digitos.decimales.empty()))
    {
        return std::nullopt;
    }
    digitos.enteros.erase(0, std::min(digitos.enteros.find_first_not_of('0'), digitos.enteros.size()));
    return digitos;
}

std::optional<float> detalle::aFlotante(const Digitos& digitos)
{
    std::string texto = digitos.enteros.empty() ? "0" : digitos.enteros;
    if (!digitos.decimales.empty())
    {
        texto += '.';
        texto += digitos.decimales;
    }
    float valor = 0;
    const auto fin = std::from_chars(texto.data(), texto.data() + texto.size(), valor);
    if (fin.ec == std::errc::result_out_of_range)
    {
        if (!digitos.enteros.empty())
        {
            return std::nullopt; // too large; without whole digits it is only too near to zero
        }
        valor = 0;
    }
    return digitos.negativo ? -valor : valor;
}
