#include "ui/grid/importe_pegado.h"

#include <algorithm>

namespace
{
/// Which sign an amount has before its decimals, as far as its own form tells.
enum class Marca
{
    Ninguna, ///< "1234", "1.234" and "1,234" do not tell
    Coma,
    Punto,
};

/// "$ 1.234,50" is "1.234,50".
QString sinPesos(const QString& texto)
{
    QString importe = texto.trimmed();
    if (importe.startsWith(u'$'))
    {
        importe = importe.sliced(1).trimmed();
    }
    return importe;
}

bool admitido(const ColumnaDeGrilla& columna, const QString& importe)
{
    return std::all_of(importe.cbegin(), importe.cend(), [&](QChar c) { return admiteEnCelda(columna, c); });
}

Marca marcaDe(const QString& importe)
{
    const qsizetype coma = importe.lastIndexOf(u',');
    const qsizetype punto = importe.lastIndexOf(u'.');
    const qsizetype ultimo = std::max(coma, punto);
    if (ultimo < 0)
    {
        return Marca::Ninguna;
    }
    const Marca suya = coma > punto ? Marca::Coma : Marca::Punto;
    if (coma >= 0 && punto >= 0)
    {
        return suya;
    }
    if (importe.count(importe[ultimo]) > 1) // "1.234.567"
    {
        return suya == Marca::Coma ? Marca::Punto : Marca::Coma;
    }
    const bool puedeSerDeMiles =
        importe.size() - ultimo == 4 && ultimo >= 1 && ultimo <= 3 && !importe.startsWith(u'0');
    return puedeSerDeMiles ? Marca::Ninguna : suya;
}

} // namespace

void MarcaDeDecimales::mirar(const ColumnaDeGrilla& columna, const QString& texto)
{
    const QString importe = sinPesos(texto);
    const Marca marca = admitido(columna, importe) ? marcaDe(importe) : Marca::Ninguna;
    m_comas = m_comas || marca == Marca::Coma;
    m_puntos = m_puntos || marca == Marca::Punto;
}

LecturaDeCelda MarcaDeDecimales::leer(const ColumnaDeGrilla& columna, const QString& texto) const
{
    const QString importe = sinPesos(texto);
    const bool mezclados = m_comas && m_puntos;
    if (!admitido(columna, importe))
    {
        return {{}, QStringLiteral("El valor ingresado no es un importe.")};
    }
    const Marca marca = mezclados ? marcaDe(importe) : m_puntos ? Marca::Punto : Marca::Coma;
    if (marca == Marca::Ninguna && (importe.contains(u'.') || importe.contains(u',')))
    {
        return {{}, QStringLiteral("No se sabe si tiene decimales.")};
    }
    const QChar decimal = marca == Marca::Punto ? u'.' : u',';
    const QStringList partes = importe.split(decimal);
    if (partes.size() > 2 || partes.last().isEmpty())
    {
        return {{}, QStringLiteral("El valor ingresado no es un importe.")};
    }
    QString enteros = partes.first();
    enteros.replace(QLatin1Char(marca == Marca::Punto ? ',' : '.'),
                    QLatin1Char('.')); // as the cell groups its thousands
    QString decimales = partes.size() == 2 ? partes.last() : QString();
    const bool puedenSerMiles = marcaDe(importe) == Marca::Ninguna; // "45,000"
    while (!puedenSerMiles && decimales.size() > 2 && decimales.endsWith(u'0'))
    {
        decimales.chop(1);
    }
    if (decimales.size() > 2)
    {
        return {{}, QStringLiteral("Tiene más de dos decimales.")};
    }
    return leerCelda(columna, decimales.isEmpty() ? enteros : enteros + QLatin1Char(',') + decimales);
}
