#include "base/files/planilla.h"

#include "base/files/archivos.h"
#include "base/files/lineas.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace
{
/// "-12,50" is an amount, "=1+1" and "-A1" are what Excel computes.
bool pareceFormula(const QString& celda)
{
    if (celda.isEmpty() || !QStringLiteral("=+-@\t\r").contains(celda.front()))
    {
        return false;
    }
    const auto deNumero = [](QChar c) { return (c >= u'0' && c <= u'9') || c == u',' || c == u'.'; };
    return celda.front() != u'-' || celda.size() == 1 || !std::all_of(celda.begin() + 1, celda.end(), deNumero);
}

QString comoTexto(const QString& celda)
{
    return pareceFormula(celda) ? QLatin1Char('\'') + celda : celda;
}

QString entreComillas(QString celda)
{
    return QLatin1Char('"') + celda.replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
}

QString celdaDeTabulado(QString celda)
{
    const auto corta = [](QChar c) { return c == u'\t' || c == u'\n' || c == u'\r'; };
    std::replace_if(celda.begin(), celda.end(), corta, QLatin1Char(' '));
    // A quote at its beginning would take in the cells behind it.
    return celda.startsWith(QLatin1Char('"')) ? entreComillas(celda) : comoTexto(celda);
}

QString celdaDeCsv(const QString& celda)
{
    const QString texto = comoTexto(celda);
    const auto pideComillas = [](QChar c) { return c == u';' || c == u'"' || c == u'\n' || c == u'\r'; };
    return std::any_of(texto.cbegin(), texto.cend(), pideComillas) ? entreComillas(texto) : texto;
}

QByteArray lineaDeCsv(const QStringList& fila)
{
    QStringList celdas;
    celdas.reserve(fila.size());
    std::transform(fila.cbegin(), fila.cend(), std::back_inserter(celdas), celdaDeCsv);
    return celdas.join(QLatin1Char(';')).toUtf8();
}

/// Nothing when a quote that opens a cell is never closed.
std::optional<planilla::Filas> leerCeldas(const QString& texto, bool conComillas)
{
    planilla::Filas filas;
    QStringList fila;
    QString celda;
    bool entreComillas = false;
    const auto terminarFila = [&]
    {
        fila.append(std::exchange(celda, {}));
        filas.push_back(std::exchange(fila, {}));
    };
    for (qsizetype i = 0; i < texto.size(); ++i)
    {
        const QChar c = texto[i];
        const bool sigueComilla = i + 1 < texto.size() && texto[i + 1] == u'"';
        if (entreComillas && c == u'"' && sigueComilla)
        {
            celda += texto[i++];
        }
        else if (conComillas && c == u'"' && (entreComillas || celda.isEmpty()))
        {
            entreComillas = !entreComillas;
        }
        else if (entreComillas || (c != u'\t' && c != u'\n' && c != u'\r'))
        {
            celda += c;
        }
        else if (c == u'\t')
        {
            fila.append(std::exchange(celda, {}));
        }
        else if (c == u'\n' || i + 1 == texto.size() || texto[i + 1] != u'\n') // CR LF is one end
        {
            terminarFila();
        }
    }
    if (!celda.isEmpty() || !fila.isEmpty())
    {
        terminarFila();
    }
    return entreComillas ? std::nullopt : std::optional(filas);
}

constexpr const char* marcaUtf8 = "\xEF\xBB\xBF";
} // namespace

planilla::Filas planilla::textos(const Tabla& tabla)
{
    Filas filas;
    filas.reserve(tabla.size());
    for (const std::vector<Celda>& celdas : tabla)
    {
        QStringList& fila = filas.emplace_back();
        for (const Celda& celda : celdas)
        {
            fila.append(celda.texto);
            fila.resize(fila.size() + celda.columnas - 1);
        }
    }
    return filas;
}

QString planilla::tabulado(const Filas& filas)
{
    QString texto;
    for (const QStringList& fila : filas)
    {
        QStringList celdas;
        celdas.reserve(fila.size());
        std::transform(fila.cbegin(), fila.cend(), std::back_inserter(celdas), celdaDeTabulado);
        texto += celdas.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return texto;
}

planilla::Filas planilla::leerTabulado(const QString& texto)
{
    const std::optional<Filas> filas = leerCeldas(texto, true);
    return filas ? *filas : *leerCeldas(texto, false);
}

void planilla::escribirCsv(const QString& ruta, const Filas& filas)
{
    Archivos::Parte parte(ruta);
    EscritorDeLineas escritor(parte.ruta(), ruta);
    for (std::size_t i = 0; i < filas.size(); ++i)
    {
        escritor.imprimir((i == 0 ? QByteArray(marcaUtf8) : QByteArray()) + lineaDeCsv(filas[i]));
    }
    escritor.cerrar();
    parte.colocar();
}
