#include "exchange/renglon.h"

#include "base/db/conexion.h"
#include "base/error_de_ejecucion.h"
#include "base/files/windows1252.h"
#include "base/numbers/numeros.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

void Renglon::agregar(const Fila& fila, std::span<const Campo> campos)
{
    for (const Campo& campo : campos)
    {
        agregar(fila, campo);
    }
}

/// What breaks a line goes out as a blank: texts pasted from a spreadsheet have held line ends and tabs.
void Renglon::agregar(std::string_view utf8, std::size_t maximo)
{
    const auto desde = static_cast<std::ptrdiff_t>(m_bytes.size());
    agregarWindows1252(m_bytes, utf8, maximo);
    std::replace_if(
        m_bytes.begin() + desde, m_bytes.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
}

// One access to the row a field: a column's name is found fastest when names come in the same order row after row.
void Renglon::agregar(const Fila& fila, const Campo& campo)
{
    switch (campo.clase)
    {
    case Campo::Texto:
        agregarTexto(fila.utf8(campo.columna), campo.ancho);
        break;
    case Campo::Crudo:
        agregar(fila.utf8(campo.columna));
        break;
    case Campo::Numero:
    case Campo::Importe:
        if (const std::optional<qint64> n = fila.enteroONulo(campo.columna); !n)
        {
            m_bytes += campo.siNulo;
        }
        else if (campo.clase == Campo::Numero)
        {
            agregarNumero(*n < 0, detalle::magnitud(*n), campo.ancho);
        }
        else
        {
            agregarImporte(*n, campo.ancho);
        }
        break;
    case Campo::Fecha:
        agregarFecha(fila.utf8(campo.columna), campo);
        break;
    case Campo::SiNo:
        m_bytes += fila.si(campo.columna) ? '1' : '0';
        break;
    }
}

void Renglon::agregarTexto(std::string_view utf8, std::size_t ancho)
{
    const std::size_t fin = m_bytes.size() + ancho;
    agregar(utf8, ancho);
    m_bytes.resize(fin, ' ');
}

void Renglon::agregarNumero(bool negativo, quint64 magnitud, std::size_t ancho)
{
    std::array<char, 20> digitos{};
    const auto fin = std::to_chars(digitos.data(), digitos.data() + digitos.size(), magnitud);
    const auto cuantos = static_cast<std::size_t>(fin.ptr - digitos.data());
    if (negativo)
    {
        m_bytes += '-';
    }
    m_bytes.append(ancho > cuantos ? ancho - cuantos : 0, '0');
    m_bytes.append(digitos.data(), cuantos);
}

void Renglon::agregarImporte(qint64 diezMilesimos, std::size_t ancho)
{
    const quint64 magnitud = detalle::magnitud(diezMilesimos);
    const quint64 centavos = magnitud / 100 + (magnitud % 100 >= 50 ? 1 : 0);
    agregarNumero(diezMilesimos < 0 && centavos > 0, centavos / 100, ancho);
    m_bytes += ',';
    agregarNumero(false, centavos % 100, 2);
}

void Renglon::agregarFecha(std::string_view guardada, const Campo& campo)
{
    if (guardada.empty())
    {
        m_bytes += campo.siNulo;
        return;
    }
    // Stored YYYY-MM-DD.
    if (guardada.size() != 10 || guardada[4] != '-' || guardada[7] != '-')
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::NoCoincidenTipos, QString::fromLatin1(campo.columna));
    }
    m_bytes.append(guardada, 5, 2).append(guardada, 8, 2).append(guardada, 0, 4);
}
