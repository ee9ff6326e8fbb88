#include "platform/data/formato.h"

#include "platform/data/error_de_ejecucion.h"
#include "platform/data/numeros.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace
{
/// A numeric pattern taken apart.
struct Patron
{
    QStringView prefijo;
    QStringView sufijo;
    bool grupos = false;
    std::size_t enterosMinimos = 0;
    std::size_t decimalesMinimos = 0;
    std::size_t decimalesMaximos = 0;
};

bool esDePatron(QChar c)
{
    return c == u'0' || c == u'#' || c == u',' || c == u'.';
}

Patron leerPatron(QStringView texto)
{
    Patron patron;
    qsizetype desde = 0;
    while (desde < texto.size() && (!esDePatron(texto[desde]) || texto[desde] == u','))
    {
        ++desde;
    }
    patron.prefijo = texto.first(desde);
    qsizetype hasta = desde;
    bool trasLaMarca = false;
    for (; hasta < texto.size() && esDePatron(texto[hasta]); ++hasta)
    {
        const QChar c = texto[hasta];
        if (c == u'.')
        {
            trasLaMarca = true;
        }
        else if (c == u',')
        {
            patron.grupos = true;
        }
        else if (trasLaMarca)
        {
            ++patron.decimalesMaximos;
            patron.decimalesMinimos = c == u'0' ? patron.decimalesMaximos : patron.decimalesMinimos;
        }
        else if (c == u'0')
        {
            ++patron.enterosMinimos;
        }
    }
    patron.sufijo = texto.sliced(hasta);
    return patron;
}

/// Decimal digits of a number without its sign, as many decimals as the pattern may show. Short texts, which a
/// std::string holds without allocating.
struct Numero
{
    bool negativo = false;
    std::string enteros; // no leading zeros
    std::string decimales;
};

bool esCero(const Numero& numero)
{
    return numero.enteros.empty() && numero.decimales.find_first_not_of('0') == std::string::npos;
}

QString armar(Numero numero, const Patron& patron)
{
    while (numero.decimales.size() > patron.decimalesMinimos && numero.decimales.back() == '0')
    {
        numero.decimales.pop_back();
    }
    const bool conSigno = numero.negativo && !esCero(numero);
    if (numero.enteros.size() < patron.enterosMinimos)
    {
        numero.enteros.insert(0, patron.enterosMinimos - numero.enteros.size(), '0');
    }
    QString texto;
    texto.reserve(patron.prefijo.size() + patron.sufijo.size() +
                  static_cast<qsizetype>(2 + numero.enteros.size() * 4 / 3 + numero.decimales.size()));
    if (conSigno)
    {
        texto += u'-';
    }
    texto += patron.prefijo;
    for (std::size_t faltan = numero.enteros.size(); faltan > 0; --faltan)
    {
        if (patron.grupos && faltan < numero.enteros.size() && faltan % 3 == 0)
        {
            texto += u'.';
        }
        texto += QLatin1Char(numero.enteros[numero.enteros.size() - faltan]);
    }
    if (!numero.decimales.empty())
    {
        texto += u',';
        texto += QLatin1String(numero.decimales.data(), static_cast<qsizetype>(numero.decimales.size()));
    }
    texto += patron.sufijo;
    return texto;
}

std::string sinCeros(quint64 n)
{
    return n == 0 ? std::string() : std::to_string(n);
}

quint64 magnitud(qint64 n)
{
    return n < 0 ? ~static_cast<quint64>(n) + 1 : static_cast<quint64>(n);
}

/// A whole number of units of the given number of decimals.
Numero deUnidades(bool negativo, quint64 unidades, std::size_t decimales)
{
    Numero numero{negativo, sinCeros(unidades), {}};
    if (numero.enteros.size() < decimales)
    {
        numero.enteros.insert(0, decimales - numero.enteros.size(), '0');
    }
    numero.decimales = numero.enteros.substr(numero.enteros.size() - decimales);
    numero.enteros.resize(numero.enteros.size() - decimales);
    return numero;
}

void exigirFinito(float valor)
{
    if (!std::isfinite(valor))
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::Desbordamiento);
    }
}

constexpr std::array<double, 13> potencias = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12};

/// All digits of a positive float's binary value, and the power of ten of the first. No more than 112 of them count.
std::pair<std::string, int> digitosExactos(float magnitud)
{
    std::array<char, 160> texto{};
    const auto fin = std::to_chars(texto.data(), texto.data() + texto.size(), static_cast<double>(magnitud),
                                   std::chars_format::scientific, 120);
    std::string digitos(texto.data(), fin.ptr); // d.ddd...e+xx
    const std::size_t e = digitos.find('e');
    const int exponente = std::stoi(digitos.substr(e + 1));
    digitos.resize(e);
    digitos.erase(1, 1);
    return {digitos, exponente};
}

/// Rounds `digitos` to its first seven, halves away from zero; true when all of them were nines, and the result is ten
/// times as much.
bool redondearASiete(std::string& digitos)
{
    const bool sube = digitos[7] >= '5';
    digitos.resize(7);
    for (std::size_t i = 7; sube && i-- > 0;)
    {
        if (digitos[i] != '9')
        {
            ++digitos[i];
            return false;
        }
        digitos[i] = '0';
    }
    if (sube)
    {
        digitos[0] = '1';
    }
    return sube;
}

/// The seven first digits of a positive float and the power of ten of the first one.
std::pair<std::string, int> sieteDigitos(float magnitud)
{
    const double exacta = magnitud;
    int exponente = static_cast<int>(std::floor(std::log10(exacta)));
    const auto unidades = [&] { return exacta * potencias.at(static_cast<std::size_t>(6 - exponente)); };
    if (exponente >= -6 && exponente <= 6)
    {
        // 24 bits times a power of ten up to 10^12 is exact in a double; the logarithm may be one too high.
        if (unidades() < 1e6 && exponente > -6)
        {
            --exponente;
        }
        const double redondas = std::round(unidades());
        if (unidades() >= 1e6 && redondas < 1e7)
        {
            return {std::to_string(static_cast<qint64>(redondas)), exponente};
        }
    }
    auto [digitos, potencia] = digitosExactos(magnitud);
    potencia += redondearASiete(digitos) ? 1 : 0;
    return {digitos, potencia};
}

} // namespace

QString Formato(Moneda valor, QStringView patron)
{
    const Patron leido = leerPatron(patron);
    quint64 unidades = magnitud(valor.diezMilesimos());
    std::size_t decimales = 4;
    if (leido.decimalesMaximos < 4)
    {
        const auto unidad = static_cast<quint64>(potencias.at(4 - leido.decimalesMaximos));
        unidades = unidades / unidad + (unidades % unidad >= unidad / 2 ? 1 : 0);
        decimales = leido.decimalesMaximos;
    }
    Numero numero = deUnidades(valor < Moneda(), unidades, decimales);
    numero.decimales.append(leido.decimalesMaximos - decimales, '0');
    return armar(std::move(numero), leido);
}

QString Formato(qint64 valor, QStringView patron)
{
    const Patron leido = leerPatron(patron);
    return armar({valor < 0, sinCeros(magnitud(valor)), std::string(leido.decimalesMaximos, '0')}, leido);
}

QString Formato(float valor, QStringView patron)
{
    exigirFinito(valor);
    const Patron leido = leerPatron(patron);
    const std::size_t decimales = std::min<std::size_t>(leido.decimalesMaximos, 12);
    const double entero = std::abs(static_cast<double>(valor));
    const double unidades = entero * potencias.at(decimales); // exact: 24 bits and 28
    Numero numero;
    if (unidades < 0x1p53)
    {
        numero = deUnidades(std::signbit(valor), static_cast<quint64>(std::round(unidades)), decimales);
    }
    else
    {
        std::array<char, 64> texto{}; // as large as it is, it has no more than twelve decimals
        const auto fin = std::to_chars(texto.data(), texto.data() + texto.size(), entero, std::chars_format::fixed,
                                       static_cast<int>(decimales));
        const std::string digitos(texto.data(), fin.ptr);
        const std::size_t punto = std::min(digitos.find('.'), digitos.size());
        numero = {std::signbit(valor), digitos.substr(0, punto), digitos.substr(std::min(punto + 1, digitos.size()))};
    }
    numero.decimales.append(leido.decimalesMaximos - decimales, '0');
    return armar(std::move(numero), leido);
}

std::optional<float> LeerNumero(QStringView texto)
{
    const auto digitos = detalle::desarmarTecleado(texto);
    return digitos ? detalle::aFlotante(*digitos) : std::nullopt;
}

float LeerImporteDeArchivo(QStringView texto)
{
    const auto digitos = detalle::desarmarDeArchivo(texto);
    if (!digitos)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos);
    }
    const auto valor = detalle::aFlotante(*digitos);
    if (!valor)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::Desbordamiento);
    }
    return *valor;
}

QString TextoSimple(float valor)
{
    exigirFinito(valor);
    if (valor == 0)
    {
        return QStringLiteral("0");
    }
    auto [digitos, exponente] = sieteDigitos(std::abs(valor));
    digitos.resize(digitos.find_last_not_of('0') + 1);
    const int decimales = static_cast<int>(digitos.size()) - 1 - exponente;
    std::string texto = std::signbit(valor) ? "-" : "";
    if (exponente > 6 || decimales > 7)
    {
        texto += digitos[0];
        if (digitos.size() > 1)
        {
            texto += ',';
            texto.append(digitos, 1);
        }
        texto += exponente < 0 ? "E-" : "E+";
        texto += std::abs(exponente) < 10 ? "0" : "";
        texto += std::to_string(std::abs(exponente));
    }
    else if (decimales <= 0)
    {
        texto += digitos.append(static_cast<std::size_t>(-decimales), '0');
    }
    else
    {
        digitos.insert(0, static_cast<std::size_t>(std::max(0, -exponente)), '0');
        const std::size_t enteros = digitos.size() - static_cast<std::size_t>(decimales);
        texto.append(digitos, 0, enteros) += ',';
        texto.append(digitos, enteros);
    }
    return QString::fromLatin1(texto.data(), static_cast<qsizetype>(texto.size()));
}

float Redondear2(float valor)
{
    // A float times 100 is exact in a double, so a half is seen as one; nearbyint takes it to the even digit.
    return static_cast<float>(std::nearbyint(static_cast<double>(valor) * 100.0) / 100.0);
}
