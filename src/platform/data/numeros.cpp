#include "platform/data/numeros.h"

#include <QString>
#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace
{
bool esDigito(QChar c)
{
    return c >= u'0' && c <= u'9';
}

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

void quitarCerosDelante(std::string& digitos)
{
    digitos.erase(0, std::min(digitos.find_first_not_of('0'), digitos.size()));
}

std::optional<detalle::Digitos> desarmar(QStringView texto, bool conGrupos, QStringView marcas)
{
    texto = texto.trimmed();
    detalle::Digitos digitos;
    digitos.negativo = tomarSigno(texto);
    tomarDigitos(texto, digitos.enteros);
    if (conGrupos && !tomarGrupos(texto, digitos.enteros))
    {
        return std::nullopt;
    }
    if (!texto.isEmpty() && marcas.contains(texto.front()))
    {
        texto = texto.sliced(1);
        tomarDigitos(texto, digitos.decimales);
    }
    if (!texto.isEmpty() || (digitos.enteros.empty() && digitos.decimales.empty()))
    {
        return std::nullopt;
    }
    quitarCerosDelante(digitos.enteros);
    return digitos;
}
} // namespace

std::optional<detalle::Digitos> detalle::desarmarTecleado(QStringView texto)
{
    return desarmar(texto, true, u",");
}

std::optional<detalle::Digitos> detalle::desarmarTexto(QStringView texto)
{
    const qsizetype e = texto.indexOf(u'E');
    auto digitos = desarmarTecleado(e < 0 ? texto : texto.first(e));
    if (e < 0 || !digitos)
    {
        return digitos;
    }
    bool esNumero = false;
    const int exponente = texto.sliced(e + 1).trimmed().toInt(&esNumero);
    constexpr int limite = 60; // past what a float's text can hold
    if (!esNumero || exponente < -limite || exponente > limite)
    {
        return std::nullopt;
    }
    const auto cifras = static_cast<std::size_t>(std::abs(exponente));
    std::string& enteros = digitos->enteros;
    std::string& decimales = digitos->decimales;
    if (exponente > 0)
    {
        decimales.resize(std::max(decimales.size(), cifras), '0');
        enteros += decimales.substr(0, cifras);
        decimales.erase(0, cifras);
        quitarCerosDelante(enteros);
    }
    else
    {
        enteros.insert(0, cifras, '0');
        decimales.insert(0, enteros, enteros.size() - cifras, cifras);
        enteros.resize(enteros.size() - cifras);
        quitarCerosDelante(enteros);
    }
    return digitos;
}

std::optional<detalle::Digitos> detalle::desarmarDeArchivo(QStringView texto)
{
    return desarmar(texto, false, u".,");
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
