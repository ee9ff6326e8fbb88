#include "exchange/linea_de_nomina.h"

#include "base/digitos.h"
#include "base/error_de_ejecucion.h"
#include "base/files/windows1252.h"

#include <QDate>
#include <algorithm>
#include <charconv>

namespace
{
constexpr std::size_t anchoMaximo = 16;
constexpr int anioMinimo = 100;

[[noreturn]] void noCoincide(const char* campo)
{
    throw FallaDeCampo{ErrorDeEjecucion::NoCoincidenTipos, campo};
}

bool soloDe(std::string_view texto, char c)
{
    return texto.find_first_not_of(c) == std::string_view::npos;
}

std::string_view sinBlancosAlrededor(std::string_view texto)
{
    const std::size_t desde = texto.find_first_not_of(' ');
    return desde == std::string_view::npos ? std::string_view()
                                           : texto.substr(desde, texto.find_last_not_of(' ') - desde + 1);
}

/// Of at most nine digits, so that it fits.
int numeroDe(std::string_view digitos, const char* campo)
{
    if (!sonDigitos(digitos))
    {
        noCoincide(campo);
    }
    int numero = 0;
    for (const char digito : digitos)
    {
        numero = numero * 10 + (digito - '0');
    }
    return numero;
}
} // namespace

std::string_view LineaDeNomina::trozo(std::size_t posicion, std::size_t ancho) const
{
    return posicion > m_bytes.size() ? std::string_view() : m_bytes.substr(posicion - 1, ancho);
}

void LineaDeNomina::texto(std::size_t posicion, std::size_t ancho, std::string& destino) const
{
    destino.clear();
    agregarUtf8(destino, trozo(posicion, ancho));
}

void LineaDeNomina::textoSinApostrofos(std::size_t posicion, std::size_t ancho, std::string& destino) const
{
    texto(posicion, ancho, destino);
    std::replace(destino.begin(), destino.end(), '\'', ' ');
}

int LineaDeNomina::entero(std::size_t posicion, std::size_t ancho, const char* campo) const
{
    return numeroDe(trozo(posicion, ancho), campo);
}

std::optional<int> LineaDeNomina::enteroOBlanco(std::size_t posicion, std::size_t ancho, const char* campo) const
{
    const std::string_view leido = trozo(posicion, ancho);
    if (leido.size() == ancho && soloDe(leido, ' '))
    {
        return std::nullopt;
    }
    return numeroDe(sinBlancosAlrededor(leido), campo);
}

int LineaDeNomina::valor(std::size_t posicion, std::size_t ancho) const
{
    int numero = 0;
    for (const char c : trozo(posicion, ancho))
    {
        if (esDigito(c))
        {
            numero = numero * 10 + (c - '0');
        }
        else if (c != ' ')
        {
            break;
        }
    }
    return numero;
}

float LineaDeNomina::importe(std::size_t posicion, std::size_t ancho, const char* campo) const
{
    std::array<char, anchoMaximo> numero{};
    std::size_t largo = 0;
    for (const char c : trozo(posicion, std::min(ancho, anchoMaximo)))
    {
        if (c != ' ')
        {
            numero.at(largo++) = c == ',' ? '.' : c;
        }
    }
    std::string_view cifras(numero.data(), largo);
    const bool negativo = cifras.starts_with('-');
    if (negativo || cifras.starts_with('+'))
    {
        cifras.remove_prefix(1);
    }
    // By itself the conversion takes powers of ten and infinities, too, and stops at a second mark.
    float valor = 0;
    const char* fin = cifras.data() + cifras.size();
    if (cifras.find_first_not_of("0123456789.") != std::string_view::npos ||
        std::from_chars(cifras.data(), fin, valor).ptr != fin || cifras.empty())
    {
        noCoincide(campo);
    }
    return negativo ? -valor : valor;
}

std::optional<FechaDeNomina> LineaDeNomina::fecha(std::size_t posicion, const char* campo) const
{
    const std::string_view leida = trozo(posicion, 8);
    if (leida.size() != 8)
    {
        noCoincide(campo);
    }
    if (soloDe(leida, ' ') || soloDe(leida, '0'))
    {
        return std::nullopt;
    }
    const int dia = numeroDe(leida.substr(0, 2), campo);
    const int mes = numeroDe(leida.substr(2, 2), campo);
    const int anio = numeroDe(leida.substr(4, 4), campo);
    if (!QDate::isValid(anio, mes, dia) || anio < anioMinimo)
    {
        noCoincide(campo);
    }
    return FechaDeNomina{leida[4], leida[5], leida[6], leida[7], '-', leida[2], leida[3], '-', leida[0], leida[1]};
}

void LineaDeNomina::cuil(std::string& destino) const
{
    constexpr std::size_t largo = 11;
    const std::string_view digitos = trozo(1, largo);
    if (digitos.size() != largo || !sonDigitos(digitos))
    {
        noCoincide("Cuil");
    }
    destino.assign(digitos.substr(0, 2))
        .append("-")
        .append(digitos.substr(2, 8))
        .append("-")
        .append(digitos.substr(10));
}
