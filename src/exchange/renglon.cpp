#include "exchange/renglon.h"

#include "platform/data/conexion.h"
#include "platform/data/formato.h"
#include "platform/data/windows1252.h"

#include <array>
#include <charconv>

namespace
{
quint64 magnitudDe(qint64 n)
{
    return n < 0 ? quint64{0} - static_cast<quint64>(n) : static_cast<quint64>(n);
}
} // namespace

void Renglon::agregar(const Fila& fila, std::span<const Campo> campos)
{
    for (const Campo& campo : campos)
    {
        agregar(fila, campo);
    }
}

void Renglon::agregar(std::string_view utf8)
{
    agregarWindows1252(m_bytes, utf8);
}

void Renglon::agregar(const Fila& fila, const Campo& campo)
{
    if (campo.clase == Campo::Texto)
    {
        agregarTexto(fila.utf8(campo.columna), campo.ancho);
        return;
    }
    if (campo.clase == Campo::SiNo)
    {
        m_bytes += fila.si(campo.columna) ? '1' : '0';
        return;
    }
    if (fila.esNulo(campo.columna))
    {
        m_bytes += campo.siNulo;
        return;
    }
    switch (campo.clase)
    {
    case Campo::Numero:
    {
        const qint64 n = fila.entero(campo.columna);
        agregarNumero(n < 0, magnitudDe(n), campo.ancho);
        break;
    }
    case Campo::Importe:
        agregarImporte(fila.moneda(campo.columna).diezMilesimos(), campo.ancho);
        break;
    case Campo::Fecha:
        agregarFecha(fila, campo.columna);
        break;
    default:
        agregar(fila.utf8(campo.columna));
        break;
    }
}

void Renglon::agregarTexto(std::string_view utf8, std::size_t ancho)
{
    const std::size_t fin = m_bytes.size() + ancho;
    agregarWindows1252(m_bytes, utf8, ancho);
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
    const quint64 magnitud = magnitudDe(diezMilesimos);
    const quint64 centavos = magnitud / 100 + (magnitud % 100 >= 50 ? 1 : 0);
    agregarNumero(diezMilesimos < 0 && centavos > 0, centavos / 100, ancho);
    m_bytes += ',';
    agregarNumero(false, centavos % 100, 2);
}

void Renglon::agregarFecha(const Fila& fila, const char* columna)
{
    // Stored YYYY-MM-DD.
    const std::string_view guardada = fila.utf8(columna);
    if (guardada.size() == 10 && guardada[4] == '-' && guardada[7] == '-')
    {
        m_bytes.append(guardada, 5, 2).append(guardada, 8, 2).append(guardada, 0, 4);
        return;
    }
    m_bytes += Formato(fila.fecha(columna), u"MMDDYYYY").toStdString();
}
