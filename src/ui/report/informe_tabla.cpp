#include "ui/report/informe_tabla.h"

#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"
#include "ui/report/informe_contenido.h"

#include <QRegularExpression>
#include <QXmlStreamReader>
#include <algorithm>
#include <optional>

namespace
{
constexpr qint64 tramo = 64; // rows between two calls of the progress

planilla::Celda celdaImpresa(const QString& texto, bool aLaDerecha)
{
    static const QRegularExpression importe(QStringLiteral("^-?(0|[1-9]\\d{0,2}(\\.\\d{3}){0,3}),\\d{2}$"));
    static const QRegularExpression entero(QStringLiteral("^(0|[1-9]\\d{0,8})$"));
    if (importe.match(texto).hasMatch())
    {
        return {texto, Moneda::deTexto(texto)};
    }
    if (aLaDerecha && entero.match(texto).hasMatch())
    {
        return {texto, qint64{texto.toLongLong()}};
    }
    const std::optional<QDate> fecha = LeerFecha(texto);
    return fecha && fecha->toString(u"dd/MM/yyyy") == texto ? planilla::Celda{texto, *fecha} : planilla::Celda{texto};
}

/// Adds the rows that a piece of a table prints. What XML does not know is a blank. Throws 13 for a layout that is
/// none.
void agregarFilas(const std::string& html, planilla::Tabla& filas)
{
    QString texto = QStringLiteral("<tabla>") + QString::fromStdString(html) + QStringLiteral("</tabla>");
    const auto desconocido = [](QChar c) { return c < u' ' || c == u'\xFFFE' || c == u'\xFFFF'; };
    std::replace_if(texto.begin(), texto.end(), desconocido, QLatin1Char(' '));
    QXmlStreamReader xml(texto);
    while (!xml.atEnd())
    {
        if (xml.readNext() != QXmlStreamReader::StartElement)
        {
            continue;
        }
        if (xml.name() == QLatin1String("tr"))
        {
            filas.emplace_back();
        }
        else if (!filas.empty() && (xml.name() == QLatin1String("td") || xml.name() == QLatin1String("th")))
        {
            const bool titulo = xml.name() == QLatin1String("th");
            const bool aLaDerecha = xml.attributes().value(QLatin1String("align")) == QLatin1String("right");
            const int columnas = std::clamp(xml.attributes().value(QLatin1String("colspan")).toInt(), 1, 100);
            const QString impreso = xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
            planilla::Celda& celda =
                filas.back().emplace_back(titulo ? planilla::Celda{impreso} : celdaImpresa(impreso, aLaDerecha));
            celda.titulo = titulo;
            celda.columnas = columnas;
        }
    }
    if (xml.hasError())
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::NoCoincidenTipos, xml.errorString());
    }
}
} // namespace

bool tieneTabla(const ContenidoDeInforme& contenido)
{
    const auto& bandas = contenido.plantilla().bandas;
    return std::any_of(bandas.begin(), bandas.end(), [](const BandaDeInforme& banda) { return banda.tabla; });
}

planilla::Tabla filasDeTablas(const ContenidoDeInforme& contenido, const Aviso& aviso)
{
    std::size_t total = 0;
    for (std::size_t banda = 0; banda < contenido.bandas(); ++banda)
    {
        total += contenido.banda(banda).tabla ? contenido.filas(banda) : 0;
    }
    planilla::Tabla filas;
    qint64 hechas = 0;
    for (std::size_t banda = 0; banda < contenido.bandas(); ++banda)
    {
        if (!contenido.banda(banda).tabla)
        {
            continue;
        }
        if (!filas.empty())
        {
            filas.emplace_back();
        }
        agregarFilas(contenido.tabla(banda, {}), filas);
        for (std::size_t fila = 0; fila < contenido.filas(banda); ++fila)
        {
            agregarFilas(contenido.fila(banda, fila), filas);
            if (++hechas % tramo == 0 && aviso)
            {
                aviso(hechas, static_cast<qint64>(total));
            }
        }
    }
    return filas;
}
