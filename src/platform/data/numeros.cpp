#include "platform/data/numeros.h"

#include <QString>
#include <charconv>
#include <cstdlib>

namespace
{
bool esDigito(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// Takes the digits at the front of `texto` into `destino`.
void tomarDigitos(QStringView& texto, QByteArray& destino)
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
bool tomarGrupos(QStringView& texto, QByteArray& enteros)
{
    if (texto.startsWith(u'.') && (enteros.isEmpty() || enteros.size() > 3))
    {
        return false;
    }
    while (texto.startsWith(u'.'))
    {
        texto = texto.sliced(1);
        const qsizetype antes = enteros.size();
        tomarDigitos(texto, enteros);
        if (enteros.size() - antes != 3)
        {
            return false;
        }
    }
    return true;
}

QByteArray sinCerosDelante(const QByteArray& digitos)
{
    qsizetype ceros = 0;
    while (ceros < digitos.size() && digitos[ceros] == '0')
    {
        ++ceros;
    }
    return digitos.sliced(ceros);
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
    if (!texto.isEmpty() || (digitos.enteros.isEmpty() && digitos.decimales.isEmpty()))
    {
        return std::nullopt;
    }
    digitos.enteros = sinCerosDelante(digitos.enteros);
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
    const int cifras = std::abs(exponente);
    if (exponente > 0)
    {
        digitos->decimales = digitos->decimales.leftJustified(cifras, '0');
        digitos->enteros = sinCerosDelante(digitos->enteros + digitos->decimales.first(cifras));
        digitos->decimales.remove(0, cifras);
    }
    else
    {
        digitos->enteros = digitos->enteros.rightJustified(cifras, '0');
        digitos->decimales.prepend(digitos->enteros.last(cifras));
        digitos->enteros.chop(cifras);
    }
    return digitos;
}

std::optional<detalle::Digitos> detalle::desarmarDeArchivo(QStringView texto)
{
    return desarmar(texto, false, u".,");
}

std::optional<float> detalle::aFlotante(const Digitos& digitos)
{
    const QByteArray texto = '0' + digitos.enteros + '.' + digitos.decimales + '0';
    float valor = 0;
    const auto fin = std::from_chars(texto.constData(), texto.constData() + texto.size(), valor);
    if (fin.ec == std::errc::result_out_of_range)
    {
        if (!digitos.enteros.isEmpty())
        {
            return std::nullopt; // too large; without whole digits it is only too near to zero
        }
        valor = 0;
    }
    return digitos.negativo ? -valor : valor;
}
